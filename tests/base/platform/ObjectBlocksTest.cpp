#include "ipc2581/base/platform/ObjectBlocks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/PointD.h"
#include "ipc2581/draw/Point.h"
#include "ipc2581/draw/PolyStep.h"
#include "tests/support/Sanitizers.h"

namespace {

using ipc2581::detail::FromBlocks;
using ipc2581::detail::ObjectBlocks;
using ipc2581::tests::HasSanitizer;

class Base : public FromBlocks {
public:
    explicit Base(int & alive) : m_alive(alive) { ++m_alive; }
    Base(const Base &) = delete;
    Base & operator=(const Base &) = delete;
    virtual ~Base() { --m_alive; }
    virtual bool IsWhole() const = 0;

private:
    int & m_alive;
};

// An object of a size of its own, which knows whether somebody else has written into it.
template <std::size_t Size>
class Sized : public Base {
public:
    Sized(int & alive, unsigned char mark) : Base(alive), m_mark(mark) { m_bytes.fill(mark); }
    bool IsWhole() const override
    {
        return std::all_of(m_bytes.begin(), m_bytes.end(), [this](unsigned char byte) { return byte == m_mark; });
    }

private:
    unsigned char m_mark;
    std::array<unsigned char, Size> m_bytes;
};

// Final, since the class of the library has virtual operations and no virtual destructor.
class Coordinates final : public CPointD {
public:
    using CPointD::CPointD;
};

using Objects = std::vector<std::unique_ptr<Base>>;

// Objects of several sizes, one of them too large to share a block; every third is made by plain new.
Objects MakeObjects(ObjectBlocks & blocks, int & alive, std::size_t count)
{
    Objects objects;
    for (std::size_t i = 0; i < count; ++i) {
        const auto mark = static_cast<unsigned char>(i);
        switch (i % 9) {
        case 0:
            objects.emplace_back(new (blocks) Sized<1>(alive, mark));
            break;
        case 1:
            objects.emplace_back(new (blocks) Sized<40>(alive, mark));
            break;
        case 2:
            objects.emplace_back(new Sized<40>(alive, mark));
            break;
        case 3:
            objects.emplace_back(new (blocks) Sized<900>(alive, mark));
            break;
        case 4:
            objects.emplace_back(new (blocks) Sized<40000>(alive, mark));
            break;
        case 5:
            objects.emplace_back(new Sized<1>(alive, mark));
            break;
        case 6:
            objects.emplace_back(new (blocks) Sized<16>(alive, mark));
            break;
        case 7:
            objects.emplace_back(new (blocks) Sized<7>(alive, mark));
            break;
        default:
            objects.emplace_back(new Sized<40000>(alive, mark));
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
    for (int i = 0; i < 20000; ++i) {
        std::unique_ptr<Base> & object = objects[random() % objects.size()];
        object.reset(random() % 3 == 0 ? nullptr : new (blocks) Sized<60>(alive, static_cast<unsigned char>(i)));
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
    delete new (blocks) Sized<1>(alive, 0);
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
        shares[i % Threads].push_back(new (blocks) CIPC2581_PolyStep());
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
    std::vector<std::unique_ptr<Coordinates>> more;
    more.reserve(8000);
    for (int i = 0; i < 8000; ++i) {
        more.emplace_back(new (blocks) Coordinates(i, -i));
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    for (int i = 0; i < 8000; ++i) {
        ASSERT_EQ(more[static_cast<std::size_t>(i)]->GetX(), i);
    }
}

// What the process holds of the machine's memory, in bytes; 0 where nobody tells.
std::size_t ResidentBytes()
{
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * 4096;
}

TEST(ObjectBlocks, GivesTheMemoryBack)
{
    if (HasSanitizer || ResidentBytes() == 0) {
        GTEST_SKIP() << "nobody tells, or a sanitizer keeps what is freed";
    }
    constexpr std::size_t Count = 1000000;
    std::vector<std::unique_ptr<Coordinates>> points(Count);
    const std::size_t before = ResidentBytes();
    {
        ObjectBlocks blocks;
        for (std::unique_ptr<Coordinates> & point : points) {
            point.reset(new (blocks) Coordinates());
        }
    }
    const std::size_t full = ResidentBytes();
    // Neighbours share a block: of the first half all blocks but the last have lost everything.
    for (std::size_t i = 0; i < Count / 2; ++i) {
        points[i].reset();
    }
    const std::size_t half = ResidentBytes();
    // One object keeps its block, and no other.
    for (std::size_t i = Count / 2; i < Count; ++i) {
        if (i != Count / 2 + 1000) {
            points[i].reset();
        }
    }
    const std::size_t one = ResidentBytes();
    EXPECT_EQ(points[Count / 2 + 1000]->GetX(), 0.0);
    EXPECT_GE(full - before, Count * sizeof(Coordinates));
    EXPECT_LT(half - before, (full - before) * 6 / 10);
    EXPECT_LT(one - before, (full - before) / 5);
}

TEST(ObjectBlocks, TakesTheRoomBackOfAnObjectWhoseConstructorThrows)
{
    struct Thrower : FromBlocks {
        Thrower() { throw std::runtime_error("no"); }
        std::array<char, 100> bytes{};
    };
    ObjectBlocks blocks;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_THROW(new (blocks) Thrower(), std::runtime_error);
    }
    EXPECT_THROW(new Thrower(), std::runtime_error);
}

TEST(ObjectBlocks, HandsOutRoomOfEverySizeAtAPlaceForNumbersAndPointers)
{
    ObjectBlocks blocks;
    std::vector<void *> rooms;
    for (std::size_t size = 1; size <= 5000; size += 7) {
        rooms.push_back(blocks.Take(size));
        std::memset(rooms.back(), 0x5A, size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(rooms.back()) % alignof(double), 0u) << size;
    }
    std::sort(rooms.begin(), rooms.end());
    EXPECT_EQ(std::adjacent_find(rooms.begin(), rooms.end()), rooms.end());
    for (void * room : rooms) {
        ObjectBlocks::Release(room);
    }
}

TEST(ObjectBlocks, ReleasesWhatPlainNewMadeAndNothing)
{
    for (std::size_t size = 0; size <= 5000; size += 13) {
        ObjectBlocks::Release(::operator new(size));
    }
    EXPECT_NO_THROW(ObjectBlocks::Release(nullptr));
    EXPECT_NO_THROW(delete static_cast<Coordinates *>(nullptr));
}

// A heap may place objects of up to eight bytes where blocks place theirs.
TEST(FromBlocks, AsksTheHeapForAStepAtLeast)
{
    struct Small : FromBlocks {
        char byte = 0;
    };
    std::vector<std::unique_ptr<Small>> objects(100);
    for (std::unique_ptr<Small> & object : objects) {
        object = std::make_unique<Small>();
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(object.get()) % 16, 0u);
    }
}

// What a host may do with the classes that come from blocks in the library.
TEST(FromBlocks, LetsAHostMakeObjectsInEveryWay)
{
    ObjectBlocks blocks;
    const std::unique_ptr<Coordinates> fromBlocks(new (blocks) Coordinates(1, 2));
    const std::unique_ptr<Coordinates> plain(new Coordinates(3, 4));
    alignas(Coordinates) std::array<std::byte, sizeof(Coordinates)> place;
    Coordinates * const inPlace = new (place.data()) Coordinates(5, 6);
    EXPECT_EQ(fromBlocks->GetX() + plain->GetX() + inPlace->GetX(), 9);
    inPlace->~Coordinates();
    const std::unique_ptr<Coordinates> noThrow(new (std::nothrow) Coordinates(7, 8));
    ASSERT_NE(noThrow, nullptr);
    EXPECT_EQ(noThrow->GetY(), 8);
    const auto shared = std::make_shared<CIPC2581_Point>();
    const auto many = std::make_unique<Coordinates[]>(100);
    EXPECT_EQ(shared->GetPoint()->GetX(), many[99].GetX());
}

}  // namespace
