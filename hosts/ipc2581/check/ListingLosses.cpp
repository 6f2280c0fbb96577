#include "hosts/ipc2581/check/ListingLosses.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

#include "hosts/ipc2581/check/LineTags.h"

namespace ipc2581::host {
namespace {

// What the file has.
struct Tally {
    std::size_t items = 0;
    std::size_t designators = 0;
    std::size_t components = 0;
    std::size_t nets = 0;
    std::size_t pins = 0;
    std::size_t physicalNets = 0;
    std::size_t points = 0;
    // Words that the reader takes otherwise.
    std::size_t fitted = 0;
    std::size_t mirrored = 0;
    std::size_t vias = 0;
    // Values under a name that the reader passes over.
    std::size_t partNumbers = 0;
    std::size_t pinCounts = 0;
};

// True for an XML reader, and not for the library's.
bool IsOtherTrue(std::string_view value)
{
    return value == "true" || value == "True" || value == "1";
}

bool IsElsewhere(const Tag & tag, std::string_view used, std::string_view taken)
{
    return !tag.Value(used).empty() && tag.Value(taken).empty();
}

void Add(const Tag & tag, Tally & tally)
{
    const std::string_view name = tag.LocalName();
    if (name == "BomItem") {
        ++tally.items;
        tally.partNumbers += IsElsewhere(tag, "OEMDesignNumberRef", "internalPartNumber") ? 1 : 0;
        tally.pinCounts += IsElsewhere(tag, "pinCount", "numberIO") ? 1 : 0;
    }
    else if (name == "RefDes") {
        ++tally.designators;
        tally.fitted += IsOtherTrue(tag.Value("populate")) ? 1 : 0;
    }
    else if (name == "Component") {
        ++tally.components;
    }
    else if (name == "LogicalNet") {
        ++tally.nets;
    }
    else if (name == "LogicalNetPin" || name == "PinRef") {
        ++tally.pins;
    }
    else if (name == "PhyNet") {
        ++tally.physicalNets;
    }
    else if (name == "PhyNetPoint") {
        ++tally.points;
        tally.vias += IsOtherTrue(tag.Value("via")) ? 1 : 0;
    }
}

Tally TallyOf(const std::string & path)
{
    Tally tally;
    bool isInComponent = false;
    ForEachTag(path, [&](const Tag & tag) {
        const std::string_view name = tag.LocalName();
        if (name == "Component") {
            isInComponent = !tag.isClosing;
        }
        if (tag.isClosing) {
            return;
        }
        if (name == "Xform" && isInComponent) {
            tally.mirrored += IsOtherTrue(tag.Value("mirror")) ? 1 : 0;
        }
        Add(tag, tally);
    });
    return tally;
}

// The causes, with a separator between them.
class Causes {
public:
    void Add(const std::string & cause) { m_text.append(m_text.empty() ? "" : "; ").append(cause); }

    // Of things in the plural.
    void AddMissing(const std::string & things, std::size_t inFile, std::size_t inModel)
    {
        if (inFile == 0 && inModel == 0) {
            Add("no " + things + " in the file");
        }
        else if (inModel < inFile) {
            Add(std::to_string(inFile - inModel) + " of " + std::to_string(inFile) + " " + things + " missing");
        }
    }

    // Of a thing in the singular.
    void AddOtherwise(std::size_t count, const std::string & thing, const std::string & listed,
                      const std::string & cause)
    {
        if (count != 0) {
            Add(std::to_string(count) + " " + thing + (count == 1 ? "" : "s") + " listed " + listed + " (" + cause +
                ")");
        }
    }

    [[nodiscard]] const std::string & Text() const { return m_text; }

private:
    std::string m_text;
};

void AddItems(Board & board, const Tally & tally, Causes & causes)
{
    const auto & items = board.Root().m_Bom.m_arrBomItem;
    std::size_t designators = 0;
    for (const CIPC2581_Bom_BomItem * const item : Each(items)) {
        designators += Count(item->m_arrRefDes);
    }
    causes.AddMissing("BOM items", tally.items, Count(items));
    if (tally.items != 0) {
        causes.AddMissing("designators", tally.designators, designators);
    }
    causes.AddOtherwise(tally.fitted, "designator", "as not fitted", "populate is not \"TRUE\" in upper case");
    causes.AddOtherwise(tally.partNumbers, "BOM item", "without a part number", "OEMDesignNumberRef in the file");
    causes.AddOtherwise(tally.pinCounts, "BOM item", "without pins", "pinCount in the file");
}

// Components on layers that the reader has lost.
std::size_t CountWithoutSide(Board & board)
{
    std::set<std::string> layers;
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        layers.insert(Str(layer->name));
    }
    std::size_t count = 0;
    for (const CIPC2581_Ecad_CadData_Step_Component * const component : Each(board.Step().ComponentArray)) {
        count += layers.contains(Str(component->LayerRef)) ? 0 : 1;
    }
    return count;
}

void AddComponents(Board & board, const Tally & tally, Causes & causes)
{
    causes.AddMissing("components", tally.components, Count(board.Step().ComponentArray));
    causes.AddOtherwise(CountWithoutSide(board), "component", "without a side", "on a layer that was not read");
    causes.AddOtherwise(tally.mirrored, "component", "as not mirrored", "mirror is not \"TRUE\" in upper case");
}

void AddLogicalNets(Board & board, const Tally & tally, Causes & causes)
{
    std::size_t pins = 0;
    for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(board.Step().LogicalNetArray)) {
        pins += Count(net->LogicalNetPinArray);
    }
    causes.AddMissing("logical nets", tally.nets, Count(board.Step().LogicalNetArray));
    if (tally.nets != 0) {
        causes.AddMissing("pins of nets", tally.pins, pins);
    }
}

void AddPhysicalNets(Board & board, const Tally & tally, Causes & causes)
{
    const auto & nets = board.Step().PhyNetGroup.PhyNetArray;
    std::size_t points = 0;
    for (const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet * const net : Each(nets)) {
        points += Count(net->PhyNetPointArray);
    }
    causes.AddMissing("physical nets", tally.physicalNets, Count(nets));
    if (tally.physicalNets != 0) {
        causes.AddMissing("points of nets", tally.points, points);
    }
    causes.AddOtherwise(tally.vias, "point", "as no via", "via is not \"TRUE\" in upper case");
}

}  // namespace

std::string ListingLosses(Board & board, std::initializer_list<Listed> listed)
{
    const Tally tally = TallyOf(board.File().PlainPath());
    Causes causes;
    for (const Listed what : listed) {
        switch (what) {
        case Listed::Items:
            AddItems(board, tally, causes);
            break;
        case Listed::Components:
            AddComponents(board, tally, causes);
            break;
        case Listed::LogicalNets:
            AddLogicalNets(board, tally, causes);
            break;
        case Listed::PhysicalNets:
            AddPhysicalNets(board, tally, causes);
            break;
        }
    }
    return causes.Text();
}

}  // namespace ipc2581::host
