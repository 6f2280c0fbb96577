#include "ipc2581/draw/Line.h"

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using namespace ipc2581::detail;

CIPC2581_Line::CIPC2581_Line() : CIPC2581_Line(WithoutParts())
{
    CIPC2581_Line::Init();
}

CIPC2581_Line::CIPC2581_Line(ObjectBlocks & blocks) : CIPC2581_Line(WithoutParts())
{
    DrawType = ipc2581::DrawTypes::Line;
    StartPoint = MakeFrom<CIPC2581_Point>(blocks);
    EndPoint = MakeFrom<CIPC2581_Point>(blocks);
    LineDesc = MakeFrom<CIPC2581_LineDesc>(blocks);
}

CIPC2581_Line::CIPC2581_Line(const CIPC2581_Line & other) : CIPC2581_Line()
{
    CIPC2581_Line::operator=(other);
}

CIPC2581_Line::~CIPC2581_Line()
{
    delete StartPoint;
    delete EndPoint;
    delete LineDesc;
}

int CIPC2581_Line::Import(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Holds("LineDesc")) {
            ReadLineDesc(line.Tokens(), *LineDesc);
        }
        else if (line.Holds("/Line")) {
            return 1;
        }
    }
    return 1;
}

int CIPC2581_Line::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Line startX=\"%f\" startY=\"%f\" endX=\"%f\" endY=\"%f\">\n", Indent(level + 1),
              StartPoint->GetPoint_X(), StartPoint->GetPoint_Y(), EndPoint->GetPoint_X(), EndPoint->GetPoint_Y());
    if (LineDesc->Export(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Line>\n", Indent(level + 1));
    return 1;
}

CIPC2581_Line * CIPC2581_Line::clone()
{
    return new CIPC2581_Line(*this);
}

CIPC2581_Line & CIPC2581_Line::operator=(const CIPC2581_Line & other)
{
    if (this != &other) {
        *StartPoint = *other.StartPoint;
        *EndPoint = *other.EndPoint;
        *LineDesc = *other.LineDesc;
    }
    return *this;
}

void CIPC2581_Line::Init()
{
    DrawType = ipc2581::DrawTypes::Line;
    ResetOrCreate(StartPoint);
    ResetOrCreate(EndPoint);
    ResetOrCreate(LineDesc);
}

void CIPC2581_Line::SetData(double x1, double y1, double x2, double y2, CIPC2581_LineDesc * desc)
{
    StartPoint->Point->SetData(x1, y1);
    EndPoint->Point->SetData(x2, y2);
    SetLineDesc(desc);
}
