#ifndef IPC2581_VIEWER_STANDARD_H
#define IPC2581_VIEWER_STANDARD_H

// What the standard library of this compiler lacks of C++20, and the sources ask for. It stands in front of each of
// them, so that none of them needs to know.
#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>

namespace ipc2581::standard {

inline bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

inline std::size_t CountDigits(std::string_view text)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
}

// How many bytes of the text the exponent at its start has.
inline std::size_t CountExponent(std::string_view text)
{
    if (text.empty() || (text[0] != 'e' && text[0] != 'E')) {
        return 0;
    }
    const std::size_t sign = text.size() > 1 && (text[1] == '-' || text[1] == '+') ? 1 : 0;
    const std::size_t digits = CountDigits(text.substr(1 + sign));
    return digits == 0 ? 0 : 1 + sign + digits;
}

// How many bytes of the text the decimal number at its start has, which may have a minus in front.
inline std::size_t CountNumber(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const std::size_t whole = CountDigits(text.substr(sign));
    std::size_t end = sign + whole;
    std::size_t decimals = 0;
    if (end < text.size() && text[end] == '.') {
        decimals = CountDigits(text.substr(end + 1));
        end += whole + decimals == 0 ? 0 : 1 + decimals;
    }
    return whole + decimals == 0 ? 0 : end + CountExponent(text.substr(end));
}

inline bool StartsWithWord(std::string_view text, std::string_view word)
{
    return text.size() >= word.size() && std::equal(word.begin(), word.end(), text.begin(), [](char left, char right) {
               return left == std::tolower(static_cast<unsigned char>(right));
           });
}

// The same for those that are no digits.
inline std::size_t CountWord(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    for (const std::string_view word : {"infinity", "inf", "nan"}) {
        if (StartsWithWord(text.substr(sign), word)) {
            return sign + word.size();
        }
    }
    return 0;
}

inline std::to_chars_result Put(char * first, char * last, std::string_view text)
{
    if (static_cast<std::size_t>(last - first) < text.size()) {
        return {last, std::errc::value_too_large};
    }
    return {first + text.copy(first, text.size()), std::errc()};
}

// The C library of a browser never asks a locale.
inline std::string Fixed(double value, int decimals)
{
    std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, "%.*f", decimals, value)), '\0');
    std::snprintf(text.data(), text.size() + 1, "%.*f", decimals, value);
    return text;
}

inline std::string Scientific(double value, int decimals)
{
    std::array<char, 40> text = {};
    std::snprintf(text.data(), text.size(), "%.*e", decimals, value);
    return text.data();
}

// With as many decimals as it takes to be no other number.
inline std::string Shortest(double value, std::string (*write)(double value, int decimals))
{
    std::string text = write(value, 0);
    for (int decimals = 1; std::isfinite(value) && std::strtod(text.c_str(), nullptr) != value; ++decimals) {
        text = write(value, decimals);
    }
    return text;
}

}  // namespace ipc2581::standard

namespace std {

template <typename To, typename From>
constexpr To bit_cast(const From & from)
{
    return __builtin_bit_cast(To, from);
}

// Of its formats only the fixed one is asked for.
inline to_chars_result to_chars(char * first, char * last, double value, chars_format, int decimals)
{
    return ipc2581::standard::Put(first, last, ipc2581::standard::Fixed(value, decimals));
}

inline to_chars_result to_chars(char * first, char * last, double value, chars_format)
{
    return ipc2581::standard::Put(first, last, ipc2581::standard::Shortest(value, ipc2581::standard::Fixed));
}

inline to_chars_result to_chars(char * first, char * last, double value)
{
    const string fixed = ipc2581::standard::Shortest(value, ipc2581::standard::Fixed);
    const string scientific = ipc2581::standard::Shortest(value, ipc2581::standard::Scientific);
    return ipc2581::standard::Put(first, last, scientific.size() < fixed.size() ? scientific : fixed);
}

inline from_chars_result from_chars(const char * first, const char * last, double & value)
{
    const string_view text(first, static_cast<size_t>(last - first));
    size_t size = ipc2581::standard::CountNumber(text);
    const bool isWord = size == 0;
    size = isWord ? ipc2581::standard::CountWord(text) : size;
    if (size == 0) {
        return {first, errc::invalid_argument};
    }
    const string number(text.substr(0, size));
    const double read = strtod(number.c_str(), nullptr);
    const bool isNothing = read == 0 && number.find_first_of("123456789") < number.find_first_of("eE");
    if (!isWord && (isinf(read) || isNothing)) {
        return {first + size, errc::result_out_of_range};
    }
    value = read;
    return {first + size, errc()};
}

}  // namespace std

#endif
