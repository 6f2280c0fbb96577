#ifndef IPC2581_BASE_PLATFORM_OBJECTBLOCKS_H
#define IPC2581_BASE_PLATFORM_OBJECTBLOCKS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

#include "ipc2581/base/Export.h"

namespace ipc2581::detail {

// Memory for what a reader makes: its objects and their longer texts stand side by side in blocks, and each block goes
// when the last thing in it has been deleted. The blocks of a larger model are pieces of regions, which the system
// gives and gets back in one piece. What comes from a block and what a host has made by itself are told apart by their
// addresses, so that both are deleted alike, one by one, in any order and on any thread, also when the reader is long
// gone.
class IPC2581_API ObjectBlocks {
public:
    ObjectBlocks() = default;
    ~ObjectBlocks();
    ObjectBlocks(const ObjectBlocks &) = delete;
    ObjectBlocks & operator=(const ObjectBlocks &) = delete;

    // Room for one object. Throws std::bad_alloc.
    void * Take(std::size_t size)
    {
        const std::size_t room = (size + Step - 1) / Step * Step;
        if (room > m_left) {
            return TakeElsewhere(size);
        }
        void * const object = m_next;
        m_next += room;
        m_left -= room;
        ++m_taken;
        return object;
    }
    // Room of its own for an object. A heap may place what is smaller than a step where a block would have it.
    template <typename... NoThrow>
    static void * TakeAlone(std::size_t size, const NoThrow &... noThrow)
    {
        return ::operator new(std::max(size, Step), noThrow...);
    }
    // Gives the room of an object back, wherever it came from.
    static void Release(void * object) noexcept;

private:
    struct Block;

    // Objects of their own stand at multiples of this, those in blocks half a step behind one.
    static constexpr std::size_t Step = 16;

    void * TakeElsewhere(std::size_t size);
    void Open();
    Block * TakeBlock();
    void Close() noexcept;

    Block * m_block = nullptr;
    char * m_next = nullptr;
    std::size_t m_left = 0;
    std::uint32_t m_taken = 0;
    // How many blocks there have been, and the rest of the region.
    std::uint32_t m_opened = 0;
    std::uint32_t m_blocksLeft = 0;
    Block * m_region = nullptr;
};

// Base of the classes whose objects may come from blocks: new (blocks) CPointD(), or plain new as ever.
class FromBlocks {
public:
    static void * operator new(std::size_t size) { return ObjectBlocks::TakeAlone(size); }
    static void * operator new(std::size_t size, const std::nothrow_t & /*none*/) noexcept
    {
        return ObjectBlocks::TakeAlone(size, std::nothrow);
    }
    static void * operator new(std::size_t /*size*/, void * place) noexcept { return place; }
    static void * operator new(std::size_t size, ObjectBlocks & blocks) { return blocks.Take(size); }
    static void operator delete(void * object) noexcept { ObjectBlocks::Release(object); }
    static void operator delete(void * object, const std::nothrow_t & /*none*/) noexcept
    {
        ObjectBlocks::Release(object);
    }
    static void operator delete(void * /*object*/, void * /*place*/) noexcept {}
    static void operator delete(void * object, ObjectBlocks & /*blocks*/) noexcept { ObjectBlocks::Release(object); }
};

// Makes an object in blocks, and its parts beside it where its class can.
template <typename Object>
Object * MakeFrom(ObjectBlocks & blocks)
{
    if constexpr (requires { Object(blocks); }) {
        return new (blocks) Object(blocks);
    }
    else {
        return new (blocks) Object();
    }
}

}  // namespace ipc2581::detail

#endif
