#include "ipc2581/content/DicDraw_RectCham.h"

#include "ipc2581/base/lines/AttributeScan.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_RectCham::~CIPC2581_DicDraw_RectCham() = default;

int CIPC2581_DicDraw_RectCham::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_RectCham>::RectCham>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_RectCham::Export(CStdioFile & file, int level)
{
    WriteCorneredRect(file, level, "RectCham", "chamfer",
                      {Width, Height, Chamfer, UpperRight, UpperLeft, LowerLeft, LowerRight});
    return 1;
}

void CIPC2581_DicDraw_RectCham::Init()
{
    CIPC2581_DicDraw_RectCham::operator=(CIPC2581_DicDraw_RectCham());
}
