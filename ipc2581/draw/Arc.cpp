#include "ipc2581/draw/Arc.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Arc::CIPC2581_Arc() : CIPC2581_Arc(WithoutParts())
{
    CIPC2581_Arc::Init();
}

CIPC2581_Arc::CIPC2581_Arc(const CIPC2581_Arc & other) : CIPC2581_Arc()
{
    CIPC2581_Arc::operator=(other);
}

CIPC2581_Arc::~CIPC2581_Arc()
{
    delete StartPoint;
    delete EndPoint;
    delete CenterPoint;
    delete LineDesc;
}

int CIPC2581_Arc::Import(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Holds("Arc")) {
            ScanAttributes<Fields<CIPC2581_Arc>::Arc>(line.Tokens(), *this);
        }
        else if (line.Holds("LineDesc")) {
            ReadLineDesc(line.Tokens(), *LineDesc);
        }
        else if (line.Holds("/Line")) {
            return 1;
        }
    }
    return 1;
}

int CIPC2581_Arc::Export(CStdioFile & file, int level)
{
    WriteLine(file,
              "%s<Arc startX=\"%f\" startY=\"%f\" endX=\"%f\" endY=\"%f\" centerX=\"%f\" centerY=\"%f\" "
              "clockwise=\"%s\">\n",
              Indent(level + 1), StartPoint->GetPoint_X(), StartPoint->GetPoint_Y(), EndPoint->GetPoint_X(),
              EndPoint->GetPoint_Y(), CenterPoint->GetPoint_X(), CenterPoint->GetPoint_Y(),
              TrueOrFalse(Clockwise == 1));
    if (LineDesc->Export(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Arc>\n", Indent(level + 1));
    return 1;
}

CIPC2581_Arc * CIPC2581_Arc::clone()
{
    return new CIPC2581_Arc(*this);
}

CIPC2581_Arc & CIPC2581_Arc::operator=(const CIPC2581_Arc & other)
{
    if (this != &other) {
        // The points stay, each assigned to itself: hosts place a copied arc themselves.
        StartPoint->operator=(*StartPoint);
        EndPoint->operator=(*EndPoint);
        CenterPoint->operator=(*CenterPoint);
        Clockwise = other.Clockwise;
        *LineDesc = *other.LineDesc;
    }
    return *this;
}

void CIPC2581_Arc::Init()
{
    CIPC2581_DrawObj::Init();
    Clockwise = 0;
    ResetOrCreate(StartPoint);
    ResetOrCreate(EndPoint);
    ResetOrCreate(CenterPoint);
    ResetOrCreate(LineDesc);
}
