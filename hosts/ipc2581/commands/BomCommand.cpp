#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/BomTable.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    ListingOptions listing;
    bool isSorted = false;
};

void Bom(const Options & options)
{
    Board board = OpenBoard(options.board);
    Print(BomTable(board, options.isSorted), options.listing, {options.board});
    WarnOfLosses(board, {Listed::Items});
}

}  // namespace

void AddBomCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "bom", "List what must be bought, one row per item",
                                    "ipc2581 bom board.cvg --format csv -o bom.csv");
    AddBoard(command, options->board);
    AddListingOptions(command, options->listing);
    command.add_flag("--sort", options->isSorted, "By designators, R2 before R10, instead of as in the file");
    command.callback([options] { Bom(*options); });
}

}  // namespace ipc2581::host
