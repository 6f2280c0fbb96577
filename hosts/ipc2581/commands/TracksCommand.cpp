#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/FeatureTables.h"

namespace ipc2581::host {

void AddTracksCommand(CLI::App & program)
{
    AddLengthListing(program, {.name = "tracks",
                               .description = "List the straight and circular strokes on copper layers",
                               .example = "ipc2581 tracks board.cvg --format csv -o tracks.csv",
                               .order = "Sort by net, N2 before N10",
                               .make = TrackTable,
                               .listed = {Listed::Tracks}});
}

}  // namespace ipc2581::host
