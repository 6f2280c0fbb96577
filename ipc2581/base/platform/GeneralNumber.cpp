#include "ipc2581/base/platform/GeneralNumber.h"

#include <version>

#ifdef __cpp_lib_to_chars

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>
#include <system_error>

#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {
namespace {

bool IsHexDigit(char ch)
{
    return (ch >= '0' && ch <= '9') || (ch >= 'a' && ch <= 'f') || (ch >= 'A' && ch <= 'F');
}

// from_chars tells overflow and underflow alike: the weight of the leading digit tells them apart. The digits
// and the exponent stand between at and end as from_chars has accepted them.
bool IsTooLarge(std::string_view number, std::string_view exponentLetters, int exponentPerDigit)
{
    const std::size_t exponentAt = number.find_first_of(exponentLetters);
    const std::string_view digits = number.substr(0, exponentAt);
    const std::size_t pointAt = std::min(digits.find('.'), digits.size());
    const std::size_t leadingAt = digits.find_first_not_of("0.");
    const std::int64_t weight = static_cast<std::int64_t>(pointAt) - static_cast<std::int64_t>(leadingAt);
    const int exponent = exponentAt == std::string_view::npos ? 0 : ParseInteger(number.substr(exponentAt + 1));
    return weight * exponentPerDigit + exponent > 0;
}

double LimitOf(bool isTooLarge)
{
    return isTooLarge ? std::numeric_limits<double>::infinity() : 0.0;
}

double ParseHex(const char * at, const char * end)
{
    const char * const digit = at != end && *at == '.' ? at + 1 : at;
    if (digit == end || !IsHexDigit(*digit)) {
        return 0.0;
    }
    // from_chars would take a "p+-5" for an exponent.
    const std::size_t twoSigns = std::string_view(at, end).find("+-");
    const char * const numberEnd = twoSigns == std::string_view::npos ? end : at + twoSigns;
    double value = 0.0;
    const auto [rest, error] = std::from_chars(at, numberEnd, value, std::chars_format::hex);
    return error == std::errc::result_out_of_range ? LimitOf(IsTooLarge({at, rest}, "pP", 4)) : value;
}

}  // namespace

bool ParseGeneral(const char * at, const char * end, double & value)
{
    if (end - at > 2 && at[0] == '0' && (at[1] == 'x' || at[1] == 'X')) {
        value = ParseHex(at + 2, end);
        return true;
    }
    if (at == end || *at == '-') {
        return false;
    }
    const auto [rest, error] = std::from_chars(at, end, value);
    if (error == std::errc::result_out_of_range) {
        value = LimitOf(IsTooLarge({at, rest}, "eE", 1));
    }
    return error != std::errc::invalid_argument;
}

}  // namespace ipc2581::detail

#else

// Some standard libraries have no from_chars for double; the systems that come with them have a strtod that is given
// its locale.
#include <cstdlib>
#include <string>

#include <locale.h>
#ifdef __APPLE__
#include <xlocale.h>
#endif

namespace ipc2581::detail {
namespace {

locale_t CLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

}  // namespace

bool ParseGeneral(const char * at, const char * end, double & value)
{
    const bool isNumber = at != end && *at != '-' && *at != '+' && *at > ' ';
    if (!isNumber) {
        return false;
    }
    const std::string text(at, end);
    char * rest = nullptr;
    value = strtod_l(text.c_str(), &rest, CLocale());
    return rest != text.c_str();
}

}  // namespace ipc2581::detail

#endif
