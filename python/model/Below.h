#ifndef IPC2581_PYTHON_MODEL_BELOW_H
#define IPC2581_PYTHON_MODEL_BELOW_H

#include <functional>

#include "python/model/ClassTable.h"
#include "python/model/OwnedObject.h"

namespace ipc2581::python {

// Gets the address of an object or a list, and its ClassRow or ListRow: a part may lie at the address of its owner.
using AddressVisitor = std::function<void(void * address, const void * row)>;

// Visits the object and all that it holds.
void VisitAddresses(const Found & object, const AddressVisitor & visit);

// A copy of the object with all that it holds.
OwnedObject DeepCopy(const Found & object);

}  // namespace ipc2581::python

#endif
