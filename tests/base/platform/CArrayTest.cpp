#include "ipc2581/base/platform/CArray.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <initializer_list>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/PointD.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CObject.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"

namespace ipc2581::tests {
namespace {

constexpr std::int64_t Huge = std::numeric_limits<std::int64_t>::max();

// An array that lets its storage be seen.
template <typename Base>
class Open : public Base {
public:
    [[nodiscard]] std::int64_t Capacity() const { return this->m_nMaxSize; }
    [[nodiscard]] std::int64_t GrowStep() const { return this->m_nGrowBy; }
    [[nodiscard]] bool HasStorage() const { return this->m_pData != nullptr; }
};

// Each kind makes an element of a number, tells the number of an element, and has 0 for the empty element.
struct TextKind {
    using Element = CString;
    using Array = Open<CArray<CString, CString>>;
    static CString Make(int number)
    {
        const std::string text =
            number == 0 ? "" : std::to_string(number) + (number % 2 == 0 ? "" : " longer than others");
        return CString(text.c_str());
    }
    static int Number(const CString & element) { return element == "" ? 0 : std::stoi(Str(element)); }
};

struct PointKind {
    using Element = CPointD;
    using Array = Open<CArray<CPointD, CPointD &>>;
    static CPointD Make(int number) { return {static_cast<double>(number), -static_cast<double>(number)}; }
    static int Number(const CPointD & element)
    {
        EXPECT_EQ(element.X, -element.Y);
        return static_cast<int>(element.X);
    }
};

struct PointerKind {
    using Element = int *;
    using Array = Open<CArray<int *, int *>>;
    static int * Make(int number)
    {
        static int objects[100];
        return number == 0 ? nullptr : objects + number;
    }
    static int Number(const int * element) { return element == nullptr ? 0 : static_cast<int>(element - Make(1)) + 1; }
};

using Numbers = Open<CArray<int, int>>;

// Counts the objects of its type that are alive and how often one was copied, assigned or destroyed.
class Counted {
public:
    Counted() { ++alive; }
    explicit Counted(int number) : m_number(number) { ++alive; }
    Counted(const Counted & other) : m_number(other.m_number)
    {
        ++alive;
        ++copied;
    }
    Counted & operator=(const Counted & other)
    {
        m_number = other.m_number;
        ++copied;
        return *this;
    }
    ~Counted()
    {
        --alive;
        ++destroyed;
    }
    [[nodiscard]] int Number() const { return m_number; }
    friend void SerializeElement(CArchive & archive, Counted & element)
    {
        ipc2581::detail::SerializeElement(archive, element.m_number);
    }

    static void Forget()
    {
        copied = 0;
        destroyed = 0;
    }

    inline static int alive = 0;
    inline static int copied = 0;
    inline static int destroyed = 0;

private:
    int m_number = 0;
};

using CountedArray = Open<CArray<Counted, const Counted &>>;

}  // namespace

template <typename Kind>
class CArrayOfEachKind : public testing::Test {
protected:
    using Array = typename Kind::Array;

    static void Fill(Array & array, std::initializer_list<int> numbers)
    {
        for (const int number : numbers) {
            auto element = Kind::Make(number);
            array.Add(element);
        }
    }

    static std::vector<int> Values(const Array & array)
    {
        std::vector<int> values;
        for (std::int64_t i = 0; i < array.GetSize(); ++i) {
            values.push_back(Kind::Number(array.GetAt(i)));
        }
        return values;
    }
};

namespace {

using List = std::vector<int>;
using Kinds = testing::Types<TextKind, PointKind, PointerKind>;

}  // namespace

TYPED_TEST_SUITE(CArrayOfEachKind, Kinds);

TYPED_TEST(CArrayOfEachKind, IsEmptyWhenNew)
{
    typename TypeParam::Array array;
    const auto & constant = array;
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
    EXPECT_EQ(constant.GetData(), nullptr);
    EXPECT_EQ(array.Capacity(), 0);
    EXPECT_EQ(array.GrowStep(), 0);
}

TYPED_TEST(CArrayOfEachKind, AppendsAndTellsTheIndex)
{
    typename TypeParam::Array array;
    for (int i = 0; i < 50; ++i) {
        auto element = TypeParam::Make(i);
        EXPECT_EQ(array.Add(element), i);
    }
    EXPECT_EQ(array.GetSize(), 50);
    EXPECT_EQ(array.GetCount(), 50);
    EXPECT_EQ(array.GetUpperBound(), 49);
    EXPECT_FALSE(array.IsEmpty());
    for (int i = 0; i < 50; ++i) {
        ASSERT_EQ(TypeParam::Number(array.GetAt(i)), i);
    }
}

TYPED_TEST(CArrayOfEachKind, HoldsItsElementsSideBySide)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3, 4, 5, 6, 7});
    const auto & constant = array;
    typename TypeParam::Element * const data = array.GetData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(constant.GetData(), data);
    for (std::int64_t i = 0; i < 7; ++i) {
        EXPECT_EQ(&array.ElementAt(i), data + i);
        EXPECT_EQ(TypeParam::Number(data[i]), i + 1);
    }
}

