#ifndef IPC2581_BASE_LINES_LINEFORMAT_H
#define IPC2581_BASE_LINES_LINEFORMAT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "ipc2581/base/platform/FormatString.h"
#include "ipc2581/base/platform/Number.h"

// The format strings of written lines: %s, %d and %f alone, taken apart and checked against their arguments when they
// are compiled.
namespace ipc2581::detail {

// A %s argument that prints as so many blanks; none if the count is below 1. They are written in steps, the last of
// which may run past its end.
struct Blanks {
    std::int64_t count;
};
inline constexpr std::size_t BlanksStep = 16;

template <typename Argument>
constexpr char LineConversionOf()
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

// A format string that fits its arguments, with the places of its conversions, so that nobody looks for them when it is
// printed.
template <typename... Arguments>
class CheckedLineFormat {
public:
    template <std::size_t Size>
    consteval CheckedLineFormat(const char (&text)[Size]) : m_text(text, Size - 1)
    {
        static_assert(Size <= UINT16_MAX);
        constexpr char conversions[] = {LineConversionOf<Arguments>()..., '\0'};
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

    constexpr std::size_t Size() const { return m_text.size(); }

    // Writes what stands between two conversions, where "%%" prints as "%"; returns its end.
    char * WritePiece(char * out, std::size_t index) const
    {
        const std::size_t from = index == 0 ? 0 : m_places[index - 1] + std::size_t(2);
        const std::size_t end = index == sizeof...(Arguments) ? m_text.size() : m_places[index];
        if (m_isPlain) {
            std::memcpy(out, m_text.data() + from, end - from);
            return out + (end - from);
        }
        for (std::size_t i = from; i < end; ++i) {
            *out++ = m_text[i];
            i += m_text[i] == '%' ? 1 : 0;
        }
        return out;
    }

private:
    std::string_view m_text;
    std::uint16_t m_places[sizeof...(Arguments) + 1] = {};
    bool m_isPlain = true;  // it has no "%%"
};

// Takes the argument types from the arguments alone, so that the text is checked against them.
template <typename... Arguments>
using LineFormat = CheckedLineFormat<std::type_identity_t<Arguments>...>;

// The most bytes that an argument may take.
inline std::size_t BoundOf(int /*value*/)
{
    return IntegerLength;
}
inline std::size_t BoundOf(double /*value*/)
{
    return FixedLength;
}
inline std::size_t BoundOf(Blanks value)
{
    return static_cast<std::size_t>(value.count > 0 ? value.count : 0) + BlanksStep;
}
inline std::size_t BoundOf(std::string_view value)
{
    return value.size();
}

// Write an argument and return its end.
inline char * WriteArgument(char * out, int value)
{
    return WriteInteger(out, value);
}
inline char * WriteArgument(char * out, double value)
{
    return WriteFixed(out, value);
}
inline char * WriteArgument(char * out, Blanks value)
{
    for (std::int64_t written = 0; written < value.count; written += BlanksStep) {
        std::memset(out + written, ' ', BlanksStep);
    }
    return out + (value.count > 0 ? value.count : 0);
}
inline char * WriteArgument(char * out, std::string_view value)
{
    // The first and the last bytes of a short text, which overlap unless it has as many as both together.
    const auto copyEnds = [out, value](auto size) {
        std::memcpy(out, value.data(), size());
        std::memcpy(out + value.size() - size(), value.data() + value.size() - size(), size());
    };
    if (value.size() > 16) {
        std::memcpy(out, value.data(), value.size());
    }
    else if (value.size() >= 8) {
        copyEnds(std::integral_constant<std::size_t, 8>());
    }
    else if (value.size() >= 4) {
        copyEnds(std::integral_constant<std::size_t, 4>());
    }
    else {
        std::copy(value.begin(), value.end(), out);
    }
    return out + value.size();
}

// The most bytes that a format may take with these arguments.
template <typename Format, typename... Arguments>
std::size_t FormattedBound(const Format & format, const Arguments &... arguments)
{
    return (format.Size() + ... + BoundOf(arguments));
}

// Writes the text and returns its end; there must be room for FormattedBound bytes. Inlined, so that the pieces of a
// format are known where they are copied.
template <typename Format, typename... Arguments>
[[gnu::always_inline]] inline char * WriteFormatted(char * out, const Format & format, const Arguments &... arguments)
{
    std::size_t index = 0;
    ((out = WriteArgument(format.WritePiece(out, index++), arguments)), ...);
    return format.WritePiece(out, index);
}

}  // namespace ipc2581::detail

#endif
