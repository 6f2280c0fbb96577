#ifndef IPC2581_BASE_FIRSTTOKEN_H
#define IPC2581_BASE_FIRSTTOKEN_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "ipc2581/base/Word.h"

namespace ipc2581::detail {

// What the tests of a line need to know of its first token.
struct FirstToken {
    std::uint8_t front = 0;  // brackets at either end, which are no part of the text
    std::uint8_t back = 0;
    bool isDirty = false;  // there are brackets inside too
    CharacterSet set = 0;
};

// Looks at the first token of a line that is cut.
FirstToken Examine(std::string_view token);

// The bytes of a short text as words, and what is left of them when the bytes behind its end go, by its length.
using ShortText = std::array<std::uint64_t, 3>;

constexpr std::array<ShortText, sizeof(ShortText) + 1> MakeShortTextMasks()
{
    std::array<ShortText, sizeof(ShortText) + 1> masks = {};
    for (std::size_t size = 0; size < masks.size(); ++size) {
        for (std::size_t byte = 0; byte < size; ++byte) {
            const std::size_t place = std::endian::native == std::endian::little ? byte % 8 : 7 - byte % 8;
            masks[size][byte / 8] |= std::uint64_t(0xff) << (8 * place);
        }
    }
    return masks;
}

inline constexpr std::array<ShortText, sizeof(ShortText) + 1> ShortTextMasks = MakeShortTextMasks();

// Remembers the first tokens that it has seen: a file has a few dozen different ones on a million lines. The texts must
// stand in a buffer with ReadAhead bytes behind its last one.
class FirstTokenMemory {
public:
    const FirstToken & Find(std::string_view token)
    {
        ShortText text;
        if (token.size() > sizeof(text)) {
            m_long = Examine(token);
            return m_long;
        }
        std::memcpy(text.data(), token.data(), sizeof(text));
        for (std::size_t i = 0; i < text.size(); ++i) {
            text[i] &= ShortTextMasks[token.size()][i];
        }
        Entry & entry = m_entries[(text[0] * 0x9e3779b97f4a7c15U + text[1] * 0xc2b2ae3d27d4eb4fU + text[2]) >> 57];
        const std::uint64_t difference = (entry.text[0] ^ text[0]) | (entry.text[1] ^ text[1]) |
                                         (entry.text[2] ^ text[2]) | (entry.size ^ token.size());
        if (difference != 0) {
            entry = {text, token.size(), Examine(token)};
        }
        return entry.token;
    }

private:
    struct Entry {
        ShortText text = {};
        std::size_t size = 0;
        FirstToken token;
    };

    std::array<Entry, 128> m_entries;
    FirstToken m_long;
};

}  // namespace ipc2581::detail

#endif
