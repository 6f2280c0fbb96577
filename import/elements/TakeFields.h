#ifndef IPC2581_IMPORT_ELEMENTS_TAKEFIELDS_H
#define IPC2581_IMPORT_ELEMENTS_TAKEFIELDS_H

#include <cstddef>
#include <string_view>
#include <utility>

#include "import/elements/Tree.h"
#include "import/xml/Words.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/draw/Xform.h"

// Values of attributes, as the standard has them, into the members of the model.
namespace ipc2581::detail {

// Into a text of the model, which has &, <, > and " as entities and all else as it is.
void TakeText(std::string_view value, CString & text, ObjectBlocks & blocks);
// The eight bytes in front of a value may be read with it.
// False if the value is no number, or none that the member can hold; what can be read of it is stored all the same.
bool TakeNumber(std::string_view value, double & number);
bool TakeInteger(std::string_view value, int & number);
// The truth values of XML, in any case. False if the value is none of them.
bool TakeTruth(std::string_view value, bool & isTrue);
// The code of an outer form.
bool TakeForm(std::string_view value, int & form);

// True for a truth value that holds; no other value does.
bool IsTrue(std::string_view value);

// Stores a value in a member of the model by its reading, and returns if it is one that can be read so.
template <Reading reading, typename Field>
bool TakeValue(std::string_view value, Field & field, ObjectBlocks & blocks)
{
    if constexpr (reading == Reading::Text) {
        TakeText(value, field, blocks);
        return true;
    }
    else if constexpr (reading == Reading::Number) {
        return TakeNumber(value, field);
    }
    else if constexpr (reading == Reading::Integer) {
        return TakeInteger(value, field);
    }
    else if constexpr (reading == Reading::OuterForm || reading == Reading::RoundOrSquare) {
        return TakeForm(value, field);
    }
    else {
        static_assert(reading == Reading::Flag || reading == Reading::CornerFlag || reading == Reading::ControlFlag ||
                      reading == Reading::Direction);
        bool isTrue = false;
        const bool isRead = TakeTruth(value, isTrue);
        field = static_cast<Field>(reading == Reading::Direction ? !isTrue : isTrue);
        return isRead;
    }
}

template <typename Object>
Object & MemberOf(Object & object)
{
    return object;
}
template <typename Object, typename Step, typename... Steps>
auto & MemberOf(Object & object, Step step, Steps... steps)
{
    auto & next = object.*step;
    if constexpr (std::is_pointer_v<std::remove_reference_t<decltype(next)>>) {
        return MemberOf(*next, steps...);
    }
    else {
        return MemberOf(next, steps...);
    }
}

// The name of an attribute by its word in a table, which has a "=" behind most.
consteval Word NameOfRow(std::string_view word)
{
    return W(word.ends_with('=') ? word.substr(0, word.size() - 1) : word);
}

template <const auto & table, std::size_t index, typename Object>
bool TakeRow(Word name, std::string_view value, Object & object, ObjectBlocks & blocks, bool & isTaken)
{
    constexpr auto & row = Get<index>(table.attributes);
    constexpr Word own = NameOfRow(row.word);
    if (name != own) {
        return false;
    }
    isTaken = Apply([&](auto... steps) { return TakeValue<row.reading>(value, MemberOf(object, steps...), blocks); },
                    row.member);
    return true;
}

template <const auto & table, typename Object, std::size_t... indexes>
void TakeRows(const XmlElement & element, Object & object, ObjectBlocks & blocks,
              std::index_sequence<indexes...> /*all*/)
{
    element.TakeAttributes([&](Word name, std::string_view value) {
        bool isTaken = false;
        static_cast<void>((TakeRow<table, indexes>(name, value, object, blocks, isTaken) || ...));
        return isTaken;
    });
}

// Takes the element, and those of its attributes that the table knows, into the members of the object.
template <const auto & table>
void TakeFields(const XmlElement & element, typename std::remove_cvref_t<decltype(table)>::Object & object,
                ObjectBlocks & blocks)
{
    constexpr std::size_t count = decltype(table.attributes)::Size;
    element.Take();
    TakeRows<table>(element, object, blocks, std::make_index_sequence<count>());
}

// Takes the value of one attribute into a text, if it is there.
void TakeTextOf(const XmlElement & element, Word name, CString & text, ObjectBlocks & blocks);
// The same for a number; otherwise it stays as it is.
void TakeNumberOf(const XmlElement & element, Word name, double & number);

// Takes all that a transform says. The table of its class has what the reader of the core takes of it, which is less.
void TakeXform(const XmlElement & element, CIPC2581_Xform & xform);

}  // namespace ipc2581::detail

#endif
