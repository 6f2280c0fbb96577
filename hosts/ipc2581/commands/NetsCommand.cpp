#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/NetTables.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    ListingOptions listing;
    bool isPhysical = false;
    bool isSorted = false;
};

void Nets(const Options & options)
{
    Board board = OpenBoard(options.board);
    Print(options.isPhysical ? NetPointTable(board, options.isSorted) : NetTable(board, options.isSorted),
          options.listing, {options.board});
    WarnOfLosses(board, {options.isPhysical ? Listed::PhysicalNets : Listed::LogicalNets});
}

}  // namespace

void AddNetsCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "nets", "List what is connected: nets with their pins, or with their points on the board",
                   "ipc2581 nets board.cvg --physical");
    AddBoard(command, options->board);
    AddListingOptions(command, options->listing);
    command.add_flag("--physical", options->isPhysical, "The points of the physical nets, one row per point");
    command.add_flag("--sort", options->isSorted, "By net and pin, R2.1 before R10.1, instead of as in the file");
    command.callback([options] { Nets(*options); });
}

}  // namespace ipc2581::host
