#ifndef IPC2581_IMPORT_SHAPES_PLACEDSHAPE_H
#define IPC2581_IMPORT_SHAPES_PLACEDSHAPE_H

#include <cstddef>
#include <memory>
#include <vector>

#include "import/shapes/Path.h"
#include "import/shapes/Placement.h"
#include "ipc2581/ipc2581.h"

// Shapes of the model, which know no transform of their own, put where a transform puts them.
namespace ipc2581 {

// Shapes that the caller owns.
using Shapes = std::vector<std::unique_ptr<CIPC2581_DrawObj>>;

// A true copy of a shape that a list of shapes may hold, with parts of its own.
IPC2581_API std::unique_ptr<CIPC2581_DrawObj> CopyOf(const CIPC2581_DrawObj & shape);

// How many points there are in a shape; a primitive counts as one.
IPC2581_API std::size_t PointsOf(const CIPC2581_DrawObj & shape);

// Adds the shape as it is when placed: a line, a contour or a text with other points, a primitive as one of its class
// where that has a form for it, or else as contours.
IPC2581_API void AddPlaced(std::unique_ptr<CIPC2581_DrawObj> shape, const Placement & placement, Shapes & placed);

// The contours that fill what the path goes round: each area with its holes is one.
IPC2581_API void AddContours(const Path & path, Shapes & contours);

// The lines along the path, one for each of its contours.
IPC2581_API void AddStrokes(const Path & path, const CIPC2581_LineDesc & lineDesc, Shapes & strokes);

// True if the shape is its own image in a mirror that changes left and right.
IPC2581_API bool IsSymmetric(const CIPC2581_DrawObj & shape);

}  // namespace ipc2581

#endif
