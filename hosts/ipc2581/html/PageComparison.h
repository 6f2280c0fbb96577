#ifndef IPC2581_HOSTS_IPC2581_HTML_PAGECOMPARISON_H
#define IPC2581_HOSTS_IPC2581_HTML_PAGECOMPARISON_H

#include <cstddef>
#include <string>
#include <vector>

#include "hosts/ipc2581/drawing/Drawing.h"
#include "hosts/ipc2581/html/DrawingColumns.h"

namespace ipc2581::host {

// A part that is not as it was.
struct PartChange {
    enum class State { Added, Removed, Moved, Changed };

    std::string name;
    State state = State::Changed;
    Side side = Side::Top;
    Vertex from = {};  // of a part that was moved or removed, in the unit of the newer drawing
};

// What a page shows of two drawings.
struct DrawingComparison {
    struct Added {
        std::size_t layer = 0;
        const Item * item = nullptr;
    };

    std::vector<Added> added;                        // of the newer drawing
    std::vector<std::vector<const Item *>> removed;  // of the older one, by the layers of the newer
    std::vector<PartChange> parts;
};

// Items are the same if they look the same, whatever the name of their net. The drawings must outlive what is returned.
DrawingComparison Compare(const Drawing & before, const Drawing & after);

}  // namespace ipc2581::host

#endif
