#include "hosts/ipc2581/geometry/Extents.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace ipc2581::host {
namespace {

double AngleOf(const CPointD & point, const CPointD & center)
{
    return std::atan2(point.Y - center.Y, point.X - center.X);
}

}  // namespace

void Extents::Add(const CPointD & point)
{
    m_minX = std::min(m_minX, point.X);
    m_minY = std::min(m_minY, point.Y);
    m_maxX = std::max(m_maxX, point.X);
    m_maxY = std::max(m_maxY, point.Y);
}

void Extents::AddArc(const CPointD & start, const CPointD & end, const CPointD & center, bool isClockwise)
{
    Add(start);
    Add(end);
    double from = AngleOf(start, center);
    double to = AngleOf(end, center);
    if (isClockwise) {
        std::swap(from, to);
    }
    if (to <= from) {
        to += 2 * std::numbers::pi;
    }
    // The box is touched where the arc crosses an axis through its centre, once for each quarter that it passes.
    constexpr double quarter = std::numbers::pi / 2;
    const double radius = std::hypot(start.X - center.X, start.Y - center.Y);
    for (double turn = std::ceil(from / quarter); turn * quarter <= to; ++turn) {
        const int side = ((static_cast<int>(turn) % 4) + 4) % 4;
        const double x = side == 0 ? radius : side == 2 ? -radius : 0.0;
        const double y = side == 1 ? radius : side == 3 ? -radius : 0.0;
        Add(CPointD(center.X + x, center.Y + y));
    }
}

void Extents::AddContour(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
{
    const CPointD * at = begin.Point;
    for (const CIPC2581_PolyStep * const step : Each(steps)) {
        const CPointD & end = *step->EndPoint->Point;
        if (step->Type == StepTypes::Segment) {
            Add(*at);
            Add(end);
        }
        else {
            AddArc(*at, end, *step->CenterPoint->Point, IsDrawnClockwise(*step));
        }
        at = &end;
    }
}

Extents Placed(const Extents & box, const Placement & placement)
{
    Extents placed;
    if (!box.IsEmpty()) {
        for (const double x : {box.MinX(), box.MaxX()}) {
            for (const double y : {box.MinY(), box.MaxY()}) {
                placed.Add(placement.Of(Vertex(x, y)));
            }
        }
    }
    return placed;
}

}  // namespace ipc2581::host
