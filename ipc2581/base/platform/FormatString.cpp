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

// What stands between two conversions, where "%%" prints as "%".
char * WriteLiteral(char * out, std::string_view text, bool isPlain)
{
    if (isPlain) {
        return Append(out, text.data(), text.size());
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        *out++ = text[i];
        i += text[i] == '%' ? 1 : 0;
    }
    return out;
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

std::size_t FormattedBound(const FormatText & format, FormatArguments arguments)
{
    std::size_t bound = format.text.size();
    for (const FormatArgument & argument : arguments) {
        bound += argument.Bound();
    }
    return bound;
}

char * WriteFormatted(char * out, const FormatText & format, FormatArguments arguments)
{
    const std::string_view text = format.text;
    const std::uint16_t * place = format.places;
    std::size_t from = 0;
    for (const FormatArgument & argument : arguments) {
        out = argument.Write(WriteLiteral(out, text.substr(from, *place - from), format.isPlain));
        from = *place++ + std::size_t(2);
    }
    return WriteLiteral(out, text.substr(from), format.isPlain);
}

}  // namespace ipc2581::detail
