#include "ipc2581/content/DicDraw_RectRound.h"

#include "ipc2581/base/lines/AttributeScan.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_RectRound::~CIPC2581_DicDraw_RectRound() = default;

int CIPC2581_DicDraw_RectRound::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_RectRound>::RectRound>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_RectRound::Export(CStdioFile & file, int level)
{
    WriteCorneredRect(file, level, "RectRound", "radius",
                      {Width, Height, Radius, UpperRight, UpperLeft, LowerLeft, LowerRight});
    return 1;
}

void CIPC2581_DicDraw_RectRound::Init()
{
    CIPC2581_DicDraw_RectRound::operator=(CIPC2581_DicDraw_RectRound());
}
