#include "ipc2581/content/DicDraw_RectCorner.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "tests/content/DicDraws.h"

namespace {

using ipc2581::tests::ExpectAccessors;

using RectCorner = CIPC2581_DicDraw_RectCorner;

TEST(DicDraw_RectCorner, HasAccessors)
{
    ExpectAccessors<RectCorner>(&RectCorner::Lower_LeftX, &RectCorner::GetLower_LeftX, &RectCorner::SetLower_LeftX);
    ExpectAccessors<RectCorner>(&RectCorner::Lower_LeftY, &RectCorner::GetLower_LeftY, &RectCorner::SetLower_LeftY);
    ExpectAccessors<RectCorner>(&RectCorner::Upper_RightX, &RectCorner::GetUpper_RightX, &RectCorner::SetUpper_RightX);
    ExpectAccessors<RectCorner>(&RectCorner::Upper_RightY, &RectCorner::GetUpper_RightY, &RectCorner::SetUpper_RightY);
}

}  // namespace
