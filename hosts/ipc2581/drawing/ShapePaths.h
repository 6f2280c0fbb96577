#ifndef IPC2581_HOSTS_IPC2581_DRAWING_SHAPEPATHS_H
#define IPC2581_HOSTS_IPC2581_DRAWING_SHAPEPATHS_H

#include <vector>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/drawing/Path.h"

namespace ipc2581::host {

// The paths that fill a primitive or a contour, each by itself. Empty for a shape that is no area.
std::vector<Path> FilledPaths(const CIPC2581_DrawObj & shape);

// The board itself, with its cutouts as holes.
Path ProfilePath(const CIPC2581_Ecad_CadData_Step_Profile & profile);

}  // namespace ipc2581::host

#endif
