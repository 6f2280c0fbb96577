#include "ipc2581/cad/LandPattern.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_Package_LandPattern::CIPC2581_Ecad_CadData_Step_Package_LandPattern() = default;
CIPC2581_Ecad_CadData_Step_Package_LandPattern::~CIPC2581_Ecad_CadData_Step_Package_LandPattern() = default;

int CIPC2581_Ecad_CadData_Step_Package_LandPattern::Export(CStdioFile & file, int level)
{
    if (PadArray.IsEmpty() && TargetArray.IsEmpty()) {
        return 1;
    }
    return ExportElement(file, level, "LandPattern", PadArray, TargetArray);
}

void CIPC2581_Ecad_CadData_Step_Package_LandPattern::LandPatternAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Pad")) {
            auto pad = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_Pad>::Pad>(line, file);
            pad->PadAdd(file);
            Append(PadArray, std::move(pad));
        }
        else if (line.Holds("/LandPattern")) {
            return;
        }
    }
}
