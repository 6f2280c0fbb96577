#ifndef IPC2581_PYTHON_BOARD_BOARDS_H
#define IPC2581_PYTHON_BOARD_BOARDS_H

#include <pybind11/pybind11.h>

namespace ipc2581::python {

// Adds the class of boards, and what reads one.
void AddBoardType(pybind11::module_ & module);

}  // namespace ipc2581::python

#endif
