#ifndef IPC2581_BASE_EXPTRARRAY_H
#define IPC2581_BASE_EXPTRARRAY_H

#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

#include "ipc2581/base/platform/CArray.h"

// An array of pointers to single objects from new. It keeps apart the operations that only change the list from those
// that also delete objects. Its own destructor deletes nothing: the named arrays of the model do, and so own what they
// hold. Elements are compared by address, and a null pointer is an element like any other. GetAt and SetAt tolerate
// any index; what works on positions throws CInvalidArgException for a bad one, as CArray does.
template <typename TYPE, typename ARG_TYPE>
class CExPtrArray : public CArray<TYPE, ARG_TYPE> {
    static_assert(std::is_pointer_v<TYPE> && std::is_same_v<TYPE, ARG_TYPE>);

public:
    // What the elements point to.
    using Element = std::remove_pointer_t<TYPE>;
    // The array of the pointers.
    using Base = CArray<TYPE, ARG_TYPE>;

    CExPtrArray() = default;

    // The element; null for an index out of range.
    Element * GetAt(std::int64_t index) const { return IsInside(index) ? this->m_pData[index] : nullptr; }
    // Null if the array is empty.
    Element * GetLastElement() const { return GetAt(GetLastIndex()); }
    // Size minus 1, so -1 for an empty array.
    std::int64_t GetLastIndex() const { return this->GetUpperBound(); }
    // True if the array has the element.
    bool Exists(Element * const element) const { return FindIndex(element) != -1; }
    // Index of the first such element, or -1.
    int FindIndex(Element * const element) const
    {
        for (std::int64_t i = 0; i < this->m_nSize; ++i) {
            if (this->m_pData[i] == element) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }
    // True if there is an element at the index.
    bool IsValidIndex(int const & index) const { return IsInside(index); }
    // True if both hold the same pointers in the same order.
    bool IsElementEqual(Base const & other) const
    {
        return std::equal(this->m_pData, this->m_pData + this->m_nSize, other.GetData(),
                          other.GetData() + other.GetSize());
    }

    // Overwrites the element without deleting it; nothing happens for an index out of range.
    void SetAt(std::int64_t index, Element * element)
    {
        if (IsInside(index)) {
            this->m_pData[index] = element;
        }
    }
    // Appends and returns the index, or -1 if the element is there already.
    std::int64_t Add_if_only_do_not_exists(Element * element) { return Exists(element) ? -1 : this->Add(element); }
    // Takes the first such element out; false if there is none.
    bool Remove(Element * const element)
    {
        const int index = FindIndex(element);
        if (index != -1) {
            this->RemoveAt(index);
        }
        return index != -1;
    }
    // Takes the last element out and returns it; null if the array is empty.
    Element * RemoveLastElement()
    {
        Element * const last = GetLastElement();
        if (!this->IsEmpty()) {
            this->RemoveAt(GetLastIndex());
        }
        return last;
    }
    // Moves the elements from first to last to the end of target, in their order; false if last is below first. An
    // index out of range throws when a null has already been inserted into target in its place.
    bool MoveElementTo(Base & target, int const & first, int const & last)
    {
        if (last < first) {
            return false;
        }
        const std::int64_t insertAt = target.GetSize();
        for (std::int64_t i = last; i >= first; --i) {
            target.InsertAt(insertAt, GetAt(i));
            this->RemoveAt(i);
        }
        return true;
    }
    // Takes out one occurrence for each element of other. Subtracting an array from itself leaves every second element.
    void Subtract(Base const & other)
    {
        for (std::int64_t i = 0; i < other.GetSize(); ++i) {
            Remove(other.GetAt(i));
        }
    }

    // Deletes the first such element and takes it out; false if there is none.
    bool Delete(Element * element)
    {
        const int index = FindIndex(element);
        if (index == -1) {
            return false;
        }
        DeleteAt(index, 1);
        return true;
    }
    // Deletes and takes out the element at the index, count times over. Running off the end throws, and what was
    // deleted before stays deleted.
    void DeleteAt(int index, int count)
    {
        for (; count > 0; --count) {
            delete Base::GetAt(index);
            this->RemoveAt(index);
        }
    }
    // Deletes all elements in index order and releases the storage. The grow step stays.
    void DeleteAll()
    {
        for (std::int64_t i = 0; i < this->m_nSize; ++i) {
            delete this->m_pData[i];
        }
        this->RemoveAll();
    }
    // False if the array is empty.
    bool DeleteLastElement()
    {
        if (this->IsEmpty()) {
            return false;
        }
        DeleteAt(static_cast<int>(GetLastIndex()), 1);
        return true;
    }

    // Takes out all null elements; the others keep their order.
    virtual void RemoveNullElement()
    {
        for (std::int64_t i = GetLastIndex(); i >= 0; --i) {
            if (GetAt(i) == nullptr) {
                this->RemoveAt(i);
            }
        }
    }
    // Keeps the first occurrence of each pointer. The objects stay.
    virtual void RemoveDuplicatedElements()
    {
        for (std::int64_t i = 0; i < this->m_nSize; ++i) {
            for (std::int64_t j = i + 1; j < this->m_nSize;) {
                if (GetAt(i) == GetAt(j)) {
                    this->RemoveAt(j);
                }
                else {
                    ++j;
                }
            }
        }
    }
    // Turns the order of the elements round.
    void Reverse() { std::reverse(this->m_pData, this->m_pData + this->m_nSize); }

private:
    bool IsInside(std::int64_t index) const { return index >= 0 && index < this->m_nSize; }
};

namespace ipc2581::detail {

// Appends an object, which stays its owner's until the array has it.
template <typename Element, typename Derived>
Element * Append(CExPtrArray<Element *, Element *> & array, std::unique_ptr<Derived> element)
{
    array.Add(element.get());
    return element.release();
}

// Appends a clone of each element of another array, made by clone() const.
template <typename Element>
void AppendClones(CExPtrArray<Element *, Element *> & array, const CExPtrArray<Element *, Element *> & source)
{
    for (std::int64_t i = 0; i < source.GetSize(); ++i) {
        const Element * const element = source.GetAt(i);
        Append(array, std::unique_ptr<Element>(element == nullptr ? nullptr : element->clone()));
    }
}

// The deep copy of the owning arrays: the elements held so far are deleted, and each element of the source is cloned.
template <typename Element>
void AssignClones(CExPtrArray<Element *, Element *> & array, const CExPtrArray<Element *, Element *> & source)
{
    if (&array != &source) {
        array.DeleteAll();
        AppendClones(array, source);
    }
}

// The first element whose text compares equal to the name; null if there is none.
template <typename Element>
Element * FindFirst(const CExPtrArray<Element *, Element *> & array, CString Element::*text, const CString & name)
{
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        if ((array.GetAt(i)->*text).Compare(name) == 0) {
            return array.GetAt(i);
        }
    }
    return nullptr;
}

}  // namespace ipc2581::detail

#endif
