// Where memory ends, nothing is left behind, and the clone of a dictionary entry is null.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "tests/small_hosts/Expect.h"

namespace {

std::int64_t g_alive = 0;
std::int64_t g_left = INT64_MAX;

// Kept apart, so that a compiler does not take it for a free of what it knows to come from new.
[[gnu::noinline]] void Free(void * object)
{
    g_alive -= object == nullptr ? 0 : 1;
    std::free(object);
}

}  // namespace

void * operator new(std::size_t size)
{
    void * const memory = g_left-- <= 0 ? nullptr : std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++g_alive;
    return memory;
}
void operator delete(void * object) noexcept
{
    Free(object);
}
void operator delete(void * object, std::size_t /*size*/) noexcept
{
    operator delete(object);
}

namespace {

// Lets each allocation fail once; the make is done when it needs no more.
template <typename Make>
int FailEachIn(Make make)
{
    const std::int64_t before = g_alive;
    for (int count = 0;; ++count) {
        g_left = count;
        bool isMade = true;
        try {
            isMade = make();
        }
        catch (const std::bad_alloc &) {
            isMade = false;
        }
        g_left = INT64_MAX;
        Expect(g_alive == before, "nothing is left behind");
        if (isMade) {
            return count;
        }
    }
}

template <typename Object>
int FailEachOf()
{
    return FailEachIn([] { return std::make_unique<Object>() != nullptr; });
}

}  // namespace

int main()
{
    Expect(FailEachOf<CIPC2581_Arc>() == 8, "an arc is made of eight pieces");
    Expect(FailEachOf<CIPC2581_Line>() == 6, "a line is made of six");
    FailEachOf<CIPC2581_PolyLine>();
    FailEachOf<CIPC2581_Outline>();
    FailEachOf<CIPC2581_Ecad_CadData_Step_Package>();
    FailEachOf<CIPC2581_Ecad_CadData_Step_Package_Pin>();
    FailEachOf<CIPC2581_Parser>();

    CIPC2581_Content_DictionaryStandard_EntryStandard entry;
    entry.EntryStandardId = "an id that is longer than a few bytes";
    entry.DrawArray->Add(new CIPC2581_DicDraw_Circle);
    bool hasThrown = false;
    const int count = FailEachIn([&] {
        try {
            return std::unique_ptr<CIPC2581_Content_DictionaryStandard_EntryStandard>(entry.clone()) != nullptr;
        }
        catch (const std::bad_alloc &) {
            hasThrown = true;
            return false;
        }
    });
    Expect(count >= 4 && !hasThrown, "the clone of an entry is null where there is no memory");
}
