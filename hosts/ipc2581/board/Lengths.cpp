#include "hosts/ipc2581/board/Lengths.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include <import/shapes/Units.h>

#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

struct Unit {
    std::string_view name;
    std::string_view word;
};

constexpr std::array<Unit, 4> Known = {{{"mm", "MILLIMETER"}, {"inch", "INCH"}, {"mil", "MIL"}, {"um", "MICRON"}}};

}  // namespace

std::string UnitsWord(const CString & units)
{
    return MillimetresOf(units) == 0.0 ? "" : LowerCase(Str(units));
}

std::vector<std::string> Lengths::Units()
{
    std::vector<std::string> names;
    names.reserve(Known.size());
    for (const Unit & unit : Known) {
        names.emplace_back(unit.name);
    }
    return names;
}

Lengths::Lengths(Board & board, const std::string & unit)
{
    const std::string_view own = board.Root().m_Ecad.m_CadHeader.units;
    const bool isKnown = MillimetresOf(own) != 0.0;
    if (!isKnown && !unit.empty()) {
        throw Error(board.File().Name(), "does not tell its units, so that lengths cannot be listed in " + unit);
    }
    if (!isKnown) {
        return;
    }
    const auto * const found = std::find_if(Known.begin(), Known.end(), [&](const Unit & any) {
        return unit.empty() ? any.word == own : any.name == unit;
    });
    m_scale = UnitScale(own, found->word);
    m_word = LowerCase(std::string(found->word));
    m_unit = found->name;
}

Cell Lengths::Of(const CString & text) const
{
    const std::string shown = Shown(text);
    const std::optional<double> number = NumberOf(shown);
    if (number.has_value()) {
        return Of(*number);
    }
    return shown.empty() ? Cell() : Cell(NumberText{shown, std::nullopt});
}

Column Lengths::Named(const std::string & title) const
{
    Column column(title);
    column.isLength = true;
    column.unit = m_unit;
    return column;
}

}  // namespace ipc2581::host
