#include "ipc2581/cad/SilkScreenTarget.h"

#include <utility>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/content/DicDraw_Contour.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using SilkScreenTarget = CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target;

SilkScreenTarget::CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target() = default;
SilkScreenTarget::CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target(const SilkScreenTarget & other) = default;
SilkScreenTarget & SilkScreenTarget::operator=(const SilkScreenTarget & other) = default;
SilkScreenTarget::~CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target() = default;

void SilkScreenTarget::TargetAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Contour")) {
            auto contour = New<CIPC2581_DicDraw_Contour>(file);
            // Not the contour's own type: hosts tell the contours of these targets by it.
            contour->DrawType = ipc2581::DrawTypes::SilkScreenContour;
            contour->Import(file);
            Append(DrawObjArray, std::move(contour));
        }
        else if (line.Opens("Location")) {
            ScanAttributes<Fields<SilkScreenTarget>::Location>(line.Tokens(), *this);
        }
        else if (line.Holds("/Target")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray::CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray() =
    default;

CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray::~CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray()
{
    DeleteAll();
}
