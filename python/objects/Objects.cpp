#include "python/objects/Objects.h"

#include <deque>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "python/model/Below.h"
#include "python/objects/FreeStore.h"
#include "python/objects/Lists.h"
#include "python/objects/Lookups.h"
#include "python/objects/Raise.h"
#include "python/objects/Values.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

// What an object of Python is in memory. It holds nothing of Python, so there is nothing to collect.
struct PyNode {
    PyObject head;
    Node * node;
};

// What the types of Python need as long as the module lives.
struct Types {
    PyTypeObject * base = nullptr;
    std::unordered_map<const ClassRow *, PyTypeObject *> byRow;
    std::unordered_map<PyTypeObject *, const ClassRow *> byType;
    std::deque<std::string> texts;
    std::deque<std::vector<PyGetSetDef>> attributes;
};

Types & OwnTypes()
{
    static auto * const types = new Types();
    return *types;
}

PyNode & AsNode(PyObject * self)
{
    return *reinterpret_cast<PyNode *>(self);
}

const char * Keep(std::string text)
{
    return OwnTypes().texts.emplace_back(std::move(text)).c_str();
}

py::object NewObject(const std::shared_ptr<Store> & store, const Found & object)
{
    PyTypeObject * const type = OwnTypes().byRow.at(object.type);
    auto made = py::reinterpret_steal<py::object>(type->tp_alloc(type, 0));
    if (!made) {
        throw py::error_already_set();
    }
    AsNode(made.ptr()).node = new Node(store, object.object, object.type);
    AsNode(made.ptr()).node->SetSelf(made.ptr());
    return made;
}

py::object FreeObject(OwnedObject object)
{
    const auto store = std::make_shared<FreeStore>(std::move(object));
    return NewObject(store, store->Root());
}

const MemberRow & MemberOf(void * closure)
{
    return *static_cast<const MemberRow *>(closure);
}

PyObject * GetMember(PyObject * self, void * closure)
{
    return Guarded([&] {
        const Node & node = *AsNode(self).node;
        const MemberRow & member = MemberOf(closure);
        return WrapMember(node.Owner(), member, member.address(ObjectOf(node).object));
    });
}

// 0, or -1 once an exception is set, as Python has it of what sets.
template <typename Run>
int Done(Run run)
{
    PyObject * const none = Guarded([&]() -> py::object {
        run();
        return py::none();
    });
    Py_XDECREF(none);
    return none == nullptr ? -1 : 0;
}

void RefuseDelete(PyObject * value)
{
    if (value == nullptr) {
        PyErr_SetString(PyExc_AttributeError, "a member of the model cannot be deleted");
        throw py::error_already_set();
    }
}

int SetMember(PyObject * self, PyObject * value, void * closure)
{
    return Done([&] {
        RefuseDelete(value);
        const MemberRow & member = MemberOf(closure);
        const auto find = [&] { return member.address(ObjectOf(*AsNode(self).node).object); };
        static_cast<void>(find());
        SetValue(member, find, value);
    });
}

PyObject * GetAlias(PyObject * self, void * closure)
{
    return Guarded([&] {
        const Node & node = *AsNode(self).node;
        const Place place = PlaceAt(ObjectOf(node), static_cast<const AliasRow *>(closure)->path);
        return WrapMember(node.Owner(), *place.member, place.address);
    });
}

int SetAlias(PyObject * self, PyObject * value, void * closure)
{
    return Done([&] {
        RefuseDelete(value);
        const auto place = [&] {
            return PlaceAt(ObjectOf(*AsNode(self).node), static_cast<const AliasRow *>(closure)->path);
        };
        SetValue(
            *place().member, [&] { return place().address; }, value);
    });
}

PyObject * GetReference(PyObject * self, void * closure)
{
    return Guarded([&]() -> py::object {
        const Node & node = *AsNode(self).node;
        const auto & row = *static_cast<const ReferenceRow *>(closure);
        const Found object = ObjectOf(node);
        if (!node.Owner()->IsBoard()) {
            return py::none();
        }
        const auto & text = *static_cast<const CString *>(PlaceAt(object, row.text).address);
        return WrapObject(node.Owner(), FindElement(PlaceAt(node.Owner()->Root(), row.list), row.key, text));
    });
}

PyObject * GetBoard(PyObject * self, void * /*closure*/)
{
    return Guarded([&]() -> py::object {
        const Node & node = *AsNode(self).node;
        static_cast<void>(ObjectOf(node));
        return node.Owner()->AsPython();
    });
}

std::string KindText(const MemberRow & member)
{
    switch (member.kind) {
    case FieldKind::Text:
        return "str";
    case FieldKind::Texts:
        return "tuple[str, ...]";
    case FieldKind::Number:
        return "float";
    case FieldKind::Integer:
        return member.isFlag ? "bool" : member.codes != nullptr ? member.codes->name : "int";
    case FieldKind::LongInteger:
        return "int";
    case FieldKind::Flag:
        return "bool";
    case FieldKind::Point:
    case FieldKind::Part:
        return member.type().shortName;
    case FieldKind::List:
        return "List[" + member.list->elementType().shortName + "]";
    case FieldKind::HostPointer:
        break;
    }
    return "None";
}

