#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/BomTable.h"

namespace ipc2581::host {

void AddBomCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command = AddCommand(program, "bom", "List what must be bought, one row per item",
                                    "ipc2581 bom board.cvg --format csv -o bom.csv");
    AddBoardListing(command, *options);
    AddSort(command, *options, "Sort by designators, R2 before R10");
    command.callback([options] {
        PrintTable(*options, [&](Board & board, const Lengths &) { return BomTable(board, options->isSorted); },
                   {Listed::Items});
    });
}

}  // namespace ipc2581::host
