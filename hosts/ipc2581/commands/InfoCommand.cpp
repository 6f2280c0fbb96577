#include <memory>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/InfoListing.h"

namespace ipc2581::host {
namespace {

constexpr std::initializer_list<Listed> Counted = {Listed::Layers, Listed::StackupLayers, Listed::Components,
                                                   Listed::Items,  Listed::LogicalNets,   Listed::PhysicalNets,
                                                   Listed::Holes,  Listed::Tracks};

struct Options {
    std::string board;
    Reading reading;
    ListingOptions listing;
    std::string unit;
    bool isAll = false;
};

void Info(const Options & options)
{
    LastBoard board = OpenBoard(options.board, options.reading);
    const Lengths lengths(board, options.unit);
    const std::string losses = LacksOf(board, Counted, Absence::Untold);
    Print(InfoListing(board, lengths, options.isAll), options.listing, {options.board},
          SourceOf(board, lengths, losses));
    Warn(board, losses);
    EndWhereLost({&board});
}

}  // namespace

void AddInfoCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "info", "Show size, layers, parts, nets and holes of a board", "ipc2581 info board.cvg");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    AddListingOptions(command, options->listing);
    AddUnits(command, options->unit);
    command.add_flag("--all", options->isAll, "Show names, layers, materials and counts of everything too");
    command.callback([options] { Info(*options); });
}

}  // namespace ipc2581::host
