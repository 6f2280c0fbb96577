#include "hosts/ipc2581/drawing/TextsOfParts.h"

#include <string_view>

namespace ipc2581::host {

std::set<std::pair<std::string, std::string>> TextsOfParts(const Board & board)
{
    std::set<std::pair<std::string, std::string>> texts;
    const ImportReport * const report = board.Report();
    if (report == nullptr) {
        return texts;
    }
    report->ForEachLostAt("Ecad/CadData/Step/LayerFeature/Set", [&](const LostFact & set) {
        const std::string_view part = set.Value("componentRef");
        if (set.Value("geometryUsage") == "TEXT" && !part.empty()) {
            texts.emplace(report->LayerAt(set.line), part);
        }
    });
    return texts;
}

}  // namespace ipc2581::host
