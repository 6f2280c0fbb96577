#ifndef IPC2581_PYTHON_OBJECTS_RAISE_H
#define IPC2581_PYTHON_OBJECTS_RAISE_H

#include <cstddef>
#include <exception>
#include <string>

#include <pybind11/pybind11.h>

// Exceptions of Python. The package has the classes of its own ones.
namespace ipc2581::python {

// A text of the model, or the name of a file: bytes that are none of UTF-8 come back as they are.
pybind11::str FromBytes(std::string_view bytes);

[[noreturn]] void RaiseDeleted();
[[noreturn]] void RaiseValue(const std::string & text);
[[noreturn]] void RaiseType(const std::string & text);
// Of the file, with what is known of its place.
[[noreturn]] void RaiseRead(const std::string & path, std::size_t line, std::size_t column, const std::string & cause);
[[noreturn]] void RaiseStopped(const std::string & path);
[[noreturn]] void RaiseWrite(const std::string & path, const std::string & cause);
// The one of Python for an errno: FileNotFoundError and its like.
[[noreturn]] void RaiseSystem(int number, const std::string & path);

// Runs what gives an object, for a function that Python calls itself: null once an exception is set.
template <typename Run>
PyObject * Guarded(Run run)
{
    try {
        return run().release().ptr();
    }
    catch (pybind11::error_already_set & error) {
        error.restore();
    }
    catch (const pybind11::builtin_exception & error) {
        error.set_error();
    }
    catch (const std::bad_alloc &) {
        PyErr_NoMemory();
    }
    catch (const std::exception & error) {
        PyErr_SetString(PyExc_RuntimeError, error.what());
    }
    return nullptr;
}

}  // namespace ipc2581::python

#endif
