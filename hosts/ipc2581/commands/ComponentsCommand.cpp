#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"

namespace ipc2581::host {
namespace {

using Component = CIPC2581_Ecad_CadData_Step_Component;

struct Options {
    std::string board;
    ListingOptions listing;
    bool isSorted = false;
};

bool ByDesignator(const Component * left, const Component * right)
{
    return NaturalLess(left->RefDes, right->RefDes);
}

void Components(const Options & options)
{
    Board board(options.board);
    std::unordered_map<std::string, std::string> sides;
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.Data().m_arrLayer)) {
        sides.emplace(Str(layer->name), Str(layer->side));
    }
    const auto all = Each(board.Step().ComponentArray);
    std::vector<const Component *> components(all.begin(), all.end());
    if (options.isSorted) {
        std::stable_sort(components.begin(), components.end(), ByDesignator);
    }
    Table table({"designator", "package", "part", "layer", "side", "mount", "x", "y", "rotation", "mirror"});
    for (const Component * const component : components) {
        const auto side = sides.find(Str(component->LayerRef));
        table.Add({Str(component->RefDes), Str(component->PackageRef), Str(component->Part), Str(component->LayerRef),
                   side == sides.end() ? "" : side->second, Str(component->MountType), component->Location.X,
                   component->Location.Y, component->Xform->Rotation, component->Xform->Mirror != 0});
    }
    Print(table, options.listing, {options.board});
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
