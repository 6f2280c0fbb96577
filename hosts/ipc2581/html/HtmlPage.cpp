#include "hosts/ipc2581/html/HtmlPage.h"

#include <new>
#include <vector>

#include <zlib.h>

#include "hosts/ipc2581/html/PageParts.h"

namespace ipc2581::host {
namespace {

std::string Deflated(const std::string & data)
{
    uLongf size = compressBound(static_cast<uLong>(data.size()));
    std::string packed(size, '\0');
    const int status =
        compress2(reinterpret_cast<Bytef *>(packed.data()), &size, reinterpret_cast<const Bytef *>(data.data()),
                  static_cast<uLong>(data.size()), Z_DEFAULT_COMPRESSION);
    if (status != Z_OK) {
        throw std::bad_alloc();
    }
    packed.resize(size);
    return packed;
}

// Nothing in the data can end the element that it stands in.
std::string Base64(std::string_view bytes)
{
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto byte = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U; };
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const unsigned three = byte(i) << 16U | byte(i + 1) << 8U | byte(i + 2);
        text += digits[three >> 18U];
        text += digits[three >> 12U & 0x3fU];
        text += i + 1 < bytes.size() ? digits[three >> 6U & 0x3fU] : '=';
        text += i + 2 < bytes.size() ? digits[three & 0x3fU] : '=';
    }
    return text;
}

// Writes what stands in the frame up to the mark, and takes it from the frame.
void WriteUpTo(std::ostream & out, std::string_view & frame, std::string_view mark)
{
    const std::size_t place = frame.find(mark);
    out << frame.substr(0, place);
    frame.remove_prefix(place + mark.size());
}

}  // namespace

std::string HtmlText(std::string_view text)
{
    std::string escaped;
    for (const char ch : text) {
        switch (ch) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += ch;
        }
    }
    return escaped;
}

void WritePage(std::ostream & out, std::string_view title, const std::string & data)
{
    std::string_view frame = PageFrame();
    out << HtmlMark << "\n";
    WriteUpTo(out, frame, "{{title}}");
    out << HtmlText(title);
    WriteUpTo(out, frame, "{{style}}");
    out << PageStyle();
    WriteUpTo(out, frame, "{{board}}");
    out << Base64(Deflated(data));
    WriteUpTo(out, frame, "{{script}}");
    out << PageScript() << frame;
}

}  // namespace ipc2581::host