TYPED_TEST(CArrayOfEachKind, GivesTheElementByEachOfItsAccessors)
{
    typename TypeParam::Array array;
    this->Fill(array, {4, 5});
    const auto & constant = array;
    EXPECT_EQ(TypeParam::Number(array.GetAt(1)), 5);
    EXPECT_EQ(TypeParam::Number(array[1]), 5);
    EXPECT_EQ(TypeParam::Number(array.ElementAt(1)), 5);
    EXPECT_EQ(TypeParam::Number(constant.GetAt(0)), 4);
    EXPECT_EQ(TypeParam::Number(constant[0]), 4);
    array[0] = TypeParam::Make(6);
    array.ElementAt(1) = TypeParam::Make(7);
    EXPECT_EQ(this->Values(array), (List{6, 7}));
}

TYPED_TEST(CArrayOfEachKind, RaisesForAnIndexOutOfRange)
{
    typename TypeParam::Array array;
    auto element = TypeParam::Make(1);
    for (int size = 0; size < 3; ++size) {
        const auto & constant = array;
        for (const std::int64_t index : {std::int64_t(-1), std::int64_t(size), std::int64_t(size) + 1, Huge, -Huge}) {
            EXPECT_THROW(static_cast<void>(array.GetAt(index)), CInvalidArgException);
            EXPECT_THROW(static_cast<void>(array[index]), CInvalidArgException);
            EXPECT_THROW(static_cast<void>(array.ElementAt(index)), CInvalidArgException);
            EXPECT_THROW(static_cast<void>(constant.GetAt(index)), CInvalidArgException);
            EXPECT_THROW(static_cast<void>(constant[index]), CInvalidArgException);
            EXPECT_THROW(array.SetAt(index, element), CInvalidArgException);
        }
        EXPECT_EQ(array.GetSize(), size);
        array.Add(element);
    }
}

TYPED_TEST(CArrayOfEachKind, HasNoElementInItsSpareRoom)
{
    typename TypeParam::Array array;
    array.SetSize(10);
    array.SetSize(2);
    ASSERT_EQ(array.Capacity(), 10);
    EXPECT_THROW(static_cast<void>(array.GetAt(2)), CInvalidArgException);
    EXPECT_THROW(static_cast<void>(array[9]), CInvalidArgException);
}

TYPED_TEST(CArrayOfEachKind, OverwritesAnElement)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    auto element = TypeParam::Make(9);
    array.SetAt(1, element);
    EXPECT_EQ(this->Values(array), (List{1, 9, 3}));
}

TYPED_TEST(CArrayOfEachKind, GrowsToTheIndexThatIsSet)
{
    typename TypeParam::Array array;
    auto element = TypeParam::Make(9);
    array.SetAtGrow(2, element);
    EXPECT_EQ(this->Values(array), (List{0, 0, 9}));
    array.SetAtGrow(0, element);
    EXPECT_EQ(this->Values(array), (List{9, 0, 9}));
    array.SetAtGrow(3, element);
    EXPECT_EQ(this->Values(array), (List{9, 0, 9, 9}));
    EXPECT_THROW(array.SetAtGrow(-1, element), CInvalidArgException);
    EXPECT_THROW(array.SetAtGrow(-Huge, element), CInvalidArgException);
    EXPECT_EQ(array.GetSize(), 4);
}

