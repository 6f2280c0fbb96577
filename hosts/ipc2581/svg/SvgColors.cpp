#include "hosts/ipc2581/svg/SvgColors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace ipc2581::host {
namespace {

std::string Hex(const Color & color)
{
    std::array<char, 8> text;
    const auto part = [](int value) { return static_cast<unsigned>(std::clamp(value, 0, 255)); };
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", part(color.red), part(color.green), part(color.blue));
    return text.data();
}

std::string CopperColor(const DrawnLayer & layer, std::size_t index)
{
    constexpr std::array<const char *, 6> inner = {"#3f9142", "#b8860b", "#7d4ea8", "#2a8c8c", "#b3527a", "#7a7a2a"};
    return layer.side == Side::Top ? "#c83434" : layer.side == Side::Bottom ? "#345cbe" : inner[index % inner.size()];
}

std::string DefaultColor(const DrawnLayer & layer, std::size_t index)
{
    switch (layer.role) {
    case LayerRole::Copper:
        return CopperColor(layer, index);
    case LayerRole::Mask:
        return "#146e3c";
    case LayerRole::Paste:
        return "#8c8c8c";
    case LayerRole::Legend:
        return "#ebebe1";
    case LayerRole::Drill:
        return "#3c3c3c";
    case LayerRole::Assembly:
        return "#8a4fa0";
    case LayerRole::Document:
        return "#5a7fa8";
    case LayerRole::Other:
        break;
    }
    return "#a08c50";
}

}  // namespace

std::string ColorOf(const Drawing & drawing, std::size_t layer)
{
    const DrawnLayer & drawn = drawing.layers[layer];
    return drawn.color ? Hex(*drawn.color) : DefaultColor(drawn, layer);
}

bool IsDark(const std::string & color)
{
    unsigned value = 0;
    std::from_chars(color.data() + 1, color.data() + color.size(), value, 16);
    return 3 * (value >> 16U) + 6 * (value >> 8U & 0xffU) + (value & 0xffU) < 10 * 0x90;
}

}  // namespace ipc2581::host
