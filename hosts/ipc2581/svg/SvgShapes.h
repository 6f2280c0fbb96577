#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGSHAPES_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGSHAPES_H

#include <vector>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/svg/SvgPath.h"

namespace ipc2581::host {

// The paths that fill a primitive or a contour, each by the even-odd rule, so that cutouts are holes. Empty for a shape
// that is no area.
std::vector<SvgPath> FilledPaths(const CIPC2581_DrawObj & shape, const SvgFrame & frame);

// The board itself, with its cutouts as holes.
SvgPath ProfilePath(const CIPC2581_Ecad_CadData_Step_Profile & profile, const SvgFrame & frame);

}  // namespace ipc2581::host

#endif
