#include "hosts/ipc2581/listings/InfoListing.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/BoardFeatures.h"
#include "hosts/ipc2581/board/BoardSize.h"
#include "hosts/ipc2581/board/BomFacts.h"
#include "hosts/ipc2581/board/Copper.h"
#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/board/ShapeElements.h"
#include "hosts/ipc2581/geometry/Extents.h"
#include "hosts/ipc2581/listings/LayerTables.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

// Where shapes stand.
enum Place { InFeatures, InSilkScreens, InOutlines, InDictionary, PlaceCount };

// Shapes by the name of their element, in the order of their draw types.
class ShapeCounts {
public:
    void Add(const CIPC2581_DrawObj & shape, Place place)
    {
        VisitShape(shape, [&](int key, const char * name) { AddOne(key, name, place); });
    }

    void AddAll(const CIPC2581_DrawObjArray & shapes, Place place)
    {
        for (const CIPC2581_DrawObj * const shape : Each(shapes)) {
            Add(*shape, place);
        }
    }

    // A polygon that is there in the model, and in the file only if it has steps.
    void AddOutline(const CIPC2581_Polygon & polygon, Place place)
    {
        if (!polygon.PolyStepArray->IsEmpty()) {
            Add(polygon, place);
        }
    }

    void Print(Table & table) const
    {
        for (const auto & [key, counted] : m_counts) {
            const std::array<std::size_t, PlaceCount> & at = counted.places;
            table.Add({counted.name, at[InFeatures], at[InSilkScreens], at[InOutlines], at[InDictionary]});
        }
    }

private:
    struct Counted {
        const char * name = "";
        std::array<std::size_t, PlaceCount> places{};
    };

    void AddOne(int key, const char * name, Place place)
    {
        Counted & counted = m_counts[key];
        counted.name = name;
        ++counted.places[place];
    }

    std::map<int, Counted> m_counts;
};

// All that is counted in one walk through the model.
struct Counts {
    std::size_t padStackPads = 0;
    std::size_t pins = 0;
    std::size_t landPads = 0;
    std::size_t targets = 0;
    std::size_t netPins = 0;
    std::size_t points = 0;
    std::size_t sets = 0;
    std::array<std::size_t, 3> setsByKind{};
    std::size_t designators = 0;
    std::size_t fitted = 0;
    std::size_t stackupLayers = 0;
    ShapeCounts shapes;
};

void CountPackages(CIPC2581_Ecad_CadData_Step & step, Counts & counts)
{
    for (const CIPC2581_Ecad_CadData_Step_Package * const package : Each(step.PackageArray)) {
        counts.shapes.AddOutline(*package->Outline->Polygon, InOutlines);
        counts.shapes.AddOutline(*package->AssemblyDrawing.Outline->Polygon, InOutlines);
        counts.landPads += Count(package->LandPattern.PadArray);
        for (const CIPC2581_Ecad_CadData_Step_Target * const target : Each(package->SilkScreen.TargetArray)) {
            ++counts.targets;
            counts.shapes.AddAll(*target->DrawObjArray, InSilkScreens);
        }
        for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(package->PinArray)) {
            ++counts.pins;
            counts.shapes.AddOutline(*pin->Outline.Polygon, InOutlines);
        }
    }
}

void CountSets(CIPC2581_Ecad_CadData_Step & step, Counts & counts)
{
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(step.LayerFeatureArray)) {
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature_Set * const set : Each(feature->SetArray)) {
            ++counts.sets;
            ++counts.setsByKind[static_cast<std::size_t>(set->Kind)];
            counts.shapes.AddAll(set->Features.DrawObjArray, InFeatures);
        }
    }
}

Counts CountAll(Board & board)
{
    Counts counts;
    CIPC2581_Ecad_CadData_Step & step = board.Step();
    for (const CIPC2581_Content_DictionaryStandard_EntryStandard * const entry :
         Each(board.Content().DictionaryStandard->EntryArray)) {
        counts.shapes.AddAll(*entry->DrawArray, InDictionary);
    }
    for (const CIPC2581_Bom_BomItem * const item : Each(board.Root().m_Bom.m_arrBomItem)) {
        for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item->m_arrRefDes)) {
            ++counts.designators;
            counts.fitted += refDes->populate ? 1 : 0;
        }
    }
    for (const CIPC2581_Ecad_CadData_Stackup_StackupGroup * const group :
         Each(board.CadData().m_Stackup.StackupGroupArray)) {
        counts.stackupLayers += Count(group->StackupLayerArray);
    }
    for (const CIPC2581_Ecad_CadData_Step_PadStack * const padStack : Each(step.PadStackArray)) {
        counts.padStackPads += Count(padStack->LayerPadArray);
    }
    for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(step.LogicalNetArray)) {
        counts.netPins += Count(net->LogicalNetPinArray);
    }
    for (const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet * const net : Each(step.PhyNetGroup.PhyNetArray)) {
        counts.points += Count(net->PhyNetPointArray);
    }
    CountPackages(step, counts);
    CountSets(step, counts);
    counts.shapes.AddOutline(*step.Profile.Polygon, InOutlines);
    counts.shapes.AddAll(*step.Profile.Cutouts, InOutlines);
    return counts;
}

