#include "python/objects/Raise.h"

#include <cerrno>

namespace ipc2581::python {
namespace {

namespace py = pybind11;

[[noreturn]] void Raise(const py::object & type, const py::object & value)
{
    PyErr_SetObject(type.ptr(), value.ptr());
    throw py::error_already_set();
}

template <typename... Arguments>
[[noreturn]] void RaiseOwn(const char * name, const Arguments &... arguments)
{
    const py::object type = py::module_::import("ipc2581._errors").attr(name);
    Raise(type, type(arguments...));
}

// Python has None for what is not known.
py::object Place(std::size_t number)
{
    return number == 0 ? py::object(py::none()) : py::object(py::int_(number));
}

}  // namespace

py::str FromBytes(std::string_view bytes)
{
    PyObject * const text =
        PyUnicode_DecodeUTF8(bytes.data(), static_cast<Py_ssize_t>(bytes.size()), "surrogateescape");
    if (text == nullptr) {
        throw py::error_already_set();
    }
    return py::reinterpret_steal<py::str>(text);
}

void RaiseDeleted()
{
    RaiseOwn("DeletedError", py::str("the object was deleted"));
}

void RaiseValue(const std::string & text)
{
    throw py::value_error(text);
}

void RaiseType(const std::string & text)
{
    throw py::type_error(text);
}

void RaiseRead(const std::string & path, std::size_t line, std::size_t column, const std::string & cause)
{
    RaiseOwn("ReadError", FromBytes(path), Place(line), Place(column), FromBytes(cause));
}

void RaiseStopped(const std::string & path)
{
    RaiseOwn("StoppedError", FromBytes(path), py::none(), py::none(), py::str("stopped"));
}

void RaiseWrite(const std::string & path, const std::string & cause)
{
    RaiseOwn("WriteError", FromBytes(path), FromBytes(cause));
}

void RaiseSystem(int number, const std::string & path)
{
    errno = number;
    const py::str name = FromBytes(path);
    PyErr_SetFromErrnoWithFilenameObject(PyExc_OSError, name.ptr());
    throw py::error_already_set();
}

}  // namespace ipc2581::python
