#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/FeatureTables.h"

namespace ipc2581::host {

void AddHolesCommand(CLI::App & program)
{
    AddLengthListing(program, {.name = "holes",
                               .description = "List where the board is drilled",
                               .example = "ipc2581 holes board.cvg --units mm",
                               .order = "Sort by net, N2 before N10",
                               .make = HoleTable,
                               .listed = {Listed::Holes}});
}

}  // namespace ipc2581::host
