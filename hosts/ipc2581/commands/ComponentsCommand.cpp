#include <memory>
#include <string>
#include <vector>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/ComponentTable.h"

namespace ipc2581::host {
namespace {

struct Options {
    SortedListing listing;
    ComponentChoice choice;
};

std::string Joined(const std::vector<std::string> & words)
{
    std::string joined;
    for (const std::string & word : words) {
        joined.append(joined.empty() ? "" : ", ").append(word);
    }
    return joined;
}

std::vector<std::string> Parts(const std::string & list)
{
    std::vector<std::string> parts(1);
    for (const char ch : list) {
        if (ch == ',') {
            parts.emplace_back();
        }
        else {
            parts.back().append(1, ch);
        }
    }
    return parts;
}

void AddColumns(CLI::App & command, ComponentChoice & choice)
{
    command
        .add_option_function<std::string>(
            "--columns", [&choice](const std::string & columns) { choice.columns = Parts(columns); },
            "placement for Designator,Mid X,Mid Y,Layer,Rotation; position for Ref,Val,Package,PosX,PosY,Rot,Side; or "
            "names of columns with commas between them")
        ->check([](const std::string & columns) {
            return AreComponentColumns(Parts(columns)) ? ""
                                                       : "must be " + Joined(ComponentHeads()) + ", or some of " +
                                                             Joined(ComponentKeys()) + ", not " + columns;
        })
        ->type_name("COLUMNS");
}

void AddBottomRotation(CLI::App & command, ComponentChoice & choice)
{
    command
        .add_option_function<std::string>(
            "--bottom-rotation", [&choice](const std::string & view) { choice.isTurnedFromAbove = view == "above"; },
            "How parts at the bottom are turned: counterclockwise as seen from below (default, as in the file) or from "
            "above")
        ->check([](const std::string & view) {
            return view == "below" || view == "above" ? "" : "must be below or above, not " + view;
        })
        ->type_name("VIEW");
}

}  // namespace

void AddComponentsCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "components", "List where each part is placed", "ipc2581 components board.cvg --sort");
    AddBoardListing(command, options->listing);
    AddUnits(command, options->listing.unit);
    AddSort(command, options->listing, "Sort by designator, R2 before R10");
    command.add_flag("--fitted", options->choice.isFittedOnly,
                     "Leave out parts that the bill of materials tells as not fitted");
    AddColumns(command, options->choice);
    AddBottomRotation(command, options->choice);
    command.callback([options] {
        options->choice.isSorted = options->listing.isSorted;
        PrintTable(
            options->listing,
            [&](Board & board, const Lengths & lengths) { return ComponentTable(board, lengths, options->choice); },
            {Listed::Components});
    });
}

}  // namespace ipc2581::host
