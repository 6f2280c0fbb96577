#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <import/shapes/ShapePaths.h>

#include "hosts/ipc2581/svg/SvgPath.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

using host::SvgPath;

using Data = std::vector<std::string>;

// The paths in the words of a picture, which are short.
Data DataOf(const CIPC2581_DrawObj & shape)
{
    Data data;
    for (const Path & path : FilledPaths(shape)) {
        data.push_back(SvgPath(path, 3).Data());
    }
    return data;
}

// The shape that an element of a dictionary is read into.
template <typename Shape>
Data Read(const std::string & element)
{
    Lines lines = {element};
    Shape shape;
    shape.Import(lines.File());
    return DataOf(shape);
}

TEST(ShapePaths, PrimitivesAreDrawnRoundTheirCentre)
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

TEST(ShapePaths, OctagonIsMeasuredFromSideToSide)
{
    CIPC2581_DicDraw_Octagon octagon;
    octagon.Length = 2;
    const std::vector<Path> paths = FilledPaths(octagon);
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_NEAR(SvgPath(paths[0], 3).Box().MaxX(), 1, 1e-9);
    EXPECT_NEAR(SvgPath(paths[0], 3).Box().MinY(), -1, 1e-9);
    EXPECT_TRUE(DataOf(octagon)[0].starts_with("M1 .414L.414 1"));
}

TEST(ShapePaths, CornersAreCutAllWhereNoneIsFlagged)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectRound>(
                  "<RectRound width=\"4\" height=\"2\" radius=\".5\" upperRight=\"TRUE\" lowerLeft=\"TRUE\"/>"),
              Data{"M1.5-1A.5 .5 0 0 1 2-.5V.5A.5 .5 0 0 1 1.5 1H-1.5A.5 .5 0 0 1-2 .5V-.5A.5 .5 0 0 1-1.5-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectCham>("<RectCham width=\"4\" height=\"2\" chamfer=\".5\"/>"),
              Data{"M1.5-1L2-.5V.5L1.5 1H-1.5L-2 .5V-.5L-1.5-1Z"});
}

TEST(ShapePaths, OneFlagCutsOneCorner)
{
    CIPC2581_DicDraw_RectCham rect;
    rect.Width = 4;
    rect.Height = 2;
    rect.Chamfer = 0.5;
    rect.UpperLeft = 1;
    EXPECT_EQ(DataOf(rect), Data{"M2-1V1H-1.5L-2 .5V-1Z"});
}

TEST(ShapePaths, CutIsAtMostHalfASide)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_RectCham>("<RectCham width=\"4\" height=\"2\" chamfer=\"9\"/>"),
              Data{"M1-1L2 0L2 0L1 1H-1L-2 0L-2 0L-1-1Z"});
}

TEST(ShapePaths, ButterflyHasTwoQuarters)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Butterfly>("<Butterfly shape=\"ROUND\" diameter=\"2\"/>"),
              Data{"M0 0H1A1 1 0 0 1 0 1ZM0 0H-1A1 1 0 0 1 0-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Butterfly>("<Butterfly shape=\"SQUARE\" side=\"2\"/>"),
              Data{"M0 0H1V1H0ZM0 0H-1V-1H0Z"});
}

TEST(ShapePaths, DonutIsAFormInAForm)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Donut>("<Donut shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\"/>"),
              Data{"M-2-2H2V2H-2ZM-1-1H1V1H-1Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Donut>("<Donut outerDiameter=\"4\" innerDiameter=\"2\"/>"),
              Data{"M2 0A2 2 0 0 1-2 0A2 2 0 0 1 2 0ZM1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0Z"});
}

TEST(ShapePaths, MoireHasRingsAndACross)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Moire>(
                  "<Moire diameter=\"8\" ringWidth=\"1\" ringGap=\"1\" ringNumber=\"2\" lineWidth=\"2\" "
                  "lineLength=\"10\" lineAngle=\"0\"/>"),
              (Data{"M4 0A4 4 0 0 1-4 0A4 4 0 0 1 4 0ZM3 0A3 3 0 0 1-3 0A3 3 0 0 1 3 0ZM2 0A2 2 0 0 1-2 0A2 2 0 0 1 2 "
                    "0ZM1 0A1 1 0 0 1-1 0A1 1 0 0 1 1 0Z",
                    "M5-1V1H-5V-1Z", "M1 5H-1V-5H1Z"}));
}

TEST(ShapePaths, MoireOfManyRingsEnds)
{
    CIPC2581_DicDraw_Moire moire;
    moire.Diameter = 1;
    moire.RingNumber = 2000000000;
    EXPECT_EQ(DataOf(moire).size(), 3U);
}

TEST(ShapePaths, ThermalIsARingWithGaps)
{
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"ROUND\" outerDiameter=\"4\" innerDiameter=\"2\" "
                                             "spokeCount=\"2\" gap=\"0\" spokeStartAngle=\"0\"/>"),
              Data{"M2 0A2 2 0 0 1-2 0H-1A1 1 0 0 0 1 0ZM-2 0A2 2 0 0 1 2 0H1A1 1 0 0 0-1 0Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\" "
                                             "spokeCount=\"2\" gap=\"1\" spokeStartAngle=\"0\"/>"),
              Data{"M2 .5V2H-2V.5H-1V1H1V.5ZM-2-.5V-2H2V-.5H1V-1H-1V-.5Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\" "
                                             "spokeCount=\"1\" gap=\"1\" spokeStartAngle=\"0\"/>"),
              Data{"M2 .5V2H0V1H1V.5ZM0 2H-2V0H-1V1H0ZM-2 0V-2H0V-1H-1V0ZM0-2H2V-.5H1V-1H0Z"});
    EXPECT_EQ(Read<CIPC2581_DicDraw_Thermal>("<Thermal shape=\"SQUARE\" outerDiameter=\"4\" innerDiameter=\"2\"/>"),
              Data{"M-2-2H2V2H-2ZM-1-1H1V1H-1Z"});
}

TEST(ShapePaths, ContourHasItsCutoutsAsHoles)
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

TEST(ShapePaths, WhatIsNoAreaIsEmpty)
{
    EXPECT_TRUE(DataOf(CIPC2581_DrawObj()).empty());
    EXPECT_TRUE(DataOf(CIPC2581_DicDraw_Contour()).empty());
}

}  // namespace
}  // namespace ipc2581::tests
