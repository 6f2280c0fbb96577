#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGPICTURE_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGPICTURE_H

#include <cstddef>
#include <ostream>
#include <vector>

#include "hosts/ipc2581/drawing/Drawing.h"
#include "hosts/ipc2581/svg/SvgWriter.h"

namespace ipc2581::host {

// One frame for all pictures of the drawing: round the board, its parts and the layers that it is made of. Layers that
// only document it, such as a sheet of notes round a small board, are within it if all of them are asked for.
SvgFrame FrameOf(const Drawing & drawing, const std::vector<Extents> & layerBoxes, bool hasAll);
// The box round what each layer draws, in the order of the layers.
std::vector<Extents> BoxesOfLayers(const Drawing & drawing);
// The places of layers that reach beyond the frame.
std::vector<std::size_t> LayersBeyond(const std::vector<Extents> & layerBoxes, const SvgFrame & frame);

// A layer, by its place among the layers, as it is seen through the board from above.
void WriteLayerPicture(std::ostream & out, const Drawing & drawing, const SvgFrame & frame, std::size_t layer);

// The top as it is seen from above, or the bottom as it is seen from below: copper, legend, parts and holes.
// Where the board has a layer of solder mask on this side, it is as green as most, with the finish in its openings.
void WriteSidePicture(std::ostream & out, const Drawing & drawing, const SvgFrame & frame, Side side);

}  // namespace ipc2581::host

#endif
