#include "ipc2581/base/platform/ObjectBlocks.h"

#include <algorithm>
#include <atomic>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace ipc2581::detail {
namespace {

// A block stands at a multiple of its size, so that it is found from the address of anything in it.
constexpr std::size_t BlockSize = std::size_t(1) << 15;

// The first blocks are the heap's. A region is as large as what the system can map in one piece.
constexpr std::uint32_t BlocksOfHeap = 64;
constexpr std::uint32_t BlocksOfRegion = 64;
constexpr std::size_t RegionSize = BlocksOfRegion * BlockSize;

// Sanitizers are to see each object as an allocation of its own.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool HasSanitizer = true;
#elif !defined(__has_feature)
constexpr bool HasSanitizer = false;
#elif __has_feature(address_sanitizer) || __has_feature(leak_sanitizer) || __has_feature(memory_sanitizer)
constexpr bool HasSanitizer = true;
#else
constexpr bool HasSanitizer = false;
#endif
constexpr bool UsesBlocks = !HasSanitizer;

// More than a block can ever hold: what an open block counts beside its living objects.
constexpr std::uint32_t WhileOpen = 1U << 30;

#if defined(__linux__)

void Unmap(char * from, const char * to) noexcept
{
    if (from != to) {
        static_cast<void>(munmap(from, static_cast<std::size_t>(to - from)));
    }
}

char * Map(std::size_t size)
{
    void * const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    return static_cast<char *>(memory);
}

void * AllocateRegion()
{
    char * region = Map(RegionSize);
    const auto beyond = [](const char * memory) { return reinterpret_cast<std::uintptr_t>(memory) % RegionSize; };
    // Systems tend to place a mapping of this size well by themselves.
    if (beyond(region) != 0) {
        Unmap(region, region + RegionSize);
        char * const wide = Map(2 * RegionSize);
        region = wide + RegionSize - beyond(wide);
        Unmap(wide, region);
        Unmap(region + RegionSize, wide + 2 * RegionSize);
    }
    // Memory in one piece costs a fraction of the time of single pages.
    static_cast<void>(madvise(region, RegionSize, MADV_HUGEPAGE));
    return region;
}

void FreeRegion(void * region) noexcept
{
    Unmap(static_cast<char *>(region), static_cast<char *>(region) + RegionSize);
}

#else

void * AllocateRegion()
{
    return ::operator new(RegionSize, std::align_val_t(BlockSize));
}

void FreeRegion(void * region) noexcept
{
    ::operator delete(region, std::align_val_t(BlockSize));
}

#endif

}  // namespace

struct ObjectBlocks::Block {
    explicit Block(Block * first) : region(first) {}

    std::atomic<std::uint32_t> alive = WhileOpen;
    std::atomic<std::uint32_t> blocksOfRegion = BlocksOfRegion;
    Block * const region;  // its first block; null if the block is the heap's

    void Lose(std::uint32_t count) noexcept
    {
        if (alive.fetch_sub(count, std::memory_order_acq_rel) != count) {
            return;
        }
        if (region == nullptr) {
            ::operator delete(this, std::align_val_t(BlockSize));
        }
        else {
            region->LoseBlocks(1);
        }
    }
    // Of the first block of a region, which counts all of them.
    void LoseBlocks(std::uint32_t count) noexcept
    {
        if (blocksOfRegion.fetch_sub(count, std::memory_order_acq_rel) == count) {
            FreeRegion(this);
        }
    }
};

ObjectBlocks::~ObjectBlocks()
{
    Close();
    if (m_blocksLeft != 0) {
        m_region->LoseBlocks(m_blocksLeft);
    }
}

void ObjectBlocks::SetBudget(std::uint64_t bytes)
{
    m_budget = static_cast<std::int64_t>(std::min<std::uint64_t>(bytes, INT64_MAX));
}

void * ObjectBlocks::TakeElsewhere(std::size_t room)
{
    if (!UsesBlocks) {
        Count(room + HeapOverhead);
        return ::operator new(room);
    }
    Close();
    Open();
    return Take(room);
}

void ObjectBlocks::Release(void * room) noexcept
{
    if (!UsesBlocks) {
        ::operator delete(room);
        return;
    }
    const std::uintptr_t beyond = reinterpret_cast<std::uintptr_t>(room) % BlockSize;
    reinterpret_cast<Block *>(static_cast<char *>(room) - beyond)->Lose(1);
}

void ObjectBlocks::Open()
{
    constexpr std::size_t offset = (sizeof(Block) + Step - 1) / Step * Step;
    static_assert(offset + Largest <= BlockSize);
    m_block = TakeBlock();
    m_next = reinterpret_cast<char *>(m_block) + offset;
    m_left = BlockSize - offset;
    m_taken = 0;
    ++m_opened;
    Count(BlockSize);
}

ObjectBlocks::Block * ObjectBlocks::TakeBlock()
{
    if (m_opened < BlocksOfHeap) {
        return new (::operator new(BlockSize, std::align_val_t(BlockSize))) Block(nullptr);
    }
    if (m_blocksLeft == 0) {
        m_region = static_cast<Block *>(AllocateRegion());
        m_blocksLeft = BlocksOfRegion;
    }
    const std::size_t index = BlocksOfRegion - m_blocksLeft--;
    return new (reinterpret_cast<char *>(m_region) + index * BlockSize) Block(m_region);
}

void ObjectBlocks::Close() noexcept
{
    if (m_block != nullptr) {
        m_block->Lose(WhileOpen - m_taken);
        m_block = nullptr;
        m_left = 0;
    }
}

}  // namespace ipc2581::detail
