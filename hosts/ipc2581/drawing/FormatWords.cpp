#include "hosts/ipc2581/drawing/FormatWords.h"

#include <algorithm>
#include <array>

#include "hosts/ipc2581/board/Copper.h"

namespace ipc2581::host {
namespace {

constexpr std::array<UnitMeasure, 4> Units = {
    {{"MILLIMETER", 1.0, 3, false}, {"INCH", 25.4, 4, true}, {"MICRON", 0.001, 0, false}, {"MIL", 0.0254, 1, true}}};

struct FunctionRole {
    std::string_view word;
    LayerRole role;
};

// Each word stands for those that begin with it too.
constexpr std::array<FunctionRole, 12> Roles = {{
    {"SOLDERMASK", LayerRole::Mask},
    {"SOLDERPASTE", LayerRole::Paste},
    {"PASTEMASK", LayerRole::Paste},
    {"SILKSCREEN", LayerRole::Legend},
    {"LEGEND", LayerRole::Legend},
    {"DRILL", LayerRole::Drill},
    {"ROUT", LayerRole::Drill},
    {"V_CUT", LayerRole::Drill},
    {"ASSEMBLY", LayerRole::Assembly},
    {"COURTYARD", LayerRole::Assembly},
    {"DOCUMENT", LayerRole::Document},
    {"BOARD_OUTLINE", LayerRole::Document},
}};

}  // namespace

UnitMeasure UnitMeasureOf(std::string_view word)
{
    const auto * const found =
        std::find_if(Units.begin(), Units.end(), [&](const UnitMeasure & unit) { return unit.word == word; });
    return found == Units.end() ? UnitMeasure{word, 0.0, 4, false} : *found;
}

LayerRole LayerRoleOf(std::string_view layerFunction)
{
    if (IsCopper(layerFunction)) {
        return LayerRole::Copper;
    }
    const auto * const found = std::find_if(
        Roles.begin(), Roles.end(), [&](const FunctionRole & known) { return layerFunction.starts_with(known.word); });
    return found == Roles.end() ? LayerRole::Other : found->role;
}

Side SideOf(std::string_view word)
{
    return word == "TOP"        ? Side::Top
           : word == "BOTTOM"   ? Side::Bottom
           : word == "INTERNAL" ? Side::Inside
           : word == "BOTH"     ? Side::Both
                                : Side::Other;
}

StrokeEnds StrokeEndsOf(std::string_view word)
{
    return word == "SQUARE" ? StrokeEnds::Square : word == "NONE" ? StrokeEnds::None : StrokeEnds::Round;
}

}  // namespace ipc2581::host
