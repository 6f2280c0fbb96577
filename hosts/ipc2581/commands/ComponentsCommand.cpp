#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/ComponentTable.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    ListingOptions listing;
    bool isSorted = false;
};

void Components(const Options & options)
{
    Board board = OpenBoard(options.board);
    Print(ComponentTable(board, options.isSorted), options.listing, {options.board});
    WarnOfLosses(board, {Listed::Components});
}

}  // namespace

void AddComponentsCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "components", "List where each part is placed", "ipc2581 components board.cvg --sort");
    AddBoard(command, options->board);
    AddListingOptions(command, options->listing);
    command.add_flag("--sort", options->isSorted, "By designator, R2 before R10, instead of as in the file");
    command.callback([options] { Components(*options); });
}

}  // namespace ipc2581::host
