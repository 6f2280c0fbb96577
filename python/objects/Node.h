#ifndef IPC2581_PYTHON_OBJECTS_NODE_H
#define IPC2581_PYTHON_OBJECTS_NODE_H

#include <memory>

#include <pybind11/pybind11.h>

#include "python/objects/Store.h"

namespace ipc2581::python {

// What Python holds of an object or a list: it keeps the store alive, and ends when its object is deleted.
class Node {
public:
    Node(std::shared_ptr<Store> store, void * address, const void * row);
    Node(const Node &) = delete;
    Node & operator=(const Node &) = delete;
    ~Node();

    [[nodiscard]] bool HasEnded() const { return m_address == nullptr; }
    [[nodiscard]] const std::shared_ptr<Store> & Owner() const { return m_store; }
    [[nodiscard]] void * Address() const { return m_address; }
    // Its ClassRow or ListRow.
    [[nodiscard]] const void * Row() const { return m_row; }
    // The object of Python, which owns the node and is not counted here.
    [[nodiscard]] PyObject * Self() const { return m_self; }
    void SetSelf(PyObject * self) { m_self = self; }

    void MoveTo(Store & store);
    void End();

private:
    std::shared_ptr<Store> m_store;
    void * m_address;
    const void * m_row;
    PyObject * m_self = nullptr;
};

}  // namespace ipc2581::python

#endif
