#include "ipc2581/content/DicDraw_Oval.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "tests/content/DicDraws.h"

namespace {

using ipc2581::tests::ExpectAccessors;

using Oval = CIPC2581_DicDraw_Oval;

TEST(DicDraw_Oval, HasAccessors)
{
    ExpectAccessors<Oval>(&Oval::Width, &Oval::GetWidth, &Oval::SetWidth);
    ExpectAccessors<Oval>(&Oval::Height, &Oval::GetHeight, &Oval::SetHeight);
}

}  // namespace
