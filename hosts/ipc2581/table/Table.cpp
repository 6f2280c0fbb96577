#include "hosts/ipc2581/table/Table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string_view>

#include <nlohmann/json.hpp>

#include "hosts/ipc2581/text/Text.h"

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

std::string Fixed(double number)
{
    // Room for the longest double.
    std::array<char, 400> text;
    const char * const end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 6).ptr;
    std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
    if (digits.find('.') != std::string_view::npos) {
        digits = digits.substr(0, digits.find_last_not_of('0') + 1);
        digits = digits.substr(0, digits.find_last_not_of('.') + 1);
    }
    return std::string(digits == "-0" ? "0" : digits);
}

std::string Joined(const std::vector<std::string> & texts)
{
    std::string joined;
    for (const std::string & text : texts) {
        joined.append(joined.empty() ? "" : " ").append(text);
    }
    return joined;
}

std::string Joined(const std::vector<std::size_t> & numbers)
{
    std::string joined;
    for (const std::size_t number : numbers) {
        joined.append(joined.empty() ? "" : " ").append(std::to_string(number));
    }
    return joined;
}

std::string Quoted(const std::string & text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos && !text.starts_with(' ') && !text.ends_with(' ')) {
        return text;
    }
    std::string quoted = "\"";
    for (const char ch : text) {
        quoted.append(ch == '"' ? 2 : 1, ch);
    }
    return quoted + "\"";
}

void PrintCsvRow(std::ostream & out, const std::vector<std::string> & texts)
{
    const char * separator = "";
    for (const std::string & text : texts) {
        out << separator << Quoted(text);
        separator = ",";
    }
    out << "\n";
}

// Counts characters, not bytes.
std::size_t Width(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](unsigned char ch) { return (ch & 0xc0U) != 0x80U; }));
}

// A column of numbers stands right.
bool IsNumeric(const Table & table, std::size_t column)
{
    bool isNumeric = false;
    for (const std::vector<Cell> & row : table.Rows()) {
        if (!row[column].IsNumber() && !row[column].Text().empty()) {
            return false;
        }
        isNumeric = isNumeric || row[column].IsNumber();
    }
    return isNumeric;
}

