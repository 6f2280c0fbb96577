#ifndef IPC2581_HOSTS_IPC2581_TABLE_TABLE_H
#define IPC2581_HOSTS_IPC2581_TABLE_TABLE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace ipc2581::host {

enum class Format { Table, Csv, Json };

// The first of so many numbers.
struct FirstNumbers {
    std::vector<std::size_t> numbers;
    std::size_t count = 0;  // of all, those that are left out included
};

// One value of a listing: nothing, text, a number, yes or no, or a list of texts or numbers.
class Cell {
public:
    Cell() = default;
    Cell(std::string text) : m_value(std::move(text)) {}
    Cell(const char * text) : m_value(std::string(text)) {}
    Cell(std::int64_t number) : m_value(number) {}
    Cell(int number) : m_value(static_cast<std::int64_t>(number)) {}
    Cell(std::size_t number) : m_value(static_cast<std::int64_t>(number)) {}
    // Six decimals at most, as the library writes them.
    Cell(double number);
    Cell(bool flag) : m_value(flag) {}
    Cell(std::vector<std::string> texts) : m_value(std::move(texts)) {}
    Cell(FirstNumbers numbers) : m_value(std::move(numbers)) {}

    // For CSV. A list has a blank between its texts or numbers.
    [[nodiscard]] std::string Text() const;
    // For aligned tables, which tell how many numbers are left out too.
    [[nodiscard]] std::string AlignedText() const;
    [[nodiscard]] nlohmann::ordered_json Json() const;
    [[nodiscard]] bool IsNumber() const;

private:
    std::variant<std::monostate, std::string, std::int64_t, double, bool, std::vector<std::string>, FirstNumbers>
        m_value;
};

// Rows under named columns, written in one of three formats: columns aligned with a heading, CSV with a heading, or a
// JSON list with one object per row. The bytes are the same on a terminal and in a pipe.
class Table {
public:
    explicit Table(std::vector<std::string> columns) : m_columns(std::move(columns)) {}

    // The row has a cell for each column.
    void Add(std::vector<Cell> row);
    void Print(std::ostream & out, Format format) const;

    [[nodiscard]] const std::vector<std::string> & Columns() const { return m_columns; }
    [[nodiscard]] const std::vector<std::vector<Cell>> & Rows() const { return m_rows; }

private:
    std::vector<std::string> m_columns;
    std::vector<std::vector<Cell>> m_rows;
};

// Several tables under titles. As CSV they are one table of single values, whose rows hold section, item, property and
// value; as JSON they are one object. The first cell of a row names it.
class Listing {
public:
    // Rows with any number of columns; a JSON list of objects.
    Table & AddTable(std::string title, std::vector<std::string> columns);
    // Pairs of a name and a value, without a heading; a JSON object.
    Table & AddRecord(std::string title);

    void Print(std::ostream & out, Format format) const;

private:
    struct Section {
        std::string title;
        Table table;
        bool isRecord;
    };

    void PrintAligned(std::ostream & out) const;
    void PrintCsv(std::ostream & out) const;
    void PrintJson(std::ostream & out) const;

    // References to the tables are handed out.
    std::vector<std::unique_ptr<Section>> m_sections;
};

}  // namespace ipc2581::host

#endif
