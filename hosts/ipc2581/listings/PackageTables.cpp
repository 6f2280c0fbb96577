#include "hosts/ipc2581/listings/PackageTables.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Package = CIPC2581_Ecad_CadData_Step_Package;
using Pin = CIPC2581_Ecad_CadData_Step_Package_Pin;

std::vector<const Package *> Packages(Board & board, bool isSorted)
{
    const auto all = Each(board.Step().PackageArray);
    std::vector<const Package *> packages(all.begin(), all.end());
    if (isSorted) {
        std::stable_sort(packages.begin(), packages.end(), [](const Package * left, const Package * right) {
            return NaturalLess(left->name, right->name);
        });
    }
    return packages;
}

// How many pins there are of a type, or of all if it is empty. A pin may have several places.
std::size_t CountPins(const Package & package, std::string_view type)
{
    std::set<std::string_view> numbers;
    for (const Pin * const pin : Each(package.PinArray)) {
        if (type.empty() || type == std::string_view(pin->type)) {
            numbers.insert(pin->number);
        }
    }
    return numbers.size();
}

}  // namespace

Table PackageTable(Board & board, const Lengths & lengths, bool isSorted)
{
    std::unordered_map<std::string, std::size_t> components;
    for (const CIPC2581_Ecad_CadData_Step_Component * const component : Each(board.Step().ComponentArray)) {
        ++components[Shown(component->PackageRef)];
    }
    const auto facts = FactsOfPackages(board);
    std::unordered_map<const Package *, PackageFacts> factsOf;
    std::size_t place = 0;
    for (const Package * const package : Packages(board, false)) {
        const auto found = facts.find(place++);
        if (found != facts.end()) {
            factsOf.emplace(package, found->second);
        }
    }
    Table table("packages", {"package", "type", "pins", "surface", "thru", "blind", lengths.Named("height"), "pin one",
                             "components"});
    for (const Package * const package : Packages(board, isSorted)) {
        const PackageFacts & own = factsOf[package];
        table.Add({Shown(package->name), Shown(package->type), CountPins(*package, ""), CountPins(*package, "SURFACE"),
                   CountPins(*package, "THRU"), CountPins(*package, "BLIND"), lengths.Of(CString(own.height.c_str())),
                   own.pinOne, components[Shown(package->name)]});
    }
    return table;
}

Table PinTable(Board & board, const Lengths & lengths, bool isSorted)
{
    Table table("pins", {"package", "pin", "name", "type", "electrical type", lengths.Named("x"), lengths.Named("y"),
                         "rotation", "primitive"});
    for (const Package * const package : Packages(board, isSorted)) {
        const auto all = Each(package->PinArray);
        std::vector<const Pin *> pins(all.begin(), all.end());
        if (isSorted) {
            std::stable_sort(pins.begin(), pins.end(), [](const Pin * left, const Pin * right) {
                return NaturalLess(left->number, right->number);
            });
        }
        for (const Pin * const pin : pins) {
            table.Add({Shown(package->name), Shown(pin->number), Shown(pin->name), Shown(pin->type),
                       Shown(pin->electricalType), lengths.Of(pin->Location.X), lengths.Of(pin->Location.Y),
                       pin->Xform->Rotation, Shown(pin->StandardPrimitiveRef)});
        }
    }
    return table;
}

}  // namespace ipc2581::host
