#include "hosts/ipc2581/svg/SvgPicture.h"

#include <algorithm>
#include <functional>
#include <future>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/ipc2581/board/MemoryBound.h"
#include "hosts/ipc2581/svg/SvgColors.h"
#include "hosts/ipc2581/svg/SvgPath.h"
#include "hosts/ipc2581/svg/SvgWriter.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

constexpr const char * Desk = "#23272b";
constexpr const char * LightDesk = "#f6f4ee";
constexpr const char * Laminate = "#1c3f2c";
constexpr const char * LightLaminate = "#e9e5d8";
constexpr const char * Metal = "#c9a54a";
constexpr const char * Body = "#d8dde2";
constexpr const char * Edge = "#8c8f92";
constexpr const char * Mask = "#1b5236";
constexpr const char * MaskedCopper = "#2c7650";
constexpr const char * BareLaminate = "#8f8154";

void FillAll(const std::vector<Path> & paths, SvgWriter & writer)
{
    for (const Path & path : paths) {
        writer.Fill(path);
    }
}

void DrawProfile(const Drawing & drawing, const char * color, SvgWriter & writer)
{
    writer.BeginGroup(color);
    writer.Fill(drawing.profile);
    writer.EndGroup();
    writer.BeginGroup(Edge);
    writer.Stroke(drawing.profile, 0.0, StrokeEnds::Round);
    writer.EndGroup();
}

void DrawItem(const Drawing & drawing, const Item & item, SvgWriter & writer)
{
    if (item.kind == ItemKind::Hole) {
        writer.Disc(item.placement.location, item.width);
    }
    else if (item.kind == ItemKind::Stroke) {
        writer.Stroke(item.paths.front(), item.width, item.ends);
    }
    else if (item.shape == Item::OwnPaths) {
        FillAll(item.paths, writer);
    }
    else {
        const DictionaryShape & shape = drawing.shapes[item.shape];
        writer.Use(
            &shape, [&] { FillAll(shape.paths, writer); }, item.placement);
    }
}

void DrawItems(const Drawing & drawing, const std::vector<Item> & items, SvgWriter & writer)
{
    for (const Item & item : items) {
        DrawItem(drawing, item, writer);
    }
}

// Those of each net together, where it comes first.
void DrawItemsByNet(const Drawing & drawing, const std::vector<Item> & items, SvgWriter & writer)
{
    std::vector<std::vector<const Item *>> itemsOfNets;
    std::unordered_map<NameIndex, std::size_t> places;
    for (const Item & item : items) {
        const auto [place, isNew] = places.try_emplace(item.net, itemsOfNets.size());
        if (isNew) {
            itemsOfNets.emplace_back();
        }
        itemsOfNets[place->second].push_back(&item);
    }
    for (const std::vector<const Item *> & ofNet : itemsOfNets) {
        const NameIndex net = ofNet.front()->net;
        if (net != 0) {
            writer.BeginNamed("net", drawing.names[net]);
        }
        for (const Item * const item : ofNet) {
            DrawItem(drawing, *item, writer);
        }
        if (net != 0) {
            writer.EndGroup();
        }
    }
}

void DrawHoles(const Drawing & drawing, std::size_t layer, SvgWriter & writer)
{
    for (const DrillHole & hole : drawing.holes) {
        if (hole.GoesThrough(layer)) {
            writer.Disc(hole.center, hole.diameter);
        }
    }
}

// What is cut out of the board by areas of layers that drill and rout.
void DrawSlots(const Drawing & drawing, SvgWriter & writer)
{
    for (const DrawnLayer & layer : drawing.layers) {
        if (layer.role != LayerRole::Drill || layer.isNegative) {
            continue;
        }
        for (const Item & item : layer.items) {
            if (item.kind == ItemKind::Outline) {
                DrawItem(drawing, item, writer);
            }
        }
    }
}

Extents BoxOf(const Path & path)
{
    Extents box;
    for (const PathStep & step : path.steps) {
        if (step.kind != StepKind::Close) {
            box.Add(step.end);
        }
    }
    return box;
}

double SmallerSideOf(const Path & path)
{
    const Extents box = BoxOf(path);
    return std::min(box.MaxX() - box.MinX(), box.MaxY() - box.MinY());
}

