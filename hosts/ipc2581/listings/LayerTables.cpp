#include "hosts/ipc2581/listings/LayerTables.h"

#include <cstddef>
#include <string>
#include <unordered_map>

#include "hosts/ipc2581/board/Copper.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {

std::unordered_map<std::string, std::string> SidesOfLayers(Board & board)
{
    std::unordered_map<std::string, std::string> sides;
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        sides.emplace(Shown(layer->name), Shown(layer->side));
    }
    return sides;
}

Table LayerTable(Board & board)
{
    std::unordered_map<std::string, std::size_t> sets;
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(board.Step().LayerFeatureArray)) {
        sets[Shown(feature->LayerRef)] += Count(feature->SetArray);
    }
    Table table("layers", {"layer", "function", "side", "polarity", "copper", "sets"});
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        table.Add({Shown(layer->name), Shown(layer->layerFunction), Shown(layer->side), Shown(layer->polarity),
                   IsCopper(layer->layerFunction), sets[Shown(layer->name)]});
    }
    return table;
}

Table StackupTable(Board & board, const Lengths & lengths)
{
    std::unordered_map<std::string, std::string> functions;
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        functions.emplace(Shown(layer->name), Shown(layer->layerFunction));
    }
    Table table("stackup",
                {"layer", "group", "function", "material", lengths.Named("thickness"), lengths.Named("group thickness"),
                 lengths.Named("group tolerance plus"), lengths.Named("group tolerance minus")});
    for (const auto * const group : Each(board.CadData().m_Stackup.StackupGroupArray)) {
        for (const auto * const layer : Each(group->StackupLayerArray)) {
            const std::string name = Shown(layer->layerOrGroupRef);
            const auto function = functions.find(name);
            table.Add({name, Shown(group->name), function == functions.end() ? "" : function->second,
                       Shown(layer->materialType), lengths.Of(layer->thickness), lengths.Of(group->thickness),
                       lengths.Of(group->tolPlus), lengths.Of(group->tolMinus)});
        }
    }
    return table;
}

}  // namespace ipc2581::host
