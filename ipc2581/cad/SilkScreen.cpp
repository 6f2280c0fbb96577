#include "ipc2581/cad/SilkScreen.h"

#include <utility>

#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using namespace ipc2581::detail;

CIPC2581_Ecad_CadData_Step_Package_SilkScreen::CIPC2581_Ecad_CadData_Step_Package_SilkScreen()
    : CIPC2581_Ecad_CadData_Step_Package_SilkScreen(WithoutParts())
{
    Outline = new CIPC2581_Outline();
}

CIPC2581_Ecad_CadData_Step_Package_SilkScreen::CIPC2581_Ecad_CadData_Step_Package_SilkScreen(ObjectBlocks & blocks)
    : Text(blocks)
{
    Outline = MakeFrom<CIPC2581_Outline>(blocks);
}

CIPC2581_Ecad_CadData_Step_Package_SilkScreen::~CIPC2581_Ecad_CadData_Step_Package_SilkScreen()
{
    delete Outline;
}

int CIPC2581_Ecad_CadData_Step_Package_SilkScreen::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "SilkScreen", Outline, Text, TargetArray);
}

void CIPC2581_Ecad_CadData_Step_Package_SilkScreen::SilkScreenAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Target")) {
            auto target = New<CIPC2581_Ecad_CadData_Step_Target>(file);
            target->TargetAdd(file);
            Append(TargetArray, std::move(target));
        }
        else if (line.Holds("/SilkScreen")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray::CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray() = default;

CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray::~CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray()
{
    DeleteAll();
}
