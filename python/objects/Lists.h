#ifndef IPC2581_PYTHON_OBJECTS_LISTS_H
#define IPC2581_PYTHON_OBJECTS_LISTS_H

#include <memory>

#include <pybind11/pybind11.h>

#include "python/model/ClassTable.h"
#include "python/objects/Store.h"

namespace ipc2581::python {

void AddListType(pybind11::module_ & module);

// One and the same for one list as long as Python holds it.
pybind11::object WrapList(const std::shared_ptr<Store> & store, const ListRow & row, void * list);

}  // namespace ipc2581::python

#endif
