#include "ipc2581/base/platform/FormatString.h"

#include <cstring>

#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {
namespace {

char * Append(char * out, const char * text, std::size_t length)
{
    if (length != 0) {
        std::memcpy(out, text, length);
    }
    return out + length;
}

}  // namespace

std::size_t FormatArgument::Bound() const
{
    switch (m_kind) {
    case Kind::Integer:
        return IntegerLength;
    case Kind::Fixed:
        return FixedLength;
    case Kind::Blanks:
        return static_cast<std::size_t>(m_blanks);
    case Kind::Text:
        break;
    }
    return m_text.size();
}

char * FormatArgument::Write(char * out) const
{
    switch (m_kind) {
    case Kind::Integer:
        return WriteInteger(out, m_integer);
    case Kind::Fixed:
        return WriteFixed(out, m_fixed);
    case Kind::Blanks:
        std::memset(out, ' ', static_cast<std::size_t>(m_blanks));
        return out + m_blanks;
    case Kind::Text:
        break;
    }
    return Append(out, m_text.data(), m_text.size());
}

std::size_t FormattedBound(std::string_view format, FormatArguments arguments)
{
    std::size_t bound = format.size();
    for (const FormatArgument & argument : arguments) {
        bound += argument.Bound();
    }
    return bound;
}

char * WriteFormatted(char * out, std::string_view format, FormatArguments arguments)
{
    const FormatArgument * argument = arguments.begin();
    for (;;) {
        const std::size_t percent = format.find('%');
        if (percent == std::string_view::npos) {
            return Append(out, format.data(), format.size());
        }
        out = Append(out, format.data(), percent);
        if (format[percent + 1] == '%') {
            *out++ = '%';
        }
        else {
            out = argument++->Write(out);
        }
        format.remove_prefix(percent + 2);
    }
}

}  // namespace ipc2581::detail
