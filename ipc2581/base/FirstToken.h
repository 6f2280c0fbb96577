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

// Remembers the first tokens that it has seen: a file has a few dozen different ones on a million lines. The texts must
// stand in a buffer with ReadAhead bytes behind its last one.
class FirstTokenMemory {
public:
    const FirstToken & Find(std::string_view token)
    {
        Text text = {};
        if (token.size() > sizeof(text)) {
            m_long = Examine(token);
            return m_long;
        }
        for (std::size_t i = 0; i < text.size(); ++i) {
            text[i] = Load(token, i * sizeof(std::uint64_t));
        }
        Entry & entry = m_entries[(text[0] * 0x9e3779b97f4a7c15U + text[1] * 0xc2b2ae3d27d4eb4fU + text[2]) >> 58];
        if (entry.text != text || entry.size != token.size()) {
            entry = {text, token.size(), Examine(token)};
        }
        return entry.token;
    }

private:
    using Text = std::array<std::uint64_t, 3>;

    struct Entry {
        Text text = {};
        std::size_t size = 0;
        FirstToken token;
    };

    // The eight bytes at an offset, without those behind the end.
    static std::uint64_t Load(std::string_view token, std::size_t offset)
    {
        if (token.size() <= offset) {
            return 0;
        }
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, token.data() + offset, sizeof(bytes));
        const std::size_t left = token.size() - offset;
        if (left >= sizeof(bytes)) {
            return bytes;
        }
        const std::size_t surplus = (sizeof(bytes) - left) * 8;
        return std::endian::native == std::endian::little ? bytes << surplus : bytes >> surplus;
    }

    std::array<Entry, 64> m_entries;
    FirstToken m_long;
};

}  // namespace ipc2581::detail

#endif
