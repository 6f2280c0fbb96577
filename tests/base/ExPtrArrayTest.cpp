#include "ipc2581/base/ExPtrArray.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CObject.h"
#include "tests/support/Slots.h"

namespace {

using ipc2581::tests::Slot;

std::string g_deleted;

// An object that puts its name behind those of the objects that went before.
class Named {
public:
    explicit Named(char name) : m_name(name) {}
    Named(const Named &) = delete;
    Named & operator=(const Named &) = delete;
    virtual ~Named() { g_deleted += m_name; }

    [[nodiscard]] char Name() const { return m_name; }

private:
    char m_name;
};

class Derived : public Named {
public:
    using Named::Named;
    ~Derived() override { g_deleted += '+'; }
};

using Base = CArray<Named *, Named *>;

// An array that shows its storage.
class Array : public CExPtrArray<Named *, Named *> {
public:
    Array() = default;
    Array(std::initializer_list<Named *> elements)
    {
        for (Named * element : elements) {
            Add(element);
        }
    }

    [[nodiscard]] std::int64_t Capacity() const { return m_nMaxSize; }
    [[nodiscard]] std::int64_t GrowBy() const { return m_nGrowBy; }
};

class OwningArray : public Array {
public:
    using Array::Array;
    OwningArray(const OwningArray &) = delete;
    OwningArray & operator=(const OwningArray &) = delete;
    ~OwningArray() override { DeleteAll(); }
};

// The names of the elements, with a hyphen for a null pointer.
std::string Names(const Base & array)
{
    std::string names;
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        const Named * element = array[i];
        names += element == nullptr ? '-' : element->Name();
    }
    return names;
}

// New objects of these names, with a null pointer for a hyphen.
void Fill(Base & array, std::string_view names)
{
    for (const char name : names) {
        array.Add(name == '-' ? nullptr : new Named(name));
    }
}

class ExPtrArray : public testing::Test {
protected:
    ExPtrArray() { g_deleted.clear(); }

    Named p{'P'};
    Named q{'Q'};
    Named r{'R'};
    Named s{'S'};
};

TEST_F(ExPtrArray, AddsNoDataToItsBase)
{
    EXPECT_TRUE((std::is_base_of_v<Base, CExPtrArray<Named *, Named *>>));
    EXPECT_TRUE((std::is_base_of_v<CObject, CExPtrArray<Named *, Named *>>));
    EXPECT_EQ(sizeof(CExPtrArray<Named *, Named *>), sizeof(Base));
}

TEST_F(ExPtrArray, VirtualOperationsStandInTheirOrder)
{
    EXPECT_EQ(Slot(&Array::GetRuntimeClass), 0U);
    EXPECT_TRUE(std::has_virtual_destructor_v<Array>);
    EXPECT_EQ(Slot(&Array::Serialize), 3U);
    EXPECT_EQ(Slot(&Array::AssertValid), 4U);
    EXPECT_EQ(Slot(&Array::Dump), 5U);
    EXPECT_EQ(Slot(&Array::RemoveNullElement), 6U);
    EXPECT_EQ(Slot(&Array::RemoveDuplicatedElements), 7U);
}

TEST_F(ExPtrArray, OwnVirtualOperationsOfANamedArrayStandBehindTheTwo)
{
    class Own : public Array {
    public:
        virtual int Export() { return 1; }
    };
    EXPECT_EQ(Slot(&Own::Export), 8U);
}

TEST_F(ExPtrArray, ResultsHaveTheirTypes)
{
    const Array array;
    EXPECT_TRUE((std::is_same_v<decltype(array.GetAt(0)), Named *>));
    EXPECT_TRUE((std::is_same_v<decltype(array.GetLastElement()), Named *>));
    EXPECT_TRUE((std::is_same_v<decltype(array.GetLastIndex()), std::int64_t>));
    EXPECT_TRUE((std::is_same_v<decltype(std::declval<Array &>().Add_if_only_do_not_exists(nullptr)), std::int64_t>));
}

TEST_F(ExPtrArray, GetAtGivesTheElement)
{
    const Array array{&p, nullptr, &r};
    EXPECT_EQ(array.GetAt(0), &p);
    EXPECT_EQ(array.GetAt(1), nullptr);
    EXPECT_EQ(array.GetAt(2), &r);
}

