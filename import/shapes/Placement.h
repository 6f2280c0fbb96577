#ifndef IPC2581_IMPORT_SHAPES_PLACEMENT_H
#define IPC2581_IMPORT_SHAPES_PLACEMENT_H

#include "import/shapes/Path.h"

namespace ipc2581 {

// Where something is put: scaled, turned counterclockwise, then mirrored (its left is its right), then moved.
struct IPC2581_API Placement {
    Vertex location = {};     // where the origin goes
    double rotation = 0.0;    // degrees
    bool isMirrored = false;  // left and right change places
    double scale = 1.0;       // 2.0 makes it twice as large

    // Where a point goes.
    [[nodiscard]] Vertex Of(const Vertex & point) const;
    // Of something that is itself placed within what this placement moves.
    [[nodiscard]] Placement Of(const Placement & inner) const;
    // Everything stays as it is.
    [[nodiscard]] bool IsNothing() const { return *this == Placement(); }
    // How many quarters of a turn it is, from 0 to 3; -1 if it is none.
    [[nodiscard]] int Quarters() const;

    bool operator==(const Placement &) const = default;
};

// A path that is placed. Of an ellipse that is turned by no quarter a polygon is left.
IPC2581_API Path Placed(const Path & path, const Placement & placement);

}  // namespace ipc2581

#endif
