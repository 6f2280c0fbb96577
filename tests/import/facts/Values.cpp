#include "tests/import/facts/Values.h"

#include <cmath>
#include <cstddef>
#include <locale>
#include <sstream>
#include <string>

namespace ipc2581::facts {
namespace {

double Millimetres(std::string_view unit)
{
    if (unit == "INCH") {
        return 25.4;
    }
    if (unit == "MICRON") {
        return 0.001;
    }
    return unit == "MILLIMETER" ? 1.0 : 0.0;
}

}  // namespace

double NumberOf(std::string_view text)
{
    std::string_view digits = Trimmed(text);
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
    }
    // Not every standard library has a from_chars for it.
    thread_local std::istringstream stream = [] {
        std::istringstream made;
        made.imbue(std::locale::classic());
        return made;
    }();
    stream.clear();
    stream.str(std::string(digits));
    double number = 0.0;
    stream >> number;
    return number;
}

double Turn(double degrees)
{
    const double turn = std::fmod(degrees, 360.0);
    const double positive = turn < 0 ? turn + 360 : turn;
    return 360 - positive < 1e-6 ? 0 : positive;
}

double UnitFactor(std::string_view from, std::string_view to)
{
    const double inner = Millimetres(from);
    const double outer = Millimetres(to);
    return inner > 0 && outer > 0 ? inner / outer : 1.0;
}

std::string FlagWord(bool flag)
{
    return flag ? "true" : "false";
}

std::string PinWord(const std::string & component, const std::string & pin)
{
    return component.empty() ? pin : component + "." + pin;
}

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace ipc2581::facts
