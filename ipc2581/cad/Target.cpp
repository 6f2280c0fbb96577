#include "ipc2581/cad/Target.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "ipc2581/draw/ImportedShape.h"
#include "ipc2581/draw/PolyLine.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_Target::CIPC2581_Ecad_CadData_Step_Target()
    : CIPC2581_Ecad_CadData_Step_Target(WithoutParts())
{
    Xform = new CIPC2581_Xform();
    DrawObjArray = new CIPC2581_DrawObjArray();
}

CIPC2581_Ecad_CadData_Step_Target::CIPC2581_Ecad_CadData_Step_Target(ObjectBlocks & blocks)
    : CIPC2581_Ecad_CadData_Step_Target(WithoutParts())
{
    Xform = MakeFrom<CIPC2581_Xform>(blocks);
    DrawObjArray = MakeFrom<CIPC2581_DrawObjArray>(blocks);
}

// Transform and shapes are shared, not copied: hosts rely on it.
CIPC2581_Ecad_CadData_Step_Target::CIPC2581_Ecad_CadData_Step_Target(const CIPC2581_Ecad_CadData_Step_Target & other) =
    default;
CIPC2581_Ecad_CadData_Step_Target &
CIPC2581_Ecad_CadData_Step_Target::operator=(const CIPC2581_Ecad_CadData_Step_Target & other) = default;

CIPC2581_Ecad_CadData_Step_Target::~CIPC2581_Ecad_CadData_Step_Target()
{
    delete Xform;
    delete DrawObjArray;
}

int CIPC2581_Ecad_CadData_Step_Target::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Target>\n", Indent(level + 1));
    // With a blank in front of "/>", unlike the locations of the other elements.
    WriteLine(file, "%s<Location x=\"%f\" y=\"%f\" />\n", Indent(level + 2), Location.X, Location.Y);
    if (DrawObjArray->Export(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Target>\n", Indent(level + 1));
    return 1;
}

void CIPC2581_Ecad_CadData_Step_Target::TargetAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Contour")) {
            ImportShape<CIPC2581_DicDraw_Contour>(DrawObjArray, file);
        }
        else if (line.Opens("Location")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Target>::Location>(line.Tokens(), *this);
        }
        else if (line.Opens("Polyline")) {
            ImportShape<CIPC2581_PolyLine>(DrawObjArray, file);
        }
        else if (line.Holds("/Target")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_TargetArray::CIPC2581_Ecad_CadData_Step_TargetArray() = default;

CIPC2581_Ecad_CadData_Step_TargetArray::~CIPC2581_Ecad_CadData_Step_TargetArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_TargetArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
