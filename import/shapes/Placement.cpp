#include "import/shapes/Placement.h"

#include <array>
#include <cmath>
#include <numbers>

namespace ipc2581 {
namespace {

double Radians(double degrees)
{
    return degrees * std::numbers::pi / 180;
}

// Cosine and sine, exact for quarters.
Vertex Direction(const Placement & placement)
{
    constexpr std::array<std::array<double, 2>, 4> quarters = {{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
    const int quarter = placement.Quarters();
    if (quarter >= 0) {
        const auto & direction = quarters[static_cast<std::size_t>(quarter)];
        return {direction[0], direction[1]};
    }
    return {std::cos(Radians(placement.rotation)), std::sin(Radians(placement.rotation))};
}

void AddTurnedEllipse(const PathStep & step, const Placement & placement, Path & placed)
{
    constexpr int corners = 64;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * std::numbers::pi * i / corners;
        const Vertex point = placement.Of({step.center.X + step.end.X * std::cos(angle),  //
                                           step.center.Y + step.end.Y * std::sin(angle)});
        i == 0 ? placed.MoveTo(point) : placed.LineTo(point);
    }
    placed.Close();
}

void AddEllipse(const PathStep & step, const Placement & placement, Path & placed)
{
    const bool isCircle = step.end.X == step.end.Y;
    const int quarter = placement.Quarters();
    if (!isCircle && quarter < 0) {
        AddTurnedEllipse(step, placement, placed);
        return;
    }
    const bool isUpright = isCircle || quarter % 2 == 0;
    placed.AddEllipse(placement.Of(step.center), placement.scale * (isUpright ? step.end.X : step.end.Y),
                      placement.scale * (isUpright ? step.end.Y : step.end.X));
}

}  // namespace

int Placement::Quarters() const
{
    const double quarters = rotation / 90;
    if (quarters != std::floor(quarters)) {
        return -1;
    }
    const double turn = std::fmod(quarters, 4);
    return static_cast<int>(turn < 0 ? turn + 4 : turn);
}

Vertex Placement::Of(const Vertex & point) const
{
    const Vertex direction = Direction(*this);
    const double x = scale * (point.X * direction.X - point.Y * direction.Y);
    const double y = scale * (point.X * direction.Y + point.Y * direction.X);
    return {location.X + (isMirrored ? -x : x), location.Y + y};
}

Placement Placement::Of(const Placement & inner) const
{
    // A turn behind a mirror is the turn the other way in front of it.
    const double turn = inner.isMirrored ? inner.rotation - rotation : inner.rotation + rotation;
    return {Of(inner.location), turn, inner.isMirrored != isMirrored, inner.scale * scale};
}

Path Placed(const Path & path, const Placement & placement)
{
    Path placed;
    for (const PathStep & step : path.steps) {
        if (step.kind == StepKind::Ellipse) {
            AddEllipse(step, placement, placed);
        }
        else if (step.kind == StepKind::Close) {
            placed.Close();
        }
        else if (step.kind == StepKind::Arc || step.kind == StepKind::ClockwiseArc) {
            placed.ArcTo(placement.Of(step.end), placement.Of(step.center),
                         (step.kind == StepKind::ClockwiseArc) != placement.isMirrored);
        }
        else {
            placed.steps.push_back({step.kind, placement.Of(step.end), {}});
        }
    }
    return placed;
}

}  // namespace ipc2581
