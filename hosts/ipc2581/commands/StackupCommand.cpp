#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/LayerTables.h"

namespace ipc2581::host {

void AddStackupCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command = AddCommand(program, "stackup", "List the layers that the board is built of",
                                    "ipc2581 stackup board.cvg --units um");
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    command.callback([options] {
        PrintTable(*options, [](Board & board, const Lengths & lengths) { return StackupTable(board, lengths); },
                   {Listed::StackupLayers});
    });
}

}  // namespace ipc2581::host