TYPED_TEST(CArrayOfEachKind, RaisesForANegativeSize)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2});
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
    EXPECT_THROW(array.SetSize(-Huge, 7), CInvalidArgException);
    EXPECT_EQ(this->Values(array), (List{1, 2}));
    EXPECT_EQ(array.GrowStep(), 0);
}

TYPED_TEST(CArrayOfEachKind, ClearsTheElementsThatItGrowsBy)
{
    typename TypeParam::Array array;
    array.SetSize(2);
    EXPECT_EQ(this->Values(array), (List{0, 0}));
    auto element = TypeParam::Make(5);
    array.SetAt(0, element);
    array.SetAt(1, element);
    array.SetSize(40);
    List expected(40, 0);
    expected[0] = expected[1] = 5;
    EXPECT_EQ(this->Values(array), expected);
}

TYPED_TEST(CArrayOfEachKind, ClearsElementsThatComeBackIntoItsSpareRoom)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3, 4});
    const std::int64_t capacity = array.Capacity();
    array.SetSize(1);
    EXPECT_EQ(this->Values(array), (List{1}));
    EXPECT_EQ(array.Capacity(), capacity);
    array.SetSize(4);
    EXPECT_EQ(this->Values(array), (List{1, 0, 0, 0}));
    EXPECT_EQ(array.Capacity(), capacity);
}

TYPED_TEST(CArrayOfEachKind, ReleasesItsStorageAtSizeZero)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    array.SetSize(0);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.Capacity(), 0);
    EXPECT_FALSE(array.HasStorage());
    this->Fill(array, {4});
    EXPECT_EQ(this->Values(array), (List{4}));
    EXPECT_EQ(array.Capacity(), 1);
    array.RemoveAll();
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.Capacity(), 0);
    EXPECT_FALSE(array.HasStorage());
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TYPED_TEST(CArrayOfEachKind, AppendsAnotherArray)
{
    typename TypeParam::Array array;
    typename TypeParam::Array other;
    this->Fill(array, {1, 2});
    this->Fill(other, {3, 4, 5});
    EXPECT_EQ(array.Append(other), 2);
    EXPECT_EQ(this->Values(array), (List{1, 2, 3, 4, 5}));
    EXPECT_EQ(this->Values(other), (List{3, 4, 5}));
    EXPECT_EQ(array.Append(typename TypeParam::Array()), 5);
    EXPECT_EQ(array.GetSize(), 5);
    typename TypeParam::Array fresh;
    EXPECT_EQ(fresh.Append(other), 0);
    EXPECT_EQ(this->Values(fresh), (List{3, 4, 5}));
}

TYPED_TEST(CArrayOfEachKind, IsNotAppendedToItself)
{
    typename TypeParam::Array array;
    EXPECT_THROW(array.Append(array), CInvalidArgException);
    this->Fill(array, {1, 2});
    EXPECT_THROW(array.Append(array), CInvalidArgException);
    EXPECT_EQ(this->Values(array), (List{1, 2}));
}

TYPED_TEST(CArrayOfEachKind, BecomesACopyOfAnother)
{
    typename TypeParam::Array array;
    typename TypeParam::Array other;
    this->Fill(array, {1, 2, 3, 4});
    this->Fill(other, {5, 6});
    array.Copy(other);
    EXPECT_EQ(this->Values(array), (List{5, 6}));
    other[0] = TypeParam::Make(7);
    EXPECT_EQ(this->Values(array), (List{5, 6}));
    this->Fill(other, {8, 9, 10, 11, 12});
    array.Copy(other);
    EXPECT_EQ(this->Values(array), (List{7, 6, 8, 9, 10, 11, 12}));
    array.Copy(typename TypeParam::Array());
    EXPECT_TRUE(array.IsEmpty());
}

TYPED_TEST(CArrayOfEachKind, StaysTheSameWhenCopiedToItself)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2});
    const auto * const data = array.GetData();
    array.Copy(array);
    EXPECT_EQ(this->Values(array), (List{1, 2}));
    EXPECT_EQ(array.GetData(), data);
}

