#include "import/elements/LossRecorder.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "import/FactValues.h"

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
    const ImportReport::Fact fact = {m_report.m_values.size(), Narrow(line), Narrow(owner), path, 0};
    if (m_latePlace.has_value()) {
        m_late.push_back({*m_latePlace, fact});
    }
    else {
        m_report.m_facts.push_back(fact);
    }
}

ImportReport::Fact & LossRecorder::LastFact()
{
    return m_latePlace.has_value() ? m_late.back().fact : m_report.m_facts.back();
}

void LossRecorder::AddAttribute(Word name, std::string_view value, bool isHeld)
{
    AppendFactValue(m_report.m_values, {name, isHeld, value});
    ImportReport::Fact & fact = LastFact();
    fact.length = Narrow(m_report.m_values.size() - fact.begin);
}

LossRecorder::Hold LossRecorder::NewHold()
{
    m_isReferred.push_back(false);
    return static_cast<Hold>(m_isReferred.size() - 1);
}

void LossRecorder::HoldFact(Hold hold, bool isElementHeld)
{
    m_held.push_back({m_report.m_facts.size() - 1, hold, isElementHeld});
}

void LossRecorder::AddNote(NoteKind kind, std::size_t line, std::string text)
{
    m_report.m_notes.push_back({kind, line, std::move(text)});
}

void LossRecorder::AddDangling(std::size_t line, std::string_view what, std::string_view name)
{
    std::string text(what);
    text.append(" \"").append(name).append("\" is not in the file");
    AddNote(NoteKind::DanglingReference, line, std::move(text));
}

void LossRecorder::CountStated(Word element)
{
    if (element >= m_stated.size()) {
        m_stated.resize(std::size_t(element) + 1, 0);
    }
    ++m_stated[element];
}

bool LossRecorder::Settle(const HeldFact & held)
{
    const bool hasArrived = m_isReferred[held.hold];
    ImportReport::Fact & fact = m_report.m_facts[held.fact];
    const std::string all = m_report.m_values.substr(fact.begin, fact.length);
    std::string left;
    for (std::string_view values = all; !values.empty();) {
        FactValue own = TakeFactValue(values);
        if (!own.isHeld || !hasArrived) {
            own.isHeld = false;
            AppendFactValue(left, own);
        }
    }
    m_report.m_values.replace(fact.begin, left.size(), left);
    fact.length = static_cast<std::uint32_t>(left.size());
    return hasArrived && held.isElementHeld && fact.length == 0;
}

void LossRecorder::DropArrived()
{
    std::vector<bool> isGone(m_report.m_facts.size(), false);
    for (const HeldFact & held : m_held) {
        isGone[held.fact] = Settle(held);
    }
    std::size_t left = 0;
    auto late = m_late.begin();
    const auto placeLate = [&](std::size_t end) {
        for (; late != m_late.end() && late->place <= end; ++late) {
            late->place = left;
        }
    };
    for (std::size_t i = 0; i < isGone.size(); ++i) {
        placeLate(i);
        if (!isGone[i]) {
            m_report.m_facts[left++] = m_report.m_facts[i];
        }
    }
    placeLate(isGone.size());
    m_report.m_facts.resize(left);
}

void LossRecorder::InsertLate()
{
    std::vector<ImportReport::Fact> all;
    all.reserve(m_report.m_facts.size() + m_late.size());
    auto next = m_report.m_facts.begin();
    for (const LateFact & late : m_late) {
        const auto place = m_report.m_facts.begin() + static_cast<std::ptrdiff_t>(late.place);
        all.insert(all.end(), next, place);
        all.push_back(late.fact);
        next = place;
    }
    all.insert(all.end(), next, m_report.m_facts.end());
    m_report.m_facts = std::move(all);
}

void LossRecorder::CountLost()
{
    std::vector<std::size_t> lost(m_report.m_paths.size(), 0);
    for (const ImportReport::Fact & fact : m_report.m_facts) {
        ++lost[fact.path];
    }
    for (std::size_t path = 0; path < lost.size(); ++path) {
        if (lost[path] != 0) {
            m_report.m_elements[m_report.m_names[m_report.m_paths[path].name]].lost += lost[path];
        }
    }
}

ImportReport LossRecorder::Take(const WordTable & words)
{
    m_report.m_names = words.Names();
    for (std::size_t word = 0; word < m_stated.size(); ++word) {
        if (m_stated[word] != 0) {
            m_report.m_elements[m_report.m_names[word]].stated += m_stated[word];
        }
    }
    // In the order of their places, in which they were asked for, but for several that were asked for at once.
    std::stable_sort(m_late.begin(), m_late.end(),
                     [](const LateFact & one, const LateFact & other) { return one.place < other.place; });
    DropArrived();
    if (!m_late.empty()) {
        InsertLate();
    }
    CountLost();
    return std::move(m_report);
}

}  // namespace ipc2581::detail
