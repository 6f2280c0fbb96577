#include "hosts/ipc2581/listings/NetTables.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"

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
    Table table({"net", "count", "pins"});
    for (const auto * const net : Nets(board.Step().LogicalNetArray, isSorted)) {
        std::vector<std::string> pins;
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin * const pin : Each(net->LogicalNetPinArray)) {
            pins.push_back(Str(pin->ComponentRef) + "." + Str(pin->Pin));
        }
        if (isSorted) {
            std::stable_sort(pins.begin(), pins.end(), NaturalLess);
        }
        const std::size_t count = pins.size();
        table.Add({Str(net->Name), count, std::move(pins)});
    }
    return table;
}

Table NetPointTable(Board & board, bool isSorted)
{
    Table table({"net", "x", "y", "layer", "exposure", "node", "via", "primitive"});
    for (const auto * const net : Nets(board.Step().PhyNetGroup.PhyNetArray, isSorted)) {
        for (const auto * const point : Each(net->PhyNetPointArray)) {
            table.Add({Str(net->Name), point->Location.X, point->Location.Y, Str(point->LayerRef), Str(point->Exposure),
                       Str(point->NetNode), point->Via != 0, Str(point->StandardPrimitiveRefId)});
        }
    }
    return table;
}

}  // namespace ipc2581::host
