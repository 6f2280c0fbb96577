#include "ipc2581/cad/PhyNet.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet::CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet() = default;
CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet::~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet() = default;

int CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet::Export(CStdioFile & file, int level)
{
    return ExportKeyedElement(file, level, "PhyNet", "name", Name, PhyNetPointArray);
}

void CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet::PhyNetAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("PhyNetPoint")) {
            auto point =
                NewFrom<Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint>::PhyNetPoint>(line, file);
            point->PhyNetPointAdd(file);
            Append(PhyNetPointArray, std::move(point));
        }
        else if (line.Holds("/PhyNet")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray::CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray() = default;

CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray::~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
