#include "hosts/ipc2581/drawing/BoardDrawing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <import/shapes/ShapePaths.h>

#include "hosts/ipc2581/drawing/FormatWords.h"
#include "hosts/ipc2581/drawing/TextsOfParts.h"
#include "hosts/ipc2581/geometry/Extents.h"
#include "hosts/ipc2581/table/Cell.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Component = CIPC2581_Ecad_CadData_Step_Component;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;

double LengthOf(const CString & text)
{
    return NumberOf(text).value_or(0.0);
}

// Two holes with the same text are one, as far as anybody can see.
std::string HoleKey(const Vertex & center, double diameter, int decimals)
{
    std::string key;
    for (const double number : {center.X, center.Y, diameter}) {
        std::array<char, 400> digits;
        const char * const end =
            std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, decimals).ptr;
        const std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
        const bool isZero = text.find_first_not_of("-0.") == std::string_view::npos;
        key.append(isZero ? "0" : text).append(" ");
    }
    return key;
}

const CIPC2581_Outline & OutlineOf(const Package & package)
{
    return package.Outline->Polygon->PolyStepArray->IsEmpty() ? *package.AssemblyDrawing.Outline : *package.Outline;
}

// The first place of each name.
using NamePlaces = std::unordered_map<std::string_view, std::size_t>;

std::size_t PlaceOf(const NamePlaces & places, std::string_view name, std::size_t otherwise)
{
    const auto found = places.find(name);
    return found == places.end() ? otherwise : found->second;
}

class BoardDrawer {
public:
    explicit BoardDrawer(Board & board) : m_step(board.Step())
    {
        m_nameIndex.emplace("", 0);
        SetUnit(board);
        AddShapes(board);
        AddFootprints();
        m_drawing.profile = ProfilePath(m_step.Profile);
        AddLayers(board);
        AddColors(board);
        AddFeatures();
        AddPads();
        AddHoles();
        AddNetsOfPins();
        AddParts();
        ChooseLabels(board);
    }

    Drawing Take() { return std::move(m_drawing); }

private:
    void SetUnit(Board & board)
    {
        const std::string_view unit = board.Root().m_Ecad.m_CadHeader.units;
        const UnitMeasure measure = UnitMeasureOf(unit);
        m_drawing.unit = unit;
        m_drawing.millimetres = measure.millimetres;
        m_drawing.decimals = measure.decimals;
    }

    NameIndex NameOf(std::string_view text)
    {
        const std::string name = Shown(text);
        const auto [place, isNew] = m_nameIndex.try_emplace(name, m_drawing.names.size());
        if (isNew) {
            m_drawing.names.emplace_back(name);
        }
        return static_cast<NameIndex>(place->second);
    }

    void AddShapes(Board & board)
    {
        const CIPC2581_Content_DictionaryStandard & dictionary = *board.Content().DictionaryStandard;
        const double millimetres = UnitMeasureOf(dictionary.Unit).millimetres;
        const bool areBothKnown = millimetres > 0 && m_drawing.millimetres > 0;
        const double scale = areBothKnown ? millimetres / m_drawing.millimetres : 1.0;
        for (const auto * const entry : Each(dictionary.EntryArray)) {
            if (!m_shapes.try_emplace(entry->EntryStandardId, m_drawing.shapes.size()).second) {
                continue;
            }
            m_drawing.shapes.push_back({Shown(entry->EntryStandardId), {}});
            std::vector<Path> & paths = m_drawing.shapes.back().paths;
            for (const CIPC2581_DrawObj * const part : Each(entry->DrawArray)) {
                for (const Path & path : FilledPaths(*part)) {
                    paths.push_back(Placed(path, {.scale = scale}));
                }
            }
        }
    }

    void AddFootprints()
    {
        for (const Package * const package : Each(m_step.PackageArray)) {
            if (m_footprints.try_emplace(package->name, m_drawing.footprints.size()).second) {
                m_drawing.footprints.push_back({Shown(package->name), PadsOf(*package), BodyOf(*package)});
            }
        }
    }

