#ifndef IPC2581_HOSTS_IPC2581_DRAWING_DRAWING_H
#define IPC2581_HOSTS_IPC2581_DRAWING_DRAWING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <import/shapes/Path.h>
#include <import/shapes/Placement.h>

// A board as it is drawn: plain lists, to be walked by whoever paints, measures or compares. It owns all that it holds,
// and needs neither the file nor the model any more. Every coordinate and length is in the unit of the board, with the
// y axis pointing up; what the file has in another unit is scaled already.
//
//     for (const DrawnLayer & layer : drawing.layers) {
//         for (const Item & item : layer.items) {
//             for (const Path & path : PathsOf(drawing, item)) {
//                 paint(path, item.placement, drawing.names[item.net]);
//             }
//         }
//     }
namespace ipc2581::host {

// A place in Drawing::names. The first name is empty, for what has none.
using NameIndex = std::uint32_t;

// What a layer is for, by the word of the file.
enum class LayerRole { Copper, Mask, Paste, Legend, Drill, Assembly, Document, Other };

enum class Side { Top, Bottom, Inside, Both, Other };

enum class ItemKind {
    Outline,  // areas, each filled by itself
    Stroke,   // a line as wide as its width along its one path
    Hole,     // round, with its width for its diameter; its location is its middle
    Text      // its name, to be fitted into the box that its path goes round
};

enum class StrokeEnds { Round, Square, None };

struct Item {
    static constexpr std::size_t OwnPaths = SIZE_MAX;

    ItemKind kind = ItemKind::Outline;
    StrokeEnds ends = StrokeEnds::Round;
    // Its paths: its own, or those of one of Drawing::shapes.
    std::vector<Path> paths = {};
    std::size_t shape = OwnPaths;
    // Puts the paths where they are drawn.
    Placement placement = {};
    double width = 0.0;  // 0 of a stroke whose width is not known: as thin as can be seen
    NameIndex net = 0;
    NameIndex refDes = 0;
    NameIndex pin = 0;   // as the file gives it
    NameIndex text = 0;  // of a Text
};

// A shape that the file's dictionary has once, and that many items place.
struct DictionaryShape {
    std::string id;
    std::vector<Path> paths;
};

struct Color {
    int red = 0;
    int green = 0;
    int blue = 0;
};

// A layer with all that lies on it, except the parts.
struct DrawnLayer {
    std::string name;
    std::string function = {};
    LayerRole role = LayerRole::Other;
    Side side = Side::Other;
    bool isNegative = false;   // the items are what is not there
    bool hasFeatures = false;  // the file draws it by features, and not only by the pads of pad stacks
    std::optional<Color> color = {};
    std::vector<Item> items = {};
};

// A hole, wherever the file states it; each is here once. Holes of a set are items of their layer too.
struct DrillHole {
    Vertex center;
    double diameter = 0.0;
    // The layers that it goes through, in the order of Drawing::layers.
    std::size_t firstLayer = 0;
    std::size_t lastLayer = 0;
    NameIndex net = 0;

    [[nodiscard]] bool GoesThrough(std::size_t layer) const { return layer >= firstLayer && layer <= lastLayer; }
};

// A package, drawn round its own origin as it is seen from above.
struct Footprint {
    std::string name;
    std::vector<Item> pads;  // of the land pattern, or else the pins
    std::vector<Item> body;  // outline and silk screen
};

// A component on the board.
struct PlacedPart {
    static constexpr std::size_t NoFootprint = SIZE_MAX;

    NameIndex refDes = 0;
    Side side = Side::Top;
    std::size_t footprint = NoFootprint;  // in Drawing::footprints
    Placement placement = {};
    std::vector<NameIndex> padNets = {};  // in the order of the pads of its footprint
    Item label = {};                      // its designator; the box is the outline of the part, or its place
    // Whether a picture of its side wants its designator: not where a legend or document of that side has it already,
    // and not of what is no part that anybody buys, such as a shield, unless the file tells no part of any component.
    bool isLabelled = true;
};

struct Drawing {
    std::string unit;          // as the file gives it
    double millimetres = 0.0;  // in one unit; 0 for an unknown unit
    int decimals = 4;          // good for about two thousandths of a millimetre in this unit

    std::vector<std::string> names = {""};
    std::vector<DictionaryShape> shapes;
    std::vector<Footprint> footprints;
    Path profile;  // the board itself, with its cutouts as holes
    // Those of the file in its order, and behind them those that it only refers to.
    std::vector<DrawnLayer> layers;
    std::vector<DrillHole> holes;
    std::vector<PlacedPart> parts;
};

// What an item is drawn by, before its placement.
const std::vector<Path> & PathsOf(const Drawing & drawing, const Item & item);

// The pads, the body and the label of a part as items on the board, with its designator and the nets of its pins.
std::vector<Item> ItemsOf(const Drawing & drawing, const PlacedPart & part);

}  // namespace ipc2581::host

#endif
