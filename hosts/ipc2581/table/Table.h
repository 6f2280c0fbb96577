#ifndef IPC2581_HOSTS_IPC2581_TABLE_TABLE_H
#define IPC2581_HOSTS_IPC2581_TABLE_TABLE_H

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/ipc2581/table/Cell.h"

namespace ipc2581::host {

enum class Format { Table, Csv, Json, JsonLines };

// The key of a title in JSON: its letters in lower case and its digits, with one underscore for all that stands between
// them, and nothing for an apostrophe: "makers' parts" is "makers_parts".
std::string KeyOf(std::string_view title);

// The head of a column, or the name of a value.
struct Column {
    Column(const char * ownTitle) : Column(std::string(ownTitle)) {}
    Column(std::string ownTitle) : title(std::move(ownTitle)), key(KeyOf(title)) {}
    Column(std::string ownTitle, std::string ownKey) : title(std::move(ownTitle)), key(std::move(ownKey)) {}

    std::string title;
    std::string key;  // in JSON
    // Whether it holds lengths, and the short name of their unit, empty if nobody knows it: "mm".
    bool isLength = false;
    std::string unit = {};
};

// What is to be known of what a listing shows.
struct Warning {
    std::string kind;
    std::size_t line = 0;  // 0 for none
    std::string text;
};

// What a listing was made of. It stands above the listing in JSON, and but for the warnings in each line of JSON.
struct Source {
    std::string file;
    std::string step = {};   // its name, empty for none
    std::string units = {};  // the word of the lengths, empty if nobody knows it: "millimeter"
    std::vector<Warning> warnings = {};
};

using Row = std::vector<Cell>;
// Puts these values in place of what the row holds, without a copy of them.
template <typename... Cells>
void Fill(Row & row, Cells &&... cells)
{
    row.clear();
    row.reserve(sizeof...(cells));
    (row.emplace_back(std::forward<Cells>(cells)), ...);
}

using RowSink = std::function<void(const Row & row)>;

// Rows under named columns, written in one of four formats: columns aligned with a heading, CSV with a heading, a JSON
// object whose list under the key of the table has one object per row, or lines of JSON, one object per row. The bytes
// are the same on a terminal and in a pipe.
class Table {
public:
    Table(std::string key, std::vector<Column> columns) : m_key(std::move(key)), m_columns(std::move(columns)) {}
    // Rows that are made while they are written, so that no cells of many of them are kept.
    Table(std::string key, std::vector<Column> columns, std::function<void(const RowSink & sink)> make)
        : m_key(std::move(key)), m_columns(std::move(columns)), m_make(std::move(make))
    {
    }

    // The row has a cell for each column.
    void Add(Row row) { m_rows.push_back(std::move(row)); }
    // CSV tells the units of lengths in one more column, if it is not told otherwise.
    void LeaveUnitsOutOfCsv() { m_hasUnitsInCsv = false; }
    // The other is what the board was compared with, if it was.
    void Print(std::ostream & out, Format format, const Source & source, const Source * other = nullptr) const;

    [[nodiscard]] const std::string & Key() const { return m_key; }
    [[nodiscard]] const std::vector<Column> & Columns() const { return m_columns; }
    [[nodiscard]] bool HasUnitsInCsv() const;
    // Those that were added.
    [[nodiscard]] const std::vector<Row> & Rows() const { return m_rows; }
    void ForEachRow(const RowSink & sink) const;

private:
    std::string m_key;
    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
    std::function<void(const RowSink & sink)> m_make;
    bool m_hasUnitsInCsv = true;
};

// Named values, one below the other.
class Values {
public:
    void Add(Column name, Cell value) { m_values.emplace_back(std::move(name), std::move(value)); }
    [[nodiscard]] const std::vector<std::pair<Column, Cell>> & All() const { return m_values; }

private:
    std::vector<std::pair<Column, Cell>> m_values;
};

// Several tables under titles. As CSV they are one table of single values, whose rows hold section, item, property and
// value; as JSON they are one object, and in lines of JSON each row tells its section. The first cell of a row names
// it.
class Listing {
public:
    // Rows with any number of columns; a JSON list of objects.
    Table & AddTable(const std::string & title, std::vector<Column> columns);
    // Values under their names, without a heading; a JSON object. Aligned, those that are nothing are left out.
    Values & AddValues(const std::string & title);

    void Print(std::ostream & out, Format format, const Source & source) const;

private:
    struct Section {
        std::string title;
        std::optional<Table> table;
        Values values;
    };

    void PrintAligned(std::ostream & out) const;
    void PrintCsv(std::ostream & out, const Source & source) const;
    void PrintJson(std::ostream & out, const Source & source) const;
    void PrintJsonLines(std::ostream & out, const Source & source) const;
    [[nodiscard]] bool HasLengths() const;

    // References to the tables are handed out.
    std::vector<std::unique_ptr<Section>> m_sections;
};

}  // namespace ipc2581::host

#endif
