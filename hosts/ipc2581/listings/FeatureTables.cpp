#include "hosts/ipc2581/listings/FeatureTables.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/BoardFeatures.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

// The places of names in their natural order. There are few nets and many things on them.
std::unordered_map<std::string_view, std::size_t> Ranks(std::vector<std::string_view> names)
{
    std::sort(names.begin(), names.end(), NaturalLess);
    std::unordered_map<std::string_view, std::size_t> ranks;
    for (const std::string_view name : names) {
        ranks.emplace(name, ranks.size());
    }
    return ranks;
}

template <typename Place>
std::vector<Place> InOrder(std::vector<Place> places, bool isSorted)
{
    if (!isSorted) {
        return places;
    }
    std::unordered_set<std::string_view> names;
    for (const Place & place : places) {
        names.insert(*place.net);
    }
    const auto ranks = Ranks({names.begin(), names.end()});
    std::vector<std::pair<std::size_t, const Place *>> ranked;
    ranked.reserve(places.size());
    for (const Place & place : places) {
        ranked.emplace_back(ranks.at(*place.net), &place);
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto & left, const auto & right) { return left.first < right.first; });
    std::vector<Place> ordered;
    ordered.reserve(places.size());
    for (const auto & [rank, place] : ranked) {
        ordered.push_back(*place);
    }
    return ordered;
}

}  // namespace

Table PadTable(Board & board, const Lengths & lengths, bool isSorted)
{
    const auto make = [pads = InOrder(PadsOf(board), isSorted), &lengths](const RowSink & sink) {
        Row row;
        for (const PadPlace & place : pads) {
            const bool isOfSet = place.set != nullptr;
            Fill(row, Shown(*place.net), Shown(*place.layer), lengths.Of(place.pad->Location.X),
                 lengths.Of(place.pad->Location.Y), place.pad->Rotation, Shown(place.pad->StandardPrimitiveRefId),
                 Shown(place.pad->Pin), isOfSet ? Shown(place.set->PadUsage) : std::string(),
                 isOfSet ? Cell(place.set->Plate) : Cell(), isOfSet ? Cell(place.set->TestPoint) : Cell(),
                 isOfSet ? "set" : "pad stack");
            sink(row);
        }
    };
    return {"pads",
            {"net", "layer", lengths.Named("x"), lengths.Named("y"), "rotation", "primitive", "pin", "usage", "plate",
             "test point", "origin"},
            make};
}

Table HoleTable(Board & board, const Lengths & lengths, bool isSorted)
{
    const auto make = [holes = InOrder(HolesOf(board), isSorted), &lengths](const RowSink & sink) {
        Row row;
        for (const HolePlace & place : holes) {
            const CIPC2581_Ecad_CadData_Step_Hole & hole = *place.hole;
            const bool isOfLayer = place.layer != nullptr;
            Fill(row, Shown(hole.Name), lengths.Of(hole.Diameter), Shown(hole.PlatingStatus),
                 lengths.Of(hole.Location.X), lengths.Of(hole.Location.Y), Shown(*place.net), Shown(hole.FromLayer),
                 Shown(hole.ToLayer), lengths.Of(hole.PlusTol), lengths.Of(hole.MinusTol),
                 isOfLayer ? Shown(*place.layer) : std::string(), isOfLayer ? "set" : "pad stack");
            sink(row);
        }
    };
    return {"holes",
            {"hole", lengths.Named("diameter"), "plating", lengths.Named("x"), lengths.Named("y"), "net", "from layer",
             "to layer", lengths.Named("tolerance plus"), lengths.Named("tolerance minus"), "layer", "origin"},
            make};
}

Table TrackTable(Board & board, const Lengths & lengths, bool isSorted)
{
    const auto make = [tracks = InOrder(TracksOf(board), isSorted), &lengths](const RowSink & sink) {
        Row row;
        const auto ofArc = [](const Track & track, Cell cell) { return track.isArc ? cell : Cell(); };
        for (const Track & track : tracks) {
            Fill(row, Shown(*track.net), Shown(*track.layer), track.isArc ? "arc" : "line",
                 lengths.Of(track.line->LineWidth), Shown(track.line->LineEnd), lengths.Of(track.from.X),
                 lengths.Of(track.from.Y), lengths.Of(track.to.X), lengths.Of(track.to.Y),
                 ofArc(track, lengths.Of(track.center.X)), ofArc(track, lengths.Of(track.center.Y)),
                 ofArc(track, track.isClockwise), lengths.Of(LengthOf(track)));
            sink(row);
        }
    };
    return {"tracks",
            {"net", "layer", "kind", lengths.Named("width"), "line end", lengths.Named("from x"),
             lengths.Named("from y"), lengths.Named("to x"), lengths.Named("to y"), lengths.Named("center x"),
             lengths.Named("center y"), "clockwise", lengths.Named("length")},
            make};
}

}  // namespace ipc2581::host
