#include "python/objects/Lists.h"

#include "python/objects/MadeInside.h"
#include "python/objects/ModelList.h"
#include "python/objects/Objects.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

void Extend(ModelList & list, const py::iterable & objects)
{
    const py::list all(objects);
    for (const py::handle object : all) {
        list.Append(object);
    }
}

py::object ExtendInPlace(const py::object & list, const py::iterable & objects)
{
    Extend(list.cast<ModelList &>(), objects);
    return list;
}

py::object Iterate(const py::object & list)
{
    auto iterator = py::reinterpret_steal<py::object>(PySeqIter_New(list.ptr()));
    if (!iterator) {
        throw py::error_already_set();
    }
    return iterator;
}

}  // namespace

void AddListType(py::module_ & module)
{
    py::options options;
    options.disable_function_signatures();
    py::class_<ModelList> type(module, "List", MadeInside(),
                               "A list of the model, which behaves as a list of Python.\n\n"
                               "It owns what stands in it: what is deleted from it is gone, and raises\n"
                               "DeletedError wherever it is used. An object that was taken out by pop goes on,\n"
                               "and may be put into another list.");
    type.def_property_readonly("board", &ModelList::Board, "Board. None for a list of an object that belongs to none.");
    type.def("_members", [](const ModelList & list) { return DescribeMembers(list.Row().elementType()); });
    type.def("__len__", &ModelList::Size)
        .def("__getitem__", &ModelList::Item)
        .def("__getitem__", &ModelList::Items)
        .def("__setitem__", &ModelList::Replace)
        .def("__setitem__", &ModelList::ReplaceAll)
        .def("__delitem__", &ModelList::Delete)
        .def("__delitem__", &ModelList::DeleteAll)
        .def("__contains__", &ModelList::Contains)
        .def("__iter__", &Iterate)
        .def("__repr__", &ModelList::Repr)
        .def("__iadd__", &ExtendInPlace)
        .def("append", &ModelList::Append, py::arg("object"),
             "append(self, object)\n--\n\nPut a new object at the end. It must belong to nothing else.")
        .def("insert", &ModelList::Insert, py::arg("index"), py::arg("object"),
             "insert(self, index, object)\n--\n\nPut a new object before the one at the index.")
        .def("extend", &Extend, py::arg("objects"), "extend(self, objects)\n--\n\nPut new objects at the end.")
        .def("remove", &ModelList::Remove, py::arg("object"), "remove(self, object)\n--\n\nDelete the object.")
        .def("pop", &ModelList::Pop, py::arg("index") = -1,
             "pop(self, index=-1)\n--\n\nTake an object out, which goes on without the list.")
        .def("clear", &ModelList::Clear, "clear(self)\n--\n\nDelete all objects.")
        .def("index", &ModelList::Index, py::arg("object"), "index(self, object)\n--\n\nThe place of the object.")
        .def(
            "count", [](const ModelList & list, py::handle object) { return list.Contains(object) ? 1 : 0; },
            py::arg("object"), "count(self, object)\n--\n\n1 for an object of the list, else 0.")
        .def("find", py::overload_cast<const std::string &, py::handle>(&ModelList::Find, py::const_),
             py::arg("member"), py::arg("text"),
             "find(self, member, text)\n--\n\nThe first object with this text in the member; None if there is none.")
        .def("reverse", &ModelList::Reverse, "reverse(self)\n--\n\nTurn the order round.")
        .def("sort", &ModelList::Sort, py::kw_only(), py::arg("key"), py::arg("reverse") = false,
             "sort(self, *, key, reverse=False)\n--\n\nPut the objects in the order of what key gives for each.")
        .def(
            "to_pandas",
            [](const py::object & list) { return py::module_::import("ipc2581._frames").attr("frame_of_list")(list); },
            "to_pandas(self)\n--\n\nA data frame with a row for each object.\n\n"
            "That of components, nets, layers, packages or the items of a bill of materials\n"
            "has the rows and columns of the listing of this name; any other one has the\n"
            "values of the objects.");
    type.attr("__module__") = "ipc2581";
    const py::object makeClassMethod = py::module_::import("builtins").attr("classmethod");
    type.attr("__class_getitem__") = makeClassMethod(py::module_::import("types").attr("GenericAlias"));
    py::module_::import("collections.abc").attr("MutableSequence").attr("register")(type);
}

py::object WrapList(const std::shared_ptr<Store> & store, const ListRow & row, void * list)
{
    const Node * const known = store->Find(list, &row);
    if (known != nullptr) {
        return py::reinterpret_borrow<py::object>(known->Self());
    }
    auto own = std::make_unique<ModelList>(store, list, row);
    Node & node = own->OwnNode();
    py::object made = py::cast(std::move(own));
    node.SetSelf(made.ptr());
    return made;
}

}  // namespace ipc2581::python
