#include "python/objects/Values.h"

#include <cmath>
#include <limits>
#include <vector>

#include <import/EscapedText.h>

#include "hosts/ipc2581/text/Text.h"
#include "python/objects/Raise.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

py::object CodeClass(const CodeTable & table)
{
    return py::module_::import("ipc2581._ipc2581").attr(table.name);
}

// A number without a name stays a number.
py::object CodeOf(const CodeTable & table, int number)
{
    for (const Code & code : table.codes) {
        if (code.value == number) {
            return CodeClass(table)(number);
        }
    }
    return py::int_(number);
}

// Copied first: to make an object of Python may run code that deletes the texts.
py::object TextsOf(const CStringArray & texts)
{
    std::vector<std::string> all;
    for (const CString & text : Each(texts)) {
        all.push_back(host::Shown(text));
    }
    py::tuple made(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        made[i] = FromBytes(all[i]);
    }
    return made;
}

std::vector<std::string> ModelTexts(py::handle value)
{
    if (PyUnicode_Check(value.ptr())) {
        RaiseType("texts are wanted, such as a list of str, not a single one");
    }
    std::vector<std::string> all;
    for (const py::handle text : py::iter(value)) {
        all.push_back(ModelText(text));
    }
    return all;
}

void SetTexts(CStringArray & texts, const std::vector<std::string> & all)
{
    texts.RemoveAll();
    for (const std::string & text : all) {
        texts.SetAtGrow(texts.GetSize(), CString(text));
    }
}

double NumberOf(py::handle value)
{
    const double number = PyFloat_AsDouble(value.ptr());
    if (number == -1.0 && PyErr_Occurred() != nullptr) {
        throw py::error_already_set();
    }
    if (!std::isfinite(number)) {
        RaiseValue("a number of a board must be finite");
    }
    return number;
}

template <typename Integer>
Integer IntegerOf(py::handle value)
{
    const py::object index = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
    const long long number = index ? PyLong_AsLongLong(index.ptr()) : -1;
    if (number == -1 && PyErr_Occurred() != nullptr) {
        throw py::error_already_set();
    }
    if (number < std::numeric_limits<Integer>::min() || number > std::numeric_limits<Integer>::max()) {
        PyErr_SetString(PyExc_OverflowError, "the number is too large for the model");
        throw py::error_already_set();
    }
    return static_cast<Integer>(number);
}

bool FlagOf(py::handle value)
{
    const long long number = IntegerOf<std::int64_t>(value);
    if (number != 0 && number != 1) {
        RaiseValue("True or False is wanted");
    }
    return number == 1;
}

CPointD PointOf(py::handle value)
{
    const auto pair = py::reinterpret_steal<py::tuple>(PySequence_Tuple(value.ptr()));
    if (!pair) {
        throw py::error_already_set();
    }
    if (pair.size() != 2) {
        RaiseValue("a point is a pair of numbers");
    }
    const double x = NumberOf(pair[0]);
    return {x, NumberOf(pair[1])};
}

template <typename Value>
void Put(const AddressFinder & find, const Value & value)
{
    *static_cast<Value *>(find()) = value;
}

}  // namespace

py::str TextOf(const CString & text)
{
    return FromBytes(host::Shown(text));
}

std::string ModelText(py::handle text)
{
    if (!PyUnicode_Check(text.ptr())) {
        RaiseType(std::string("a str is wanted, not ") + Py_TYPE(text.ptr())->tp_name);
    }
    const auto bytes =
        py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape"));
    if (!bytes) {
        throw py::error_already_set();
    }
    const std::string_view plain = bytes;
    if (plain.find('\0') != std::string_view::npos) {
        RaiseValue("a text of a board has no zero character");
    }
    return EscapedText(plain);
}

py::object ValueOf(const MemberRow & member, const void * address)
{
    switch (member.kind) {
    case FieldKind::Text:
        return TextOf(*static_cast<const CString *>(address));
    case FieldKind::Texts:
        return TextsOf(*static_cast<const CStringArray *>(address));
    case FieldKind::Number:
        return py::float_(*static_cast<const double *>(address));
    case FieldKind::Integer: {
        const int number = *static_cast<const int *>(address);
        if (member.isFlag) {
            return py::bool_(number != 0);
        }
        return member.codes == nullptr ? py::object(py::int_(number)) : CodeOf(*member.codes, number);
    }
    case FieldKind::LongInteger:
        return py::int_(*static_cast<const std::int64_t *>(address));
    case FieldKind::Flag:
        return py::bool_(*static_cast<const bool *>(address));
    case FieldKind::Point:
    case FieldKind::Part:
    case FieldKind::List:
    case FieldKind::HostPointer:
        break;
    }
    return py::none();
}

void SetValue(const MemberRow & member, const AddressFinder & find, py::handle value)
{
    switch (member.kind) {
    case FieldKind::Text:
        return Put(find, CString(ModelText(value)));
    case FieldKind::Texts: {
        const std::vector<std::string> all = ModelTexts(value);
        return SetTexts(*static_cast<CStringArray *>(find()), all);
    }
    case FieldKind::Number:
        return Put(find, NumberOf(value));
    case FieldKind::Integer:
        return Put(find, member.isFlag ? static_cast<int>(FlagOf(value)) : IntegerOf<int>(value));
    case FieldKind::LongInteger:
        return Put(find, IntegerOf<std::int64_t>(value));
    case FieldKind::Flag:
        return Put(find, FlagOf(value));
    case FieldKind::Point:
        return Put(find, PointOf(value));
    case FieldKind::Part:
    case FieldKind::List:
    case FieldKind::HostPointer:
        return;
    }
}

void AddCodes(py::module_ & module)
{
    const py::object makeClass = py::module_::import("enum").attr("IntEnum");
    for (const CodeTable & table : CodeTables()) {
        py::dict values;
        for (const Code & code : table.codes) {
            values[code.name] = code.value;
        }
        const py::object made = makeClass(table.name, values, py::arg("module") = "ipc2581");
        made.attr("__doc__") = table.doc;
        module.attr(table.name) = made;
    }
}

}  // namespace ipc2581::python
