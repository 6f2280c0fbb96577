#include "hosts/ipc2581/listings/ComponentTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "hosts/ipc2581/board/BomFacts.h"
#include "hosts/ipc2581/listings/LayerTables.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Component = CIPC2581_Ecad_CadData_Step_Component;

// What can be told of a component.
enum class Fact {
    Designator,
    Package,
    Part,
    Layer,
    Side,
    Mount,
    X,
    Y,
    Rotation,
    Mirror,
    Height,
    Standoff,
    Fitted,
    Value,
    // In the words of the heads.
    CapitalSide,
    SmallSide,
    ValueOrPart
};

struct FactColumn {
    const char * title;
    Fact fact;
};

constexpr std::array<FactColumn, 14> All = {{{"designator", Fact::Designator},
                                             {"package", Fact::Package},
                                             {"part", Fact::Part},
                                             {"layer", Fact::Layer},
                                             {"side", Fact::Side},
                                             {"mount", Fact::Mount},
                                             {"x", Fact::X},
                                             {"y", Fact::Y},
                                             {"rotation", Fact::Rotation},
                                             {"mirror", Fact::Mirror},
                                             {"height", Fact::Height},
                                             {"standoff", Fact::Standoff},
                                             {"fitted", Fact::Fitted},
                                             {"value", Fact::Value}}};

// What other programs take, title by title.
constexpr std::array<FactColumn, 5> Placement = {{{"Designator", Fact::Designator},
                                                  {"Mid X", Fact::X},
                                                  {"Mid Y", Fact::Y},
                                                  {"Layer", Fact::CapitalSide},
                                                  {"Rotation", Fact::Rotation}}};
constexpr std::array<FactColumn, 7> Position = {{{"Ref", Fact::Designator},
                                                 {"Val", Fact::ValueOrPart},
                                                 {"Package", Fact::Package},
                                                 {"PosX", Fact::X},
                                                 {"PosY", Fact::Y},
                                                 {"Rot", Fact::Rotation},
                                                 {"Side", Fact::SmallSide}}};

bool IsHead(const std::vector<std::string> & columns)
{
    const std::vector<std::string> heads = ComponentHeads();
    return columns.size() == 1 && std::find(heads.begin(), heads.end(), columns.front()) != heads.end();
}

std::vector<FactColumn> ChosenColumns(const std::vector<std::string> & columns)
{
    if (columns.empty()) {
        return {All.begin(), All.end()};
    }
    if (IsHead(columns)) {
        return columns.front() == "placement" ? std::vector<FactColumn>(Placement.begin(), Placement.end())
                                              : std::vector<FactColumn>(Position.begin(), Position.end());
    }
    std::vector<FactColumn> chosen;
    for (const std::string & key : columns) {
        const auto * const found =
            std::find_if(All.begin(), All.end(), [&](const FactColumn & column) { return column.title == key; });
        chosen.push_back(*found);
    }
    return chosen;
}

bool IsLength(Fact fact)
{
    return fact == Fact::X || fact == Fact::Y || fact == Fact::Height || fact == Fact::Standoff;
}

class ComponentFacts {
public:
    ComponentFacts(Board & board, const Lengths & lengths, bool isTurnedFromAbove)
        : m_bom(board), m_sides(SidesOfLayers(board)), m_lengths(lengths), m_isTurnedFromAbove(isTurnedFromAbove)
    {
    }

    [[nodiscard]] bool IsUnfitted(const Component & component) const
    {
        return m_bom.IsFitted(Shown(component.RefDes)) == false;
    }

    [[nodiscard]] Cell Of(const Component & component, Fact fact) const
    {
        switch (fact) {
        case Fact::Designator:
            return Shown(component.RefDes);
        case Fact::Package:
            return Shown(component.PackageRef);
        case Fact::Part:
            return Shown(component.Part);
        case Fact::Layer:
            return Shown(component.LayerRef);
        case Fact::Side:
            return SideOf(component);
        case Fact::Mount:
            return Shown(component.MountType);
        case Fact::X:
            return m_lengths.Of(component.Location.X);
        case Fact::Y:
            return m_lengths.Of(component.Location.Y);
        case Fact::Rotation:
            return RotationOf(component);
        case Fact::Mirror:
            return component.Xform->Mirror != 0;
        case Fact::Height:
            return m_lengths.Of(component.Height);
        case Fact::Standoff:
            return m_lengths.Of(component.Standoff);
        case Fact::Fitted:
            return FittedOf(component);
        case Fact::Value:
            return m_bom.Value(Shown(component.RefDes));
        case Fact::CapitalSide:
            return Capital(PlacedSideOf(component));
        case Fact::SmallSide:
            return LowerCase(PlacedSideOf(component));
        case Fact::ValueOrPart:
            return ValueOrPartOf(component);
        }
        return {};
    }

private:
    [[nodiscard]] std::string SideOf(const Component & component) const
    {
        const auto side = m_sides.find(Shown(component.LayerRef));
        return side == m_sides.end() ? "" : side->second;
    }

