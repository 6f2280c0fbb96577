#include "ipc2581/base/platform/ObjectBlocks.h"

#include <atomic>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace ipc2581::detail {
namespace {

// A block stands at a multiple of its size, so that it is found from the address of anything in it. It is as large as
// what the system can map in one piece; of a block that is hardly used hardly anything becomes memory.
constexpr std::size_t BlockSize = std::size_t(1) << 21;

// Sanitizers are to see each object as an allocation of its own.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool HasSanitizer = true;
#elif defined(__has_feature)
constexpr bool HasSanitizer =
    __has_feature(address_sanitizer) || __has_feature(leak_sanitizer) || __has_feature(memory_sanitizer);
#else
constexpr bool HasSanitizer = false;
#endif

constexpr bool UsesBlocks = !HasSanitizer && __STDCPP_DEFAULT_NEW_ALIGNMENT__ >= 16;

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

bool IsAligned(const char * memory)
{
    return reinterpret_cast<std::uintptr_t>(memory) % BlockSize == 0;
}

// Systems tend to place a mapping of this size well by themselves.
void * AllocateBlock(bool isLargeModel)
{
    char * block = Map(BlockSize);
    if (!IsAligned(block)) {
        Unmap(block, block + BlockSize);
        char * const wide = Map(2 * BlockSize);
        block = wide + BlockSize - reinterpret_cast<std::uintptr_t>(wide) % BlockSize;
        Unmap(wide, block);
        Unmap(block + BlockSize, wide + 2 * BlockSize);
    }
    // Memory in one piece costs a fraction of the time of single pages; a small model does without the waste.
    if (isLargeModel) {
        static_cast<void>(madvise(block, BlockSize, MADV_HUGEPAGE));
    }
    return block;
}

void FreeBlock(void * block) noexcept
{
    Unmap(static_cast<char *>(block), static_cast<char *>(block) + BlockSize);
}

#else

void * AllocateBlock(bool /*isLargeModel*/)
{
    return ::operator new(BlockSize, std::align_val_t(BlockSize));
}

void FreeBlock(void * block) noexcept
{
    ::operator delete(block, std::align_val_t(BlockSize));
}

#endif

}  // namespace

struct ObjectBlocks::Block {
    std::atomic<std::uint32_t> alive = WhileOpen;

    void Lose(std::uint32_t count) noexcept
    {
        if (alive.fetch_sub(count, std::memory_order_acq_rel) == count) {
            this->~Block();
            FreeBlock(this);
        }
    }
};

void * ObjectBlocks::TakeElsewhere(std::size_t size)
{
    constexpr std::size_t largest = BlockSize / 64;
    if (!UsesBlocks || size > largest) {
        return ::operator new(size);
    }
    Close();
    Open();
    return Take(size);
}

void ObjectBlocks::Release(void * object) noexcept
{
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(object);
    if (!UsesBlocks || address % Step == 0) {
        ::operator delete(object);
        return;
    }
    reinterpret_cast<Block *>(static_cast<char *>(object) - address % BlockSize)->Lose(1);
}

void ObjectBlocks::Open()
{
    constexpr std::size_t offset = Step / 2;
    static_assert(sizeof(Block) <= offset);
    void * const memory = AllocateBlock(m_opened != 0);
    m_block = new (memory) Block();
    m_next = static_cast<char *>(memory) + offset;
    m_left = BlockSize - offset;
    m_taken = 0;
    ++m_opened;
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
