#include <pybind11/pybind11.h>

#include "python/board/Boards.h"
#include "python/objects/Lists.h"
#include "python/objects/Objects.h"
#include "python/objects/Values.h"

PYBIND11_MODULE(_ipc2581, module)
{
    module.doc() = "The model of IPC-2581 boards in C++, which the package ipc2581 shows.";
    ipc2581::python::AddCodes(module);
    ipc2581::python::AddObjectTypes(module);
    ipc2581::python::AddListType(module);
    ipc2581::python::AddBoardType(module);
    module.def("_describe", &ipc2581::python::DescribeObjects, "The tables that the stubs are written from.");
}
