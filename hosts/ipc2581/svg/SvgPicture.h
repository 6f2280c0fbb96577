#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGPICTURE_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGPICTURE_H

#include <ostream>

#include "hosts/ipc2581/svg/SvgBoard.h"

namespace ipc2581::host {

// A layer as it is seen through the board from above.
void WriteLayerPicture(std::ostream & out, const SvgBoard & board, const BoardLayer & layer);

// The top as it is seen from above, or the bottom as it is seen from below: copper, legend, parts and holes.
void WriteSidePicture(std::ostream & out, const SvgBoard & board, Side side);

}  // namespace ipc2581::host

#endif
