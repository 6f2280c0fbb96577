#ifndef IPC2581_HOSTS_IPC2581_HTML_PAGECOMPARISON_H
#define IPC2581_HOSTS_IPC2581_HTML_PAGECOMPARISON_H

#include <cstddef>
#include <string>
#include <vector>

#include "hosts/ipc2581/drawing/Drawing.h"
#include "hosts/ipc2581/html/DrawingColumns.h"

namespace ipc2581::host {

enum class ChangeState { Added, Removed, Moved, Changed };

// A part that is not as it was.
struct PartChange {
    std::string name;
    ChangeState state = ChangeState::Changed;
    Side side = Side::Top;
    Vertex from = {};  // of a part that was moved or removed, in the unit of the newer drawing
};

// A hole that only one of the drawings has, or one with another diameter or through other layers than before.
struct HoleChange {
    ChangeState state = ChangeState::Changed;
    const DrillHole * before = nullptr;  // of the older drawing
    const DrillHole * after = nullptr;   // of the newer one
    Vertex center = {};                  // in the unit of the newer drawing
    double diameter = 0.0;               // as it is now, or else as it was
};

// What a page shows of two drawings.
struct DrawingComparison {
    struct Added {
        std::size_t layer = 0;
        const Item * item = nullptr;
    };

    std::vector<Added> added;                        // of the newer drawing
    std::vector<std::vector<const Item *>> removed;  // of the older one, by the layers of the newer
    std::vector<std::size_t> removedLayers;          // those of the older one with items that the newer lacks
    bool hasOtherProfile = false;
    std::vector<HoleChange> holes;
    std::vector<PartChange> parts;
};

// Items are the same if they look the same, whatever the name of their net. The drawings must outlive what is returned.
DrawingComparison Compare(const Drawing & before, const Drawing & after);

}  // namespace ipc2581::host

#endif
