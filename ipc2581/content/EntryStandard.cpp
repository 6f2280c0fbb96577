#include "ipc2581/content/EntryStandard.h"

#include <array>
#include <memory>
#include <new>
#include <string_view>

#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/content/DicDraw.h"

using namespace ipc2581::detail;

using EntryStandard = CIPC2581_Content_DictionaryStandard_EntryStandard;
using EntryStandardArray = CIPC2581_Content_DictionaryStandard_EntryStandardArray;

namespace {

struct ShapeRow {
    Word word;
    std::unique_ptr<CIPC2581_DrawObj> (*make)(CStdioFile & file);
};

template <typename Shape>
std::unique_ptr<CIPC2581_DrawObj> Make(CStdioFile & file)
{
    return New<Shape>(file);
}

// The order decides where a line holds two of the names.
constexpr std::array<ShapeRow, 16> Shapes = {{
    {"Butterfly", &Make<CIPC2581_DicDraw_Butterfly>},
    {"Circle", &Make<CIPC2581_DicDraw_Circle>},
    {"Contour", &Make<CIPC2581_DicDraw_Contour>},
    {"Diamond", &Make<CIPC2581_DicDraw_Diamond>},
    {"Donut", &Make<CIPC2581_DicDraw_Donut>},
    {"Ellipse", &Make<CIPC2581_DicDraw_Ellipse>},
    {"Hexagon", &Make<CIPC2581_DicDraw_Hexagon>},
    {"Moire", &Make<CIPC2581_DicDraw_Moire>},
    {"Octagon", &Make<CIPC2581_DicDraw_Octagon>},
    {"Oval", &Make<CIPC2581_DicDraw_Oval>},
    {"RectCenter", &Make<CIPC2581_DicDraw_RectCenter>},
    {"RectCham", &Make<CIPC2581_DicDraw_RectCham>},
    {"RectCorner", &Make<CIPC2581_DicDraw_RectCorner>},
    {"RectRound", &Make<CIPC2581_DicDraw_RectRound>},
    {"Thermal", &Make<CIPC2581_DicDraw_Thermal>},
    {"Triangle", &Make<CIPC2581_DicDraw_Triangle>},
}};

// The one shape whose line is asked for a slash, and that reads further lines.
bool IsContour(const ShapeRow & row)
{
    return row.make == &Make<CIPC2581_DicDraw_Contour>;
}

const ShapeRow * FindShape(const LineCycle & line)
{
    for (const ShapeRow & row : Shapes) {
        if (IsContour(row) ? line.Opens(row.word) : line.Holds(row.word)) {
            return &row;
        }
    }
    return nullptr;
}

void AddShape(const ShapeRow & row, LineCycle & line, CStdioFile & file, CIPC2581_DrawObjArray *& shapes)
{
    std::unique_ptr<CIPC2581_DrawObj> shape = row.make(file);
    if (IsContour(row)) {
        shape->Import(file);
    }
    else {
        LineTokens tokens;
        shape->Import(line.CopyTokens(tokens));
    }
    Append(*shapes, std::move(shape));
}

}  // namespace

EntryStandard::CIPC2581_Content_DictionaryStandard_EntryStandard() : DrawArray(new CIPC2581_DrawObjArray()) {}

EntryStandard::CIPC2581_Content_DictionaryStandard_EntryStandard(ObjectBlocks & blocks)
    : DrawArray(MakeFrom<CIPC2581_DrawObjArray>(blocks))
{
}

EntryStandard::CIPC2581_Content_DictionaryStandard_EntryStandard(const EntryStandard & other)
    : CIPC2581_Content_DictionaryStandard_EntryStandard()
{
    EntryStandard::operator=(other);
}

EntryStandard::~CIPC2581_Content_DictionaryStandard_EntryStandard()
{
    delete DrawArray;
}

EntryStandard * EntryStandard::clone() const
{
    try {
        return new EntryStandard(*this);
    }
    catch (const std::bad_alloc &) {
        return nullptr;
    }
}

int EntryStandard::Import(CStdioFile & file)
{
    LineCycle line(file, LineForm::WholeLine);
    while (line.Next()) {
        if (const ShapeRow * const shape = FindShape(line)) {
            AddShape(*shape, line, file, DrawArray);
        }
        else if (line.Holds("/EntryStandard")) {
            return 1;
        }
    }
    return 1;
}

int EntryStandard::Export(CStdioFile & file, int level)
{
    return ExportKeyedElement(file, level, "EntryStandard", "id", EntryStandardId, DrawArray);
}

EntryStandard & EntryStandard::operator=(const EntryStandard & other)
{
    if (this != &other) {
        EntryStandardId = other.EntryStandardId;
        *DrawArray = *other.DrawArray;
    }
    return *this;
}

void EntryStandard::Init()
{
    EntryStandardId = "";
    // The old list is let go, not deleted: hosts may still hold it.
    DrawArray = new CIPC2581_DrawObjArray();
}

EntryStandardArray::CIPC2581_Content_DictionaryStandard_EntryStandardArray() = default;

EntryStandardArray::CIPC2581_Content_DictionaryStandard_EntryStandardArray(const EntryStandardArray & other)
    : CIPC2581_Content_DictionaryStandard_EntryStandardArray()
{
    AssignClones(*this, other);
}

EntryStandardArray & EntryStandardArray::operator=(const EntryStandardArray & other)
{
    AssignClones(*this, other);
    return *this;
}

EntryStandardArray::~CIPC2581_Content_DictionaryStandard_EntryStandardArray()
{
    DeleteAll();
}

int EntryStandardArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

EntryStandard * EntryStandardArray::pGetEntryStandardWithName(CString name) const
{
    return FindFirst(*this, &EntryStandard::EntryStandardId, name);
}
