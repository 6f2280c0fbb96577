// What one would write without this library: pugixml in place, std::from_chars, and a walk that fills plain structs
// with all that the model of this library holds of the file.

#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

#include <pugixml.hpp>

#include "bench/Measure.h"

namespace {

struct Point {
    double x = 0.0;
    double y = 0.0;
};

struct LineDesc {
    double width = 0.0;
    std::string end = "ROUND";
};

struct PolyStep {
    Point end;
    Point center;
    bool isCurve = false;
    bool isClockwise = true;
};

struct Path {
    Point begin;
    std::vector<PolyStep> steps;
};

struct Polyline {
    Path path;
    LineDesc lineDesc;
};

struct Line {
    Point start;
    Point end;
    LineDesc lineDesc;
};

struct Contour {
    std::vector<Path> polygons;
    std::vector<Path> cutouts;
};

struct Circle {
    double diameter = 0.0;
};

using Shape = std::variant<Polyline, Line, Contour, Circle>;

struct Outline {
    Path polygon;
    LineDesc lineDesc;
};

struct Primitive {
    std::string name;
    std::string form;
    std::array<double, 7> sizes = {};
    unsigned corners = 0;
    std::unique_ptr<Contour> contour;
};

struct EntryStandard {
    std::string id;
    std::vector<Primitive> primitives;
};

struct EntryColor {
    std::string id;
    std::string colorRef;
    int red = 0;
    int green = 0;
    int blue = 0;
};

struct Content {
    std::string mode;
    std::string level;
    std::vector<std::string> stepRefs;
    std::vector<std::string> layerRefs;
    std::vector<std::string> bomRefs;
    std::string unit;
    std::string userUnit;
    std::vector<EntryStandard> entries;
    std::vector<EntryColor> colors;
};

struct HistoryRecord {
    int number = 0;
    std::string origination;
    std::string toolRef;
    std::string lastChange;
};

struct RefDes {
    std::string name;
    bool populate = true;
};

struct BomItem {
    std::string quantity;
    std::string numberIO;
    std::string category;
    std::string internalPartNumber;
    std::string description;
    std::string packageRef;
    std::vector<RefDes> refDes;
};

struct Bom {
    std::string name;
    std::string assembly;
    std::vector<BomItem> items;
};

struct Layer {
    std::string name;
    std::string function;
    std::string side;
    std::string polarity;
};

struct StackupLayer {
    std::string layerRef;
    std::string material;
    double thickness = 0.0;
};

struct StackupGroup {
    std::string name;
    double thickness = 0.0;
    double tolPlus = 0.0;
    double tolMinus = 0.0;
    std::vector<StackupLayer> layers;
};

struct Stackup {
    std::string overallThickness;
    std::string tolPlus;
    std::string tolMinus;
    std::string whereMeasured;
    std::vector<StackupGroup> groups;
};

struct Pad {
    std::string pin;
    std::string primitiveRef;
    double rotation = 0.0;
    Point location;
};

struct LayerPad {
    std::string layerRef;
    Pad pad;
};

struct Hole {
    std::string name;
    std::string diameter;
    std::string platingStatus;
    std::string plusTol;
    std::string minusTol;
    Point location;
};

struct PadStack {
    std::string net;
    Hole hole;
    std::string fromLayer;
    std::string toLayer;
    std::vector<LayerPad> pads;
};

struct Target {
    Point location;
    std::vector<Shape> shapes;
};

struct PackagePin {
    std::string number;
    std::string name;
    std::string type;
    std::string electricalType;
    std::string primitiveRef;
    double rotation = 0.0;
    Point location;
    Outline outline;
};

struct Package {
    std::string name;
    std::string type;
    Outline outline;
    Outline assembly;
    std::vector<Target> silkScreen;
    std::vector<Pad> landPattern;
    std::vector<PackagePin> pins;
};

struct Component {
    std::string refDes;
    std::string packageRef;
    std::string layerRef;
    std::string part;
    std::string mountType = "OTHER";
    std::string standoff;
    double height = 0.0;
    double rotation = 0.0;
    bool isMirrored = false;
    Point location;
};

struct NetPin {
    std::string pin;
    std::string component;
};

struct LogicalNet {
    std::string name;
    std::vector<NetPin> pins;
};

struct PhyNetPoint {
    Point location;
    std::string layerRef;
    std::string netNode;
    std::string exposure;
    std::string primitiveRef;
    bool isVia = false;
    bool isTest = false;
};

struct PhyNet {
    std::string name;
    std::vector<PhyNetPoint> points;
};

struct Features {
    Point location;
    std::vector<Shape> shapes;
};

// Nearly every set has a pad, few have the others.
struct Set {
    std::string net;
    std::string padUsage;
    std::string colorRef;
    bool isTestPoint = false;
    bool isPlated = false;
    Pad pad;
    std::unique_ptr<Features> features;
    std::unique_ptr<Hole> hole;
};

struct LayerFeature {
    std::string layerRef;
    std::vector<Set> sets;
};

struct Step {
    std::string name;
    Point datum;
    std::vector<PadStack> padStacks;
    Path profile;
    std::vector<Path> profileCutouts;
    std::vector<Package> packages;
    std::vector<Component> components;
    std::vector<LogicalNet> nets;
    std::string phyNetGroup;
    std::vector<PhyNet> phyNets;
    std::vector<LayerFeature> layerFeatures;
};

struct Board {
    Content content;
    std::string role;
    std::string person;
    HistoryRecord history;
    Bom bom;
    std::string ecadName;
    std::string units;
    std::vector<Layer> layers;
    Stackup stackup;
    Step step;
};

template <typename Visit>
void ForEachChild(pugi::xml_node node, Visit visit)
{
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        visit(child, std::string_view(child.name()));
    }
}

