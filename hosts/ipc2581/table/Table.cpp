#include "hosts/ipc2581/table/Table.h"

#include <algorithm>
#include <array>

#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

// Text on its way to a stream that would take a call for each of its pieces.
class Pieces {
public:
    explicit Pieces(std::ostream & out) : m_out(out) {}
    Pieces(const Pieces &) = delete;
    Pieces & operator=(const Pieces &) = delete;

    std::string & Text() { return m_text; }
    // To be called now and then.
    void Pass()
    {
        constexpr std::size_t enough = 65536;
        if (m_text.size() >= enough) {
            Finish();
        }
    }
    void Finish()
    {
        m_out << m_text;
        m_text.clear();
    }

private:
    std::ostream & m_out;
    std::string m_text;
};

std::string TitleOf(const Column & column)
{
    return column.unit.empty() ? column.title : column.title + " (" + column.unit + ")";
}

void AppendCsv(std::string & csv, std::string_view text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos && !text.starts_with(' ') && !text.ends_with(' ')) {
        csv.append(text);
        return;
    }
    csv.append("\"");
    for (const char ch : text) {
        csv.append(ch == '"' ? 2 : 1, ch);
    }
    csv.append("\"");
}

void AppendCsvRow(std::string & csv, const std::vector<std::string> & texts)
{
    const char * separator = "";
    for (const std::string & text : texts) {
        csv.append(separator);
        AppendCsv(csv, text);
        separator = ",";
    }
    csv.append("\n");
}

// How wide a column is, and whether it is one of numbers, which stand right.
struct Shape {
    std::size_t width = 0;
    bool hasNumbers = false;
    bool hasTexts = false;

    void Add(const Cell & cell, std::size_t widthOfCell)
    {
        width = std::max(width, widthOfCell);
        hasNumbers = hasNumbers || cell.IsNumber();
        hasTexts = hasTexts || (!cell.IsNumber() && widthOfCell != 0);
    }
    [[nodiscard]] bool IsRight() const { return hasNumbers && !hasTexts; }
};

bool IsPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char ch) { return ch >= ' ' && ch < 0x7f; });
}

std::size_t WidthOf(std::string_view text)
{
    return IsPlain(text) ? text.size() : Width(text);
}

// Gives the width of what is appended.
std::size_t AppendAligned(std::string & text, const Cell & cell)
{
    const std::size_t begin = text.size();
    cell.AppendAligned(text);
    const std::string_view added = std::string_view(text).substr(begin);
    if (IsPlain(added)) {
        return added.size();
    }
    const std::string shown = OneLine(std::string(added));
    text.replace(begin, std::string::npos, shown);
    return Width(shown);
}

// One line, cell by cell.
class AlignedLine {
public:
    AlignedLine(std::string & text, std::string_view indent) : m_text(text) { m_text.append(indent); }

    void Add(std::string_view cell, std::size_t width, const Shape & shape)
    {
        m_text.append(m_isFirst ? "" : "  ");
        m_isFirst = false;
        const std::size_t padding = shape.width - width;
        m_text.append(shape.IsRight() ? padding : 0, ' ').append(cell).append(shape.IsRight() ? 0 : padding, ' ');
    }
    void End()
    {
        m_text.erase(m_text.find_last_not_of(' ') + 1);
        m_text.append("\n");
    }

private:
    std::string & m_text;
    bool m_isFirst = true;
};

void PrintAlignedRows(std::ostream & out, const Table & table, std::string_view indent)
{
    std::vector<Shape> shapes;
    for (const Column & column : table.Columns()) {
        shapes.push_back({.width = Width(TitleOf(column))});
    }
    // All cells, each with a line feed behind it, which none of them holds: making the rows twice would take longer.
    std::string cells;
    table.ForEachRow([&](const Row & row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            shapes[i].Add(row[i], AppendAligned(cells, row[i]));
            cells.append("\n");
        }
    });
    Pieces pieces(out);
    AlignedLine head(pieces.Text(), indent);
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const std::string title = TitleOf(table.Columns()[i]);
        head.Add(title, Width(title), shapes[i]);
    }
    head.End();
    for (std::string_view rest = cells; !rest.empty(); pieces.Pass()) {
        AlignedLine line(pieces.Text(), indent);
        for (const Shape & shape : shapes) {
            const std::string_view cell = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(cell.size() + 1);
            line.Add(cell, WidthOf(cell), shape);
        }
        line.End();
    }
    pieces.Finish();
}

