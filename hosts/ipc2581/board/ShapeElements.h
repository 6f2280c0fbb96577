#ifndef IPC2581_HOSTS_IPC2581_BOARD_SHAPEELEMENTS_H
#define IPC2581_HOSTS_IPC2581_BOARD_SHAPEELEMENTS_H

#include <functional>

#include <ipc2581/ipc2581.h>

namespace ipc2581::host {

// The name of the element that an object is written as; empty if there is none.
const char * ElementOf(const CIPC2581_DrawObj & shape);
const char * ElementOf(const CIPC2581_PolyStep & step);

// Gets the name of an element, and its place in the order of the draw types, after which the steps come.
using ElementVisitor = std::function<void(int place, const char * name)>;

// The elements that a shape is written as, with all that it holds.
void VisitShape(const CIPC2581_DrawObj & shape, const ElementVisitor & visit);

}  // namespace ipc2581::host

#endif
