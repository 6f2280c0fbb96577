#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "tests/import/facts/Drawing.h"
#include "tests/import/facts/FileFactParts.h"
#include "tests/import/facts/FileShapes.h"
#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

using Node = pugi::xml_node;

class Collector {
public:
    Collector(const BoardFile & file, Facts & facts) : m_file(file), m_shapes(file), m_facts(facts) {}

    void Collect()
    {
        AddStep();
        AddPadStacks();
        AddLayerFeatures();
    }

private:
    void AddStep()
    {
        const Node step = m_file.Step();
        const Point datum = PointOf(step.child("Datum"));
        AddFact(m_facts, "step", {{"name", TextOf(step, "name")}}, {{"datumX", datum.x}, {"datumY", datum.y}});
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
            AddFact(m_facts, "padstack", {net});
            for (const Node pad : stack.children("LayerPad")) {
                const Shape placed = m_shapes.PlacedShapeIn(pad);
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
        AddFact(m_facts, kind, words,
                {{"x", NumberOf(hole, "x")},
                 {"y", NumberOf(hole, "y")},
                 {"diameter", NumberOf(hole, "diameter")},
                 {"plusTol", NumberOf(hole, "plusTol")},
                 {"minusTol", NumberOf(hole, "minusTol")}});
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
            AddFact(m_facts, "set-color", {{"layerRef", layer}, {"id", color}});
        }
    }

    void AddSet(const std::string & layer, Node set)
    {
        const std::vector<Word> words{{"layerRef", layer}, {"net", TextOf(set, "net")}};
        for (const Node features : set.children("Features")) {
            AddDrawing({"track", "area", "text"}, words, m_shapes.DrawingIn(features, FrameIn(features)), m_facts);
        }
        for (const Node slot : set.children("SlotCavity")) {
            AddShape("area", words, m_shapes.PlacedShapeIn(slot), m_facts);
        }
        for (const Node hole : set.children("Hole")) {
            const Node span = hole.child("Span");
            AddHole("hole", words, hole, span ? span : LayerOf(layer).child("Span"));
        }
        for (const Node pad : set.children("Pad")) {
            AddPadOfSet(words, layer, set, pad);
        }
    }

    Node LayerOf(const std::string & name)
    {
        return m_file.CadData().find_child_by_attribute("Layer", "name", name.c_str());
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
        return m_shapes.PlacedShapeIn(found);
    }

    const BoardFile & m_file;
    FileShapes m_shapes;
    Facts & m_facts;
};

}  // namespace

void AddFeatureFacts(const BoardFile & file, Facts & facts)
{
    Collector(file, facts).Collect();
}

}  // namespace ipc2581::facts
