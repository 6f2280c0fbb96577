#include <cstddef>
#include <limits>
#include <memory>

#include "hosts/ipc2581/check/CheckListing.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/commands/ExitStatus.h"
#include "hosts/ipc2581/output/Progress.h"

namespace ipc2581::host {
namespace {

enum Status { ChangesAListing = 1 };

struct Options {
    std::string board;
    bool isAll = false;
    bool isStrict = false;
    ListingOptions listing;
};

Checked CheckWithProgress(const Options & options)
{
    constexpr std::size_t few = 10;
    const BoardFile file = OpenBoardFile(options.board);
    Progress progress("Reading " + file.Name());
    return CheckListing(file, options.isAll ? std::numeric_limits<std::size_t>::max() : few, &progress);
}

void Check(const Options & options)
{
    const Checked checked = CheckWithProgress(options);
    Print(checked.listing, options.listing, {options.board}, checked.source);
    if (options.isStrict && !checked.losses.empty()) {
        throw ExitStatus{LostStatus};
    }
    if (checked.changesAListing) {
        throw ExitStatus{ChangesAListing};
    }
}

}  // namespace

void AddCheckCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(
        program, "check", "Show what of a board is not read as it stands. Exit status: 1 if that changes a listing",
        "ipc2581 check board.cvg");
    AddBoard(command, options->board);
    command.add_flag("--all", options->isAll, "List all lines of a finding, not only the first 10");
    AddStrict(command, options->isStrict);
    AddListingOptions(command, options->listing);
    command.callback([options] { Check(*options); });
}

}  // namespace ipc2581::host
