#include "hosts/ipc2581/html/PageComparison.h"

#include <cmath>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace ipc2581::host {
namespace {

// Numbers behind each other, as text.
class Key {
public:
    explicit Key(const Quantum & quantum) : m_quantum(quantum) {}

    void Add(std::int64_t number) { m_text.append(std::to_string(number)).append(1, ' '); }
    void AddLength(double length) { Add(m_quantum.Of(length)); }
    void AddText(std::string_view text) { m_text.append(text).append(1, '\n'); }
    void Add(const Path & path)
    {
        for (const PathStep & step : path.steps) {
            Add(static_cast<std::int64_t>(step.kind));
            for (const double length : {step.end.X, step.end.Y, step.center.X, step.center.Y}) {
                AddLength(length);
            }
        }
    }
    void Add(const Placement & placement)
    {
        constexpr double partsOfADegree = 1000.0;
        constexpr double partsOfAScale = 1e6;
        AddLength(placement.location.X);
        AddLength(placement.location.Y);
        Add(static_cast<std::int64_t>(std::llround(std::fmod(placement.rotation, 360.0) * partsOfADegree)));
        Add(static_cast<std::int64_t>(placement.isMirrored));
        Add(static_cast<std::int64_t>(std::llround(placement.scale * partsOfAScale)));
    }

    std::string Take() { return std::move(m_text); }

private:
    const Quantum & m_quantum;
    std::string m_text;
};

class ItemKeys {
public:
    explicit ItemKeys(const Drawing & drawing) : m_quantum(drawing)
    {
        for (const DictionaryShape & shape : drawing.shapes) {
            Key key(m_quantum);
            for (const Path & path : shape.paths) {
                key.Add(path);
            }
            m_shapes.push_back(key.Take());
        }
    }

    [[nodiscard]] std::string Of(const Item & item) const
    {
        Key key(m_quantum);
        key.Add(static_cast<std::int64_t>(item.kind));
        key.Add(static_cast<std::int64_t>(item.ends));
        key.AddLength(item.width);
        key.Add(item.placement);
        if (item.shape != Item::OwnPaths) {
            key.AddText(m_shapes[item.shape]);
        }
        for (const Path & path : item.paths) {
            key.Add(path);
        }
        return key.Take();
    }

private:
    Quantum m_quantum;
    std::vector<std::string> m_shapes;
};

const DrawnLayer * LayerNamed(const Drawing & drawing, const std::string & name)
{
    for (const DrawnLayer & layer : drawing.layers) {
        if (layer.name == name) {
            return &layer;
        }
    }
    return nullptr;
}

// The place of a hole.
std::string PlaceOf(const DrillHole & hole, const Quantum & quantum)
{
    Key key(quantum);
    key.AddLength(hole.center.X);
    key.AddLength(hole.center.Y);
    return key.Take();
}

// All that is compared of a hole.
std::string KeyOf(const DrillHole & hole, const Drawing & drawing, const Quantum & quantum)
{
    Key key(quantum);
    key.AddText(PlaceOf(hole, quantum));
    key.AddLength(hole.diameter);
    key.AddText(drawing.layers[hole.firstLayer].name);
    key.AddText(drawing.layers[hole.lastLayer].name);
    return key.Take();
}

std::string KeyOf(const Path & path, const Quantum & quantum)
{
    Key key(quantum);
    key.Add(path);
    return key.Take();
}

using Holes = std::vector<const DrillHole *>;
using HoleKey = std::function<std::string(const DrillHole &)>;

Holes HolesOf(const Drawing & drawing)
{
    Holes holes;
    for (const DrillHole & hole : drawing.holes) {
        holes.push_back(&hole);
    }
    return holes;
}

// Takes away the holes that have one of the same key on the other side, and tells of each two.
void TakePairs(Holes & before, const HoleKey & keyBefore, Holes & after, const HoleKey & keyAfter,
               const std::function<void(const DrillHole & before, const DrillHole & after)> & tell)
{
    std::unordered_map<std::string, Holes> old;
    for (const DrillHole * const hole : before) {
        old[keyBefore(*hole)].push_back(hole);
    }
    std::unordered_set<const DrillHole *> paired;
    std::erase_if(after, [&](const DrillHole * hole) {
        const auto found = old.find(keyAfter(*hole));
        if (found == old.end() || found->second.empty()) {
            return false;
        }
        tell(*found->second.back(), *hole);
        paired.insert(found->second.back());
        found->second.pop_back();
        return true;
    });
    std::erase_if(before, [&](const DrillHole * hole) { return paired.contains(hole); });
}

class Comparer {
public:
    Comparer(const Drawing & before, const Drawing & after)
        : m_before(before), m_after(after), m_keysBefore(before), m_keysAfter(after)
    {
    }

