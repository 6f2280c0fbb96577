#include "ipc2581/cad/StackupGroup.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Stackup_StackupGroup::CIPC2581_Ecad_CadData_Stackup_StackupGroup() = default;
CIPC2581_Ecad_CadData_Stackup_StackupGroup::~CIPC2581_Ecad_CadData_Stackup_StackupGroup() = default;

int CIPC2581_Ecad_CadData_Stackup_StackupGroup::Export(CStdioFile & /*file*/, int /*level*/)
{
    return 1;
}

void CIPC2581_Ecad_CadData_Stackup_StackupGroup::StackUpGroupAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("StackupLayer")) {
            Append(StackupLayerArray,
                   NewFrom<Fields<CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer>::StackupLayer>(line, file));
        }
        else if (line.Holds("/StackupGroup")) {
            return;
        }
    }
}

CIPC2581_StackupGroupArray::CIPC2581_StackupGroupArray() = default;

CIPC2581_StackupGroupArray::~CIPC2581_StackupGroupArray()
{
    DeleteAll();
}

int CIPC2581_StackupGroupArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
