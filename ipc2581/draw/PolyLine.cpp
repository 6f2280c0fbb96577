#include "ipc2581/draw/PolyLine.h"

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/draw/PolyContour.h"

using namespace ipc2581::detail;

CIPC2581_PolyLine::CIPC2581_PolyLine()
{
    CIPC2581_PolyLine::Init();
}

CIPC2581_PolyLine::CIPC2581_PolyLine(ObjectBlocks & blocks)
    : ContourShape(blocks, ipc2581::DrawTypes::PolyLine), LineDesc(MakeFrom<CIPC2581_LineDesc>(blocks))
{
}

CIPC2581_PolyLine::CIPC2581_PolyLine(const CIPC2581_PolyLine & other) : CIPC2581_PolyLine()
{
    CIPC2581_PolyLine::operator=(other);
}

CIPC2581_PolyLine::~CIPC2581_PolyLine()
{
    DeleteContour();
    delete LineDesc;
}

int CIPC2581_PolyLine::Import(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        // A begin point does not end the turn here: the tests below are made of its line too.
        if (line.Holds("PolyBegin")) {
            ReadPolyBegin(line.Tokens(), *PolyBegin);
        }
        if (ReadPolyStep(line, file, *PolyStepArray)) {
            continue;
        }
        if (line.Holds("LineDesc")) {
            ReadLineDesc(line.Tokens(), *LineDesc);
        }
        else if (line.Holds("/Polyline")) {
            return 1;
        }
    }
    return 1;
}

int CIPC2581_PolyLine::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "Polyline", PolyBegin, PolyStepArray, LineDesc);
}

CIPC2581_PolyLine * CIPC2581_PolyLine::clone()
{
    return new CIPC2581_PolyLine(*this);
}

CIPC2581_PolyLine & CIPC2581_PolyLine::operator=(const CIPC2581_PolyLine & other)
{
    if (this != &other) {
        DrawType = other.DrawType;
        CopyContour(other);
        *LineDesc = *other.LineDesc;
    }
    return *this;
}

void CIPC2581_PolyLine::Init()
{
    DrawType = ipc2581::DrawTypes::PolyLine;
    ResetOrCreate(PolyBegin);
    EmptyOrCreate(PolyStepArray);
    ResetOrCreate(LineDesc);
}