TEST_F(ExPtrArray, GetAtOutOfRangeGivesNull)
{
    const Array empty;
    const Array array{&p, &q};
    for (const std::int64_t index : {INT64_MIN, std::int64_t{-1}, std::int64_t{2}, INT64_MAX}) {
        EXPECT_EQ(empty.GetAt(index), nullptr) << index;
        EXPECT_EQ(array.GetAt(index), nullptr) << index;
    }
    EXPECT_EQ(empty.GetAt(0), nullptr);
}

// An index that is cut to 32 bits would be in range.
TEST_F(ExPtrArray, LargeIndexIsOutOfRange)
{
    Array array{&p};
    EXPECT_EQ(array.GetAt(std::int64_t{1} << 32), nullptr);
    array.SetAt(std::int64_t{1} << 32, &q);
    EXPECT_EQ(Names(array), "P");
}

TEST_F(ExPtrArray, GetAtLooksBeyondTheSizeNotTheCapacity)
{
    Array array{&p, &q, &r};
    array.RemoveAt(1, 2);
    ASSERT_GT(array.Capacity(), 1);
    EXPECT_EQ(array.GetAt(1), nullptr);
}

TEST_F(ExPtrArray, PlainArrayAccessStillRaises)
{
    Array array{&p};
    EXPECT_THROW(array[1], CInvalidArgException);
    EXPECT_THROW(array[-1], CInvalidArgException);
    EXPECT_THROW(array.ElementAt(1), CInvalidArgException);
    EXPECT_THROW(std::as_const<Base>(array).GetAt(1), CInvalidArgException);
    EXPECT_THROW(static_cast<Base &>(array).SetAt(1, &q), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(1), CInvalidArgException);
}

TEST_F(ExPtrArray, GivesItsLastElementAndIndex)
{
    const Array array{&p, &q};
    EXPECT_EQ(array.GetLastElement(), &q);
    EXPECT_EQ(array.GetLastIndex(), 1);
    EXPECT_EQ(Array({&p, nullptr}).GetLastElement(), nullptr);
}

TEST_F(ExPtrArray, EmptyArrayHasNoLastElement)
{
    const Array empty;
    EXPECT_EQ(empty.GetLastElement(), nullptr);
    EXPECT_EQ(empty.GetLastIndex(), -1);
}

TEST_F(ExPtrArray, ExistsLooksForThePointer)
{
    const Named other('P');
    const Array array{&q, &p};
    EXPECT_TRUE(array.Exists(&p));
    EXPECT_TRUE(array.Exists(&q));
    EXPECT_FALSE(array.Exists(const_cast<Named *>(&other)));
    EXPECT_FALSE(array.Exists(nullptr));
    EXPECT_TRUE(Array({&p, nullptr}).Exists(nullptr));
    EXPECT_FALSE(Array().Exists(&p));
    EXPECT_FALSE(Array().Exists(nullptr));
}

TEST_F(ExPtrArray, FindIndexGivesTheFirstOrMinusOne)
{
    const Array array{&q, &p, nullptr, &p, nullptr};
    EXPECT_EQ(array.FindIndex(&q), 0);
    EXPECT_EQ(array.FindIndex(&p), 1);
    EXPECT_EQ(array.FindIndex(nullptr), 2);
    EXPECT_EQ(array.FindIndex(&r), -1);
    EXPECT_EQ(Array().FindIndex(&p), -1);
}

TEST_F(ExPtrArray, IsValidIndexKnowsTheRange)
{
    const Array array{&p, nullptr};
    for (const auto & [index, valid] : {std::pair{-1, false}, {0, true}, {1, true}, {2, false}, {INT32_MIN, false}}) {
        EXPECT_EQ(array.IsValidIndex(index), valid) << index;
        EXPECT_FALSE(Array().IsValidIndex(index)) << index;
    }
}

