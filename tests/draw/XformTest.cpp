#include "ipc2581/draw/Xform.h"

#include <algorithm>
#include <functional>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

CIPC2581_Xform Sample()
{
    CIPC2581_Xform xform;
    xform.SetXOffset(1);
    xform.SetYOffset(2);
    xform.SetRotation(-90.5);
    xform.SetMirror(4);
    xform.SetScale(5);
    return xform;
}

void ExpectFields(const CIPC2581_Xform & xform, double x, double y, double rotation, int mirror, double scale)
{
    EXPECT_EQ(xform.XOffset, x);
    EXPECT_EQ(xform.YOffset, y);
    EXPECT_EQ(xform.Rotation, rotation);
    EXPECT_EQ(xform.Mirror, mirror);
    EXPECT_EQ(xform.Scale, scale);
}

TEST(Xform, StartsAtZeroWithItsScale)
{
    ExpectFields(CIPC2581_Xform(), 0, 0, 0, 0, 0);
}

TEST(Xform, FieldsStandInTheirOrder)
{
    const CIPC2581_Xform xform;
    const std::vector<const void *> fields{&xform.XOffset, &xform.YOffset, &xform.Rotation, &xform.Mirror,
                                           &xform.Scale};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST(Xform, AccessorsGiveTheFields)
{
    const CIPC2581_Xform xform = Sample();
    ExpectFields(xform, 1, 2, -90.5, 4, 5);
    EXPECT_EQ(xform.GetXOffset(), 1.0);
    EXPECT_EQ(xform.GetYOffset(), 2.0);
    EXPECT_EQ(xform.GetRotation(), -90.5);
    EXPECT_EQ(xform.GetMirror(), 4);
    EXPECT_EQ(xform.GetScale(), 5.0);
}

TEST(Xform, InitZeroesAll)
{
    CIPC2581_Xform xform = Sample();
    xform.Init();
    ExpectFields(xform, 0, 0, 0, 0, 0);
}

TEST(Xform, CopiesAllFields)
{
    const CIPC2581_Xform source = Sample();
    ExpectFields(CIPC2581_Xform(source), 1, 2, -90.5, 4, 5);
    CIPC2581_Xform target;
    EXPECT_EQ(&(target = source), &target);
    ExpectFields(target, 1, 2, -90.5, 4, 5);
    const CIPC2581_Xform & same = target;
    target = same;
    ExpectFields(target, 1, 2, -90.5, 4, 5);
}

TEST(Xform, WritesItsRotationAlone)
{
    CIPC2581_Xform xform = Sample();
    EXPECT_EQ(Exported(xform).result, 1);
    EXPECT_EQ(Written(xform, 0), Joined({R"(   <Xform rotation="-90.500000"/>)"}));
    EXPECT_EQ(Written(xform, 2), Joined({R"(         <Xform rotation="-90.500000"/>)"}));
}

TEST(Xform, WritesARotationOfZero)
{
    CIPC2581_Xform xform;
    EXPECT_EQ(Written(xform, -1), Joined({R"(<Xform rotation="0.000000"/>)"}));
}

TEST(Xform, OrderOfVirtualOperations)
{
    static_assert(std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Xform>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Xform>);
    EXPECT_EQ(Slot(&CIPC2581_Xform::Export), 2U);
}

}  // namespace
