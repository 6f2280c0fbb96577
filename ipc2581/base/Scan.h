#ifndef IPC2581_BASE_SCAN_H
#define IPC2581_BASE_SCAN_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Finding the ends of tokens, keys and values. Where the processor can, many bytes are looked at in one step; the texts
// must then stand in a buffer with ReadAhead bytes in front of its first and behind its last one.
namespace ipc2581::detail {

inline constexpr std::size_t ReadAhead = 32;

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

#if defined(__SSE2__)

inline constexpr std::ptrdiff_t StepSize = 16;

// One bit for each of the sixteen bytes that stand at the place.
inline unsigned EqualBits(__m128i bytes, char ch)
{
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(ch))));
}

inline __m128i LoadStep(const char * at)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i *>(at));
}

inline unsigned BlankBits(const char * at)
{
    return EqualBits(LoadStep(at), ' ');
}

// "<" to ">" are three neighbours in the order of bytes, so that one comparison finds them all.
inline unsigned SpecialBits(const char * at)
{
    const __m128i bytes = LoadStep(at);
    const __m128i fromLess = _mm_sub_epi8(bytes, _mm_set1_epi8('<'));
    const __m128i isBracketOrEqual = _mm_cmpeq_epi8(_mm_min_epu8(fromLess, _mm_set1_epi8(2)), fromLess);
    const __m128i isBlankOrQuote =
        _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"')));
    const __m128i isSlash = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('/'));
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_or_si128(_mm_or_si128(isBracketOrEqual, isBlankOrQuote), isSlash)));
}

// The first place from at on whose bit is set; end if there is none in front of it.
template <typename Bits>
const char * FindBit(const char * at, const char * end, Bits bitsAt)
{
    for (; at < end; at += StepSize) {
        if (const unsigned bits = bitsAt(at)) {
            const char * const found = at + __builtin_ctz(bits);
            return found < end ? found : end;
        }
    }
    return end;
}

inline const char * SkipBlanks(const char * at, const char * end)
{
    return FindBit(at, end, [](const char * step) { return ~BlankBits(step) & 0xffffU; });
}

inline const char * FindBlank(const char * at, const char * end)
{
    return FindBit(at, end, &BlankBits);
}

inline const char * SkipOrdinary(const char * at, const char * end)
{
    return FindBit(at, end, &SpecialBits);
}

inline const char * FindLineFeed(const char * at, const char * end)
{
    return FindBit(at, end, [](const char * step) { return EqualBits(LoadStep(step), '\n'); });
}

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

inline const char * SkipOrdinary(const char * at, const char * end)
{
    while (at != end && Ordinary[static_cast<unsigned char>(*at)]) {
        ++at;
    }
    return at;
}

inline const char * FindLineFeed(const char * at, const char * end)
{
    const void * const found = at == end ? nullptr : std::memchr(at, '\n', static_cast<std::size_t>(end - at));
    return found == nullptr ? end : static_cast<const char *>(found);
}

#endif

}  // namespace ipc2581::detail

#endif
