#include "hosts/ipc2581/drawing/Placement.h"

#include <cmath>
#include <numbers>

namespace ipc2581::host {

Vertex Placement::Of(const Vertex & point) const
{
    const double angle = rotation * std::numbers::pi / 180;
    const double x = point.X * std::cos(angle) - point.Y * std::sin(angle);
    const double y = point.X * std::sin(angle) + point.Y * std::cos(angle);
    return {location.X + (isMirrored ? -x : x), location.Y + y};
}

Extents Placement::Of(const Extents & box) const
{
    Extents placed;
    if (!box.IsEmpty()) {
        for (const double x : {box.MinX(), box.MaxX()}) {
            for (const double y : {box.MinY(), box.MaxY()}) {
                placed.Add(Of(Vertex(x, y)));
            }
        }
    }
    return placed;
}

Placement Placement::Of(const Placement & inner) const
{
    // A turn behind a mirror is the turn the other way in front of it.
    const double turn = inner.isMirrored ? inner.rotation - rotation : inner.rotation + rotation;
    return {Of(inner.location), turn, inner.isMirrored != isMirrored};
}

}  // namespace ipc2581::host
