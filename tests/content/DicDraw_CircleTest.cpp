#include "ipc2581/content/DicDraw_Circle.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "tests/content/DicDraws.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Circle = CIPC2581_DicDraw_Circle;

TEST(DicDraw_Circle, HasAccessors)
{
    ExpectAccessors<Circle>(&Circle::Diameter, &Circle::GetDiameter, &Circle::SetDiameter);
    ExpectAccessors<Circle>(&Circle::OffsetX, &Circle::GetOffsetX, &Circle::SetOffsetX);
    ExpectAccessors<Circle>(&Circle::OffsetY, &Circle::GetOffsetY, &Circle::SetOffsetY);
}

TEST(DicDraw_Circle, KeepsItsOffsetsToItself)
{
    Circle shape;
    shape.SetDiameter(1);
    shape.SetOffsetX(2);
    shape.SetOffsetY(3);
    EXPECT_EQ(Written(shape), Joined({R"(   <Circle diameter="1.000000" />)"}));
    shape.Import(Tokens(R"(<Circle diameter="4" OffsetX="5" offsetX="6" offsetY="7"/>)"));
    EXPECT_EQ(shape.GetOffsetX(), 2);
    EXPECT_EQ(shape.GetOffsetY(), 3);
    const Circle copy(shape);
    EXPECT_EQ(copy.GetDiameter(), 4);
    EXPECT_EQ(copy.GetOffsetX(), 0);
    EXPECT_EQ(copy.GetOffsetY(), 0);
}

}  // namespace
