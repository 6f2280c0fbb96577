#include "hosts/ipc2581/html/PageData.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <future>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/board/MemoryBound.h"
#include "hosts/ipc2581/diff/BoardDifferences.h"
#include "hosts/ipc2581/drawing/BoardDrawing.h"
#include "hosts/ipc2581/files/Sha256.h"
#include "hosts/ipc2581/html/DrawingColumns.h"
#include "hosts/ipc2581/html/PageComparison.h"
#include "hosts/ipc2581/html/PageFacts.h"
#include "hosts/ipc2581/svg/SvgColors.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using nlohmann::json;

constexpr std::string_view Mark = "IPCPAGE1";

const char * WordOf(LayerRole role)
{
    constexpr std::array<const char *, 8> words = {"copper", "mask",     "paste",    "legend",
                                                   "drill",  "assembly", "document", "other"};
    return words.at(static_cast<std::size_t>(role));
}

const char * WordOf(Side side)
{
    constexpr std::array<const char *, 5> words = {"top", "bottom", "inside", "both", "other"};
    return words.at(static_cast<std::size_t>(side));
}

json HeadOfLayer(const Drawing & drawing, std::size_t place)
{
    const DrawnLayer & layer = drawing.layers[place];
    return {{"name", layer.name},
            {"function", layer.function},
            {"role", WordOf(layer.role)},
            {"side", WordOf(layer.side)},
            {"isNegative", layer.isNegative},
            {"hasFeatures", layer.hasFeatures},
            {"color", ColorOf(drawing, place)},
            {"items", layer.items.size()}};
}

json HeadOfDrawing(const Drawing & drawing)
{
    json layers = json::array();
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        layers.push_back(HeadOfLayer(drawing, i));
    }
    json shapes = json::array();
    for (const DictionaryShape & shape : drawing.shapes) {
        shapes.push_back(shape.paths.size());
    }
    json footprints = json::array();
    for (const Footprint & footprint : drawing.footprints) {
        footprints.push_back(
            {{"name", footprint.name}, {"pads", footprint.pads.size()}, {"body", footprint.body.size()}});
    }
    return {{"names", drawing.names},        {"layers", std::move(layers)},
            {"shapes", std::move(shapes)},   {"footprints", std::move(footprints)},
            {"holes", drawing.holes.size()}, {"parts", drawing.parts.size()}};
}

// The hash takes as long as the rest of the page does, and asks nothing of the model.
std::future<std::string> BeginHash(const Board & board)
{
    return std::async(WorkingAtOnce(), Sha256OfFile, board.File().PlainPath());
}

json HeadsOf(const std::vector<IntegerColumn> & columns)
{
    json heads = json::array();
    for (const IntegerColumn & column : columns) {
        heads.push_back({{"name", column.Name()},
                         {"isDelta", column.IsDelta()},
                         {"count", column.Count()},
                         {"bytes", column.Bytes().size()}});
    }
    return heads;
}

std::string Packed(const json & head, const std::vector<IntegerColumn> & columns)
{
    // Names of files and boards hold bytes in any encoding.
    const std::string text = head.dump(-1, ' ', false, json::error_handler_t::replace);
    std::string bytes(Mark);
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(text.size() >> shift & 0xffU);
    }
    bytes += text;
    for (const IntegerColumn & column : columns) {
        bytes += column.Bytes();
    }
    return bytes;
}

DrawingColumns ColumnsOf(const Drawing & drawing)
{
    DrawingColumns columns{Quantum(drawing)};
    columns.Add(drawing);
    return columns;
}

json HeadOfBoard(Board & board, const Lengths & lengths, const Drawing & drawing)
{
    json head = {{"file", std::filesystem::path(board.File().Name()).filename().string()},
                 {"step", Shown(board.Step().Name)},
                 {"units", lengths.Word()}};
    head["isUnitKnown"] = drawing.millimetres > 0;
    head["drawing"] = HeadOfDrawing(drawing);
    head["tables"] = PageTables(board, lengths);
    return head;
}

