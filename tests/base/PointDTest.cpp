#include "ipc2581/base/PointD.h"

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CObject.h"
#include "tests/support/Slots.h"

namespace {

using ipc2581::tests::Slot;

// The virtual operations of CObject take the first six entries of a table.
constexpr std::size_t kFirstOwnSlot = 6;

void ExpectAt(const CPointD & point, double x, double y)
{
    EXPECT_EQ(point.X, x);
    EXPECT_EQ(point.Y, y);
}

void AddPoint(CArrayPointD & list, double x, double y)
{
    CPointD point(x, y);
    list.Add(point);
}

// A list that counts how many of its kind are alive, and clones to its own kind.
class CountedList : public CArrayPointD {
public:
    CountedList() { ++alive; }
    CountedList(const CountedList & other) : CArrayPointD(other) { ++alive; }
    CountedList & operator=(const CountedList &) = delete;
    ~CountedList() override { --alive; }
    CountedList * clone() const override { return new CountedList(*this); }

    static int alive;
};

int CountedList::alive = 0;

TEST(PointD, NewPointIsAtTheOrigin)
{
    ExpectAt(CPointD(), 0.0, 0.0);
}

TEST(PointD, TakesItsCoordinates)
{
    ExpectAt(CPointD(1.5, -2.5), 1.5, -2.5);
}

TEST(PointD, HoldsXBeforeY)
{
    const CPointD point;
    EXPECT_TRUE((std::is_same_v<decltype(point.X), double>));
    EXPECT_TRUE((std::is_same_v<decltype(point.Y), double>));
    EXPECT_LT(static_cast<const void *>(&point.X), static_cast<const void *>(&point.Y));
    EXPECT_EQ(sizeof(CPointD), sizeof(void *) + 2 * sizeof(double));
}

TEST(PointD, CopiesByValue)
{
    CPointD source(1.0, 2.0);
    const CPointD copy(source);
    CPointD assigned(9.0, 9.0);
    EXPECT_EQ(&(assigned = source), &assigned);
    source.SetData(3.0, 4.0);
    ExpectAt(copy, 1.0, 2.0);
    ExpectAt(assigned, 1.0, 2.0);
}

TEST(PointD, AssignedToItselfStaysTheSame)
{
    CPointD point(1.0, 2.0);
    const CPointD & same = point;
    point = same;
    ExpectAt(point, 1.0, 2.0);
}

TEST(PointD, InitGivesTheStateOfANewPoint)
{
    CPointD point(1.0, 2.0);
    point.Init();
    ExpectAt(point, 0.0, 0.0);
    EXPECT_TRUE(point == CPointD());
}

TEST(PointD, SetsBothCoordinatesOrOne)
{
    CPointD point;
    point.SetData(1.0, 2.0);
    ExpectAt(point, 1.0, 2.0);
    point.SetX(3.0);
    ExpectAt(point, 3.0, 2.0);
    point.SetY(4.0);
    ExpectAt(point, 3.0, 4.0);
}

TEST(PointD, GivesItsCoordinates)
{
    const CPointD point(1.0, 2.0);
    EXPECT_EQ(point.GetX(), 1.0);
    EXPECT_EQ(point.GetY(), 2.0);
    EXPECT_TRUE((std::is_same_v<decltype(point.GetX()), double>));
    EXPECT_TRUE((std::is_same_v<decltype(point.GetY()), double>));
}

TEST(PointD, IsWrittenThroughItsCoordinates)
{
    CPointD point;
    point.GetX() = 5.0;
    point.GetY() = 6.0;
    EXPECT_EQ(std::as_const(point).GetX(), 5.0);
    EXPECT_EQ(std::as_const(point).GetY(), 6.0);
    EXPECT_EQ(&point.GetX(), &point.X);
    EXPECT_EQ(&point.GetY(), &point.Y);
}

TEST(PointD, ComparesExactly)
{
    const CPointD point(1.0, 2.0);
    for (const auto & [x, y, equal] : {std::tuple{1.0, 2.0, true},
                                       {1.0 + 1e-15, 2.0, false},
                                       {1.0, 2.0 - 1e-15, false},
                                       {2.0, 1.0, false},
                                       {1.0, 3.0, false},
                                       {3.0, 2.0, false}}) {
        const CPointD other(x, y);
        EXPECT_EQ((point == other) != 0, equal) << x << ' ' << y;
        EXPECT_EQ((point != other) != 0, !equal) << x << ' ' << y;
    }
}

TEST(PointD, ComparisonsGiveAnInt)
{
    EXPECT_TRUE((std::is_same_v<decltype(std::declval<CPointD &>() == std::declval<CPointD &>()), int>));
    EXPECT_TRUE((std::is_same_v<decltype(std::declval<CPointD &>() != std::declval<CPointD &>()), int>));
    EXPECT_EQ(CPointD(1.0, 2.0) == CPointD(), 0);
    EXPECT_EQ(CPointD() != CPointD(), 0);
}

TEST(PointD, HasItsTwoComparisonsAloneInItsTable)
{
    EXPECT_EQ(Slot(&CPointD::operator==), 0U);
    EXPECT_EQ(Slot(&CPointD::operator!=), 1U);
    EXPECT_FALSE(std::has_virtual_destructor_v<CPointD>);
}

TEST(ArrayPointD, StandsInItsFamily)
{
    EXPECT_TRUE((std::is_base_of_v<CArray<CPointD, CPointD &>, CArrayPointD>));
    EXPECT_TRUE((std::is_base_of_v<CObject, CArrayPointD>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CArrayPointD>);
    EXPECT_EQ(Slot(&CArrayPointD::clone), kFirstOwnSlot);
}

TEST(ArrayPointD, NewElementsAreNewPoints)
{
    CArrayPointD list;
    list.SetSize(3);
    for (int i = 0; i < 3; ++i) {
        ExpectAt(list[i], 0.0, 0.0);
    }
}

TEST(ArrayPointD, HoldsCopiesOfThePointsAdded)
{
    CArrayPointD list;
    CPointD point(1.0, 2.0);
    EXPECT_EQ(list.Add(point), 0);
    point.SetX(9.0);
    EXPECT_EQ(list.Add(point), 1);
    ExpectAt(list[0], 1.0, 2.0);
    ExpectAt(list[1], 9.0, 2.0);
}

TEST(ArrayPointD, CopyIsElementWise)
{
    CArrayPointD source;
    AddPoint(source, 1.0, 2.0);
    AddPoint(source, 3.0, 4.0);
    CArrayPointD copy(source);
    source[0].SetX(9.0);
    copy[1].SetX(7.0);
    ASSERT_EQ(copy.GetSize(), 2);
    ExpectAt(copy[0], 1.0, 2.0);
    ExpectAt(source[1], 3.0, 4.0);
}

TEST(ArrayPointD, CloneOutlivesItsSource)
{
    auto source = std::make_unique<CArrayPointD>();
    AddPoint(*source, 1.0, 2.0);
    const std::unique_ptr<CArrayPointD> clone(std::as_const(*source).clone());
    EXPECT_NE(clone.get(), source.get());
    source.reset();
    ASSERT_EQ(clone->GetSize(), 1);
    ExpectAt((*clone)[0], 1.0, 2.0);
}

TEST(ArrayPointD, CloneOfAnEmptyListIsANewEmptyList)
{
    const CArrayPointD source;
    const std::unique_ptr<CArrayPointD> clone(source.clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone.get(), &source);
    EXPECT_TRUE(clone->IsEmpty());
}

TEST(ArrayArrayPointD, StandsInItsFamily)
{
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<CArrayPointD *, CArrayPointD *>, CArrayArrayPointD>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CArrayArrayPointD>);
    EXPECT_EQ(Slot(&CArrayArrayPointD::clone), kFirstOwnSlot + 2);
}

TEST(ArrayArrayPointD, DestructorDeletesTheLists)
{
    {
        CArrayArrayPointD lists;
        lists.Add(new CountedList);
        lists.Add(nullptr);
        lists.Add(new CountedList);
        EXPECT_EQ(CountedList::alive, 2);
    }
    EXPECT_EQ(CountedList::alive, 0);
}

TEST(ArrayArrayPointD, DeletesListsThroughTheirVirtualDestructor)
{
    CArrayArrayPointD lists;
    for (int i = 0; i < 4; ++i) {
        lists.Add(new CountedList);
    }
    EXPECT_TRUE(lists.Delete(lists.GetAt(1)));
    EXPECT_EQ(CountedList::alive, 3);
    lists.DeleteAt(0, 1);
    EXPECT_EQ(CountedList::alive, 2);
    EXPECT_TRUE(lists.DeleteLastElement());
    EXPECT_EQ(CountedList::alive, 1);
    lists.DeleteAll();
    EXPECT_EQ(CountedList::alive, 0);
}

TEST(ArrayArrayPointD, CopyIsDeep)
{
    CArrayArrayPointD source;
    source.Add(new CArrayPointD);
    AddPoint(*source.GetAt(0), 1.0, 2.0);
    const CArrayArrayPointD copy(source);
    ASSERT_EQ(copy.GetSize(), 1);
    EXPECT_NE(copy.GetAt(0), source.GetAt(0));
    (*source.GetAt(0))[0].SetX(9.0);
    ASSERT_EQ(copy.GetAt(0)->GetSize(), 1);
    ExpectAt((*copy.GetAt(0))[0], 1.0, 2.0);
}

TEST(ArrayArrayPointD, CopyClonesEachListInOrder)
{
    CArrayArrayPointD source;
    source.Add(new CArrayPointD);
    source.Add(new CountedList);
    const CArrayArrayPointD copy(source);
    ASSERT_EQ(copy.GetSize(), 2);
    EXPECT_EQ(dynamic_cast<CountedList *>(copy.GetAt(0)), nullptr);
    EXPECT_NE(dynamic_cast<CountedList *>(copy.GetAt(1)), nullptr);
    EXPECT_EQ(CountedList::alive, 2);
}

TEST(ArrayArrayPointD, CopyKeepsNullElements)
{
    CArrayArrayPointD source;
    source.Add(nullptr);
    source.Add(new CArrayPointD);
    const CArrayArrayPointD copy(source);
    ASSERT_EQ(copy.GetSize(), 2);
    EXPECT_EQ(copy.GetAt(0), nullptr);
    EXPECT_NE(copy.GetAt(1), nullptr);
}

TEST(ArrayArrayPointD, CloneOutlivesItsSource)
{
    auto source = std::make_unique<CArrayArrayPointD>();
    source->Add(new CArrayPointD);
    AddPoint(*source->GetAt(0), 1.0, 2.0);
    const std::unique_ptr<CArrayArrayPointD> clone(std::as_const(*source).clone());
    source.reset();
    ASSERT_EQ(clone->GetSize(), 1);
    ExpectAt((*clone->GetAt(0))[0], 1.0, 2.0);
}

TEST(ArrayArrayPointD, CloneOfAnEmptyListIsANewEmptyList)
{
    const CArrayArrayPointD source;
    const std::unique_ptr<CArrayArrayPointD> clone(source.clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone.get(), &source);
    EXPECT_TRUE(clone->IsEmpty());
}

TEST(PointD, TakesItsOwnCoordinatesTheOtherWayRound)
{
    CPointD point(1.0, 2.0);
    point.SetData(point.GetY(), point.GetX());
    EXPECT_EQ(point.X, 2.0);
    EXPECT_EQ(point.Y, 1.0);
}

}  // namespace
