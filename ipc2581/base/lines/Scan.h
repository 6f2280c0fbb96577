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

// Where a run of other characters than blanks begins and ends. FindToken gives the first one.
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
inline std::uint64_t SpecialBits(const char * at)
{
    return StepBits(at, [](__m128i bytes) {
        const __m128i fromLess = _mm_sub_epi8(bytes, _mm_set1_epi8('<'));
        const __m128i isBracketOrEqual = _mm_cmpeq_epi8(_mm_min_epu8(fromLess, _mm_set1_epi8(2)), fromLess);
        const __m128i isBlankOrQuote =
            _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(' ' ^ '"')), _mm_set1_epi8('"'));
        const __m128i isSlash = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('/'));
        return _mm_or_si128(_mm_or_si128(isBracketOrEqual, isBlankOrQuote), isSlash);
    });
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

inline Token FindToken(const char * at, const char * end)
{
    const std::uint64_t blanks = EqualBits(at, ' ');
    const std::uint64_t fromStart = blanks & (blanks + 1);
    const char * const start = at + BitsBelow(~blanks);
    if (fromStart == 0 || start >= end) {
        return FindFarToken(at, end);
    }
    return {start, std::min(at + BitsBelow(fromStart), end)};
}

// Walks over the characters of a text that are not ordinary.
class SpecialWalk {
public:
    SpecialWalk(const char * at, const char * end) : m_step(at), m_end(end), m_bits(SpecialBits(at)) {}

    // Goes on from another place.
    void Restart(const char * at)
    {
        m_step = at;
        m_bits = SpecialBits(at);
    }
    // Leaves out the next one.
    void Skip() { m_bits &= m_bits - 1; }
    // The next one and the third from the place on, at which the walk stands, and behind the third then. They may lie
    // behind the end. Where there are no three of them in front of it, both may be the place itself.
    std::pair<const char *, const char *> FirstAndThird(const char * at)
    {
        std::uint64_t fromThird = FromThird();
        if (fromThird == 0) {
            Restart(at);
            fromThird = FromThird();
            if (fromThird == 0) {
                return FirstAndFarThird(at);
            }
        }
        const char * const first = m_step + BitsBelow(m_bits);
        m_bits = fromThird & (fromThird - 1);
        return {first, m_step + BitsBelow(fromThird)};
    }

private:
    std::uint64_t FromThird() const
    {
        const std::uint64_t fromSecond = m_bits & (m_bits - 1);
        return fromSecond & (fromSecond - 1);
    }
    std::pair<const char *, const char *> FirstAndFarThird(const char * at);

    const char * m_step;
    const char * m_end;
    std::uint64_t m_bits;
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

inline Token FindToken(const char * at, const char * end)
{
    const char * const start = SkipBlanks(at, end);
    return {start, FindBlank(start, end)};
}

class SpecialWalk {
public:
    SpecialWalk(const char * at, const char * end) : m_next(at), m_end(end) {}

    void Restart(const char * at) { m_next = at; }
    void Skip() { m_next = std::min(SkipOrdinary(m_next) + 1, m_end); }
    std::pair<const char *, const char *> FirstAndThird(const char * at)
    {
        const char * const first = SkipOrdinary(at);
        const char * const second = SkipOrdinary(std::min(first + 1, m_end));
        const char * const third = SkipOrdinary(std::min(second + 1, m_end));
        if (third == m_end) {
            return {at, at};
        }
        m_next = third + 1;
        return {first, third};
    }

private:
    const char * SkipOrdinary(const char * at) const
    {
        return std::find_if_not(at, m_end, [](char ch) { return Ordinary[static_cast<unsigned char>(ch)]; });
    }

    const char * m_next;
    const char * m_end;
};

#endif

}  // namespace ipc2581::detail

#endif
