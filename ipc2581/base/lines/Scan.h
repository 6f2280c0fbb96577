#ifndef IPC2581_BASE_LINES_SCAN_H
#define IPC2581_BASE_LINES_SCAN_H

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Finding the ends of tokens, keys and values. Where the processor can, many bytes are looked at in one step; the texts
// must then stand in a buffer with ReadAhead bytes in front of its first and behind its last one.
namespace ipc2581::detail {

inline constexpr std::size_t ReadAhead = 64;

// What a key or a plain value is made of: everything but blanks, quotes and what has a meaning of its own.
constexpr std::array<bool, 256> MakeOrdinary()
{
    std::array<bool, 256> ordinary = {};
    ordinary.fill(true);
    for (const char ch : std::string_view(" \"=<>/")) {
        ordinary[static_cast<unsigned char>(ch)] = false;
    }
    return ordinary;
}

inline constexpr std::array<bool, 256> Ordinary = MakeOrdinary();

// The most bytes of the head of a line that are compared with those of another one.
inline constexpr std::size_t HeadSize = 48;
// The most bytes of a key, and of a short value, that are looked at in one step.
inline constexpr std::size_t NearSize = 16;

// Where a run of other characters than blanks begins and ends.
using Token = std::pair<const char *, const char *>;

#if defined(__SSE2__)

inline constexpr std::ptrdiff_t StepSize = 64;

// One bit for each of the sixty-four bytes that stand at the place, set if the comparison of sixteen of them says so.
template <typename Compare>
std::uint64_t StepBits(const char * at, Compare compare)
{
    const auto bits = [at, compare](std::ptrdiff_t from) -> std::uint64_t {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(at + from));
        return static_cast<unsigned>(_mm_movemask_epi8(compare(bytes)));
    };
    return bits(0) | bits(16) << 16 | bits(32) << 32 | bits(48) << 48;
}

inline std::uint64_t EqualBits(const char * at, char ch)
{
    const __m128i sought = _mm_set1_epi8(ch);
    return StepBits(at, [sought](__m128i bytes) { return _mm_cmpeq_epi8(bytes, sought); });
}

// What is not ordinary. "<" to ">" are three neighbours in the order of bytes, and a blank and a quote differ in one
// bit, so that three comparisons find them all.
inline __m128i AreSpecial(__m128i bytes)
{
    const __m128i fromLess = _mm_sub_epi8(bytes, _mm_set1_epi8('<'));
    const __m128i isBracketOrEqual = _mm_cmpeq_epi8(_mm_min_epu8(fromLess, _mm_set1_epi8(2)), fromLess);
    const __m128i isBlankOrQuote = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(' ' ^ '"')), _mm_set1_epi8('"'));
    const __m128i isSlash = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('/'));
    return _mm_or_si128(_mm_or_si128(isBracketOrEqual, isBlankOrQuote), isSlash);
}

inline std::uint64_t SpecialBits(const char * at)
{
    return StepBits(at, &AreSpecial);
}

// How many bits stand below the lowest one.
inline std::size_t BitsBelow(std::uint64_t bits)
{
    return static_cast<unsigned>(std::countr_zero(bits));
}

// The first place from at on whose bit is set; end if there is none in front of it.
template <typename Bits>
const char * FindBit(const char * at, const char * end, Bits bitsAt)
{
    for (; at < end; at += StepSize) {
        if (const std::uint64_t bits = bitsAt(at)) {
            return std::min(at + BitsBelow(bits), end);
        }
    }
    return end;
}

inline const char * SkipBlanks(const char * at, const char * end)
{
    return FindBit(at, end, [](const char * step) { return ~EqualBits(step, ' '); });
}

inline const char * FindBlank(const char * at, const char * end)
{
    return FindBit(at, end, [](const char * step) { return EqualBits(step, ' '); });
}

inline const char * FindLineFeed(const char * at, const char * end)
{
    return FindBit(at, end, [](const char * step) { return EqualBits(step, '\n'); });
}

Token FindFarToken(const char * at, const char * end);

// So many bytes of a text of HeadSize at most, to compare them with those of another one.
class HeadBits {
public:
    HeadBits() = default;
    explicit HeadBits(std::size_t size) : m_bits((std::uint64_t(1) << size) - 1) {}

    bool AreEqual(const char * left, const char * right) const
    {
        const auto equal = [left, right](std::size_t at) -> std::uint64_t {
            const __m128i leftBytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(left + at));
            const __m128i rightBytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(right + at));
            return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(leftBytes, rightBytes)));
        };
        return (m_bits & ~(equal(0) | equal(16) << 16 | equal(32) << 32)) == 0;
    }

private:
    // Of no text, to which nothing is equal.
    std::uint64_t m_bits = std::uint64_t(1) << 63;
};

// A short text that is known when the library is compiled: the first bytes of another one are compared with it.
class ShortKey {
public:
    // Of a text with a character behind it. If that is too long, nothing is equal to it.
    consteval ShortKey(std::string_view text, char behind)
        : m_bits(text.size() < NearSize ? (2U << text.size()) - 1 : 1U << NearSize), m_size(text.size() + 1)
    {
        if (text.size() < NearSize) {
            std::copy(text.begin(), text.end(), m_text.begin());
            m_text[text.size()] = behind;
        }
    }

    bool IsAt(const char * at) const
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(at));
        const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i *>(m_text.data()));
        return (m_bits & ~static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, text)))) == 0;
    }

    std::size_t Size() const { return m_size; }

