#include "ipc2581/content/DicDraw_RectCham.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "tests/content/DicDraws.h"

namespace {

using namespace ipc2581::tests;

using RectCham = CIPC2581_DicDraw_RectCham;

TEST(DicDraw_RectCham, HasAccessors)
{
    ExpectAccessors<RectCham>(&RectCham::Width, &RectCham::GetWidth, &RectCham::SetWidth);
    ExpectAccessors<RectCham>(&RectCham::Height, &RectCham::GetHeight, &RectCham::SetHeight);
    ExpectAccessors<RectCham>(&RectCham::Chamfer, &RectCham::GetChamfer, &RectCham::SetChamfer);
    ExpectAccessors<RectCham>(&RectCham::UpperRight, &RectCham::GetUpperRight, &RectCham::SetUpperRight);
    ExpectAccessors<RectCham>(&RectCham::UpperLeft, &RectCham::GetUpperLeft, &RectCham::SetUpperLeft);
    ExpectAccessors<RectCham>(&RectCham::LowerLeft, &RectCham::GetLowerLeft, &RectCham::SetLowerLeft);
    ExpectAccessors<RectCham>(&RectCham::LowerRight, &RectCham::GetLowerRight, &RectCham::SetLowerRight);
}

TEST(DicDraw_RectCham, WritesThePiecesOfItsCornersWithoutABlankBetweenThem)
{
    ExpectCorners<RectCham>(R"(<RectCham width="0.000000" height="0.000000" chamfer="0.000000" )");
}

TEST(DicDraw_RectCham, DoesNotReadBackTheCornersThatItWrote)
{
    ExpectCornersAreNotReadBack<RectCham>("RectCham");
}

}  // namespace