bool IsSeen(const Drawing & drawing, const PlacedPart & part)
{
    if (part.footprint == PlacedPart::NoFootprint) {
        return false;
    }
    const Footprint & footprint = drawing.footprints[part.footprint];
    return !footprint.pads.empty() || !footprint.body.empty();
}

void DrawPart(const Drawing & drawing, const PlacedPart & part, SvgWriter & writer)
{
    if (!IsSeen(drawing, part)) {
        return;
    }
    const Footprint & footprint = drawing.footprints[part.footprint];
    const auto draw = [&] {
        // A small part would be hidden below its outline.
        writer.SetThinnest(SmallerSideOf(part.label.paths.front()) / 30);
        writer.BeginGroup(Metal);
        DrawItems(drawing, footprint.pads, writer);
        writer.EndGroup();
        writer.BeginGroup(Body);
        DrawItems(drawing, footprint.body, writer);
        writer.EndGroup();
        writer.SetThinnest(0);
    };
    writer.BeginNamed("part", drawing.names[part.refDes]);
    writer.Use(&footprint, draw, part.placement);
    writer.EndGroup();
}

Extents Measured(const Drawing & drawing, const std::function<void(SvgWriter &)> & draw)
{
    std::ostream nowhere(nullptr);
    SvgWriter writer(nowhere, drawing.decimals, 0.0);
    draw(writer);
    writer.Flush();
    return writer.Box();
}

// A part without an outline is as large as its pads.
Extents LabelBox(const Drawing & drawing, const PlacedPart & part)
{
    const Path & outline = part.label.paths.front();
    return SmallerSideOf(outline) > 0 ? BoxOf(outline)
                                      : Measured(drawing, [&](SvgWriter & writer) { DrawPart(drawing, part, writer); });
}

// Fonts of far less than a unit are drawn badly: the texts have a unit of their own, a thousandth of the board.
double UnitOfTexts(const SvgFrame & frame)
{
    return frame.boardSize / 1000;
}

// Puts the text on the middle of its box, as large as the box allows; nothing where nobody could read it. The unit is
// that of the texts.
void WriteLabel(const Extents & box, std::string_view text, const SvgFrame & frame, bool isFromBelow,
                SvgWriter & writer)
{
    const double unit = UnitOfTexts(frame);
    const double width = (box.MaxX() - box.MinX()) / unit;
    const double height = (box.MaxY() - box.MinY()) / unit;
    // A column is about two thirds as wide as the font is high.
    const double length = 0.66 * static_cast<double>(std::max<std::size_t>(Width(text), 1));
    const bool isUpright = height > 1.5 * width;
    const double fitting = std::min((isUpright ? height : width) / length, 0.8 * (isUpright ? width : height));
    constexpr double smallest = 4.0;
    constexpr double largest = 24.0;
    if (fitting < smallest) {
        return;
    }
    const double middle = (box.MinX() + box.MaxX()) / 2;
    const double x = (isFromBelow ? frame.box.MinX() + frame.box.MaxX() - middle : middle) / unit;
    const double y = -(box.MinY() + box.MaxY()) / 2 / unit;
    writer.Text({x, y}, std::min(fitting, largest), isUpright, text);
}

void LabelParts(const Drawing & drawing, const SvgFrame & frame, Side side, SvgWriter & writer)
{
    const double unit = UnitOfTexts(frame);
    writer.BeginGroup("#fff", " class=\"label\" font-family=\"sans-serif\" text-anchor=\"middle\" "
                              "transform=\"scale(" +
                                  SvgNumber(unit, 9) + ")\"");
    for (const PlacedPart & part : drawing.parts) {
        if (part.side == side && IsSeen(drawing, part) && part.isLabelled) {
            WriteLabel(LabelBox(drawing, part), drawing.names[part.label.text], frame, side == Side::Bottom, writer);
        }
    }
    writer.EndGroup();
}

bool IsDrawnOn(const DrawnLayer & layer, Side side, LayerRole role)
{
    return layer.side == side && layer.role == role && !layer.isNegative;
}

void DrawLayersOfRole(const Drawing & drawing, Side side, LayerRole role, SvgWriter & writer)
{
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        const DrawnLayer & layer = drawing.layers[i];
        if (IsDrawnOn(layer, side, role)) {
            writer.BeginGroup(ColorOf(drawing, i));
            writer.BeginNamed("layer", layer.name);
            DrawItemsByNet(drawing, layer.items, writer);
            writer.EndGroup();
            writer.EndGroup();
        }
    }
}

