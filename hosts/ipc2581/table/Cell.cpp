#include "hosts/ipc2581/table/Cell.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include <nlohmann/json.hpp>

namespace ipc2581::host {
namespace {

using Json = nlohmann::ordered_json;

template <typename... Tests>
struct Overloaded : Tests... {
    using Tests::operator()...;
};
// Deduced by the language itself, which clang 14 does not know yet.
template <typename... Tests>
Overloaded(Tests...) -> Overloaded<Tests...>;

constexpr double Decimals = 1e6;
constexpr double Largest = 1e9;

// XML has blanks around a number, and a sign before it, which the standard library does not take.
std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == std::string_view::npos ? "" : text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

std::string_view WithoutPlus(std::string_view text)
{
    const bool hasPlus = text.starts_with('+') && !text.starts_with("+-");
    return hasPlus ? text.substr(1) : text;
}

bool HasSixDecimals(double number)
{
    return std::isfinite(number) && std::abs(number) < Largest;
}

void AppendInteger(std::string & text, std::int64_t number)
{
    std::array<char, 24> digits;
    text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

// A table may have millions of numbers, and those with six decimals are integers in another unit.
void AppendNumber(std::string & text, double number)
{
    if (!HasSixDecimals(number)) {
        // Room for the longest double.
        std::array<char, 400> digits;
        text.append(digits.data(),
                    std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr);
        return;
    }
    constexpr std::int64_t scale = 1000000;
    const std::int64_t whole = std::llround(number * Decimals);
    text.append(whole < 0 ? "-" : "");
    const std::int64_t size = std::abs(whole);
    AppendInteger(text, size / scale);
    if (size % scale == 0) {
        return;
    }
    const std::size_t point = text.size();
    AppendInteger(text, scale + size % scale);
    text[point] = '.';
    text.erase(text.find_last_not_of('0') + 1);
}

void AppendJsonNumber(std::string & json, double number)
{
    if (!std::isfinite(number)) {
        json.append("null");
        return;
    }
    AppendNumber(json, number);
}

void AppendList(std::string & text, const std::vector<std::string> & texts)
{
    const char * separator = "";
    for (const std::string & own : texts) {
        text.append(separator).append(own);
        separator = " ";
    }
}

void AppendNumbers(std::string & text, const std::vector<std::size_t> & numbers, char separator)
{
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        text.append(i == 0 ? 0 : 1, separator);
        AppendInteger(text, static_cast<std::int64_t>(numbers[i]));
    }
}

void AppendJsonList(std::string & json, const std::vector<std::string> & texts)
{
    json.append("[");
    const char * separator = "";
    for (const std::string & text : texts) {
        json.append(separator);
        AppendJsonText(json, text);
        separator = ",";
    }
    json.append("]");
}

bool IsPlain(char ch)
{
    return ch >= ' ' && ch < 0x7f && ch != '"' && ch != '\\';
}

}  // namespace

// The sums and differences of what a file tells in six decimals have no more of them either.
Cell::Cell(double number) : m_value(HasSixDecimals(number) ? std::round(number * Decimals) / Decimals : number) {}

std::string Cell::Text() const
{
    std::string text;
    AppendText(text);
    return text;
}

void Cell::AppendText(std::string & text) const
{
    std::visit(Overloaded{[](std::monostate) {}, [&](const std::string & own) { text.append(own); },
                          [&](std::int64_t number) { AppendInteger(text, number); },
                          [&](double number) { AppendNumber(text, number); },
                          [&](bool flag) { text.append(flag ? "yes" : "no"); },
                          [&](const std::vector<std::string> & texts) { AppendList(text, texts); },
                          [&](const FirstNumbers & first) { AppendNumbers(text, first.numbers, ' '); },
                          [&](const NumberText & number) { text.append(number.text); }},
               m_value);
}

void Cell::AppendAligned(std::string & text) const
{
    AppendText(text);
    const auto * const first = std::get_if<FirstNumbers>(&m_value);
    if (first != nullptr && first->numbers.size() < first->count) {
        text.append(" and ").append(std::to_string(first->count - first->numbers.size())).append(" more");
    }
}

void Cell::AppendJson(std::string & json) const
{
    std::visit(Overloaded{[&](std::monostate) { json.append("null"); },
                          [&](const std::string & text) {
                              text.empty() ? Cell().AppendJson(json) : AppendJsonText(json, text);
                          },
                          [&](std::int64_t number) { AppendInteger(json, number); },
                          [&](double number) { AppendJsonNumber(json, number); },
                          [&](bool flag) { json.append(flag ? "true" : "false"); },
                          [&](const std::vector<std::string> & texts) { AppendJsonList(json, texts); },
                          [&](const FirstNumbers & first) {
                              json.append("[");
                              AppendNumbers(json, first.numbers, ',');
                              json.append("]");
                          },
                          [&](const NumberText & number) {
                              number.number.has_value() ? AppendJsonNumber(json, *number.number)
                                                        : Cell().AppendJson(json);
                          }},
               m_value);
}

bool Cell::IsNumber() const
{
    return std::holds_alternative<std::int64_t>(m_value) || std::holds_alternative<double>(m_value);
}

std::optional<double> NumberOf(std::string_view text)
{
    const std::string_view digits = WithoutPlus(Trimmed(text));
    double number = 0.0;
    const char * const end = digits.data() + digits.size();
    const std::from_chars_result result = std::from_chars(digits.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

Cell CountOf(const std::string & text)
{
    if (text.empty()) {
        return {};
    }
    const std::optional<double> number = NumberOf(text);
    if (number.has_value() && Cell(*number).Text() == text) {
        return std::trunc(*number) == *number && HasSixDecimals(*number) ? Cell(static_cast<std::int64_t>(*number))
                                                                         : Cell(*number);
    }
    return NumberText{text, number};
}

bool Cell::IsNothing() const
{
    const auto * const text = std::get_if<std::string>(&m_value);
    return std::holds_alternative<std::monostate>(m_value) || (text != nullptr && text->empty());
}

void AppendJsonText(std::string & json, std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), IsPlain)) {
        json.append("\"").append(text).append("\"");
        return;
    }
    json.append(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace ipc2581::host