void PrintAlignedRows(std::ostream & out, const Table & table, bool hasHeading, std::string_view indent)
{
    std::vector<std::vector<std::string>> rows;
    if (hasHeading) {
        rows.push_back(table.Columns());
    }
    for (const std::vector<Cell> & row : table.Rows()) {
        std::vector<std::string> & texts = rows.emplace_back();
        for (const Cell & cell : row) {
            texts.push_back(OneLine(cell.AlignedText()));
        }
    }
    const std::size_t columns = table.Columns().size();
    std::vector<std::size_t> widths(columns);
    std::vector<bool> isRight(columns);
    for (std::size_t i = 0; i < columns; ++i) {
        isRight[i] = IsNumeric(table, i);
        for (const std::vector<std::string> & row : rows) {
            widths[i] = std::max(widths[i], Width(row[i]));
        }
    }
    for (const std::vector<std::string> & row : rows) {
        std::string line(indent);
        for (std::size_t i = 0; i < columns; ++i) {
            const std::string padding(widths[i] - Width(row[i]), ' ');
            line.append(i == 0 ? "" : "  ");
            line.append(isRight[i] ? padding + row[i] : row[i] + padding);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << "\n";
    }
}

std::string Dump(const Json & json)
{
    // Boards hold bytes in any encoding.
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json RowObject(const Table & table, const std::vector<Cell> & row)
{
    Json object = Json::object();
    for (std::size_t i = 0; i < row.size(); ++i) {
        object[table.Columns()[i]] = row[i].Json();
    }
    return object;
}

void PrintJsonRows(std::ostream & out, const Table & table, std::string_view indent)
{
    out << "[";
    const char * separator = "\n";
    for (const std::vector<Cell> & row : table.Rows()) {
        out << separator << indent << "  " << Dump(RowObject(table, row));
        separator = ",\n";
    }
    if (!table.Rows().empty()) {
        out << "\n" << indent;
    }
    out << "]";
}

void PrintJsonRecord(std::ostream & out, const Table & table, std::string_view indent)
{
    out << "{";
    const char * separator = "\n";
    for (const std::vector<Cell> & row : table.Rows()) {
        out << separator << indent << "  " << Dump(row[0].Text()) << ": " << Dump(row[1].Json());
        separator = ",\n";
    }
    if (!table.Rows().empty()) {
        out << "\n" << indent;
    }
    out << "}";
}

}  // namespace

// The sums and differences of what a file tells in six decimals have no more of them either.
Cell::Cell(double number)
    : m_value(std::isfinite(number) && std::abs(number) < 1e9 ? std::round(number * 1e6) / 1e6 : number)
{
}

std::string Cell::Text() const
{
    return std::visit(Overloaded{[](std::monostate) { return std::string(); },
                                 [](const std::string & text) { return text; },
                                 [](std::int64_t number) { return std::to_string(number); },
                                 [](double number) { return Fixed(number); },
                                 [](bool flag) { return std::string(flag ? "yes" : "no"); },
                                 [](const std::vector<std::string> & texts) { return Joined(texts); },
                                 [](const FirstNumbers & first) { return Joined(first.numbers); }},
                      m_value);
}

std::string Cell::AlignedText() const
{
    const auto * const first = std::get_if<FirstNumbers>(&m_value);
    if (first == nullptr || first->numbers.size() >= first->count) {
        return Text();
    }
    return Text() + " and " + std::to_string(first->count - first->numbers.size()) + " more";
}

nlohmann::ordered_json Cell::Json() const
{
    return std::visit(Overloaded{[](std::monostate) { return nlohmann::ordered_json(); },
                                 [](const FirstNumbers & first) { return nlohmann::ordered_json(first.numbers); },
                                 [](const auto & value) { return nlohmann::ordered_json(value); }},
                      m_value);
}

bool Cell::IsNumber() const
{
    return std::holds_alternative<std::int64_t>(m_value) || std::holds_alternative<double>(m_value);
}

void Table::Add(std::vector<Cell> row)
{
    m_rows.push_back(std::move(row));
}

void Table::Print(std::ostream & out, Format format) const
{
    switch (format) {
    case Format::Table:
        PrintAlignedRows(out, *this, true, "");
        break;
    case Format::Csv:
        PrintCsvRow(out, m_columns);
        for (const std::vector<Cell> & row : m_rows) {
            std::vector<std::string> texts;
            std::transform(row.begin(), row.end(), std::back_inserter(texts),
                           [](const Cell & cell) { return cell.Text(); });
            PrintCsvRow(out, texts);
        }
        break;
    case Format::Json:
        PrintJsonRows(out, *this, "");
        out << "\n";
        break;
    }
}

Table & Listing::AddTable(std::string title, std::vector<std::string> columns)
{
    m_sections.push_back(std::make_unique<Section>(Section{std::move(title), Table(std::move(columns)), false}));
    return m_sections.back()->table;
}

Table & Listing::AddRecord(std::string title)
{
    m_sections.push_back(std::make_unique<Section>(Section{std::move(title), Table({"name", "value"}), true}));
    return m_sections.back()->table;
}

void Listing::Print(std::ostream & out, Format format) const
{
    switch (format) {
    case Format::Table:
        PrintAligned(out);
        break;
    case Format::Csv:
        PrintCsv(out);
        break;
    case Format::Json:
        PrintJson(out);
        break;
    }
}

void Listing::PrintAligned(std::ostream & out) const
{
    const char * gap = "";
    for (const std::unique_ptr<Section> & section : m_sections) {
        out << gap << section->title << "\n";
        PrintAlignedRows(out, section->table, !section->isRecord, "  ");
        gap = "\n";
    }
}

void Listing::PrintCsv(std::ostream & out) const
{
    PrintCsvRow(out, {"section", "item", "property", "value"});
    for (const std::unique_ptr<Section> & section : m_sections) {
        for (const std::vector<Cell> & row : section->table.Rows()) {
            for (std::size_t i = 1; i < row.size(); ++i) {
                PrintCsvRow(out, {section->title, row[0].Text(), section->table.Columns()[i], row[i].Text()});
            }
        }
    }
}

void Listing::PrintJson(std::ostream & out) const
{
    out << "{";
    const char * separator = "\n";
    for (const std::unique_ptr<Section> & section : m_sections) {
        out << separator << "  " << Dump(section->title) << ": ";
        if (section->isRecord) {
            PrintJsonRecord(out, section->table, "  ");
        }
        else {
            PrintJsonRows(out, section->table, "  ");
        }
        separator = ",\n";
    }
    out << "\n}\n";
}

}  // namespace ipc2581::host
