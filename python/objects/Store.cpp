#include "python/objects/Store.h"

#include "python/model/Below.h"
#include "python/objects/Node.h"

namespace ipc2581::python {

Node * Store::Find(void * address, const void * row) const
{
    const auto node = m_nodes.find({address, row});
    return node == m_nodes.end() ? nullptr : node->second;
}

void Store::Add(Node & node)
{
    m_nodes.emplace(Key(node.Address(), node.Row()), &node);
}

void Store::Forget(const Node & node)
{
    m_nodes.erase({node.Address(), node.Row()});
}

std::vector<Node *> Store::NodesBelow(const Found & object) const
{
    std::vector<Node *> nodes;
    VisitAddresses(object, [&](void * address, const void * row) {
        Node * const node = Find(address, row);
        if (node != nullptr) {
            nodes.push_back(node);
        }
    });
    return nodes;
}

void Store::MoveAllTo(Store & other)
{
    std::vector<Node *> nodes;
    nodes.reserve(m_nodes.size());
    for (const auto & [key, node] : m_nodes) {
        nodes.push_back(node);
    }
    for (Node * const node : nodes) {
        node->MoveTo(other);
    }
}

void Store::MoveBelowTo(const Found & object, Store & other)
{
    for (Node * const node : NodesBelow(object)) {
        node->MoveTo(other);
    }
}

void Store::EndBelow(const Found & object)
{
    for (Node * const node : NodesBelow(object)) {
        node->End();
    }
}

}  // namespace ipc2581::python
