#include "ipc2581/content/DicDraw_Diamond.h"

#include "ipc2581/base/AttributeScan.h"
#include "ipc2581/base/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_Diamond::~CIPC2581_DicDraw_Diamond() = default;

int CIPC2581_DicDraw_Diamond::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("width", Width), Number("height", Height)});
    return 1;
}

int CIPC2581_DicDraw_Diamond::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Diamond width=\"%f\" height=\"%f\" />\n", Indent(level + 1), Width, Height);
    return 1;
}
