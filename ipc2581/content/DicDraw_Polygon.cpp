#include "ipc2581/content/DicDraw_Polygon.h"

#include "ipc2581/base/lines/LineTemplate.h"

CIPC2581_DicDraw_Polygon::~CIPC2581_DicDraw_Polygon()
{
    DeleteList();
}

int CIPC2581_DicDraw_Polygon::Export(CStdioFile & file, int level)
{
    return ipc2581::detail::ExportElement(file, level, "Polygon", PtArray);
}

CIPC2581_DicDraw_Polygon & CIPC2581_DicDraw_Polygon::operator=(const CIPC2581_DicDraw_Polygon & other)
{
    CopyContour(other);
    return *this;
}
