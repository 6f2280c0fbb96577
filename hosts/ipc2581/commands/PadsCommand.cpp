#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/FeatureTables.h"

namespace ipc2581::host {

void AddPadsCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command = AddCommand(program, "pads", "List the pads on the layers, with their nets and pins",
                                    "ipc2581 pads board.cvg --sort");
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    AddSort(command, *options, "Sort by net, N2 before N10");
    command.callback([options] {
        PrintTable(*options,
                   [&](Board & board, const Lengths & lengths) { return PadTable(board, lengths, options->isSorted); },
                   {Listed::Pads});
    });
}

}  // namespace ipc2581::host
