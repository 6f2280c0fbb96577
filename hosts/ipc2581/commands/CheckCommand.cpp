#include <cstddef>
#include <limits>
#include <memory>

#include "hosts/ipc2581/check/CheckListing.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/output/Progress.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    bool isAll = false;
    ListingOptions listing;
};

Listing CheckWithProgress(const Options & options)
{
    constexpr std::size_t few = 10;
    const BoardFile file = OpenBoardFile(options.board);
    Progress progress("Reading " + file.Name());
    return CheckListing(file, options.isAll ? std::numeric_limits<std::size_t>::max() : few, &progress);
}

void Check(const Options & options)
{
    Print(CheckWithProgress(options), options.listing, {options.board});
}

}  // namespace

void AddCheckCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "check", "Show what the reader does not take from a board, line by line",
                                    "ipc2581 check board.cvg");
    AddBoard(command, options->board);
    command.add_flag("--all", options->isAll, "List all lines of a finding, not only the first 10");
    AddListingOptions(command, options->listing);
    command.callback([options] { Check(*options); });
}

}  // namespace ipc2581::host