TYPED_TEST(CArrayOfEachKind, InsertsAnElement)
{
    typename TypeParam::Array array;
    auto element = TypeParam::Make(9);
    array.InsertAt(0, element);
    EXPECT_EQ(this->Values(array), (List{9}));
    this->Fill(array, {1, 2});
    array.InsertAt(0, element);
    array.InsertAt(3, element);
    array.InsertAt(5, element);
    EXPECT_EQ(this->Values(array), (List{9, 9, 1, 9, 2, 9}));
}

TYPED_TEST(CArrayOfEachKind, InsertsCopiesOfAnElement)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3, 4});
    auto element = TypeParam::Make(9);
    array.InsertAt(1, element, 2);
    EXPECT_EQ(this->Values(array), (List{1, 9, 9, 2, 3, 4}));
    array.InsertAt(5, element, 7);
    EXPECT_EQ(this->Values(array), (List{1, 9, 9, 2, 3, 9, 9, 9, 9, 9, 9, 9, 4}));
}

TYPED_TEST(CArrayOfEachKind, InsertedPastItsEndHasAGapOfEmptyElements)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2});
    auto element = TypeParam::Make(9);
    array.InsertAt(4, element, 2);
    EXPECT_EQ(this->Values(array), (List{1, 2, 0, 0, 9, 9}));
    array.InsertAt(6, element);
    EXPECT_EQ(this->Values(array), (List{1, 2, 0, 0, 9, 9, 9}));
}

TYPED_TEST(CArrayOfEachKind, RaisesForABadPlaceOrCountToInsert)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2});
    auto element = TypeParam::Make(9);
    EXPECT_THROW(array.InsertAt(-1, element), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(-Huge, element), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, element, 0), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, element, -1), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(5, element, 0), CInvalidArgException);
    EXPECT_EQ(this->Values(array), (List{1, 2}));
}

TYPED_TEST(CArrayOfEachKind, InsertsAnotherArray)
{
    typename TypeParam::Array array;
    typename TypeParam::Array other;
    this->Fill(array, {1, 2});
    this->Fill(other, {3, 4, 5});
    array.InsertAt(1, &other);
    EXPECT_EQ(this->Values(array), (List{1, 3, 4, 5, 2}));
    array.InsertAt(7, &other);
    EXPECT_EQ(this->Values(array), (List{1, 3, 4, 5, 2, 0, 0, 3, 4, 5}));
    EXPECT_EQ(this->Values(other), (List{3, 4, 5}));
}

TYPED_TEST(CArrayOfEachKind, RaisesForNoArrayOrABadPlaceToInsertIt)
{
    typename TypeParam::Array array;
    typename TypeParam::Array other;
    typename TypeParam::Array * const none = nullptr;
    this->Fill(array, {1, 2});
    EXPECT_THROW(array.InsertAt(0, none), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(-1, &other), CInvalidArgException);
    this->Fill(other, {3});
    EXPECT_THROW(array.InsertAt(-1, &other), CInvalidArgException);
    EXPECT_EQ(this->Values(array), (List{1, 2}));
}

TYPED_TEST(CArrayOfEachKind, IsNotChangedByAnEmptyArrayInsertedAnywhere)
{
    typename TypeParam::Array array;
    typename TypeParam::Array none;
    this->Fill(array, {1, 2});
    for (const std::int64_t index : {0, 1, 2, 3, 100}) {
        array.InsertAt(index, &none);
        EXPECT_EQ(this->Values(array), (List{1, 2}));
    }
}

TYPED_TEST(CArrayOfEachKind, RemovesElementsAndClosesTheGap)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3, 4, 5, 6, 7});
    array.RemoveAt(0);
    EXPECT_EQ(this->Values(array), (List{2, 3, 4, 5, 6, 7}));
    array.RemoveAt(1, 3);
    EXPECT_EQ(this->Values(array), (List{2, 6, 7}));
    array.RemoveAt(2);
    EXPECT_EQ(this->Values(array), (List{2, 6}));
    array.RemoveAt(0, 0);
    array.RemoveAt(2, 0);
    EXPECT_EQ(this->Values(array), (List{2, 6}));
    array.RemoveAt(0, 2);
    EXPECT_TRUE(array.IsEmpty());
}

