#include "hosts/ipc2581/html/HtmlPage.h"

#include <new>
#include <string>

#include <import/EscapedText.h>
#include <openssl/evp.h>
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
                  static_cast<uLong>(data.size()), Z_BEST_SPEED);
    if (status != Z_OK) {
        throw std::bad_alloc();
    }
    packed.resize(size);
    return packed;
}

// Nothing in the data can end the element that it stands in.
std::string Base64(std::string_view bytes)
{
    // The encoder counts in int, and three bytes become four digits.
    constexpr std::size_t most = std::size_t(3) << 20;
    // It puts a zero byte behind what it writes.
    std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
    for (std::size_t at = 0; at < bytes.size(); at += most) {
        const std::string_view piece = bytes.substr(at, most);
        EVP_EncodeBlock(reinterpret_cast<unsigned char *>(text.data() + at / 3 * 4),
                        reinterpret_cast<const unsigned char *>(piece.data()), static_cast<int>(piece.size()));
    }
    text.pop_back();
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

void WritePage(std::ostream & out, std::string_view title, const std::string & data)
{
    std::string_view frame = PageFrame();
    out << HtmlMark << "\n";
    WriteUpTo(out, frame, "{{title}}");
    out << EscapedText(title);
    WriteUpTo(out, frame, "{{style}}");
    out << PageStyle();
    WriteUpTo(out, frame, "{{board}}");
    out << Base64(Deflated(data));
    WriteUpTo(out, frame, "{{script}}");
    out << PageScript() << frame;
}

}  // namespace ipc2581::host
