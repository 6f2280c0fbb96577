#include "hosts/ipc2581/drawing/Drawing.h"

namespace ipc2581::host {
namespace {

Item OnBoard(const Item & item, const PlacedPart & part)
{
    Item placed = item;
    placed.placement = part.placement.Of(item.placement);
    placed.refDes = part.refDes;
    return placed;
}

}  // namespace

const std::vector<Path> & PathsOf(const Drawing & drawing, const Item & item)
{
    return item.shape == Item::OwnPaths ? item.paths : drawing.shapes[item.shape].paths;
}

std::vector<Item> ItemsOf(const Drawing & drawing, const PlacedPart & part)
{
    std::vector<Item> items;
    if (part.footprint != PlacedPart::NoFootprint) {
        const Footprint & footprint = drawing.footprints[part.footprint];
        for (std::size_t i = 0; i < footprint.pads.size(); ++i) {
            items.push_back(OnBoard(footprint.pads[i], part));
            items.back().net = part.padNets[i];
        }
        for (const Item & item : footprint.body) {
            items.push_back(OnBoard(item, part));
        }
    }
    items.push_back(part.label);
    return items;
}

}  // namespace ipc2581::host
