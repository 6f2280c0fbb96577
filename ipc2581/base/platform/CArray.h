#ifndef IPC2581_BASE_PLATFORM_CARRAY_H
#define IPC2581_BASE_PLATFORM_CARRAY_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArchive.h"
#include "ipc2581/base/platform/CObject.h"
#include "ipc2581/base/platform/CString.h"

namespace ipc2581::detail {

// A count that was loaded; throws CArchiveException if it is negative.
IPC2581_API void CheckLoadedCount(std::int64_t count);

// One element of a serialised array. Plain elements go as they stand in memory; text goes as its length and its
// bytes, since its memory holds an address. A host's class that is neither brings an overload of its own, or throws
// CInvalidArgException here.
template <typename Element>
void SerializeElement(CArchive & archive, Element & element)
{
    if constexpr (!std::is_trivially_copyable_v<Element>) {
        AfxThrowInvalidArgException();
    }
    else if (archive.IsStoring()) {
        archive.Write(&element, sizeof(element));
    }
    else {
        archive.Read(&element, sizeof(element));
    }
}

IPC2581_API void SerializeElement(CArchive & archive, CString & element);

}  // namespace ipc2581::detail

// The dynamic array: contiguous elements, a size, a capacity and a grow step. Elements that an append, an insertion
// or a removal shifts are moved as raw memory, so an element must not point into itself. An array of pointers never
// deletes what they point to. Every bad index, count or size throws CInvalidArgException.
template <typename TYPE, typename ARG_TYPE = const TYPE &>
class CArray : public CObject {
public:
    CArray() = default;
    ~CArray() override { Release(); }

    std::int64_t GetSize() const { return m_nSize; }
    std::int64_t GetCount() const { return m_nSize; }
    // Size minus 1, so -1 for an empty array.
    std::int64_t GetUpperBound() const { return m_nSize - 1; }
    // True if there is no element.
    bool IsEmpty() const { return m_nSize == 0; }

    // The elements for a walk by pointer; null while the array is empty.
    TYPE * GetData() { return m_nSize == 0 ? nullptr : m_pData; }
    const TYPE * GetData() const { return m_nSize == 0 ? nullptr : m_pData; }

    // The element at the index, under three names.
    TYPE & GetAt(std::int64_t index) { return m_pData[Checked(index)]; }
    const TYPE & GetAt(std::int64_t index) const { return m_pData[Checked(index)]; }
    // As GetAt.
    TYPE & ElementAt(std::int64_t index) { return m_pData[Checked(index)]; }
    const TYPE & ElementAt(std::int64_t index) const { return m_pData[Checked(index)]; }
    // As GetAt.
    TYPE & operator[](std::int64_t index) { return m_pData[Checked(index)]; }
    const TYPE & operator[](std::int64_t index) const { return m_pData[Checked(index)]; }

    // Puts a copy of the element in the place of the one at the index.
    void SetAt(std::int64_t index, ARG_TYPE element) { m_pData[Checked(index)] = element; }

    // As SetAt, but an index at or beyond the size grows the array to index + 1 first.
    void SetAtGrow(std::int64_t index, ARG_TYPE element)
    {
        if (index < 0) {
            AfxThrowInvalidArgException();
        }
        if (index < m_nSize) {
            m_pData[index] = element;
            return;
        }
        TYPE copy(element);
        SetSize(Sum(index, 1));
        // The analyzer thinks of an array that has room and no memory, which no array is.
        // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage)
        m_pData[index] = std::move(copy);
    }

    // Appends and returns the new element's index.
    std::int64_t Add(ARG_TYPE element)
    {
        const std::int64_t index = m_nSize;
        SetAtGrow(index, element);
        return index;
    }

    // Appends a copy of all elements and returns the index of the first. The other array must be another one.
    std::int64_t Append(const CArray & other)
    {
        if (this == &other) {
            AfxThrowInvalidArgException();
        }
        const std::int64_t first = m_nSize;
        SetSize(m_nSize + other.m_nSize);
        std::copy(other.m_pData, other.m_pData + other.m_nSize, m_pData + first);
        return first;
    }

    // Takes copies of the elements of the other array in the place of its own.
    void Copy(const CArray & other)
    {
        if (this != &other) {
            SetSize(other.m_nSize);
            std::copy(other.m_pData, other.m_pData + other.m_nSize, m_pData);
        }
    }

    // Inserts count copies. An index at or past the size grows the array; the gap holds empty elements.
    void InsertAt(std::int64_t index, ARG_TYPE element, std::int64_t count = 1)
    {
        if (index < 0 || count < 1) {
            AfxThrowInvalidArgException();
        }
        const TYPE copy(element);
        MakeGap(index, count);
        std::fill_n(m_pData + index, count, copy);
    }

    // Inserts all elements of another array; an empty one changes nothing.
    void InsertAt(std::int64_t index, CArray * other)
    {
        if (other == nullptr || index < 0) {
            AfxThrowInvalidArgException();
        }
        if (other->IsEmpty()) {
            return;
        }
        CArray source;
        source.Copy(*other);
        MakeGap(index, source.m_nSize);
        std::copy(source.m_pData, source.m_pData + source.m_nSize, m_pData + index);
    }

    // Removes count elements and closes the gap; the capacity stays.
    void RemoveAt(std::int64_t index, std::int64_t count = 1)
    {
        if (index < 0 || count < 0 || index > m_nSize || count > m_nSize - index) {
            AfxThrowInvalidArgException();
        }
        Destroy(m_pData + index, count);
        MoveRaw(m_pData + index, m_pData + index + count, m_nSize - index - count);
        m_nSize -= count;
    }

