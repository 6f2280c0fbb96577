#ifndef IPC2581_HOSTS_IPC2581_DRAWING_PLACEMENT_H
#define IPC2581_HOSTS_IPC2581_DRAWING_PLACEMENT_H

#include "hosts/ipc2581/drawing/Path.h"
#include "hosts/ipc2581/geometry/Extents.h"

namespace ipc2581::host {

// Where something is put: turned counterclockwise, then mirrored, then moved.
struct Placement {
    Vertex location = {};
    double rotation = 0.0;  // degrees
    bool isMirrored = false;

    [[nodiscard]] Vertex Of(const Vertex & point) const;
    [[nodiscard]] Extents Of(const Extents & box) const;
    // Of something that is itself placed within what this placement moves.
    [[nodiscard]] Placement Of(const Placement & inner) const;
};

}  // namespace ipc2581::host

#endif
