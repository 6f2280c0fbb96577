#include "tests/import/facts/FileFacts.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "tests/import/facts/BoardFile.h"
#include "tests/import/facts/Drawing.h"
#include "tests/import/facts/FileShapes.h"
#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

using Node = pugi::xml_node;

// Of two attributes for one thing, the one that is there.
std::string EitherOf(Node node, const char * first, const char * second)
{
    return TextOf(node, node.attribute(first) ? first : second);
}

// Revision C has the name in an attribute, the first files had it as the text of the element.
std::string NameIn(Node reference)
{
    return reference.attribute("name") ? TextOf(reference, "name") : reference.text().get();
}

// The package of an item that names none, where all its placements have the same.
std::string PackageOfItem(Node item)
{
    std::set<std::string> packages;
    for (const Node refDes : item.children("RefDes")) {
        packages.insert(TextOf(refDes, "packageRef"));
    }
    return packages.size() == 1 ? *packages.begin() : "";
}

std::string ItemName(Node item)
{
    return EitherOf(item, "internalPartNumber", "OEMDesignNumberRef");
}

std::string PinOf(Node pad)
{
    const Node pin = pad.child("PinRef");
    return pin ? PinWord(TextOf(pin, "componentRef"), TextOf(pin, "pin")) : TextOf(pad, "pin");
}

class Collector {
public:
    explicit Collector(const BoardFile & file) : m_file(file), m_shapes(file) {}

    Facts Collect()
    {
        AddContent();
        AddDictionaries();
        AddLogistics();
        AddBom();
        AddLayers();
        AddStackups();
        AddStep();
        AddPadStacks();
        AddPackages();
        AddComponents();
        AddNets();
        AddPhyNets();
        AddLayerFeatures();
        return std::move(m_facts);
    }

private:
    void Add(std::string_view kind, const std::vector<Word> & words, std::vector<Number> numbers = {})
    {
        m_facts.push_back(MakeFact(kind, words, std::move(numbers)));
    }

    void AddContent()
    {
        const Node mode = m_file.Content().child("FunctionMode");
        Add("function-mode",
            {{"mode", TextOf(mode, "mode")}, {"level", TextOf(mode, "level")}, {"comment", TextOf(mode, "comment")}});
        AddReferences("step-ref", "StepRef");
        AddReferences("layer-ref", "LayerRef");
        AddReferences("bom-ref", "BomRef");
        for (const Node entry : m_file.Content().child("DictionaryColor").children("EntryColor")) {
            const Node color = entry.child("Color");
            Add("color", {{"id", TextOf(entry, "id")}},
                {{"r", NumberOf(color, "r")}, {"g", NumberOf(color, "g")}, {"b", NumberOf(color, "b")}});
        }
    }

    void AddReferences(std::string_view kind, const char * element)
    {
        double place = 0;
        for (const Node reference : m_file.Content().children(element)) {
            Add(kind, {{"name", NameIn(reference)}}, {{"place", place++}});
        }
    }

    void AddDictionaries()
    {
        for (const Node dictionary : m_file.Content().children("DictionaryStandard")) {
            Add("dictionary", {{"units", TextOf(dictionary, "units")}});
            for (const Node entry : dictionary.children("EntryStandard")) {
                Shape all;
                for (const Node child : entry.children()) {
                    const Shape own = FileShapes::ShapeOf(child);
                    all = own.outlines.empty() ? all : own;
                }
                AddShape(DictionaryEntryKind, {{"id", TextOf(entry, "id")}}, all, m_facts);
            }
        }
    }

    void AddLogistics()
    {
        // Of several persons the last one counts, as in the model.
        const Node header = m_file.Root().child("LogisticHeader");
        Add("logistic", {{"role", LastNameOf(header, "Role")}, {"person", LastNameOf(header, "Person")}});
        const Node history = m_file.Root().child("HistoryRecord");
        Add("history", {{"origination", TextOf(history, "origination")}, {"lastChange", TextOf(history, "lastChange")}},
            {{"number", NumberOf(history, "number")}});
    }

