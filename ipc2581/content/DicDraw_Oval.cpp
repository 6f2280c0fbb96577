#include "ipc2581/content/DicDraw_Oval.h"

#include "ipc2581/base/AttributeScan.h"
#include "ipc2581/base/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_Oval::~CIPC2581_DicDraw_Oval() = default;

int CIPC2581_DicDraw_Oval::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Number("width", Width), Number("height", Height)});
    return 1;
}

int CIPC2581_DicDraw_Oval::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Oval width=\"%f\" height=\"%f\" />\n", Indent(level + 1), Width, Height);
    return 1;
}

void CIPC2581_DicDraw_Oval::Init()
{
    *this = CIPC2581_DicDraw_Oval();
}
