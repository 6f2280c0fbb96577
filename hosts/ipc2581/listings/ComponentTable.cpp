#include "hosts/ipc2581/listings/ComponentTable.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "hosts/ipc2581/listings/BomFacts.h"
#include "hosts/ipc2581/listings/LayerTables.h"
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

Table ComponentTable(Board & board, const Lengths & lengths, bool isSorted)
{
    const auto sides = SidesOfLayers(board);
    const auto all = Each(board.Step().ComponentArray);
    std::vector<const Component *> components(all.begin(), all.end());
    if (isSorted) {
        std::stable_sort(components.begin(), components.end(), ByDesignator);
    }
    const BomFacts facts(board);
    Table table("components",
                {"designator", "package", "part", "layer", "side", "mount", lengths.Named("x"), lengths.Named("y"),
                 "rotation", "mirror", lengths.Named("height"), lengths.Named("standoff"), "fitted", "value"});
    for (const Component * const component : components) {
        const auto side = sides.find(Shown(component->LayerRef));
        const std::string designator = Shown(component->RefDes);
        const std::optional<bool> isFitted = facts.IsFitted(designator);
        table.Add({designator, Shown(component->PackageRef), Shown(component->Part), Shown(component->LayerRef),
                   side == sides.end() ? "" : side->second, Shown(component->MountType),
                   lengths.Of(component->Location.X), lengths.Of(component->Location.Y), component->Xform->Rotation,
                   component->Xform->Mirror != 0, lengths.Of(component->Height), lengths.Of(component->Standoff),
                   isFitted.has_value() ? Cell(*isFitted) : Cell(), facts.Value(designator)});
    }
    return table;
}

}  // namespace ipc2581::host
