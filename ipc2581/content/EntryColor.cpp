#include "ipc2581/content/EntryColor.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using EntryColor = CIPC2581_Content_DictionaryColor_EntryColor;
using EntryColorArray = CIPC2581_Content_DictionaryColor_EntryColorArray;

EntryColor::CIPC2581_Content_DictionaryColor_EntryColor() = default;
EntryColor::CIPC2581_Content_DictionaryColor_EntryColor(const EntryColor & other) = default;
EntryColor::~CIPC2581_Content_DictionaryColor_EntryColor() = default;
EntryColor & EntryColor::operator=(const EntryColor & other) = default;

int EntryColor::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<EntryColor id=\"%s\">\n", Indent(level + 1), EntryColorId);
    WriteLine(file, "%s<Color r=\"%d\" g=\"%d\" b=\"%d\" />\n", Indent(level + 2), Red, Green, Blue);
    WriteLine(file, "%s</EntryColor>\n", Indent(level + 1));
    return 1;
}

EntryColor * EntryColor::clone() const
{
    return new EntryColor(*this);
}

void EntryColor::Init()
{
    *this = EntryColor();
}

void EntryColor::EntryColorAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Color")) {
            ScanAttributes<Fields<EntryColor>::Color>(line.Tokens(), *this);
        }
        else if (line.Holds("/EntryColor")) {
            return;
        }
    }
}

EntryColorArray::CIPC2581_Content_DictionaryColor_EntryColorArray() = default;

EntryColorArray::CIPC2581_Content_DictionaryColor_EntryColorArray(const EntryColorArray & other)
    : CIPC2581_Content_DictionaryColor_EntryColorArray()
{
    AssignClones(*this, other);
}

EntryColorArray::~CIPC2581_Content_DictionaryColor_EntryColorArray()
{
    DeleteAll();
}

int EntryColorArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

EntryColorArray & EntryColorArray::operator=(const EntryColorArray & other)
{
    AssignClones(*this, other);
    return *this;
}

EntryColorArray * EntryColorArray::clone() const
{
    return new EntryColorArray(*this);
}

void EntryColorArray::Init()
{
    DeleteAll();
}
