#include "ipc2581/content/DicDraw_Thermal.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_Thermal::~CIPC2581_DicDraw_Thermal() = default;

int CIPC2581_DicDraw_Thermal::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_Thermal>::Thermal>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_Thermal::Export(CStdioFile & file, int level)
{
    WriteLine(file,
              "%s<Thermal shape=\"%s\" outerDiameter=\"%f\" innerDiameter=\"%f\" spokeCount=\"4\" gap=\"%f\" "
              "spokeStartAngle=\"%f\" />\n",
              Indent(level + 1), GetShapeType(Shape), OuterDiameter, InnerDiameter, Gap, SpokeStartAngle);
    return 1;
}

void CIPC2581_DicDraw_Thermal::Init()
{
    CIPC2581_DicDraw_Thermal::operator=(CIPC2581_DicDraw_Thermal());
}
