#ifndef IPC2581_PYTHON_COLUMNS_TABLECOLUMNS_H
#define IPC2581_PYTHON_COLUMNS_TABLECOLUMNS_H

#include <pybind11/pybind11.h>

#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::python {

// The columns of a listing, as arrays that NumPy owns: no object of Python is made for a row. It gives a list of
// (key, kind, values, more):
//
//     "number"   values is an array of double, NaN for nothing
//     "integer"  values is an array of int64
//     "flag"     values is an array of bool, more is one that is true for nothing
//     "text"     values is an array of int32, the places of texts in the list more, -1 for nothing
//     "list"     values is a list of lists of texts
pybind11::list ColumnsOf(const host::Table & table);

}  // namespace ipc2581::python

#endif