    static std::string LastNameOf(Node header, const char * element)
    {
        std::string name;
        for (const Node child : header.children(element)) {
            name = TextOf(child, "name");
        }
        return name;
    }

    void AddBom()
    {
        const Node bom = m_file.Root().child("Bom");
        Add("bom", {{"name", TextOf(bom, "name")}, {"assembly", TextOf(bom.child("BomHeader"), "assembly")}});
        for (const Node item : bom.children("BomItem")) {
            Add("bom-item",
                {{"item", ItemName(item)},
                 {"quantity", TextOf(item, "quantity")},
                 {"category", TextOf(item, "category")},
                 {"description", TextOf(item, "description")},
                 {"pins", EitherOf(item, "numberIO", "pinCount")},
                 {"packageRef", item.attribute("packageRef") ? TextOf(item, "packageRef") : PackageOfItem(item)}});
            for (const Node refDes : item.children("RefDes")) {
                Add("bom-refdes", {{"item", ItemName(item)},
                                   {"name", TextOf(refDes, "name")},
                                   {"populate", FlagWord(FlagOf(refDes, "populate"))}});
            }
        }
    }

    void AddLayers()
    {
        Add("board",
            {{"name", TextOf(m_file.Root().child("Ecad"), "name")}, {"units", TextOf(m_file.CadHeader(), "units")}});
        for (const Node layer : m_file.CadData().children("Layer")) {
            Add("layer", {{"name", TextOf(layer, "name")},
                          {"layerFunction", TextOf(layer, "layerFunction")},
                          {"side", TextOf(layer, "side")},
                          {"polarity", layer.attribute("polarity") ? TextOf(layer, "polarity") : "POSITIVE"}});
            m_layers.try_emplace(TextOf(layer, "name"), layer);
        }
    }

    // The first stackup is that of the board; those behind it are zones of it, and add their groups.
    void AddStackups()
    {
        const Node stackup = m_file.CadData().child("Stackup");
        Add("stackup", {{"whereMeasured", TextOf(stackup, "whereMeasured")}},
            {{"overallThickness", NumberOf(stackup, "overallThickness")},
             {"tolPlus", NumberOf(stackup, "tolPlus")},
             {"tolMinus", NumberOf(stackup, "tolMinus")}});
        for (const Node zone : m_file.CadData().children("Stackup")) {
            for (const Node group : zone.children("StackupGroup")) {
                AddStackupGroup(group);
            }
        }
    }

    void AddStackupGroup(Node group)
    {
        const Word name{"group", TextOf(group, "name")};
        Add("stackup-group", {name},
            {{"thickness", NumberOf(group, "thickness")},
             {"tolPlus", NumberOf(group, "tolPlus")},
             {"tolMinus", NumberOf(group, "tolMinus")}});
        for (const Node layer : group.children("StackupLayer")) {
            const Word ref{"layerOrGroupRef", TextOf(layer, "layerOrGroupRef")};
            Add("stackup-layer", {name, ref}, {{"thickness", NumberOf(layer, "thickness")}});
            Add("material", {name, ref, {"material", MaterialOf(layer)}});
        }
    }

    std::string MaterialOf(Node stackupLayer)
    {
        if (stackupLayer.attribute("materialType")) {
            return TextOf(stackupLayer, "materialType");
        }
        for (const Node reference : stackupLayer.children("SpecRef")) {
            const Node named =
                m_file.CadHeader().find_child_by_attribute("Spec", "name", reference.attribute("id").value());
            const Node general = named.find_child_by_attribute("General", "type", "MATERIAL");
            if (general) {
                return TextOf(general.child("Property"), "text");
            }
        }
        return "";
    }

