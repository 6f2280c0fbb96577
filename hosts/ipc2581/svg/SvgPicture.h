#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGPICTURE_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGPICTURE_H

#include <cstddef>
#include <ostream>

#include "hosts/ipc2581/drawing/Drawing.h"

namespace ipc2581::host {

// A layer, by its place among the layers, as it is seen through the board from above.
void WriteLayerPicture(std::ostream & out, const Drawing & drawing, std::size_t layer);

// The top as it is seen from above, or the bottom as it is seen from below: copper, legend, parts and holes.
void WriteSidePicture(std::ostream & out, const Drawing & drawing, Side side);

}  // namespace ipc2581::host

#endif
