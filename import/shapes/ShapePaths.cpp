#include "import/shapes/ShapePaths.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>

namespace ipc2581 {
namespace {

using Corners = std::vector<Vertex>;

constexpr double Pi = std::numbers::pi;

Vertex Polar(double radius, double angle)
{
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

double Radians(double degrees)
{
    return degrees * Pi / 180;
}

void AddCorners(const Corners & corners, Path & path)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        i == 0 ? path.MoveTo(corners[i]) : path.LineTo(corners[i]);
    }
    if (!corners.empty()) {
        path.Close();
    }
}

Corners Rectangle(double left, double bottom, double right, double top)
{
    return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

Corners Regular(int count, double radius, double firstAngle)
{
    Corners corners;
    corners.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        corners.push_back(Polar(radius, firstAngle + 2 * Pi * i / count));
    }
    return corners;
}

// From corner to corner, with two of them on the x axis.
Corners Hexagon(double length)
{
    return Regular(6, length / 2, 0);
}

// From side to side.
Corners Octagon(double length)
{
    return Regular(8, length / 2 / std::cos(Pi / 8), Pi / 8);
}

// The corners of a shape type; none for a round one, which one that was not read is too.
Corners FormCorners(int shape, double size)
{
    switch (shape) {
    case OuterForms::Square:
        return Rectangle(-size / 2, -size / 2, size / 2, size / 2);
    case OuterForms::Hexagon:
        return Hexagon(size);
    case OuterForms::Octagon:
        return Octagon(size);
    default:
        return {};
    }
}

void AddForm(int shape, double size, Path & path)
{
    const Corners corners = FormCorners(shape, size);
    corners.empty() ? path.AddEllipse(Vertex(0, 0), size / 2, size / 2) : AddCorners(corners, path);
}

enum class Corner { Round, Chamfered };

struct CornerFlags {
    bool upperRight = true;
    bool upperLeft = true;
    bool lowerLeft = true;
    bool lowerRight = true;
};

// Without any flag all corners are cut: the format leaves them out for that, and of those that a file has the reader
// takes none but by a misspelt word.
template <typename Rect>
CornerFlags FlagsOf(const Rect & rect)
{
    if (rect.UpperRight == 0 && rect.UpperLeft == 0 && rect.LowerLeft == 0 && rect.LowerRight == 0) {
        return {};
    }
    return {rect.UpperRight != 0, rect.UpperLeft != 0, rect.LowerLeft != 0, rect.LowerRight != 0};
}

void AddCutRectangle(double width, double height, double cut, const CornerFlags & flags, Corner kind, Path & path)
{
    const double x = width / 2;
    const double y = height / 2;
    const double size = std::clamp(cut, 0.0, std::max(0.0, std::min(x, y)));
    // Against the clock; the second and third point of a corner are where its edges come from and go to.
    struct Turn {
        bool isCut;
        Vertex corner;
        Vertex in;
        Vertex out;
    };
    const std::array<Turn, 4> turns = {{{flags.lowerRight, {x, -y}, {1, 0}, {0, 1}},
                                        {flags.upperRight, {x, y}, {0, 1}, {-1, 0}},
                                        {flags.upperLeft, {-x, y}, {-1, 0}, {0, -1}},
                                        {flags.lowerLeft, {-x, -y}, {0, -1}, {1, 0}}}};
    for (const Turn & turn : turns) {
        const double own = turn.isCut ? size : 0.0;
        const Vertex start(turn.corner.X - own * turn.in.X, turn.corner.Y - own * turn.in.Y);
        const Vertex end(turn.corner.X + own * turn.out.X, turn.corner.Y + own * turn.out.Y);
        path.IsEmpty() ? path.MoveTo(start) : path.LineTo(start);
        if (own == 0.0) {
            continue;
        }
        if (kind == Corner::Chamfered) {
            path.LineTo(end);
        }
        else {
            path.ArcTo(end, Vertex(start.X + own * turn.out.X, start.Y + own * turn.out.Y), false);
        }
    }
    path.Close();
}

// Two quarters that meet in the centre, upper right and lower left.
void Fill(const CIPC2581_DicDraw_Butterfly & shape, Path & path)
{
    const double half = shape.Size / 2;
    for (const double side : {half, -half}) {
        path.MoveTo(Vertex(0, 0));
        path.LineTo(Vertex(side, 0));
        if (shape.Shape == OuterForms::Square) {
            path.LineTo(Vertex(side, side));
            path.LineTo(Vertex(0, side));
        }
        else {
            path.ArcTo(Vertex(0, side), Vertex(0, 0), false);
        }
        path.Close();
    }
}

void Fill(const CIPC2581_DicDraw_Circle & shape, Path & path)
{
    path.AddEllipse(Vertex(shape.OffsetX, shape.OffsetY), shape.Diameter / 2, shape.Diameter / 2);
}

void Fill(const CIPC2581_DicDraw_Diamond & shape, Path & path)
{
    const double x = shape.Width / 2;
    const double y = shape.Height / 2;
    AddCorners({{x, 0}, {0, y}, {-x, 0}, {0, -y}}, path);
}

void Fill(const CIPC2581_DicDraw_Donut & shape, Path & path)
{
    AddForm(shape.Shape, shape.OuterDiameter, path);
    AddForm(shape.Shape, shape.InnerDiameter, path);
}

void Fill(const CIPC2581_DicDraw_Ellipse & shape, Path & path)
{
    path.AddEllipse(Vertex(0, 0), shape.Width / 2, shape.Height / 2);
}

void Fill(const CIPC2581_DicDraw_Hexagon & shape, Path & path)
{
    AddCorners(Hexagon(shape.Length), path);
}

void Fill(const CIPC2581_DicDraw_Octagon & shape, Path & path)
{
    AddCorners(Octagon(shape.Length), path);
}

void Fill(const CIPC2581_DicDraw_Oval & shape, Path & path)
{
    AddCutRectangle(shape.Width, shape.Height, std::min(shape.Width, shape.Height) / 2, {}, Corner::Round, path);
}

void Fill(const CIPC2581_DicDraw_RectCenter & shape, Path & path)
{
    AddCorners(Rectangle(-shape.Width / 2, -shape.Height / 2, shape.Width / 2, shape.Height / 2), path);
}

void Fill(const CIPC2581_DicDraw_RectCham & shape, Path & path)
{
    AddCutRectangle(shape.Width, shape.Height, shape.Chamfer, FlagsOf(shape), Corner::Chamfered, path);
}

void Fill(const CIPC2581_DicDraw_RectCorner & shape, Path & path)
{
    AddCorners(Rectangle(shape.Lower_LeftX, shape.Lower_LeftY, shape.Upper_RightX, shape.Upper_RightY), path);
}

void Fill(const CIPC2581_DicDraw_RectRound & shape, Path & path)
{
    AddCutRectangle(shape.Width, shape.Height, shape.Radius, FlagsOf(shape), Corner::Round, path);
}

void Fill(const CIPC2581_DicDraw_Triangle & shape, Path & path)
{
    const double x = shape.Base / 2;
    const double y = shape.Height / 2;
    AddCorners({{-x, -y}, {x, -y}, {0, y}}, path);
}

// Where a spoke bridges the ring of a thermal: the ring has a gap there.
struct Spoke {
    double angle;
    double halfGap;
};

std::vector<Spoke> SpokesOf(const CIPC2581_DicDraw_Thermal & shape)
{
    const int count = std::clamp(shape.SpokeCount, 0, 64);
    std::vector<Spoke> spokes;
    spokes.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        spokes.push_back({Radians(shape.SpokeStartAngle) + 2 * Pi * i / count, std::max(0.0, shape.Gap / 2)});
    }
    // What one spoke leaves goes all round, so it is cut where there is no gap: a form with corners at each quarter,
    // since the edge of a gap cuts it all the way across.
    const int parts = count != 1 ? 0 : FormCorners(shape.Shape, 1).empty() ? 2 : 4;
    for (int i = 1; i < parts; ++i) {
        spokes.push_back({spokes.front().angle + 2 * Pi * i / parts, 0.0});
    }
    if (!spokes.empty()) {
        spokes.push_back({spokes.front().angle + 2 * Pi, spokes.front().halfGap});
    }
    return spokes;
}

