#include "tests/support/memory/FailingMemory.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>

#include <gtest/gtest.h>

#if defined(__linux__)
#include <sys/mman.h>
#endif

// A program with this source is one of its own because it replaces the global operator new, and is linked so that what
// the library calls of the C library's memory comes here first: the allocation that is told fails, and what is alive is
// counted. Objects that a reader takes from a block come with their block.
namespace {

std::int64_t g_untilFailure = 0;
// Whether all behind the one that fails do so too.
bool g_isLasting = false;
std::int64_t g_alive = 0;
// How often memory was mapped.
std::int64_t g_mapped = 0;

bool Fails()
{
    if (g_untilFailure <= 0) {
        return false;
    }
    if (g_untilFailure > 1) {
        --g_untilFailure;
        return false;
    }
    g_untilFailure = g_isLasting ? 1 : 0;
    return true;
}

void * Counted(void * memory)
{
    g_alive += memory == nullptr ? 0 : 1;
    return memory;
}

}  // namespace

extern "C" {

void * __real_malloc(std::size_t size);
void * __real_calloc(std::size_t count, std::size_t size);
void * __real_realloc(void * memory, std::size_t size);
void __real_free(void * memory);

void * __wrap_malloc(std::size_t size)
{
    return Fails() ? nullptr : Counted(__real_malloc(size));
}

void * __wrap_calloc(std::size_t count, std::size_t size)
{
    return Fails() ? nullptr : Counted(__real_calloc(count, size));
}

void * __wrap_realloc(void * memory, std::size_t size)
{
    if (Fails()) {
        return nullptr;
    }
    void * const resized = __real_realloc(memory, size);
    return memory == nullptr ? Counted(resized) : resized;
}

void __wrap_free(void * memory)
{
    g_alive -= memory == nullptr ? 0 : 1;
    __real_free(memory);
}

#if defined(__linux__)
// The name under which files and memory of any size are mapped.
void * __real_mmap64(void * address, std::size_t size, int protection, int flags, int file, std::int64_t offset);

void * __wrap_mmap64(void * address, std::size_t size, int protection, int flags, int file, std::int64_t offset)
{
    ++g_mapped;
    return Fails() ? MAP_FAILED : __real_mmap64(address, size, protection, flags, file, offset);
}
#endif

}  // extern "C"

namespace {

void * Allocate(std::size_t size)
{
    return Fails() ? nullptr : Counted(__real_malloc(size == 0 ? 1 : size));
}

void * AllocateOrThrow(std::size_t size)
{
    void * const memory = Allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void Free(void * memory) noexcept
{
    __wrap_free(memory);
}

}  // namespace

void * operator new(std::size_t size)
{
    return AllocateOrThrow(size);
}
void * operator new[](std::size_t size)
{
    return AllocateOrThrow(size);
}
void * operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept
{
    return Allocate(size);
}
void * operator new[](std::size_t size, const std::nothrow_t & /*tag*/) noexcept
{
    return Allocate(size);
}
void * operator new(std::size_t size, std::align_val_t alignment)
{
    void * const memory = AllocateOrThrow(size + static_cast<std::size_t>(alignment) + sizeof(void *));
    const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(memory) + sizeof(void *);
    const std::uintptr_t mask = static_cast<std::uintptr_t>(alignment) - 1;
    void ** const aligned = reinterpret_cast<void **>((first + mask) & ~mask);
    aligned[-1] = memory;
    return aligned;
}
void operator delete(void * memory, std::align_val_t /*alignment*/) noexcept
{
    Free(memory == nullptr ? nullptr : static_cast<void **>(memory)[-1]);
}
void operator delete(void * memory, std::size_t /*size*/, std::align_val_t alignment) noexcept
{
    operator delete(memory, alignment);
}
void operator delete(void * memory) noexcept
{
    Free(memory);
}
void operator delete[](void * memory) noexcept
{
    Free(memory);
}
void operator delete(void * memory, std::size_t /*size*/) noexcept
{
    Free(memory);
}
void operator delete[](void * memory, std::size_t /*size*/) noexcept
{
    Free(memory);
}
void operator delete(void * memory, const std::nothrow_t & /*tag*/) noexcept
{
    Free(memory);
}
void operator delete[](void * memory, const std::nothrow_t & /*tag*/) noexcept
{
    Free(memory);
}

namespace ipc2581::tests {
namespace {

// More than the work on the board ever allocates.
constexpr std::int64_t Bound = 100000;

void FailEach(const std::function<void()> & work, bool isLasting)
{
    g_isLasting = isLasting;
    std::string leaks;
    std::int64_t failures = 0;
    bool isDone = false;
    while (!isDone && failures < Bound) {
        const std::int64_t before = g_alive;
        g_untilFailure = failures + 1;
        try {
            work();
            isDone = true;
        }
        catch (const std::bad_alloc &) {
            ++failures;
        }
        catch (...) {
            g_untilFailure = 0;
            ADD_FAILURE() << "something else came out of the failure of allocation " << failures + 1;
            isDone = true;
        }
        g_untilFailure = 0;
        if (g_alive != before) {
            leaks += std::to_string(failures) + " (" + std::to_string(g_alive - before) + ") ";
        }
    }
    EXPECT_TRUE(isDone);
    EXPECT_GT(failures, 0);
    EXPECT_EQ(leaks, "") << "allocations whose failure left so many behind, of " << failures;
}

}  // namespace

void FailEachAllocation(const std::function<void()> & work)
{
    FailEach(work, false);
    FailEach(work, true);
}

std::int64_t MappedCount()
{
    return g_mapped;
}

}  // namespace ipc2581::tests