// The same items for a page with another drawing: its names, its unit, and no shape of the dictionary.
class Carrier {
public:
    Carrier(const Drawing & from, Drawing & to) : m_from(from), m_to(to)
    {
        const bool areKnown = from.millimetres > 0 && to.millimetres > 0;
        m_scale = areKnown ? from.millimetres / to.millimetres : 1.0;
        for (std::size_t i = 0; i < to.names.size(); ++i) {
            m_places.emplace(to.names[i], static_cast<NameIndex>(i));
        }
    }

    Item Carried(const Item & item)
    {
        Item carried = item;
        carried.width *= m_scale;
        carried.net = NameOf(item.net);
        carried.pin = NameOf(item.pin);
        carried.text = NameOf(item.text);
        if (item.kind == ItemKind::Hole) {
            carried.placement.location = {item.placement.location.X * m_scale, item.placement.location.Y * m_scale};
            return carried;
        }
        carried.paths.clear();
        for (const Path & path : PathsOf(m_from, item)) {
            carried.paths.push_back(Carried(Placed(path, item.placement)));
        }
        carried.shape = Item::OwnPaths;
        carried.placement = {};
        return carried;
    }

    [[nodiscard]] Path Carried(const Path & path) const { return Placed(path, {.scale = m_scale}); }

private:
    NameIndex NameOf(NameIndex place)
    {
        const std::string & name = m_from.names[place];
        const auto [found, isNew] = m_places.try_emplace(name, static_cast<NameIndex>(m_to.names.size()));
        if (isNew) {
            m_to.names.push_back(name);
        }
        return found->second;
    }

    const Drawing & m_from;
    Drawing & m_to;
    double m_scale;
    std::unordered_map<std::string, NameIndex> m_places;
};

const char * WordOf(ChangeState state)
{
    constexpr std::array<const char *, 4> words = {"added", "removed", "moved", "changed"};
    return words.at(static_cast<std::size_t>(state));
}

// What differs in other ways than where it lies: a value, a package, whether it is fitted.
void AddChangedParts(const Table & differences, DrawingComparison & comparison)
{
    std::set<std::string> known;
    for (const PartChange & part : comparison.parts) {
        known.insert(part.name);
    }
    differences.ForEachRow([&](const Row & row) {
        const std::string name = row[1].Text();
        if (row[0].Text() == "component" && known.insert(name).second) {
            comparison.parts.push_back({name, ChangeState::Changed});
        }
    });
}

// Whether a hole comes out on this side, or nobody knows.
bool IsSeen(const Drawing & drawing, const DrillHole & hole, Side side)
{
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        if (drawing.layers[i].role == LayerRole::Copper && drawing.layers[i].side == side) {
            return hole.GoesThrough(i);
        }
    }
    return true;
}

// The two drawings that a page compares, and the units of their lengths.
struct ComparedDrawing {
    const Drawing & drawing;
    const Lengths & lengths;
};

std::string LayersOf(const DrillHole & hole, const Drawing & drawing)
{
    return drawing.layers[hole.firstLayer].name + " to " + drawing.layers[hole.lastLayer].name;
}

// A hole has no name; it is told by its place.
void AddHoles(const ComparedDrawing & before, const ComparedDrawing & after, const DrawingComparison & comparison,
              Table & differences)
{
    for (const HoleChange & hole : comparison.holes) {
        const std::string place =
            "at " + Cell(after.lengths.Of(hole.center.X)).Text() + "," + Cell(after.lengths.Of(hole.center.Y)).Text();
        const Cell old = hole.before == nullptr ? Cell() : Cell(before.lengths.Of(hole.before->diameter));
        const Cell now = hole.after == nullptr ? Cell() : Cell(after.lengths.Of(hole.after->diameter));
        if (hole.state != ChangeState::Changed ||
            Quantum(before.drawing).Of(hole.before->diameter) != Quantum(after.drawing).Of(hole.after->diameter)) {
            differences.Add({"hole", place, WordOf(hole.state), "diameter", old, now});
        }
        if (hole.state != ChangeState::Changed) {
            continue;
        }
        const std::string oldLayers = LayersOf(*hole.before, before.drawing);
        const std::string newLayers = LayersOf(*hole.after, after.drawing);
        if (oldLayers != newLayers) {
            differences.Add({"hole", place, WordOf(hole.state), "layers", oldLayers, newLayers});
        }
    }
}

