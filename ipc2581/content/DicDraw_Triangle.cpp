#include "ipc2581/content/DicDraw_Triangle.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_Triangle::~CIPC2581_DicDraw_Triangle() = default;

int CIPC2581_DicDraw_Triangle::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_Triangle>::Triangle>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_Triangle::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Triangle base=\"%f\" height=\"%f\" />\n", Indent(level + 1), Base, Height);
    return 1;
}