TYPED_TEST(CArrayOfEachKind, RaisesForARangeToRemoveThatItDoesNotHold)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    const struct {
        std::int64_t index;
        std::int64_t count;
    } table[] = {{-1, 1}, {0, -1},   {-1, 0},   {0, 4},       {2, 2}, {3, 1},
                 {4, 0},  {1, Huge}, {Huge, 1}, {Huge, Huge}, {-1, 2}};
    for (const auto & row : table) {
        EXPECT_THROW(array.RemoveAt(row.index, row.count), CInvalidArgException) << row.index << ' ' << row.count;
    }
    EXPECT_EQ(this->Values(array), (List{1, 2, 3}));
    EXPECT_THROW(typename TypeParam::Array().RemoveAt(0), CInvalidArgException);
}

TYPED_TEST(CArrayOfEachKind, KeepsItsStorageWhenElementsAreRemoved)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    const std::int64_t capacity = array.Capacity();
    array.RemoveAt(0, 3);
    EXPECT_EQ(array.Capacity(), capacity);
    EXPECT_TRUE(array.HasStorage());
    EXPECT_EQ(array.GetData(), nullptr);
    this->Fill(array, {4});
    EXPECT_EQ(this->Values(array), (List{4}));
    EXPECT_EQ(array.Capacity(), capacity);
}

TYPED_TEST(CArrayOfEachKind, FreesItsSpareRoom)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    ASSERT_GT(array.Capacity(), 3);
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 3);
    EXPECT_EQ(this->Values(array), (List{1, 2, 3}));
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 3);
    array.RemoveAt(0, 3);
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 0);
    this->Fill(array, {4});
    EXPECT_EQ(this->Values(array), (List{4}));
}

TYPED_TEST(CArrayOfEachKind, AppendsAnElementOfItsOwn)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    for (int i = 0; i < 40; ++i) {
        array.Add(array[i % 3]);
        array.FreeExtra();
    }
    ASSERT_EQ(array.GetSize(), 43);
    for (std::int64_t i = 0; i < 43; ++i) {
        EXPECT_EQ(TypeParam::Number(array[i]), i % 3 + 1);
    }
}

TYPED_TEST(CArrayOfEachKind, SetsAnElementOfItsOwnAtAnyIndex)
{
    typename TypeParam::Array array;
    this->Fill(array, {1, 2, 3});
    array.FreeExtra();
    array.SetAtGrow(5, array[0]);
    EXPECT_EQ(this->Values(array), (List{1, 2, 3, 0, 0, 1}));
    array.SetAtGrow(1, array[1]);
    array.SetAtGrow(3, array[2]);
    array.SetAt(4, array[0]);
    array.SetAt(2, array[2]);
    EXPECT_EQ(this->Values(array), (List{1, 2, 3, 3, 1, 1}));
}

TYPED_TEST(CArrayOfEachKind, InsertsAnElementOfItsOwn)
{
    for (const bool isFull : {true, false}) {
        for (std::int64_t from = 0; from < 3; ++from) {
            for (std::int64_t to = 0; to < 6; ++to) {
                typename TypeParam::Array array;
                array.SetSize(20);
                array.SetSize(1);
                array.RemoveAt(0);
                this->Fill(array, {1, 2, 3});
                if (isFull) {
                    array.FreeExtra();
                }
                List expected = {1, 2, 3};
                expected.resize(static_cast<std::size_t>(std::max<std::int64_t>(3, to)), 0);
                expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(to), 2, static_cast<int>(from) + 1);
                array.InsertAt(to, array[from], 2);
                EXPECT_EQ(this->Values(array), expected) << from << ' ' << to;
            }
        }
    }
}

TYPED_TEST(CArrayOfEachKind, InsertsItselfIntoItself)
{
    for (const bool isFull : {true, false}) {
        typename TypeParam::Array array;
        array.SetSize(20);
        array.SetSize(1);
        array.RemoveAt(0);
        this->Fill(array, {1, 2, 3});
        if (isFull) {
            array.FreeExtra();
        }
        array.InsertAt(1, &array);
        EXPECT_EQ(this->Values(array), (List{1, 1, 2, 3, 2, 3}));
    }
}

TEST(CArray, AllocatesExactlyTheFirstSizeWithoutAGrowStep)
{
    for (const std::int64_t size : {1, 2, 3, 17, 1000}) {
        Numbers array;
        array.SetSize(size);
        EXPECT_EQ(array.GetSize(), size);
        EXPECT_EQ(array.Capacity(), size);
    }
}

