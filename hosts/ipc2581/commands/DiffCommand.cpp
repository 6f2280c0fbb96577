#include <exception>
#include <memory>
#include <vector>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/commands/ExitStatus.h"
#include "hosts/ipc2581/diff/BoardDifferences.h"

namespace ipc2581::host {
namespace {

enum Status { Different = 1, Trouble = 2 };

const std::vector<Listed> AllListed = {Listed::Items,  Listed::Components,    Listed::LogicalNets, Listed::PhysicalNets,
                                       Listed::Layers, Listed::StackupLayers, Listed::Packages,    Listed::Pins,
                                       Listed::Pads,   Listed::Holes,         Listed::Tracks};

struct Options {
    std::string before;
    std::string after;
    Reading reading;
    ListingOptions listing;
    std::string unit;
    DiffOptions diff;
};

// True if something of the board is not in what was compared.
bool IsLacking(Board & board)
{
    return board.Report() == nullptr && ListingLosses(board, AllListed, Absence::Untold).IsLacking();
}

bool Diff(const Options & options)
{
    const TwoBoards boards = OpenTwoBoards(options.before, options.after, options.reading);
    Board & before = *boards.before;
    Board & after = *boards.after;
    const Lengths lengths(before, options.unit);
    const Lengths otherLengths(after, options.unit);
    const Differences differences = DifferencesOf({before, lengths}, {after, otherLengths}, options.diff);
    const std::string losses = LacksOf(before, AllListed, Absence::Untold);
    const std::string otherLosses = LacksOf(after, AllListed, Absence::Untold);
    const bool isDifferent = !differences.Rows().Rows().empty();
    if (!isDifferent && options.listing.format == Format::Table) {
        // Like diff, which has nothing to say of what is the same.
        Output(options.listing.output, {options.before, options.after}).Finish();
    }
    else {
        const Source source = SourceOf(before, lengths, losses);
        const Source other = SourceOf(after, otherLengths, otherLosses);
        Print(differences.Rows(), options.listing, {options.before, options.after}, source, &other);
    }
    Warn(before, losses);
    Warn(after, otherLosses);
    EndWhereLost({&before, &after});
    if (IsLacking(before) || IsLacking(after)) {
        throw ExitStatus{Trouble};
    }
    return isDifferent;
}

void DiffAndEnd(const Options & options)
{
    bool isDifferent = false;
    try {
        isDifferent = Diff(options);
    }
    catch (const std::exception & error) {
        TellFailure(error);
        throw ExitStatus{Trouble};
    }
    if (isDifferent) {
        throw ExitStatus{Different};
    }
}

}  // namespace

void AddDiffCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "diff", "Show what differs between two boards. Exit status: 0 same, 1 different, 2 trouble",
                   "ipc2581 diff old.cvg new.cvg");
    AddBoard(command, options->before, "A");
    command.add_option("B", options->after, "The board to compare it with, taken as the newer one; either may be -")
        ->required()
        ->type_name("");
    AddReading(command, options->reading);
    AddListingOptions(command, options->listing);
    AddUnits(command, options->unit);
    command.add_flag("--all", options->diff.isAll,
                     "List all that lies on a layer of one of the boards alone, not only the first ten of each");
    command.callback([options] { DiffAndEnd(*options); });
}

}  // namespace ipc2581::host
