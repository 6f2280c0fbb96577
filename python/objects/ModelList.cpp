#include "python/objects/ModelList.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "python/objects/FreeStore.h"
#include "python/objects/Lookups.h"
#include "python/objects/Objects.h"
#include "python/objects/Raise.h"
#include "python/objects/Values.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

// The places that a slice means, in the order of the slice.
std::vector<std::int64_t> PlacesOf(const py::slice & places, std::int64_t size)
{
    py::ssize_t start = 0;
    py::ssize_t stop = 0;
    py::ssize_t step = 0;
    py::ssize_t count = 0;
    if (!places.compute(size, &start, &stop, &step, &count)) {
        throw py::error_already_set();
    }
    std::vector<std::int64_t> all;
    for (py::ssize_t i = 0; i < count; ++i) {
        all.push_back(start + i * step);
    }
    return all;
}

}  // namespace

void * ModelList::List() const
{
    if (m_node.HasEnded()) {
        RaiseDeleted();
    }
    return m_node.Address();
}

std::int64_t ModelList::Size() const
{
    return Row().size(List());
}

std::int64_t ModelList::PlaceOf(std::int64_t index) const
{
    const std::int64_t size = Size();
    const std::int64_t place = index < 0 ? index + size : index;
    if (place < 0 || place >= size) {
        throw py::index_error("the list has no such place");
    }
    return place;
}

py::object ModelList::Item(std::int64_t index) const
{
    return WrapObject(m_node.Owner(), Row().at(List(), PlaceOf(index)));
}

py::list ModelList::Items(const py::slice & places) const
{
    py::list items;
    for (const std::int64_t place : PlacesOf(places, Size())) {
        items.append(Item(place));
    }
    return items;
}

std::int64_t ModelList::Find(py::handle object) const
{
    void * const list = List();
    const Node * const node = NodeOf(object);
    if (node == nullptr || node->HasEnded() || node->Owner() != m_node.Owner()) {
        return -1;
    }
    const std::int64_t size = Row().size(list);
    for (std::int64_t i = 0; i < size; ++i) {
        if (Row().at(list, i).object == node->Address()) {
            return i;
        }
    }
    return -1;
}

py::object ModelList::Index(py::handle object) const
{
    const std::int64_t place = Find(object);
    if (place == -1) {
        RaiseValue("the object is not in the list");
    }
    return py::int_(place);
}

bool ModelList::Contains(py::handle object) const
{
    return Find(object) != -1;
}

py::object ModelList::Find(const std::string & member, py::handle text) const
{
    const MemberRow * const own = FindMember(Row().elementType(), member);
    if (own == nullptr || own->kind != FieldKind::Text) {
        RaiseValue(Row().elementType().shortName + " has no text " + member);
    }
    const std::string wanted = ModelText(text);
    MemberRow list;
    list.list = &Row();
    return WrapObject(m_node.Owner(), FindElement({&list, List()}, member, wanted));
}

std::string ModelList::Repr() const
{
    if (m_node.HasEnded()) {
        return "<list, deleted>";
    }
    return "<list of " + std::to_string(Size()) + " " + Row().elementType().shortName + ">";
}

py::object ModelList::Board() const
{
    static_cast<void>(List());
    return m_node.Owner()->AsPython();
}

Node & ModelList::Addable(py::handle object) const
{
    Node * const node = NodeOf(object);
    if (node == nullptr) {
        RaiseType("a " + Row().elementType().shortName + " is wanted, not " + Py_TYPE(object.ptr())->tp_name);
    }
    const Found found = ObjectOf(*node);
    if (Row().asElement(found) == nullptr) {
        RaiseType("a " + Row().elementType().shortName + " is wanted, not " + found.type->shortName);
    }
    const Store & store = *node->Owner();
    if (store.IsBoard() || store.Root().object != found.object) {
        RaiseValue("the object belongs to another one already; take it out there, or make a copy");
    }
    if (&store == m_node.Owner().get()) {
        RaiseValue("an object cannot stand in itself");
    }
    return *node;
}

// The object of the node belongs to the list by now, and so does what Python holds of it.
void ModelList::Put(std::int64_t index, Node & node)
{
    const Found object = ObjectOf(node);
    const std::shared_ptr<Store> before = node.Owner()->shared_from_this();
    Row().insert(List(), index, Row().asElement(object));
    static_cast<FreeStore &>(*before).Release();
    before->MoveAllTo(*m_node.Owner());
}