TEST_F(ExPtrArray, IsElementEqualComparesPointersIndexByIndex)
{
    const Array array{&p, nullptr, &q};
    Base other;
    other.Append(array);
    EXPECT_TRUE(array.IsElementEqual(other));
    EXPECT_TRUE(array.IsElementEqual(array));
    EXPECT_FALSE(array.IsElementEqual(Array{&p, &q, nullptr}));
    EXPECT_FALSE(array.IsElementEqual(Array{&p, nullptr, &r}));
    EXPECT_FALSE(array.IsElementEqual(Array{&q, nullptr, &q}));
}

TEST_F(ExPtrArray, IsElementEqualComparesSizes)
{
    const Array array{&p, &q};
    EXPECT_FALSE(array.IsElementEqual(Array{&p}));
    EXPECT_FALSE(array.IsElementEqual(Array{&p, &q, &r}));
    EXPECT_FALSE(array.IsElementEqual(Array()));
    EXPECT_FALSE(Array().IsElementEqual(array));
    EXPECT_TRUE(Array().IsElementEqual(Array()));
}

TEST_F(ExPtrArray, ArraysOfLikeObjectsAreNotEqual)
{
    Named like('P');
    EXPECT_FALSE(Array{&p}.IsElementEqual(Array{&like}));
}

TEST_F(ExPtrArray, SetAtOverwritesWithoutDeleting)
{
    Array array{&p, &q};
    array.SetAt(0, &r);
    array.SetAt(1, nullptr);
    EXPECT_EQ(Names(array), "R-");
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, SetAtOutOfRangeDoesNothing)
{
    Array array{&p, &q};
    for (const std::int64_t index : {INT64_MIN, std::int64_t{-1}, std::int64_t{2}, INT64_MAX}) {
        EXPECT_NO_THROW(array.SetAt(index, &r)) << index;
    }
    EXPECT_EQ(Names(array), "PQ");
    Array empty;
    EXPECT_NO_THROW(empty.SetAt(0, &r));
    EXPECT_EQ(empty.GetSize(), 0);
}

TEST_F(ExPtrArray, AddsOnlyWhatIsNotThere)
{
    Array array;
    EXPECT_EQ(array.Add_if_only_do_not_exists(&p), 0);
    EXPECT_EQ(array.Add_if_only_do_not_exists(&p), -1);
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.Add_if_only_do_not_exists(&q), 1);
    EXPECT_EQ(array.Add_if_only_do_not_exists(nullptr), 2);
    EXPECT_EQ(array.Add_if_only_do_not_exists(nullptr), -1);
    EXPECT_EQ(Names(array), "PQ-");
}

TEST_F(ExPtrArray, RemoveTakesOutTheFirst)
{
    Array array{&p, &q, nullptr, &p, &r};
    EXPECT_TRUE(array.Remove(&p));
    EXPECT_EQ(Names(array), "Q-PR");
    EXPECT_TRUE(array.Remove(nullptr));
    EXPECT_EQ(Names(array), "QPR");
    EXPECT_TRUE(array.Remove(&r));
    EXPECT_EQ(Names(array), "QP");
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, RemoveTellsAMiss)
{
    Array array{&p};
    EXPECT_FALSE(array.Remove(&q));
    EXPECT_FALSE(array.Remove(nullptr));
    EXPECT_EQ(Names(array), "P");
    EXPECT_FALSE(Array().Remove(&p));
}

TEST_F(ExPtrArray, RemoveLastElementGivesIt)
{
    Array array{&p, &q, nullptr};
    EXPECT_EQ(array.RemoveLastElement(), nullptr);
    EXPECT_EQ(array.RemoveLastElement(), &q);
    EXPECT_EQ(Names(array), "P");
    EXPECT_EQ(array.RemoveLastElement(), &p);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.RemoveLastElement(), nullptr);
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, MovedRunKeepsItsOrderAtTheEndOfTheTarget)
{
    Array array{&p, &q, nullptr, &s};
    Base target;
    target.Add(&r);
    target.Add(&s);
    EXPECT_TRUE(array.MoveElementTo(target, 0, 2));
    EXPECT_EQ(Names(array), "S");
    EXPECT_EQ(Names(target), "RSPQ-");
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, MovesOneElementOrAll)
{
    Array array{&p, &q, &r};
    Array target;
    EXPECT_TRUE(array.MoveElementTo(target, 1, 1));
    EXPECT_EQ(Names(array), "PR");
    EXPECT_EQ(Names(target), "Q");
    EXPECT_TRUE(array.MoveElementTo(target, 0, 1));
    EXPECT_EQ(Names(array), "");
    EXPECT_EQ(Names(target), "QPR");
}

