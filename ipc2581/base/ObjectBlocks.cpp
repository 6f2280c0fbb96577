#include "ipc2581/base/ObjectBlocks.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace ipc2581::detail {
namespace {

// A block stands at a multiple of its alignment, so that it is found from the address of any object in it. Its size
// leaves room for what the heap keeps in front of the next one, which then follows without a gap.
constexpr std::size_t BlockAlignment = 4096;
constexpr std::size_t BlockSize = BlockAlignment - 16;

// Objects of their own stand at multiples of 16, those in blocks 8 behind one.
constexpr std::size_t Step = 16;
constexpr std::size_t Offset = 8;

// Sanitizers are to see each object as an allocation of its own.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool HasSanitizer = true;
#elif defined(__has_feature)
constexpr bool HasSanitizer = __has_feature(address_sanitizer);
#else
constexpr bool HasSanitizer = false;
#endif
constexpr bool UsesBlocks = !HasSanitizer && __STDCPP_DEFAULT_NEW_ALIGNMENT__ >= Step;

// More than a block can ever hold: what an open block counts beside its living objects.
constexpr std::uint32_t WhileOpen = 1U << 30;

}  // namespace

struct ObjectBlocks::Block {
    std::atomic<std::uint32_t> alive = WhileOpen;

    void Lose(std::uint32_t count) noexcept
    {
        if (alive.fetch_sub(count, std::memory_order_acq_rel) == count) {
            this->~Block();
            std::free(this);
        }
    }
};

void * ObjectBlocks::Take(std::size_t size)
{
    if (!UsesBlocks || size > BlockSize / 4) {
        return ::operator new(size);
    }
    const std::size_t room = (size + Step - 1) / Step * Step;
    if (m_block == nullptr || m_used + room > BlockSize) {
        Close();
        Open();
    }
    char * const object = reinterpret_cast<char *>(m_block) + m_used;
    m_used += room;
    ++m_taken;
    return object;
}

void ObjectBlocks::Release(void * object) noexcept
{
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(object);
    if (!UsesBlocks || address % Step != Offset) {
        ::operator delete(object);
        return;
    }
    reinterpret_cast<Block *>(static_cast<char *>(object) - address % BlockAlignment)->Lose(1);
}

void ObjectBlocks::Open()
{
    void * memory = nullptr;
    if (posix_memalign(&memory, BlockAlignment, BlockSize) != 0) {
        throw std::bad_alloc();
    }
    m_block = new (memory) Block();
    m_used = Offset;
    m_taken = 0;
}

void ObjectBlocks::Close() noexcept
{
    if (m_block != nullptr) {
        m_block->Lose(WhileOpen - m_taken);
        m_block = nullptr;
    }
}

}  // namespace ipc2581::detail
