#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/PackageTables.h"

namespace ipc2581::host {

void AddPinsCommand(CLI::App & program)
{
    AddLengthListing(program, {.name = "pins",
                               .description = "List the pins of the packages",
                               .example = "ipc2581 pins board.cvg --format csv",
                               .order = "Sort by package and pin, P2 before P10",
                               .make = PinTable,
                               .listed = {Listed::Pins}});
}

}  // namespace ipc2581::host