    void AddStep()
    {
        const Node step = m_file.Step();
        const Point datum = PointOf(step.child("Datum"));
        Add("step", {{"name", TextOf(step, "name")}}, {{"datumX", datum.x}, {"datumY", datum.y}});
        const Node profile = step.child("Profile");
        for (const Node polygon : profile.children("Polygon")) {
            AddShape("profile", {}, {.outlines = {PathOf(polygon)}}, m_facts);
        }
        for (const Node cutout : profile.children("Cutout")) {
            AddShape("profile-cutout", {}, {.outlines = {PathOf(cutout)}}, m_facts);
        }
    }

    // Those of revision A, which lie where they are on the board.
    void AddPadStacks()
    {
        for (const Node stack : m_file.Step().children("PadStack")) {
            const Word net{"net", TextOf(stack, "net")};
            Add("padstack", {net});
            for (const Node pad : stack.children("LayerPad")) {
                const Shape placed = Placed(m_shapes.ShapeIn(pad), FrameIn(pad).transform);
                facts::AddPad("padstack-pad", {net, {"layerRef", TextOf(pad, "layerRef")}, {"pin", PinOf(pad)}}, placed,
                              LocationOf(pad), m_facts);
            }
            for (const Node hole : stack.children("LayerHole")) {
                AddHole("padstack-hole", {net}, hole, hole.child("Span"));
            }
        }
    }

    void AddHole(std::string_view kind, std::vector<Word> words, Node hole, Node span)
    {
        words.insert(words.end(), {{"name", TextOf(hole, "name")},
                                   {"platingStatus", TextOf(hole, "platingStatus")},
                                   {"fromLayer", TextOf(span, "fromLayer")},
                                   {"toLayer", TextOf(span, "toLayer")}});
        Add(kind, words,
            {{"x", NumberOf(hole, "x")},
             {"y", NumberOf(hole, "y")},
             {"diameter", NumberOf(hole, "diameter")},
             {"plusTol", NumberOf(hole, "plusTol")},
             {"minusTol", NumberOf(hole, "minusTol")}});
    }

    void AddPackages()
    {
        for (const Node package : m_file.Step().children("Package")) {
            const Word name{"package", TextOf(package, "name")};
            Add("package", {name, {"type", TextOf(package, "type")}});
            AddStroke("package-outline", {name, {"of", "package"}}, m_shapes.OutlineIn(package), m_facts);
            for (const Node pin : package.children("Pin")) {
                AddPackagePin(name, pin);
            }
            AddMarkings(name, "silk", package.child("SilkScreen"));
            AddMarkings(name, "assembly", package.child("AssemblyDrawing"));
            AddLandPattern(name, package.child("LandPattern"));
        }
    }

    // One that has several places with a shape each is a pin at each of them.
    void AddPackagePin(const Word & package, Node pin)
    {
        const Xform xform = XformOf(pin);
        const std::vector<Word> words{package,
                                      {"number", TextOf(pin, "number")},
                                      {"name", TextOf(pin, "name")},
                                      {"type", TextOf(pin, "type")},
                                      {"electricalType", TextOf(pin, "electricalType")},
                                      {"mirror", FlagWord(xform.mirror)}};
        for (const auto & [location, shape] : PlacesOf(pin)) {
            AddPin(words, {location.x + xform.xOffset, location.y + xform.yOffset}, xform.rotation, shape, m_facts);
        }
    }

    using PlacedShapes = std::vector<std::pair<Point, Shape>>;

    PlacedShapes PlacesOf(Node pin)
    {
        std::vector<Point> places;
        std::vector<Shape> shapes;
        for (const Node child : pin.children()) {
            const std::string_view element = child.name();
            const Shape shape = element == "Outline" ? Shape() : m_shapes.Resolved(child);
            if (!shape.outlines.empty()) {
                shapes.push_back(shape);
            }
            if (element == "Location") {
                places.push_back(PointOf(child));
            }
        }
        // Without any other shape it is its outline.
        shapes.resize(std::max(places.size(), std::size_t(1)), m_shapes.Resolved(pin.child("Outline")));
        places.resize(shapes.size());
        PlacedShapes pairs;
        for (std::size_t i = 0; i < places.size(); ++i) {
            pairs.emplace_back(places[i], shapes[i]);
        }
        return pairs;
    }

