#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/InfoListing.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    Reading reading;
    ListingOptions listing;
};

void Info(const Options & options)
{
    Board board = OpenBoard(options.board, options.reading);
    Print(InfoListing(board), options.listing, {options.board});
    WarnOfImport(board);
    EndWhereLost({&board});
}

}  // namespace

void AddInfoCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "info", "Show what a board contains", "ipc2581 info board.cvg");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    AddListingOptions(command, options->listing);
    command.callback([options] { Info(*options); });
}

}  // namespace ipc2581::host
