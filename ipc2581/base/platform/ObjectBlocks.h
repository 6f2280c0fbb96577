#ifndef IPC2581_BASE_PLATFORM_OBJECTBLOCKS_H
#define IPC2581_BASE_PLATFORM_OBJECTBLOCKS_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "ipc2581/base/Export.h"

namespace ipc2581::detail {

// Memory for what a reader makes: its objects and their longer texts stand side by side in blocks, and each block goes
// when the last thing in it has been deleted. The blocks of a larger model are pieces of regions, which the system
// gives and gets back in one piece. What stands in a block knows it: an object by its class, a text by a bit of its
// own. So everything is deleted one by one, in any order and on any thread, also when the reader is long gone.
class IPC2581_API ObjectBlocks {
public:
    // The largest room that a block gives, and what the place of a room is a multiple of.
    static constexpr std::size_t Largest = 2048;
    static constexpr std::size_t Step = 8;

    ObjectBlocks() = default;
    ~ObjectBlocks();
    ObjectBlocks(const ObjectBlocks &) = delete;
    ObjectBlocks & operator=(const ObjectBlocks &) = delete;

    // Room for one object or text of at most Largest bytes. Throws std::bad_alloc.
    void * Take(std::size_t size)
    {
        const std::size_t room = (size + Step - 1) / Step * Step;
        if (room > m_left) {
            return TakeElsewhere(room);
        }
        void * const object = m_next;
        m_next += room;
        m_left -= room;
        ++m_taken;
        return object;
    }
    // Gives a room back.
    static void Release(void * room) noexcept;

    // What may be taken from now on, block by block, and counted.
    void SetBudget(std::uint64_t bytes);
    // Counts what goes with a model and stands elsewhere.
    void Count(std::size_t bytes) { m_budget -= static_cast<std::int64_t>(bytes); }
    // True once more has been taken than there was to take. Nothing is refused: whoever reads asks line by line.
    bool IsSpent() const { return m_budget < 0; }

private:
    struct Block;

    void * TakeElsewhere(std::size_t room);
    void Open();
    Block * TakeBlock();
    void Close() noexcept;

    Block * m_block = nullptr;
    char * m_next = nullptr;
    std::size_t m_left = 0;
    // How many rooms of the block were taken, how many blocks there have been, and the rest of the region.
    std::uint32_t m_taken = 0;
    std::uint32_t m_opened = 0;
    std::uint32_t m_blocksLeft = 0;
    Block * m_region = nullptr;
    std::int64_t m_budget = INT64_MAX;
};

// An object that stands in a block. Its class is a hidden one, derived from the one that the host knows, so that the
// delete of a host, which goes through the virtual destructor, gives the room back to the block.
template <typename Object>
class InBlock final : public Object {
    static_assert(std::has_virtual_destructor_v<Object>);

public:
    InBlock() = default;
    explicit InBlock(ObjectBlocks & blocks) : Object(blocks) {}

    static void * operator new(std::size_t size, ObjectBlocks & blocks)
    {
        static_assert(sizeof(InBlock) <= ObjectBlocks::Largest);
        static_assert(alignof(InBlock) <= ObjectBlocks::Step);
        return blocks.Take(size);
    }
    // The one that the virtual destructor calls; nobody makes an object by a new that would go with it.
    // NOLINTNEXTLINE(misc-new-delete-overloads)
    static void operator delete(void * object) noexcept { ObjectBlocks::Release(object); }
    static void operator delete(void * object, ObjectBlocks & /*blocks*/) noexcept { ObjectBlocks::Release(object); }
};

// What the heap takes for itself with each allocation.
inline constexpr std::size_t HeapOverhead = 8;

// Makes an object for a model that is being read: in a block, with its parts beside it where its class can. What has no
// virtual destructor is a single object from plain new, since nothing would tell its delete of a block.
template <typename Object>
Object * MakeFrom(ObjectBlocks & blocks)
{
    if constexpr (!std::has_virtual_destructor_v<Object>) {
        blocks.Count(sizeof(Object) + HeapOverhead);
        return new Object();
    }
    else if constexpr (std::is_constructible_v<Object, ObjectBlocks &>) {
        return new (blocks) InBlock<Object>(blocks);
    }
    else {
        return new (blocks) InBlock<Object>();
    }
}

}  // namespace ipc2581::detail

#endif