// What an edge of a gap cuts off of a circle.
double GapAngle(const Spoke & spoke, double radius)
{
    return radius > spoke.halfGap ? std::asin(spoke.halfGap / radius) : Pi / 2;
}

void AddRoundSegment(const Spoke & first, const Spoke & second, double outer, double inner, Path & path)
{
    const double from = first.angle + GapAngle(first, outer);
    const double to = second.angle - GapAngle(second, outer);
    if (from >= to) {
        return;
    }
    const double middle = (first.angle + second.angle) / 2;
    const double innerFrom = std::min(middle, first.angle + GapAngle(first, inner));
    const double innerTo = std::max(middle, second.angle - GapAngle(second, inner));
    path.MoveTo(Polar(outer, from));
    path.ArcTo(Polar(outer, to), Vertex(0, 0), false);
    path.LineTo(Polar(inner, innerTo));
    if (innerFrom < innerTo) {
        path.ArcTo(Polar(inner, innerFrom), Vertex(0, 0), true);
    }
    path.Close();
}

// What of a convex area lies beyond a line through the origin, moved aside by a distance.
Corners CutOff(const Corners & corners, double normalAngle, double distance)
{
    const Vertex normal = Polar(1, normalAngle);
    const auto beyond = [&](const Vertex & point) { return point.X * normal.X + point.Y * normal.Y - distance; };
    // What lies on the line but for rounding is kept.
    constexpr double rounding = 1e-9;
    Corners kept;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vertex & from = corners[i];
        const Vertex & to = corners[(i + 1) % corners.size()];
        const double a = beyond(from);
        const double b = beyond(to);
        if (a >= -rounding) {
            kept.push_back(from);
        }
        if ((a < -rounding) != (b < -rounding)) {
            const double part = a / (a - b);
            kept.push_back({from.X + part * (to.X - from.X), from.Y + part * (to.Y - from.Y)});
        }
    }
    return kept;
}

