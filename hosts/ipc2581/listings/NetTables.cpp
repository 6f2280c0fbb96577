#include "hosts/ipc2581/listings/NetTables.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

template <typename Net>
std::vector<const Net *> Nets(const CExPtrArray<Net *, Net *> & array, bool isSorted)
{
    const auto all = Each(array);
    std::vector<const Net *> nets(all.begin(), all.end());
    if (isSorted) {
        std::stable_sort(nets.begin(), nets.end(),
                         [](const Net * left, const Net * right) { return NaturalLess(left->Name, right->Name); });
    }
    return nets;
}

}  // namespace

Table NetTable(Board & board, bool isSorted)
{
    Table table("nets", {"net", "count", "pins", "class"});
    const auto & array = board.Step().LogicalNetArray;
    std::unordered_map<const CIPC2581_Ecad_CadData_Step_LogicalNet *, std::string> classes;
    for (const auto & [place, netClass] : ClassesOfNets(board)) {
        classes.emplace(array.GetAt(static_cast<std::int64_t>(place)), netClass);
    }
    for (const auto * const net : Nets(array, isSorted)) {
        std::vector<std::string> pins;
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin * const pin : Each(net->LogicalNetPinArray)) {
            pins.push_back(Shown(pin->ComponentRef) + "." + Shown(pin->Pin));
        }
        if (isSorted) {
            std::stable_sort(pins.begin(), pins.end(), NaturalLess);
        }
        const std::size_t count = pins.size();
        table.Add({Shown(net->Name), count, std::move(pins), classes[net]});
    }
    return table;
}

Table NetPointTable(Board & board, const Lengths & lengths, bool isSorted)
{
    const auto nets = Nets(board.Step().PhyNetGroup.PhyNetArray, isSorted);
    return {"points",
            {"net", lengths.Named("x"), lengths.Named("y"), "layer", "exposure", "node", "via", "primitive", "test"},
            [nets, &lengths](const RowSink & sink) {
                Row row;
                for (const auto * const net : nets) {
                    for (const auto * const point : Each(net->PhyNetPointArray)) {
                        Fill(row, Shown(net->Name), lengths.Of(point->Location.X), lengths.Of(point->Location.Y),
                             Shown(point->LayerRef), Shown(point->Exposure), Shown(point->NetNode), point->Via != 0,
                             Shown(point->StandardPrimitiveRefId), point->Test != 0);
                        sink(row);
                    }
                }
            }};
}

}  // namespace ipc2581::host
