#include "hosts/ipc2581/diff/NetRenames.h"

#include <algorithm>
#include <utility>

namespace ipc2581::host {
namespace {

using Pins = std::vector<std::string>;

struct Index {
    // The pins of each net, and the net of the pins; empty for pins that several nets have.
    std::map<std::string, Pins, std::less<>> pins;
    std::map<Pins, std::string> names;
};

Index IndexOf(const std::vector<NetPins> & nets)
{
    Index index;
    for (const NetPins & net : nets) {
        Pins pins = net.pins;
        std::sort(pins.begin(), pins.end());
        const auto [place, isNew] = index.names.try_emplace(pins, net.name);
        place->second = isNew ? net.name : std::string();
        index.pins.try_emplace(net.name, std::move(pins));
    }
    return index;
}

}  // namespace

NetRenames::NetRenames(const std::vector<NetPins> & before, const std::vector<NetPins> & after)
{
    const Index old = IndexOf(before);
    const Index now = IndexOf(after);
    for (const auto & [name, pins] : old.pins) {
        const auto same = now.pins.find(name);
        const auto found = now.names.find(pins);
        const bool hasMoved = same == now.pins.end() || same->second != pins;
        if (pins.empty() || !hasMoved || found == now.names.end() || found->second.empty() ||
            old.names.at(pins) != name) {
            continue;
        }
        m_names.emplace(name, found->second);
    }
}

std::string_view NetRenames::NewName(std::string_view name) const
{
    const auto found = m_names.find(name);
    return found == m_names.end() ? name : std::string_view(found->second);
}

}  // namespace ipc2581::host