    // Size and capacity become 0.
    void RemoveAll() { SetSize(0); }

    // Brings the capacity down to the size.
    void FreeExtra()
    {
        if (m_nMaxSize != m_nSize) {
            Reallocate(m_nSize);
        }
    }

    // Sets the size; a growBy of 0 or more becomes the grow step. New elements are empty. Without a grow step an
    // array grows by an eighth of its size, at least by 4 and at most by 1024 elements.
    void SetSize(std::int64_t newSize, std::int64_t growBy = -1)
    {
        if (newSize < 0) {
            AfxThrowInvalidArgException();
        }
        if (growBy >= 0) {
            m_nGrowBy = growBy;
        }
        if (newSize == 0) {
            Release();
            return;
        }
        if (newSize > m_nMaxSize) {
            Reallocate(CapacityFor(newSize));
        }
        if (newSize < m_nSize) {
            Destroy(m_pData + newSize, m_nSize - newSize);
            m_nSize = newSize;
        }
        // One by one, so that the array is whole if an element cannot be made.
        for (; m_nSize < newSize; ++m_nSize) {
            ::new (static_cast<void *>(m_pData + m_nSize)) TYPE();
        }
    }

    // Stores or loads the count and then the elements. What was loaded before a short read stays. Throws
    // CArchiveException for a short read, CFileException for a failed write.
    void Serialize(CArchive & archive) override
    {
        using ipc2581::detail::SerializeElement;
        std::int64_t count = m_nSize;
        SerializeElement(archive, count);
        if (archive.IsLoading()) {
            ipc2581::detail::CheckLoadedCount(count);
            SetSize(0);
        }
        for (std::int64_t i = 0; i < count; ++i) {
            if (archive.IsLoading()) {
                SetSize(i + 1);
            }
            SerializeElement(archive, m_pData[i]);
        }
    }

protected:
    TYPE * m_pData = nullptr;
    std::int64_t m_nSize = 0;
    std::int64_t m_nMaxSize = 0;
    std::int64_t m_nGrowBy = 0;

private:
    std::int64_t Checked(std::int64_t index) const
    {
        if (index < 0 || index >= m_nSize) {
            AfxThrowInvalidArgException();
        }
        return index;
    }

    // No storage holds more elements than the largest number, so a sum beyond it is out of memory at once.
    static std::int64_t Sum(std::int64_t left, std::int64_t right)
    {
        if (right > INT64_MAX - left) {
            throw std::bad_alloc();
        }
        return left + right;
    }

    std::int64_t CapacityFor(std::int64_t newSize) const
    {
        if (m_pData == nullptr) {
            return std::max(newSize, m_nGrowBy);
        }
        const std::int64_t step = m_nGrowBy != 0 ? m_nGrowBy : std::clamp<std::int64_t>(m_nSize / 8, 4, 1024);
        return std::max(newSize, Sum(m_nMaxSize, step));
    }

    // Grows in place where the heap can: a list of a million elements is not copied a thousand times.
    void Reallocate(std::int64_t capacity)
    {
        if (capacity == 0) {
            Release();
            return;
        }
        constexpr std::int64_t limit = PTRDIFF_MAX / static_cast<std::int64_t>(sizeof(TYPE));
        if (capacity > limit) {
            throw std::bad_alloc();
        }
        m_pData = static_cast<TYPE *>(Resized(static_cast<std::size_t>(capacity) * sizeof(TYPE)));
        m_nMaxSize = capacity;
    }

    static constexpr bool IsAlignedByHeap = alignof(TYPE) <= alignof(std::max_align_t);

    void * Resized(std::size_t bytes)
    {
        if constexpr (IsAlignedByHeap) {
            void * const data = std::realloc(static_cast<void *>(m_pData), bytes);
            if (data == nullptr) {
                throw std::bad_alloc();
            }
            return data;
        }
        else {
            void * const data = ::operator new(bytes, std::align_val_t(alignof(TYPE)));
            MoveRaw(static_cast<TYPE *>(data), m_pData, m_nSize);
            FreeStorage();
            return data;
        }
    }

    void FreeStorage()
    {
        if constexpr (IsAlignedByHeap) {
            std::free(static_cast<void *>(m_pData));
        }
        else {
            ::operator delete(static_cast<void *>(m_pData), std::align_val_t(alignof(TYPE)));
        }
    }

    void Release()
    {
        Destroy(m_pData, m_nSize);
        FreeStorage();
        m_pData = nullptr;
        m_nSize = 0;
        m_nMaxSize = 0;
    }

    // Named by its class, since an element class may have virtual operations and a destructor without any.
    static void Destroy(TYPE * first, std::int64_t count)
    {
        for (std::int64_t i = 0; i < count; ++i) {
            first[i].TYPE::~TYPE();
        }
    }

    static void MoveRaw(TYPE * to, const TYPE * from, std::int64_t count)
    {
        if (count > 0) {
            std::memmove(static_cast<void *>(to), static_cast<const void *>(from),
                         static_cast<std::size_t>(count) * sizeof(TYPE));
        }
    }

    // Makes room for count elements at the index; those that stood there move up and the gap is empty elements.
    void MakeGap(std::int64_t index, std::int64_t count)
    {
        if (index >= m_nSize) {
            SetSize(Sum(index, count));
            return;
        }
        // The empty elements are made at the end, where one that cannot be made does no harm, and then change places
        // with those that move up.
        const std::int64_t behind = m_nSize - index;
        SetSize(Sum(m_nSize, count));
        const auto bytes = [this](std::int64_t at) { return reinterpret_cast<std::byte *>(m_pData + at); };
        std::rotate(bytes(index), bytes(index + behind), bytes(m_nSize));
    }
};

#endif
