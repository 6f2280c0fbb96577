#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "tests/import/facts/Drawing.h"
#include "tests/import/facts/FileFactParts.h"
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

class Collector {
public:
    Collector(const BoardFile & file, Facts & facts) : m_file(file), m_facts(facts) {}

    void Collect()
    {
        AddContent();
        AddDictionaries();
        AddLogistics();
        AddBom();
        AddLayers();
        AddStackups();
    }

private:
    void AddContent()
    {
        const Node mode = m_file.Content().child("FunctionMode");
        AddFact(
            m_facts, "function-mode",
            {{"mode", TextOf(mode, "mode")}, {"level", TextOf(mode, "level")}, {"comment", TextOf(mode, "comment")}});
        AddReferences("step-ref", "StepRef");
        AddReferences("layer-ref", "LayerRef");
        AddReferences("bom-ref", "BomRef");
        for (const Node entry : m_file.Content().child("DictionaryColor").children("EntryColor")) {
            const Node color = entry.child("Color");
            AddFact(m_facts, "color", {{"id", TextOf(entry, "id")}},
                    {{"r", NumberOf(color, "r")}, {"g", NumberOf(color, "g")}, {"b", NumberOf(color, "b")}});
        }
    }

    void AddReferences(std::string_view kind, const char * element)
    {
        double place = 0;
        for (const Node reference : m_file.Content().children(element)) {
            AddFact(m_facts, kind, {{"name", NameIn(reference)}}, {{"place", place++}});
        }
    }

    void AddDictionaries()
    {
        for (const Node dictionary : m_file.Content().children("DictionaryStandard")) {
            AddFact(m_facts, DictionaryKind, {{"units", TextOf(dictionary, "units")}});
            for (const Node entry : dictionary.children("EntryStandard")) {
                std::vector<Shape> shapes;
                for (const Node child : entry.children()) {
                    shapes.push_back(FileShapes::ShapeOf(child));
                }
                AddShape(DictionaryEntryKind, {{"id", TextOf(entry, "id")}}, Joined(shapes), m_facts);
            }
        }
    }

    void AddLogistics()
    {
        // Of several persons the last one counts, as in the model.
        const Node header = m_file.Root().child("LogisticHeader");
        AddFact(m_facts, "logistic", {{"role", LastNameOf(header, "Role")}, {"person", LastNameOf(header, "Person")}});
        const Node history = m_file.Root().child("HistoryRecord");
        AddFact(m_facts, "history",
                {{"origination", TextOf(history, "origination")}, {"lastChange", TextOf(history, "lastChange")}},
                {{"number", NumberOf(history, "number")}});
    }

    // A role is known by its id, by which persons refer to it.
    static std::string LastNameOf(Node header, const char * element)
    {
        std::string name;
        for (const Node child : header.children(element)) {
            name = EitherOf(child, "name", "id");
        }
        return name;
    }

    void AddBom()
    {
        const Node bom = m_file.Root().child("Bom");
        AddFact(m_facts, "bom",
                {{"name", TextOf(bom, "name")}, {"assembly", TextOf(bom.child("BomHeader"), "assembly")}});
        for (const Node item : bom.children("BomItem")) {
            AddFact(m_facts, "bom-item",
                    {{"item", ItemName(item)},
                     {"quantity", TextOf(item, "quantity")},
                     {"category", TextOf(item, "category")},
                     {"description", TextOf(item, "description")},
                     {"pins", EitherOf(item, "numberIO", "pinCount")},
                     {"packageRef", item.attribute("packageRef") ? TextOf(item, "packageRef") : PackageOfItem(item)}});
            for (const Node refDes : item.children("RefDes")) {
                AddFact(m_facts, "bom-refdes",
                        {{"item", ItemName(item)},
                         {"name", TextOf(refDes, "name")},
                         {"populate", FlagWord(!refDes.attribute("populate") || FlagOf(refDes, "populate"))}});
            }
        }
    }

    void AddLayers()
    {
        AddFact(
            m_facts, "board",
            {{"name", TextOf(m_file.Root().child("Ecad"), "name")}, {"units", TextOf(m_file.CadHeader(), "units")}});
        for (const Node layer : m_file.CadData().children("Layer")) {
            AddFact(m_facts, "layer",
                    {{"name", TextOf(layer, "name")},
                     {"layerFunction", TextOf(layer, "layerFunction")},
                     {"side", TextOf(layer, "side")},
                     {"polarity", layer.attribute("polarity") ? TextOf(layer, "polarity") : "POSITIVE"}});
        }
    }

    // The first stackup is that of the board; those behind it are zones of it, and add their groups.
    void AddStackups()
    {
        const Node stackup = m_file.CadData().child("Stackup");
        AddFact(m_facts, "stackup", {{"whereMeasured", TextOf(stackup, "whereMeasured")}},
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
        AddFact(m_facts, "stackup-group", {name},
                {{"thickness", NumberOf(group, "thickness")},
                 {"tolPlus", NumberOf(group, "tolPlus")},
                 {"tolMinus", NumberOf(group, "tolMinus")}});
        for (const Node layer : group.children("StackupLayer")) {
            const Word ref{"layerOrGroupRef", TextOf(layer, "layerOrGroupRef")};
            AddFact(m_facts, "stackup-layer", {name, ref}, {{"thickness", NumberOf(layer, "thickness")}});
            AddFact(m_facts, "material", {name, ref, {"material", MaterialOf(layer)}});
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

    const BoardFile & m_file;
    Facts & m_facts;
};

}  // namespace

void AddDocumentFacts(const BoardFile & file, Facts & facts)
{
    Collector(file, facts).Collect();
}

}  // namespace ipc2581::facts
