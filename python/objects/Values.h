#ifndef IPC2581_PYTHON_OBJECTS_VALUES_H
#define IPC2581_PYTHON_OBJECTS_VALUES_H

#include <functional>
#include <string>

#include <pybind11/pybind11.h>

#include "python/model/ClassTable.h"

// Values of the model as those of Python. Texts of the model have &, <, > and " as entities; Python has them as they
// were meant.
namespace ipc2581::python {

pybind11::str TextOf(const CString & text);
// As the model has it. Raises TypeError for what is no text, and ValueError for one with a zero character.
std::string ModelText(pybind11::handle text);

// Of a text, texts, a number or a flag.
pybind11::object ValueOf(const MemberRow & member, const void * address);
// Where a value goes. It is asked once the value is there: to make one may run code that deletes the object.
using AddressFinder = std::function<void *()>;
// Raises TypeError, ValueError or OverflowError, and then has changed nothing. A point takes a pair of numbers.
void SetValue(const MemberRow & member, const AddressFinder & find, pybind11::handle value);

// Makes the classes of numbers that stand for kinds.
void AddCodes(pybind11::module_ & module);

}  // namespace ipc2581::python

#endif