// The references that stood in text form; the others are empty entries.
std::vector<std::string> Named(const CStringArray & list)
{
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < list.GetSize(); ++i) {
        if (!list[i].IsEmpty()) {
            names.push_back(Shown(list[i]));
        }
    }
    return names;
}

std::size_t CountCopperLayers(const CIPC2581_Ecad_CadData & cadData)
{
    const auto layers = Each(cadData.m_arrLayer);
    return static_cast<std::size_t>(
        std::count_if(layers.begin(), layers.end(),
                      [](const CIPC2581_Ecad_CadData_Layer * layer) { return IsCopper(layer->layerFunction); }));
}

struct PinCounts {
    std::size_t all = 0;  // of all components
    std::size_t onNets = 0;
};

PinCounts CountPins(CIPC2581_Ecad_CadData_Step & step)
{
    std::unordered_map<std::string_view, std::size_t> pinsOfPackages;
    for (const CIPC2581_Ecad_CadData_Step_Package * const package : Each(step.PackageArray)) {
        // A pin may have several places.
        std::set<std::string_view> numbers;
        for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(package->PinArray)) {
            numbers.insert(pin->number);
        }
        pinsOfPackages.emplace(package->name, numbers.size());
    }
    PinCounts pins;
    for (const CIPC2581_Ecad_CadData_Step_Component * const component : Each(step.ComponentArray)) {
        const auto found = pinsOfPackages.find(component->PackageRef);
        pins.all += found == pinsOfPackages.end() ? 0 : found->second;
    }
    for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(step.LogicalNetArray)) {
        pins.onNets += Count(net->LogicalNetPinArray);
    }
    return pins;
}

// The smaller of two measures, of which one that is not above 0 says nothing.
double Smaller(double left, double right)
{
    return right > 0.0 && (left <= 0.0 || right < left) ? right : left;
}

Cell SmallestHole(Board & board, const Lengths & lengths)
{
    double smallest = 0.0;
    for (const HolePlace & place : HolesOf(board)) {
        smallest = Smaller(smallest, NumberOf(Str(place.hole->Diameter)).value_or(0.0));
    }
    return smallest > 0.0 ? Cell(lengths.Of(smallest)) : Cell();
}

Cell SmallestTrack(Board & board, const Lengths & lengths)
{
    double smallest = 0.0;
    for (const Track & track : TracksOf(board)) {
        smallest = Smaller(smallest, track.line->LineWidth);
    }
    return smallest > 0.0 ? Cell(lengths.Of(smallest)) : Cell();
}

// What people ask first of a board.
void ListBoard(Board & board, const Lengths & lengths, Values & values)
{
    const Extents extents = ExtentsOf(board.Step());
    const auto ofExtents = [&](double length) { return extents.IsEmpty() ? Cell() : Cell(lengths.Of(length)); };
    const PinCounts pins = CountPins(board.Step());
    values.Add("name", Shown(board.Root().m_Ecad.name));
    values.Add("step", Shown(board.Step().Name));
    values.Add("units", Shown(board.Root().m_Ecad.m_CadHeader.units));
    values.Add(lengths.Named("width"), ofExtents(extents.MaxX() - extents.MinX()));
    values.Add(lengths.Named("height"), ofExtents(extents.MaxY() - extents.MinY()));
    values.Add(lengths.Named("thickness"), ThicknessOf(board.CadData().m_Stackup, lengths));
    values.Add("copper layers", CountCopperLayers(board.CadData()));
    values.Add("components", Count(board.Step().ComponentArray));
    values.Add("pins", pins.all);
    values.Add("nets", Count(board.Step().LogicalNetArray));
    values.Add("pins on nets", pins.onNets);
    values.Add("holes", HolesOf(board).size());
    values.Add(lengths.Named("smallest hole"), SmallestHole(board, lengths));
    values.Add(lengths.Named("smallest track"), SmallestTrack(board, lengths));
}

