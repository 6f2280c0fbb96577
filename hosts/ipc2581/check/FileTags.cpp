#include "hosts/ipc2581/check/FileTags.h"

#include <cstddef>

namespace ipc2581::host {
namespace {

constexpr std::string_view Blanks = " \t\r\n";

}  // namespace

bool FileTags::Next()
{
    while (std::getline(m_in, m_piece, '>')) {
        const std::size_t start = m_piece.find('<');
        if (start == std::string::npos) {
            continue;
        }
        std::string_view name = std::string_view(m_piece).substr(start + 1);
        if (name.starts_with("!--")) {
            SkipComment();
            continue;
        }
        if (name.starts_with('!') || name.starts_with('?')) {
            continue;
        }
        name = name.substr(0, name.find_first_of(Blanks));
        if (name.size() > 1 && name.ends_with('/')) {
            name.remove_suffix(1);
        }
        const std::size_t prefix = name.find(':');
        if (prefix != std::string_view::npos && !name.starts_with('/')) {
            name.remove_prefix(prefix + 1);
        }
        m_name = name;
        return true;
    }
    return false;
}

std::string_view FileTags::Value(std::string_view attribute) const
{
    const std::string_view tag = m_piece;
    for (std::size_t at = tag.find(attribute); at != std::string_view::npos; at = tag.find(attribute, at + 1)) {
        const std::string_view rest = tag.substr(at + attribute.size());
        const bool isWord = at > 0 && Blanks.find(tag[at - 1]) != std::string_view::npos;
        if (isWord && (rest.starts_with("=\"") || rest.starts_with("='"))) {
            const std::string_view value = rest.substr(2);
            return value.substr(0, value.find(rest[1]));
        }
    }
    return {};
}

void FileTags::SkipComment()
{
    while (!m_piece.ends_with("--") && std::getline(m_in, m_piece, '>')) {
    }
}

}  // namespace ipc2581::host
