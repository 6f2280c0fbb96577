#ifndef IPC2581_BASE_FIELDTABLE_H
#define IPC2581_BASE_FIELDTABLE_H

#include <cstddef>
#include <string_view>
#include <utility>

// What the field tables next to the classes are made of; ipc2581/fields.h queries them.
namespace ipc2581 {

namespace detail {

// A value of a pack; the index tells it from others of its type.
template <std::size_t index, typename Value>
struct PackItem {
    Value value;
};

template <typename Indexes, typename... Values>
struct PackItems;
template <std::size_t... indexes, typename... Values>
struct PackItems<std::index_sequence<indexes...>, Values...> : PackItem<indexes, Values>... {
    constexpr explicit PackItems(Values... values) : PackItem<indexes, Values>{values}... {}

    template <typename Visit>
    constexpr decltype(auto) Apply(Visit & visit) const
    {
        return visit(PackItem<indexes, Values>::value...);
    }
};

}  // namespace detail

// Values of any types. A std::tuple is the same to the tables; but what it checks of its types took the compiler five
// times as long as all else in the headers of the library.
template <typename... Values>
struct Pack : detail::PackItems<std::index_sequence_for<Values...>, Values...> {
    static constexpr std::size_t Size = sizeof...(Values);  // how many values there are

    // The values, copied.
    constexpr explicit Pack(Values... values)
        : detail::PackItems<std::index_sequence_for<Values...>, Values...>(values...)
    {
    }
};

// Calls visit with all of the values.
template <typename Visit, typename... Values>
constexpr decltype(auto) Apply(Visit visit, const Pack<Values...> & pack)
{
    return pack.Apply(visit);
}

// The value with the index.
template <std::size_t index, typename Value>
constexpr const Value & Get(const detail::PackItem<index, Value> & item)
{
    return item.value;
}

// How a value is read from its attribute.
enum class Reading {
    Text,           // as it stands
    Number,         // as atof reads it
    Integer,        // as atoi reads it
    Flag,           // set if the value holds "TRUE" in upper case, else cleared
    CornerFlag,     // set if the value holds "TURE": that is the word, "TRUE" sets nothing, and nothing clears it
    ControlFlag,    // set if the value is the one character with the code 1, which no real file carries, else cleared
    Direction,      // turned round: 1 if the value holds "FALSE" or "false", else 0
    OuterForm,      // the code of ROUND, SQUARE, HEXAGON or OCTAGON, if the token holds one; no value is taken
    RoundOrSquare,  // the same for shapes that know only the first two
};

// What an attribute gives to an object. A token that holds the word anywhere is taken for the attribute; so most words
// end in "=", and one that does not is wide: it is found in longer names and in values too. The member is reached by
// steps, from the object to a member of a part of it.
template <typename... Steps>
struct Attribute {
    std::string_view word;  // what a token is searched for
    Reading reading;        // how the value is read
    Pack<Steps...> member;  // pointers to members, one for each step
};

// Takes the steps from the pack.
template <typename... Steps>
Attribute(std::string_view, Reading, Pack<Steps...>) -> Attribute<Steps...>;

// An attribute that is read as it stands.
template <typename... Steps>
constexpr Attribute<Steps...> Text(std::string_view word, Steps... member)
{
    return {word, Reading::Text, Pack<Steps...>(member...)};
}
// An attribute that is read as atof reads it.
template <typename... Steps>
constexpr Attribute<Steps...> Number(std::string_view word, Steps... member)
{
    return {word, Reading::Number, Pack<Steps...>(member...)};
}
// An attribute that is read as atoi reads it.
template <typename... Steps>
constexpr Attribute<Steps...> Integer(std::string_view word, Steps... member)
{
    return {word, Reading::Integer, Pack<Steps...>(member...)};
}
// An attribute that is set if the value holds "TRUE".
template <typename... Steps>
constexpr Attribute<Steps...> Flag(std::string_view word, Steps... member)
{
    return {word, Reading::Flag, Pack<Steps...>(member...)};
}

// What an object takes from the opening line of an element, in the order in which a token is tested for the attributes:
// the first one whose word it holds takes its value.
template <typename Class, typename... Attributes>
struct ElementTable {
    using Object = Class;  // which the values go to

    std::string_view name;           // of the element
    Pack<Attributes...> attributes;  // in the order of their tests

    // The same from an element of another name.
    constexpr ElementTable Of(std::string_view other) const { return {other, attributes}; }
};

// The table of an element of the name.
template <typename Class, typename... Attributes>
constexpr ElementTable<Class, Attributes...> Element(std::string_view name, Attributes... attributes)
{
    return {name, Pack<Attributes...>(attributes...)};
}

// A public member of a class.
template <typename Class, typename Type>
struct Member {
    std::string_view name;  // as in the class
    Type Class::*pointer;   // to the member
    // The element that a part, or each object of a list, is read from; empty for what no element of its own fills.
    std::string_view element = {};
};

// What a table states of a member, without and with the element.
template <typename Class, typename Type>
Member(const char *, Type Class::*) -> Member<Class, Type>;
template <typename Class, typename Type>
Member(const char *, Type Class::*, const char *) -> Member<Class, Type>;

// The table of a class, a specialisation beside each class of the model:
//
//     Name      of the class
//     Elements  what the object itself takes from attributes, one entry for each element, as an ElementTable
//     Members   all public members, in the order of their declaration, those of the bases first, as a Member
template <typename Class>
struct Fields;

}  // namespace ipc2581

#endif
