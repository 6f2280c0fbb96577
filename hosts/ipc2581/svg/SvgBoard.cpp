#include "hosts/ipc2581/svg/SvgBoard.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <unordered_set>

namespace ipc2581::host {
namespace {

struct FunctionRole {
    std::string_view word;
    LayerRole role;
};

// Some words begin with another one's: DIELCORE and its like all do with DIEL.
constexpr std::array<FunctionRole, 20> Roles = {{
    {"CONDUCTOR", LayerRole::Copper},  {"CONDFILM", LayerRole::Copper},
    {"CONDFOIL", LayerRole::Copper},   {"SIGNAL", LayerRole::Copper},
    {"PLANE", LayerRole::Copper},      {"MIXED", LayerRole::Copper},
    {"POWER", LayerRole::Copper},      {"GROUND", LayerRole::Copper},
    {"SOLDERMASK", LayerRole::Mask},   {"SOLDERPASTE", LayerRole::Paste},
    {"PASTEMASK", LayerRole::Paste},   {"SILKSCREEN", LayerRole::Legend},
    {"LEGEND", LayerRole::Legend},     {"DRILL", LayerRole::Drill},
    {"ROUT", LayerRole::Drill},        {"V_CUT", LayerRole::Drill},
    {"ASSEMBLY", LayerRole::Assembly}, {"COURTYARD", LayerRole::Assembly},
    {"DOCUMENT", LayerRole::Document}, {"BOARD_OUTLINE", LayerRole::Document},
}};

Side SideOfWord(std::string_view word)
{
    return word == "TOP"        ? Side::Top
           : word == "BOTTOM"   ? Side::Bottom
           : word == "INTERNAL" ? Side::Inside
           : word == "BOTH"     ? Side::Both
                                : Side::Other;
}

double Length(const CString & text)
{
    const std::string_view digits = text;
    double length = 0.0;
    std::from_chars(digits.data(), digits.data() + digits.size(), length);
    return length;
}

std::string Hex(int red, int green, int blue)
{
    std::array<char, 8> text;
    const auto part = [](int value) { return static_cast<unsigned>(std::clamp(value, 0, 255)); };
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", part(red), part(green), part(blue));
    return text.data();
}

std::string CopperColor(const BoardLayer & layer, std::size_t index)
{
    constexpr std::array<const char *, 6> inner = {"#3f9142", "#b8860b", "#7d4ea8", "#2a8c8c", "#b3527a", "#7a7a2a"};
    return layer.side == Side::Top ? "#c83434" : layer.side == Side::Bottom ? "#345cbe" : inner[index % inner.size()];
}

std::string DefaultColor(const BoardLayer & layer, std::size_t index)
{
    switch (LayerRoleOf(layer.function)) {
    case LayerRole::Copper:
        return CopperColor(layer, index);
    case LayerRole::Mask:
        return "#146e3c";
    case LayerRole::Paste:
        return "#8c8c8c";
    case LayerRole::Legend:
        return "#ebebe1";
    case LayerRole::Drill:
        return "#3c3c3c";
    case LayerRole::Assembly:
        return "#8a4fa0";
    case LayerRole::Document:
        return "#5a7fa8";
    case LayerRole::Other:
        break;
    }
    return "#a08c50";
}

}  // namespace

LayerRole LayerRoleOf(std::string_view layerFunction)
{
    const auto * const found = std::find_if(
        Roles.begin(), Roles.end(), [&](const FunctionRole & known) { return layerFunction.starts_with(known.word); });
    return found == Roles.end() ? LayerRole::Other : found->role;
}

SvgBoard::SvgBoard(Board & board) : m_step(board.Step()), m_unit(SvgUnitOf(board.Root().m_Ecad.m_CadHeader.units))
{
    const SvgUnit shapes = SvgUnitOf(board.Content().DictionaryStandard->Unit);
    if (shapes.millimetres > 0 && m_unit.millimetres > 0) {
        m_shapeScale = shapes.millimetres / m_unit.millimetres;
    }
    for (const auto * const entry : Each(board.Content().DictionaryStandard->EntryArray)) {
        m_shapes.try_emplace(entry->EntryStandardId, entry);
    }
    for (const auto * const entry : Each(board.Content().m_DictionaryColor->Entry)) {
        m_colors.try_emplace(entry->EntryColorId, entry);
    }
    for (const auto * const package : Each(m_step.PackageArray)) {
        m_packages.try_emplace(package->name, package);
    }
    AddLayers(board);
    AddPads();
    AddHoles();
}

BoardLayer & SvgBoard::LayerOf(const CString & name)
{
    const auto [place, isNew] = m_layerIndex.try_emplace(name, m_layers.size());
    if (isNew) {
        m_layers.push_back({.name = name, .function = {}});
    }
    return m_layers[place->second];
}

void SvgBoard::AddLayers(Board & board)
{
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        if (!m_layerIndex.contains(layer->name)) {
            BoardLayer & added = LayerOf(layer->name);
            added.function = layer->layerFunction;
            added.side = SideOfWord(layer->side);
            added.isNegative = layer->polarity == "NEGATIVE";
        }
    }
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(m_step.LayerFeatureArray)) {
        LayerOf(feature->LayerRef).features.push_back(feature);
    }
}

