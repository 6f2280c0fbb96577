#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/PackageTables.h"

namespace ipc2581::host {

void AddPackagesCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command = AddCommand(program, "packages", "List the kinds of parts, with their pins",
                                    "ipc2581 packages board.cvg --sort");
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    AddSort(command, *options, "Sort by name, P2 before P10");
    command.callback([options] {
        PrintTable(
            *options,
            [&](Board & board, const Lengths & lengths) { return PackageTable(board, lengths, options->isSorted); },
            {Listed::Packages, Listed::Pins});
    });
}

}  // namespace ipc2581::host
