#include "ipc2581/content/DicDraw_Moire.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_Moire::~CIPC2581_DicDraw_Moire() = default;

int CIPC2581_DicDraw_Moire::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_Moire>::Moire>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_Moire::Export(CStdioFile & file, int level)
{
    // The line length stands in the place of the diameter, and the other six numbers are 0.
    WriteLine(file,
              "%s<Moire diameter=\"%f\" ringWidth=\"%f\" ringGap=\"%f\" ringNumber=\"%d\" lineWidth=\"%f\" "
              "lineLength=\"%f\" lineAngle=\"%f\" />\n",
              Indent(level + 1), LineLength, 0.0, 0.0, 0, 0.0, 0.0, 0.0);
    return 1;
}