template <typename Visit>
void ForEachAttribute(pugi::xml_node node, Visit visit)
{
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute; attribute = attribute.next_attribute()) {
        visit(std::string_view(attribute.name()), attribute.value());
    }
}

template <typename Number>
Number ToNumber(const char * text)
{
    Number number = 0;
    std::from_chars(text, text + std::strlen(text), number);
    return number;
}

bool IsTrue(const char * text)
{
    return text[0] == 'T' || text[0] == 't';
}

void Store(const char * value, std::string & field)
{
    field = value;
}

void Store(const char * value, double & field)
{
    field = ToNumber<double>(value);
}

void Store(const char * value, int & field)
{
    field = ToNumber<int>(value);
}

void Store(const char * value, bool & field)
{
    field = IsTrue(value);
}

template <typename Field>
struct Key {
    std::string_view name;
    Field & field;
};

template <typename Field>
Key(const char *, Field &) -> Key<Field>;

template <typename... Fields>
void ReadAttributes(pugi::xml_node node, Key<Fields>... keys)
{
    ForEachAttribute(node, [&](std::string_view name, const char * value) {
        static_cast<void>((... || (name == keys.name && (Store(value, keys.field), true))));
    });
}

void ReadPoint(pugi::xml_node node, Point & point)
{
    ReadAttributes(node, Key{"x", point.x}, Key{"y", point.y});
}

void ReadId(pugi::xml_node node, std::string & id)
{
    id = node.attribute("id").value();
}

void ReadLineDesc(pugi::xml_node node, LineDesc & lineDesc)
{
    ReadAttributes(node, Key{"lineWidth", lineDesc.width}, Key{"lineEnd", lineDesc.end});
}

PolyStep ReadCurve(pugi::xml_node node)
{
    PolyStep step;
    step.isCurve = true;
    ReadAttributes(node, Key{"x", step.end.x}, Key{"y", step.end.y}, Key{"centerX", step.center.x},
                   Key{"centerY", step.center.y}, Key{"clockwise", step.isClockwise});
    return step;
}

void ReadPath(pugi::xml_node node, Path & path, LineDesc * lineDesc = nullptr)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "PolyStepSegment") {
            ReadPoint(child, path.steps.emplace_back().end);
        }
        else if (name == "PolyStepCurve") {
            path.steps.push_back(ReadCurve(child));
        }
        else if (name == "PolyBegin") {
            ReadPoint(child, path.begin);
        }
        else if (lineDesc != nullptr && name == "LineDesc") {
            ReadLineDesc(child, *lineDesc);
        }
    });
}

