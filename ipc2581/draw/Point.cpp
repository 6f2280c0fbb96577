#include "ipc2581/draw/Point.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using namespace ipc2581::detail;

CIPC2581_Point::CIPC2581_Point() : Point(new CPointD()) {}

CIPC2581_Point::CIPC2581_Point(ObjectBlocks & blocks) : Point(MakeFrom<CPointD>(blocks)) {}

CIPC2581_Point::CIPC2581_Point(const CIPC2581_Point & other) : Point(new CPointD(*other.Point)) {}

CIPC2581_Point::~CIPC2581_Point()
{
    // The class of points has virtual operations and, being a value, no virtual destructor. Nothing derives from it
    // here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"
    delete Point;
#pragma GCC diagnostic pop
}

CIPC2581_Point * CIPC2581_Point::clone()
{
    return new CIPC2581_Point(*this);
}

CIPC2581_Point & CIPC2581_Point::operator=(const CIPC2581_Point & other)
{
    if (this != &other) {
        *Point = *other.Point;
    }
    return *this;
}

int CIPC2581_Point::Import(CStdioFile & /*file*/)
{
    return 1;
}

int CIPC2581_Point::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<PolyBegin x=\"%f\" y=\"%f\" />\n", Indent(level + 1), Point->X, Point->Y);
    return 1;
}

void CIPC2581_Point::Init()
{
    ResetOrCreate(Point);
}
