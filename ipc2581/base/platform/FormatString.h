#ifndef IPC2581_BASE_PLATFORM_FORMATSTRING_H
#define IPC2581_BASE_PLATFORM_FORMATSTRING_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "ipc2581/base/Export.h"

// Format strings in the manner of printf. A literal is checked against its arguments when it is compiled, a computed
// one when it is used.
namespace ipc2581::detail {

// Left without a body on purpose: a call of it stops the compilation with its name in the message.
void FormatDoesNotFitItsArguments();

enum class FormatKind : unsigned char { Integer, Double, LongDouble, Text, Pointer, Null, None };

// What a format must know about the type of an argument: its kind, and the bytes of an integer.
struct FormatType {
    FormatKind kind = FormatKind::None;
    unsigned char size = 0;
};

// The type that an argument has once a call of printf has passed it on.
template <typename Argument>
constexpr FormatType FormatTypeOf()
{
    using Plain = std::decay_t<Argument>;
    if constexpr (std::is_same_v<Plain, long double>) {
        return {FormatKind::LongDouble};
    }
    else if constexpr (std::is_floating_point_v<Plain>) {
        return {FormatKind::Double};
    }
    else if constexpr (std::is_null_pointer_v<Plain>) {
        return {FormatKind::Null};
    }
    else if constexpr (std::is_convertible_v<const Plain &, std::string_view>) {
        return {FormatKind::Text};
    }
    else if constexpr (std::is_convertible_v<Plain, const volatile void *>) {
        return {FormatKind::Pointer};
    }
    else if constexpr (std::is_integral_v<Plain> || (std::is_enum_v<Plain> && std::is_convertible_v<Plain, int>)) {
        return {FormatKind::Integer, sizeof(+Plain())};
    }
    else {
        return {};
    }
}

// An argument, with its value.
class FormatArgument {
public:
    template <typename Argument>
    explicit FormatArgument(const Argument & argument) : m_type(FormatTypeOf<Argument>())
    {
        constexpr FormatKind kind = FormatTypeOf<Argument>().kind;
        static_assert(kind != FormatKind::None, "no conversion of a format takes an argument of this type");
        if constexpr (kind == FormatKind::Integer) {
            m_integer = static_cast<std::intmax_t>(argument);
        }
        else if constexpr (kind == FormatKind::Double || kind == FormatKind::LongDouble) {
            m_number = argument;
        }
        else if constexpr (kind == FormatKind::Pointer) {
            m_pointer = const_cast<const void *>(static_cast<const volatile void *>(argument));
        }
        else if constexpr (kind == FormatKind::Text && std::is_pointer_v<Argument>) {
            m_pointer = argument;
            m_length = UpToZero;
        }
        else if constexpr (kind == FormatKind::Text) {
            const std::string_view text = argument;
            m_pointer = text.data();
            m_length = text.size();
        }
    }

    FormatType Type() const { return m_type; }
    std::intmax_t Integer() const { return m_integer; }
    long double Number() const { return m_number; }
    const void * Pointer() const { return m_pointer; }
    // At most so many bytes of a text, beyond which nobody looks. A null text is an empty one.
    std::string_view Text(std::size_t limit) const
    {
        const char * const text = static_cast<const char *>(m_pointer);
        if (text == nullptr) {
            return {};
        }
        std::size_t length = 0;
        while (length < limit && (m_length == UpToZero ? text[length] != '\0' : length < m_length)) {
            ++length;
        }
        return {text, length};
    }

private:
    static constexpr std::size_t UpToZero = std::string_view::npos;

    FormatType m_type;
    std::intmax_t m_integer = 0;
    long double m_number = 0.0L;
    const void * m_pointer = nullptr;
    std::size_t m_length = 0;
};

// The place of a character in a text, or the text's length. Some compilers cannot run the text's own search while they
// compile for a sanitizer.
constexpr std::size_t PlaceOf(char ch, std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size() && text[at] != ch) {
        ++at;
    }
    return at;
}