void ReadContour(pugi::xml_node node, Contour & contour)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Polygon") {
            ReadPath(child, contour.polygons.emplace_back());
        }
        else if (name == "Cutout") {
            ReadPath(child, contour.cutouts.emplace_back());
        }
    });
}

void ReadLine(pugi::xml_node node, Line & line)
{
    ReadAttributes(node, Key{"startX", line.start.x}, Key{"startY", line.start.y}, Key{"endX", line.end.x},
                   Key{"endY", line.end.y});
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "LineDesc") {
            ReadLineDesc(child, line.lineDesc);
        }
    });
}

template <typename Kind>
Kind & Added(std::vector<Shape> & shapes)
{
    return *std::get_if<Kind>(&shapes.emplace_back(std::in_place_type<Kind>));
}

// Where shapes and their location stand, also one level deeper in a UserSpecial.
void ReadShapes(pugi::xml_node node, Point & location, std::vector<Shape> & shapes)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Location") {
            ReadPoint(child, location);
        }
        else if (name == "Polyline") {
            Polyline & polyline = Added<Polyline>(shapes);
            ReadPath(child, polyline.path, &polyline.lineDesc);
        }
        else if (name == "Line") {
            ReadLine(child, Added<Line>(shapes));
        }
        else if (name == "Contour") {
            ReadContour(child, Added<Contour>(shapes));
        }
        else if (name == "Circle") {
            shapes.emplace_back(Circle{ToNumber<double>(child.attribute("diameter").value())});
        }
        else if (name == "UserSpecial") {
            ReadShapes(child, location, shapes);
        }
    });
}

void ReadOutline(pugi::xml_node node, Outline & outline)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Polygon") {
            ReadPath(child, outline.polygon);
        }
        else if (name == "LineDesc") {
            ReadLineDesc(child, outline.lineDesc);
        }
    });
}

struct PrimitiveNames {
    std::string_view name;
    std::array<std::string_view, 7> sizes;
};

constexpr std::array<PrimitiveNames, 16> Primitives = {{
    {"Circle", {"diameter"}},
    {"RectCenter", {"width", "height"}},
    {"RectRound", {"width", "height", "radius"}},
    {"Oval", {"width", "height"}},
    {"Contour", {}},
    {"RectCham", {"width", "height", "chamfer"}},
    {"RectCorner", {"lowerLeftX", "lowerLeftY", "upperRightX", "upperRightY"}},
    {"Donut", {"outerDiameter", "innerDiameter"}},
    {"Thermal", {"outerDiameter", "innerDiameter", "spokeCount", "gap", "spokeStartAngle"}},
    {"Butterfly", {"diameter", "side"}},
    {"Diamond", {"width", "height"}},
    {"Ellipse", {"width", "height"}},
    {"Hexagon", {"length"}},
    {"Octagon", {"length"}},
    {"Triangle", {"base", "height"}},
    {"Moire", {"diameter", "ringWidth", "ringGap", "ringNumber", "lineWidth", "lineLength", "lineAngle"}},
}};

constexpr std::array<std::string_view, 4> CornerNames = {"upperRight", "upperLeft", "lowerLeft", "lowerRight"};

void ReadPrimitiveAttribute(Primitive & primitive, const PrimitiveNames & names, std::string_view key,
                            const char * value)
{
    for (std::size_t i = 0; i < names.sizes.size() && !names.sizes[i].empty(); ++i) {
        if (key == names.sizes[i]) {
            primitive.sizes[i] = ToNumber<double>(value);
            return;
        }
    }
    for (std::size_t i = 0; i < CornerNames.size(); ++i) {
        if (key == CornerNames[i] && IsTrue(value)) {
            primitive.corners |= 1U << i;
            return;
        }
    }
    if (key == "shape") {
        primitive.form = value;
    }
}

void ReadPrimitive(pugi::xml_node node, const PrimitiveNames & names, Primitive & primitive)
{
    primitive.name = names.name;
    ForEachAttribute(
        node, [&](std::string_view key, const char * value) { ReadPrimitiveAttribute(primitive, names, key, value); });
    if (names.name == "Contour") {
        primitive.contour = std::make_unique<Contour>();
        ReadContour(node, *primitive.contour);
    }
}