TEST(CArray, AllocatesAtLeastTheGrowStepFirst)
{
    Numbers array;
    array.SetSize(3, 10);
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array.Capacity(), 10);
    EXPECT_EQ(array.GrowStep(), 10);
    Numbers larger;
    larger.SetSize(12, 10);
    EXPECT_EQ(larger.Capacity(), 12);
}

TEST(CArray, GrowsByFourAtTheLeast)
{
    Numbers array;
    std::vector<std::int64_t> capacities;
    for (int i = 0; i < 10; ++i) {
        array.Add(i);
        capacities.push_back(array.Capacity());
    }
    EXPECT_EQ(capacities, (std::vector<std::int64_t>{1, 5, 5, 5, 5, 9, 9, 9, 9, 13}));
}

TEST(CArray, GrowsByAnEighthOfItsSizeWithinLimits)
{
    const struct {
        std::int64_t size;
        std::int64_t step;
    } table[] = {{1, 4},       {31, 4},      {32, 4},      {39, 4},       {40, 5},
                 {47, 5},      {48, 6},      {100, 12},    {800, 100},    {8191, 1023},
                 {8192, 1024}, {8200, 1024}, {8199, 1024}, {16384, 1024}, {100000, 1024}};
    for (const auto & row : table) {
        Numbers array;
        array.SetSize(row.size);
        array.Add(1);
        EXPECT_EQ(array.Capacity(), row.size + row.step);
        EXPECT_EQ(array.GetSize(), row.size + 1);
    }
}

TEST(CArray, TakesItsStepFromTheSizeAndAddsItToTheCapacity)
{
    Numbers array;
    array.SetSize(100);
    array.SetSize(3);
    array.SetSize(101);
    EXPECT_EQ(array.Capacity(), 104);
    array.SetSize(80);
    array.SetSize(105);
    EXPECT_EQ(array.Capacity(), 114);
}

TEST(CArray, GrowsToASizeBeyondTheStepExactly)
{
    Numbers array;
    array.SetSize(10);
    array.SetSize(14);
    EXPECT_EQ(array.Capacity(), 14);
    array.SetSize(19);
    EXPECT_EQ(array.Capacity(), 19);
    array.SetSize(22);
    EXPECT_EQ(array.Capacity(), 23);
    array.SetSize(1000, 50);
    EXPECT_EQ(array.Capacity(), 1000);
}

TEST(CArray, GrowsByItsGrowStep)
{
    Numbers array;
    array.SetSize(10, 3);
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 13);
    array.SetSize(14, 1);
    EXPECT_EQ(array.Capacity(), 14);
    array.SetSize(15, 2000);
    EXPECT_EQ(array.Capacity(), 2014);
    EXPECT_EQ(array.GrowStep(), 2000);
}

TEST(CArray, KeepsItsGrowStepUnlessANewOneIsGiven)
{
    Numbers array;
    array.SetSize(1, 7);
    array.SetSize(2);
    EXPECT_EQ(array.GrowStep(), 7);
    array.SetSize(3, -1);
    EXPECT_EQ(array.GrowStep(), 7);
    array.SetSize(3, -2);
    EXPECT_EQ(array.GrowStep(), 7);
    array.RemoveAll();
    EXPECT_EQ(array.GrowStep(), 7);
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 7);
    array.SetSize(1, 0);
    EXPECT_EQ(array.GrowStep(), 0);
    array.SetSize(8);
    EXPECT_EQ(array.Capacity(), 11);
}

TEST(CArray, StoresTheGrowStepThatComesWithSizeZero)
{
    Numbers array;
    array.SetSize(0, 6);
    EXPECT_EQ(array.GrowStep(), 6);
    EXPECT_EQ(array.Capacity(), 0);
    EXPECT_FALSE(array.HasStorage());
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 6);
}

