#ifndef IPC2581_BASE_OBJECTBLOCKS_H
#define IPC2581_BASE_OBJECTBLOCKS_H

#include <cstddef>
#include <cstdint>

#include "ipc2581/base/Export.h"

namespace ipc2581::detail {

// Memory for the many small objects of contours: a reader takes theirs from blocks, side by side, and each block goes
// when the last of its objects has been deleted. An object from a block and one that a host has made by itself are told
// apart by their addresses, so that both are deleted alike, one by one, in any order and on any thread, also when the
// reader is long gone.
class IPC2581_API ObjectBlocks {
public:
    ObjectBlocks() = default;
    ~ObjectBlocks() { Close(); }
    ObjectBlocks(const ObjectBlocks &) = delete;
    ObjectBlocks & operator=(const ObjectBlocks &) = delete;

    // Room for one object. Throws std::bad_alloc.
    void * Take(std::size_t size);
    // Gives the room of an object back, wherever it came from.
    static void Release(void * object) noexcept;

private:
    struct Block;

    void Open();
    void Close() noexcept;

    Block * m_block = nullptr;
    std::size_t m_used = 0;
    std::uint32_t m_taken = 0;
};

// Base of the classes whose objects may come from blocks: new (blocks) CPointD(), or plain new as ever.
class FromBlocks {
public:
    static void * operator new(std::size_t size) { return ::operator new(size); }
    static void * operator new(std::size_t /*size*/, void * place) noexcept { return place; }
    static void * operator new(std::size_t size, ObjectBlocks & blocks) { return blocks.Take(size); }
    static void operator delete(void * object) noexcept { ObjectBlocks::Release(object); }
    static void operator delete(void * /*object*/, void * /*place*/) noexcept {}
    static void operator delete(void * object, ObjectBlocks & /*blocks*/) noexcept { ObjectBlocks::Release(object); }
};

}  // namespace ipc2581::detail

#endif
