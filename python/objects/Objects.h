#ifndef IPC2581_PYTHON_OBJECTS_OBJECTS_H
#define IPC2581_PYTHON_OBJECTS_OBJECTS_H

#include <memory>

#include <pybind11/pybind11.h>

#include "python/model/ClassTable.h"
#include "python/objects/Node.h"

// The objects of the model in Python: one class for each of the library's, made from its tables.
namespace ipc2581::python {

void AddObjectTypes(pybind11::module_ & module);
// For what writes their stubs: of each class its name, that of the library, and of each attribute its name, its type,
// what there is to say of it, and whether it can be set.
pybind11::list DescribeObjects();
// The names of the members of a class, and their types.
pybind11::list DescribeMembers(const ClassRow & row);

// One and the same for one object as long as Python holds it; None for none.
pybind11::object WrapObject(const std::shared_ptr<Store> & store, const Found & object);

// Null if it is none of these objects.
Node * NodeOf(pybind11::handle value);
// The object of a node. Raises DeletedError where it was deleted.
Found ObjectOf(const Node & node);

// A member of an object that Python sees: a value, an object, or a list.
pybind11::object WrapMember(const std::shared_ptr<Store> & store, const MemberRow & member, void * address);

}  // namespace ipc2581::python

#endif
