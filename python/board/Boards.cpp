#include "python/board/Boards.h"

#include <memory>
#include <optional>
#include <string>

#include <pybind11/stl.h>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/sqlite/BoardDatabase.h"
#include "python/board/BoardStore.h"
#include "python/board/Read.h"
#include "python/board/ReportValues.h"
#include "python/board/Write.h"
#include "python/columns/Listings.h"
#include "python/objects/Lookups.h"
#include "python/objects/MadeInside.h"
#include "python/objects/Objects.h"
#include "python/objects/Raise.h"
#include "python/objects/Values.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

using Type = py::class_<BoardStore, std::shared_ptr<BoardStore>>;

const ImportReport & ReportOf(const BoardStore & board)
{
    if (board.Own().Report() == nullptr) {
        RaiseValue("the exact reader makes no report");
    }
    return *board.Own().Report();
}

// Makes a database of boards, or opens the one that is there, and does the work with it.
template <typename Work>
void WithDatabase(const py::object & path, Work work)
{
    const auto name = py::module_::import("os").attr("fsencode")(path).cast<std::string>();
    try {
        host::BoardDatabase database(name);
        work(database);
    }
    catch (const host::Error & error) {
        RaiseWrite(error.File(), error.Cause());
    }
}

void PutIntoDatabase(const BoardStore & board, const py::object & path)
{
    WithDatabase(path, [&](host::BoardDatabase & database) { database.Put(board.Own()); });
}

void MakeDatabase(const py::object & path)
{
    WithDatabase(path, [](const host::BoardDatabase &) {});
}

std::string Repr(const BoardStore & board)
{
    const py::object text = py::str("<Board {!r}>").format(FromBytes(board.Own().File().Name()));
    return text.cast<std::string>();
}

// The functions of the package do what is easier said in Python.
template <typename... Arguments>
py::object CallPackage(const char * module, const char * function, Arguments &&... arguments)
{
    return py::module_::import(module).attr(function)(std::forward<Arguments>(arguments)...);
}

void AddFacts(Type & type)
{
    type.def_property_readonly(
            "path", [](const BoardStore & board) { return FromBytes(board.Own().File().Name()); },
            "str. The file, as it was named.")
        .def_property_readonly(
            "name", [](const BoardStore & board) { return TextOf(board.Own().Root().m_Ecad.name); },
            "str. The name that the file gives the board.")
        .def_property_readonly(
            "units",
            [](const BoardStore & board) { return host::UnitsWord(board.Own().Root().m_Ecad.m_CadHeader.units); },
            "str. The units of all lengths: millimeter, inch, mil or micron; empty if nobody knows them.")
        .def_property_readonly(
            "exact", [](const BoardStore & board) { return board.Own().HowRead().isExact; },
            "bool. Whether the reader of the core has read it.")
        .def_property_readonly(
            "import_report",
            [](const py::object & board) { return CallPackage("ipc2581._report", "report_of", board); },
            "Optional[ImportReport]. What the file says and the model has no place for; None for an exact read.")
        .def_property_readonly("unwritten", &Unwritten,
                               "dict[str, int]. What of the board write leaves out, with how many there are.");
}

void AddParts(Type & type)
{
    const auto add = [&](const char * name, std::string_view path, const char * doc) {
        type.def_property_readonly(
            name, [path](BoardStore & board) { return board.At(path); }, doc);
    };
    type.def_property_readonly(
        "root", [](const std::shared_ptr<BoardStore> & board) { return WrapObject(board, board->Root()); },
        "Parser. The root of the model, with the names of the model.");
    type.def_property_readonly(
        "steps", [](BoardStore & board) { return py::make_tuple(board.At(Step)); },
        "tuple[Step, ...]. The step that was read; those that were left out are in the notes of the import.");
    add("content", "m_Content", "Content. What the file says of itself, and its dictionaries.");
    add("step", Step, "Step. What was read as the board.");
    add("components", Components, "List[Component]. The placed parts.");
    add("nets", Nets, "List[LogicalNet]. What is connected.");
    add("packages", Packages, "List[Package]. The kinds of parts.");
    add("layers", Layers, "List[Layer]. The layers, in the order of the file.");
    add("layer_features", LayerFeatures, "List[LayerFeature]. What lies on the layers.");
    add("bom", BomItems, "List[BomItem]. The items of the bill of materials.");
    add("stackup", "m_Ecad.m_CadData.m_Stackup", "Stackup. The build-up of the board.");
    add("profile", "m_Ecad.m_CadData.m_Step.Profile", "Profile. The outline of the board, with its cutouts.");
}

void AddSearches(Type & type)
{
    const auto add = [&](const char * name, std::string_view path, const char * key, const char * doc) {
        type.def(
            name, [=](BoardStore & board, py::handle wanted) { return board.Named(path, key, name, wanted); },
            py::arg("name"), doc);
    };
    add("component", Components, "RefDes",
        "component(self, name)\n--\n\nThe component with this designator. Raises KeyError if there is none.");
    add("net", Nets, "Name", "net(self, name)\n--\n\nThe net of this name. Raises KeyError if there is none.");
    add("package", Packages, "name",
        "package(self, name)\n--\n\nThe package of this name. Raises KeyError if there is none.");
    add("layer", Layers, "name", "layer(self, name)\n--\n\nThe layer of this name. Raises KeyError if there is none.");
}

