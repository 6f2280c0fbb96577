#include "hosts/ipc2581/listings/ComponentTable.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Component = CIPC2581_Ecad_CadData_Step_Component;

bool ByDesignator(const Component * left, const Component * right)
{
    return NaturalLess(left->RefDes, right->RefDes);
}

}  // namespace

Table ComponentTable(Board & board, bool isSorted)
{
    std::unordered_map<std::string, std::string> sides;
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        sides.emplace(Shown(layer->name), Shown(layer->side));
    }
    const auto all = Each(board.Step().ComponentArray);
    std::vector<const Component *> components(all.begin(), all.end());
    if (isSorted) {
        std::stable_sort(components.begin(), components.end(), ByDesignator);
    }
    Table table({"designator", "package", "part", "layer", "side", "mount", "x", "y", "rotation", "mirror"});
    for (const Component * const component : components) {
        const auto side = sides.find(Shown(component->LayerRef));
        table.Add({Shown(component->RefDes), Shown(component->PackageRef), Shown(component->Part),
                   Shown(component->LayerRef), side == sides.end() ? "" : side->second, Shown(component->MountType),
                   component->Location.X, component->Location.Y, component->Xform->Rotation,
                   component->Xform->Mirror != 0});
    }
    return table;
}

}  // namespace ipc2581::host
