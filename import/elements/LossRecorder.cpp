#include "import/elements/LossRecorder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

namespace ipc2581::detail {
namespace {

// Lines and counts beyond four thousand million are as good as the last one.
std::uint32_t Narrow(std::size_t count)
{
    return static_cast<std::uint32_t>(std::min<std::size_t>(count, std::numeric_limits<std::uint32_t>::max()));
}

}  // namespace

LossRecorder::LossRecorder()
{
    m_report.m_paths.push_back({0, W("")});
}

LossRecorder::Path LossRecorder::PathOf(Path parent, Word element)
{
    const std::uint64_t key = (std::uint64_t(parent) << 16U) | element;
    if (key == m_lastKey) {
        return m_lastPath;
    }
    const auto [place, isNew] = m_pathIndex.try_emplace(key, static_cast<Path>(m_report.m_paths.size()));
    if (isNew) {
        m_report.m_paths.push_back({parent, element});
    }
    m_lastKey = key;
    m_lastPath = place->second;
    return m_lastPath;
}

void LossRecorder::BeginFact(Path path, std::size_t line, std::size_t owner)
{
    m_report.m_facts.push_back({m_report.m_values.size(), Narrow(line), Narrow(owner), path, 0});
}

void LossRecorder::AddAttribute(Word name, std::string_view value)
{
    const auto appendNumber = [&](std::uint32_t number) {
        std::array<char, sizeof(number)> bytes;
        std::memcpy(bytes.data(), &number, sizeof(number));
        m_report.m_values.append(bytes.data(), bytes.size());
    };
    appendNumber(name);
    appendNumber(Narrow(value.size()));
    m_report.m_values.append(value);
    ImportReport::Fact & fact = m_report.m_facts.back();
    fact.length = Narrow(m_report.m_values.size() - fact.begin);
}

void LossRecorder::AddNote(NoteKind kind, std::size_t line, std::string text)
{
    m_report.m_notes.push_back({kind, line, std::move(text)});
}

void LossRecorder::CountStated(Word element)
{
    if (element >= m_stated.size()) {
        m_stated.resize(std::size_t(element) + 1, 0);
    }
    ++m_stated[element];
}

LossRecorder::Mark LossRecorder::MarkHere() const
{
    return {m_report.m_facts.size(), m_report.m_remarks, m_report.m_notes.size()};
}

// The values stay in the report, where no fact has them any more.
void LossRecorder::Forget(const Mark & from, const Mark & to)
{
    const auto erase = [](auto & list, std::size_t first, std::size_t end) {
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(first), list.begin() + static_cast<std::ptrdiff_t>(end));
    };
    erase(m_report.m_facts, from.facts, to.facts);
    erase(m_report.m_notes, from.notes, to.notes);
    m_report.m_remarks -= to.remarks - from.remarks;
}

ImportReport LossRecorder::Take(const WordTable & words)
{
    m_report.m_names = words.Names();
    for (std::size_t word = 0; word < m_stated.size(); ++word) {
        if (m_stated[word] != 0) {
            m_report.m_elements[m_report.m_names[word]].stated += m_stated[word];
        }
    }
    std::vector<std::size_t> lost(m_report.m_paths.size(), 0);
    for (const ImportReport::Fact & fact : m_report.m_facts) {
        ++lost[fact.path];
    }
    for (std::size_t path = 0; path < lost.size(); ++path) {
        if (lost[path] != 0) {
            m_report.m_elements[m_report.m_names[m_report.m_paths[path].name]].lost += lost[path];
        }
    }
    return std::move(m_report);
}

}  // namespace ipc2581::detail
