#ifndef IPC2581_IMPORT_FORWRITING_H
#define IPC2581_IMPORT_FORWRITING_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "ipc2581/ipc2581.h"

namespace ipc2581 {

// Brings a board that was imported into the form that the writer of the core writes rightly, so that an import of the
// written file gives the same shapes again. The writer turns curves round: each is turned once here. Primitives that it
// writes with less than they have, or with other words than those of the standard, become contours.
//
// The board is for writing alone then, and for nothing any more if std::bad_alloc is thrown.
IPC2581_API void PrepareForWriting(CIPC2581_Parser & board);

// Something that a board has and the writer never writes.
struct Unwritten {
    std::string_view one;      // its name in the singular
    std::string_view several;  // and in the plural
    std::size_t count;         // how many the board has
};

// What of the board the writer leaves out, each with how many there are; those that are not there are left out.
IPC2581_API std::vector<Unwritten> UnwrittenOf(const CIPC2581_Parser & board);

}  // namespace ipc2581

#endif
