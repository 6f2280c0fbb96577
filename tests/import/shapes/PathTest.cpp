#include "import/shapes/Path.h"

#include <gtest/gtest.h>

#include "import/shapes/Placement.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

Path ContourOf(Lines lines)
{
    CIPC2581_Polygon polygon;
    polygon.Import(lines.File());
    Path path;
    path.AddContour(*polygon.PolyBegin, *polygon.PolyStepArray);
    return path;
}

TEST(Path, KeepsTheLinesAndArcsOfAContour)
{
    const Path path =
        ContourOf({"<PolyBegin x=\"1\" y=\"0\"/>", "<PolyStepSegment x=\"2\" y=\"0\"/>",
                   "<PolyStepCurve x=\"0\" y=\"2\" centerX=\"0\" centerY=\"0\" clockwise=\"FALSE\"/>",
                   "<PolyStepCurve x=\"2\" y=\"0\" centerX=\"0\" centerY=\"0\" clockwise=\"TRUE\"/>", "</Polygon>"});
    Path expected;
    expected.MoveTo({1, 0});
    expected.LineTo({2, 0});
    expected.ArcTo({0, 2}, {0, 0}, false);
    expected.ArcTo({2, 0}, {0, 0}, true);
    expected.Close();
    EXPECT_EQ(path, expected);
    EXPECT_EQ(path.steps[2].kind, StepKind::Arc);
    EXPECT_EQ(path.steps[3].kind, StepKind::ClockwiseArc);
}

TEST(Path, OfAContourWithoutStepsIsEmpty)
{
    EXPECT_TRUE(ContourOf({"<PolyBegin x=\"1\" y=\"0\"/>", "</Polygon>"}).IsEmpty());
}

TEST(Path, IsScaledAndThenMoved)
{
    Path path;
    path.MoveTo({1, 2});
    path.ArcTo({3, 4}, {5, 6}, false);
    path.AddEllipse({1, 1}, 2, 3);
    Path expected;
    expected.MoveTo({12, 24});
    expected.ArcTo({16, 28}, {20, 32}, false);
    expected.AddEllipse({12, 22}, 4, 6);
    EXPECT_EQ(Placed(path, {.location = {10, 20}, .scale = 2}), expected);
}

}  // namespace
}  // namespace ipc2581::tests