    void AddMarkings(const Word & package, const char * use, Node drawing)
    {
        const std::vector<Word> words{package, {"of", use}};
        AddStroke("package-outline", words, m_shapes.OutlineIn(drawing), m_facts);
        for (const char * const element : {"Marking", "Target"}) {
            for (const Node marking : drawing.children(element)) {
                AddMarked(words, marking);
            }
        }
    }

    void AddMarked(const std::vector<Word> & words, Node marking)
    {
        AddDrawing({"package-marking", "package-marking", "text"}, words, m_shapes.DrawingIn(marking, FrameIn(marking)),
                   m_facts);
    }

    void AddLandPattern(const Word & package, Node pattern)
    {
        for (const Node pad : pattern.children("Pad")) {
            const Shape placed = Placed(m_shapes.ShapeIn(pad), FrameIn(pad).transform);
            facts::AddPad("land-pattern-pad", {package, {"pin", PinOf(pad)}}, placed, LocationOf(pad), m_facts);
        }
        for (const Node target : pattern.children("Target")) {
            AddMarked({package, {"of", "land pattern"}}, target);
        }
    }

    void AddComponents()
    {
        for (const Node component : m_file.Step().children("Component")) {
            const Word refDes{"refDes", TextOf(component, "refDes")};
            const Point place = LocationOf(component);
            Add("component",
                {refDes,
                 {"packageRef", TextOf(component, "packageRef")},
                 {"layerRef", TextOf(component, "layerRef")},
                 {"part", TextOf(component, "part")},
                 {"mountType", TextOf(component, "mountType")}},
                {{"x", place.x},
                 {"y", place.y},
                 {"standoff", NumberOf(component, "standoff")},
                 {"height", NumberOf(component, "height")}});
            const Xform xform = XformOf(component);
            Add("component-xform", {refDes, {"mirror", FlagWord(xform.mirror)}},
                {{"rotation", Turn(xform.rotation)},
                 {"xOffset", xform.xOffset},
                 {"yOffset", xform.yOffset},
                 {"scale", xform.scale}});
        }
    }

    void AddNets()
    {
        if (!m_file.Step().child("LogicalNet")) {
            AddNetsOfSets();
            return;
        }
        for (const Node net : m_file.Step().children("LogicalNet")) {
            const std::string name = TextOf(net, "name");
            Add("net", {{"name", name}});
            for (const Node pin : net.children()) {
                const std::string_view element = pin.name();
                if (element == "PinRef" || element == "LogicalNetPin") {
                    AddNetPin(name, pin);
                }
            }
        }
    }

    void AddNetPin(const std::string & net, Node pin)
    {
        Add("net-pin", {{"net", net}, {"componentRef", TextOf(pin, "componentRef")}, {"pin", TextOf(pin, "pin")}});
    }

    // Each net and each pin once, although every layer names them.
    void AddNetsOfSets()
    {
        std::set<std::string> nets;
        std::set<std::string> pins;
        for (const Node feature : m_file.Step().children("LayerFeature")) {
            for (const Node set : feature.children("Set")) {
                const std::string net = TextOf(set, "net");
                if (net.empty()) {
                    continue;
                }
                if (nets.insert(net).second) {
                    Add("net", {{"name", net}});
                }
                AddPinsOfSet(net, set, pins);
            }
        }
    }

    void AddPinsOfSet(const std::string & net, Node set, std::set<std::string> & known)
    {
        for (const Node pad : set.children("Pad")) {
            for (const Node pin : pad.children("PinRef")) {
                const std::string key = net + '\n' + TextOf(pin, "componentRef") + '\n' + TextOf(pin, "pin");
                if (known.insert(key).second) {
                    AddNetPin(net, pin);
                }
            }
        }
    }

