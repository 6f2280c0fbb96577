#ifndef IPC2581_PYTHON_OBJECTS_FREESTORE_H
#define IPC2581_PYTHON_OBJECTS_FREESTORE_H

#include <utility>

#include "python/model/OwnedObject.h"
#include "python/objects/Store.h"

namespace ipc2581::python {

// An object that belongs to nothing yet, or no more.
class FreeStore final : public Store {
public:
    explicit FreeStore(OwnedObject object) : m_object(std::move(object)) {}

    [[nodiscard]] Found Root() const override { return m_object.Get(); }
    // The caller has put the object somewhere else.
    void Release() { static_cast<void>(m_object.Release()); }

private:
    OwnedObject m_object;
};

}  // namespace ipc2581::python

#endif
