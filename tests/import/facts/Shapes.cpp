#include "tests/import/facts/Shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "ipc2581/base/Codes.h"

namespace ipc2581::facts {
namespace {

constexpr double Pi = std::numbers::pi;

Path PathAlong(const std::vector<Point> & points)
{
    Path path{points.front(), {}};
    for (std::size_t i = 1; i < points.size(); ++i) {
        path.steps.push_back({.end = points[i]});
    }
    return Closed(path);
}

Path CirclePath(double diameter, Point center)
{
    const Point begin{center.x + diameter / 2, center.y};
    return {begin, {{.end = begin, .isCurve = true, .center = center}}};
}

Path RectanglePath(Point lowerLeft, Point upperRight)
{
    return PathAlong({lowerLeft, {upperRight.x, lowerLeft.y}, upperRight, {lowerLeft.x, upperRight.y}});
}

Path RegularPath(int count, double radius, double firstAngle)
{
    std::vector<Point> points;
    for (int i = 0; i < count; ++i) {
        const double angle = firstAngle + 2 * Pi * i / count;
        points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return PathAlong(points);
}

// From corner to corner, with two of them on the x axis.
Path HexagonPath(double length)
{
    return RegularPath(6, length / 2, 0);
}

// From side to side.
Path OctagonPath(double length)
{
    return RegularPath(8, length / 2 / std::cos(Pi / 8), Pi / 8);
}

Path FormPath(int form, double size)
{
    switch (form) {
    case OuterForms::Square:
        return RectanglePath({-size / 2, -size / 2}, {size / 2, size / 2});
    case OuterForms::Hexagon:
        return HexagonPath(size);
    case OuterForms::Octagon:
        return OctagonPath(size);
    default:
        return CirclePath(size, {});
    }
}

// A quarter between the positive or negative half axes.
Path QuarterPath(int form, double side)
{
    if (form == OuterForms::Square) {
        return PathAlong({{0, 0}, {side, 0}, {side, side}, {0, side}});
    }
    return Closed({{0, 0}, {{.end = {side, 0}}, {.end = {0, side}, .isCurve = true, .center = {0, 0}}}});
}

enum class Cut { Round, Straight };

// Against the clock from the lower right corner on.
Shape CutRectangle(double width, double height, double size, const Corners & corners, Cut cut)
{
    struct Corner {
        bool isCut;
        Point at;
        Point in;
        Point out;
    };
    const double x = width / 2;
    const double y = height / 2;
    const double own = std::min({size, x, y});
    const std::array<Corner, 4> turns = {{{corners.lowerRight, {x, -y}, {1, 0}, {0, 1}},
                                          {corners.upperRight, {x, y}, {0, 1}, {-1, 0}},
                                          {corners.upperLeft, {-x, y}, {-1, 0}, {0, -1}},
                                          {corners.lowerLeft, {-x, -y}, {0, -1}, {1, 0}}}};
    Path path;
    for (const Corner & turn : turns) {
        const double back = turn.isCut ? own : 0.0;
        const Point start{turn.at.x - back * turn.in.x, turn.at.y - back * turn.in.y};
        const Point end{turn.at.x + back * turn.out.x, turn.at.y + back * turn.out.y};
        path.steps.push_back({.end = start});
        path.steps.push_back({.end = end,
                              .isCurve = cut == Cut::Round && back > 0,
                              .center = {start.x + back * turn.out.x, start.y + back * turn.out.y}});
    }
    path.begin = path.steps.back().end;
    return {.outlines = {path}};
}

}  // namespace

Shape ButterflyShape(int form, double size)
{
    return {.outlines = {QuarterPath(form, size / 2), QuarterPath(form, -size / 2)}};
}

Shape ChamferedRectangle(double width, double height, double chamfer, const Corners & corners)
{
    return CutRectangle(width, height, chamfer, corners, Cut::Straight);
}

Shape CircleShape(double diameter, Point center)
{
    return {.outlines = {CirclePath(diameter, center)}};
}

Shape DiamondShape(double width, double height)
{
    return {.outlines = {PathAlong({{width / 2, 0}, {0, height / 2}, {-width / 2, 0}, {0, -height / 2}})}};
}

Shape DonutShape(int form, double outerDiameter, double innerDiameter)
{
    return {.outlines = {FormPath(form, outerDiameter)}, .cutouts = {FormPath(form, innerDiameter)}};
}

Shape EllipseShape(double width, double height)
{
    Shape circle{.outlines = {RegularPath(360, 1, 0)}};
    return Placed(circle, {.xx = width / 2, .yy = height / 2});
}

Shape HexagonShape(double length)
{
    return {.outlines = {HexagonPath(length)}};
}

Shape MoireShape(double diameter, const std::vector<Number> & more)
{
    return {.outlines = {CirclePath(diameter, {})}, .more = more};
}

Shape OctagonShape(double length)
{
    return {.outlines = {OctagonPath(length)}};
}

Shape OvalShape(double width, double height)
{
    return RoundedRectangle(width, height, std::min(width, height) / 2, {});
}

Shape RectangleShape(Point lowerLeft, Point upperRight)
{
    return {.outlines = {RectanglePath(lowerLeft, upperRight)}};
}

Shape CenteredRectangle(double width, double height)
{
    return RectangleShape({-width / 2, -height / 2}, {width / 2, height / 2});
}

Shape RoundedRectangle(double width, double height, double radius, const Corners & corners)
{
    return CutRectangle(width, height, radius, corners, Cut::Round);
}

Shape ThermalShape(int form, double outerDiameter, double innerDiameter, const std::vector<Number> & more)
{
    Shape thermal = DonutShape(form, outerDiameter, innerDiameter);
    thermal.more = more;
    return thermal;
}

Shape TriangleShape(double base, double height)
{
    return {.outlines = {PathAlong({{-base / 2, -height / 2}, {base / 2, -height / 2}, {0, height / 2}})}};
}

}  // namespace ipc2581::facts
