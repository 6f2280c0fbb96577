#ifndef IPC2581_PYTHON_BOARD_WRITE_H
#define IPC2581_PYTHON_BOARD_WRITE_H

#include <string>

#include <pybind11/pybind11.h>

#include "python/board/BoardStore.h"

namespace ipc2581::python {

// Writes the board as the library writes it, packed if the path ends so. The file takes its place whole, or not at all.
void Write(const BoardStore & board, const pybind11::object & path, bool isToReplace);

// Puts a text to a path in the same way.
void WriteText(const pybind11::object & path, const pybind11::bytes & text, bool isToReplace);

// Makes the library write its report: the name ends in ".cvg", and the report gets ".txt" for it.
void PrintReport(const BoardStore & board, const std::string & name);

// What of the board the writer leaves out: names and counts.
pybind11::dict Unwritten(const BoardStore & board);

}  // namespace ipc2581::python

#endif
