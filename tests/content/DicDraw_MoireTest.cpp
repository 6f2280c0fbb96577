#include "ipc2581/content/DicDraw_Moire.h"

#include <memory>

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/content/DicDraws.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Moire = CIPC2581_DicDraw_Moire;
using Shape = CIPC2581_DrawObj;

TEST(DicDraw_Moire, WritesItsLineLengthAsTheDiameterAndNothingElse)
{
    Moire shape;
    shape.Import(Tokens(R"(<Moire diameter="1" ringWidth="2" ringGap="3" ringNumber="4" lineWidth="5" )"
                        R"(lineLength="6" lineAngle="7"/>)"));
    EXPECT_EQ(Written(shape, 1), Below(R"(
      <Moire diameter="6.000000" ringWidth="0.000000" ringGap="0.000000" ringNumber="0" lineWidth="0.000000" lineLength="0.000000" lineAngle="0.000000" />
)"));
    EXPECT_EQ(Written(shape), Written(*std::unique_ptr<Shape>(shape.clone())));
}

}  // namespace