// Components by the side on which they stand.
void ListParts(Board & board, Table & table)
{
    struct Parts {
        std::size_t all = 0;
        std::size_t fitted = 0;
        std::size_t notFitted = 0;
    };
    const BomFacts facts(board);
    const auto sides = SidesOfLayers(board);
    std::map<std::string, Parts> partsOfSides;
    for (const CIPC2581_Ecad_CadData_Step_Component * const component : Each(board.Step().ComponentArray)) {
        const auto side = sides.find(Shown(component->LayerRef));
        Parts & parts = partsOfSides[side == sides.end() ? "" : side->second];
        const std::optional<bool> isFitted = facts.IsFitted(Shown(component->RefDes));
        ++parts.all;
        parts.fitted += isFitted == true ? 1U : 0U;
        parts.notFitted += isFitted == false ? 1U : 0U;
    }
    const auto add = [&](const std::string & side) {
        const auto found = partsOfSides.find(side);
        if (found != partsOfSides.end()) {
            const Parts & parts = found->second;
            table.Add({side, parts.all, parts.fitted, parts.notFitted, parts.all - parts.fitted - parts.notFitted});
            partsOfSides.erase(found);
        }
    };
    add("TOP");
    add("BOTTOM");
    while (!partsOfSides.empty()) {
        add(std::string(partsOfSides.begin()->first));
    }
}

void ListHoles(Board & board, const Lengths & lengths, Table & table)
{
    struct Holes {
        std::size_t all = 0;
        std::map<std::string, std::size_t> platings;
    };
    // By what a listing shows of a diameter, since 0.4 and 0.40 are one; in the order of size.
    std::map<std::pair<double, std::string>, Holes> holes;
    for (const HolePlace & place : HolesOf(board)) {
        const Cell diameter = lengths.Of(place.hole->Diameter);
        Holes & own = holes[{NumberOf(Str(place.hole->Diameter)).value_or(0.0), diameter.Text()}];
        ++own.all;
        ++own.platings[Shown(place.hole->PlatingStatus)];
    }
    for (auto & [diameter, own] : holes) {
        const std::size_t plated = own.platings["PLATED"];
        const std::size_t vias = own.platings["VIA"];
        const std::size_t nonPlated = own.platings["NONPLATED"];
        table.Add({CountOf(diameter.second), own.all, plated, vias, nonPlated, own.all - plated - vias - nonPlated});
    }
}

void ListDocument(Board & board, Values & values)
{
    const CIPC2581_Parser & root = board.Root();
    const CIPC2581_Content & content = root.m_Content;
    const CIPC2581_HistoryRecord & history = root.m_HistoryRecord;
    values.Add("dictionary units", Shown(content.DictionaryStandard->Unit));
    values.Add("function mode", Shown(content.FunctionMode));
    values.Add("function level", Shown(content.FunctionModeLevel));
    values.Add("step references", Named(content.StepRef));
    values.Add("layer references", Named(content.LayerRef));
    values.Add("BOM references", Named(content.BomRef));
    values.Add("role", Shown(root.m_LogisticHeader.m_strRoleName));
    values.Add("person", Shown(root.m_LogisticHeader.m_strPersonName));
    values.Add("history number", history.number);
    values.Add("origination", Shown(history.origination));
    values.Add("tool", Shown(history.toolRef));
    values.Add("last change", Shown(history.lastChange));
    values.Add("BOM", Shown(root.m_Bom.name));
    values.Add("assembly", Shown(root.m_Bom.assembly));
}

void ListProfile(const CIPC2581_Ecad_CadData_Step & step, const Lengths & lengths, Values & values)
{
    const Extents extents = ExtentsOf(step);
    const auto add = [&](const char * name, double length) {
        values.Add(lengths.Named(name), extents.IsEmpty() ? Cell() : Cell(lengths.Of(length)));
    };
    add("left", extents.MinX());
    add("bottom", extents.MinY());
    add("right", extents.MaxX());
    add("top", extents.MaxY());
    add("width", extents.MaxX() - extents.MinX());
    add("height", extents.MaxY() - extents.MinY());
    values.Add("cutouts", Count(step.Profile.Cutouts));
}

void ListLayers(Board & board, Table & table)
{
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        table.Add({Shown(layer->name), Shown(layer->layerFunction), Shown(layer->side), Shown(layer->polarity)});
    }
}