    // The pads of the land pattern, or else the pins: where a file has both, the ones lie on the others.
    std::vector<Item> PadsOf(const Package & package)
    {
        std::vector<Item> pads;
        for (const Pad * const pad : Each(package.LandPattern.PadArray)) {
            AddPad(*pad, 0, pads);
        }
        if (package.LandPattern.PadArray.IsEmpty()) {
            for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(package.PinArray)) {
                AddPlaced(pin->StandardPrimitiveRef, {pin->Location, pin->Xform->Rotation}, pin->number, 0, pads);
            }
        }
        return pads;
    }

    std::vector<Item> BodyOf(const Package & package)
    {
        std::vector<Item> body;
        const CIPC2581_Outline & outline = OutlineOf(package);
        Path path;
        path.AddContour(*outline.Polygon->PolyBegin, *outline.Polygon->PolyStepArray);
        AddStroke(path, *outline.LineDesc, {}, 0, body);
        for (const CIPC2581_Ecad_CadData_Step_Target * const target : Each(package.SilkScreen.TargetArray)) {
            for (const CIPC2581_DrawObj * const shape : Each(target->DrawObjArray)) {
                AddShape(*shape, target->Location, 0, body);
            }
        }
        return body;
    }

    static void AddStroke(const Path & path, const CIPC2581_LineDesc & line, const Vertex & offset, NameIndex net,
                          std::vector<Item> & items)
    {
        if (!path.IsEmpty()) {
            items.push_back({.kind = ItemKind::Stroke,
                             .ends = StrokeEndsOf(line.LineEnd),
                             .paths = {Placed(path, {.location = offset})},
                             .width = line.LineWidth,
                             .net = net});
        }
    }

    static void AddShape(const CIPC2581_DrawObj & shape, const Vertex & offset, NameIndex net,
                         std::vector<Item> & items)
    {
        if (const auto * const polyLine = dynamic_cast<const CIPC2581_PolyLine *>(&shape)) {
            Path path;
            path.AddSteps(*polyLine->PolyBegin, *polyLine->PolyStepArray);
            AddStroke(path, *polyLine->LineDesc, offset, net, items);
            return;
        }
        if (const auto * const line = dynamic_cast<const CIPC2581_Line *>(&shape)) {
            const Vertex start = *line->StartPoint->Point;
            const Vertex end = *line->EndPoint->Point;
            // The reader makes a line without a place of every line description that stands outside a shape that it
            // knows.
            if (start != Vertex() || end != Vertex()) {
                Path path;
                path.MoveTo(start);
                path.LineTo(end);
                AddStroke(path, *line->LineDesc, offset, net, items);
            }
            return;
        }
        Item item{.net = net};
        for (const Path & path : FilledPaths(shape)) {
            item.paths.push_back(Placed(path, {.location = offset}));
        }
        if (!item.paths.empty()) {
            items.push_back(std::move(item));
        }
    }

    // A shape of the dictionary; nothing for one that is not there.
    void AddPlaced(const CString & id, const Placement & placement, const CString & pin, NameIndex net,
                   std::vector<Item> & items)
    {
        const auto found = m_shapes.find(id);
        if (found != m_shapes.end()) {
            items.push_back({.shape = found->second, .placement = placement, .net = net, .pin = NameOf(pin)});
        }
    }

    void AddPad(const Pad & pad, NameIndex net, std::vector<Item> & items)
    {
        AddPlaced(pad.StandardPrimitiveRefId, {pad.Location, pad.Rotation}, pad.Pin, net, items);
    }

    DrawnLayer & LayerOf(const CString & name)
    {
        const auto [place, isNew] = m_layers.try_emplace(name, m_drawing.layers.size());
        if (isNew) {
            m_drawing.layers.push_back({.name = Shown(name)});
        }
        return m_drawing.layers[place->second];
    }

    void AddLayers(Board & board)
    {
        for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
            if (!m_layers.contains(layer->name)) {
                DrawnLayer & added = LayerOf(layer->name);
                added.function = Shown(layer->layerFunction);
                added.role = LayerRoleOf(added.function);
                added.side = SideOf(layer->side);
                added.isNegative = layer->polarity == "NEGATIVE";
            }
        }
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(m_step.LayerFeatureArray)) {
            LayerOf(feature->LayerRef).hasFeatures = true;
        }
    }

    void AddColors(Board & board)
    {
        std::unordered_map<std::string_view, Color> colors;
        for (const auto * const entry : Each(board.Content().m_DictionaryColor->Entry)) {
            colors.try_emplace(entry->EntryColorId, Color{entry->Red, entry->Green, entry->Blue});
        }
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(m_step.LayerFeatureArray)) {
            const auto found = colors.find(feature->ColorRefId);
            DrawnLayer & layer = LayerOf(feature->LayerRef);
            if (found != colors.end() && !layer.color) {
                layer.color = found->second;
            }
        }
    }

    void AddFeatures()
    {
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(m_step.LayerFeatureArray)) {
            std::vector<Item> & items = LayerOf(feature->LayerRef).items;
            for (const Set * const set : Each(feature->SetArray)) {
                AddSet(*set, items);
            }
        }
    }

    // All that a set holds, whatever of it was read last.
    void AddSet(const Set & set, std::vector<Item> & items)
    {
        const NameIndex net = NameOf(set.Net);
        for (const CIPC2581_DrawObj * const shape : Each(set.Features.DrawObjArray)) {
            AddShape(*shape, set.Features.Location, net, items);
        }
        AddPad(set.Pad, net, items);
        const double diameter = LengthOf(set.Hole.Diameter);
        if (diameter > 0) {
            items.push_back(
                {.kind = ItemKind::Hole, .placement = {.location = set.Hole.Location}, .width = diameter, .net = net});
        }
    }

    void AddPads()
    {
        for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(m_step.PadStackArray)) {
            const NameIndex net = NameOf(stack->NetName);
            for (const Pad * const pad : Each(stack->LayerPadArray)) {
                AddPad(*pad, net, LayerOf(pad->LayerRef).items);
            }
        }
    }

    // A hole may stand both in a pad stack and on a drill layer.
    void AddHoles()
    {
        for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(m_step.PadStackArray)) {
            const CIPC2581_Ecad_CadData_Step_Hole & hole = *stack->LayerHole;
            AddHole(hole, hole.FromLayer, hole.ToLayer, stack->NetName);
        }
        std::vector<std::vector<const Set *>> setsOfLayers(m_drawing.layers.size());
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(m_step.LayerFeatureArray)) {
            const auto sets = Each(feature->SetArray);
            std::vector<const Set *> & known = setsOfLayers[m_layers.at(feature->LayerRef)];
            known.insert(known.end(), sets.begin(), sets.end());
        }
        for (std::size_t i = 0; i < setsOfLayers.size(); ++i) {
            const DrawnLayer & layer = m_drawing.layers[i];
            // A hole whose span is not in the model goes through the whole board where its layer has ALL for its side.
            const std::string_view from = layer.side == Side::Other ? std::string_view() : layer.name;
            for (const Set * const set : setsOfLayers[i]) {
                const CIPC2581_Ecad_CadData_Step_Hole & hole = set->Hole;
                const bool hasSpan = !hole.FromLayer.IsEmpty() && !hole.ToLayer.IsEmpty();
                AddHole(hole, hasSpan ? std::string_view(hole.FromLayer) : from,
                        hasSpan ? std::string_view(hole.ToLayer) : layer.name, set->Net);
            }
        }
    }

    void AddHole(const CIPC2581_Ecad_CadData_Step_Hole & hole, std::string_view from, std::string_view to,
                 std::string_view net)
    {
        const double diameter = LengthOf(hole.Diameter);
        if (diameter <= 0 || !m_holeKeys.insert(HoleKey(hole.Location, diameter, m_drawing.decimals)).second) {
            return;
        }
        const std::size_t layers = m_drawing.layers.size();
        DrillHole drilled{hole.Location, diameter, 0, layers == 0 ? 0 : layers - 1, NameOf(net)};
        const auto first = m_layers.find(from);
        const auto last = m_layers.find(to);
        if (first != m_layers.end() && last != m_layers.end()) {
            drilled.firstLayer = std::min(first->second, last->second);
            drilled.lastLayer = std::max(first->second, last->second);
        }
        m_drawing.holes.push_back(drilled);
    }

    // Of the pins that parts have, by the words of the logical nets.
    void AddNetsOfPins()
    {
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(m_step.LogicalNetArray)) {
            for (const auto * const pin : Each(net->LogicalNetPinArray)) {
                // Names are numbered as they come, which must not be left to the compiler.
                const NameIndex netName = NameOf(net->Name);
                const NameIndex pinName = NameOf(pin->Pin);
                m_netsOfPins.try_emplace(PinKey(NameOf(pin->ComponentRef), pinName), netName);
            }
        }
    }

    static std::uint64_t PinKey(NameIndex refDes, NameIndex pin) { return std::uint64_t(refDes) << 32U | pin; }

    [[nodiscard]] Side SideOfPart(const Component & component) const
    {
        const auto found = m_layers.find(component.LayerRef);
        const Side side = found == m_layers.end() ? Side::Other : m_drawing.layers[found->second].side;
        if (side == Side::Other) {
            return component.Xform->Mirror == 1 ? Side::Bottom : Side::Top;
        }
        return side;
    }

    void AddParts()
    {
        std::vector<const Package *> packages;
        for (const Package * const package : Each(m_step.PackageArray)) {
            if (m_footprints.at(package->name) == packages.size()) {
                packages.push_back(package);
            }
        }
        for (const Component * const component : Each(m_step.ComponentArray)) {
            PlacedPart part;
            part.refDes = NameOf(component->RefDes);
            part.side = SideOfPart(*component);
            part.placement = {component->Location, component->Xform->Rotation,
                              part.side == Side::Bottom || component->Xform->Mirror == 1};
            part.footprint = PlaceOf(m_footprints, component->PackageRef, PlacedPart::NoFootprint);
            const bool hasPackage = part.footprint != PlacedPart::NoFootprint;
            part.label = LabelOf(part, hasPackage ? packages[part.footprint] : nullptr);
            if (hasPackage) {
                AddPadNets(part);
            }
            m_drawing.parts.push_back(std::move(part));
        }
    }

    void ChooseLabels(const Board & board)
    {
        const auto components = Each(m_step.ComponentArray);
        const bool areBought = std::any_of(components.begin(), components.end(),
                                           [](const Component * one) { return !one->Part.IsEmpty(); });
        const std::set<std::pair<std::string, std::string>> texts = TextsOfParts(board);
        std::set<std::string> namedOnTop;
        std::set<std::string> namedOnBottom;
        for (const auto & [layer, refDes] : texts) {
            const auto found = std::find_if(m_drawing.layers.begin(), m_drawing.layers.end(),
                                            [&name = layer](const DrawnLayer & one) { return one.name == name; });
            const bool isShown = found != m_drawing.layers.end() &&
                                 (found->role == LayerRole::Legend || found->role == LayerRole::Document);
            if (isShown && found->side == Side::Top) {
                namedOnTop.insert(refDes);
            }
            if (isShown && found->side == Side::Bottom) {
                namedOnBottom.insert(refDes);
            }
        }
        for (std::size_t i = 0; i < m_drawing.parts.size(); ++i) {
            PlacedPart & part = m_drawing.parts[i];
            const std::set<std::string> & named = part.side == Side::Bottom ? namedOnBottom : namedOnTop;
            const bool isBought = !areBought || !components[i]->Part.IsEmpty();
            part.isLabelled = isBought && !named.contains(m_drawing.names[part.refDes]);
        }
    }

    void AddPadNets(PlacedPart & part) const
    {
        for (const Item & pad : m_drawing.footprints[part.footprint].pads) {
            const auto found = m_netsOfPins.find(PinKey(part.refDes, pad.pin));
            part.padNets.push_back(found == m_netsOfPins.end() ? 0 : found->second);
        }
    }

    static Item LabelOf(const PlacedPart & part, const Package * package)
    {
        Extents own;
        if (package != nullptr) {
            const CIPC2581_Outline & outline = OutlineOf(*package);
            own.AddContour(*outline.Polygon->PolyBegin, *outline.Polygon->PolyStepArray);
        }
        Extents box = Placed(own, part.placement);
        if (box.IsEmpty()) {
            box.Add(part.placement.location);
        }
        Path path;
        path.MoveTo({box.MinX(), box.MinY()});
        path.LineTo({box.MaxX(), box.MinY()});
        path.LineTo({box.MaxX(), box.MaxY()});
        path.LineTo({box.MinX(), box.MaxY()});
        path.Close();
        return {.kind = ItemKind::Text, .paths = {path}, .refDes = part.refDes, .text = part.refDes};
    }

    const CIPC2581_Ecad_CadData_Step & m_step;
    Drawing m_drawing;
    // By the names in the model, which outlives the drawer.
    NamePlaces m_shapes;
    NamePlaces m_footprints;
    NamePlaces m_layers;
    std::unordered_map<std::string, std::size_t> m_nameIndex;
    std::unordered_set<std::string> m_holeKeys;
    std::unordered_map<std::uint64_t, NameIndex> m_netsOfPins;
};

}  // namespace

Drawing DrawingOf(Board & board)
{
    return BoardDrawer(board).Take();
}

}  // namespace ipc2581::host