// One conversion of a format: "%-8.*ld".
struct FormatConversion {
    static constexpr int None = -1;
    static constexpr int FromArgument = -2;

    bool isLeft = false;
    bool hasPlus = false;
    bool hasBlank = false;
    bool isAlternate = false;
    bool hasZeros = false;
    int width = None;
    int precision = None;
    unsigned char size = sizeof(int);  // of the integer that it takes
    unsigned char narrowed = 0;        // the bytes of it that count, if not all
    bool isLong = false;               // an L in front
    char letter = '\0';

    constexpr bool IsOneOf(std::string_view letters) const { return PlaceOf(letter, letters) < letters.size(); }
    constexpr bool Takes(FormatType type) const
    {
        if (IsOneOf("diouxXc")) {
            return type.kind == FormatKind::Integer && type.size == size;
        }
        if (IsOneOf("fFeEgGaA")) {
            return type.kind == (isLong ? FormatKind::LongDouble : FormatKind::Double);
        }
        const bool isNull = type.kind == FormatKind::Null;
        if (letter == 'p') {
            return type.kind == FormatKind::Pointer || type.kind == FormatKind::Text || isNull;
        }
        return type.kind == FormatKind::Text || isNull;
    }
};

// Walks over a format: Next() gives the text up to the next conversion and then that conversion.
class FormatWalk {
public:
    constexpr explicit FormatWalk(std::string_view format) : m_rest(format) {}

    // False behind the last conversion, and at one that is not well formed.
    constexpr bool Next()
    {
        const std::size_t percent = PlaceOf('%', m_rest);
        m_text = m_rest.substr(0, percent);
        if (percent == m_rest.size()) {
            m_rest = {};
            return false;
        }
        m_rest.remove_prefix(percent + 1);
        m_conversion = {};
        if (Skip('%')) {
            m_conversion.letter = '%';
            return true;
        }
        m_isBroken = !ReadConversion();
        return !m_isBroken;
    }
    constexpr bool IsBroken() const { return m_isBroken; }
    // What stands in front of the conversion, or behind the last one.
    constexpr std::string_view Text() const { return m_text; }
    constexpr const FormatConversion & Conversion() const { return m_conversion; }

private:
    constexpr bool Skip(char ch)
    {
        const bool isThere = !m_rest.empty() && m_rest.front() == ch;
        m_rest.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }
    constexpr bool ReadConversion()
    {
        ReadFlags();
        if (!ReadNumber(m_conversion.width)) {
            return false;
        }
        if (Skip('.')) {
            m_conversion.precision = 0;
            if (!ReadNumber(m_conversion.precision)) {
                return false;
            }
        }
        const std::string_view letters = ReadLength();
        if (m_rest.empty() || PlaceOf(m_rest.front(), letters) == letters.size()) {
            return false;
        }
        m_conversion.letter = m_rest.front();
        m_rest.remove_prefix(1);
        return true;
    }
    constexpr void ReadFlags()
    {
        for (;; m_rest.remove_prefix(1)) {
            const char ch = m_rest.empty() ? '\0' : m_rest.front();
            if (ch == '\'') {
                // Groups of thousands, of which the C locale has none.
                continue;
            }
            bool * const flag = ch == '-'   ? &m_conversion.isLeft
                                : ch == '+' ? &m_conversion.hasPlus
                                : ch == ' ' ? &m_conversion.hasBlank
                                : ch == '#' ? &m_conversion.isAlternate
                                : ch == '0' ? &m_conversion.hasZeros
                                            : nullptr;
            if (flag == nullptr) {
                return;
            }
            *flag = true;
        }
    }
    // A width or a precision, if there is one.
    constexpr bool ReadNumber(int & number)
    {
        constexpr int limit = 100'000'000;
        if (Skip('*')) {
            number = FormatConversion::FromArgument;
            return true;
        }
        for (; !m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9'; m_rest.remove_prefix(1)) {
            number = (number < 0 ? 0 : number) * 10 + (m_rest.front() - '0');
            if (number >= limit) {
                return false;
            }
        }
        return true;
    }
    // The length, and the letters that may stand behind it.
    constexpr std::string_view ReadLength()
    {
        constexpr std::string_view integers = "diouxX";
        if (Skip('h')) {
            m_conversion.narrowed = Skip('h') ? sizeof(char) : sizeof(short);
            return integers;
        }
        if (Skip('l')) {
            const bool isLongLong = Skip('l');
            m_conversion.size = isLongLong ? sizeof(long long) : sizeof(long);
            return isLongLong ? integers : "diouxXfFeEgGaA";
        }
        if (Skip('L')) {
            m_conversion.isLong = true;
            return "fFeEgGaA";
        }
        if (Skip('j')) {
            m_conversion.size = sizeof(std::intmax_t);
            return integers;
        }
        if (Skip('z')) {
            m_conversion.size = sizeof(std::size_t);
            return integers;
        }
        if (Skip('t')) {
            m_conversion.size = sizeof(std::ptrdiff_t);
            return integers;
        }
        return "diouxXcspfFeEgGaA";
    }

