#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/PackageTables.h"

namespace ipc2581::host {

void AddPackagesCommand(CLI::App & program)
{
    AddLengthListing(program, {.name = "packages",
                               .description = "List the kinds of parts, with their pins",
                               .example = "ipc2581 packages board.cvg --sort",
                               .order = "Sort by name, P2 before P10",
                               .make = PackageTable,
                               .listed = {Listed::Packages, Listed::Pins}});
}

}  // namespace ipc2581::host
