#include "ipc2581/content/DicDraw_RectCenter.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "tests/content/DicDraws.h"

namespace {

using ipc2581::tests::ExpectAccessors;

using RectCenter = CIPC2581_DicDraw_RectCenter;

TEST(DicDraw_RectCenter, HasAccessors)
{
    ExpectAccessors<RectCenter>(&RectCenter::Width, &RectCenter::GetWidth, &RectCenter::SetWidth);
    ExpectAccessors<RectCenter>(&RectCenter::Height, &RectCenter::GetHeight, &RectCenter::SetHeight);
}

}  // namespace
