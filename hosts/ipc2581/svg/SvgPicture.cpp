#include "hosts/ipc2581/svg/SvgPicture.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/ipc2581/svg/SvgColors.h"
#include "hosts/ipc2581/svg/SvgPath.h"
#include "hosts/ipc2581/svg/SvgWriter.h"

namespace ipc2581::host {
namespace {

constexpr const char * Desk = "#23272b";
constexpr const char * LightDesk = "#f6f4ee";
constexpr const char * Laminate = "#1c3f2c";
constexpr const char * LightLaminate = "#e9e5d8";
constexpr const char * Metal = "#c9a54a";
constexpr const char * Body = "#d8dde2";
constexpr const char * Edge = "#8c8f92";

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

void DrawPart(const Drawing & drawing, const PlacedPart & part, SvgWriter & writer)
{
    if (part.footprint == PlacedPart::NoFootprint) {
        return;
    }
    const Footprint & footprint = drawing.footprints[part.footprint];
    const auto draw = [&] {
        writer.BeginGroup(Metal);
        DrawItems(drawing, footprint.pads, writer);
        writer.EndGroup();
        writer.BeginGroup(Body);
        DrawItems(drawing, footprint.body, writer);
        writer.EndGroup();
    };
    writer.Use(&footprint, draw, part.placement);
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

// Puts the text on the middle of its box, as large as the box allows. The unit is that of the texts.
void WriteLabel(const Item & label, std::string_view text, bool isFromBelow, double unit, SvgWriter & writer)
{
    const Extents box = BoxOf(label.paths.front());
    const double width = (box.MaxX() - box.MinX()) / unit;
    const double height = (box.MaxY() - box.MinY()) / unit;
    // A character is about two thirds as wide as the font is high.
    const double length = 0.66 * static_cast<double>(std::max<std::size_t>(text.size(), 1));
    const bool isUpright = height > 1.5 * width;
    const double fitting = std::min((isUpright ? height : width) / length, 0.8 * (isUpright ? width : height));
    const double x = (box.MinX() + box.MaxX()) / 2 / unit;
    const double y = -(box.MinY() + box.MaxY()) / 2 / unit;
    writer.Text({isFromBelow ? -x : x, y}, std::clamp(fitting, 4.0, 30.0), isUpright, text);
}

// Fonts of far less than a unit are drawn badly: the texts have a unit of their own, a thousandth of the picture.
void LabelParts(const Drawing & drawing, Side side, SvgWriter & writer)
{
    const Extents & box = writer.Box();
    const double size = std::max(box.MaxX() - box.MinX(), box.MaxY() - box.MinY());
    const double unit = size > 0 ? size / 1000 : 1.0;
    writer.BeginGroup("#fff", " font-family=\"sans-serif\" text-anchor=\"middle\" transform=\"scale(" +
                                  SvgNumber(unit, 9) + ")\"");
    for (const PlacedPart & part : drawing.parts) {
        if (part.side == side) {
            WriteLabel(part.label, drawing.names[part.label.text], side == Side::Bottom, unit, writer);
        }
    }
    writer.EndGroup();
}

void DrawLayersOfRole(const Drawing & drawing, Side side, LayerRole role, SvgWriter & writer)
{
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        const DrawnLayer & layer = drawing.layers[i];
        if (layer.side == side && layer.role == role && !layer.isNegative) {
            writer.BeginGroup(ColorOf(drawing, i));
            DrawItems(drawing, layer.items, writer);
            writer.EndGroup();
        }
    }
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

}  // namespace

void WriteLayerPicture(std::ostream & out, const Drawing & drawing, std::size_t layer)
{
    const DrawnLayer & drawn = drawing.layers[layer];
    const std::string color = ColorOf(drawing, layer);
    const std::string desk = IsDark(color) ? LightDesk : Desk;
    const auto draw = [&](SvgWriter & writer) {
        // Of a negative layer the file draws what is not there.
        DrawProfile(drawing, drawn.isNegative ? color.c_str() : IsDark(color) ? LightLaminate : Laminate, writer);
        writer.BeginGroup(drawn.isNegative ? desk : color);
        DrawItems(drawing, drawn.items, writer);
        if (drawn.role == LayerRole::Drill && !drawn.hasFeatures) {
            DrawHoles(drawing, layer, writer);
        }
        writer.EndGroup();
        if (drawn.role == LayerRole::Copper) {
            writer.BeginGroup(desk);
            DrawHoles(drawing, layer, writer);
            DrawSlots(drawing, writer);
            writer.EndGroup();
        }
    };
    WriteSvg(out, {drawing.unit, drawing.decimals, desk}, {draw, [](SvgWriter &) {}});
}

void WriteSidePicture(std::ostream & out, const Drawing & drawing, Side side)
{
    const auto draw = [&](SvgWriter & writer) {
        DrawProfile(drawing, Laminate, writer);
        for (const LayerRole role : {LayerRole::Copper, LayerRole::Legend, LayerRole::Document}) {
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
    const auto label = [&](SvgWriter & writer) { LabelParts(drawing, side, writer); };
    WriteSvg(out, {drawing.unit, drawing.decimals, Desk, side == Side::Bottom}, {draw, label});
}

}  // namespace ipc2581::host
