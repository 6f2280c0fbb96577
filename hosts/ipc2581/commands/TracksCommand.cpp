#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/FeatureTables.h"

namespace ipc2581::host {

void AddTracksCommand(CLI::App & program)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command = AddCommand(program, "tracks", "List the straight and circular strokes on copper layers",
                                    "ipc2581 tracks board.cvg --format csv -o tracks.csv");
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    AddSort(command, *options, "Sort by net, N2 before N10");
    command.callback([options] {
        PrintTable(
            *options,
            [&](Board & board, const Lengths & lengths) { return TrackTable(board, lengths, options->isSorted); },
            {Listed::Tracks});
    });
}

}  // namespace ipc2581::host
