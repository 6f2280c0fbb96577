#include "hosts/ipc2581/geometry/Extents.h"

#include <gtest/gtest.h>

#include "tests/support/Files.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

struct Box {
    double minX;
    double minY;
    double maxX;
    double maxY;
};

void ExpectBox(const Extents & extents, const Box & box)
{
    EXPECT_NEAR(extents.MinX(), box.minX, 1e-9);
    EXPECT_NEAR(extents.MinY(), box.minY, 1e-9);
    EXPECT_NEAR(extents.MaxX(), box.maxX, 1e-9);
    EXPECT_NEAR(extents.MaxY(), box.maxY, 1e-9);
}

Extents Arc(const CPointD & start, const CPointD & end, bool isClockwise)
{
    Extents extents;
    extents.AddArc(start, end, CPointD(1, 1), isClockwise);
    return extents;
}

TEST(Extents, AreEmptyAtFirst)
{
    Extents extents;
    EXPECT_TRUE(extents.IsEmpty());
    extents.Add(CPointD(2, -3));
    EXPECT_FALSE(extents.IsEmpty());
    ExpectBox(extents, {2, -3, 2, -3});
}

TEST(Extents, GoRoundTheSideThatAnArcPasses)
{
    ExpectBox(Arc({2, 1}, {1, 2}, false), {1, 1, 2, 2});
    ExpectBox(Arc({2, 1}, {1, 2}, true), {0, 0, 2, 2});
    ExpectBox(Arc({2, 1}, {0, 1}, false), {0, 1, 2, 2});
    ExpectBox(Arc({2, 1}, {0, 1}, true), {0, 0, 2, 1});
    ExpectBox(Arc({1, 0}, {1, 2}, false), {1, 0, 2, 2});
}

TEST(Extents, OfAnArcToItsStartAreAWholeCircle)
{
    ExpectBox(Arc({2, 1}, {2, 1}, false), {0, 0, 2, 2});
    ExpectBox(Arc({2, 1}, {2, 1}, true), {0, 0, 2, 2});
}

TEST(Extents, FollowTheSenseOfTheFile)
{
    Extents extents;
    CIPC2581_Polygon polygon;
    Lines lines = {"<PolyBegin x=\"1\" y=\"0\"/>",
                   "<PolyStepCurve x=\"-1\" y=\"0\" centerX=\"0\" centerY=\"0\" clockwise=\"TRUE\"/>", "</Polygon>"};
    polygon.Import(lines.File());
    extents.AddContour(*polygon.PolyBegin, *polygon.PolyStepArray);
    ExpectBox(extents, {-1, -1, 1, 0});
}

TEST(Extents, OfAContourWithoutStepsAreEmpty)
{
    Extents extents;
    const CIPC2581_Polygon polygon;
    extents.AddContour(*polygon.PolyBegin, *polygon.PolyStepArray);
    EXPECT_TRUE(extents.IsEmpty());
}

}  // namespace
}  // namespace ipc2581::tests