void PrintAlignedValues(std::ostream & out, const Values & values, std::string_view indent)
{
    Shape names;
    Shape shape;
    std::string text;
    for (const auto & [name, value] : values.All()) {
        names.width = std::max(names.width, value.IsNothing() ? 0 : Width(TitleOf(name)));
        shape.Add(value, AppendAligned(text, value));
    }
    Pieces pieces(out);
    for (const auto & [name, value] : values.All()) {
        if (value.IsNothing()) {
            continue;
        }
        const std::string title = TitleOf(name);
        text.clear();
        const std::size_t width = AppendAligned(text, value);
        AlignedLine line(pieces.Text(), indent);
        line.Add(title, Width(title), names);
        line.Add(text, width, shape);
        line.End();
    }
    pieces.Finish();
}

void PrintCsvRows(std::ostream & out, const Table & table, const Source & source, const Source * other)
{
    const bool hasUnits = table.HasUnitsInCsv();
    std::vector<std::string> titles;
    for (const Column & column : table.Columns()) {
        titles.push_back(column.title);
    }
    std::string units = source.units;
    if (other != nullptr && other->units != units) {
        units.append(units.empty() ? "" : " ").append(other->units);
    }
    if (hasUnits) {
        titles.emplace_back("units");
    }
    Pieces pieces(out);
    AppendCsvRow(pieces.Text(), titles);
    std::string text;
    table.ForEachRow([&](const Row & row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            pieces.Text().append(i == 0 ? "" : ",");
            text.clear();
            row[i].AppendText(text);
            AppendCsv(pieces.Text(), text);
        }
        pieces.Text().append(hasUnits ? "," + units : "").append("\n");
        pieces.Pass();
    });
    pieces.Finish();
}

void AppendJsonKey(std::string & json, std::string_view key)
{
    AppendJsonText(json, key);
    json.append(": ");
}

void PrintJsonRows(std::ostream & out, const Table & table, std::string_view indent)
{
    std::vector<std::string> keys;
    for (const Column & column : table.Columns()) {
        std::string & key = keys.emplace_back(keys.empty() ? "{" : ",");
        AppendJsonText(key, column.key);
        key.append(":");
    }
    Pieces pieces(out);
    pieces.Text().append("[");
    const char * separator = "\n";
    table.ForEachRow([&](const Row & row) {
        std::string & json = pieces.Text();
        json.append(separator).append(indent).append("  ");
        for (std::size_t i = 0; i < row.size(); ++i) {
            json.append(keys[i]);
            row[i].AppendJson(json);
        }
        json.append("}");
        separator = ",\n";
        pieces.Pass();
    });
    const bool isEmpty = *separator == '\n';
    pieces.Text().append(isEmpty ? "" : "\n").append(isEmpty ? "" : indent).append("]");
    pieces.Finish();
}

void PrintJsonValues(std::ostream & out, const Values & values, std::string_view indent)
{
    std::string json = "{";
    const char * separator = "\n";
    for (const auto & [name, value] : values.All()) {
        json.append(separator).append(indent).append("  ");
        AppendJsonKey(json, name.key);
        value.AppendJson(json);
        separator = ",\n";
    }
    json.append("\n").append(indent).append("}");
    out << json;
}