TEST(CArray, GrowsByTheSameRuleHoweverElementsCome)
{
    Numbers ten;
    ten.SetSize(10);
    Numbers array;
    array.SetSize(10);
    array.InsertAt(5, 1);
    EXPECT_EQ(array.Capacity(), 14);
    array.InsertAt(0, 1, 4);
    EXPECT_EQ(array.Capacity(), 18);
    array.InsertAt(30, 1, 2);
    EXPECT_EQ(array.Capacity(), 32);
    array.InsertAt(0, &ten);
    EXPECT_EQ(array.Capacity(), 42);
    array.SetAtGrow(42, 1);
    EXPECT_EQ(array.Capacity(), 47);
    array.Append(ten);
    EXPECT_EQ(array.Capacity(), 53);
    Numbers copy;
    copy.SetSize(9, 3);
    copy.Copy(ten);
    EXPECT_EQ(copy.Capacity(), 12);
    EXPECT_EQ(copy.GrowStep(), 3);
    copy.Append(ten);
    EXPECT_EQ(copy.Capacity(), 20);
}

TEST(CArray, RaisesForASizeThatNoStorageHolds)
{
    Open<CArray<std::int64_t, std::int64_t>> array;
    array.Add(1);
    EXPECT_THROW(array.SetSize(Huge), std::exception);
    EXPECT_THROW(array.SetSize(Huge / 8 + 1), std::exception);
    EXPECT_THROW(array.SetAtGrow(Huge, 2), std::exception);
    EXPECT_THROW(array.InsertAt(Huge, 2), std::exception);
    EXPECT_THROW(array.InsertAt(0, 2, Huge), std::exception);
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array[0], 1);
}

TEST(CArray, ConstructsElementsUpToItsSizeOnly)
{
    const int before = Counted::alive;
    {
        CountedArray array;
        array.SetSize(3, 10);
        EXPECT_EQ(Counted::alive, before + 3);
        array.SetSize(8);
        EXPECT_EQ(Counted::alive, before + 8);
        array.SetSize(30);
        EXPECT_EQ(Counted::alive, before + 30);
        array.FreeExtra();
        EXPECT_EQ(Counted::alive, before + 30);
    }
    EXPECT_EQ(Counted::alive, before);
}

TEST(CArray, DestroysElementsAsTheyGo)
{
    const int before = Counted::alive;
    CountedArray array;
    CountedArray other;
    array.SetSize(10);
    array.SetSize(7);
    EXPECT_EQ(Counted::alive, before + 7);
    array.RemoveAt(2, 3);
    EXPECT_EQ(Counted::alive, before + 4);
    array.RemoveAt(0);
    EXPECT_EQ(Counted::alive, before + 3);
    array.SetAtGrow(4, Counted(1));
    EXPECT_EQ(Counted::alive, before + 5);
    array.SetAt(0, Counted(1));
    EXPECT_EQ(Counted::alive, before + 5);
    array.InsertAt(1, Counted(2), 2);
    EXPECT_EQ(Counted::alive, before + 7);
    other.SetSize(2);
    array.Copy(other);
    EXPECT_EQ(Counted::alive, before + 4);
    array.Append(other);
    array.InsertAt(1, &other);
    EXPECT_EQ(Counted::alive, before + 8);
    array.RemoveAll();
    other.SetSize(0);
    EXPECT_EQ(Counted::alive, before);
}

TEST(CArray, ShiftsElementsAsRawMemory)
{
    CountedArray array;
    for (int i = 0; i < 5; ++i) {
        array.Add(Counted(i));
    }
    Counted::Forget();
    array.SetSize(2000);
    array.SetSize(5);
    EXPECT_EQ(Counted::copied, 0);
    EXPECT_EQ(Counted::destroyed, 1995);
    Counted::Forget();
    array.RemoveAt(1, 2);
    EXPECT_EQ(Counted::copied, 0);
    EXPECT_EQ(Counted::destroyed, 2);
    array.FreeExtra();
    Counted::Forget();
    array.FreeExtra();
    array.SetSize(4);
    EXPECT_EQ(Counted::copied, 0);
    EXPECT_EQ(Counted::destroyed, 0);
    EXPECT_EQ(array[0].Number(), 0);
    EXPECT_EQ(array[1].Number(), 3);
    EXPECT_EQ(array[2].Number(), 4);
}

TEST(CArray, CopiesNothingButTheNewElementOnInsertion)
{
    CountedArray array;
    array.SetSize(1000);
    const Counted element(7);
    Counted::Forget();
    array.InsertAt(0, element);
    EXPECT_LT(Counted::copied, 5);
    EXPECT_EQ(array[0].Number(), 7);
    EXPECT_EQ(array.GetSize(), 1001);
}

