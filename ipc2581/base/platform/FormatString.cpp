#include "ipc2581/base/platform/FormatString.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <vector>

#include "ipc2581/base/platform/Afx.h"

namespace ipc2581::detail {
namespace {

// What printf of C prints for one value.
template <typename Value>
std::string Print(const std::string & format, int precision, Value value)
{
    std::string text(64, '\0');
    for (;;) {
        const int length = std::snprintf(text.data(), text.size(), format.c_str(), precision, value);
        if (length < 0) {
            AfxThrowInvalidArgException();
        }
        const bool isWhole = static_cast<std::size_t>(length) < text.size();
        text.resize(static_cast<std::size_t>(length) + (isWhole ? 0 : 1));
        if (isWhole) {
            return text;
        }
    }
}

// A conversion without its width, which is applied to what it gives. A negative precision is none.
std::string FormatOf(const FormatConversion & conversion, std::string_view length)
{
    const std::string_view sign = conversion.hasPlus ? "+" : conversion.hasBlank ? " " : "";
    const std::string_view form = conversion.isAlternate ? "#" : "";
    return std::string("%").append(sign).append(form).append(".*").append(length).append(1, conversion.letter);
}

// The value as the width of the argument, and the length in the format, leave it.
std::intmax_t Narrowed(std::intmax_t value, std::size_t size, bool isSigned)
{
    const std::size_t unused = 8 * (sizeof(value) - size);
    const std::uintmax_t bits = static_cast<std::uintmax_t>(value) << unused;
    return isSigned ? static_cast<std::intmax_t>(bits) >> unused : static_cast<std::intmax_t>(bits >> unused);
}

std::string PrintInteger(const FormatConversion & conversion, const FormatArgument & argument)
{
    const std::size_t size = conversion.narrowed != 0 ? conversion.narrowed : argument.Type().size;
    const std::intmax_t value = Narrowed(argument.Integer(), size, conversion.IsOneOf("di"));
    return Print(FormatOf(conversion, "j"), conversion.precision, value);
}

// The digits are those of C, and so is the point, whatever it is in the locale: the one thing in a number that is
// neither a digit nor a letter nor a sign.
std::string PrintNumber(const FormatConversion & conversion, const FormatArgument & argument)
{
    const bool isLong = argument.Type().kind == FormatKind::LongDouble;
    std::string text =
        isLong ? Print(FormatOf(conversion, "L"), conversion.precision, argument.Number())
               : Print(FormatOf(conversion, ""), conversion.precision, static_cast<double>(argument.Number()));
    const auto isOfPoint = [](char ch) {
        return !(ch >= '0' && ch <= '9') && !(ch >= 'a' && ch <= 'z') && !(ch >= 'A' && ch <= 'Z') && ch != '+' &&
               ch != '-' && ch != ' ';
    };
    const auto point = std::find_if(text.begin(), text.end(), isOfPoint);
    if (point != text.end()) {
        *point = '.';
        text.erase(point + 1, std::find_if_not(point + 1, text.end(), isOfPoint));
    }
    return text;
}

std::string PrintPointer(const void * pointer)
{
    char text[64];
    return {text, static_cast<std::size_t>(std::snprintf(text, sizeof(text), "%p", pointer))};
}

// Behind the sign and the "0x".
std::size_t PlaceOfZeros(std::string_view number)
{
    const std::size_t sign = number.find_first_of("+- ") == 0 ? 1 : 0;
    const std::string_view prefix = number.substr(sign, 2);
    return prefix == "0x" || prefix == "0X" ? sign + 2 : sign;
}

bool IsFilledWithZeros(const FormatConversion & conversion, const FormatArgument & argument)
{
    if (conversion.IsOneOf("diouxX")) {
        return conversion.hasZeros && conversion.precision < 0;
    }
    const long double number = argument.Number();
    return conversion.hasZeros && conversion.IsOneOf("fFeEgGaA") && number - number == 0.0L;
}

std::string Converted(const FormatConversion & conversion, const FormatArgument & argument)
{
    if (conversion.letter == 'c') {
        return std::string(1, static_cast<char>(argument.Integer()));
    }
    if (conversion.letter == 's') {
        const std::size_t limit =
            conversion.precision < 0 ? std::string_view::npos : static_cast<std::size_t>(conversion.precision);
        return std::string(argument.Text(limit));
    }
    if (conversion.letter == 'p') {
        return PrintPointer(argument.Pointer());
    }
    return conversion.IsOneOf("diouxX") ? PrintInteger(conversion, argument) : PrintNumber(conversion, argument);
}

void AppendConverted(std::string & text, const FormatConversion & conversion, const FormatArgument & argument)
{
    std::string converted = Converted(conversion, argument);
    const std::size_t width = static_cast<std::size_t>(std::max(conversion.width, 0));
    const std::size_t missing = width > converted.size() ? width - converted.size() : 0;
    if (conversion.isLeft) {
        converted.append(missing, ' ');
    }
    else if (IsFilledWithZeros(conversion, argument)) {
        converted.insert(PlaceOfZeros(converted), missing, '0');
    }
    else {
        text.append(missing, ' ');
    }
    text += converted;
}

}  // namespace

std::string Formatted(std::string_view format, std::span<const FormatArgument> arguments)
{
    std::vector<FormatType> types;
    types.reserve(arguments.size());
    for (const FormatArgument & argument : arguments) {
        types.push_back(argument.Type());
    }
    if (!FormatTakes(format, types)) {
        AfxThrowInvalidArgException();
    }
    std::string text;
    auto argument = arguments.begin();
    FormatWalk walk(format);
    while (walk.Next()) {
        text += walk.Text();
        FormatConversion conversion = walk.Conversion();
        if (conversion.letter == '%') {
            text += '%';
            continue;
        }
        if (conversion.width == FormatConversion::FromArgument) {
            const std::intmax_t width = (argument++)->Integer();
            conversion.isLeft = conversion.isLeft || width < 0;
            conversion.width = static_cast<int>(std::min<std::intmax_t>(width < 0 ? -width : width, INT_MAX));
        }
        if (conversion.precision == FormatConversion::FromArgument) {
            conversion.precision = static_cast<int>((argument++)->Integer());
        }
        AppendConverted(text, conversion, *argument++);
    }
    return text += walk.Text();
}

}  // namespace ipc2581::detail
