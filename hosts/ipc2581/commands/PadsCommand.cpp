#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/FeatureTables.h"

namespace ipc2581::host {

void AddPadsCommand(CLI::App & program)
{
    AddLengthListing(program, {.name = "pads",
                               .description = "List the pads on the layers, with their nets and pins",
                               .example = "ipc2581 pads board.cvg --sort",
                               .order = "Sort by net, N2 before N10",
                               .make = PadTable,
                               .listed = {Listed::Pads}});
}

}  // namespace ipc2581::host