// The members that stand for a source, without braces round them.
std::string SourceMembers(const Source & source, const std::string & indent)
{
    std::string json = indent;
    AppendJsonKey(json, "file");
    AppendJsonText(json, source.file);
    json.append(",\n").append(indent);
    AppendJsonKey(json, "step");
    Cell(source.step).AppendJson(json);
    json.append(",\n").append(indent);
    AppendJsonKey(json, "units");
    Cell(source.units).AppendJson(json);
    json.append(",\n").append(indent);
    AppendJsonKey(json, "warnings");
    json.append("[");
    const char * separator = "\n";
    for (const Warning & warning : source.warnings) {
        json.append(separator).append(indent).append("  {\"kind\":");
        AppendJsonText(json, warning.kind);
        json.append(",\"line\":");
        (warning.line == 0 ? Cell() : Cell(warning.line)).AppendJson(json);
        json.append(",\"text\":");
        AppendJsonText(json, warning.text);
        json.append("}");
        separator = ",\n";
    }
    return json.append(source.warnings.empty() ? "]" : "\n" + indent + "]");
}

void PrintJsonHead(std::ostream & out, const Source & source, const Source * other)
{
    out << "{\n" << SourceMembers(source, "  ");
    if (other != nullptr) {
        out << ",\n  \"other\": {\n" << SourceMembers(*other, "    ") << "\n  }";
    }
}

// The members that stand in front of each line.
constexpr std::array<std::string_view, 4> LineKeys = {"file", "step", "units", "section"};

// What each line begins with: what it was made of, without the brace that ends an object.
std::string LineHead(const Source & source)
{
    std::string json = "{\"file\":";
    AppendJsonText(json, source.file);
    json.append(",\"step\":");
    Cell(source.step).AppendJson(json);
    json.append(",\"units\":");
    Cell(source.units).AppendJson(json);
    return json;
}

std::string LineHead(const Source & source, const Source * other)
{
    return other == nullptr ? LineHead(source) : LineHead(source) + ",\"other\":" + LineHead(*other) + "}";
}

// A key of the row that the line has already tells of its table too.
void PrintJsonLines(std::ostream & out, const Table & table, const std::string & head)
{
    std::vector<std::string> keys;
    for (const Column & column : table.Columns()) {
        const bool isTaken = std::find(LineKeys.begin(), LineKeys.end(), column.key) != LineKeys.end();
        std::string & key = keys.emplace_back(",");
        AppendJsonText(key, isTaken ? table.Key() + "_" + column.key : column.key);
        key.append(":");
    }
    Pieces pieces(out);
    table.ForEachRow([&](const Row & row) {
        std::string & json = pieces.Text();
        json.append(head);
        for (std::size_t i = 0; i < row.size(); ++i) {
            json.append(keys[i]);
            row[i].AppendJson(json);
        }
        json.append("}\n");
        pieces.Pass();
    });
    pieces.Finish();
}

Table OneRow(const std::string & key, const Values & values)
{
    std::vector<Column> columns;
    Row row;
    for (const auto & [name, value] : values.All()) {
        columns.push_back(name);
        row.push_back(value);
    }
    Table table(key, std::move(columns));
    table.Add(std::move(row));
    return table;
}

bool HasLengthColumn(const std::vector<Column> & columns)
{
    return std::any_of(columns.begin(), columns.end(), [](const Column & column) { return column.isLength; });
}

}  // namespace

std::string KeyOf(std::string_view title)
{
    std::string key;
    for (const char ch : LowerCase(std::string(title))) {
        const bool isKept = (ch >= 'a' && ch <= 'z') || (ch >= '0' && ch <= '9');
        if (isKept) {
            key.append(1, ch);
        }
        else if (ch != '\'' && !key.empty() && key.back() != '_') {
            key.append(1, '_');
        }
    }
    return key;
}

bool Table::HasUnitsInCsv() const
{
    return m_hasUnitsInCsv && HasLengthColumn(m_columns);
}

void Table::ForEachRow(const RowSink & sink) const
{
    for (const Row & row : m_rows) {
        sink(row);
    }
    if (m_make) {
        m_make(sink);
    }
}

