#include "ipc2581/content/DicDraw_RectRound.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "tests/content/DicDraws.h"

namespace {

using namespace ipc2581::tests;

using RectRound = CIPC2581_DicDraw_RectRound;

TEST(DicDraw_RectRound, HasAccessors)
{
    ExpectAccessors<RectRound>(&RectRound::Width, &RectRound::GetWidth, &RectRound::SetWidth);
    ExpectAccessors<RectRound>(&RectRound::Height, &RectRound::GetHeight, &RectRound::SetHeight);
    ExpectAccessors<RectRound>(&RectRound::Radius, &RectRound::GetRadius, &RectRound::SetRadius);
    ExpectAccessors<RectRound>(&RectRound::UpperRight, &RectRound::GetUpperRight, &RectRound::SetUpperRight);
    ExpectAccessors<RectRound>(&RectRound::UpperLeft, &RectRound::GetUpperLeft, &RectRound::SetUpperLeft);
    ExpectAccessors<RectRound>(&RectRound::LowerLeft, &RectRound::GetLowerLeft, &RectRound::SetLowerLeft);
    ExpectAccessors<RectRound>(&RectRound::LowerRight, &RectRound::GetLowerRight, &RectRound::SetLowerRight);
}

TEST(DicDraw_RectRound, WritesThePiecesOfItsCornersWithoutABlankBetweenThem)
{
    ExpectCorners<RectRound>(R"(<RectRound width="0.000000" height="0.000000" radius="0.000000" )");
}

TEST(DicDraw_RectRound, DoesNotReadBackTheCornersThatItWrote)
{
    ExpectCornersAreNotReadBack<RectRound>("RectRound");
}

}  // namespace
