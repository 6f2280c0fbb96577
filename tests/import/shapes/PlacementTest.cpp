#include "import/shapes/Placement.h"

#include <gtest/gtest.h>

namespace ipc2581::tests {
namespace {

TEST(Placement, TurnsThenMirrorsThenMoves)
{
    const Vertex placed = Placement{{10, 20}, 90, false}.Of(Vertex(1, 2));
    EXPECT_NEAR(placed.X, 8, 1e-9);
    EXPECT_NEAR(placed.Y, 21, 1e-9);
    const Vertex mirrored = Placement{{10, 20}, 90, true}.Of(Vertex(1, 2));
    EXPECT_NEAR(mirrored.X, 12, 1e-9);
    EXPECT_NEAR(mirrored.Y, 21, 1e-9);
}

TEST(Placement, OfAPlacementIsOneBehindTheOther)
{
    const Vertex point(3, -1);
    for (const bool isInnerMirrored : {false, true}) {
        for (const bool isOuterMirrored : {false, true}) {
            const Placement inner{{1, 2}, 30, isInnerMirrored};
            const Placement outer{{-4, 7}, 75, isOuterMirrored};
            const Vertex expected = outer.Of(inner.Of(point));
            const Vertex placed = outer.Of(inner).Of(point);
            EXPECT_NEAR(placed.X, expected.X, 1e-9) << isInnerMirrored << isOuterMirrored;
            EXPECT_NEAR(placed.Y, expected.Y, 1e-9) << isInnerMirrored << isOuterMirrored;
        }
    }
}

}  // namespace
}  // namespace ipc2581::tests
