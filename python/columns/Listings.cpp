#include "python/columns/Listings.h"

#include <algorithm>
#include <array>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/listings/BomTable.h"
#include "hosts/ipc2581/listings/ComponentTable.h"
#include "hosts/ipc2581/listings/FeatureTables.h"
#include "hosts/ipc2581/listings/LayerTables.h"
#include "hosts/ipc2581/listings/NetTables.h"
#include "hosts/ipc2581/listings/PackageTables.h"
#include "python/columns/TableColumns.h"
#include "python/objects/Raise.h"

namespace ipc2581::python {
namespace {

struct ListingRow {
    const char * name;
    host::Table (*make)(host::Board & board, const host::Lengths & lengths);
};

using host::Board;
using host::Lengths;

constexpr auto Listings = std::to_array<ListingRow>({
    {"bom", [](Board & board, const Lengths &) { return host::BomTable(board, false); }},
    {"components", [](Board & board, const Lengths & lengths) { return host::ComponentTable(board, lengths, {}); }},
    {"nets", [](Board & board, const Lengths &) { return host::NetTable(board, false); }},
    {"points", [](Board & board, const Lengths & lengths) { return host::NetPointTable(board, lengths, false); }},
    {"layers", [](Board & board, const Lengths &) { return host::LayerTable(board); }},
    {"stackup", [](Board & board, const Lengths & lengths) { return host::StackupTable(board, lengths); }},
    {"packages", [](Board & board, const Lengths & lengths) { return host::PackageTable(board, lengths, false); }},
    {"pins", [](Board & board, const Lengths & lengths) { return host::PinTable(board, lengths, false); }},
    {"pads", [](Board & board, const Lengths & lengths) { return host::PadTable(board, lengths, false); }},
    {"holes", [](Board & board, const Lengths & lengths) { return host::HoleTable(board, lengths, false); }},
    {"tracks", [](Board & board, const Lengths & lengths) { return host::TrackTable(board, lengths, false); }},
});

std::string Joined(const std::vector<std::string> & words)
{
    std::string joined;
    for (const std::string & word : words) {
        joined.append(joined.empty() ? "" : ", ").append(word);
    }
    return joined;
}

Lengths LengthsIn(Board & board, const std::string & unit)
{
    const std::vector<std::string> units = Lengths::Units();
    if (!unit.empty() && std::find(units.begin(), units.end(), unit) == units.end()) {
        RaiseValue("units must be " + Joined(units) + ", not " + unit);
    }
    try {
        return Lengths(board, unit);
    }
    catch (const host::Error & error) {
        RaiseValue(error.what());
    }
}

}  // namespace

std::vector<std::string> ListingNames()
{
    std::vector<std::string> names;
    names.reserve(Listings.size());
    for (const ListingRow & row : Listings) {
        names.emplace_back(row.name);
    }
    return names;
}

pybind11::list ListingOf(Board & board, const std::string & name, const std::string & unit)
{
    const auto * const row =
        std::find_if(Listings.begin(), Listings.end(), [&](const ListingRow & own) { return own.name == name; });
    if (row == Listings.end()) {
        RaiseValue("the name of a listing must be one of " + Joined(ListingNames()) + ", not " + name);
    }
    const Lengths lengths = LengthsIn(board, unit);
    return ColumnsOf(row->make(board, lengths));
}

}  // namespace ipc2581::python
