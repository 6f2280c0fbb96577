#ifndef IPC2581_DRAW_IMPORTEDSHAPE_H
#define IPC2581_DRAW_IMPORTEDSHAPE_H

#include <memory>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/draw/DrawObj.h"

namespace ipc2581::detail {

// Makes a shape, lets it read itself from the lines behind its opening line, and appends it to the list that is there
// then, whatever it found. A shape in hand when an exception passes is freed.
template <typename Shape, typename Shapes>
void ImportShape(Shapes & shapes, CStdioFile & file)
{
    auto shape = New<Shape>(file);
    shape->Import(file);
    Append(PartOf(shapes), std::move(shape));
}

}  // namespace ipc2581::detail

#endif