    // Where the layer does not tell, the mirror does.
    [[nodiscard]] std::string PlacedSideOf(const Component & component) const
    {
        std::string side = SideOf(component);
        if (side == "TOP" || side == "BOTTOM" || side == "INTERNAL") {
            return side;
        }
        return component.Xform->Mirror != 0 ? "BOTTOM" : "TOP";
    }

    static std::string Capital(const std::string & word) { return word.substr(0, 1) + LowerCase(word.substr(1)); }

    [[nodiscard]] double RotationOf(const Component & component) const
    {
        const double rotation = component.Xform->Rotation;
        if (!m_isTurnedFromAbove || rotation == 0.0 || PlacedSideOf(component) != "BOTTOM") {
            return rotation;
        }
        constexpr double circle = 360.0;
        const double turned = std::fmod(circle - rotation, circle);
        return turned < 0.0 ? turned + circle : turned;
    }

    [[nodiscard]] Cell FittedOf(const Component & component) const
    {
        const std::optional<bool> isFitted = m_bom.IsFitted(Shown(component.RefDes));
        return isFitted.has_value() ? Cell(*isFitted) : Cell();
    }

    [[nodiscard]] std::string ValueOrPartOf(const Component & component) const
    {
        const std::string value = m_bom.Value(Shown(component.RefDes));
        return value.empty() ? Shown(component.Part) : value;
    }

    BomFacts m_bom;
    std::unordered_map<std::string, std::string> m_sides;
    const Lengths & m_lengths;
    bool m_isTurnedFromAbove;
};

std::vector<const Component *> Components(Board & board, bool isSorted)
{
    const auto all = Each(board.Step().ComponentArray);
    std::vector<const Component *> components(all.begin(), all.end());
    if (isSorted) {
        std::stable_sort(components.begin(), components.end(), [](const Component * left, const Component * right) {
            return NaturalLess(left->RefDes, right->RefDes);
        });
    }
    return components;
}

}  // namespace

Table ComponentTable(Board & board, const Lengths & lengths, const ComponentChoice & choice)
{
    const std::vector<FactColumn> chosen = ChosenColumns(choice.columns);
    std::vector<Column> columns;
    columns.reserve(chosen.size());
    for (const FactColumn & column : chosen) {
        columns.push_back(IsLength(column.fact) ? lengths.Named(column.title) : Column(column.title));
    }
    Table table("components", std::move(columns));
    if (IsHead(choice.columns)) {
        table.LeaveUnitsOutOfCsv();
    }
    const ComponentFacts facts(board, lengths, choice.isTurnedFromAbove);
    for (const Component * const component : Components(board, choice.isSorted)) {
        if (choice.isFittedOnly && facts.IsUnfitted(*component)) {
            continue;
        }
        Row row;
        row.reserve(chosen.size());
        for (const FactColumn & column : chosen) {
            row.push_back(facts.Of(*component, column.fact));
        }
        table.Add(std::move(row));
    }
    return table;
}

bool AreComponentColumns(const std::vector<std::string> & columns)
{
    const std::vector<std::string> keys = ComponentKeys();
    return IsHead(columns) || std::all_of(columns.begin(), columns.end(), [&](const std::string & column) {
               return std::find(keys.begin(), keys.end(), column) != keys.end();
           });
}

std::vector<std::string> ComponentHeads()
{
    return {"placement", "position"};
}

std::vector<std::string> ComponentKeys()
{
    std::vector<std::string> keys;
    keys.reserve(All.size());
    for (const FactColumn & column : All) {
        keys.emplace_back(column.title);
    }
    return keys;
}

}  // namespace ipc2581::host
