#ifndef IPC2581_DRAW_IMPORTEDSHAPE_H
#define IPC2581_DRAW_IMPORTEDSHAPE_H

#include <memory>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/LineCycle.h"
#include "ipc2581/draw/DrawObj.h"

namespace ipc2581::detail {

// Makes a shape, lets it read itself from the lines behind its opening line, and appends it, whatever it found. A shape
// in hand when an exception passes is freed.
template <typename Shape>
void ImportShape(CIPC2581_DrawObjArray & shapes, CStdioFile & file)
{
    auto shape = New<Shape>(file);
    shape->Import(file);
    Append(shapes, std::move(shape));
}

}  // namespace ipc2581::detail

#endif
