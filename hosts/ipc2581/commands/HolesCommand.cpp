#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/FeatureTables.h"

namespace ipc2581::host {

void AddHolesCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command =
        AddCommand(program, "holes", "List where the board is drilled", "ipc2581 holes board.cvg --units mm");
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    AddSort(command, *options, "Sort by net, N2 before N10");
    command.callback([options] {
        PrintTable(*options,
                   [&](Board & board, const Lengths & lengths) { return HoleTable(board, lengths, options->isSorted); },
                   {Listed::Holes});
    });
}

}  // namespace ipc2581::host