void ReadEntryStandard(pugi::xml_node node, EntryStandard & entry)
{
    ReadId(node, entry.id);
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        for (const PrimitiveNames & names : Primitives) {
            if (name == names.name) {
                ReadPrimitive(child, names, entry.primitives.emplace_back());
                return;
            }
        }
    });
}

void ReadEntryColor(pugi::xml_node node, EntryColor & entry)
{
    ReadId(node, entry.id);
    ReadAttributes(node.child("Color"), Key{"r", entry.red}, Key{"g", entry.green}, Key{"b", entry.blue},
                   Key{"id", entry.colorRef});
}

// Older files put the name between the tags, newer ones in an attribute.
std::string ReadRef(pugi::xml_node node)
{
    const pugi::xml_attribute name = node.attribute("name");
    return name ? name.value() : node.child_value();
}

void ReadContent(pugi::xml_node node, Content & content)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "FunctionMode") {
            content.mode = child.attribute("mode").value();
            content.level = child.attribute("level").value();
        }
        else if (name == "StepRef") {
            content.stepRefs.push_back(ReadRef(child));
        }
        else if (name == "LayerRef") {
            content.layerRefs.push_back(ReadRef(child));
        }
        else if (name == "BomRef") {
            content.bomRefs.push_back(ReadRef(child));
        }
        else if (name == "DictionaryStandard") {
            content.unit = child.attribute("units").value();
            for (const pugi::xml_node entry : child.children("EntryStandard")) {
                ReadEntryStandard(entry, content.entries.emplace_back());
            }
        }
        else if (name == "DictionaryUser") {
            content.userUnit = child.attribute("units").value();
        }
        else if (name == "DictionaryColor") {
            for (const pugi::xml_node entry : child.children("EntryColor")) {
                ReadEntryColor(entry, content.colors.emplace_back());
            }
        }
    });
}

void ReadHistoryRecord(pugi::xml_node node, HistoryRecord & history)
{
    history.number = ToNumber<int>(node.attribute("number").value());
    history.origination = node.attribute("origination").value();
    history.toolRef = node.attribute("toolRef").value();
    history.lastChange = node.attribute("lastChange").value();
}

void ReadBomItem(pugi::xml_node node, BomItem & item)
{
    ReadAttributes(node, Key{"quantity", item.quantity}, Key{"numberIO", item.numberIO}, Key{"category", item.category},
                   Key{"internalPartNumber", item.internalPartNumber}, Key{"description", item.description},
                   Key{"packageRef", item.packageRef});
    for (const pugi::xml_node child : node.children("RefDes")) {
        RefDes & refDes = item.refDes.emplace_back();
        refDes.name = child.attribute("name").value();
        refDes.populate = IsTrue(child.attribute("populate").value());
    }
}

void ReadBom(pugi::xml_node node, Bom & bom)
{
    bom.name = node.attribute("name").value();
    bom.assembly = node.child("BomHeader").attribute("assembly").value();
    for (const pugi::xml_node item : node.children("BomItem")) {
        ReadBomItem(item, bom.items.emplace_back());
    }
}

void ReadLayer(pugi::xml_node node, Layer & layer)
{
    ReadAttributes(node, Key{"name", layer.name}, Key{"layerFunction", layer.function}, Key{"side", layer.side},
                   Key{"polarity", layer.polarity});
}

void ReadStackup(pugi::xml_node node, Stackup & stackup)
{
    stackup.overallThickness = node.attribute("overallThickness").value();
    stackup.tolPlus = node.attribute("tolPlus").value();
    stackup.tolMinus = node.attribute("tolMinus").value();
    stackup.whereMeasured = node.attribute("whereMeasured").value();
    for (const pugi::xml_node child : node.children("StackupGroup")) {
        StackupGroup & group = stackup.groups.emplace_back();
        group.name = child.attribute("name").value();
        group.thickness = ToNumber<double>(child.attribute("thickness").value());
        group.tolPlus = ToNumber<double>(child.attribute("tolPlus").value());
        group.tolMinus = ToNumber<double>(child.attribute("tolMinus").value());
        for (const pugi::xml_node layerNode : child.children("StackupLayer")) {
            StackupLayer & layer = group.layers.emplace_back();
            layer.layerRef = layerNode.attribute("layerOrGroupRef").value();
            layer.material = layerNode.attribute("materialType").value();
            layer.thickness = ToNumber<double>(layerNode.attribute("thickness").value());
        }
    }
}

