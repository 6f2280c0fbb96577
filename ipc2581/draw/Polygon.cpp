#include "ipc2581/draw/Polygon.h"

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/draw/PolyContour.h"

using namespace ipc2581::detail;

CIPC2581_Polygon::CIPC2581_Polygon()
{
    CIPC2581_Polygon::InIt();
}

CIPC2581_Polygon::CIPC2581_Polygon(ObjectBlocks & blocks) : ContourShape(blocks, ipc2581::DrawTypes::Polygon) {}

CIPC2581_Polygon::CIPC2581_Polygon(const CIPC2581_Polygon & other) : CIPC2581_Polygon()
{
    CIPC2581_Polygon::operator=(other);
}

CIPC2581_Polygon::~CIPC2581_Polygon()
{
    DeleteContour();
}

int CIPC2581_Polygon::Import(CStdioFile & file)
{
    ReadClosedContour(file, "/Polygon", PolyBegin, PolyStepArray);
    return 1;
}

int CIPC2581_Polygon::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "Polygon", PolyBegin, PolyStepArray);
}

CIPC2581_Polygon * CIPC2581_Polygon::clone()
{
    return new CIPC2581_Polygon(*this);
}

CIPC2581_Polygon & CIPC2581_Polygon::operator=(const CIPC2581_Polygon & other)
{
    CopyContour(other);
    return *this;
}

void CIPC2581_Polygon::InIt()
{
    DrawType = ipc2581::DrawTypes::Polygon;
    ResetOrCreate(PolyBegin);
    EmptyOrCreate(PolyStepArray);
}
