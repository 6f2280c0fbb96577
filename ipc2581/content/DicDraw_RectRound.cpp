#include "ipc2581/content/DicDraw_RectRound.h"

#include "ipc2581/base/AttributeScan.h"
#include "ipc2581/base/LineTemplate.h"
#include "ipc2581/content/PrimitiveRows.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_RectRound::~CIPC2581_DicDraw_RectRound() = default;

int CIPC2581_DicDraw_RectRound::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("width", Width), Number("height", Height), Number("radius", Radius),
                            CornerFlag("upperRight", UpperRight), CornerFlag("upperLeft", UpperLeft),
                            CornerFlag("lowerLeft", LowerLeft), CornerFlag("lowerRight", LowerRight)});
    return 1;
}

int CIPC2581_DicDraw_RectRound::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<RectRound width=\"%f\" height=\"%f\" radius=\"%f\" %s%s%s%s />\n", Indent(level + 1), Width,
              Height, Radius, CornerPiece(UpperRight, "upperRight=\"TRUE\""),
              CornerPiece(UpperLeft, "upperLeft=\"TRUE\""), CornerPiece(LowerLeft, "lowerLeft=\"TRUE\""),
              CornerPiece(LowerRight, "lowerRight=\"TRUE\""));
    return 1;
}

void CIPC2581_DicDraw_RectRound::Init()
{
    *this = CIPC2581_DicDraw_RectRound();
}
