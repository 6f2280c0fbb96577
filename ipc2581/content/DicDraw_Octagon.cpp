#include "ipc2581/content/DicDraw_Octagon.h"

#include "ipc2581/base/AttributeScan.h"
#include "ipc2581/base/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_Octagon::~CIPC2581_DicDraw_Octagon() = default;

int CIPC2581_DicDraw_Octagon::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("length", Length)});
    return 1;
}

int CIPC2581_DicDraw_Octagon::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Octagon length=\"%f\" />\n", Indent(level + 1), Length);
    return 1;
}
