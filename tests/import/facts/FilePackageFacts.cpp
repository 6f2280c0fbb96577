#include <algorithm>
#include <cstddef>
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
        AddPackages();
        AddComponents();
    }

private:
    void AddPackages()
    {
        for (const Node package : m_file.Step().children("Package")) {
            const Word name{"package", TextOf(package, "name")};
            AddFact(m_facts, "package", {name, {"type", TextOf(package, "type")}});
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
            const Shape placed = m_shapes.PlacedShapeIn(pad);
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
            AddFact(m_facts, "component",
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
            AddFact(m_facts, "component-xform", {refDes, {"mirror", FlagWord(xform.mirror)}},
                    {{"rotation", Turn(xform.rotation)},
                     {"xOffset", xform.xOffset},
                     {"yOffset", xform.yOffset},
                     {"scale", xform.scale}});
        }
    }

    const BoardFile & m_file;
    FileShapes m_shapes;
    Facts & m_facts;
};

}  // namespace

void AddPackageFacts(const BoardFile & file, Facts & facts)
{
    Collector(file, facts).Collect();
}

}  // namespace ipc2581::facts