void ReadPad(pugi::xml_node node, Pad & pad)
{
    pad.pin = node.attribute("pin").value();
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Location") {
            ReadPoint(child, pad.location);
        }
        else if (name == "StandardPrimitiveRef") {
            ReadId(child, pad.primitiveRef);
        }
        else if (name == "Xform") {
            ReadAttributes(child, Key{"rotation", pad.rotation});
        }
    });
}

void ReadHole(pugi::xml_node node, Hole & hole)
{
    ReadAttributes(node, Key{"name", hole.name}, Key{"diameter", hole.diameter},
                   Key{"platingStatus", hole.platingStatus}, Key{"plusTol", hole.plusTol},
                   Key{"minusTol", hole.minusTol}, Key{"x", hole.location.x}, Key{"y", hole.location.y});
}

void ReadPadStack(pugi::xml_node node, PadStack & padStack)
{
    padStack.net = node.attribute("net").value();
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "LayerPad") {
            LayerPad & layerPad = padStack.pads.emplace_back();
            layerPad.layerRef = child.attribute("layerRef").value();
            ReadPad(child, layerPad.pad);
        }
        else if (name == "LayerHole") {
            ReadHole(child, padStack.hole);
            const pugi::xml_node span = child.child("Span");
            padStack.fromLayer = span.attribute("fromLayer").value();
            padStack.toLayer = span.attribute("toLayer").value();
        }
    });
}

void ReadPackagePin(pugi::xml_node node, PackagePin & pin)
{
    ReadAttributes(node, Key{"number", pin.number}, Key{"name", pin.name}, Key{"type", pin.type},
                   Key{"electricalType", pin.electricalType});
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Location") {
            ReadPoint(child, pin.location);
        }
        else if (name == "StandardPrimitiveRef") {
            ReadId(child, pin.primitiveRef);
        }
        else if (name == "Xform") {
            ReadAttributes(child, Key{"rotation", pin.rotation});
        }
        else if (name == "Outline") {
            ReadOutline(child, pin.outline);
        }
    });
}

void ReadPackage(pugi::xml_node node, Package & package)
{
    package.name = node.attribute("name").value();
    package.type = node.attribute("type").value();
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Pin") {
            ReadPackagePin(child, package.pins.emplace_back());
        }
        else if (name == "Outline") {
            ReadOutline(child, package.outline);
        }
        else if (name == "AssemblyDrawing") {
            ReadOutline(child.child("Outline"), package.assembly);
        }
        else if (name == "SilkScreen") {
            for (const pugi::xml_node target : child.children("Target")) {
                Target & added = package.silkScreen.emplace_back();
                ReadShapes(target, added.location, added.shapes);
            }
        }
        else if (name == "LandPattern") {
            for (const pugi::xml_node pad : child.children("Pad")) {
                ReadPad(pad, package.landPattern.emplace_back());
            }
        }
    });
}

void ReadComponent(pugi::xml_node node, Component & component)
{
    ReadAttributes(node, Key{"refDes", component.refDes}, Key{"packageRef", component.packageRef},
                   Key{"layerRef", component.layerRef}, Key{"part", component.part},
                   Key{"mountType", component.mountType}, Key{"standoff", component.standoff},
                   Key{"height", component.height});
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Location") {
            ReadPoint(child, component.location);
        }
        else if (name == "Xform") {
            ReadAttributes(child, Key{"rotation", component.rotation}, Key{"mirror", component.isMirrored});
        }
    });
}

void ReadLogicalNet(pugi::xml_node node, LogicalNet & net)
{
    net.name = node.attribute("name").value();
    for (const pugi::xml_node child : node.children("LogicalNetPin")) {
        NetPin & pin = net.pins.emplace_back();
        pin.pin = child.attribute("pin").value();
        pin.component = child.attribute("componentRef").value();
    }
}