bool IsWritable(const MemberRow & member)
{
    return member.kind != FieldKind::Part && member.kind != FieldKind::List;
}

// An attribute that objects of a class have in Python.
struct Attribute {
    std::string name;
    std::string type;
    std::string doc;
    getter get = nullptr;
    setter set = nullptr;
    const void * row = nullptr;
};

std::vector<Attribute> AttributesOf(const ClassRow & row)
{
    std::vector<Attribute> attributes;
    for (const MemberRow & member : row.members) {
        attributes.push_back({std::string(member.name), KindText(member), member.source, &GetMember,
                              IsWritable(member) ? &SetMember : nullptr, &member});
    }
    for (const AliasRow & alias : Aliases()) {
        if (alias.className == row.shortName) {
            const MemberRow & member = *MemberAt(row, alias.path);
            attributes.push_back(
                {alias.name, KindText(member), alias.doc, &GetAlias, IsWritable(member) ? &SetAlias : nullptr, &alias});
        }
    }
    for (const ReferenceRow & reference : References()) {
        if (reference.className == row.shortName) {
            const MemberRow & list = *MemberAt(*FindClass("Parser"), reference.list);
            attributes.push_back({reference.name, "Optional[" + list.list->elementType().shortName + "]", reference.doc,
                                  &GetReference, nullptr, &reference});
        }
    }
    return attributes;
}

std::vector<PyGetSetDef> Definitions(const ClassRow & row)
{
    std::vector<PyGetSetDef> definitions;
    for (const Attribute & own : AttributesOf(row)) {
        definitions.push_back({Keep(own.name), own.get, own.set,
                               Keep(own.type + (own.doc.empty() ? "" : ". ") + own.doc), const_cast<void *>(own.row)});
    }
    definitions.push_back({nullptr, nullptr, nullptr, nullptr, nullptr});
    return definitions;
}

PyObject * NewOfUser(PyTypeObject * type, PyObject * arguments, PyObject * members)
{
    return Guarded([&]() -> py::object {
        const auto row = OwnTypes().byType.find(type);
        if (row == OwnTypes().byType.end()) {
            RaiseType("only the classes of the model have objects");
        }
        if (PyTuple_Size(arguments) != 0) {
            RaiseType("members are given by their names: " + row->second->shortName + "(name=value)");
        }
        py::object made = FreeObject(OwnedObject(*row->second));
        if (members != nullptr) {
            for (const auto & [name, value] : py::reinterpret_borrow<py::dict>(members)) {
                py::setattr(made, name, value);
            }
        }
        return made;
    });
}

void Dealloc(PyObject * self)
{
    PyTypeObject * const type = Py_TYPE(self);
    delete AsNode(self).node;
    type->tp_free(self);
    Py_DECREF(type);
}

// The first text that it has, which is a name in nearly all classes.
std::string NameIn(const Found & object)
{
    for (const MemberRow & member : object.type->members) {
        const void * const address = member.address(object.object);
        if (member.kind == FieldKind::Text && !static_cast<const CString *>(address)->IsEmpty()) {
            return py::str(" {}={!r}").format(std::string(member.name), ValueOf(member, address)).cast<std::string>();
        }
        if (member.kind == FieldKind::Number) {
            break;
        }
    }
    return "";
}

std::string PointText(const Found & object)
{
    const auto & point = *static_cast<const CPointD *>(object.object);
    return py::str("PointD({!r}, {!r})").format(point.X, point.Y).cast<std::string>();
}

PyObject * Repr(PyObject * self)
{
    return Guarded([&]() -> py::object {
        const Node & node = *AsNode(self).node;
        const ClassRow & row = *static_cast<const ClassRow *>(node.Row());
        if (node.HasEnded()) {
            return py::str("<" + row.shortName + ", deleted>");
        }
        const Found object = ObjectOf(node);
        if (row.name == Fields<CPointD>::Name) {
            return py::str(PointText(object));
        }
        return py::str("<" + row.shortName + NameIn(object) + ">");
    });
}

PyObject * Copy(PyObject * self, PyObject * /*arguments*/)
{
    return Guarded([&] { return FreeObject(DeepCopy(ObjectOf(*AsNode(self).node))); });
}

PyObject * RefuseToPickle(PyObject * /*self*/, PyObject * /*arguments*/)
{
    PyErr_SetString(PyExc_TypeError, "objects of a board cannot be pickled; write the board, or make a data frame");
    return nullptr;
}

// A point goes as a pair: x, y = component.Location.
Py_ssize_t PointLength(PyObject * /*self*/)
{
    return 2;
}

PyObject * PointItem(PyObject * self, Py_ssize_t index)
{
    return Guarded([&]() -> py::object {
        const auto & point = *static_cast<const CPointD *>(ObjectOf(*AsNode(self).node).object);
        if (index < 0 || index > 1) {
            throw py::index_error("a point has two numbers");
        }
        return py::float_(index == 0 ? point.X : point.Y);
    });
}

