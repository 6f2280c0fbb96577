#include "hosts/ipc2581/drawing/TextsOfParts.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <map>
#include <string_view>
#include <vector>

#include "hosts/ipc2581/files/OpenFile.h"

namespace ipc2581::host {
namespace {

// The designators by the lines of their sets.
std::map<std::size_t, std::string> TextSets(const ImportReport & report)
{
    std::map<std::size_t, std::string> sets;
    report.ForEachLostAt("Ecad/CadData/Step/LayerFeature/Set", [&](const LostFact & set) {
        const std::string_view part = set.Value("componentRef");
        if (set.Value("geometryUsage") == "TEXT" && !part.empty()) {
            sets.emplace(set.line, part);
        }
    });
    return sets;
}

// The name of the layer in the opening tag of its features, which goes to the end of the line at most; empty if it has
// none.
std::string LayerOf(std::string_view tag)
{
    constexpr std::string_view attribute = "layerRef=\"";
    const std::size_t name = tag.find(attribute);
    if (name == std::string_view::npos) {
        return "";
    }
    tag.remove_prefix(name + attribute.size());
    return std::string(tag.substr(0, tag.find('"')));
}

// The layers by the lines on which their features begin; on one line only the first.
class LayerLines {
public:
    // As far as the last line that is asked for.
    void Read(const std::string & path, std::size_t last)
    {
        const OpenedFile file = OpenFile(path);
        std::string kept;
        std::vector<char> block(std::size_t(1) << 20);
        std::size_t count = 1;
        while (count != 0 && m_line <= last) {
            count = ReadBlock(path, file.get(), block);
            const std::string_view read(block.data(), count);
            const std::size_t whole = read.rfind('\n') + 1;
            kept.append(read.substr(0, whole));
            if (whole != 0) {
                TakeLines(kept);
                kept.clear();
            }
            kept.append(read.substr(whole));
        }
        TakeLines(kept);
    }

    // The layer whose features have begun last up to the line; empty if there is none.
    [[nodiscard]] std::string_view At(std::size_t line) const
    {
        const auto next = m_layers.upper_bound(line);
        return next == m_layers.begin() ? std::string_view() : std::string_view(std::prev(next)->second);
    }

private:
    void TakeLines(std::string_view lines)
    {
        // Most bytes of a file are passed over without a look.
        constexpr std::string_view element = "<LayerFeature ";
        const std::boyer_moore_horspool_searcher searcher(element.begin(), element.end());
        for (auto place = std::search(lines.begin(), lines.end(), searcher); place != lines.end();
             place = std::search(lines.begin(), lines.end(), searcher)) {
            const auto before = static_cast<std::size_t>(place - lines.begin());
            PassLines(lines.substr(0, before));
            lines.remove_prefix(before);
            const std::string_view tag = lines.substr(0, lines.find('\n'));
            if (const std::string layer = LayerOf(tag); !layer.empty()) {
                m_layers.emplace(m_line, layer);
            }
            lines.remove_prefix(tag.size());
        }
        PassLines(lines);
    }
    void PassLines(std::string_view lines)
    {
        m_line += static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
    }

    std::size_t m_line = 1;
    std::map<std::size_t, std::string> m_layers;
};

}  // namespace

std::set<std::pair<std::string, std::string>> TextsOfParts(const Board & board)
{
    const std::map<std::size_t, std::string> sets =
        board.Report() == nullptr ? std::map<std::size_t, std::string>() : TextSets(*board.Report());
    std::set<std::pair<std::string, std::string>> texts;
    if (sets.empty()) {
        return texts;
    }
    LayerLines layers;
    layers.Read(board.File().PlainPath(), sets.rbegin()->first);
    for (const auto & [line, part] : sets) {
        texts.emplace(layers.At(line), part);
    }
    return texts;
}

}  // namespace ipc2581::host
