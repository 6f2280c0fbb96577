#include "ipc2581/content/DicDraw_Thermal.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/content/PrimitiveRows.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_Thermal::~CIPC2581_DicDraw_Thermal() = default;

int CIPC2581_DicDraw_Thermal::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {ShapeWord("shape", Shape), Number("outerDiameter", OuterDiameter),
                            Number("innerDiameter", InnerDiameter), Integer("spokeCount", SpokeCount),
                            Number("gap", Gap), Number("spokeStartAngle", SpokeStartAngle)});
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
