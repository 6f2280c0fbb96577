#include "ipc2581/content/DicDraw_Donut.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_Donut::~CIPC2581_DicDraw_Donut() = default;

int CIPC2581_DicDraw_Donut::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_Donut>::Donut>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_Donut::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Diamond Shape=\"%s\" outerDiameter=\"%f\" innerDiameter=\"%f\" />\n", Indent(level + 1),
              GetShapeType(Shape), OuterDiameter, InnerDiameter);
    return 1;
}

void CIPC2581_DicDraw_Donut::Init()
{
    CIPC2581_DicDraw_Donut::operator=(CIPC2581_DicDraw_Donut());
}
