#include "hosts/ipc2581/check/ListingLosses.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>

#include "hosts/ipc2581/check/Causes.h"
#include "hosts/ipc2581/check/FeatureCounts.h"
#include "hosts/ipc2581/check/LineTags.h"
#include "hosts/ipc2581/check/LossTable.h"

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

bool IsElsewhere(const Tag & tag, std::string_view used, std::string_view taken)
{
    return !tag.Value(used).empty() && tag.Value(taken).empty();
}

// Counts the tags of a file one after another.
class Tallier {
public:
    void Visit(const Tag & tag)
    {
        const std::string_view name = tag.LocalName();
        m_isInComponent = name == "Component" ? tag.StaysOpen() : m_isInComponent;
        m_isInNet = name == "LogicalNet" ? tag.StaysOpen() : m_isInNet;
        if (!tag.isClosing) {
            Add(name, tag);
        }
    }

    [[nodiscard]] const Tally & Result() const { return m_tally; }

private:
    void Add(std::string_view name, const Tag & tag)
    {
        if (name == "BomItem") {
            ++m_tally.items;
            m_tally.partNumbers += IsElsewhere(tag, "OEMDesignNumberRef", "internalPartNumber") ? 1 : 0;
            m_tally.pinCounts += IsElsewhere(tag, "pinCount", "numberIO") ? 1 : 0;
        }
        else if (name == "RefDes") {
            ++m_tally.designators;
            m_tally.fitted += IsSetUnread(tag.Value("populate")) ? 1 : 0;
        }
        else if (name == "Component") {
            ++m_tally.components;
        }
        else if (name == "Xform") {
            m_tally.mirrored += m_isInComponent && IsSetUnread(tag.Value("mirror")) ? 1 : 0;
        }
        else if (name == "LogicalNet") {
            ++m_tally.nets;
        }
        else if (name == "LogicalNetPin" || (name == "PinRef" && m_isInNet)) {
            ++m_tally.pins;
        }
        else if (name == "PhyNet") {
            ++m_tally.physicalNets;
        }
        else if (name == "PhyNetPoint") {
            ++m_tally.points;
            m_tally.vias += IsSetUnread(tag.Value("via")) ? 1 : 0;
        }
    }

    Tally m_tally;
    bool m_isInComponent = false;
    // Pads have references to pins too.
    bool m_isInNet = false;
};

Tally TallyOf(const std::string & path)
{
    Tallier tallier;
    ForEachTag(path, [&](const Tag & tag) { tallier.Visit(tag); });
    return tallier.Result();
}

void AddItems(Board & board, const Tally & tally, Causes & causes)
{
    const auto & items = board.Root().m_Bom.m_arrBomItem;
    std::size_t designators = 0;
    for (const CIPC2581_Bom_BomItem * const item : Each(items)) {
        designators += Count(item->m_arrRefDes);
    }
    causes.AddMissingOrNone("BOM items", tally.items, Count(items));
    if (tally.items != 0) {
        causes.AddMissingOrNone("designators", tally.designators, designators);
    }
    if (designators != 0) {
        causes.AddOtherwise(tally.fitted, "designator", "listed as not fitted",
                            "populate is not \"TRUE\" in upper case");
    }
    if (!items.IsEmpty()) {
        causes.AddOtherwise(tally.partNumbers, "BOM item", "listed without a part number",
                            "OEMDesignNumberRef in the file");
        causes.AddOtherwise(tally.pinCounts, "BOM item", "listed without pins", "pinCount in the file");
    }
}

void AddComponents(Board & board, const Tally & tally, Causes & causes)
{
    const std::size_t components = Count(board.Step().ComponentArray);
    causes.AddMissingOrNone("components", tally.components, components);
    causes.AddOtherwise(CountWithoutSide(board), "component", "listed without a side", "on a layer that was not read");
    if (components != 0) {
        causes.AddOtherwise(tally.mirrored, "component", "listed as not mirrored",
                            "mirror is not \"TRUE\" in upper case");
    }
}

