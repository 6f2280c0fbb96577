#include "hosts/ipc2581/geometry/ArcLength.h"

#include <numbers>

#include <gtest/gtest.h>

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

constexpr double Pi = std::numbers::pi;

TEST(ArcLength, GoesTheWayOfTheArc)
{
    EXPECT_DOUBLE_EQ(ArcLength({2, 0}, {0, 2}, {0, 0}, false), Pi);
    EXPECT_DOUBLE_EQ(ArcLength({2, 0}, {0, 2}, {0, 0}, true), 3 * Pi);
    EXPECT_DOUBLE_EQ(ArcLength({0, 2}, {2, 0}, {0, 0}, true), Pi);
    EXPECT_DOUBLE_EQ(ArcLength({-1, 1}, {-1, -1}, {-1, 0}, false), Pi);
}

TEST(ArcLength, IsThatOfACircleWhereItEndsAtItsStart)
{
    EXPECT_DOUBLE_EQ(ArcLength({3, 1}, {3, 1}, {2, 1}, false), 2 * Pi);
    EXPECT_DOUBLE_EQ(ArcLength({3, 1}, {3, 1}, {2, 1}, true), 2 * Pi);
}

TEST(ArcLength, OfALineIsItsDistance)
{
    EXPECT_EQ(Distance({1, 1}, {4, 5}), 5);
}

}  // namespace
}  // namespace ipc2581::tests
