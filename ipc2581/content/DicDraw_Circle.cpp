#include "ipc2581/content/DicDraw_Circle.h"

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_Circle::CIPC2581_DicDraw_Circle() : Primitive(ipc2581::DrawTypes::Circle) {}

CIPC2581_DicDraw_Circle::CIPC2581_DicDraw_Circle(const CIPC2581_DicDraw_Circle & other) : CIPC2581_DicDraw_Circle()
{
    CIPC2581_DicDraw_Circle::operator=(other);
}

CIPC2581_DicDraw_Circle::~CIPC2581_DicDraw_Circle() = default;

int CIPC2581_DicDraw_Circle::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_Circle>::Circle>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_Circle::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Circle diameter=\"%f\" />\n", Indent(level + 1), Diameter);
    return 1;
}

// The offsets do not travel with a copy: hosts rely on a copied circle being centred.
CIPC2581_DicDraw_Circle & CIPC2581_DicDraw_Circle::operator=(const CIPC2581_DicDraw_Circle & other)
{
    DrawType = other.DrawType;
    Diameter = other.Diameter;
    return *this;
}

void CIPC2581_DicDraw_Circle::Init()
{
    CIPC2581_DicDraw_Circle::operator=(CIPC2581_DicDraw_Circle());
    OffsetX = 0.0;
    OffsetY = 0.0;
}
