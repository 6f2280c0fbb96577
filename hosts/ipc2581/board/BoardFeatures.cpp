#include "hosts/ipc2581/board/BoardFeatures.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>

#include "hosts/ipc2581/board/Copper.h"
#include "hosts/ipc2581/geometry/ArcLength.h"
#include "hosts/ipc2581/table/Cell.h"

namespace ipc2581::host {
namespace {

using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using LayerFeature = CIPC2581_Ecad_CadData_Step_LayerFeature;

// The reader of the core keeps the pad and the hole of a set that has both, and its kind tells of one.
bool HasPad(const FeatureSet & set)
{
    return set.Kind == SetKinds::Pad || !set.Pad.StandardPrimitiveRefId.IsEmpty() || !set.Pad.Pin.IsEmpty();
}

bool HasHole(const FeatureSet & set)
{
    return set.Kind == SetKinds::Hole || !set.Hole.Diameter.IsEmpty();
}

// Where a hole is and how big, as far as a listing shows it.
using HoleKey = std::array<std::int64_t, 3>;

HoleKey KeyOf(const Hole & hole)
{
    constexpr double decimals = 1e6;
    const double diameter = NumberOf(Str(hole.Diameter)).value_or(0.0);
    return {std::llround(hole.Location.X * decimals), std::llround(hole.Location.Y * decimals),
            std::llround(diameter * decimals)};
}

class TrackCollector {
public:
    TrackCollector(const LayerFeature & feature, std::vector<Track> & tracks) : m_feature(feature), m_tracks(tracks) {}

    void Add(const FeatureSet & set)
    {
        for (const CIPC2581_DrawObj * const shape : Each(set.Features.DrawObjArray)) {
            if (const auto * const polyLine = dynamic_cast<const CIPC2581_PolyLine *>(shape)) {
                AddSteps(set, *polyLine);
            }
            else if (const auto * const line = dynamic_cast<const CIPC2581_Line *>(shape)) {
                AddLine(set, *line);
            }
        }
    }

private:
    Track Begin(const FeatureSet & set, const CIPC2581_LineDesc & line, const Vertex & from, const Vertex & to) const
    {
        return {&m_feature.LayerRef, &set.Net, &line, Moved(set, from), Moved(set, to)};
    }

    static Vertex Moved(const FeatureSet & set, const Vertex & point)
    {
        return {point.X + set.Features.Location.X, point.Y + set.Features.Location.Y};
    }

    void AddSteps(const FeatureSet & set, const CIPC2581_PolyLine & polyLine)
    {
        Vertex from = *polyLine.PolyBegin->Point;
        for (const CIPC2581_PolyStep * const step : Each(polyLine.PolyStepArray)) {
            const Vertex to = *step->EndPoint->Point;
            Track track = Begin(set, *polyLine.LineDesc, from, to);
            track.isArc = step->Type != StepTypes::Segment;
            track.center = Moved(set, *step->CenterPoint->Point);
            track.isClockwise = IsDrawnClockwise(*step);
            m_tracks.push_back(track);
            from = to;
        }
    }

    // The reader of the core makes a line without a place of every line description that stands outside a shape that it
    // knows.
    void AddLine(const FeatureSet & set, const CIPC2581_Line & line)
    {
        const Vertex from = *line.StartPoint->Point;
        const Vertex to = *line.EndPoint->Point;
        if (from != Vertex() || to != Vertex()) {
            m_tracks.push_back(Begin(set, *line.LineDesc, from, to));
        }
    }

    const LayerFeature & m_feature;
    std::vector<Track> & m_tracks;
};

}  // namespace

std::vector<PadPlace> PadsOf(Board & board)
{
    std::vector<PadPlace> pads;
    for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(board.Step().PadStackArray)) {
        for (const CIPC2581_Ecad_CadData_Step_Pad * const pad : Each(stack->LayerPadArray)) {
            pads.push_back({pad, &pad->LayerRef, &stack->NetName, nullptr});
        }
    }
    for (const LayerFeature * const feature : Each(board.Step().LayerFeatureArray)) {
        for (const FeatureSet * const set : Each(feature->SetArray)) {
            if (HasPad(*set)) {
                pads.push_back({&set->Pad, &feature->LayerRef, &set->Net, set});
            }
        }
    }
    return pads;
}

std::vector<HolePlace> HolesOf(Board & board)
{
    std::vector<HolePlace> onLayers;
    for (const LayerFeature * const feature : Each(board.Step().LayerFeatureArray)) {
        for (const FeatureSet * const set : Each(feature->SetArray)) {
            if (HasHole(*set)) {
                onLayers.push_back({&set->Hole, &feature->LayerRef, &set->Net});
            }
        }
    }
    std::set<HoleKey> known;
    if (!board.Step().PadStackArray.IsEmpty()) {
        for (const HolePlace & place : onLayers) {
            known.insert(KeyOf(*place.hole));
        }
    }
    std::vector<HolePlace> holes;
    for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(board.Step().PadStackArray)) {
        if (!stack->LayerHole->Diameter.IsEmpty() && !known.contains(KeyOf(*stack->LayerHole))) {
            holes.push_back({stack->LayerHole, nullptr, &stack->NetName});
        }
    }
    holes.insert(holes.end(), onLayers.begin(), onLayers.end());
    return holes;
}

std::vector<Track> TracksOf(Board & board)
{
    std::unordered_set<std::string> copper;
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        if (IsCopper(layer->layerFunction)) {
            copper.insert(Str(layer->name));
        }
    }
    std::vector<Track> tracks;
    for (const LayerFeature * const feature : Each(board.Step().LayerFeatureArray)) {
        if (!copper.contains(Str(feature->LayerRef))) {
            continue;
        }
        TrackCollector collector(*feature, tracks);
        for (const FeatureSet * const set : Each(feature->SetArray)) {
            collector.Add(*set);
        }
    }
    return tracks;
}

double LengthOf(const Track & track)
{
    return track.isArc ? ArcLength(track.from, track.to, track.center, track.isClockwise)
                       : Distance(track.from, track.to);
}

}  // namespace ipc2581::host
