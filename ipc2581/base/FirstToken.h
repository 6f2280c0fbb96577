#ifndef IPC2581_BASE_FIRSTTOKEN_H
#define IPC2581_BASE_FIRSTTOKEN_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

#include "ipc2581/base/Word.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

// A text that is short, with zeros behind its end.
#if defined(__SSE2__)

// Put in front of so many bytes of a text, these leave them and clear the others.
inline constexpr std::array<unsigned char, 64> ShortTextMask = [] {
    std::array<unsigned char, 64> mask = {};
    std::fill_n(mask.begin(), mask.size() / 2, static_cast<unsigned char>(0xff));
    return mask;
}();

class ShortText {
public:
    ShortText() = default;
    explicit ShortText(std::string_view text)
    {
        const unsigned char * const mask = ShortTextMask.data() + ShortTextMask.size() / 2 - text.size();
        Store(Front(), _mm_and_si128(Load(text.data()), Load(mask)));
        Store(Back(), _mm_and_si128(Load(text.data() + Half), Load(mask + Half)));
    }
    bool operator==(const ShortText & other) const
    {
        const __m128i isEqual = _mm_and_si128(_mm_cmpeq_epi8(Load(Front()), Load(other.Front())),
                                              _mm_cmpeq_epi8(Load(Back()), Load(other.Back())));
        return _mm_movemask_epi8(isEqual) == 0xffff;
    }
    // A number below that of the hashes.
    std::size_t Hash() const
    {
        const std::uint64_t sum = Quarter(0) + Quarter(1) + Quarter(2);
        return static_cast<std::size_t>((sum * 0x9e3779b97f4a7c15U) >> 57);
    }
    static constexpr std::size_t Hashes = 128;

private:
    static constexpr std::size_t Half = 16;

    static __m128i Load(const void * at) { return _mm_loadu_si128(static_cast<const __m128i *>(at)); }
    static void Store(void * at, __m128i bytes) { _mm_storeu_si128(static_cast<__m128i *>(at), bytes); }
    char * Front() { return m_bytes.data(); }
    char * Back() { return m_bytes.data() + Half; }
    const char * Front() const { return m_bytes.data(); }
    const char * Back() const { return m_bytes.data() + Half; }
    std::uint64_t Quarter(std::size_t index) const
    {
        std::uint64_t word = 0;
        std::memcpy(&word, m_bytes.data() + index * sizeof(word), sizeof(word));
        return word;
    }

    // Bytes and no registers: the heap of a host may place it at any multiple of eight.
    std::array<char, 2 * Half> m_bytes = {};
};

#else

class ShortText {
public:
    ShortText() = default;
    explicit ShortText(std::string_view text) { std::memcpy(m_bytes.data(), text.data(), text.size()); }
    bool operator==(const ShortText & other) const = default;
    std::size_t Hash() const { return std::hash<std::string_view>()({m_bytes.data(), m_bytes.size()}) % Hashes; }
    static constexpr std::size_t Hashes = 128;

private:
    std::array<char, 32> m_bytes = {};
};

#endif

// Remembers the first tokens that it has seen: a file has a few dozen different ones on a million lines. The texts must
// stand in a buffer with ReadAhead bytes behind its last one.
class FirstTokenMemory {
public:
    const FirstToken & Find(std::string_view token)
    {
        if (token.size() > sizeof(ShortText)) {
            return FindLong(token);
        }
        const ShortText text(token);
        Entry & entry = m_entries[text.Hash()];
        return entry.Is(text, token.size()) ? entry.token : FindBeside(entry, text, token);
    }

private:
    struct Entry {
        ShortText text;
        std::size_t size = 0;
        FirstToken token;

        bool Is(const ShortText & other, std::size_t otherSize) const { return text == other && size == otherSize; }
    };

    const FirstToken & FindLong(std::string_view token);
    const FirstToken & FindBeside(Entry & entry, const ShortText & text, std::string_view token);

    std::array<Entry, ShortText::Hashes> m_entries;
    FirstToken m_long;
};

}  // namespace ipc2581::detail

#endif