TEST_F(ExPtrArray, MovesNothingIfLastIsBelowFirst)
{
    Array array{&p, &q, &r};
    Array target{&s};
    EXPECT_FALSE(array.MoveElementTo(target, 2, 1));
    EXPECT_FALSE(array.MoveElementTo(target, 9, -9));
    EXPECT_EQ(Names(array), "PQR");
    EXPECT_EQ(Names(target), "S");
}

TEST_F(ExPtrArray, MoveFromBehindTheEndRaisesWithANullInTheTarget)
{
    Array array{&p, &q};
    Array target{&s};
    EXPECT_THROW(array.MoveElementTo(target, 0, 2), CInvalidArgException);
    EXPECT_EQ(Names(array), "PQ");
    EXPECT_EQ(Names(target), "S-");
}

TEST_F(ExPtrArray, MoveFromBeforeTheStartRaisesAfterTheElementsInRange)
{
    Array array{&p, &q, &r};
    Array target{&s};
    EXPECT_THROW(array.MoveElementTo(target, -2, 1), CInvalidArgException);
    EXPECT_EQ(Names(array), "R");
    EXPECT_EQ(Names(target), "S-PQ");
}

TEST_F(ExPtrArray, MoveFromAnEmptyArrayRaises)
{
    Array array;
    Array target;
    EXPECT_THROW(array.MoveElementTo(target, 0, 0), CInvalidArgException);
    EXPECT_EQ(Names(target), "-");
}

TEST_F(ExPtrArray, SubtractTakesOneOccurrenceForEachElementOfTheOther)
{
    Array array{&p, &q, &p, nullptr, &p, &r};
    Base other;
    for (Named * element : {&p, &s, &p, static_cast<Named *>(nullptr)}) {
        other.Add(element);
    }
    array.Subtract(other);
    EXPECT_EQ(Names(array), "QPR");
    EXPECT_EQ(Names(other), "PSP-");
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, SubtractOfMoreThanIsThere)
{
    Array array{&p, &q};
    array.Subtract(Array{&p, &p});
    EXPECT_EQ(Names(array), "Q");
    array.Subtract(Array());
    EXPECT_EQ(Names(array), "Q");
    Array empty;
    empty.Subtract(array);
    EXPECT_EQ(empty.GetSize(), 0);
}

// The walk reads the size of the array that shrinks under it.
TEST_F(ExPtrArray, SubtractOfItselfLeavesEverySecondElement)
{
    Array even{&p, &q, &r, &s};
    even.Subtract(even);
    EXPECT_EQ(Names(even), "QS");
    Array odd{&p, &q, &r};
    odd.Subtract(odd);
    EXPECT_EQ(Names(odd), "Q");
}

TEST_F(ExPtrArray, RemoveNullElementKeepsTheOrderOfTheOthers)
{
    Array array{nullptr, &p, nullptr, nullptr, &q, &p, nullptr};
    array.RemoveNullElement();
    EXPECT_EQ(Names(array), "PQP");
    Array nulls{nullptr, nullptr};
    nulls.RemoveNullElement();
    EXPECT_EQ(nulls.GetSize(), 0);
    Array empty;
    empty.RemoveNullElement();
    EXPECT_EQ(empty.GetSize(), 0);
}

TEST_F(ExPtrArray, RemoveDuplicatedElementsKeepsTheFirst)
{
    Array array{&p, &q, &p, &p, &r};
    array.RemoveDuplicatedElements();
    EXPECT_EQ(Names(array), "PQR");
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, RemoveDuplicatedElementsTakesANullAsAnElement)
{
    Array array{nullptr, &p, nullptr, &q, &q, nullptr, &p};
    array.RemoveDuplicatedElements();
    EXPECT_EQ(Names(array), "-PQ");
}

