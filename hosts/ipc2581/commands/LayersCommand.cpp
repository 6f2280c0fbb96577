#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/LayerTables.h"

namespace ipc2581::host {

void AddLayersCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command =
        AddCommand(program, "layers", "List the layers and what lies on them", "ipc2581 layers board.cvg");
    AddBoardListing(command, *options);
    command.callback([options] {
        PrintTable(*options, [](Board & board, const Lengths &) { return LayerTable(board); },
                   {Listed::Layers, Listed::Sets});
    });
}

}  // namespace ipc2581::host
