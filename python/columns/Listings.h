#ifndef IPC2581_PYTHON_COLUMNS_LISTINGS_H
#define IPC2581_PYTHON_COLUMNS_LISTINGS_H

#include <string>
#include <vector>

#include <pybind11/pybind11.h>

#include "hosts/ipc2581/board/Board.h"

// The listings of the program, by the names of its commands.
namespace ipc2581::python {

std::vector<std::string> ListingNames();

// The columns of a listing, in this unit, or in that of the board if it is empty. Raises ValueError for an unknown
// name or unit, and for a board that does not tell its units.
pybind11::list ListingOf(host::Board & board, const std::string & name, const std::string & unit);

}  // namespace ipc2581::python

#endif
