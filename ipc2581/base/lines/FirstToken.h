#ifndef IPC2581_BASE_LINES_FIRSTTOKEN_H
#define IPC2581_BASE_LINES_FIRSTTOKEN_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

#include "ipc2581/base/lines/Word.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace ipc2581::detail {

// What the tests of a line need to know of its first token.
struct FirstToken {
    std::uint8_t front = 0;  // brackets at either end, which are no part of the text
    std::uint8_t back = 0;
    bool isDirty = false;          // there are brackets inside too
    bool mayHavePlainRest = true;  // there is no "=" in it
    std::uint32_t size = 0;        // with its brackets, of one that is remembered
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
    static constexpr std::size_t Size = 32;
    // Hash() gives a number below this.
    static constexpr std::size_t Hashes = 128;

    explicit ShortText(std::string_view text)
    {
        const unsigned char * const mask = ShortTextMask.data() + ShortTextMask.size() / 2 - text.size();
        m_front = _mm_and_si128(Load(text.data()), Load(mask));
        m_back = _mm_and_si128(Load(text.data() + Half), Load(mask + Half));
    }
    std::size_t Hash() const
    {
        const __m128i halves = _mm_add_epi64(_mm_unpackhi_epi64(m_front, m_front), _mm_add_epi64(m_front, m_back));
        std::uint64_t low = 0;
        std::memcpy(&low, &halves, sizeof(low));
        return static_cast<std::size_t>((low * 0x9e3779b97f4a7c15U) >> 57);
    }
    // The bytes stand at any place, since the heap of a host may give any multiple of eight.
    bool IsAt(const char * bytes) const
    {
        const __m128i isEqual =
            _mm_and_si128(_mm_cmpeq_epi8(m_front, Load(bytes)), _mm_cmpeq_epi8(m_back, Load(bytes + Half)));
        return _mm_movemask_epi8(isEqual) == 0xffff;
    }
    void StoreAt(char * bytes) const
    {
        _mm_storeu_si128(reinterpret_cast<__m128i *>(bytes), m_front);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(bytes + Half), m_back);
    }

private:
    static constexpr std::size_t Half = Size / 2;

    static __m128i Load(const void * at) { return _mm_loadu_si128(static_cast<const __m128i *>(at)); }

    __m128i m_front;
    __m128i m_back;
};

#else

class ShortText {
public:
    static constexpr std::size_t Size = 32;
    static constexpr std::size_t Hashes = 128;

    explicit ShortText(std::string_view text) { std::memcpy(m_bytes.data(), text.data(), text.size()); }
    std::size_t Hash() const { return std::hash<std::string_view>()({m_bytes.data(), m_bytes.size()}) % Hashes; }
    bool IsAt(const char * bytes) const { return std::memcmp(bytes, m_bytes.data(), Size) == 0; }
    void StoreAt(char * bytes) const { std::memcpy(bytes, m_bytes.data(), Size); }

private:
    std::array<char, Size> m_bytes = {};
};

#endif

// Remembers the first tokens that it has seen: a file has a few dozen different ones on a million lines. The texts must
// stand in a buffer with ReadAhead bytes behind its last one.
class FirstTokenMemory {
public:
    const FirstToken & Find(std::string_view token)
    {
        if (token.size() > ShortText::Size) {
            return FindLong(token);
        }
        const ShortText text(token);
        Entry & entry = m_entries[text.Hash()];
        return entry.Is(text, token.size()) ? entry.token : FindBeside(entry, token);
    }

private:
    struct Entry {
        std::array<char, ShortText::Size> text = {};
        FirstToken token;

        bool Is(const ShortText & other, std::size_t otherSize) const
        {
            return other.IsAt(text.data()) && token.size == otherSize;
        }
    };

    const FirstToken & FindLong(std::string_view token);
    const FirstToken & FindBeside(Entry & entry, std::string_view token);

    std::array<Entry, ShortText::Hashes> m_entries;
    FirstToken m_long;
};

}  // namespace ipc2581::detail

#endif
