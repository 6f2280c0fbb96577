#include "python/objects/Node.h"

#include <utility>

namespace ipc2581::python {

Node::Node(std::shared_ptr<Store> store, void * address, const void * row)
    : m_store(std::move(store)), m_address(address), m_row(row)
{
    m_store->Add(*this);
}

Node::~Node()
{
    if (m_store != nullptr) {
        m_store->Forget(*this);
    }
}

void Node::MoveTo(Store & store)
{
    m_store->Forget(*this);
    m_store = store.shared_from_this();
    m_store->Add(*this);
}

void Node::End()
{
    m_store->Forget(*this);
    m_store.reset();
    m_address = nullptr;
}

}  // namespace ipc2581::python
