#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    ListingOptions listing;
    bool isPhysical = false;
    bool isSorted = false;
};

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

Table LogicalNets(Board & board, bool isSorted)
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

Table PhysicalNets(Board & board, bool isSorted)
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

void Nets(const Options & options)
{
    Board board(options.board);
    Print(options.isPhysical ? PhysicalNets(board, options.isSorted) : LogicalNets(board, options.isSorted),
          options.listing, {options.board});
    WarnOfLosses(board, {options.isPhysical ? Listed::PhysicalNets : Listed::LogicalNets});
}

}  // namespace

void AddNetsCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "nets", "List what is connected: nets with their pins, or with their points on the board",
                   "ipc2581 nets board.cvg --physical");
    AddBoard(command, options->board);
    AddListingOptions(command, options->listing);
    command.add_flag("--physical", options->isPhysical, "The points of the physical nets, one row per point");
    command.add_flag("--sort", options->isSorted, "By net and pin, R2.1 before R10.1, instead of as in the file");
    command.callback([options] { Nets(*options); });
}

}  // namespace ipc2581::host