template <typename Function>
PyType_Slot Slot(int id, Function function)
{
    return {id, reinterpret_cast<void *>(function)};
}

PyType_Slot DocSlot(const char * text)
{
    return {Py_tp_doc, const_cast<char *>(text)};
}

PyTypeObject * MakeType(PyType_Spec & definition, PyTypeObject * base)
{
    const py::object bases =
        base == nullptr ? py::object() : py::make_tuple(py::handle(reinterpret_cast<PyObject *>(base)));
    PyObject * const type = PyType_FromSpecWithBases(&definition, bases.ptr());
    if (type == nullptr) {
        throw py::error_already_set();
    }
    return reinterpret_cast<PyTypeObject *>(type);
}

PyTypeObject * MakeBase()
{
    static PyMethodDef methods[] = {
        {"__copy__", &Copy, METH_NOARGS, "A copy with all that it holds, which belongs to no board."},
        {"__deepcopy__", &Copy, METH_O, "A copy with all that it holds, which belongs to no board."},
        {"__reduce_ex__", &RefuseToPickle, METH_O, nullptr},
        {nullptr, nullptr, 0, nullptr}};
    static PyGetSetDef attributes[] = {
        {"board", &GetBoard, nullptr, "Board. None for an object that belongs to none.", nullptr},
        {nullptr, nullptr, nullptr, nullptr, nullptr}};
    PyType_Slot slots[] = {Slot(Py_tp_new, &NewOfUser),
                           Slot(Py_tp_dealloc, &Dealloc),
                           Slot(Py_tp_repr, &Repr),
                           Slot(Py_tp_methods, methods),
                           Slot(Py_tp_getset, attributes),
                           DocSlot("What all objects of the model are.\n\nTheir members have the names of the "
                                   "model. A deleted one raises DeletedError wherever it is used."),
                           {0, nullptr}};
    PyType_Spec definition = {"ipc2581.Object", static_cast<int>(sizeof(PyNode)), 0,
                              Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE, slots};
    return MakeType(definition, nullptr);
}

PyTypeObject * MakeTypeOf(const ClassRow & row)
{
    std::vector<PyGetSetDef> & attributes = OwnTypes().attributes.emplace_back(Definitions(row));
    std::vector<PyType_Slot> slots = {
        Slot(Py_tp_getset, attributes.data()),
        DocSlot(Keep(row.shortName + "(**members)\n--\n\n" + std::string(row.name) + " of the model."))};
    if (row.name == Fields<CPointD>::Name) {
        slots.push_back(Slot(Py_sq_length, &PointLength));
        slots.push_back(Slot(Py_sq_item, &PointItem));
    }
    slots.push_back({0, nullptr});
    PyType_Spec definition = {Keep("ipc2581." + row.shortName), static_cast<int>(sizeof(PyNode)), 0, Py_TPFLAGS_DEFAULT,
                              slots.data()};
    return MakeType(definition, OwnTypes().base);
}

}  // namespace

void AddObjectTypes(py::module_ & module)
{
    Types & types = OwnTypes();
    types.base = MakeBase();
    module.add_object("Object", reinterpret_cast<PyObject *>(types.base));
    for (const ClassRow & row : Classes()) {
        PyTypeObject * const type = MakeTypeOf(row);
        types.byRow.emplace(&row, type);
        types.byType.emplace(type, &row);
        module.add_object(row.shortName.c_str(), reinterpret_cast<PyObject *>(type));
    }
}

py::list DescribeObjects()
{
    py::list classes;
    for (const ClassRow & row : Classes()) {
        py::list attributes;
        for (const Attribute & own : AttributesOf(row)) {
            attributes.append(py::make_tuple(own.name, own.type, own.doc, own.set != nullptr));
        }
        classes.append(py::make_tuple(row.shortName, std::string(row.name), attributes));
    }
    return classes;
}

py::list DescribeMembers(const ClassRow & row)
{
    py::list members;
    for (const MemberRow & member : row.members) {
        members.append(py::make_tuple(std::string(member.name), KindText(member)));
    }
    return members;
}

py::object WrapObject(const std::shared_ptr<Store> & store, const Found & object)
{
    if (object.object == nullptr) {
        return py::none();
    }
    const Node * const known = store->Find(object.object, object.type);
    return known == nullptr ? NewObject(store, object) : py::reinterpret_borrow<py::object>(known->Self());
}

Node * NodeOf(py::handle value)
{
    return PyObject_TypeCheck(value.ptr(), OwnTypes().base) ? AsNode(value.ptr()).node : nullptr;
}

Found ObjectOf(const Node & node)
{
    if (node.HasEnded()) {
        RaiseDeleted();
    }
    return {node.Address(), static_cast<const ClassRow *>(node.Row())};
}

py::object WrapMember(const std::shared_ptr<Store> & store, const MemberRow & member, void * address)
{
    if (address == nullptr) {
        return py::none();
    }
    if (member.type != nullptr) {
        return WrapObject(store, {address, &member.type()});
    }
    return member.list == nullptr ? ValueOf(member, address) : WrapList(store, *member.list, address);
}

}  // namespace ipc2581::python
