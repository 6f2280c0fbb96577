#ifndef IPC2581_PYTHON_OBJECTS_MADEINSIDE_H
#define IPC2581_PYTHON_OBJECTS_MADEINSIDE_H

#include <pybind11/pybind11.h>

namespace ipc2581::python {

// For a class whose objects come from the module alone. Without it, Python could make one that holds nothing.
inline pybind11::custom_type_setup MadeInside()
{
    return pybind11::custom_type_setup([](PyHeapTypeObject * type) {
        type->ht_type.tp_new = [](PyTypeObject * own, PyObject * /*arguments*/, PyObject * /*names*/) -> PyObject * {
            PyErr_Format(PyExc_TypeError, "a %s comes from a board and is not made", own->tp_name);
            return nullptr;
        };
    });
}

}  // namespace ipc2581::python

#endif