    std::string_view m_rest;
    std::string_view m_text;
    FormatConversion m_conversion;
    bool m_isBroken = false;
};

// True if the conversions of a format take these arguments, each exactly one and in their order.
constexpr bool FormatTakes(std::string_view format, std::span<const FormatType> types)
{
    constexpr FormatType integer = {FormatKind::Integer, sizeof(int)};
    std::size_t used = 0;
    const auto takesNext = [&used, types](const FormatType & wanted) {
        const bool takes = used < types.size() && types[used].kind == wanted.kind && types[used].size == wanted.size;
        ++used;
        return takes;
    };
    FormatWalk walk(format);
    while (walk.Next()) {
        const FormatConversion & conversion = walk.Conversion();
        if (conversion.letter == '%') {
            continue;
        }
        if (conversion.width == FormatConversion::FromArgument && !takesNext(integer)) {
            return false;
        }
        if (conversion.precision == FormatConversion::FromArgument && !takesNext(integer)) {
            return false;
        }
        if (used >= types.size() || !conversion.Takes(types[used++])) {
            return false;
        }
    }
    return !walk.IsBroken() && used == types.size();
}

template <typename... Arguments>
class CheckedFormatString {
public:
    // A literal.
    template <std::size_t Size>
    consteval CheckedFormatString(const char (&text)[Size]) : m_text(text, PlaceOf('\0', {text, Size}))
    {
        constexpr std::array<FormatType, sizeof...(Arguments)> types = {FormatTypeOf<Arguments>()...};
        if (!FormatTakes(m_text, types)) {
            FormatDoesNotFitItsArguments();
        }
    }
    // A format that was computed into an array, or that stands elsewhere. A null pointer is an empty text.
    template <std::size_t Size>
    CheckedFormatString(char (&text)[Size]) : m_text(text, PlaceOf('\0', {text, Size}))
    {
    }
    template <typename Text, typename = std::enable_if_t<!std::is_array_v<Text> &&
                                                         std::is_convertible_v<const Text &, std::string_view>>>
    CheckedFormatString(const Text & text) : m_text(FormatArgument(text).Text(std::string_view::npos))
    {
    }

    constexpr std::string_view Text() const { return m_text; }

private:
    std::string_view m_text;
};

// Takes the argument types from the arguments alone, so that a literal is checked against them.
template <typename... Arguments>
using FormatString = CheckedFormatString<std::type_identity_t<Arguments>...>;

// What printf prints in the C locale. Throws CInvalidArgException for a format that does not take the arguments.
IPC2581_API std::string Formatted(std::string_view format, std::span<const FormatArgument> arguments);

}  // namespace ipc2581::detail

#endif
