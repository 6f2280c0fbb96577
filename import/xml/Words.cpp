#include "import/xml/Words.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ipc2581::detail {
namespace {

constexpr std::size_t FirstSize = 1024;
constexpr std::size_t LongestName = 100;

}  // namespace

WordTable::WordTable() : m_slots(FirstSize), m_names(KnownWords.begin(), KnownWords.end()) {}

Word WordTable::Add(const char * name, bool isForeign)
{
    if (2 * (m_filled + 1) > m_slots.size()) {
        Grow();
    }
    const auto known = isForeign ? KnownWords.end() : std::find(KnownWords.begin(), KnownWords.end(), name);
    const bool isKnown = known != KnownWords.end();
    if (!isKnown && m_names.size() > std::numeric_limits<Word>::max()) {
        throw std::length_error("more than 65536 different names");
    }
    const auto word = static_cast<Word>(isKnown ? std::size_t(known - KnownWords.begin()) : m_names.size());
    if (!isKnown) {
        m_names.push_back(std::string(name).substr(0, LongestName));
    }
    m_slots[PlaceOf(name, isForeign)] = {name, isForeign, word};
    ++m_filled;
    return word;
}

void WordTable::Grow()
{
    std::vector<Slot> old(2 * m_slots.size());
    old.swap(m_slots);
    for (const Slot & slot : old) {
        if (slot.name != nullptr) {
            m_slots[PlaceOf(slot.name, slot.isForeign)] = slot;
        }
    }
}

}  // namespace ipc2581::detail
