#include "ipc2581/content/DicDraw_Cutout.h"

#include "ipc2581/base/lines/LineTemplate.h"

CIPC2581_DicDraw_Cutout::~CIPC2581_DicDraw_Cutout()
{
    DeleteList();
}

int CIPC2581_DicDraw_Cutout::Export(CStdioFile & file, int level)
{
    return ipc2581::detail::ExportElement(file, level, "Cutout", PtArray);
}

CIPC2581_DicDraw_Cutout & CIPC2581_DicDraw_Cutout::operator=(const CIPC2581_DicDraw_Cutout & other)
{
    CopyContour(other);
    return *this;
}
