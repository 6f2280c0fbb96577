#include <map>
#include <memory>
#include <optional>
#include <string>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/BomTable.h"

namespace ipc2581::host {
namespace {

struct Options {
    SortedListing listing;
    std::optional<BomGroup> group;
};

const std::map<std::string, BomGroup> Groups = {
    {"value", BomGroup::Value}, {"part", BomGroup::Part}, {"package", BomGroup::Package}};

void AddGroup(CLI::App & command, std::optional<BomGroup> & group)
{
    command
        .add_option_function<std::string>(
            "--group", [&group](const std::string & name) { group = Groups.at(name); },
            "One row for all items of a value, part or package")
        ->check([](const std::string & name) {
            return Groups.contains(name) ? "" : "must be value, part or package, not " + name;
        })
        ->type_name("BY");
}

}  // namespace

void AddBomCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "bom", "List what must be bought, one row per item",
                                    "ipc2581 bom board.cvg --format csv -o bom.csv");
    AddBoardListing(command, options->listing);
    AddSort(command, options->listing, "Sort by designators, R2 before R10");
    AddGroup(command, options->group);
    command.callback([options] {
        const bool isSorted = options->listing.isSorted;
        PrintTable(options->listing,
                   [&](Board & board, const Lengths &) {
                       return options->group.has_value() ? BomGroupTable(board, isSorted, *options->group)
                                                         : BomTable(board, isSorted);
                   },
                   {Listed::Items});
    });
}

}  // namespace ipc2581::host