TEST(CArray, NeverDeletesWhatItsPointersPointTo)
{
    const int before = Counted::alive;
    Counted objects[4];
    {
        CArray<Counted *, Counted *> array;
        for (Counted & object : objects) {
            array.Add(&object);
        }
        array.RemoveAt(0);
        array.SetSize(2);
        array.RemoveAll();
        array.Add(objects);
    }
    EXPECT_EQ(Counted::alive, before + 4);
}

TEST(CArray, CountsWith64Bits)
{
    using Texts = CArray<CString, CString>;
    static_assert(std::is_same_v<decltype(std::declval<Texts>().GetSize()), std::int64_t>);
    static_assert(std::is_same_v<decltype(std::declval<Texts>().GetCount()), std::int64_t>);
    static_assert(std::is_same_v<decltype(std::declval<Texts>().GetUpperBound()), std::int64_t>);
    static_assert(std::is_same_v<decltype(std::declval<Texts &>().Add(CString())), std::int64_t>);
    static_assert(std::is_same_v<decltype(std::declval<Texts &>().Append(std::declval<Texts>())), std::int64_t>);
    Texts array;
    EXPECT_THROW(static_cast<void>(array.GetAt(std::int64_t(1) << 32)), CInvalidArgException);
}

TEST(CArray, IsAnObjectThatSerialises)
{
    static_assert(std::is_base_of_v<CObject, CArray<CString, CString>>);
    static_assert(std::is_base_of_v<CObject, CArray<CPointD, CPointD &>>);
    static_assert(std::has_virtual_destructor_v<CArray<int, int>>);
    EXPECT_EQ(Slot(&CObject::GetRuntimeClass), 0U);
    EXPECT_EQ(Slot(&CArray<int, int>::Serialize), 3U);
    EXPECT_EQ(Slot(&CObject::AssertValid), 4U);
    EXPECT_EQ(Slot(&CObject::Dump), 5U);
}

namespace {

// Counts the living, and cannot be made any more once there are as many as are allowed.
class Scarce {
public:
    Scarce()
    {
        if (alive == allowed) {
            throw std::runtime_error("no more");
        }
        ++alive;
    }
    Scarce(const Scarce & other) : number(other.number) { ++alive; }
    Scarce & operator=(const Scarce &) = default;
    ~Scarce() { --alive; }

    int number = 0;
    static inline int alive = 0;
    static inline int allowed = 0;
};

struct alignas(64) Aligned {
    int number = 0;
};

}  // namespace

TEST(CArray, IsWholeWhereAnElementCannotBeMade)
{
    Scarce::alive = 0;
    Scarce::allowed = 100;
    {
        CArray<Scarce> array;
        array.SetSize(6);
        for (int i = 0; i < 6; ++i) {
            array[i].number = i + 1;
        }
        Scarce seven;
        seven.number = 7;
        for (const int left : {2, 3, 4}) {
            Scarce::allowed = Scarce::alive + left;
            EXPECT_THROW(array.InsertAt(2, seven, 5), std::runtime_error);
            EXPECT_THROW(array.SetSize(30), std::runtime_error);
            for (int i = 0; i < 6; ++i) {
                EXPECT_EQ(array[i].number, i + 1);
            }
            array.SetSize(6);
        }
        Scarce::allowed = 100;
        array.InsertAt(2, seven, 2);
        std::vector<int> numbers;
        for (std::int64_t i = 0; i < array.GetSize(); ++i) {
            numbers.push_back(array[i].number);
        }
        EXPECT_EQ(numbers, (std::vector<int>{1, 2, 7, 7, 3, 4, 5, 6}));
    }
    EXPECT_EQ(Scarce::alive, 0);
}

TEST(CArray, PlacesElementsAtAnAlignmentOfTheirOwn)
{
    CArray<Aligned> array;
    for (int i = 0; i < 300; ++i) {
        Aligned element;
        element.number = i;
        array.Add(element);
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(&array[i]) % 64, 0U);
    }
    array.RemoveAt(10, 200);
    array.FreeExtra();
    EXPECT_EQ(array[10].number, 210);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array.GetData()) % 64, 0U);
    array.RemoveAll();
}

}  // namespace ipc2581::tests