TEST_F(ExPtrArray, RemoveDuplicatedElementsComparesPointers)
{
    Named like('P');
    Array array{&p, &like};
    array.RemoveDuplicatedElements();
    EXPECT_EQ(Names(array), "PP");
    Array empty;
    empty.RemoveDuplicatedElements();
    EXPECT_EQ(empty.GetSize(), 0);
}

TEST_F(ExPtrArray, ReverseTurnsTheOrder)
{
    Array even{&p, &q, &r, nullptr};
    even.Reverse();
    EXPECT_EQ(Names(even), "-RQP");
    Array odd{&p, &q, &r};
    odd.Reverse();
    EXPECT_EQ(Names(odd), "RQP");
    Array two{&p, &q};
    two.Reverse();
    EXPECT_EQ(Names(two), "QP");
}

TEST_F(ExPtrArray, ReverseOfNoneOrOneChangesNothing)
{
    Array empty;
    empty.Reverse();
    EXPECT_EQ(empty.GetSize(), 0);
    Array one{&p};
    one.Reverse();
    EXPECT_EQ(Names(one), "P");
}

TEST_F(ExPtrArray, TakingElementsOutKeepsTheCapacity)
{
    Array array{&p, nullptr, &q, &q, nullptr, &r, &s, &s};
    Array target;
    const std::int64_t capacity = array.Capacity();
    array.RemoveNullElement();
    array.RemoveDuplicatedElements();
    array.Remove(&p);
    array.RemoveLastElement();
    array.MoveElementTo(target, 0, 0);
    EXPECT_EQ(Names(array), "R");
    EXPECT_EQ(array.Capacity(), capacity);
    array.Subtract(Array{&r});
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.Capacity(), capacity);
}

TEST_F(ExPtrArray, DeletingElementsKeepsTheCapacity)
{
    OwningArray array;
    Fill(array, "1234567");
    const std::int64_t capacity = array.Capacity();
    array.Delete(array.GetAt(1));
    array.DeleteAt(0, 3);
    array.DeleteLastElement();
    EXPECT_EQ(Names(array), "56");
    EXPECT_EQ(array.Capacity(), capacity);
}

TEST_F(ExPtrArray, DeleteDeletesTheObjectAndClosesTheGap)
{
    OwningArray array;
    Fill(array, "123");
    EXPECT_TRUE(array.Delete(array.GetAt(1)));
    EXPECT_EQ(Names(array), "13");
    EXPECT_EQ(g_deleted, "2");
}

TEST_F(ExPtrArray, DeleteTellsAMissAndDeletesNothing)
{
    OwningArray array;
    Fill(array, "12");
    EXPECT_FALSE(array.Delete(&p));
    EXPECT_FALSE(array.Delete(nullptr));
    EXPECT_EQ(Names(array), "12");
    EXPECT_EQ(g_deleted, "");
    EXPECT_FALSE(Array().Delete(&p));
}

TEST_F(ExPtrArray, DeleteOfANullTakesOutTheFirstNull)
{
    OwningArray array;
    Fill(array, "1-2-");
    EXPECT_TRUE(array.Delete(nullptr));
    EXPECT_EQ(Names(array), "12-");
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, DeleteTakesOutOneOccurrence)
{
    OwningArray array;
    Named * twice = new Named('2');
    array.Add(twice);
    Fill(array, "1");
    array.Add(twice);
    EXPECT_TRUE(array.Delete(twice));
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array.FindIndex(twice), 1);
    EXPECT_EQ(g_deleted, "2");
    array.RemoveLastElement();
}

TEST_F(ExPtrArray, DeleteAtDeletesCountObjectsFromTheIndex)
{
    OwningArray array;
    Fill(array, "12-45");
    array.DeleteAt(1, 3);
    EXPECT_EQ(Names(array), "15");
    EXPECT_EQ(g_deleted, "24");
}

TEST_F(ExPtrArray, DeleteAtOfFewerThanOneDoesNothing)
{
    OwningArray array;
    Fill(array, "12");
    for (const int index : {-1, 0, 1, 2}) {
        EXPECT_NO_THROW(array.DeleteAt(index, 0)) << index;
        EXPECT_NO_THROW(array.DeleteAt(index, -1)) << index;
    }
    EXPECT_EQ(Names(array), "12");
}