    DrawingComparison Take()
    {
        for (std::size_t i = 0; i < m_after.layers.size(); ++i) {
            CompareLayer(i);
        }
        for (std::size_t i = 0; i < m_before.layers.size(); ++i) {
            if (!m_before.layers[i].items.empty() && LayerNamed(m_after, m_before.layers[i].name) == nullptr) {
                m_comparison.removedLayers.push_back(i);
            }
        }
        m_comparison.hasOtherProfile =
            KeyOf(m_before.profile, m_quantumBefore) != KeyOf(m_after.profile, m_quantumAfter);
        CompareHoles();
        CompareParts();
        return std::move(m_comparison);
    }

private:
    void CompareLayer(std::size_t place)
    {
        std::unordered_map<std::string, std::vector<const Item *>> old;
        const DrawnLayer * const layer = LayerNamed(m_before, m_after.layers[place].name);
        if (layer != nullptr) {
            for (const Item & item : layer->items) {
                old[m_keysBefore.Of(item)].push_back(&item);
            }
        }
        std::unordered_set<const Item *> kept;
        for (const Item & item : m_after.layers[place].items) {
            const auto found = old.find(m_keysAfter.Of(item));
            if (found == old.end() || found->second.empty()) {
                m_comparison.added.push_back({place, &item});
                continue;
            }
            kept.insert(found->second.back());
            found->second.pop_back();
        }
        std::vector<const Item *> & removed = m_comparison.removed.emplace_back();
        if (layer != nullptr) {
            for (const Item & item : layer->items) {
                if (!kept.contains(&item)) {
                    removed.push_back(&item);
                }
            }
        }
    }

    void CompareHoles()
    {
        Holes before = HolesOf(m_before);
        Holes after = HolesOf(m_after);
        TakePairs(
            before, [&](const DrillHole & hole) { return KeyOf(hole, m_before, m_quantumBefore); }, after,
            [&](const DrillHole & hole) { return KeyOf(hole, m_after, m_quantumAfter); },
            [](const DrillHole &, const DrillHole &) {});
        TakePairs(
            before, [&](const DrillHole & hole) { return PlaceOf(hole, m_quantumBefore); }, after,
            [&](const DrillHole & hole) { return PlaceOf(hole, m_quantumAfter); },
            [&](const DrillHole & old, const DrillHole & now) {
                m_comparison.holes.push_back({ChangeState::Changed, &old, &now, now.center, now.diameter});
            });
        for (const DrillHole * const hole : after) {
            m_comparison.holes.push_back({ChangeState::Added, nullptr, hole, hole->center, hole->diameter});
        }
        for (const DrillHole * const hole : before) {
            m_comparison.holes.push_back(
                {ChangeState::Removed, hole, nullptr, Scaled(hole->center), Scaled({hole->diameter, 0.0}).X});
        }
    }

    void CompareParts()
    {
        std::unordered_map<std::string_view, const PlacedPart *> old;
        for (const PlacedPart & part : m_before.parts) {
            old.emplace(m_before.names[part.refDes], &part);
        }
        for (const PlacedPart & part : m_after.parts) {
            const std::string & name = m_after.names[part.refDes];
            const auto found = old.find(name);
            if (found == old.end()) {
                m_comparison.parts.push_back({name, ChangeState::Added, part.side});
                continue;
            }
            AddMoved(name, *found->second, part);
            old.erase(found);
        }
        for (const PlacedPart & part : m_before.parts) {
            if (old.contains(m_before.names[part.refDes])) {
                m_comparison.parts.push_back(
                    {m_before.names[part.refDes], ChangeState::Removed, part.side, Scaled(part.placement.location)});
            }
        }
    }

    void AddMoved(const std::string & name, const PlacedPart & before, const PlacedPart & after)
    {
        Key keyBefore(m_quantumBefore);
        Key keyAfter(m_quantumAfter);
        keyBefore.Add(before.placement);
        keyAfter.Add(after.placement);
        if (keyBefore.Take() != keyAfter.Take() || before.side != after.side) {
            m_comparison.parts.push_back({name, ChangeState::Moved, after.side, Scaled(before.placement.location)});
        }
    }

    [[nodiscard]] Vertex Scaled(const Vertex & place) const
    {
        const bool areKnown = m_before.millimetres > 0 && m_after.millimetres > 0;
        const double scale = areKnown ? m_before.millimetres / m_after.millimetres : 1.0;
        return {place.X * scale, place.Y * scale};
    }

    const Drawing & m_before;
    const Drawing & m_after;
    ItemKeys m_keysBefore;
    ItemKeys m_keysAfter;
    Quantum m_quantumBefore{m_before};
    Quantum m_quantumAfter{m_after};
    DrawingComparison m_comparison;
};

}  // namespace

DrawingComparison Compare(const Drawing & before, const Drawing & after)
{
    return Comparer(before, after).Take();
}

}  // namespace ipc2581::host
