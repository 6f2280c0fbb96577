#ifndef IPC2581_PYTHON_BOARD_REPORTVALUES_H
#define IPC2581_PYTHON_BOARD_REPORTVALUES_H

#include <cstddef>
#include <string>

#include <import/ImportReport.h>
#include <pybind11/pybind11.h>

// The report of an import as plain values, which the package makes objects of.
namespace ipc2581::python {

// A fact as (path, line, owner, attributes), the last one by names.
pybind11::tuple FactAt(const ImportReport & report, std::size_t index);
pybind11::list FactsAt(const ImportReport & report, const std::string & path);
// By the path, with the number of facts.
pybind11::dict PathsOf(const ImportReport & report);
// Each as (kind, line, text).
pybind11::list NotesOf(const ImportReport & report);
// By the name of the element, as (stated, lost).
pybind11::dict ElementsOf(const ImportReport & report);

}  // namespace ipc2581::python

#endif
