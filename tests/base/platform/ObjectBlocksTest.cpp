#include "ipc2581/base/platform/ObjectBlocks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <thread>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
// Behind what it needs.
#include <psapi.h>
#endif

#include "ipc2581/base/PointD.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Point.h"
#include "ipc2581/draw/PolyStep.h"
#include "tests/support/Sanitizers.h"

namespace {

using ipc2581::detail::MakeFrom;
using ipc2581::detail::ObjectBlocks;
using ipc2581::tests::HasSanitizer;

class Base {
public:
    Base() = default;
    Base(const Base &) = delete;
    Base & operator=(const Base &) = delete;
    virtual ~Base()
    {
        if (m_alive != nullptr) {
            --*m_alive;
        }
    }
    virtual bool IsWhole() const = 0;

    void CountIn(int & alive)
    {
        m_alive = &alive;
        ++alive;
    }

private:
    int * m_alive = nullptr;
};

// An object of a size of its own, which knows whether somebody else has written into it.
template <std::size_t Size>
class Sized : public Base {
public:
    void Fill(unsigned char mark)
    {
        m_mark = mark;
        m_bytes.fill(mark);
    }
    bool IsWhole() const override
    {
        return std::all_of(m_bytes.begin(), m_bytes.end(), [this](unsigned char ch) { return ch == m_mark; });
    }

private:
    unsigned char m_mark = 0;
    std::array<unsigned char, Size> m_bytes = {};
};

template <std::size_t Size>
std::unique_ptr<Base> Marked(Sized<Size> * object, int & alive, std::size_t mark)
{
    object->CountIn(alive);
    object->Fill(static_cast<unsigned char>(mark));
    return std::unique_ptr<Base>(object);
}

template <std::size_t Size>
std::unique_ptr<Base> InBlocks(ObjectBlocks & blocks, int & alive, std::size_t mark)
{
    return Marked(MakeFrom<Sized<Size>>(blocks), alive, mark);
}

using Objects = std::vector<std::unique_ptr<Base>>;

// Objects of several sizes; every third is made by plain new.
Objects MakeObjects(ObjectBlocks & blocks, int & alive, std::size_t count)
{
    Objects objects;
    for (std::size_t i = 0; i < count; ++i) {
        switch (i % 9) {
        case 0:
            objects.push_back(InBlocks<1>(blocks, alive, i));
            break;
        case 1:
            objects.push_back(InBlocks<40>(blocks, alive, i));
            break;
        case 2:
            objects.push_back(Marked(new Sized<40>(), alive, i));
            break;
        case 3:
            objects.push_back(InBlocks<900>(blocks, alive, i));
            break;
        case 4:
            objects.push_back(InBlocks<2000>(blocks, alive, i));
            break;
        case 5:
            objects.push_back(Marked(new Sized<1>(), alive, i));
            break;
        case 6:
            objects.push_back(InBlocks<16>(blocks, alive, i));
            break;
        case 7:
            objects.push_back(InBlocks<7>(blocks, alive, i));
            break;
        default:
            objects.push_back(Marked(new Sized<40000>(), alive, i));
            break;
        }
    }
    return objects;
}

bool AreWhole(const Objects & objects)
{
    return std::all_of(objects.begin(), objects.end(),
                       [](const std::unique_ptr<Base> & object) { return object == nullptr || object->IsWhole(); });
}

TEST(ObjectBlocks, HandsOutRoomThatNobodyElseHas)
{
    int alive = 0;
    ObjectBlocks blocks;
    const Objects objects = MakeObjects(blocks, alive, 2000);
    EXPECT_EQ(alive, 2000);
    EXPECT_TRUE(AreWhole(objects));
}

TEST(ObjectBlocks, DeletesInAnyOrderThroughABasePointer)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        int alive = 0;
        ObjectBlocks blocks;
        Objects objects = MakeObjects(blocks, alive, 900);
        std::shuffle(objects.begin(), objects.end(), std::mt19937(seed));
        while (!objects.empty()) {
            objects.pop_back();
            ASSERT_EQ(alive, static_cast<int>(objects.size()));
            if (objects.size() % 100 == 0) {
                EXPECT_TRUE(AreWhole(objects));
            }
        }
    }
}