json HeadOfHole(const HoleChange & hole, const Drawing & before, const Drawing & after)
{
    const double scale = after.millimetres > 0 ? after.millimetres : 1.0;
    const Drawing & own = hole.after == nullptr ? before : after;
    const DrillHole & drilled = hole.after == nullptr ? *hole.before : *hole.after;
    return {{"state", WordOf(hole.state)},
            {"x", hole.center.X * scale},
            {"y", hole.center.Y * scale},
            {"diameter", hole.diameter * scale},
            {"isOnFront", IsSeen(own, drilled, Side::Top)},
            {"isOnBack", IsSeen(own, drilled, Side::Bottom)}};
}

json HeadOfPart(const PartChange & part, double millimetres)
{
    json head = {{"name", part.name}, {"state", WordOf(part.state)}, {"side", WordOf(part.side)}};
    if (part.state == ChangeState::Moved || part.state == ChangeState::Removed) {
        const double scale = millimetres > 0 ? millimetres : 1.0;
        head["fromX"] = part.from.X * scale;
        head["fromY"] = part.from.Y * scale;
    }
    return head;
}

}  // namespace

std::string PageDataOf(Board & board, const PageChoice & choice)
{
    auto hash = BeginHash(board);
    const Lengths lengths(board, choice.unit);
    const Drawing drawing = DrawingOf(board);
    // These ask nothing of the model either.
    auto columns = std::async(WorkingAtOnce(), [&drawing] { return ColumnsOf(drawing); });
    json head = HeadOfBoard(board, lengths, drawing);
    head["hash"] = hash.get();
    const DrawingColumns drawn = columns.get();
    head["columns"] = HeadsOf(drawn.All());
    return Packed(head, drawn.All());
}

std::string PageDataOf(Board & before, Board & after, const PageChoice & choice)
{
    auto hash = BeginHash(after);
    const Lengths lengths(after, choice.unit);
    const Drawing old = DrawingOf(before);
    Drawing drawing = DrawingOf(after);
    // The page has one unit for both.
    const bool areKnown = old.millimetres > 0 && drawing.millimetres > 0;
    const Lengths oldLengths(before, areKnown ? lengths.ShortName() : choice.unit);
    Table differences = DifferencesOf({before, oldLengths}, {after, lengths}).Rows();
    DrawingComparison comparison = Compare(old, drawing);
    AddChangedParts(differences, comparison);
    AddHoles({old, oldLengths}, {drawing, lengths}, comparison, differences);

    DrawingColumns columns = ColumnsOf(drawing);
    json addedLayers = json::array();
    for (const DrawingComparison::Added & added : comparison.added) {
        addedLayers.push_back(added.layer);
        columns.Add(*added.item);
    }
    Carrier carrier(old, drawing);
    json removed = json::array();
    for (const std::vector<const Item *> & items : comparison.removed) {
        removed.push_back(items.size());
        for (const Item * const item : items) {
            columns.Add(carrier.Carried(*item));
        }
    }
    json removedLayers = json::array();
    for (const std::size_t layer : comparison.removedLayers) {
        removedLayers.push_back(HeadOfLayer(old, layer));
        for (const Item & item : old.layers[layer].items) {
            columns.Add(carrier.Carried(item));
        }
    }
    if (comparison.hasOtherProfile) {
        columns.Add(carrier.Carried(old.profile));
    }
    json holes = json::array();
    for (const HoleChange & hole : comparison.holes) {
        holes.push_back(HeadOfHole(hole, old, drawing));
    }
    json parts = json::array();
    for (const PartChange & part : comparison.parts) {
        parts.push_back(HeadOfPart(part, drawing.millimetres));
    }
    json head = HeadOfBoard(after, lengths, drawing);
    head["hash"] = hash.get();
    head["comparison"] = {{"file", std::filesystem::path(before.File().Name()).filename().string()},
                          {"added", comparison.added.size()},
                          {"addedLayers", std::move(addedLayers)},
                          {"removed", std::move(removed)},
                          {"removedLayers", std::move(removedLayers)},
                          {"hasOtherProfile", comparison.hasOtherProfile},
                          {"holes", std::move(holes)},
                          {"parts", std::move(parts)},
                          {"differences", PageTable(differences)}};
    head["columns"] = HeadsOf(columns.All());
    return Packed(head, columns.All());
}

}  // namespace ipc2581::host
