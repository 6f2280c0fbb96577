#include "hosts/ipc2581/svg/SvgShapes.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/ipc2581/svg/SvgWriter.h"
#include "tests/support/Files.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

const SvgFrame Plain{.decimals = 3};

std::vector<std::string> DataOf(const CIPC2581_DrawObj & shape, const SvgFrame & frame = Plain)
{
    std::vector<std::string> data;
    for (const SvgPath & path : FilledPaths(shape, frame)) {
        data.push_back(path.Data());
    }
    return data;
}

using Data = std::vector<std::string>;

// The shape that an element of a dictionary is read into.
template <typename Shape>
Data Read(const std::string & element)
{
    Lines lines = {element};
    Shape shape;
    shape.Import(lines.File());
    return DataOf(shape);
}

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
    SvgPath path({.decimals = 3, .scale = 2, .offset = {10, 20}});
    path.MoveTo({0, 0});
    path.LineTo({1, 0});
    path.LineTo({1, 2});
    path.LineTo({2, 3});
    path.LineTo({2, 3});
    path.Close();
    EXPECT_EQ(path.Data(), "M10 20H12V24L14 26L14 26Z");
    EXPECT_EQ(path.Box().MaxY(), 26);
}

SvgPath Arc(const CPointD & end, bool isClockwise)
{
    SvgPath path(Plain);
    path.MoveTo({1, 0});
    path.ArcTo(end, {0, 0}, isClockwise);
    return path;
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
    SvgPath path(Plain);
    path.MoveTo({0, 0});
    path.ArcTo({1, 1}, {0, 0}, true);
    EXPECT_EQ(path.Data(), "M0 0L1 1");
}

std::string CurveWith(const std::string & direction)
{
    Lines lines = {"<PolyBegin x=\"1\" y=\"0\"/>",
                   "<PolyStepCurve x=\"0\" y=\"1\" centerX=\"0\" centerY=\"0\"" + direction + "/>", "</Polygon>"};
    CIPC2581_Polygon polygon;
    polygon.Import(lines.File());
    SvgPath path(Plain);
    path.AddContour(*polygon.PolyBegin, *polygon.PolyStepArray);
    return path.Data();
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

TEST(SvgShapes, PrimitivesAreDrawnRoundTheirCentre)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Circle>("<Circle diameter=\"2\"/>"), Data{"M1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Ellipse>("<Ellipse width=\"4\" height=\"2\"/>"),
              Data{"M2 0A2 1 0 0 1-2 0A2 1 0 0 1 2 0Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Diamond>("<Diamond width=\"4\" height=\"2\"/>"), Data{"M2 0L0 1L-2 0L0-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectCenter>("<RectCenter width=\"4\" height=\"2\"/>"), Data{"M-2-1H2V1H-2Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectCorner>(
                  "<RectCorner lowerLeftX=\"0\" lowerLeftY=\"1\" upperRightX=\"2\" upperRightY=\"3\"/>"),
              Data{"M0 1H2V3H0Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Triangle>("<Triangle base=\"2\" height=\"4\"/>"), Data{"M-1-2H1L0 2Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Hexagon>("<Hexagon length=\"2\"/>"), Data{"M1 0L.5 .866H-.5L-1 0L-.5-.866H.5Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Oval>("<Oval width=\"4\" height=\"2\"/>"),
              Data{"M1-1A1 1 0 0 1 2 0L2 0A1 1 0 0 1 1 1H-1A1 1 0 0 1-2 0L-2 0A1 1 0 0 1-1-1Z"});
}

TEST(SvgShapes, OctagonIsMeasuredFromSideToSide)
{
    CIPC2581_DicDraw_Octagon octagon;
    octagon.Length = 2;
    const std::vector<SvgPath> paths = FilledPaths(octagon, Plain);
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_NEAR(paths[0].Box().MaxX(), 1, 1e-9);
    EXPECT_NEAR(paths[0].Box().MinY(), -1, 1e-9);
    EXPECT_TRUE(paths[0].Data().starts_with("M1 .414L.414 1"));
}

TEST(SvgShapes, CornersAreCutAllWhereNoneIsFlagged)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectRound>(
                  "<RectRound width=\"4\" height=\"2\" radius=\".5\" upperRight=\"TRUE\" lowerLeft=\"TRUE\"/>"),
              Data{"M1.5-1A.5 .5 0 0 1 2-.5V.5A.5 .5 0 0 1 1.5 1H-1.5A.5 .5 0 0 1-2 .5V-.5A.5 .5 0 0 1-1.5-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectCham>("<RectCham width=\"4\" height=\"2\" chamfer=\".5\"/>"),
              Data{"M1.5-1L2-.5V.5L1.5 1H-1.5L-2 .5V-.5L-1.5-1Z"});
}

TEST(SvgShapes, OneFlagCutsOneCorner)
{
    CIPC2581_DicDraw_RectCham rect;
    rect.Width = 4;
    rect.Height = 2;
    rect.Chamfer = 0.5;
    rect.UpperLeft = 1;
    EXPECT_EQ(DataOf(rect), Data{"M2-1V1H-1.5L-2 .5V-1Z"});
}

TEST(SvgShapes, CutIsAtMostHalfASide)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectCham>("<RectCham width=\"4\" height=\"2\" chamfer=\"9\"/>"),
              Data{"M1-1L2 0L2 0L1 1H-1L-2 0L-2 0L-1-1Z"});
}

TEST(SvgShapes, ButterflyHasTwoQuarters)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Butterfly>("<Butterfly shape=\"ROUND\" diameter=\"2\"/>"),
              Data{"M0 0H1A1 1 0 0 1 0 1ZM0 0H-1A1 1 0 0 1 0-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Butterfly>("<Butterfly shape=\"SQUARE\" side=\"2\"/>"),
              Data{"M0 0H1V1H0ZM0 0H-1V-1H0Z"});
}

