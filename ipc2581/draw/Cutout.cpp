#include "ipc2581/draw/Cutout.h"

#include <memory>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/draw/PolyContour.h"

using namespace ipc2581::detail;

CIPC2581_Cutout::CIPC2581_Cutout()
{
    CIPC2581_Cutout::Init();
}

CIPC2581_Cutout::CIPC2581_Cutout(ObjectBlocks & blocks) : ContourShape(blocks, ipc2581::DrawTypes::Cutout) {}

CIPC2581_Cutout::CIPC2581_Cutout(const CIPC2581_Cutout & other) : CIPC2581_Cutout()
{
    CIPC2581_Cutout::operator=(other);
}

CIPC2581_Cutout::~CIPC2581_Cutout()
{
    DeleteContour();
}

int CIPC2581_Cutout::Import(CStdioFile & file)
{
    ReadClosedContour(file, "/Cutout", PolyBegin, PolyStepArray);
    return 1;
}

int CIPC2581_Cutout::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "Cutout", PolyBegin, PolyStepArray);
}

CIPC2581_Cutout * CIPC2581_Cutout::clone()
{
    return new CIPC2581_Cutout(*this);
}

CIPC2581_Cutout & CIPC2581_Cutout::operator=(const CIPC2581_Cutout & other)
{
    CopyContour(other);
    return *this;
}

void CIPC2581_Cutout::Init()
{
    DrawType = ipc2581::DrawTypes::Cutout;
    // New parts, unlike in a polygon: hosts rely on the getters giving new objects behind Init.
    delete PolyBegin;
    PolyBegin = nullptr;
    PolyBegin = new CIPC2581_Point();
    delete PolyStepArray;
    PolyStepArray = nullptr;
    PolyStepArray = new CIPC2581_PolyStepArray();
}

CIPC2581_CutoutArray::CIPC2581_CutoutArray()
{
    DrawType = ipc2581::DrawTypes::CutoutArray;
}

// The draw type of a copy stays that of a plain shape.
CIPC2581_CutoutArray::CIPC2581_CutoutArray(const CIPC2581_CutoutArray & other) : CIPC2581_CutoutArray()
{
    CIPC2581_DrawObj::Init();
    CIPC2581_CutoutArray::operator=(other);
}

CIPC2581_CutoutArray::~CIPC2581_CutoutArray()
{
    DeleteAll();
}

CIPC2581_CutoutArray * CIPC2581_CutoutArray::clone()
{
    return new CIPC2581_CutoutArray(*this);
}

CIPC2581_CutoutArray & CIPC2581_CutoutArray::operator=(const CIPC2581_CutoutArray & other)
{
    if (this == &other) {
        return *this;
    }
    DeleteAll();
    for (std::int64_t i = 0; i < other.GetSize(); ++i) {
        ipc2581::detail::Append(*this, std::unique_ptr<CIPC2581_Cutout>(other.GetAt(i)->clone()));
    }
    return *this;
}
