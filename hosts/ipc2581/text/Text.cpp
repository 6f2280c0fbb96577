#include "hosts/ipc2581/text/Text.h"

#include <algorithm>
#include <array>

#include <utf8proc.h>

namespace ipc2581::host {

std::string OneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char ch) { return ch < ' ' || ch == 0x7f; }, '?');
    return text;
}

std::size_t Width(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        utf8proc_int32_t character = 0;
        const utf8proc_ssize_t size = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                       static_cast<utf8proc_ssize_t>(text.size()), &character);
        width += size < 1 ? 1 : static_cast<std::size_t>(utf8proc_charwidth(character));
        text.remove_prefix(size < 1 ? 1 : static_cast<std::size_t>(size));
    }
    return width;
}

std::string LowerCase(std::string text)
{
    for (char & ch : text) {
        ch = ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
    }
    return text;
}

std::string Shown(std::string_view text)
{
    if (text.find('&') == std::string_view::npos) {
        return std::string(text);
    }
    struct Entity {
        std::string_view name;
        char character;
    };
    constexpr std::array<Entity, 5> entities = {
        {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    std::string shown;
    while (!text.empty()) {
        const auto * const entity = std::find_if(entities.begin(), entities.end(),
                                                 [&](const Entity & own) { return text.starts_with(own.name); });
        const bool isEntity = entity != entities.end();
        shown += isEntity ? entity->character : text.front();
        text.remove_prefix(isEntity ? entity->name.size() : 1);
    }
    return shown;
}

}  // namespace ipc2581::host