void ReadPhyNetPoint(pugi::xml_node node, PhyNetPoint & point)
{
    ReadAttributes(node, Key{"x", point.location.x}, Key{"y", point.location.y}, Key{"layerRef", point.layerRef},
                   Key{"netNode", point.netNode}, Key{"exposure", point.exposure}, Key{"via", point.isVia},
                   Key{"test", point.isTest});
    ReadId(node.child("StandardPrimitiveRef"), point.primitiveRef);
}

template <typename Part>
Part & Made(std::unique_ptr<Part> & part)
{
    if (part == nullptr) {
        part = std::make_unique<Part>();
    }
    return *part;
}

void ReadSet(pugi::xml_node node, Set & set)
{
    ReadAttributes(node, Key{"net", set.net}, Key{"testPoint", set.isTestPoint}, Key{"plate", set.isPlated},
                   Key{"padUsage", set.padUsage});
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Pad") {
            ReadPad(child, set.pad);
        }
        else if (name == "Features") {
            Features & features = Made(set.features);
            ReadShapes(child, features.location, features.shapes);
        }
        else if (name == "Hole") {
            ReadHole(child, Made(set.hole));
        }
        else if (name == "ColorRef") {
            ReadId(child, set.colorRef);
        }
    });
}

void ReadLayerFeature(pugi::xml_node node, LayerFeature & layerFeature)
{
    layerFeature.layerRef = node.attribute("layerRef").value();
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Set") {
            ReadSet(child, layerFeature.sets.emplace_back());
        }
    });
}

void ReadPhyNetGroup(pugi::xml_node node, Step & step)
{
    step.phyNetGroup = node.attribute("name").value();
    for (const pugi::xml_node netNode : node.children("PhyNet")) {
        PhyNet & net = step.phyNets.emplace_back();
        net.name = netNode.attribute("name").value();
        for (const pugi::xml_node point : netNode.children("PhyNetPoint")) {
            ReadPhyNetPoint(point, net.points.emplace_back());
        }
    }
}

void ReadProfile(pugi::xml_node node, Step & step)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Polygon") {
            ReadPath(child, step.profile);
        }
        else if (name == "Cutout") {
            ReadPath(child, step.profileCutouts.emplace_back());
        }
    });
}

void ReadStep(pugi::xml_node node, Step & step)
{
    step.name = node.attribute("name").value();
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Component") {
            ReadComponent(child, step.components.emplace_back());
        }
        else if (name == "LogicalNet") {
            ReadLogicalNet(child, step.nets.emplace_back());
        }
        else if (name == "Package") {
            ReadPackage(child, step.packages.emplace_back());
        }
        else if (name == "PadStack") {
            ReadPadStack(child, step.padStacks.emplace_back());
        }
        else if (name == "LayerFeature") {
            ReadLayerFeature(child, step.layerFeatures.emplace_back());
        }
        else if (name == "PhyNetGroup") {
            ReadPhyNetGroup(child, step);
        }
        else if (name == "Profile") {
            ReadProfile(child, step);
        }
        else if (name == "Datum") {
            ReadPoint(child, step.datum);
        }
    });
}

void ReadCadData(pugi::xml_node node, Board & board)
{
    ForEachChild(node, [&](pugi::xml_node child, std::string_view name) {
        if (name == "Layer") {
            ReadLayer(child, board.layers.emplace_back());
        }
        else if (name == "Stackup") {
            ReadStackup(child, board.stackup);
        }
        else if (name == "Step") {
            ReadStep(child, board.step);
        }
    });
}

void ReadBoard(pugi::xml_node node, Board & board)
{
    ReadContent(node.child("Content"), board.content);
    const pugi::xml_node header = node.child("LogisticHeader");
    board.role = header.child("Role").attribute("name").value();
    board.person = header.child("Person").attribute("name").value();
    ReadHistoryRecord(node.child("HistoryRecord"), board.history);
    ReadBom(node.child("Bom"), board.bom);
    const pugi::xml_node ecad = node.child("Ecad");
    board.ecadName = ecad.attribute("name").value();
    board.units = ecad.child("CadHeader").attribute("units").value();
    ReadCadData(ecad.child("CadData"), board);
}

