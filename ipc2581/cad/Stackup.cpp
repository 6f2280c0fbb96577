#include "ipc2581/cad/Stackup.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Stackup::CIPC2581_Ecad_CadData_Stackup() = default;
CIPC2581_Ecad_CadData_Stackup::~CIPC2581_Ecad_CadData_Stackup() = default;

int CIPC2581_Ecad_CadData_Stackup::Export(CStdioFile & file, int level)
{
    return StackupGroupArray.Export(file, level) != 0 ? 1 : 0;
}

void CIPC2581_Ecad_CadData_Stackup::ReadStackUp(CArray<CString, CString> & tokens, CStdioFile & file)
{
    ScanAttributes<Fields<CIPC2581_Ecad_CadData_Stackup>::Stackup>(tokens, *this);
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("StackupGroup")) {
            auto group = NewFrom<Fields<CIPC2581_Ecad_CadData_Stackup_StackupGroup>::StackupGroup>(line, file);
            // Appended before its lines are read, so that a group is kept however its lines end.
            Append(StackupGroupArray, std::move(group))->StackUpGroupAdd(file);
        }
        else if (line.Holds("/Stackup")) {
            return;
        }
    }
}
