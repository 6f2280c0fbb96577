#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/NetTables.h"

namespace ipc2581::host {

void AddNetsCommand(CLI::App & program)
{
    struct Options {
        SortedListing listing;
        bool isPhysical = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "nets", "List what is connected: nets with their pins, or with their points on the board",
                   "ipc2581 nets board.cvg --physical");
    AddBoardListing(command, options->listing);
    command.add_flag("--physical", options->isPhysical, "List the points of the physical nets, one row per point");
    AddSort(command, options->listing, "Sort by net and pin, R2.1 before R10.1");
    AddUnits(command, options->listing.unit);
    command.callback([options] {
        const bool isSorted = options->listing.isSorted;
        if (options->isPhysical) {
            PrintTable(options->listing,
                       [&](Board & board, const Lengths & lengths) { return NetPointTable(board, lengths, isSorted); },
                       {Listed::PhysicalNets});
        }
        else {
            PrintTable(options->listing, [&](Board & board, const Lengths &) { return NetTable(board, isSorted); },
                       {Listed::LogicalNets});
        }
    });
}

}  // namespace ipc2581::host
