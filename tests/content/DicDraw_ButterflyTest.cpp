#include "ipc2581/content/DicDraw_Butterfly.h"

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/content/DicDraws.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Butterfly = CIPC2581_DicDraw_Butterfly;
using Shape = CIPC2581_DrawObj;

TEST(DicDraw_Butterfly, WritesByItsShape)
{
    Butterfly shape;
    shape.Size = 2.25;
    shape.Shape = 0;
    EXPECT_EQ(Exported(shape), (Export{1, Joined({R"(   <Butterfly Shape="ROUND" diameter="2.250000" />)"})}));
    EXPECT_EQ(Exported(shape, 2), (Export{1, Joined({R"(         <Butterfly Shape="ROUND" diameter="2.250000" />)"})}));
    shape.Shape = 1;
    EXPECT_EQ(Exported(shape), (Export{1, Joined({R"(   <Butterfly Shape="SQUARE" side="2.250000" />)"})}));
}

TEST(DicDraw_Butterfly, IsNotWrittenWithAnotherShape)
{
    Butterfly shape;
    for (const int code : {-1, 2, 3, 4}) {
        shape.Shape = code;
        EXPECT_EQ(Exported(shape), (Export{1, ""})) << code;
    }
}

TEST(DicDraw_Butterfly, KeepsItsSizeAndLosesItsShapeWhenItIsReadBack)
{
    Butterfly shape;
    shape.Shape = 0;
    shape.Size = 2.25;
    Butterfly back;
    back.Import(Tokens(Written(shape)));
    EXPECT_EQ(back.Shape, -1);
    EXPECT_EQ(back.Size, 2.25);
    EXPECT_EQ(Exported(back), (Export{1, ""}));
}

}  // namespace