// What a layer of solder mask has is its openings, whatever its polarity.
bool HasMask(const Drawing & drawing, Side side)
{
    return std::any_of(drawing.layers.begin(), drawing.layers.end(), [&](const DrawnLayer & layer) {
        return layer.side == side && layer.role == LayerRole::Mask && !layer.items.empty();
    });
}

void DrawOpenings(const Drawing & drawing, Side side, SvgWriter & writer)
{
    writer.Raw("<mask id=\"openings\">\n");
    writer.BeginGroup("#fff");
    for (const DrawnLayer & layer : drawing.layers) {
        if (layer.side == side && layer.role == LayerRole::Mask) {
            writer.BeginNamed("layer", layer.name);
            DrawItems(drawing, layer.items, writer);
            writer.EndGroup();
        }
    }
    writer.EndGroup();
    writer.Raw("</mask>\n");
}

// The copper is written once and used twice: below the mask, and with its finish in the openings.
void DrawMaskedCopper(const Drawing & drawing, Side side, SvgWriter & writer)
{
    writer.BeginGroup(MaskedCopper);
    writer.Raw("<g id=\"copper\">\n");
    for (const DrawnLayer & layer : drawing.layers) {
        if (IsDrawnOn(layer, side, LayerRole::Copper)) {
            writer.BeginNamed("layer", layer.name);
            DrawItemsByNet(drawing, layer.items, writer);
            writer.EndGroup();
        }
    }
    writer.EndGroup();
    writer.EndGroup();
    DrawOpenings(drawing, side, writer);
    writer.Raw("<g mask=\"url(#openings)\">\n");
    writer.BeginGroup(BareLaminate);
    writer.Fill(drawing.profile);
    writer.EndGroup();
    writer.BeginGroup(Metal);
    writer.Raw("<use href=\"#copper\"/>\n");
    writer.EndGroup();
    writer.EndGroup();
}

// The holes that go through the outer copper.
void DrawHolesOfSide(const Drawing & drawing, Side side, SvgWriter & writer)
{
    const auto found = std::find_if(drawing.layers.begin(), drawing.layers.end(), [&](const DrawnLayer & layer) {
        return layer.side == side && layer.role == LayerRole::Copper;
    });
    if (found != drawing.layers.end()) {
        DrawHoles(drawing, static_cast<std::size_t>(found - drawing.layers.begin()), writer);
    }
}

// The title of a layer: its name, and what it is for.
std::string TitleOf(const DrawnLayer & layer)
{
    return layer.function.empty() ? layer.name : layer.name + " (" + layer.function + ")";
}

void Add(Extents & box, const Extents & other)
{
    if (!other.IsEmpty()) {
        box.Add({other.MinX(), other.MinY()});
        box.Add({other.MaxX(), other.MaxY()});
    }
}

Extents BoxOfLayer(const Drawing & drawing, const DrawnLayer & layer)
{
    return Measured(drawing, [&](SvgWriter & writer) { DrawItems(drawing, layer.items, writer); });
}

// Whether a layer tells of the board, and is not a part of it.
bool IsForPeople(const DrawnLayer & layer)
{
    const bool isOnBoard = layer.side == Side::Top || layer.side == Side::Bottom;
    return (layer.role == LayerRole::Document && !isOnBoard) || layer.role == LayerRole::Assembly ||
           layer.role == LayerRole::Other;
}

double SizeOf(const Extents & box)
{
    return std::max(box.MaxX() - box.MinX(), box.MaxY() - box.MinY());
}

}  // namespace

std::vector<Extents> BoxesOfLayers(const Drawing & drawing)
{
    std::vector<Extents> boxes(drawing.layers.size());
    const auto measureEachOther = [&](std::size_t first) {
        for (std::size_t i = first; i < boxes.size(); i += 2) {
            boxes[i] = BoxOfLayer(drawing, drawing.layers[i]);
        }
    };
    auto others = std::async(WorkingAtOnce(), measureEachOther, std::size_t(1));
    measureEachOther(0);
    others.get();
    return boxes;
}