// The part of a form between the gaps of two spokes: begins beside the first, against the clock.
Corners WedgeOf(const Corners & form, const Spoke & first, const Spoke & second)
{
    const Corners half = CutOff(form, first.angle + Pi / 2, first.halfGap);
    return CutOff(half, second.angle - Pi / 2, second.halfGap);
}

// The corner of a wedge that lies on the edge of a gap farthest out, by its place; none if the edge is not reached.
std::optional<std::size_t> OuterCorner(const Corners & wedge, const Spoke & spoke, double side)
{
    const Vertex out = Polar(1, spoke.angle);
    const Vertex normal = Polar(1, spoke.angle + side);
    constexpr double rounding = 1e-6;
    std::optional<std::size_t> found;
    double farthest = 0;
    for (std::size_t i = 0; i < wedge.size(); ++i) {
        const double distance = wedge[i].X * normal.X + wedge[i].Y * normal.Y - spoke.halfGap;
        const double along = wedge[i].X * out.X + wedge[i].Y * out.Y;
        if (std::abs(distance) < rounding && (!found.has_value() || along > farthest)) {
            found = i;
            farthest = along;
        }
    }
    return found;
}

// What of a wedge lies on the form, from the edge of one gap to that of the other; empty if it does not reach both.
Corners ChainOf(const Corners & wedge, const Spoke & first, const Spoke & second)
{
    const std::optional<std::size_t> from = OuterCorner(wedge, first, Pi / 2);
    const std::optional<std::size_t> to = OuterCorner(wedge, second, -Pi / 2);
    Corners chain;
    if (!from.has_value() || !to.has_value()) {
        return chain;
    }
    for (std::size_t i = *from; i != *to; i = (i + 1) % wedge.size()) {
        chain.push_back(wedge[i]);
    }
    chain.push_back(wedge[*to]);
    return chain;
}

// One outline for what is left of the outer form, so that it keeps its shape wherever it is placed.
void AddAngularSegment(const Spoke & first, const Spoke & second, const Corners & outer, const Corners & inner,
                       Path & path)
{
    const Corners outerWedge = WedgeOf(outer, first, second);
    const Corners innerWedge = WedgeOf(inner, first, second);
    const Corners innerChain = ChainOf(innerWedge, first, second);
    if (innerChain.empty()) {
        AddCorners(outerWedge, path);
        AddCorners(innerWedge, path);
        return;
    }
    Corners ring = ChainOf(outerWedge, first, second);
    ring.insert(ring.end(), innerChain.rbegin(), innerChain.rend());
    AddCorners(ring, path);
}

void Fill(const CIPC2581_DicDraw_Thermal & shape, Path & path)
{
    const std::vector<Spoke> spokes = SpokesOf(shape);
    if (spokes.empty()) {
        AddForm(shape.Shape, shape.OuterDiameter, path);
        AddForm(shape.Shape, shape.InnerDiameter, path);
        return;
    }
    const Corners outer = FormCorners(shape.Shape, shape.OuterDiameter);
    const Corners inner = FormCorners(shape.Shape, shape.InnerDiameter);
    for (std::size_t i = 0; i + 1 < spokes.size(); ++i) {
        if (outer.empty()) {
            AddRoundSegment(spokes[i], spokes[i + 1], shape.OuterDiameter / 2, shape.InnerDiameter / 2, path);
        }
        else {
            AddAngularSegment(spokes[i], spokes[i + 1], outer, inner, path);
        }
    }
}

