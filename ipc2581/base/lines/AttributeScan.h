#ifndef IPC2581_BASE_LINES_ATTRIBUTESCAN_H
#define IPC2581_BASE_LINES_ATTRIBUTESCAN_H

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/ReadObserver.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/lines/Word.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {

// The token that a test has hit, while its value is taken.
class AttributeHit {
public:
    // A token of a list.
    AttributeHit(const TokenList & tokens, int & index) : m_tokens(tokens), m_index(&index), m_text(tokens[index]) {}
    // A token that is known to hold nothing beside its key and its value.
    AttributeHit(const TokenList & tokens, std::string_view value) : m_tokens(tokens), m_text(value) {}

    // The token as it stands, without taking a value. Asked only of rows whose word has no "=".
    std::string_view Token() const { return m_text; }
    // Takes the value, which may move the scan on to a later token; a second call starts at the token that the first
    // one ended on.
    std::string_view Take() { return m_index == nullptr ? m_text : m_tokens.Value(*m_index); }
    // Takes the value as atof reads it.
    double TakeNumber() { return m_index == nullptr ? ParseDoubleAhead(m_text) : ParseDouble(Take()); }
    // Takes the value into a text.
    void TakeInto(CString & text) { text.Assign(Take(), m_tokens.Blocks()); }
    // Takes a value that says whether something holds.
    bool TakeFlag() { return HoldsText(Take(), "TRUE"); }

private:
    const TokenList & m_tokens;
    int * m_index = nullptr;
    std::string_view m_text;
};

bool TakeControlFlag(AttributeHit & hit);
bool TakeCornerFlag(AttributeHit & hit);
bool TakeDirection(AttributeHit & hit);
void TakeForm(const AttributeHit & hit, int knownForms, int & form);

// One row of an attribute table: a token that holds the word gives its value to a member of the object.
struct AttributeRow {
    Word word;
    Reading reading;
    void (*store)(AttributeHit & hit, void * object);
    // The word with the quote behind it.
    ShortKey key;
};

// The rows of a table, made when the library is compiled.
struct AttributeRows {
    std::span<const AttributeRow> rows;
    // Each word ends in its one "=". Any other may be held by the first token of a line, or by one without "=".
    bool areAttributes = true;
    // No word ends in another one, so that a key can hit one row at most, whatever their order.
    bool areApart = true;

    constexpr AttributeRows() = default;
    constexpr explicit AttributeRows(std::span<const AttributeRow> table) : rows(table)
    {
        for (const AttributeRow & row : table) {
            areAttributes = areAttributes && row.word.IsAttribute();
            for (const AttributeRow & other : table) {
                areApart = areApart && (&row == &other || !row.word.Text().ends_with(other.word.Text()));
            }
        }
    }
};

constexpr bool IsForm(Reading reading)
{
    return reading == Reading::OuterForm || reading == Reading::RoundOrSquare;
}

template <Reading reading, typename Field>
void StoreValue(AttributeHit & hit, Field & field)
{
    if constexpr (reading == Reading::Text) {
        hit.TakeInto(field);
    }
    else if constexpr (reading == Reading::Number) {
        field = hit.TakeNumber();
    }
    else if constexpr (reading == Reading::Integer) {
        field = ParseInteger(hit.Take());
    }
    else if constexpr (reading == Reading::Flag) {
        field = static_cast<Field>(hit.TakeFlag());
    }
    else if constexpr (reading == Reading::CornerFlag) {
        field = TakeCornerFlag(hit) ? 1 : field;
    }
    else if constexpr (reading == Reading::ControlFlag) {
        field = TakeControlFlag(hit) ? 1 : 0;
    }
    else if constexpr (reading == Reading::Direction) {
        field = TakeDirection(hit) ? 1 : 0;
    }
    else {
        static_assert(IsForm(reading));
        TakeForm(hit, reading == Reading::OuterForm ? 4 : 2, field);
    }
}

// The member that the steps lead to.
template <typename Object>
Object & Follow(Object & object)
{
    return object;
}
template <typename Object, typename Step, typename... Steps>
auto & Follow(Object & object, Step step, Steps... steps)
{
    auto & next = object.*step;
    if constexpr (std::is_pointer_v<std::remove_reference_t<decltype(next)>>) {
        return Follow(*next, steps...);
    }
    else {
        return Follow(next, steps...);
    }
}

template <const auto & element, std::size_t index>
void StoreAttribute(AttributeHit & hit, void * object)
{
    using Object = typename std::remove_cvref_t<decltype(element)>::Object;
    constexpr auto & attribute = Get<index>(element.attributes);
    Apply([&](auto... steps) { StoreValue<attribute.reading>(hit, Follow(*static_cast<Object *>(object), steps...)); },
          attribute.member);
}

template <const auto & element, std::size_t index>
consteval AttributeRow MakeRow()
{
    constexpr auto & attribute = Get<index>(element.attributes);
    // A form is looked for in the whole token, of which the scan of plain lines has the value alone.
    static_assert(!IsForm(attribute.reading) || !Word(attribute.word).IsAttribute());
    return {Word(attribute.word), attribute.reading, &StoreAttribute<element, index>, ShortKey(attribute.word, '"')};
}

template <const auto & element, std::size_t... indexes>
consteval auto MakeRows(std::index_sequence<indexes...> /*all*/)
{
    return std::array{MakeRow<element, indexes>()...};
}

template <const auto & element>
inline constexpr auto RowsOf = MakeRows<element>(std::make_index_sequence<decltype(element.attributes)::Size>());

template <const auto & element>
inline constexpr AttributeRows TableOf{RowsOf<element>};

void ScanRows(const TokenList & tokens, const AttributeRows & first, const AttributeRows * second, void * object);

// Walks the tokens from the first one on. Each is tested against the attributes of the element in their order, and the
// first word that the token holds takes its value. A repeated attribute overwrites, an absent one leaves its member as
// it was.
//
// A store must only assign: a line that turns out not to be of the plain form key="value" is scanned again from its
// first token, by the token list.
template <const auto & element>
void ScanAttributes(const TokenList & tokens, typename std::remove_cvref_t<decltype(element)>::Object & object)
{
    ScanRows(tokens, TableOf<element>, nullptr, &object);
}

// The double form: after each token has passed the first table, the token on which the scan then stands is tested
// against the second one, whatever the first has done.
template <const auto & first, const auto & second>
void ScanAttributesTwice(const TokenList & tokens, typename std::remove_cvref_t<decltype(first)>::Object & object)
{
    ScanRows(tokens, TableOf<first>, &TableOf<second>, &object);
}

// Makes an object, for what is read from the file, from the opening line of its element.
template <const auto & element>
auto NewFrom(LineCycle & line, CStdioFile & file)
{
    auto object = New<typename std::remove_cvref_t<decltype(element)>::Object>(file);
    ScanAttributes<element>(line.Tokens(), *object);
    return object;
}

// Tells the observer of the reader, if it has one, that the token is taken for the attribute.
void TellTaken(const TokenList & tokens, const AttributeRow & row, int index);

// Does what takes values of tokens. The observer of their reader may let it end before its time, at a value that the
// line does not close; nothing is left of the line then.
template <typename Take>
void TakeOrPassOver(const TokenList & tokens, Take take)
{
    try {
        take();
    }
    catch (const CInvalidArgException &) {
        if (tokens.Observer() == nullptr || !tokens.Observer()->PassOver(ReadStop::OpenValue)) {
            throw;
        }
    }
}

// The scan by the token list alone, which the scan of plain lines must agree with on every input.
void ScanTokens(const TokenList & tokens, const AttributeRows & first, const AttributeRows * second, void * object);

}  // namespace ipc2581::detail

#endif
