#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"

// This program is one of its own because it replaces the global operator new: the allocation that is told fails, and
// what is alive is counted. Arrays do not come here, they use the heap of C; objects that a reader takes from a block
// come with their block.
namespace {

std::int64_t g_untilFailure = 0;
std::int64_t g_alive = 0;

void * Allocate(std::size_t size)
{
    if (g_untilFailure > 0 && --g_untilFailure == 0) {
        return nullptr;
    }
    void * const memory = std::malloc(size == 0 ? 1 : size);
    g_alive += memory == nullptr ? 0 : 1;
    return memory;
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
    g_alive -= memory == nullptr ? 0 : 1;
    std::free(memory);
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

namespace {

using namespace ipc2581::tests;

// More than the work on the board ever allocates.
constexpr std::int64_t Bound = 100000;

// Does the work again and again, with its first allocation failing, then its second, until none is left to fail.
// Nothing but std::bad_alloc may come out of it, and nothing may stay behind.
void FailEachAllocation(const std::function<void()> & work)
{
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

class NoMemory : public testing::Test {
protected:
    TempFolder folder;
    CString path{folder.Save("board.cvg", WholeBoardBytes())};
};

TEST_F(NoMemory, LetsAReadFail)
{
    FailEachAllocation([this] {
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader().OpenPath(path, root);
    });
    CIPC2581_Parser root;
    EXPECT_EQ(CIPC2581_XmlLiteReader().OpenPath(path, root), 1);
    EXPECT_EQ(ModelCounter(root).sizes.at("shapes"), 27);
}

TEST_F(NoMemory, LetsAWriteFail)
{
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    CString to(folder.Path("written.cvg"));
    FailEachAllocation([&root, &to] { CIPC2581_XmlLiteReader().WriteFilePath(to, root); });
    const std::string written = WrittenText(static_cast<const char *>(to));
    EXPECT_EQ(CIPC2581_XmlLiteReader().WriteFilePath(to, root), 1);
    EXPECT_EQ(WrittenText(static_cast<const char *>(to)), written);
}

TEST_F(NoMemory, LetsACopyFail)
{
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    FailEachAllocation([&root] { const CIPC2581_Content copy(root.m_Content); });
    FailEachAllocation([&step] { const CIPC2581_Ecad_CadData_Step_Profile copy(step.Profile); });
    FailEachAllocation(
        [&step] { const CIPC2581_Ecad_CadData_Step_LayerFeature_Set copy(*step.LayerFeatureArray[0]->SetArray[0]); });
}

}  // namespace
