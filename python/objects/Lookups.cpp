#include "python/objects/Lookups.h"

#include <array>

namespace ipc2581::python {
namespace {

constexpr auto AliasRows = std::to_array<AliasRow>({
    {"Component", "designator", "RefDes", "The reference designator: \"U1\"."},
    {"Component", "x", "Location.X", "In the units of the board."},
    {"Component", "y", "Location.Y", "In the units of the board."},
    {"Component", "rotation", "Xform.Rotation", "In degrees, counterclockwise."},
    {"Component", "mirror", "Xform.Mirror", "Whether it is turned over."},
    {"LogicalNet", "name", "Name", "The name of the net."},
    {"LogicalNet", "pins", "LogicalNetPinArray", "The pins that it connects."},
    {"LogicalNetPin", "pin", "Pin", "The number of the pin: \"1\"."},
    {"LogicalNetPin", "designator", "ComponentRef", "The designator of the component: \"U1\"."},
    {"LayerFeature", "sets", "SetArray", "What lies on the layer."},
    {"Package", "pins", "PinArray", "The pins of the package."},
    {"Pin", "x", "Location.X", "From the origin of the package."},
    {"Pin", "y", "Location.Y", "From the origin of the package."},
    {"Pin", "rotation", "Xform.Rotation", "In degrees, counterclockwise."},
    {"Pad", "x", "Location.X", "In the units of the board."},
    {"Pad", "y", "Location.Y", "In the units of the board."},
    {"Pad", "rotation", "Rotation", "In degrees, counterclockwise."},
    {"Hole", "x", "Location.X", "In the units of the board."},
    {"Hole", "y", "Location.Y", "In the units of the board."},
    {"BomItem", "designators", "m_arrRefDes", "The places where the item is fitted, or not."},
});

constexpr auto ReferenceRows = std::to_array<ReferenceRow>({
    {"Component", "package", "PackageRef", Packages, "name", "Its package; None if the board has none of the name."},
    {"Component", "layer", "LayerRef", Layers, "name", "Its layer; None if the board has none of the name."},
    {"LogicalNetPin", "component", "ComponentRef", Components, "RefDes",
     "Its component; None if the board has none of the designator."},
    {"LayerFeature", "layer", "LayerRef", Layers, "name", "Its layer; None if the board has none of the name."},
});

}  // namespace

std::span<const AliasRow> Aliases()
{
    return AliasRows;
}

std::span<const ReferenceRow> References()
{
    return ReferenceRows;
}

Place PlaceAt(const Found & object, std::string_view path)
{
    const std::size_t dot = path.find('.');
    const MemberRow * const member = FindMember(*object.type, path.substr(0, dot));
    void * const address = member->address(object.object);
    if (dot == std::string_view::npos || address == nullptr) {
        return {member, address};
    }
    return PlaceAt({address, &member->type()}, path.substr(dot + 1));
}

const MemberRow * MemberAt(const ClassRow & type, std::string_view path)
{
    const std::size_t dot = path.find('.');
    const MemberRow * const member = FindMember(type, path.substr(0, dot));
    return dot == std::string_view::npos || member == nullptr ? member : MemberAt(member->type(), path.substr(dot + 1));
}

Found FindElement(const Place & list, std::string_view key, std::string_view text)
{
    const ListRow & row = *list.member->list;
    const std::int64_t count = row.size(list.address);
    const MemberRow * const member = FindMember(row.elementType(), key);
    for (std::int64_t i = 0; i < count; ++i) {
        const Found element = row.at(list.address, i);
        if (element.object != nullptr && *static_cast<const CString *>(member->address(element.object)) == text) {
            return element;
        }
    }
    return {};
}

}  // namespace ipc2581::python
