#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGCOLORS_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGCOLORS_H

#include <cstddef>
#include <string>

#include "hosts/ipc2581/drawing/Drawing.h"

namespace ipc2581::host {

// The colour of the file, or else one that suits the layer at this place.
std::string ColorOf(const Drawing & drawing, std::size_t layer);

bool IsDark(const std::string & color);

}  // namespace ipc2581::host

#endif
