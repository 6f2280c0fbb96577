#include "ipc2581/draw/Point.h"

#include <memory>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// At 1.5, -2.
CIPC2581_Point Sample()
{
    CIPC2581_Point point;
    point.SetPoint_X(1.5);
    point.SetPoint_Y(-2);
    return point;
}

void ExpectSample(const CIPC2581_Point & point)
{
    EXPECT_EQ(point.GetPoint_X(), 1.5);
    EXPECT_EQ(point.GetPoint_Y(), -2.0);
}

// The class has virtual operations and, being a value, no virtual destructor; the object is of no derived class.
void Delete(CPointD * point)
{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"
    delete point;
#pragma GCC diagnostic pop
}

TEST(Point, StartsAtZero)
{
    const CIPC2581_Point point;
    ASSERT_NE(point.Point, nullptr);
    EXPECT_EQ(point.GetPoint(), point.Point);
    EXPECT_EQ(point.GetPoint_X(), 0.0);
    EXPECT_EQ(point.GetPoint_Y(), 0.0);
}

TEST(Point, CoordinatesAreThoseOfItsOwnedPoint)
{
    CIPC2581_Point point = Sample();
    EXPECT_EQ(point.Point->X, 1.5);
    EXPECT_EQ(point.Point->Y, -2.0);
    point.GetPoint()->SetData(3, 4);
    EXPECT_EQ(point.GetPoint_X(), 3.0);
    EXPECT_EQ(point.GetPoint_Y(), 4.0);
}

TEST(Point, SetPointCopiesTheValue)
{
    CIPC2581_Point point;
    const CPointD * owned = point.GetPoint();
    {
        CPointD value(1.5, -2);
        point.SetPoint(&value);
    }
    EXPECT_EQ(point.GetPoint(), owned);
    ExpectSample(point);
    point.SetPoint(point.GetPoint());
    ExpectSample(point);
}

TEST(Point, InitResetsInPlace)
{
    CIPC2581_Point point = Sample();
    const CPointD * owned = point.GetPoint();
    point.Init();
    EXPECT_EQ(point.GetPoint(), owned);
    EXPECT_EQ(point.GetPoint_X(), 0.0);
    EXPECT_EQ(point.GetPoint_Y(), 0.0);
}

TEST(Point, InitMakesAMissingPoint)
{
    CIPC2581_Point point;
    Delete(std::exchange(point.Point, nullptr));
    point.Init();
    ASSERT_NE(point.Point, nullptr);
    EXPECT_EQ(point.GetPoint_X(), 0.0);
    EXPECT_EQ(point.GetPoint_Y(), 0.0);
}

TEST(Point, CopiesAreDeep)
{
    CIPC2581_Point source = Sample();
    const CIPC2581_Point copy(source);
    const std::unique_ptr<CIPC2581_Point> clone(source.clone());
    CIPC2581_Point target;
    const CPointD * owned = target.GetPoint();
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.GetPoint(), owned);
    source.SetPoint_X(9);
    source.SetPoint_Y(9);
    ExpectSample(copy);
    ExpectSample(*clone);
    ExpectSample(target);
}

TEST(Point, AssignmentToItselfDoesNothing)
{
    CIPC2581_Point point = Sample();
    const CIPC2581_Point & same = point;
    point = same;
    ExpectSample(point);
}

TEST(Point, ReadsNothing)
{
    CIPC2581_Point point = Sample();
    Lines file{R"(<PolyBegin x="3" y="4" />)"};
    EXPECT_EQ(point.Import(file), 1);
    EXPECT_EQ(file.Rest().size(), 1U);
    ExpectSample(point);
}

TEST(Point, WritesItselfAsABeginPoint)
{
    CIPC2581_Point point = Sample();
    EXPECT_EQ(Exported(point).result, 1);
    EXPECT_EQ(Written(point, 0), Joined({R"(   <PolyBegin x="1.500000" y="-2.000000" />)"}));
    EXPECT_EQ(Written(point, 2), Joined({R"(         <PolyBegin x="1.500000" y="-2.000000" />)"}));
}

TEST(Point, NegativeLevelHasNoIndent)
{
    CIPC2581_Point point;
    for (const int level : {-1, -7}) {
        EXPECT_EQ(Written(point, level), Joined({R"(<PolyBegin x="0.000000" y="0.000000" />)"}));
    }
}

TEST(Point, WritesSixDecimals)
{
    CIPC2581_Point point;
    point.SetPoint_X(0.0000006);
    point.SetPoint_Y(12345678.9876543);
    EXPECT_EQ(Written(point), Joined({R"(   <PolyBegin x="0.000001" y="12345678.987654" />)"}));
}

TEST(Point, OrderOfVirtualOperations)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Point>);
    EXPECT_EQ(Slot(&CIPC2581_Point::clone), 2U);
    EXPECT_EQ(Slot(&CIPC2581_Point::operator=), 3U);
    EXPECT_EQ(Slot(&CIPC2581_Point::Import), 4U);
    EXPECT_EQ(Slot(&CIPC2581_Point::Export), 5U);
}

}  // namespace