SvgFrame FrameOf(const Drawing & drawing, const std::vector<Extents> & layerBoxes, bool hasAll)
{
    Extents box = Measured(drawing, [&](SvgWriter & writer) { DrawProfile(drawing, Laminate, writer); });
    const Extents board = box;
    Add(box, Measured(drawing, [&](SvgWriter & writer) {
            for (const DrillHole & hole : drawing.holes) {
                writer.Disc(hole.center, hole.diameter);
            }
            for (const PlacedPart & part : drawing.parts) {
                DrawPart(drawing, part, writer);
            }
        }));
    for (std::size_t i = 0; i < layerBoxes.size(); ++i) {
        if (hasAll || board.IsEmpty() || !IsForPeople(drawing.layers[i])) {
            Add(box, layerBoxes[i]);
        }
    }
    if (box.IsEmpty()) {
        box.Add(Vertex(0, 0));
        box.Add(Vertex(1, 1));
    }
    const double size = SizeOf(board.IsEmpty() ? box : board);
    Extents page;
    const double margin = SizeOf(box) / 50;
    page.Add({box.MinX() - margin, box.MinY() - margin});
    page.Add({box.MaxX() + margin, box.MaxY() + margin});
    return {drawing.unit, drawing.decimals, page, size > 0 ? size : 1.0};
}

std::vector<std::size_t> LayersBeyond(const std::vector<Extents> & layerBoxes, const SvgFrame & frame)
{
    std::vector<std::size_t> beyond;
    for (std::size_t i = 0; i < layerBoxes.size(); ++i) {
        const Extents & box = layerBoxes[i];
        if (!box.IsEmpty() && (box.MinX() < frame.box.MinX() || box.MinY() < frame.box.MinY() ||
                               box.MaxX() > frame.box.MaxX() || box.MaxY() > frame.box.MaxY())) {
            beyond.push_back(i);
        }
    }
    return beyond;
}

void WriteLayerPicture(std::ostream & out, const Drawing & drawing, const SvgFrame & frame, std::size_t layer)
{
    const DrawnLayer & drawn = drawing.layers[layer];
    const std::string color = ColorOf(drawing, layer);
    const std::string desk = IsDark(color) ? LightDesk : Desk;
    const auto draw = [&](SvgWriter & writer) {
        // Of a negative layer the file draws what is not there.
        DrawProfile(drawing, drawn.isNegative ? color.c_str() : IsDark(color) ? LightLaminate : Laminate, writer);
        writer.BeginGroup(drawn.isNegative ? desk : color);
        writer.BeginNamed("layer", drawn.name);
        DrawItemsByNet(drawing, drawn.items, writer);
        if (drawn.role == LayerRole::Drill && !drawn.hasFeatures) {
            DrawHoles(drawing, layer, writer);
        }
        writer.EndGroup();
        writer.EndGroup();
        if (drawn.role == LayerRole::Copper) {
            writer.BeginGroup(desk);
            DrawHoles(drawing, layer, writer);
            DrawSlots(drawing, writer);
            writer.EndGroup();
        }
    };
    WriteSvg(out, frame, {TitleOf(drawn), desk}, {draw, [](SvgWriter &) {}});
}

void WriteSidePicture(std::ostream & out, const Drawing & drawing, const SvgFrame & frame, Side side)
{
    const auto draw = [&](SvgWriter & writer) {
        const bool hasMask = HasMask(drawing, side);
        DrawProfile(drawing, hasMask ? Mask : Laminate, writer);
        if (hasMask) {
            DrawMaskedCopper(drawing, side, writer);
        }
        else {
            DrawLayersOfRole(drawing, side, LayerRole::Copper, writer);
        }
        for (const LayerRole role : {LayerRole::Legend, LayerRole::Document}) {
            DrawLayersOfRole(drawing, side, role, writer);
        }
        for (const PlacedPart & part : drawing.parts) {
            if (part.side == side) {
                DrawPart(drawing, part, writer);
            }
        }
        writer.BeginGroup(Desk);
        DrawHolesOfSide(drawing, side, writer);
        DrawSlots(drawing, writer);
        writer.EndGroup();
    };
    const auto label = [&](SvgWriter & writer) { LabelParts(drawing, frame, side, writer); };
    const bool isBottom = side == Side::Bottom;
    WriteSvg(out, frame, {isBottom ? "Bottom" : "Top", Desk, isBottom}, {draw, label});
}

}  // namespace ipc2581::host
