#include "ipc2581/content/DicDraw_RectCham.h"

#include "ipc2581/base/AttributeScan.h"
#include "ipc2581/base/LineTemplate.h"
#include "ipc2581/content/PrimitiveRows.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_RectCham::~CIPC2581_DicDraw_RectCham() = default;

int CIPC2581_DicDraw_RectCham::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("width", Width), Number("height", Height), Number("chamfer", Chamfer),
                            CornerFlag("upperRight", UpperRight), CornerFlag("upperLeft", UpperLeft),
                            CornerFlag("lowerLeft", LowerLeft), CornerFlag("lowerRight", LowerRight)});
    return 1;
}

int CIPC2581_DicDraw_RectCham::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<RectCham width=\"%f\" height=\"%f\" chamfer=\"%f\" %s%s%s%s />\n", Indent(level + 1), Width,
              Height, Chamfer, CornerPiece(UpperRight, "upperRight=\"TRUE\""),
              CornerPiece(UpperLeft, "upperLeft=\"TRUE\""), CornerPiece(LowerLeft, "lowerLeft=\"TRUE\""),
              CornerPiece(LowerRight, "lowerRight=\"TRUE\""));
    return 1;
}

void CIPC2581_DicDraw_RectCham::Init()
{
    *this = CIPC2581_DicDraw_RectCham();
}