struct Buffer {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
};

Buffer ReadFile(const char * path)
{
    Buffer buffer;
    std::error_code error;
    const auto size = static_cast<std::size_t>(std::filesystem::file_size(path, error));
    std::FILE * const file = error ? nullptr : std::fopen(path, "rb");
    if (file == nullptr) {
        return buffer;
    }
    buffer.bytes = std::make_unique_for_overwrite<char[]>(size);
    buffer.size = std::fread(buffer.bytes.get(), 1, size, file);
    std::fclose(file);
    return buffer;
}

struct Counts {
    std::size_t contours = 0;
    std::size_t steps = 0;

    void Add(const Path & path)
    {
        ++contours;
        steps += path.steps.size();
    }
    void Add(const std::vector<Path> & paths)
    {
        for (const Path & path : paths) {
            Add(path);
        }
    }
    void Add(const Contour & contour)
    {
        Add(contour.polygons);
        Add(contour.cutouts);
    }
    void Add(const std::vector<Shape> & shapes)
    {
        for (const Shape & shape : shapes) {
            if (const auto * const polyline = std::get_if<Polyline>(&shape)) {
                Add(polyline->path);
            }
            else if (const auto * const contour = std::get_if<Contour>(&shape)) {
                Add(*contour);
            }
        }
    }
};

void PrintCounts(const Board & board)
{
    Counts counts;
    for (const EntryStandard & entry : board.content.entries) {
        for (const Primitive & primitive : entry.primitives) {
            if (primitive.contour != nullptr) {
                counts.Add(*primitive.contour);
            }
        }
    }
    std::size_t refDes = 0;
    for (const BomItem & item : board.bom.items) {
        refDes += item.refDes.size();
    }
    const Step & step = board.step;
    counts.Add(step.profile);
    counts.Add(step.profileCutouts);
    std::size_t pins = 0;
    for (const Package & package : step.packages) {
        counts.Add(package.outline.polygon);
        counts.Add(package.assembly.polygon);
        for (const Target & target : package.silkScreen) {
            counts.Add(target.shapes);
        }
        for (const PackagePin & pin : package.pins) {
            counts.Add(pin.outline.polygon);
        }
        pins += package.pins.size();
    }
    std::size_t netPins = 0;
    for (const LogicalNet & net : step.nets) {
        netPins += net.pins.size();
    }
    std::size_t points = 0;
    for (const PhyNet & net : step.phyNets) {
        points += net.points.size();
    }
    std::size_t sets = 0;
    std::size_t shapes = 0;
    for (const LayerFeature & layerFeature : step.layerFeatures) {
        sets += layerFeature.sets.size();
        for (const Set & set : layerFeature.sets) {
            if (set.features != nullptr) {
                shapes += set.features->shapes.size();
                counts.Add(set.features->shapes);
            }
        }
    }
    std::printf("counts entries %zu designators %zu packages %zu pins %zu components %zu nets %zu net_pins %zu "
                "points %zu sets %zu shapes %zu contours %zu steps %zu\n",
                board.content.entries.size(), refDes, step.packages.size(), pins, step.components.size(),
                step.nets.size(), netPins, points, sets, shapes, counts.contours, counts.steps);
}

}  // namespace

int main(int count, char ** arguments)
{
    using namespace ipc2581::bench;
    if (count != 2) {
        std::fputs("usage: typed_walk FILE\n", stderr);
        return 2;
    }
    const double start = CpuMilliseconds();
    const double begin = ElapsedMilliseconds();
    Buffer buffer = ReadFile(arguments[1]);
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer_inplace(buffer.bytes.get(), buffer.size);
    Board board;
    ReadBoard(document.child("IPC-2581"), board);
    const double elapsed = ElapsedMilliseconds() - begin;
    const double end = CpuMilliseconds();
    if (!result) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], result.description());
        return 1;
    }
    std::printf("read %.3f ms %.3f MB\n", end - start, PeakMegabytes());
    std::printf("process %.3f ms\n", end);
    std::printf("elapsed %.3f ms\n", elapsed);
    PrintCounts(board);
    return 0;
}
