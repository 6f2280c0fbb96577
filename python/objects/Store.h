#ifndef IPC2581_PYTHON_OBJECTS_STORE_H
#define IPC2581_PYTHON_OBJECTS_STORE_H

#include <cstddef>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include <pybind11/pybind11.h>

#include "python/model/OwnedObject.h"

namespace ipc2581::python {

class Node;

// An object with all below it, and what Python holds of them. Python's objects keep it alive. All of it is used under
// the global lock of the interpreter.
class Store : public std::enable_shared_from_this<Store> {
public:
    Store() = default;
    Store(const Store &) = delete;
    Store & operator=(const Store &) = delete;
    virtual ~Store() = default;

    [[nodiscard]] virtual Found Root() const = 0;
    [[nodiscard]] virtual bool IsBoard() const { return false; }
    // The board of Python; None for what is none.
    [[nodiscard]] virtual pybind11::object AsPython() { return pybind11::none(); }

    // What Python holds of the address; null if it holds nothing.
    [[nodiscard]] Node * Find(void * address, const void * row) const;
    void Add(Node & node);
    void Forget(const Node & node);

    // All that Python holds of this store belongs to the other one from now on.
    void MoveAllTo(Store & other);
    // The same of what it holds of the object and below it.
    void MoveBelowTo(const Found & object, Store & other);
    // What Python holds of the object and below it is of no more use.
    void EndBelow(const Found & object);

private:
    using Key = std::pair<void *, const void *>;
    struct Hash {
        std::size_t operator()(const Key & key) const
        {
            constexpr std::size_t spread = 31;
            return std::hash<void *>()(key.first) * spread + std::hash<const void *>()(key.second);
        }
    };

    [[nodiscard]] std::vector<Node *> NodesBelow(const Found & object) const;

    std::unordered_map<Key, Node *, Hash> m_nodes;
};

}  // namespace ipc2581::python

#endif
