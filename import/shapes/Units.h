#ifndef IPC2581_IMPORT_SHAPES_UNITS_H
#define IPC2581_IMPORT_SHAPES_UNITS_H

#include <string_view>

#include "ipc2581/base/Export.h"

namespace ipc2581 {

// How many millimetres one of the units of a file has; 0 for a word that is none.
IPC2581_API double MillimetresOf(std::string_view units);

// By what a length in one unit is multiplied to be one in the other; 1 where either is unknown.
IPC2581_API double UnitScale(std::string_view from, std::string_view to);

}  // namespace ipc2581

#endif