void SvgBoard::AddPads()
{
    for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(m_step.PadStackArray)) {
        for (const CIPC2581_Ecad_CadData_Step_Pad * const pad : Each(stack->LayerPadArray)) {
            LayerOf(pad->LayerRef).pads.push_back(pad);
        }
    }
}

void SvgBoard::AddHoles()
{
    // A hole may stand both in a pad stack and on a drill layer.
    std::unordered_set<std::string> known;
    const auto add = [&](const CIPC2581_Ecad_CadData_Step_Hole & hole, std::string_view from, std::string_view to) {
        const double diameter = Length(hole.Diameter);
        if (diameter <= 0) {
            return;
        }
        std::string key;
        AppendNumber(key, hole.Location.X, m_unit.decimals);
        AppendNumber(key, hole.Location.Y, m_unit.decimals);
        AppendNumber(key, diameter, m_unit.decimals);
        if (known.insert(key).second) {
            m_holes.push_back({hole.Location, diameter, from, to});
        }
    };
    for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(m_step.PadStackArray)) {
        add(*stack->LayerHole, stack->LayerHole->FromLayer, stack->LayerHole->ToLayer);
    }
    for (const BoardLayer & layer : m_layers) {
        // The span of a drill layer is not in the model; what goes through the whole board has ALL for its side.
        const bool isThrough = layer.side == Side::Other;
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : layer.features) {
            for (const CIPC2581_Ecad_CadData_Step_LayerFeature_Set * const set : Each(feature->SetArray)) {
                add(set->Hole, isThrough ? std::string_view() : layer.name, layer.name);
            }
        }
    }
}

bool SvgBoard::IsDrilled(const BoardLayer & layer, const DrillHole & hole) const
{
    const auto from = m_layerIndex.find(hole.fromLayer);
    const auto to = m_layerIndex.find(hole.toLayer);
    if (from == m_layerIndex.end() || to == m_layerIndex.end()) {
        return true;
    }
    const std::size_t index = m_layerIndex.at(layer.name);
    return index >= std::min(from->second, to->second) && index <= std::max(from->second, to->second);
}

std::string SvgBoard::ColorOf(const BoardLayer & layer) const
{
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : layer.features) {
        const auto found = m_colors.find(feature->ColorRefId);
        if (found != m_colors.end()) {
            return Hex(found->second->Red, found->second->Green, found->second->Blue);
        }
    }
    return DefaultColor(layer, m_layerIndex.at(layer.name));
}

Side SvgBoard::SideOf(const CIPC2581_Ecad_CadData_Step_Component & component) const
{
    const auto found = m_layerIndex.find(component.LayerRef);
    const Side side = found == m_layerIndex.end() ? Side::Other : m_layers[found->second].side;
    if (side == Side::Other) {
        return component.Xform->Mirror == 1 ? Side::Bottom : Side::Top;
    }
    return side;
}

const CIPC2581_Ecad_CadData_Step_Package * SvgBoard::PackageOf(const CString & name) const
{
    const auto found = m_packages.find(name);
    return found == m_packages.end() ? nullptr : found->second;
}

const CIPC2581_Content_DictionaryStandard_EntryStandard * SvgBoard::ShapeOf(const CString & id) const
{
    const auto found = m_shapes.find(id);
    return found == m_shapes.end() ? nullptr : found->second;
}

}  // namespace ipc2581::host
