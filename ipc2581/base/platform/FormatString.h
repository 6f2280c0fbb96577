#ifndef IPC2581_BASE_PLATFORM_FORMATSTRING_H
#define IPC2581_BASE_PLATFORM_FORMATSTRING_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include "ipc2581/base/Export.h"

// Format strings in the manner of printf, checked against their arguments when they are compiled.
namespace ipc2581::detail {

// A %s argument that prints as so many blanks; none if the count is below 1.
struct Blanks {
    std::int64_t count;
};

template <typename Argument>
constexpr char ConversionOf()
{
    using Plain = std::remove_cvref_t<Argument>;
    if constexpr (std::is_same_v<Plain, int>) {
        return 'd';
    }
    else if constexpr (std::is_same_v<Plain, double>) {
        return 'f';
    }
    else if constexpr (std::is_same_v<Plain, Blanks> || std::is_convertible_v<const Plain &, std::string_view>) {
        return 's';
    }
    else {
        return '\0';
    }
}

// Left without a body on purpose: a call of it ends the compilation with its name in the message.
void FormatDoesNotFitItsArguments();

// A format string with the places of its conversions, so that nobody looks for them when it is printed.
struct FormatText {
    std::string_view text;
    const std::uint16_t * places;
    // It has no "%%", so that what stands between its conversions is printed as it is.
    bool isPlain;
};

template <typename... Arguments>
class CheckedFormat {
public:
    template <std::size_t Size>
    consteval CheckedFormat(const char (&text)[Size]) : m_text(text, Size - 1)
    {
        static_assert(Size <= UINT16_MAX);
        constexpr char conversions[] = {ConversionOf<Arguments>()..., '\0'};
        std::size_t used = 0;
        for (std::size_t i = 0; i < m_text.size(); ++i) {
            if (m_text[i] != '%') {
                continue;
            }
            if (++i == m_text.size()) {
                FormatDoesNotFitItsArguments();
            }
            if (m_text[i] == '%') {
                m_isPlain = false;
                continue;
            }
            if (used == sizeof...(Arguments) || conversions[used] != m_text[i]) {
                FormatDoesNotFitItsArguments();
            }
            m_places[used++] = static_cast<std::uint16_t>(i - 1);
        }
        if (used != sizeof...(Arguments)) {
            FormatDoesNotFitItsArguments();
        }
    }

    constexpr FormatText Text() const { return {m_text, m_places, m_isPlain}; }

private:
    std::string_view m_text;
    std::uint16_t m_places[sizeof...(Arguments) + 1] = {};
    bool m_isPlain = true;
};

// Takes the argument types from the arguments alone, so that the text is checked against them.
template <typename... Arguments>
using FormatString = CheckedFormat<std::type_identity_t<Arguments>...>;

// One argument, of any of the kinds.
class FormatArgument {
public:
    explicit FormatArgument(int value) : m_kind(Kind::Integer), m_integer(value) {}
    explicit FormatArgument(double value) : m_kind(Kind::Fixed), m_fixed(value) {}
    explicit FormatArgument(Blanks value) : m_kind(Kind::Blanks), m_blanks(value.count > 0 ? value.count : 0) {}
    explicit FormatArgument(std::string_view value) : m_kind(Kind::Text), m_text(value) {}

    // The most bytes that the argument may take.
    std::size_t Bound() const;
    // Writes the argument and returns the end.
    char * Write(char * out) const;

private:
    enum class Kind : unsigned char { Integer, Fixed, Blanks, Text };

    Kind m_kind;
    union {
        int m_integer;
        double m_fixed;
        std::int64_t m_blanks;
        std::string_view m_text;
    };
};

using FormatArguments = std::initializer_list<FormatArgument>;

// The most bytes that a checked format may take with these arguments.
std::size_t FormattedBound(const FormatText & format, FormatArguments arguments);

// Writes the text and returns its end; there must be room for FormattedBound bytes.
char * WriteFormatted(char * out, const FormatText & format, FormatArguments arguments);

}  // namespace ipc2581::detail

#endif
