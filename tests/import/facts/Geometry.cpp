#include "tests/import/facts/Geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace ipc2581::facts {
namespace {

constexpr double Pi = std::numbers::pi;
// Nearer to each other than any two points that a file tells apart.
constexpr double SamePlace = 1e-7;

double Distance(Point a, Point b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

struct Arc {
    Point center;
    double radius = 0.0;
    double from = 0.0;
    double sweep = 0.0;  // positive counterclockwise

    [[nodiscard]] Point At(double angle) const
    {
        return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
    }
    [[nodiscard]] bool Sweeps(double angle) const
    {
        const double turn = std::fmod(sweep < 0 ? from - angle : angle - from, 2 * Pi);
        return (turn < 0 ? turn + 2 * Pi : turn) <= std::abs(sweep);
    }
};

// The centre of a file is rounded; one on the bisector of both ends has the same distance from them.
Point CenterBetween(Point start, const Step & curve)
{
    const Point middle{(start.x + curve.end.x) / 2, (start.y + curve.end.y) / 2};
    const Point normal{start.y - curve.end.y, curve.end.x - start.x};
    const double along = ((curve.center.x - middle.x) * normal.x + (curve.center.y - middle.y) * normal.y) /
                         (normal.x * normal.x + normal.y * normal.y);
    return {middle.x + along * normal.x, middle.y + along * normal.y};
}

Arc ArcOf(Point start, const Step & curve)
{
    const bool isWhole = Distance(start, curve.end) < SamePlace;
    Arc arc;
    arc.center = isWhole ? curve.center : CenterBetween(start, curve);
    arc.radius = Distance(start, arc.center);
    arc.from = std::atan2(start.y - arc.center.y, start.x - arc.center.x);
    const double to = std::atan2(curve.end.y - arc.center.y, curve.end.x - arc.center.x);
    const double turn = std::fmod((curve.isClockwise ? arc.from - to : to - arc.from) + 4 * Pi, 2 * Pi);
    arc.sweep = (isWhole ? 2 * Pi : turn) * (curve.isClockwise ? -1 : 1);
    return arc;
}

// Sums over the parts of a path: all exact, curves too.
struct Measures {
    Point lowerLeft{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Point upperRight{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    double length = 0.0;
    double area = 0.0;
    // The centroid times the area.
    Point moment;

    void Reach(Point point)
    {
        lowerLeft = {std::min(lowerLeft.x, point.x), std::min(lowerLeft.y, point.y)};
        upperRight = {std::max(upperRight.x, point.x), std::max(upperRight.y, point.y)};
    }
    void AddChord(Point from, Point to)
    {
        const double cross = from.x * to.y - to.x * from.y;
        area += cross / 2;
        moment.x += (from.x + to.x) * cross / 6;
        moment.y += (from.y + to.y) * cross / 6;
    }
    // What lies between a curve and its chord.
    void AddSegment(const Arc & arc)
    {
        const double segment = arc.radius * arc.radius / 2 * (arc.sweep - std::sin(arc.sweep));
        const double lever = 2.0 / 3.0 * std::pow(arc.radius * std::sin(arc.sweep / 2), 3);
        const double middle = arc.from + arc.sweep / 2;
        area += segment;
        moment.x += segment * arc.center.x + lever * std::cos(middle);
        moment.y += segment * arc.center.y + lever * std::sin(middle);
    }
    void AddStep(Point from, const Step & step)
    {
        Reach(step.end);
        AddChord(from, step.end);
        if (!step.isCurve) {
            length += Distance(from, step.end);
            return;
        }
        const Arc arc = ArcOf(from, step);
        length += arc.radius * std::abs(arc.sweep);
        AddSegment(arc);
        for (int quarter = 0; quarter < 4; ++quarter) {
            if (arc.Sweeps(quarter * Pi / 2)) {
                Reach(arc.At(quarter * Pi / 2));
            }
        }
    }
    // Adds what another one surrounds, taken away if the sign is negative.
    void AddArea(const Measures & other, double sign)
    {
        const double direction = (other.area < 0 ? -1 : 1) * sign;
        length += other.length;
        area += direction * other.area;
        moment.x += direction * other.moment.x;
        moment.y += direction * other.moment.y;
    }
};

Measures MeasuresOf(const Path & path)
{
    Measures measures;
    measures.Reach(path.begin);
    Point at = path.begin;
    for (const Step & step : path.steps) {
        measures.AddStep(at, step);
        at = step.end;
    }
    return measures;
}

// The middle of the extents for what surrounds next to nothing, where a quotient would be noise.
Point CentroidOf(const Measures & measures)
{
    if (std::abs(measures.area) <= 1e-6 * measures.length * measures.length) {
        return {(measures.lowerLeft.x + measures.upperRight.x) / 2, (measures.lowerLeft.y + measures.upperRight.y) / 2};
    }
    return {measures.moment.x / measures.area, measures.moment.y / measures.area};
}

std::vector<Number> NumbersOf(const Measures & measures)
{
    const Point centroid = CentroidOf(measures);
    return {{"left", measures.lowerLeft.x}, {"bottom", measures.lowerLeft.y},  {"right", measures.upperRight.x},
            {"top", measures.upperRight.y}, {"area", std::abs(measures.area)}, {"centroidX", centroid.x},
            {"centroidY", centroid.y},      {"length", measures.length}};
}

}  // namespace

Point Transform::Of(Point point) const
{
    return {xx * point.x + xy * point.y + move.x, yx * point.x + yy * point.y + move.y};
}

Transform Transform::Of(const Transform & inner) const
{
    return {xx * inner.xx + xy * inner.yx, xx * inner.xy + xy * inner.yy, yx * inner.xx + yy * inner.yx,
            yx * inner.xy + yy * inner.yy, Of(inner.move)};
}

Transform Moved(Point by)
{
    return {.move = by};
}

Transform Scaled(double factor)
{
    return {.xx = factor, .yy = factor};
}

Transform TransformOf(const Xform & xform)
{
    const double angle = xform.rotation * Pi / 180;
    const double sideways = xform.mirror ? -xform.scale : xform.scale;
    return {sideways * std::cos(angle),
            sideways * -std::sin(angle),
            xform.scale * std::sin(angle),
            xform.scale * std::cos(angle),
            {xform.xOffset, xform.yOffset}};
}

Path Placed(const Path & path, const Transform & transform)
{
    Path placed{transform.Of(path.begin), path.steps};
    for (Step & step : placed.steps) {
        step.end = transform.Of(step.end);
        step.center = transform.Of(step.center);
        step.isClockwise = step.isClockwise != transform.Mirrors();
    }
    return placed;
}

bool IsClosed(const Path & path)
{
    return path.steps.empty() || Distance(path.begin, path.steps.back().end) < SamePlace;
}

Path Closed(Path path)
{
    if (!IsClosed(path)) {
        path.steps.push_back({.end = path.begin});
    }
    return path;
}

std::vector<Number> StrokeNumbers(const Path & path)
{
    if (IsClosed(path)) {
        return NumbersOf(MeasuresOf(path));
    }
    std::vector<Number> numbers{{"x", path.begin.x}, {"y", path.begin.y}};
    Point at = path.begin;
    for (const Step & step : path.steps) {
        if (step.isCurve) {
            const Arc arc = ArcOf(at, step);
            const Point middle = arc.At(arc.from + arc.sweep / 2);
            numbers.insert(numbers.end(), {{"overX", middle.x}, {"overY", middle.y}});
        }
        numbers.insert(numbers.end(), {{"toX", step.end.x}, {"toY", step.end.y}});
        at = step.end;
    }
    return numbers;
}

Shape Placed(const Shape & shape, const Transform & transform)
{
    Shape placed{.more = shape.more};
    for (const Path & outline : shape.outlines) {
        placed.outlines.push_back(Placed(outline, transform));
    }
    for (const Path & cutout : shape.cutouts) {
        placed.cutouts.push_back(Placed(cutout, transform));
    }
    return placed;
}

Shape Joined(const std::vector<Shape> & shapes)
{
    Shape all;
    for (const Shape & shape : shapes) {
        all.outlines.insert(all.outlines.end(), shape.outlines.begin(), shape.outlines.end());
        all.cutouts.insert(all.cutouts.end(), shape.cutouts.begin(), shape.cutouts.end());
        all.more.insert(all.more.end(), shape.more.begin(), shape.more.end());
    }
    return all;
}

std::vector<Number> ShapeNumbers(const Shape & shape)
{
    Measures all;
    for (const Path & outline : shape.outlines) {
        const Measures own = MeasuresOf(Closed(outline));
        all.Reach(own.lowerLeft);
        all.Reach(own.upperRight);
        all.AddArea(own, 1);
    }
    for (const Path & cutout : shape.cutouts) {
        all.AddArea(MeasuresOf(Closed(cutout)), -1);
    }
    std::vector<Number> numbers = NumbersOf(all);
    numbers.insert(numbers.end(), shape.more.begin(), shape.more.end());
    return numbers;
}

}  // namespace ipc2581::facts