private:
    std::array<char, NearSize> m_text = {};
    unsigned m_bits;
    std::size_t m_size;
};

// The first character that is not ordinary, if it is among the next ones.
inline const char * FindNearSpecial(const char * at)
{
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(at));
    const auto bits = static_cast<unsigned>(_mm_movemask_epi8(AreSpecial(bytes)));
    return bits == 0 ? nullptr : at + std::countr_zero(bits);
}

// What one look at the first bytes of a line tells: mostly its end, and always most of its first token.
class LineStart {
public:
    LineStart() = default;
    explicit LineStart(const char * at) : m_blanks(EqualBits(at, ' ')), m_lineFeeds(EqualBits(at, '\n')) {}

    // The line feed of the line that begins at the place; end if there is none in front of it.
    const char * LineFeed(const char * at, const char * end) const
    {
        return m_lineFeeds != 0 ? std::min(at + BitsBelow(m_lineFeeds), end) : FindLineFeed(at + StepSize, end);
    }
    Token FirstToken(const char * at, const char * end) const
    {
        const std::uint64_t fromStart = m_blanks & (m_blanks + 1);
        const char * const start = at + BitsBelow(~m_blanks);
        if (fromStart == 0 || start >= end) {
            return FindFarToken(at, end);
        }
        return {start, std::min(at + BitsBelow(fromStart), end)};
    }

private:
    std::uint64_t m_blanks = 0;
    std::uint64_t m_lineFeeds = 0;
};

// Walks over the characters of a text that are not ordinary.
class SpecialWalk {
public:
    SpecialWalk(const char * at, const char * end) : m_step(at - StepSize), m_end(end) {}

    // The next one and the third from the place on, which does not lie in front of one that was asked for before. They
    // may lie behind the end. Where there are no three of them in front of it, both may be the place itself.
    std::pair<const char *, const char *> FirstAndThird(const char * at)
    {
        const std::ptrdiff_t ahead = at - m_step;
        if (ahead >= StepSize) {
            Restart(at);
        }
        else {
            m_bits &= ~std::uint64_t(0) << ahead;
        }
        std::uint64_t fromThird = FromThird();
        if (fromThird == 0) {
            Restart(at);
            fromThird = FromThird();
            if (fromThird == 0) {
                return FirstAndFarThird(at);
            }
        }
        return {m_step + BitsBelow(m_bits), m_step + BitsBelow(fromThird)};
    }

private:
    void Restart(const char * at)
    {
        m_step = at;
        m_bits = SpecialBits(at);
    }
    std::uint64_t FromThird() const
    {
        const std::uint64_t fromSecond = m_bits & (m_bits - 1);
        return fromSecond & (fromSecond - 1);
    }
    std::pair<const char *, const char *> FirstAndFarThird(const char * at);

    const char * m_step;
    const char * m_end;
    std::uint64_t m_bits = 0;
};

#else

inline const char * SkipBlanks(const char * at, const char * end)
{
    while (at != end && *at == ' ') {
        ++at;
    }
    return at;
}

inline const char * FindBlank(const char * at, const char * end)
{
    while (at != end && *at != ' ') {
        ++at;
    }
    return at;
}

inline const char * FindLineFeed(const char * at, const char * end)
{
    const void * const found = at == end ? nullptr : std::memchr(at, '\n', static_cast<std::size_t>(end - at));
    return found == nullptr ? end : static_cast<const char *>(found);
}

class HeadBits {
public:
    HeadBits() = default;
    explicit HeadBits(std::size_t size) : m_size(size) {}

    bool AreEqual(const char * left, const char * right) const
    {
        return m_size != 0 && std::memcmp(left, right, m_size) == 0;
    }

private:
    std::size_t m_size = 0;
};

class LineStart {
public:
    LineStart() = default;
    explicit LineStart(const char * /*at*/) {}

    const char * LineFeed(const char * at, const char * end) const { return FindLineFeed(at, end); }
    Token FirstToken(const char * at, const char * end) const
    {
        const char * const start = SkipBlanks(at, end);
        return {start, FindBlank(start, end)};
    }
};

class ShortKey {
public:
    consteval ShortKey(std::string_view text, char behind) : m_text(text), m_behind(behind) {}

    bool IsAt(const char * at) const
    {
        return m_text.size() < NearSize && std::memcmp(at, m_text.data(), m_text.size()) == 0 &&
               at[m_text.size()] == m_behind;
    }
    std::size_t Size() const { return m_text.size() + 1; }

private:
    std::string_view m_text;
    char m_behind;
};

inline const char * FindNearSpecial(const char * at)
{
    const auto isSpecial = [](char ch) { return !Ordinary[static_cast<unsigned char>(ch)]; };
    const char * const found = std::find_if(at, at + NearSize, isSpecial);
    return found == at + NearSize ? nullptr : found;
}

class SpecialWalk {
public:
    SpecialWalk(const char * /*at*/, const char * end) : m_end(end) {}

    std::pair<const char *, const char *> FirstAndThird(const char * at)
    {
        const char * const first = SkipOrdinary(at);
        const char * const second = SkipOrdinary(std::min(first + 1, m_end));
        const char * const third = SkipOrdinary(std::min(second + 1, m_end));
        return third == m_end ? std::pair(at, at) : std::pair(first, third);
    }

private:
    const char * SkipOrdinary(const char * at) const
    {
        return std::find_if_not(at, m_end, [](char ch) { return Ordinary[static_cast<unsigned char>(ch)]; });
    }

    const char * m_end;
};

#endif

}  // namespace ipc2581::detail

#endif
