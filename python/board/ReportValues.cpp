#include "python/board/ReportValues.h"

#include "hosts/ipc2581/board/ImportWarnings.h"
#include "python/objects/Raise.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

py::object LineOf(std::size_t line)
{
    return line == 0 ? py::object(py::none()) : py::object(py::int_(line));
}

py::tuple ValuesOf(const LostFact & fact)
{
    py::dict attributes;
    for (const auto & [name, value] : fact.attributes) {
        attributes[FromBytes(name)] = FromBytes(value);
    }
    return py::make_tuple(FromBytes(fact.path), LineOf(fact.line), fact.owner, attributes);
}

}  // namespace

py::tuple FactAt(const ImportReport & report, std::size_t index)
{
    return ValuesOf(report.Lost(index));
}

py::list FactsAt(const ImportReport & report, const std::string & path)
{
    py::list facts;
    for (const LostFact & fact : report.LostAt(path)) {
        facts.append(ValuesOf(fact));
    }
    return facts;
}

py::dict PathsOf(const ImportReport & report)
{
    py::dict paths;
    for (const auto & [path, count] : report.LostPaths()) {
        paths[FromBytes(path)] = count;
    }
    return paths;
}

py::list NotesOf(const ImportReport & report)
{
    py::list notes;
    for (const host::Warning & warning : host::WarningsOfImport(report, false)) {
        notes.append(py::make_tuple(FromBytes(warning.kind), LineOf(warning.line), FromBytes(warning.text)));
    }
    return notes;
}

py::dict ElementsOf(const ImportReport & report)
{
    py::dict elements;
    for (const auto & [name, count] : report.Elements()) {
        elements[FromBytes(name)] = py::make_tuple(count.stated, count.lost);
    }
    return elements;
}

}  // namespace ipc2581::python
