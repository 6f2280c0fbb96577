#include "hosts/ipc2581/svg/SvgPath.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/Files.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

TEST(SvgNumber, HasFewCharacters)
{
    EXPECT_EQ(SvgNumber(0.5, 3), ".5");
    EXPECT_EQ(SvgNumber(-0.25, 3), "-.25");
    EXPECT_EQ(SvgNumber(10, 3), "10");
    EXPECT_EQ(SvgNumber(100, 0), "100");
    EXPECT_EQ(SvgNumber(1.23456, 3), "1.235");
    EXPECT_EQ(SvgNumber(-0.0001, 3), "0");
    EXPECT_EQ(SvgNumber(1e300, 1), "1000000000");
    EXPECT_EQ(SvgNumber(std::numeric_limits<double>::quiet_NaN(), 1), "0");
    std::string text = "M1";
    AppendNumber(text, 2, 3);
    AppendNumber(text, -2, 3);
    EXPECT_EQ(text, "M1 2-2");
}

TEST(SvgPath, GoesStraightAlongTheAxes)
{
    Path path;
    path.MoveTo({10, 20});
    path.LineTo({12, 20});
    path.LineTo({12, 24});
    path.LineTo({14, 26});
    path.LineTo({14, 26});
    path.Close();
    EXPECT_EQ(SvgPath(path, 3).Data(), "M10 20H12V24L14 26L14 26Z");
    EXPECT_EQ(SvgPath(path, 3).Box().MaxY(), 26);
}

TEST(SvgPath, HoldsNoNumberThatAPictureCannotTake)
{
    Path path;
    path.MoveTo({std::numeric_limits<double>::quiet_NaN(), 1e300});
    EXPECT_EQ(SvgPath(path, 3).Data(), "M0 1000000000");
    EXPECT_EQ(SvgPath(path, 3).Box().MaxY(), 1e9);
}

SvgPath Arc(const Vertex & end, bool isClockwise)
{
    Path path;
    path.MoveTo({1, 0});
    path.ArcTo(end, {0, 0}, isClockwise);
    return {path, 3};
}

// The y axis points up: what is drawn with the clock turns towards smaller angles, which is sweep 0.
TEST(SvgPath, ArcsKeepTheirSense)
{
    EXPECT_EQ(Arc({0, 1}, false).Data(), "M1 0A1 1 0 0 1 0 1");
    EXPECT_EQ(Arc({0, -1}, true).Data(), "M1 0A1 1 0 0 0 0-1");
    EXPECT_EQ(Arc({-1, 0}, false).Data(), "M1 0A1 1 0 0 1-1 0");
}

TEST(SvgPath, LongArcsAreTwo)
{
    EXPECT_EQ(Arc({-.6, -.8}, false).Data(), "M1 0A1 1 0 1 1-.6-.8");
    EXPECT_EQ(Arc({1, 0}, false).Data(), "M1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0");
    EXPECT_EQ(Arc({1, 0}, true).Data(), "M1 0A1 1 0 0 0-1 0A1 1 0 0 0 1 0");
    EXPECT_EQ(Arc({1, -1e-6}, false).Data(), "M1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0");
    EXPECT_NEAR(Arc({1, 0}, false).Box().MinY(), -1, 1e-9);
}

TEST(SvgPath, ArcWithoutARadiusIsALine)
{
    Path path;
    path.MoveTo({0, 0});
    path.ArcTo({1, 1}, {0, 0}, true);
    EXPECT_EQ(SvgPath(path, 3).Data(), "M0 0L1 1");
}

std::string CurveWith(const std::string & direction)
{
    Lines lines = {"<PolyBegin x=\"1\" y=\"0\"/>",
                   "<PolyStepCurve x=\"0\" y=\"1\" centerX=\"0\" centerY=\"0\"" + direction + "/>", "</Polygon>"};
    CIPC2581_Polygon polygon;
    polygon.Import(lines.File());
    Path path;
    path.AddContour(*polygon.PolyBegin, *polygon.PolyStepArray);
    return SvgPath(path, 3).Data();
}

TEST(SvgPath, CurvesAreDrawnAsTheFileDrewThem)
{
    const std::string against = "M1 0A1 1 0 0 1 0 1Z";
    EXPECT_EQ(CurveWith(" clockwise=\"FALSE\""), against);
    EXPECT_EQ(CurveWith(" clockwise=\"false\""), against);
    EXPECT_EQ(CurveWith(""), against);
    EXPECT_EQ(CurveWith(" clockwise=\"TRUE\""), "M1 0A1 1 0 1 0 0 1Z");
    EXPECT_EQ(CurveWith(" clockwise=\"true\""), CurveWith(" clockwise=\"TRUE\""));
}

}  // namespace
}  // namespace ipc2581::tests