TEST(ObjectBlocks, HandsOutMoreBetweenDeletions)
{
    int alive = 0;
    ObjectBlocks blocks;
    Objects objects(200);
    std::mt19937 random(2581);
    for (std::size_t i = 0; i < 20000; ++i) {
        std::unique_ptr<Base> & object = objects[random() % objects.size()];
        object = random() % 3 == 0 ? nullptr : InBlocks<60>(blocks, alive, i);
    }
    EXPECT_TRUE(AreWhole(objects));
    objects.clear();
    EXPECT_EQ(alive, 0);
}

TEST(ObjectBlocks, MayGoBeforeItsObjects)
{
    int alive = 0;
    auto blocks = std::make_unique<ObjectBlocks>();
    Objects objects = MakeObjects(*blocks, alive, 1000);
    blocks.reset();
    EXPECT_TRUE(AreWhole(objects));
    objects.clear();
    EXPECT_EQ(alive, 0);
}

TEST(ObjectBlocks, MayGoWithoutAnObject)
{
    EXPECT_NO_THROW(ObjectBlocks());
    ObjectBlocks blocks;
    int alive = 0;
    InBlocks<1>(blocks, alive, 0).reset();
    EXPECT_EQ(alive, 0);
}

TEST(ObjectBlocks, DeletesOnAnotherThread)
{
    int alive = 0;
    ObjectBlocks blocks;
    Objects objects = MakeObjects(blocks, alive, 3000);
    bool areWhole = false;
    std::thread([&objects, &areWhole] {
        areWhole = AreWhole(objects);
        objects.clear();
    }).join();
    EXPECT_TRUE(areWhole);
    EXPECT_EQ(alive, 0);
}

TEST(ObjectBlocks, DeletesNeighboursOnSeveralThreadsWhileOneTakesMore)
{
    constexpr std::size_t Threads = 4;
    ObjectBlocks blocks;
    std::array<std::vector<CIPC2581_PolyStep *>, Threads> shares;
    for (std::size_t i = 0; i < 8000; ++i) {
        shares[i % Threads].push_back(MakeFrom<CIPC2581_PolyStep>(blocks));
    }
    std::vector<std::thread> threads;
    threads.reserve(Threads);
    for (std::vector<CIPC2581_PolyStep *> & share : shares) {
        threads.emplace_back([&share] {
            for (CIPC2581_PolyStep * step : share) {
                delete step;
            }
        });
    }
    std::vector<std::unique_ptr<CIPC2581_Point>> more;
    more.reserve(8000);
    for (int i = 0; i < 8000; ++i) {
        more.emplace_back(MakeFrom<CIPC2581_Point>(blocks))->SetPoint_X(i);
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    for (int i = 0; i < 8000; ++i) {
        ASSERT_EQ(more[static_cast<std::size_t>(i)]->GetPoint_X(), i);
    }
}

// What the process holds of the machine's memory, in bytes; 0 where nobody tells.
#if defined(_WIN32)
std::size_t ResidentBytes()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    return K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters)) != 0 ? counters.WorkingSetSize : 0;
}
#else
std::size_t ResidentBytes()
{
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * 4096;
}
#endif

TEST(ObjectBlocks, GivesTheMemoryBack)
{
    if (HasSanitizer || ResidentBytes() == 0) {
        GTEST_SKIP() << "nobody tells, or a sanitizer keeps what is freed";
    }
    constexpr std::size_t Count = 1000000;
    std::vector<std::unique_ptr<CIPC2581_LineDesc>> strokes(Count);
    const std::size_t before = ResidentBytes();
    {
        ObjectBlocks blocks;
        for (std::unique_ptr<CIPC2581_LineDesc> & stroke : strokes) {
            stroke.reset(MakeFrom<CIPC2581_LineDesc>(blocks));
        }
    }
    const std::size_t full = ResidentBytes();
    // Neighbours share a block: of the first half all blocks but the last have lost everything.
    for (std::size_t i = 0; i < Count / 2; ++i) {
        strokes[i].reset();
    }
    const std::size_t half = ResidentBytes();
    // One object keeps its block, and no other.
    for (std::size_t i = Count / 2; i < Count; ++i) {
        if (i != Count / 2 + 1000) {
            strokes[i].reset();
        }
    }
    const std::size_t one = ResidentBytes();
    EXPECT_EQ(strokes[Count / 2 + 1000]->LineEnd, "ROUND");
    EXPECT_GE(full - before, Count * sizeof(CIPC2581_LineDesc) * 9 / 10);
    EXPECT_LT(half - before, (full - before) * 7 / 10);
    EXPECT_LT(one - before, (full - before) * 3 / 10);
}