TEST(SvgShapes, DonutIsAFormInAForm)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Donut>("<Donut shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\"/>"),
              Data{"M-2-2H2V2H-2ZM-1-1H1V1H-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Donut>("<Donut outerDiameter=\"4\" innerDiameter=\"2\"/>"),
              Data{"M2 0A2 2 0 0 1-2 0A2 2 0 0 1 2 0ZM1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0Z"});
}

TEST(SvgShapes, MoireHasRingsAndACross)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Moire>(
                  "<Moire diameter=\"8\" ringWidth=\"1\" ringGap=\"1\" ringNumber=\"2\" lineWidth=\"2\" "
                  "lineLength=\"10\" lineAngle=\"0\"/>"),
              (Data{"M4 0A4 4 0 0 1-4 0A4 4 0 0 1 4 0ZM3 0A3 3 0 0 1-3 0A3 3 0 0 1 3 0ZM2 0A2 2 0 0 1-2 0A2 2 0 0 1 2 "
                    "0ZM1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0Z",
                    "M5-1V1H-5V-1Z", "M1 5H-1V-5H1Z"}));
}

TEST(SvgShapes, MoireOfManyRingsEnds)
{
    CIPC2581_DicDraw_Moire moire;
    moire.Diameter = 1;
    moire.RingNumber = 2000000000;
    EXPECT_EQ(DataOf(moire).size(), 3U);
}

TEST(SvgShapes, ThermalIsARingWithGaps)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"ROUND\" outerDiameter=\"4\" innerDiameter=\"2\" "
                                             "spokeCount=\"2\" gap=\"0\" spokeStartAngle=\"0\"/>"),
              Data{"M2 0A2 2 0 0 1-2 0H-1A1 1 0 0 0 1 0ZM-2 0A2 2 0 0 1 2 0H1A1 1 0 0 0-1 0Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\" "
                                             "spokeCount=\"2\" gap=\"1\" spokeStartAngle=\"0\"/>"),
              Data{"M2 .5V2H-2V.5ZM1 .5V1H-1V.5ZM-2-2H2V-.5H-2ZM-1-1H1V-.5H-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\"/>"),
              Data{"M-2-2H2V2H-2ZM-1-1H1V1H-1Z"});
}

TEST(SvgShapes, ContourHasItsCutoutsAsHoles)
{
    Lines lines = {"<Polygon>",
                   "<PolyBegin x=\"0\" y=\"0\"/>",
                   "<PolyStepSegment x=\"4\" y=\"0\"/>",
                   "<PolyStepSegment x=\"4\" y=\"4\"/>",
                   "</Polygon>",
                   "<Cutout>",
                   "<PolyBegin x=\"2\" y=\"1\"/>",
                   "<PolyStepSegment x=\"3\" y=\"1\"/>",
                   "<PolyStepSegment x=\"3\" y=\"2\"/>",
                   "</Cutout>",
                   "<Polygon>",
                   "<PolyBegin x=\"5\" y=\"0\"/>",
                   "<PolyStepSegment x=\"6\" y=\"0\"/>",
                   "</Polygon>",
                   "</Contour>"};
    CIPC2581_DicDraw_Contour contour;
    contour.Import(lines.File());
    EXPECT_EQ(DataOf(contour), (Data{"M0 0H4V4ZM2 1H3V2Z", "M5 0H6Z"}));
}

TEST(SvgShapes, WhatIsNoAreaIsEmpty)
{
    EXPECT_TRUE(DataOf(CIPC2581_DrawObj()).empty());
    EXPECT_TRUE(DataOf(CIPC2581_DicDraw_Contour()).empty());
}

TEST(SvgText, IsGoodXml)
{
    EXPECT_EQ(SvgText("A<B>C"), "A&lt;B&gt;C");
    EXPECT_EQ(SvgText("A&B&amp;C&nbsp;"), "A&amp;B&amp;C&amp;nbsp;");
    EXPECT_EQ(SvgText("\xc2\xb5 \xe2\x82\xac \xf0\x9f\x98\x80"), "\xc2\xb5 \xe2\x82\xac \xf0\x9f\x98\x80");
    EXPECT_EQ(SvgText("a\x01\xff\xc0\x80z"), "a\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbdz");
    EXPECT_EQ(SvgText("\xed\xa0\x80\xc3"), "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");
}

TEST(SvgUnit, IsThatOfTheFile)
{
    EXPECT_STREQ(SvgUnitOf("MILLIMETER").suffix, "mm");
    EXPECT_STREQ(SvgUnitOf("INCH").suffix, "in");
    EXPECT_EQ(SvgUnitOf("MICRON").factor, 0.001);
    EXPECT_EQ(SvgUnitOf("MIL").millimetres, 0.0254);
    EXPECT_STREQ(SvgUnitOf("").suffix, "");
}

TEST(Placement, TurnsThenMirrorsThenMoves)
{
    const CPointD placed = Placement{{10, 20}, 90, false}.Of(CPointD(1, 2));
    EXPECT_NEAR(placed.X, 8, 1e-9);
    EXPECT_NEAR(placed.Y, 21, 1e-9);
    const CPointD mirrored = Placement{{10, 20}, 90, true}.Of(CPointD(1, 2));
    EXPECT_NEAR(mirrored.X, 12, 1e-9);
    EXPECT_NEAR(mirrored.Y, 21, 1e-9);
}

}  // namespace
}  // namespace ipc2581::tests
