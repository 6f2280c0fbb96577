#include "hosts/ipc2581/board/BoardSize.h"

namespace ipc2581::host {

Extents ExtentsOf(const CIPC2581_Ecad_CadData_Step & step)
{
    Extents extents;
    extents.AddContour(*step.Profile.Polygon->PolyBegin, *step.Profile.Polygon->PolyStepArray);
    return extents;
}

Cell ThicknessOf(const CIPC2581_Ecad_CadData_Stackup & stackup, const Lengths & lengths)
{
    const auto groups = Each(stackup.StackupGroupArray);
    if (stackup.overallThickness.IsEmpty() && groups.size() == 1 && groups.front()->thickness > 0.0) {
        return lengths.Of(groups.front()->thickness);
    }
    return lengths.Of(stackup.overallThickness);
}

}  // namespace ipc2581::host
