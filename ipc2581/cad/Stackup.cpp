#include "ipc2581/cad/Stackup.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"

using namespace ipc2581::detail;

CIPC2581_Ecad_CadData_Stackup::CIPC2581_Ecad_CadData_Stackup() = default;
CIPC2581_Ecad_CadData_Stackup::~CIPC2581_Ecad_CadData_Stackup() = default;

int CIPC2581_Ecad_CadData_Stackup::Export(CStdioFile & file, int level)
{
    return StackupGroupArray.Export(file, level) != 0 ? 1 : 0;
}

void CIPC2581_Ecad_CadData_Stackup::ReadStackUp(CArray<CString, CString> & tokens, CStdioFile & file)
{
    ScanAttributes(tokens, {Text("overallThickness=", overallThickness), Text("tolPlus=", tolPlus),
                            Text("tolMinus=", tolMinus), Text("whereMeasured=", whereMeasured)});
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("StackupGroup")) {
            auto group = New<CIPC2581_Ecad_CadData_Stackup_StackupGroup>(file);
            ScanAttributes(line.Tokens(), {Text("name=", group->name), Number("thickness=", group->thickness),
                                           Number("tolPlus=", group->tolPlus), Number("tolMinus=", group->tolMinus)});
            // Appended before its lines are read, so that a group is kept however its lines end.
            Append(StackupGroupArray, std::move(group))->StackUpGroupAdd(file);
        }
        else if (line.Holds("/Stackup")) {
            return;
        }
    }
}
