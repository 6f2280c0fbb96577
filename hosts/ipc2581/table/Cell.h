#ifndef IPC2581_HOSTS_IPC2581_TABLE_CELL_H
#define IPC2581_HOSTS_IPC2581_TABLE_CELL_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace ipc2581::host {

// The first of so many numbers.
struct FirstNumbers {
    std::vector<std::size_t> numbers;
    std::size_t count = 0;  // of all, those that are left out included
};

// A text of a board that stands for a number, such as "04". JSON has the number, or null where it is none.
struct NumberText {
    std::string text;
    std::optional<double> number;
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
    Cell(NumberText number) : m_value(std::move(number)) {}

    using Value = std::variant<std::monostate, std::string, std::int64_t, double, bool, std::vector<std::string>,
                               FirstNumbers, NumberText>;
    [[nodiscard]] const Value & Held() const { return m_value; }
    // For CSV. A list has a blank between its texts or numbers.
    [[nodiscard]] std::string Text() const;
    void AppendText(std::string & text) const;
    // For aligned tables, which tell how many numbers are left out too.
    void AppendAligned(std::string & text) const;
    // Nothing is null.
    void AppendJson(std::string & json) const;
    [[nodiscard]] bool IsNumber() const;
    // Nothing, or an empty text: boards do not tell the one from the other.
    [[nodiscard]] bool IsNothing() const;

private:
    Value m_value;
};

// The number that a text is, as a whole, in any way that XML writes it, if it is finite.
std::optional<double> NumberOf(std::string_view text);

// A text that should be a number: the number where it is one as it stands, and nothing where it is empty.
Cell CountOf(const std::string & text);

// A text as JSON has it, in quotes. Boards hold bytes in any encoding; those that are none of UTF-8 are replaced.
void AppendJsonText(std::string & json, std::string_view text);

}  // namespace ipc2581::host

#endif
