#include "hosts/ipc2581/drawing/TextsOfParts.h"

#include <cstddef>
#include <fstream>
#include <map>
#include <string_view>

namespace ipc2581::host {
namespace {

// The designators by the lines of their sets.
std::map<std::size_t, std::string> TextSets(const ImportReport & report)
{
    std::map<std::size_t, std::string> sets;
    for (const LostFact & set : report.LostAt("Ecad/CadData/Step/LayerFeature/Set")) {
        const std::string_view part = set.Value("componentRef");
        if (set.Value("geometryUsage") == "TEXT" && !part.empty()) {
            sets.emplace(set.line, part);
        }
    }
    return sets;
}

// The name of the layer whose features begin on the line; empty if there are none.
std::string LayerBegunOn(std::string_view line)
{
    constexpr std::string_view attribute = "layerRef=\"";
    const std::size_t element = line.find("<LayerFeature ");
    const std::size_t name = element == std::string_view::npos ? element : line.find(attribute, element);
    if (name == std::string_view::npos) {
        return "";
    }
    line.remove_prefix(name + attribute.size());
    return std::string(line.substr(0, line.find('"')));
}

}  // namespace

std::set<std::pair<std::string, std::string>> TextsOfParts(const Board & board)
{
    std::set<std::pair<std::string, std::string>> texts;
    const std::map<std::size_t, std::string> sets =
        board.Report() == nullptr ? std::map<std::size_t, std::string>() : TextSets(*board.Report());
    auto set = sets.begin();
    std::ifstream file(board.File().PlainPath(), std::ios::binary);
    std::string layer;
    std::string line;
    for (std::size_t number = 1; set != sets.end() && std::getline(file, line); ++number) {
        const std::string begun = LayerBegunOn(line);
        layer = begun.empty() ? layer : begun;
        if (number == set->first) {
            texts.emplace(layer, set->second);
            ++set;
        }
    }
    return texts;
}

}  // namespace ipc2581::host
