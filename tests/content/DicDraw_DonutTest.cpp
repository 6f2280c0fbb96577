#include "ipc2581/content/DicDraw_Donut.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/content/DicDraws.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Diamond = CIPC2581_DicDraw_Diamond;
using Donut = CIPC2581_DicDraw_Donut;
using Shape = CIPC2581_DrawObj;

TEST(DicDraw_Donut, HasAccessors)
{
    ExpectAccessors<Donut>(&Donut::Shape, &Donut::GetShape, &Donut::SetShape);
    ExpectAccessors<Donut>(&Donut::OuterDiameter, &Donut::GetOuterDiameter, &Donut::SetOuterDiameter);
    ExpectAccessors<Donut>(&Donut::InnerDiameter, &Donut::GetInnerDiameter, &Donut::SetInnerDiameter);
}

TEST(DicDraw_Donut, WritesTheWordOfItsShapeUnderTheTagDiamond)
{
    Donut shape;
    const std::vector<std::pair<int, std::string>> words = {{0, "ROUND"},   {1, "SQUARE"}, {2, "HEXAGON"},
                                                            {3, "OCTAGON"}, {-1, "ROUND"}, {4, "ROUND"}};
    for (const auto & [code, word] : words) {
        shape.Shape = code;
        EXPECT_EQ(Written(shape), R"(   <Diamond Shape=")" + word +
                                      Joined({R"(" outerDiameter="0.000000" innerDiameter="0.000000" />)"}));
    }
}

TEST(DicDraw_Donut, ReadsBackAsADiamondWithoutSize)
{
    Donut shape;
    shape.Import(Tokens(R"(<Donut shape="ROUND" outerDiameter="3" innerDiameter="2"/>)"));
    Diamond back;
    back.Import(Tokens(Written(shape)));
    EXPECT_EQ(back.Width, 0);
    EXPECT_EQ(back.Height, 0);
    EXPECT_EQ(Written(back), Joined({R"(   <Diamond width="0.000000" height="0.000000" />)"}));
}

}  // namespace
