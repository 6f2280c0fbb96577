#include "ipc2581/base/lines/LineHead.h"

#include <algorithm>
#include <functional>

namespace ipc2581::detail {

LineHeads::LineHeads() : m_last(m_heads.data())
{
    for (LineHead & head : m_heads) {
        head.next.fill(m_heads.data());
    }
}

void LineHeads::Remember(std::string_view head, std::size_t tokenAt, const FirstToken & token, std::size_t plainRestAt)
{
    if (head.size() > HeadSize) {
        return;
    }
    LineHead & place = FindPlace(head);
    if (place.size == 0) {
        std::copy(head.begin(), head.end(), place.text.begin());
        place.bits = HeadBits(head.size());
        place.set = token.set;
        place.plainRestAt = plainRestAt;
        place.size = static_cast<std::uint8_t>(head.size());
        place.tested = static_cast<std::uint8_t>(tokenAt + token.front);
        place.testedSize = static_cast<std::uint8_t>(head.size() - place.tested - token.back);
        place.isIndented = tokenAt != 0;
    }
    auto & next = m_last->next;
    std::rotate(next.begin(), next.end() - 1, next.end());
    next.front() = &place;
    m_last = &place;
}

// The place of the head, or one that is free for it. Where all of a few are taken, one is freed: a file has less than
// two hundred heads.
LineHead & LineHeads::FindPlace(std::string_view head)
{
    constexpr std::size_t tries = 8;
    const std::size_t first = std::hash<std::string_view>()(head);
    LineHead * place = nullptr;
    for (std::size_t i = 0; i < tries; ++i) {
        place = &m_heads[1 + (first + i) % (m_heads.size() - 1)];
        if (place->size == 0 || head == std::string_view(place->text.data(), place->size)) {
            return *place;
        }
    }
    place->size = 0;
    return *place;
}

}  // namespace ipc2581::detail
