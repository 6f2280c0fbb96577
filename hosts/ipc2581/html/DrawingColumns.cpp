#include "hosts/ipc2581/html/DrawingColumns.h"

#include <algorithm>
#include <cmath>

namespace ipc2581::host {
namespace {

// What an item is, in one number: its kind, the ends of a stroke, and what is told of it besides.
constexpr std::int64_t EndsUnit = 4;
constexpr std::int64_t HasPlacement = 16;
constexpr std::int64_t IsMirrored = 32;
constexpr std::int64_t HasOwnPaths = 64;

// Of the same size for every angle and scale that a file tells.
constexpr double PartsOfADegree = 1000.0;
constexpr double PartsOfAScale = 1e6;

// No board is larger, and what a page reads as a number of its own stays exact.
std::int64_t Rounded(double number)
{
    constexpr double largest = 1e12;
    return std::isfinite(number) ? std::llround(std::clamp(number, -largest, largest)) : 0;
}

}  // namespace

Quantum::Quantum(const Drawing & drawing) : m_scale(1000.0 * (drawing.millimetres > 0 ? drawing.millimetres : 1.0)) {}

std::int64_t Quantum::Of(double length) const
{
    return Rounded(length * m_scale);
}

DrawingColumns::DrawingColumns(const Quantum & quantum)
    : m_quantum(quantum),
      m_columns({{"itemKind", false},    {"itemShape", false},    {"itemNet", true},    {"itemPin", true},
                 {"itemText", true},     {"itemWidth", true},     {"itemX", true},      {"itemY", true},
                 {"itemAngle", false},   {"itemScale", false},    {"itemPaths", false}, {"pathSteps", false},
                 {"stepKind", false},    {"stepX", true},         {"stepY", true},      {"stepCenterX", false},
                 {"stepCenterY", false}, {"holeX", true},         {"holeY", true},      {"holeDiameter", true},
                 {"holeFirst", true},    {"holeLast", true},      {"holeNet", true},    {"partName", true},
                 {"partSide", false},    {"partFootprint", true}, {"partX", true},      {"partY", true},
                 {"partAngle", false},   {"partPadNet", true}})
{
}

void DrawingColumns::Add(const Item & item)
{
    const bool isPlaced = !item.placement.IsNothing();
    const bool hasOwnPaths = item.shape == Item::OwnPaths;
    Put(ItemKindOf, static_cast<std::int64_t>(item.kind) | static_cast<std::int64_t>(item.ends) * EndsUnit |
                        (isPlaced ? HasPlacement : 0) | (item.placement.isMirrored ? IsMirrored : 0) |
                        (hasOwnPaths ? HasOwnPaths : 0));
    Put(ItemNet, std::int64_t(item.net));
    Put(ItemPin, std::int64_t(item.pin));
    if (isPlaced) {
        Put(ItemX, item.placement.location.X);
        Put(ItemY, item.placement.location.Y);
        Put(ItemAngle, Rounded(item.placement.rotation * PartsOfADegree));
        Put(ItemScale, Rounded(item.placement.scale * PartsOfAScale));
    }
    if (item.kind == ItemKind::Text) {
        Put(ItemText, std::int64_t(item.text));
    }
    if (item.kind == ItemKind::Stroke || item.kind == ItemKind::Hole) {
        Put(ItemWidth, item.width);
    }
    if (hasOwnPaths) {
        Put(ItemPaths, static_cast<std::int64_t>(item.paths.size()));
        Add(item.paths);
        return;
    }
    Put(ItemShape, static_cast<std::int64_t>(item.shape));
}

void DrawingColumns::Add(const std::vector<Path> & paths)
{
    for (const Path & path : paths) {
        Add(path);
    }
}

void DrawingColumns::Add(const Path & path)
{
    Put(PathSteps, static_cast<std::int64_t>(path.steps.size()));
    Vertex before;
    for (const PathStep & step : path.steps) {
        AddStep(step, before);
        before = step.kind == StepKind::Close || step.kind == StepKind::Ellipse ? before : step.end;
    }
}

// A centre is told from where its curve begins, so that the same curve has the same numbers everywhere.
void DrawingColumns::AddStep(const PathStep & step, const Vertex & before)
{
    Put(StepKindOf, static_cast<std::int64_t>(step.kind));
    if (step.kind == StepKind::Close) {
        return;
    }
    const bool isEllipse = step.kind == StepKind::Ellipse;
    const Vertex & place = isEllipse ? step.center : step.end;
    Put(StepX, place.X);
    Put(StepY, place.Y);
    if (isEllipse) {
        Put(StepCenterX, step.end.X);
        Put(StepCenterY, step.end.Y);
    }
    if (step.kind == StepKind::Arc || step.kind == StepKind::ClockwiseArc) {
        Put(StepCenterX, m_quantum.Of(step.center.X) - m_quantum.Of(before.X));
        Put(StepCenterY, m_quantum.Of(step.center.Y) - m_quantum.Of(before.Y));
    }
}

void DrawingColumns::Add(const DrillHole & hole)
{
    Put(HoleX, hole.center.X);
    Put(HoleY, hole.center.Y);
    Put(HoleDiameter, hole.diameter);
    Put(HoleFirst, static_cast<std::int64_t>(hole.firstLayer));
    Put(HoleLast, static_cast<std::int64_t>(hole.lastLayer));
    Put(HoleNet, std::int64_t(hole.net));
}

void DrawingColumns::Add(const PlacedPart & part)
{
    constexpr std::int64_t labelled = 8;
    constexpr std::int64_t mirrored = 16;
    const bool hasFootprint = part.footprint != PlacedPart::NoFootprint;
    Put(PartName, std::int64_t(part.refDes));
    Put(PartSide, static_cast<std::int64_t>(part.side) | (part.isLabelled ? labelled : 0) |
                      (part.placement.isMirrored ? mirrored : 0));
    // 0 is none.
    Put(PartFootprint, hasFootprint ? static_cast<std::int64_t>(part.footprint) + 1 : 0);
    Put(PartX, part.placement.location.X);
    Put(PartY, part.placement.location.Y);
    Put(PartAngle, Rounded(part.placement.rotation * PartsOfADegree));
    for (const NameIndex net : part.padNets) {
        Put(PartPadNet, std::int64_t(net));
    }
    Add(part.label);
}

void DrawingColumns::Add(const Drawing & drawing)
{
    for (const DictionaryShape & shape : drawing.shapes) {
        Add(shape.paths);
    }
    for (const Footprint & footprint : drawing.footprints) {
        for (const std::vector<Item> * const items : {&footprint.pads, &footprint.body}) {
            for (const Item & item : *items) {
                Add(item);
            }
        }
    }
    for (const DrawnLayer & layer : drawing.layers) {
        for (const Item & item : layer.items) {
            Add(item);
        }
    }
    Add(drawing.profile);
    for (const DrillHole & hole : drawing.holes) {
        Add(hole);
    }
    for (const PlacedPart & part : drawing.parts) {
        Add(part);
    }
}

}  // namespace ipc2581::host
