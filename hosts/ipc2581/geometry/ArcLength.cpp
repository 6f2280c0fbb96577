#include "hosts/ipc2581/geometry/ArcLength.h"

#include <cmath>
#include <numbers>

namespace ipc2581::host {
namespace {

double AngleOf(const Vertex & point, const Vertex & center)
{
    return std::atan2(point.Y - center.Y, point.X - center.X);
}

}  // namespace

double Distance(const Vertex & from, const Vertex & to)
{
    return std::hypot(to.X - from.X, to.Y - from.Y);
}

double ArcLength(const Vertex & from, const Vertex & to, const Vertex & center, bool isClockwise)
{
    constexpr double circle = 2 * std::numbers::pi;
    const double turn = AngleOf(to, center) - AngleOf(from, center);
    double angle = std::fmod(isClockwise ? -turn : turn, circle);
    if (angle <= 0.0 || from == to) {
        angle = from == to ? circle : angle + circle;
    }
    return Distance(center, from) * angle;
}

}  // namespace ipc2581::host
