#include "ipc2581/base/platform/Number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "ipc2581/base/platform/GeneralNumber.h"

namespace ipc2581::detail {
namespace {

constexpr bool IsSpace(char ch)
{
    return ch == ' ' || (ch >= '\t' && ch <= '\r');
}

constexpr bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

const char * SkipSpace(const char * at, const char * end)
{
    while (at != end && IsSpace(*at)) {
        ++at;
    }
    return at;
}

constexpr std::array<double, 23> ExactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::array<std::uint64_t, 9> PowersOfTen = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
constexpr std::uint64_t LargestExactInteger = std::uint64_t(1) << 53;

// Takes the digits at the place into the number and returns where they end.
const char * TakeDigits(const char * at, const char * end, std::uint64_t & digits)
{
    for (; at != end; ++at) {
        const unsigned digit = static_cast<unsigned>(static_cast<unsigned char>(*at)) - '0';
        if (digit > 9) {
            break;
        }
        digits = digits * 10 + digit;
    }
    return at;
}

// Whether a division of two doubles rounds once. Some processors divide in wider registers and round again.
constexpr bool DividesExactly = FLT_EVAL_METHOD == 0;

// A plain decimal such as 12.345 whose digits and power of ten are both exact doubles: one division rounds
// once and so is right. Anything else gives false.
bool ParsePlainDecimal(const char * at, const char * end, double & value)
{
    std::uint64_t digits = 0;
    const char * const wholeEnd = TakeDigits(at, end, digits);
    std::ptrdiff_t count = wholeEnd - at;
    std::ptrdiff_t decimals = 0;
    at = wholeEnd;
    if (at != end && *at == '.') {
        at = TakeDigits(wholeEnd + 1, end, digits);
        decimals = at - (wholeEnd + 1);
        count += decimals;
    }
    // Lower case or upper case: the bit that tells them apart is set before the comparison.
    const char behind = at == end ? '\0' : static_cast<char>(*at | 0x20);
    if (!DividesExactly || count == 0 || count > 19 || digits > LargestExactInteger || behind == 'e' || behind == 'x') {
        return false;
    }
    value = static_cast<double>(digits) / ExactPowersOfTen[static_cast<std::size_t>(decimals)];
    return true;
}

// A decimal with one to eight digits behind its point, and nothing else. Those are taken in one step out of the eight
// bytes in front of the end, which must be readable.
//
//     "12.3456"
//      | ||   `-- end
//      | |`------ count digits up to the end: 4
//      | `------- point, where the digits of the whole number end
//      `--------- at
//
//     the eight bytes in front of the end    " 1 2 . 3 4 5 6
//     those that are no such digits cleared  0 0 0 0 3 4 5 6
//     two neighbours joined                  00  00  34  56
//     each with its weight, summed up        0 * 1000000 + 0 * 10000 + 34 * 100 + 56 = 3456
bool ParseShortDecimal(const char * at, const char * end, double & value)
{
    constexpr std::uint64_t zeros = 0x3030303030303030;
    constexpr std::uint64_t upToNine = 0x7676767676767676;
    constexpr std::uint64_t highBits = 0x8080808080808080;
    constexpr std::uint64_t everyFourth = 0x000000ff000000ff;
    std::uint64_t whole = 0;
    const char * const point = TakeDigits(at, end, whole);
    const std::ptrdiff_t count = end - point - 1;
    if (!DividesExactly || std::endian::native != std::endian::little || count < 1 || count > 8 || *point != '.' ||
        point - at > 7) {
        return false;
    }
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, end - sizeof(bytes), sizeof(bytes));
    const std::ptrdiff_t unused = 8 * (8 - count);
    bytes = (bytes ^ zeros) >> unused << unused;
    if (((bytes + upToNine) | bytes) & highBits) {
        return false;
    }
    bytes = bytes * 10 + (bytes >> 8);
    // The weights stand in two numbers, for every second pair each; the upper halves of the products hold the sums.
    const std::uint64_t even = (bytes & everyFourth) * (100 + (std::uint64_t(1000000) << 32));
    const std::uint64_t odd = (bytes >> 16 & everyFourth) * (1 + (std::uint64_t(10000) << 32));
    const std::uint64_t digits = whole * PowersOfTen[static_cast<std::size_t>(count)] + ((even + odd) >> 32);
    value = static_cast<double>(digits) / ExactPowersOfTen[static_cast<std::size_t>(count)];
    return true;
}

// fraction * 10^6 / 2^bits, rounded half to even. The fraction has at most 53 bits, so that the product does not
// fit one word: it is kept in two, the lower of 27 bits.
std::uint64_t SixDecimals(std::uint64_t fraction, int bits)
{
    constexpr std::uint64_t million = 1'000'000;
    constexpr int lowBits = 27;
    constexpr std::uint64_t lowMask = (std::uint64_t(1) << lowBits) - 1;
    constexpr int bitsOfZero = 74;
    if (bits >= bitsOfZero) {
        return 0;
    }
    const std::uint64_t lowProduct = (fraction & lowMask) * million;
    std::uint64_t high = (fraction >> lowBits) * million + (lowProduct >> lowBits);
    std::uint64_t low = lowProduct & lowMask;
    if (bits <= lowBits) {
        high = (high << lowBits) | low;
        low = 0;
    }
    const int highBits = bits <= lowBits ? bits : bits - lowBits;
    const std::uint64_t decimals = high >> highBits;
    const std::uint64_t rest = high - (decimals << highBits);
    const std::uint64_t half = (std::uint64_t(1) << highBits) >> 1;
    const bool isAbove = rest > half || (rest == half && low != 0);
    const bool isTie = rest == half && low == 0;
    return decimals + (isAbove || (isTie && (decimals & 1) != 0) ? 1 : 0);
}

constexpr std::array<char, 200> MakePairs()
{
    std::array<char, 200> pairs = {};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

// All numbers of two digits, one behind the other.
constexpr std::array<char, 200> Pairs = MakePairs();

char * WritePair(char * out, std::uint64_t value)
{
    std::memcpy(out, Pairs.data() + 2 * value, 2);
    return out + 2;
}

char * WriteUnsigned(char * out, std::uint64_t value)
{
    if (value < 10) {
        *out = static_cast<char>('0' + value);
        return out + 1;
    }
    if (value < 100) {
        return WritePair(out, value);
    }
    if (value < 1000) {
        *out = static_cast<char>('0' + value / 100);
        return WritePair(out + 1, value % 100);
    }
    return std::to_chars(out, out + 20, value).ptr;
}

char * WriteSixDigits(char * out, std::uint64_t decimals)
{
    const auto value = static_cast<std::uint32_t>(decimals);
    return WritePair(WritePair(WritePair(out, value / 10000), value / 100 % 100), value % 100);
}

}  // namespace

double ParseDouble(std::string_view text)
{
    const char * const end = text.data() + text.size();
    const char * at = SkipSpace(text.data(), end);
    bool isNegative = false;
    if (at != end && (*at == '-' || *at == '+')) {
        isNegative = *at++ == '-';
    }
    double value = 0.0;
    if (!ParsePlainDecimal(at, end, value) && !ParseGeneral(at, end, value)) {
        return 0.0;
    }
    return isNegative ? -value : value;
}

double ParseDoubleAhead(std::string_view text)
{
    const char * const end = text.data() + text.size();
    const bool isNegative = !text.empty() && text.front() == '-';
    double value = 0.0;
    if (!ParseShortDecimal(text.data() + (isNegative ? 1 : 0), end, value)) {
        return ParseDouble(text);
    }
    return isNegative ? -value : value;
}

int ParseInteger(std::string_view text)
{
    const char * const end = text.data() + text.size();
    const char * at = SkipSpace(text.data(), end);
    bool isNegative = false;
    if (at != end && (*at == '-' || *at == '+')) {
        isNegative = *at++ == '-';
    }
    constexpr std::int64_t limit = std::int64_t(1) << 31;
    std::int64_t value = 0;
    for (; at != end && IsDigit(*at); ++at) {
        value = value * 10 + (*at - '0');
        if (value > limit) {
            value = limit;
        }
    }
    if (isNegative) {
        return static_cast<int>(-value);
    }
    return static_cast<int>(value == limit ? limit - 1 : value);
}

char * WriteFixed(char * out, double value)
{
    constexpr int mantissaBits = 52;
    constexpr std::uint64_t hiddenBit = std::uint64_t(1) << mantissaBits;
    constexpr std::uint64_t million = 1'000'000;
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
    if (std::isnan(value)) {
        // Some standard libraries tell more of it than printf does.
        const std::string_view text = (bits >> 63) != 0 ? "-nan" : "nan";
        return out + text.copy(out, text.size());
    }
    if (!std::isfinite(value) || std::fabs(value) >= static_cast<double>(hiddenBit)) {
        return std::to_chars(out, out + FixedLength, value, std::chars_format::fixed, 6).ptr;
    }
    if ((bits >> 63) != 0) {
        *out++ = '-';
    }
    const int exponent = static_cast<int>((bits >> mantissaBits) & 0x7ff);
    const std::uint64_t stored = bits & (hiddenBit - 1);
    const std::uint64_t mantissa = exponent == 0 ? stored : stored | hiddenBit;
    const int fractionBits = 1075 - std::max(exponent, 1);
    std::uint64_t whole = fractionBits > mantissaBits ? 0 : mantissa >> fractionBits;
    const std::uint64_t fraction = fractionBits > mantissaBits ? mantissa : mantissa - (whole << fractionBits);
    std::uint64_t decimals = SixDecimals(fraction, fractionBits);
    if (decimals == million) {
        decimals = 0;
        ++whole;
    }
    out = WriteUnsigned(out, whole);
    *out++ = '.';
    return WriteSixDigits(out, decimals);
}

char * WriteInteger(char * out, int value)
{
    return std::to_chars(out, out + IntegerLength, value).ptr;
}

}  // namespace ipc2581::detail
