#ifndef IPC2581_PYTHON_OBJECTS_MODELLIST_H
#define IPC2581_PYTHON_OBJECTS_MODELLIST_H

#include <cstdint>
#include <memory>

#include <pybind11/pybind11.h>

#include "python/model/ClassTable.h"
#include "python/objects/Node.h"

namespace ipc2581::python {

// A list of the model, which behaves as a list of Python. It owns what stands in it: what is deleted from it is gone.
class ModelList {
public:
    ModelList(std::shared_ptr<Store> store, void * list, const ListRow & row) : m_node(std::move(store), list, &row) {}

    // All of these raise DeletedError where the list has gone with its object.
    [[nodiscard]] std::int64_t Size() const;
    // A negative place is counted from the end. Raises IndexError.
    [[nodiscard]] pybind11::object Item(std::int64_t index) const;
    [[nodiscard]] pybind11::list Items(const pybind11::slice & places) const;
    [[nodiscard]] pybind11::object Index(pybind11::handle object) const;
    [[nodiscard]] bool Contains(pybind11::handle object) const;
    // The first element with this text in the member; None if there is none.
    [[nodiscard]] pybind11::object Find(const std::string & member, pybind11::handle text) const;
    [[nodiscard]] std::string Repr() const;
    [[nodiscard]] pybind11::object Board() const;

    // Takes over an object that belongs to nothing. Raises TypeError for one of another class, and ValueError for one
    // that stands somewhere else.
    void Insert(std::int64_t index, pybind11::handle object);
    void Append(pybind11::handle object);
    // Deletes what was there.
    void Replace(std::int64_t index, pybind11::handle object);
    // Takes over all of the objects or, where it raises, none. Raises ValueError for another number of them where the
    // places do not follow each other.
    void ReplaceAll(const pybind11::slice & places, const pybind11::iterable & objects);
    void Delete(std::int64_t index);
    void DeleteAll(const pybind11::slice & places);
    void Remove(pybind11::handle object);
    void Clear();
    // The object goes on without the list.
    pybind11::object Pop(std::int64_t index);
    void Reverse();
    void Sort(pybind11::handle key, bool isReverse);

    [[nodiscard]] const ListRow & Row() const { return *static_cast<const ListRow *>(m_node.Row()); }
    [[nodiscard]] const Node & OwnNode() const { return m_node; }
    [[nodiscard]] Node & OwnNode() { return m_node; }

private:
    [[nodiscard]] void * List() const;
    [[nodiscard]] std::int64_t PlaceOf(std::int64_t index) const;
    // The place of the object; -1 where it is not in the list.
    [[nodiscard]] std::int64_t Find(pybind11::handle object) const;
    [[nodiscard]] Node & Addable(pybind11::handle object) const;
    void Put(std::int64_t index, Node & node);
    void CheckAddable(const pybind11::list & objects) const;

    Node m_node;
};

}  // namespace ipc2581::python

#endif