TEST_F(ExPtrArray, DeleteAtOutOfRangeRaises)
{
    OwningArray array;
    Fill(array, "12");
    for (const int index : {INT32_MIN, -1, 2, INT32_MAX}) {
        EXPECT_THROW(array.DeleteAt(index, 1), CInvalidArgException) << index;
    }
    EXPECT_EQ(Names(array), "12");
    EXPECT_THROW(Array().DeleteAt(0, 1), CInvalidArgException);
}

TEST_F(ExPtrArray, DeleteAtThatRunsOffTheEndRaisesWithTheRestDeleted)
{
    OwningArray array;
    Fill(array, "123");
    EXPECT_THROW(array.DeleteAt(1, 5), CInvalidArgException);
    EXPECT_EQ(Names(array), "1");
    EXPECT_EQ(g_deleted, "23");
    EXPECT_THROW(array.DeleteAt(0, 2), CInvalidArgException);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(g_deleted, "231");
}

TEST_F(ExPtrArray, DeleteAllDeletesInOrderAndReleasesTheStorage)
{
    Array array;
    Fill(array, "1-23-");
    array.DeleteAll();
    EXPECT_EQ(g_deleted, "123");
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.Capacity(), 0);
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST_F(ExPtrArray, DeleteAllKeepsTheGrowStep)
{
    Array array;
    array.SetSize(0, 7);
    Fill(array, "1");
    array.DeleteAll();
    EXPECT_EQ(array.GrowBy(), 7);
    Fill(array, "2");
    EXPECT_EQ(array.Capacity(), 7);
    array.DeleteAll();
}

TEST_F(ExPtrArray, FillsAgainAfterDeleteAll)
{
    OwningArray array;
    Fill(array, "12");
    array.DeleteAll();
    array.DeleteAll();
    EXPECT_EQ(array.Add_if_only_do_not_exists(new Named('3')), 0);
    EXPECT_EQ(Names(array), "3");
    EXPECT_EQ(g_deleted, "12");
}

TEST_F(ExPtrArray, RemoveAllForgetsWithoutDeleting)
{
    Array array{&p, &q};
    array.RemoveAll();
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(g_deleted, "");
}

TEST_F(ExPtrArray, DeleteLastElementDeletesIt)
{
    OwningArray array;
    Fill(array, "12-");
    EXPECT_TRUE(array.DeleteLastElement());
    EXPECT_EQ(g_deleted, "");
    EXPECT_TRUE(array.DeleteLastElement());
    EXPECT_EQ(g_deleted, "2");
    EXPECT_EQ(Names(array), "1");
}

TEST_F(ExPtrArray, DeleteLastElementOfAnEmptyArrayIsFalse)
{
    EXPECT_FALSE(Array().DeleteLastElement());
}

TEST_F(ExPtrArray, DeletesDerivedObjectsWhole)
{
    Array array{new Derived('1'), new Derived('2'), new Derived('3'), new Derived('4')};
    array.Delete(array.GetAt(0));
    array.DeleteAt(0, 1);
    array.DeleteLastElement();
    array.DeleteAll();
    EXPECT_EQ(g_deleted, "+1+2+4+3");
}

TEST_F(ExPtrArray, BareArrayLeavesItsObjectsAlive)
{
    const std::unique_ptr<Named> object = std::make_unique<Named>('1');
    {
        CExPtrArray<Named *, Named *> array;
        array.Add(object.get());
    }
    EXPECT_EQ(g_deleted, "");
    EXPECT_EQ(object->Name(), '1');
}

TEST_F(ExPtrArray, NamedArrayDeletesItsObjectsInOrder)
{
    {
        OwningArray array;
        Fill(array, "1-23");
    }
    EXPECT_EQ(g_deleted, "123");
}

TEST_F(ExPtrArray, ObjectsKeepTheirAddressesAsTheArrayGrows)
{
    OwningArray array;
    Fill(array, "1");
    const Named * first = array.GetAt(0);
    Fill(array, std::string(1000, '2'));
    EXPECT_EQ(array.GetAt(0), first);
    EXPECT_EQ(first->Name(), '1');
}

}  // namespace