void ListStackup(const CIPC2581_Ecad_CadData_Stackup & stackup, const Lengths & lengths, Table & table)
{
    for (const CIPC2581_Ecad_CadData_Stackup_StackupGroup * const group : Each(stackup.StackupGroupArray)) {
        for (const CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer * const layer :
             Each(group->StackupLayerArray)) {
            table.Add({Shown(layer->layerOrGroupRef), Shown(group->name), Shown(layer->materialType),
                       lengths.Of(layer->thickness)});
        }
    }
}

void ListThickness(const CIPC2581_Ecad_CadData_Stackup & stackup, const Lengths & lengths, Values & values)
{
    values.Add(lengths.Named("overall"), lengths.Of(stackup.overallThickness));
    values.Add(lengths.Named("tolerance plus"), lengths.Of(stackup.tolPlus));
    values.Add(lengths.Named("tolerance minus"), lengths.Of(stackup.tolMinus));
    values.Add("measured", Shown(stackup.whereMeasured));
}

void ListCounts(Board & board, const Counts & counts, Values & values)
{
    const CIPC2581_Content & content = board.Content();
    const CIPC2581_Ecad_CadData_Step & step = board.Step();
    values.Add("step references", content.StepRef.GetSize());
    values.Add("layer references", content.LayerRef.GetSize());
    values.Add("BOM references", content.BomRef.GetSize());
    values.Add("layers", Count(board.CadData().m_arrLayer));
    values.Add("stackup groups", Count(board.CadData().m_Stackup.StackupGroupArray));
    values.Add("stackup layers", counts.stackupLayers);
    values.Add("pad stacks", Count(step.PadStackArray));
    values.Add("pad stack pads", counts.padStackPads);
    values.Add("packages", Count(step.PackageArray));
    values.Add("package pins", counts.pins);
    values.Add("land pattern pads", counts.landPads);
    values.Add("silk screen targets", counts.targets);
    values.Add("components", Count(step.ComponentArray));
    values.Add("logical nets", Count(step.LogicalNetArray));
    values.Add("logical net pins", counts.netPins);
    values.Add("physical nets", Count(step.PhyNetGroup.PhyNetArray));
    values.Add("physical net points", counts.points);
    values.Add("layer features", Count(step.LayerFeatureArray));
    values.Add("sets", counts.sets);
    values.Add("sets of features", counts.setsByKind[0]);
    values.Add("sets of a pad", counts.setsByKind[1]);
    values.Add("sets of a hole", counts.setsByKind[2]);
    values.Add("BOM items", Count(board.Root().m_Bom.m_arrBomItem));
    values.Add("BOM designators", counts.designators);
    values.Add("BOM designators fitted", counts.fitted);
    values.Add("dictionary entries", Count(content.DictionaryStandard->EntryArray));
    values.Add("colours", Count(content.m_DictionaryColor->Entry));
}

void ListAll(Board & board, const Lengths & lengths, Listing & listing)
{
    const Counts counts = CountAll(board);
    const CIPC2581_Ecad_CadData_Stackup & stackup = board.CadData().m_Stackup;
    ListDocument(board, listing.AddValues("document"));
    ListProfile(board.Step(), lengths, listing.AddValues("profile"));
    ListLayers(board, listing.AddTable("layers", {"layer", "function", "side", "polarity"}));
    ListThickness(stackup, lengths, listing.AddValues("thickness"));
    ListStackup(stackup, lengths,
                listing.AddTable("stackup", {"layer", "group", "material", lengths.Named("thickness")}));
    Table & specs = listing.AddTable("specs", {"spec", "property", "value"});
    for (const SpecProperty & own : SpecProperties(board)) {
        specs.Add({own.spec, own.property, own.value});
    }
    ListCounts(board, counts, listing.AddValues("counts"));
    counts.shapes.Print(listing.AddTable("shapes", {"shape", "features", "silk screens", "outlines", "dictionary"}));
}

}  // namespace

Listing InfoListing(Board & board, const Lengths & lengths, bool isAll)
{
    Listing listing;
    ListBoard(board, lengths, listing.AddValues("board"));
    ListParts(board, listing.AddTable("parts", {"side", "components", "fitted", "not fitted", "not in the BOM"}));
    ListHoles(board, lengths,
              listing.AddTable("holes", {lengths.Named("diameter"), "holes", "plated", "via", "nonplated", "other"}));
    if (isAll) {
        ListAll(board, lengths, listing);
    }
    return listing;
}

}  // namespace ipc2581::host
