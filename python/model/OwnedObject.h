#ifndef IPC2581_PYTHON_MODEL_OWNEDOBJECT_H
#define IPC2581_PYTHON_MODEL_OWNEDOBJECT_H

#include <utility>

#include "python/model/ClassTable.h"

namespace ipc2581::python {

// An object that belongs to nothing in a model. It goes with its owner, unless that lets go of it.
class OwnedObject {
public:
    // A new one of the class.
    explicit OwnedObject(const ClassRow & type) : m_object{type.create(), &type} {}
    // Takes over what a list has let go of.
    explicit OwnedObject(const Found & object) : m_object(object) {}
    OwnedObject(OwnedObject && other) noexcept : m_object(other.Release()) {}
    OwnedObject & operator=(OwnedObject && other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    OwnedObject(const OwnedObject &) = delete;
    OwnedObject & operator=(const OwnedObject &) = delete;
    ~OwnedObject()
    {
        if (m_object.object != nullptr) {
            m_object.type->destroy(m_object.object);
        }
    }

    [[nodiscard]] const Found & Get() const { return m_object; }
    Found Release() { return std::exchange(m_object, {}); }

private:
    Found m_object;
};

}  // namespace ipc2581::python

#endif
