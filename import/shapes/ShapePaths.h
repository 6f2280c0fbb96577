#ifndef IPC2581_IMPORT_SHAPES_SHAPEPATHS_H
#define IPC2581_IMPORT_SHAPES_SHAPEPATHS_H

#include <vector>

#include "import/shapes/Path.h"
#include "ipc2581/ipc2581.h"

namespace ipc2581 {

// The paths that fill a primitive or a contour, each by itself. Empty for a shape that is no area.
IPC2581_API std::vector<Path> FilledPaths(const CIPC2581_DrawObj & shape);

// The board itself, with its cutouts as holes.
IPC2581_API Path ProfilePath(const CIPC2581_Ecad_CadData_Step_Profile & profile);

}  // namespace ipc2581

#endif
