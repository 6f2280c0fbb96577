#include "import/ImportReport.h"

#include <algorithm>
#include <iterator>

#include "import/FactValues.h"

namespace ipc2581 {

std::string_view LostFact::Value(std::string_view name) const
{
    const auto found =
        std::find_if(attributes.begin(), attributes.end(), [&](const auto & own) { return own.first == name; });
    return found == attributes.end() ? std::string_view() : found->second;
}

std::string_view LostFact::Element() const
{
    return std::string_view(path).substr(path.rfind('/') + 1);
}

std::string ImportReport::PathText(std::uint32_t path) const
{
    constexpr int mostElements = 32;
    std::string text;
    int elements = 0;
    const auto isRoot = [&](std::uint32_t own) { return m_paths[own].parent == 0; };
    if (path != 0 && isRoot(path)) {
        return m_names[m_paths[path].name];
    }
    for (; path != 0 && !isRoot(path) && elements < mostElements; path = m_paths[path].parent) {
        text.insert(0, m_names[m_paths[path].name] + (text.empty() ? "" : "/"));
        ++elements;
    }
    return text;
}

// All of it but its path.
void ImportReport::FillValues(const Fact & fact, LostFact & lost) const
{
    lost.line = fact.line;
    lost.owner = fact.owner;
    lost.attributes.clear();
    std::string_view values = std::string_view(m_values).substr(fact.begin, fact.length);
    while (!values.empty()) {
        const detail::FactValue own = detail::TakeFactValue(values);
        lost.attributes.emplace_back(m_names[own.name], own.value);
    }
}

LostFact ImportReport::Lost(std::size_t index) const
{
    const Fact & fact = m_facts.at(index);
    LostFact lost;
    lost.path = PathText(fact.path);
    FillValues(fact, lost);
    return lost;
}

void ImportReport::ForEachLost(const std::function<void(const LostFact &)> & show) const
{
    LostFact lost;
    std::uint32_t path = 0;
    for (const Fact & fact : m_facts) {
        if (fact.path != path) {
            path = fact.path;
            lost.path = PathText(path);
        }
        FillValues(fact, lost);
        show(lost);
    }
}

void ImportReport::ForEachLostAt(std::string_view path, const std::function<void(const LostFact &)> & show) const
{
    std::vector<bool> isWanted(m_paths.size(), false);
    for (std::uint32_t i = 0; i < m_paths.size(); ++i) {
        isWanted[i] = PathText(i) == path;
    }
    LostFact lost;
    lost.path = path;
    for (const Fact & fact : m_facts) {
        if (isWanted[fact.path]) {
            FillValues(fact, lost);
            show(lost);
        }
    }
}

std::vector<LostFact> ImportReport::LostAt(std::string_view path) const
{
    std::vector<LostFact> lost;
    ForEachLostAt(path, [&](const LostFact & fact) { lost.push_back(fact); });
    return lost;
}

std::string_view ImportReport::LayerAt(std::size_t line) const
{
    const auto next = m_layers.upper_bound(line);
    return next == m_layers.begin() ? std::string_view() : std::string_view(std::prev(next)->second);
}

std::vector<std::pair<std::string, std::size_t>> ImportReport::LostPaths() const
{
    std::vector<std::size_t> counts(m_paths.size(), 0);
    std::vector<std::uint32_t> order;
    for (const Fact & fact : m_facts) {
        if (counts[fact.path]++ == 0) {
            order.push_back(fact.path);
        }
    }
    std::vector<std::pair<std::string, std::size_t>> paths;
    paths.reserve(order.size());
    for (const std::uint32_t path : order) {
        paths.emplace_back(PathText(path), counts[path]);
    }
    return paths;
}

}  // namespace ipc2581
