#include "ipc2581/content/DicDraw_RectCorner.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_RectCorner::~CIPC2581_DicDraw_RectCorner() = default;

int CIPC2581_DicDraw_RectCorner::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_RectCorner>::RectCorner>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_RectCorner::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<RectCorner lowerLeftX=\"%f\" lowerLeftY=\"%f\" upperRightX=\"%f\" upperRightY=\"%f\" />\n",
              Indent(level + 1), Lower_LeftX, Lower_LeftY, Upper_RightX, Upper_RightY);
    return 1;
}

void CIPC2581_DicDraw_RectCorner::Init()
{
    CIPC2581_DicDraw_RectCorner::operator=(CIPC2581_DicDraw_RectCorner());
}
