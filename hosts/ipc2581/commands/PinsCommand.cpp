#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/PackageTables.h"

namespace ipc2581::host {

void AddPinsCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command =
        AddCommand(program, "pins", "List the pins of the packages", "ipc2581 pins board.cvg --format csv");
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    AddSort(command, *options, "Sort by package and pin, P2 before P10");
    command.callback([options] {
        PrintTable(*options,
                   [&](Board & board, const Lengths & lengths) { return PinTable(board, lengths, options->isSorted); },
                   {Listed::Pins});
    });
}

}  // namespace ipc2581::host