void AddColumns(Type & type)
{
    const auto add = [&](const char * name, const char * doc) {
        type.def(
            name,
            [name](const py::object & board, const py::object & units) {
                return CallPackage("ipc2581._frames", "columns_of", board, name, units);
            },
            py::kw_only(), py::arg("units") = py::none(), doc);
    };
    add("pads", "pads(self, *, units=None)\n--\n\nColumns of all pads, as the program lists them.");
    add("holes", "holes(self, *, units=None)\n--\n\nColumns of all holes, as the program lists them.");
    add("tracks",
        "tracks(self, *, units=None)\n--\n\nColumns of all strokes on copper layers, as the program lists them.");
    add("points", "points(self, *, units=None)\n--\n\nColumns of the points of the physical nets.");
    type.def(
        "listing",
        [](const py::object & board, const std::string & name, const py::object & units) {
            return CallPackage("ipc2581._frames", "columns_of", board, name, units);
        },
        py::arg("name"), py::kw_only(), py::arg("units") = py::none(),
        "listing(self, name, *, units=None)\n--\n\nColumns of any listing of the program.\n\n"
        "The name is that of a command: bom, components, nets, layers, stackup,\n"
        "packages, pins, pads, holes or tracks; points are those of the physical nets.\n"
        "Lengths are in units, mm, inch, mil or um, or in those of the board.");
    type.def("_columns", [](const BoardStore & board, const std::string & name, const std::string & units) {
        return ListingOf(board.Own(), name, units);
    });
}

void AddOutput(Type & type)
{
    type.def("write", &Write, py::arg("path"), py::kw_only(), py::arg("overwrite") = true,
             "write(self, path, *, overwrite=True)\n--\n\nWrite the board as the library writes it.\n\n"
             "The file is packed if its name ends in .gz, .zst, .xz or .bz2. It takes its\n"
             "place whole or not at all. Raises WriteError, or OSError for a place that\n"
             "cannot be written to.");
    type.def(
        "report",
        [](const py::object & board, const py::object & path, bool isToReplace) {
            return CallPackage("ipc2581._report", "text_of", board, path, isToReplace);
        },
        py::arg("path") = py::none(), py::kw_only(), py::arg("overwrite") = true,
        "report(self, path=None, *, overwrite=True)\n--\n\nThe library's text report of the board, also written to a "
        "path.");
    type.def("to_sqlite", &PutIntoDatabase, py::arg("path"),
             "to_sqlite(self, path)\n--\n\nPut the board into an SQLite database, as the command sqlite does.\n\n"
             "All of it, or nothing if something fails. It takes the place of one that was\n"
             "read from a file of the same name.");
    type.def("_print_report", &PrintReport)
        .def("_write_text", [](const BoardStore &, const py::object & path, const py::bytes & text, bool isToReplace) {
            WriteText(path, text, isToReplace);
        });
}

void AddReport(Type & type)
{
    type.def("_lost_count", [](const BoardStore & board) { return ReportOf(board).LostCount(); })
        .def("_remark_count", [](const BoardStore & board) { return ReportOf(board).RemarkCount(); })
        .def("_fact", [](const BoardStore & board, std::size_t index) { return FactAt(ReportOf(board), index); })
        .def("_facts_at",
             [](const BoardStore & board, const std::string & path) { return FactsAt(ReportOf(board), path); })
        .def("_lost_paths", [](const BoardStore & board) { return PathsOf(ReportOf(board)); })
        .def("_notes", [](const BoardStore & board) { return NotesOf(ReportOf(board)); })
        .def("_elements", [](const BoardStore & board) { return ElementsOf(ReportOf(board)); });
}

}  // namespace

void AddBoardType(py::module_ & module)
{
    py::options options;
    options.disable_function_signatures();
    Type type(module, "Board", MadeInside(),
              "A board that was read.\n\n"
              "Its parts have the names of the model; what people look for first has a\n"
              "plain name here. All objects of a board keep it alive.");
    AddFacts(type);
    AddParts(type);
    AddSearches(type);
    AddColumns(type);
    AddOutput(type);
    AddReport(type);
    type.def("__repr__", &Repr);
    type.attr("__module__") = "ipc2581";
    module.def("make_database", &MakeDatabase, py::arg("path"),
               "make_database(path)\n--\n\nMake a database for Board.to_sqlite, without a board, if there is none.");
    module.def(
        "read",
        [](const py::object & source, bool isExact, std::optional<std::string> step, const py::object & progress,
           std::optional<std::uint64_t> memoryLimit) {
            return Read(source, {isExact, std::move(step), progress, memoryLimit});
        },
        py::arg("source"), py::kw_only(), py::arg("exact") = false, py::arg("step") = py::none(),
        py::arg("progress") = py::none(), py::arg("memory_limit") = py::none(),
        "read(source, *, exact=False, step=None, progress=None, memory_limit=None)\n--\n\n"
        "Read a board from a file, or from bytes.");
}

}  // namespace ipc2581::python