void Table::Print(std::ostream & out, Format format, const Source & source, const Source * other) const
{
    switch (format) {
    case Format::Table:
        PrintAlignedRows(out, *this, "");
        break;
    case Format::Csv:
        PrintCsvRows(out, *this, source, other);
        break;
    case Format::Json:
        PrintJsonHead(out, source, other);
        out << ",\n  \"" << m_key << "\": ";
        PrintJsonRows(out, *this, "  ");
        out << "\n}\n";
        break;
    case Format::JsonLines:
        PrintJsonLines(out, *this, LineHead(source, other));
        break;
    }
}

Table & Listing::AddTable(const std::string & title, std::vector<Column> columns)
{
    m_sections.push_back(std::make_unique<Section>(Section{title, Table(KeyOf(title), std::move(columns)), {}}));
    return *m_sections.back()->table;
}

Values & Listing::AddValues(const std::string & title)
{
    m_sections.push_back(std::make_unique<Section>(Section{title, std::nullopt, {}}));
    return m_sections.back()->values;
}

void Listing::Print(std::ostream & out, Format format, const Source & source) const
{
    switch (format) {
    case Format::Table:
        PrintAligned(out);
        break;
    case Format::Csv:
        PrintCsv(out, source);
        break;
    case Format::Json:
        PrintJson(out, source);
        break;
    case Format::JsonLines:
        PrintJsonLines(out, source);
        break;
    }
}

void Listing::PrintAligned(std::ostream & out) const
{
    const char * gap = "";
    for (const std::unique_ptr<Section> & section : m_sections) {
        out << gap << section->title << "\n";
        if (section->table.has_value()) {
            PrintAlignedRows(out, *section->table, "  ");
        }
        else {
            PrintAlignedValues(out, section->values, "  ");
        }
        gap = "\n";
    }
}

bool Listing::HasLengths() const
{
    return std::any_of(m_sections.begin(), m_sections.end(), [](const std::unique_ptr<Section> & section) {
        const auto & values = section->values.All();
        return (section->table.has_value() && HasLengthColumn(section->table->Columns())) ||
               std::any_of(values.begin(), values.end(), [](const auto & value) { return value.first.isLength; });
    });
}

void Listing::PrintCsv(std::ostream & out, const Source & source) const
{
    const bool hasUnits = HasLengths();
    std::string csv;
    const auto add = [&](std::vector<std::string> texts, const std::string & units) {
        if (hasUnits) {
            texts.push_back(units);
        }
        AppendCsvRow(csv, texts);
    };
    add({"section", "item", "property", "value"}, "units");
    for (const std::unique_ptr<Section> & section : m_sections) {
        for (const auto & [name, value] : section->values.All()) {
            add({section->title, name.title, "value", value.Text()}, name.isLength ? source.units : "");
        }
        if (!section->table.has_value()) {
            continue;
        }
        const std::vector<Column> & columns = section->table->Columns();
        section->table->ForEachRow([&](const Row & row) {
            for (std::size_t i = 1; i < row.size(); ++i) {
                add({section->title, row[0].Text(), columns[i].title, row[i].Text()},
                    columns[i].isLength ? source.units : "");
            }
        });
    }
    out << csv;
}

void Listing::PrintJson(std::ostream & out, const Source & source) const
{
    PrintJsonHead(out, source, nullptr);
    for (const std::unique_ptr<Section> & section : m_sections) {
        out << ",\n  \"" << KeyOf(section->title) << "\": ";
        if (section->table.has_value()) {
            PrintJsonRows(out, *section->table, "  ");
        }
        else {
            PrintJsonValues(out, section->values, "  ");
        }
    }
    out << "\n}\n";
}

void Listing::PrintJsonLines(std::ostream & out, const Source & source) const
{
    for (const std::unique_ptr<Section> & section : m_sections) {
        const std::string key = KeyOf(section->title);
        std::string head = LineHead(source) + ",\"section\":";
        AppendJsonText(head, key);
        host::PrintJsonLines(out, section->table.has_value() ? *section->table : OneRow(key, section->values), head);
    }
}

}  // namespace ipc2581::host