TEST(ObjectBlocks, TakesTheRoomBackOfAnObjectWhoseConstructorThrows)
{
    struct Thrower {
        Thrower() { throw std::runtime_error("no"); }
        virtual ~Thrower() = default;
        std::array<char, 100> bytes{};
    };
    ObjectBlocks blocks;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_THROW(MakeFrom<Thrower>(blocks), std::runtime_error);
    }
}

TEST(ObjectBlocks, HandsOutRoomOfEverySizeAtAPlaceForNumbersAndPointers)
{
    ObjectBlocks blocks;
    std::vector<void *> rooms;
    for (int round = 0; round < 10; ++round) {
        for (std::size_t size = 1; size <= ObjectBlocks::Largest; size += 7) {
            rooms.push_back(blocks.Take(size));
            std::memset(rooms.back(), 0x5A, size);
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(rooms.back()) % ObjectBlocks::Step, 0u) << size;
        }
    }
    std::sort(rooms.begin(), rooms.end());
    EXPECT_EQ(std::adjacent_find(rooms.begin(), rooms.end()), rooms.end());
    for (void * room : rooms) {
        ObjectBlocks::Release(room);
    }
}

TEST(ObjectBlocks, TellsWhenABudgetIsSpent)
{
    ObjectBlocks blocks;
    blocks.Count(1000000);
    EXPECT_FALSE(blocks.IsSpent());
    blocks.SetBudget(1000);
    blocks.Count(1000);
    EXPECT_FALSE(blocks.IsSpent());
    blocks.Count(1);
    EXPECT_TRUE(blocks.IsSpent());
    blocks.SetBudget(UINT64_MAX);
    EXPECT_FALSE(blocks.IsSpent());
}

TEST(ObjectBlocks, CountsWhatItGives)
{
    constexpr std::uint64_t Budget = 1000000;
    ObjectBlocks blocks;
    blocks.SetBudget(Budget);
    std::vector<std::unique_ptr<CIPC2581_LineDesc>> strokes;
    while (!blocks.IsSpent()) {
        strokes.emplace_back(MakeFrom<CIPC2581_LineDesc>(blocks));
    }
    EXPECT_LE(strokes.size() * sizeof(CIPC2581_LineDesc), Budget);
    EXPECT_GE(strokes.size() * sizeof(CIPC2581_LineDesc), Budget * 7 / 10);
    strokes.clear();
    EXPECT_TRUE(blocks.IsSpent());
}

TEST(ObjectBlocks, MakesObjectsOfAHiddenClassWithTheirPartsBesideThem)
{
    ObjectBlocks blocks;
    const std::unique_ptr<CIPC2581_Point> point(MakeFrom<CIPC2581_Point>(blocks));
    const CIPC2581_Point & made = *point;
    EXPECT_NE(typeid(made), typeid(CIPC2581_Point));
    EXPECT_NE(dynamic_cast<const CIPC2581_Point *>(&made), nullptr);
    const std::unique_ptr<CIPC2581_Point> clone(point->clone());
    const CIPC2581_Point & copy = *clone;
    EXPECT_EQ(typeid(copy), typeid(CIPC2581_Point));
}

// It has no virtual destructor that could tell its delete of a block.
TEST(ObjectBlocks, MakesPointsByPlainNew)
{
    ObjectBlocks blocks;
    blocks.SetBudget(100 * sizeof(CPointD));
    const auto deletePlainly = [](CPointD * point) {
        point->CPointD::~CPointD();
        ::operator delete(point);
    };
    for (int i = 0; i < 100; ++i) {
        deletePlainly(MakeFrom<CPointD>(blocks));
    }
    EXPECT_TRUE(blocks.IsSpent());
}

}  // namespace
