#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/ComponentTable.h"

namespace ipc2581::host {

void AddComponentsCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command =
        AddCommand(program, "components", "List where each part is placed", "ipc2581 components board.cvg --sort");
    AddBoardListing(command, *options);
    AddSort(command, *options, "Sort by designator, R2 before R10");
    AddUnits(command, options->unit);
    command.callback([options] {
        PrintTable(
            *options,
            [&](Board & board, const Lengths & lengths) { return ComponentTable(board, lengths, options->isSorted); },
            {Listed::Components});
    });
}

}  // namespace ipc2581::host