void AddLogicalNets(Board & board, const Tally & tally, Causes & causes)
{
    std::size_t pins = 0;
    for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(board.Step().LogicalNetArray)) {
        pins += Count(net->LogicalNetPinArray);
    }
    causes.AddMissingOrNone("logical nets", tally.nets, Count(board.Step().LogicalNetArray));
    if (tally.nets != 0) {
        causes.AddMissingOrNone("pins of nets", tally.pins, pins);
    }
}

void AddPhysicalNets(Board & board, const Tally & tally, Causes & causes)
{
    const auto & nets = board.Step().PhyNetGroup.PhyNetArray;
    std::size_t points = 0;
    for (const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet * const net : Each(nets)) {
        points += Count(net->PhyNetPointArray);
    }
    causes.AddMissingOrNone("physical nets", tally.physicalNets, Count(nets));
    if (tally.physicalNets != 0) {
        causes.AddMissingOrNone("points of nets", tally.points, points);
    }
    if (points != 0) {
        causes.AddOtherwise(tally.vias, "point", "listed as no via", "via is not \"TRUE\" in upper case");
    }
}

void AddPackages(const FeatureCounts & file, const FeatureCounts & model, Causes & causes)
{
    causes.AddMissingOrNone("packages", file.packages, model.packages);
    if (model.packages != 0) {
        causes.AddOtherwise(file.heights, "package", "listed without a height", "height is not read");
        causes.AddOtherwise(file.firstPins, "package", "listed without pin one", "pinOne is not read");
    }
}

void AddPads(const FeatureCounts & file, const FeatureCounts & model, Causes & causes)
{
    causes.AddMissingOrNone("pads", file.pads, model.pads);
    if (model.pads != 0) {
        causes.AddOtherwise(file.plated, "pad", "listed as not plated", "plate is not \"TRUE\" in upper case");
        causes.AddOtherwise(file.testPoints, "pad", "listed as no test point",
                            "testPoint is not \"TRUE\" in upper case");
    }
}

bool IsFeature(Listed what)
{
    return what >= Listed::Layers;
}

void AddNamed(Board & board, Listed what, const Tally & tally, Causes & causes)
{
    switch (what) {
    case Listed::Items:
        return AddItems(board, tally, causes);
    case Listed::Components:
        return AddComponents(board, tally, causes);
    case Listed::LogicalNets:
        return AddLogicalNets(board, tally, causes);
    case Listed::PhysicalNets:
        return AddPhysicalNets(board, tally, causes);
    default:
        return;
    }
}

void AddFeature(Listed what, const FeatureCounts & file, const FeatureCounts & model, Causes & causes)
{
    switch (what) {
    case Listed::Layers:
        return causes.AddMissingOrNone("layers", file.layers, model.layers);
    case Listed::Sets:
        return causes.AddMissing("sets", file.sets, model.sets);
    case Listed::StackupLayers:
        return causes.AddMissingOrNone("layers of the stackup", file.stackupLayers, model.stackupLayers);
    case Listed::Packages:
        return AddPackages(file, model, causes);
    case Listed::Pins:
        return causes.AddMissingOrNone("pins of packages", file.pins, model.pins);
    case Listed::Pads:
        return AddPads(file, model, causes);
    case Listed::Holes:
        return causes.AddMissingOrNone("holes", file.holes, model.holes);
    case Listed::Tracks:
        return causes.AddMissingOrNone("tracks", file.tracks, model.tracks);
    default:
        return;
    }
}

}  // namespace

Causes ListingLosses(Board & board, const std::vector<Listed> & listed, Absence absence)
{
    const std::string path = board.File().PlainPath();
    const bool hasFeatures = std::any_of(listed.begin(), listed.end(), IsFeature);
    const bool hasOthers = !std::all_of(listed.begin(), listed.end(), IsFeature);
    const Tally tally = hasOthers ? TallyOf(path) : Tally();
    const FeatureCounts file = hasFeatures ? CountFeaturesInFile(path) : FeatureCounts();
    const FeatureCounts model = hasFeatures ? CountFeaturesInModel(board) : FeatureCounts();
    Causes causes(absence == Absence::Told);
    for (const Listed what : listed) {
        AddNamed(board, what, tally, causes);
        AddFeature(what, file, model, causes);
    }
    return causes;
}

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

}  // namespace ipc2581::host
