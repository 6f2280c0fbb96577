#include "ipc2581/content/DicDraw_Thermal.h"

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

using Thermal = CIPC2581_DicDraw_Thermal;
using Shape = CIPC2581_DrawObj;

TEST(DicDraw_Thermal, HasAccessors)
{
    ExpectAccessors<Thermal>(&Thermal::Shape, &Thermal::GetShape, &Thermal::SetShape);
    ExpectAccessors<Thermal>(&Thermal::OuterDiameter, &Thermal::GetOuterDiameter, &Thermal::SetOuterDiameter);
    ExpectAccessors<Thermal>(&Thermal::InnerDiameter, &Thermal::GetInnerDiameter, &Thermal::SetInnerDiameter);
    ExpectAccessors<Thermal>(&Thermal::SpokeCount, &Thermal::GetSpokeCount, &Thermal::SetSpokeCount);
    ExpectAccessors<Thermal>(&Thermal::Gap, &Thermal::GetGap, &Thermal::SetGap);
    ExpectAccessors<Thermal>(&Thermal::SpokeStartAngle, &Thermal::GetSpokeStartAngle, &Thermal::SetSpokeStartAngle);
}

TEST(DicDraw_Thermal, WritesFourSpokesWhateverItHolds)
{
    Thermal shape;
    shape.Import(Tokens(R"(<Thermal spokeCount="6"/>)"));
    EXPECT_EQ(shape.SpokeCount, 6);
    EXPECT_EQ(Thermal(shape).SpokeCount, 6);
    EXPECT_EQ(Written(shape), Below(R"(
   <Thermal shape="ROUND" outerDiameter="0.000000" innerDiameter="0.000000" spokeCount="4" gap="0.000000" spokeStartAngle="0.000000" />
)"));
}

TEST(DicDraw_Thermal, WritesTheWordThatItsReaderFinds)
{
    const std::vector<std::pair<int, std::string>> words = {
        {0, "ROUND"}, {1, "SQUARE"}, {2, "HEXAGON"}, {3, "OCTAGON"}};
    for (const auto & [code, word] : words) {
        Thermal shape;
        shape.Shape = code;
        EXPECT_EQ(Written(shape).find(R"(   <Thermal shape=")" + word + R"(" )"), 0U);
        Thermal back;
        back.Import(Tokens(Written(shape)));
        EXPECT_EQ(back.Shape, code);
    }
}

}  // namespace