    void AddPhyNets()
    {
        for (const Node group : m_file.Step().children("PhyNetGroup")) {
            for (const Node net : group.children("PhyNet")) {
                Add("phynet", {{"name", TextOf(net, "name")}});
                for (const Node point : net.children("PhyNetPoint")) {
                    AddPhyNetPoint(TextOf(net, "name"), point);
                }
            }
        }
    }

    void AddPhyNetPoint(const std::string & net, Node point)
    {
        Add("phynet-point",
            {{"net", net},
             {"layerRef", TextOf(point, "layerRef")},
             {"netNode", TextOf(point, "netNode")},
             {"exposure", TextOf(point, "exposure")},
             {"via", FlagWord(FlagOf(point, "via"))},
             {"test", FlagWord(FlagOf(point, "test"))},
             {"shape", TextOf(point.child("StandardPrimitiveRef"), "id")}},
            {{"x", NumberOf(point, "x")}, {"y", NumberOf(point, "y")}});
    }

    void AddLayerFeatures()
    {
        std::set<std::pair<std::string, std::string>> colors;
        for (const Node feature : m_file.Step().children("LayerFeature")) {
            const std::string layer = TextOf(feature, "layerRef");
            for (const Node set : feature.children("Set")) {
                for (const Node color : set.children("ColorRef")) {
                    colors.insert({layer, TextOf(color, "id")});
                }
                // Negative sets take away what others have drawn, for which the model has no place.
                if (TextOf(set, "polarity") != "NEGATIVE") {
                    AddSet(layer, set);
                }
            }
        }
        for (const auto & [layer, color] : colors) {
            Add("set-color", {{"layerRef", layer}, {"id", color}});
        }
    }

    void AddSet(const std::string & layer, Node set)
    {
        const std::vector<Word> words{{"layerRef", layer}, {"net", TextOf(set, "net")}};
        for (const Node features : set.children("Features")) {
            AddDrawing({"track", "area", "text"}, words, m_shapes.DrawingIn(features, FrameIn(features)), m_facts);
        }
        for (const Node slot : set.children("SlotCavity")) {
            AddShape("area", words, Placed(m_shapes.ShapeIn(slot), FrameIn(slot).transform), m_facts);
        }
        for (const Node hole : set.children("Hole")) {
            const Node span = hole.child("Span");
            AddHole("hole", words, hole, span ? span : m_layers[layer].child("Span"));
        }
        for (const Node pad : set.children("Pad")) {
            AddPadOfSet(words, layer, set, pad);
        }
    }

    void AddPadOfSet(std::vector<Word> words, const std::string & layer, Node set, Node pad)
    {
        words.insert(words.end(), {{"pin", PinOf(pad)},
                                   {"testPoint", FlagWord(FlagOf(set, "testPoint"))},
                                   {"plate", FlagWord(FlagOf(set, "plate"))},
                                   {"padUsage", TextOf(set, "padUsage")}});
        Shape shape = m_shapes.ShapeIn(pad);
        if (shape.outlines.empty()) {
            shape = ShapeOfPadStack(TextOf(pad, "padstackDefRef"), layer);
        }
        facts::AddPad("pad", words, Placed(shape, FrameIn(pad).transform), LocationOf(pad), m_facts);
    }

    Shape ShapeOfPadStack(const std::string & name, const std::string & layer)
    {
        const Node stack = m_file.Step().find_child_by_attribute("PadStackDef", "name", name.c_str());
        Node found;
        for (const Node pad : stack.children("PadstackPadDef")) {
            const bool isBetter = !found || TextOf(pad, "padUse") == "REGULAR";
            if (TextOf(pad, "layerRef") == layer && isBetter) {
                found = pad;
            }
        }
        return Placed(m_shapes.ShapeIn(found), FrameIn(found).transform);
    }

    const BoardFile & m_file;
    FileShapes m_shapes;
    std::map<std::string, Node> m_layers;
    Facts m_facts;
};

}  // namespace

Facts FactsOfFile(const std::string & path)
{
    const BoardFile file(path);
    return Collector(file).Collect();
}

}  // namespace ipc2581::facts
