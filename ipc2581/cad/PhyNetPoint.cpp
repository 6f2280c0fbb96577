#include "ipc2581/cad/PhyNetPoint.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/cad/Placement.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using PhyNetPoint = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;

PhyNetPoint::CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint() = default;
PhyNetPoint::CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint(const PhyNetPoint & other) = default;
PhyNetPoint & PhyNetPoint::operator=(const PhyNetPoint & other) = default;
PhyNetPoint::~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint() = default;

int PhyNetPoint::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<PhyNetPoint x=\"%f\" y=\"%f\" layerRef=\"%s\" netNode=\"%s\" exposure=\"%s\"%s>\n",
              Indent(level + 1), Location.X, Location.Y, LayerRef, NetNode, Exposure, Via != 0 ? " via=\"TRUE\"" : "");
    WriteStandardPrimitiveRef(file, level + 1, StandardPrimitiveRefId);
    WriteLine(file, "%s</PhyNetPoint>\n", Indent(level + 1));
    return 1;
}

void PhyNetPoint::PhyNetPointAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("StandardPrimitiveRef")) {
            ScanAttributes<Fields<PhyNetPoint>::StandardPrimitiveRef>(line.Tokens(), *this);
        }
        else if (line.Holds("/PhyNetPoint")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray::
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray() = default;

CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray::
    ~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
