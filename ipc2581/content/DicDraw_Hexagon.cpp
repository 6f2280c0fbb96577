#include "ipc2581/content/DicDraw_Hexagon.h"

#include "ipc2581/base/AttributeScan.h"
#include "ipc2581/base/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_Hexagon::~CIPC2581_DicDraw_Hexagon() = default;

int CIPC2581_DicDraw_Hexagon::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("length", Length)});
    return 1;
}

int CIPC2581_DicDraw_Hexagon::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Hexagon length=\"%f\" />\n", Indent(level + 1), Length);
    return 1;
}
