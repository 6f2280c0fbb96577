#include "ipc2581/cad/PhyNetGroup.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_PhyNetGroup::CIPC2581_Ecad_CadData_Step_PhyNetGroup() = default;
CIPC2581_Ecad_CadData_Step_PhyNetGroup::~CIPC2581_Ecad_CadData_Step_PhyNetGroup() = default;

int CIPC2581_Ecad_CadData_Step_PhyNetGroup::Export(CStdioFile & file, int level)
{
    return ExportKeyedElement(file, level, "PhyNetGroup", "name", Name, PhyNetArray);
}

void CIPC2581_Ecad_CadData_Step_PhyNetGroup::PhyNetGroupAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("PhyNet")) {
            auto net = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet>::PhyNet>(line, file);
            net->PhyNetAdd(file);
            Append(PhyNetArray, std::move(net));
        }
        else if (line.Holds("/PhyNetGroup")) {
            return;
        }
    }
}
