#include "ipc2581/content/DicDraw_RectCorner.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_RectCorner::~CIPC2581_DicDraw_RectCorner() = default;

int CIPC2581_DicDraw_RectCorner::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("lowerLeftX", Lower_LeftX), Number("lowerLeftY", Lower_LeftY),
                            Number("upperRightX", Upper_RightX), Number("upperRightY", Upper_RightY)});
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