void ModelList::Insert(std::int64_t index, py::handle object)
{
    Node & node = Addable(object);
    const std::int64_t size = Size();
    Put(std::clamp(index < 0 ? index + size : index, std::int64_t(0), size), node);
}

void ModelList::Append(py::handle object)
{
    Insert(Size(), object);
}

void ModelList::Replace(std::int64_t index, py::handle object)
{
    const std::int64_t place = PlaceOf(index);
    if (Find(object) == place) {
        return;
    }
    Node & node = Addable(object);
    Put(place, node);
    Delete(place + 1);
}

void ModelList::CheckAddable(const py::list & objects) const
{
    std::set<const Node *> nodes;
    for (const py::handle object : objects) {
        if (!nodes.insert(&Addable(object)).second) {
            RaiseValue("an object stands in a list once at most");
        }
    }
}

void ModelList::ReplaceAll(const py::slice & places, const py::iterable & objects)
{
    const py::list all(objects);
    py::ssize_t first = 0;
    py::ssize_t end = 0;
    py::ssize_t step = 0;
    py::ssize_t count = 0;
    if (!places.compute(static_cast<py::ssize_t>(Size()), &first, &end, &step, &count)) {
        throw py::error_already_set();
    }
    CheckAddable(all);
    if (step == 1) {
        DeleteAll(places);
        for (std::size_t i = 0; i < all.size(); ++i) {
            Insert(first + static_cast<std::int64_t>(i), all[i]);
        }
        return;
    }
    if (static_cast<std::size_t>(count) != all.size()) {
        RaiseValue("attempt to assign sequence of size " + std::to_string(all.size()) + " to extended slice of size " +
                   std::to_string(count));
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        Replace(first + static_cast<std::int64_t>(i) * step, all[i]);
    }
}

void ModelList::Delete(std::int64_t index)
{
    const std::int64_t place = PlaceOf(index);
    const Found element = Row().at(List(), place);
    if (element.object != nullptr) {
        m_node.Owner()->EndBelow(element);
    }
    const OwnedObject gone(element);
    Row().removeAt(List(), place);
}

void ModelList::DeleteAll(const py::slice & places)
{
    std::vector<std::int64_t> all = PlacesOf(places, Size());
    std::sort(all.rbegin(), all.rend());
    for (const std::int64_t place : all) {
        Delete(place);
    }
}

void ModelList::Remove(py::handle object)
{
    const std::int64_t place = Find(object);
    if (place == -1) {
        RaiseValue("the object is not in the list");
    }
    Delete(place);
}

void ModelList::Clear()
{
    for (std::int64_t i = Size() - 1; i >= 0; --i) {
        Delete(i);
    }
}

py::object ModelList::Pop(std::int64_t index)
{
    if (Size() == 0) {
        throw py::index_error("the list is empty");
    }
    const std::int64_t place = PlaceOf(index);
    py::object item = Item(place);
    const Found element = Row().at(List(), place);
    Row().removeAt(List(), place);
    if (element.object != nullptr) {
        const auto store = std::make_shared<FreeStore>(OwnedObject(element));
        m_node.Owner()->MoveBelowTo(element, *store);
    }
    return item;
}

void ModelList::Reverse()
{
    std::vector<void *> elements;
    for (std::int64_t i = Size() - 1; i >= 0; --i) {
        const Found element = Row().at(List(), i);
        elements.push_back(element.object == nullptr ? nullptr : Row().asElement(element));
    }
    for (std::size_t i = 0; i < elements.size(); ++i) {
        Row().set(List(), static_cast<std::int64_t>(i), elements[i]);
    }
}

void ModelList::Sort(py::handle key, bool isReverse)
{
    const py::list before = Items(py::slice(py::none(), py::none(), py::none()));
    const py::list items(before.attr("copy")());
    items.attr("sort")(py::arg("key") = key, py::arg("reverse") = isReverse);
    // The key is code of the user, which may have changed the list.
    if (!Items(py::slice(py::none(), py::none(), py::none())).equal(before)) {
        RaiseValue("the list was changed while it was sorted");
    }
    std::vector<void *> elements;
    for (const py::handle item : items) {
        elements.push_back(item.is_none() ? nullptr : Row().asElement(ObjectOf(*NodeOf(item))));
    }
    for (std::size_t i = 0; i < elements.size(); ++i) {
        Row().set(List(), static_cast<std::int64_t>(i), elements[i]);
    }
}

}  // namespace ipc2581::python