void FillRings(const CIPC2581_DicDraw_Moire & shape, Path & path)
{
    const double pitch = shape.RingWidth + shape.RingGap;
    const int count = pitch > 0 ? std::clamp(shape.RingNumber, 0, 100) : std::clamp(shape.RingNumber, 0, 1);
    for (int i = 0; i < count; ++i) {
        const double outer = shape.Diameter / 2 - i * pitch;
        if (outer <= 0) {
            return;
        }
        path.AddEllipse(Vertex(0, 0), outer, outer);
        if (outer > shape.RingWidth) {
            path.AddEllipse(Vertex(0, 0), outer - shape.RingWidth, outer - shape.RingWidth);
        }
    }
}

void FillBar(double length, double width, double angle, Path & path)
{
    const Vertex along = Polar(length / 2, angle);
    const Vertex across = Polar(width / 2, angle + Pi / 2);
    AddCorners({{along.X - across.X, along.Y - across.Y},
                {along.X + across.X, along.Y + across.Y},
                {across.X - along.X, across.Y - along.Y},
                {-along.X - across.X, -along.Y - across.Y}},
               path);
}

using Paths = std::vector<Path>;

void AddFilled(const CIPC2581_DicDraw_Moire & shape, Paths & paths)
{
    FillRings(shape, paths.emplace_back());
    FillBar(shape.LineLength, shape.LineWidth, Radians(shape.LineAngle), paths.emplace_back());
    FillBar(shape.LineLength, shape.LineWidth, Radians(shape.LineAngle) + Pi / 2, paths.emplace_back());
}

// Each polygon with the cutouts behind it.
void AddFilled(const CIPC2581_DicDraw_Contour & shape, Paths & paths)
{
    bool hasPolygon = false;
    for (const CIPC2581_DrawObj * const part : Each(shape.DicDrawObjArray)) {
        const auto * const polygon = dynamic_cast<const CIPC2581_Polygon *>(part);
        const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(part);
        if (paths.empty() || (polygon != nullptr && hasPolygon)) {
            paths.emplace_back();
        }
        if (polygon != nullptr) {
            hasPolygon = true;
            paths.back().AddContour(*polygon->PolyBegin, *polygon->PolyStepArray);
        }
        else if (cutout != nullptr) {
            paths.back().AddContour(*cutout->PolyBegin, *cutout->PolyStepArray);
        }
    }
}

template <typename Shape>
void AddFilled(const Shape & shape, Paths & paths)
{
    Fill(shape, paths.emplace_back());
}

// True if the shape is of the type, and so drawn.
template <typename Shape>
bool AddIf(const CIPC2581_DrawObj & shape, Paths & paths)
{
    const auto * const known = dynamic_cast<const Shape *>(&shape);
    if (known != nullptr) {
        AddFilled(*known, paths);
    }
    return known != nullptr;
}

template <typename... Shapes>
void AddAny(const CIPC2581_DrawObj & shape, Paths & paths)
{
    static_cast<void>((AddIf<Shapes>(shape, paths) || ...));
}

}  // namespace

std::vector<Path> FilledPaths(const CIPC2581_DrawObj & shape)
{
    Paths paths;
    AddAny<CIPC2581_DicDraw_Contour, CIPC2581_DicDraw_Circle, CIPC2581_DicDraw_RectCenter, CIPC2581_DicDraw_RectRound,
           CIPC2581_DicDraw_Oval, CIPC2581_DicDraw_Butterfly, CIPC2581_DicDraw_Diamond, CIPC2581_DicDraw_Donut,
           CIPC2581_DicDraw_Ellipse, CIPC2581_DicDraw_Hexagon, CIPC2581_DicDraw_Moire, CIPC2581_DicDraw_Octagon,
           CIPC2581_DicDraw_RectCham, CIPC2581_DicDraw_RectCorner, CIPC2581_DicDraw_Thermal, CIPC2581_DicDraw_Triangle>(
        shape, paths);
    std::erase_if(paths, [](const Path & path) { return path.IsEmpty(); });
    return paths;
}

Path ProfilePath(const CIPC2581_Ecad_CadData_Step_Profile & profile)
{
    Path path;
    path.AddContour(*profile.Polygon->PolyBegin, *profile.Polygon->PolyStepArray);
    for (const CIPC2581_DrawObj * const part : Each(profile.Cutouts)) {
        const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(part);
        if (cutout != nullptr) {
            path.AddContour(*cutout->PolyBegin, *cutout->PolyStepArray);
        }
    }
    return path;
}

}  // namespace ipc2581
