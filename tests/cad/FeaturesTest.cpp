#include "ipc2581/cad/Features.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Line.h"
#include "ipc2581/draw/PolyLine.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Features = CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features;
using Circle = CIPC2581_DicDraw_Circle;
using Contour = CIPC2581_DicDraw_Contour;
using Line = CIPC2581_Line;
using PolyLine = CIPC2581_PolyLine;

// Reads the lines under a Features line and gives those that are left.
Texts Read(Features & features, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    features.FeaturesAdd(file);
    return file.Rest();
}

template <typename Shape>
const Shape & At(const Features & features, std::int64_t index)
{
    return dynamic_cast<const Shape &>(*features.DrawObjArray.GetAt(index));
}

std::vector<int> DrawTypes(const Features & features)
{
    std::vector<int> types;
    for (std::int64_t i = 0; i < features.DrawObjArray.GetSize(); ++i) {
        types.push_back(features.DrawObjArray.GetAt(i)->GetDrawType());
    }
    return types;
}

void ExpectAt(const Features & features, double x, double y)
{
    EXPECT_EQ(features.Location.GetX(), x);
    EXPECT_EQ(features.Location.GetY(), y);
}

struct Ends {
    double startX, startY, endX, endY;
    bool operator==(const Ends &) const = default;
};

Ends EndsOf(const Line & line)
{
    return {line.StartPoint->GetPoint_X(), line.StartPoint->GetPoint_Y(), line.EndPoint->GetPoint_X(),
            line.EndPoint->GetPoint_Y()};
}

TEST(Features, StartsEmpty)
{
    const Features features;
    ExpectAt(features, 0.0, 0.0);
    EXPECT_TRUE(features.DrawObjArray.IsEmpty());
}

TEST(Features, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Features>);
    EXPECT_TRUE(IsVirtual(&Features::Export));
    EXPECT_EQ(Slot(&Features::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Features::FeaturesAdd));
}

TEST(Features, ReadsItsFourShapesInTheirOrder)
{
    Features features;
    EXPECT_EQ(Read(features, {R"(<Location x="1" y="2"/>)", R"(<Circle diameter="3"/>)", "<Contour>", "<Polygon>",
                              R"(<PolyBegin x="1" y="1"/>)", R"(<PolyStepSegment x="2" y="2"/>)", "</Polygon>",
                              "</Contour>", R"(<Line startX="1" startY="2" endX="3" endY="4">)",
                              R"(<LineDesc lineEnd="SQUARE" lineWidth="0.5"/>)", "</Line>", "<Polyline>",
                              R"(<PolyBegin x="5" y="6"/>)", R"(<PolyStepSegment x="7" y="8"/>)",
                              R"(<LineDesc lineEnd="FLAT" lineWidth="0.25"/>)", "</Polyline>",
                              R"(<Circle diameter="9"/>)", "</Features>", "left"}),
              Texts{"left"});
    ExpectAt(features, 1.0, 2.0);
    ASSERT_EQ(DrawTypes(features), (std::vector<int>{2, 3, 18, 20, 2}));
    EXPECT_EQ(At<Circle>(features, 0).Diameter, 3.0);
    EXPECT_EQ(At<Contour>(features, 1).DicDrawObjArray->GetSize(), 1);
    EXPECT_EQ(EndsOf(At<Line>(features, 2)), (Ends{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(At<Line>(features, 2).LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(At<PolyLine>(features, 3).PolyBegin->GetPoint_X(), 5.0);
    EXPECT_EQ(At<PolyLine>(features, 3).PolyStepArray->GetSize(), 1);
    EXPECT_EQ(At<PolyLine>(features, 3).LineDesc->LineEnd, "FLAT");
    EXPECT_EQ(At<Circle>(features, 4).Diameter, 9.0);
    ExpectExport(features, Below(R"(
   <Features>
      <Location x="1.000000" y="2.000000"/>
      <Circle diameter="3.000000" />
      <Contour>
         <Polygon>
            <PolyBegin x="1.000000" y="1.000000" />
            <PolyStepSegment x="2.000000" y="2.000000" />
         </Polygon>
      </Contour>
      <Line startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000">
         <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />
      </Line>
      <Polyline>
         <PolyBegin x="5.000000" y="6.000000" />
         <PolyStepSegment x="7.000000" y="8.000000" />
         <LineDesc lineEnd="FLAT" lineWidth="0.250000" />
      </Polyline>
      <Circle diameter="9.000000" />
   </Features>
)"));
}

TEST(Features, PassesOverAnyTransformFirst)
{
    Features features;
    EXPECT_EQ(Read(features, {R"(<Xform rotation="90" x="1"/>)", R"(<LocationXform x="1" y="2">)",
                              R"(<XformCircle diameter="1">)", "<Xform/>", "</FeaturesXform>", "</Features>", "left"}),
              Texts{"left"});
    ExpectAt(features, 0.0, 0.0);
    EXPECT_TRUE(features.DrawObjArray.IsEmpty());
}

TEST(Features, TestsForItsElementsInTheirOrder)
{
    const struct {
        const char * line;
        const char * closing;
        std::vector<int> types;
        double x;
    } rows[] = {
        {R"(<PolylineLocation x="1">)", "</Polyline>", {}, 1.0},
        {R"(<CircleLocation x="1" diameter="2">)", "</Circle>", {}, 1.0},
        {R"(<LinePolyline startX="1" x="1">)", "</Polyline>", {20}, 0.0},
        {R"(<ContourPolyline x="1">)", "</Polyline>", {20}, 0.0},
        {R"(<ContourLine startX="1" x="1">)", "</Line>", {18}, 0.0},
        {R"(<CircleLine diameter="1">)", "</Line>", {18}, 0.0},
        {R"(<CircleContour diameter="1">)", "</Contour>", {3}, 0.0},
        {R"(<RoundCircle diameter="1">)", "</Circle>", {2}, 0.0},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        Features features;
        EXPECT_EQ(Read(features, {row.line, row.closing, "</Features>", "left"}), Texts{"left"});
        EXPECT_EQ(DrawTypes(features), row.types);
        EXPECT_EQ(features.Location.GetX(), row.x);
    }
}

TEST(Features, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const word : {"Location", "Polyline", "Line", "Contour", "Circle"}) {
        SCOPED_TRACE(word);
        const std::string attributes = R"( x="1" diameter="2">)";
        Features features;
        EXPECT_EQ(Read(features,
                       {"<" + std::string(word) + "/>", "<" + std::string(word) + "/" + attributes,
                        "</" + std::string(word) + attributes, "</Features" + std::string(word) + attributes, "left"}),
                  Texts{"left"});
        ExpectAt(features, 0.0, 0.0);
        EXPECT_TRUE(features.DrawObjArray.IsEmpty());
    }
}

TEST(Features, ScansItsLocationForXBeforeY)
{
    Features features;
    Read(features,
         {R"(<Locationy="4" x="3">)", R"(<Location y="9"x="8">)", R"(<Location X="5" yy ="6"/>)", "</Features>"});
    ExpectAt(features, 9.0, 4.0);
}

TEST(Features, TakesTheLastOfItsLocationsAlsoInsideAnUnknownElement)
{
    Features features;
    Read(features, {R"(<Location x="1" y="2"/>)", R"(<Location x="3"/>)", "</Features>"});
    ExpectAt(features, 3.0, 2.0);
    Read(features, {"<UserSpecial>", R"(<Location x="5" y="bad"/>)", "</UserSpecial>", "</Features>"});
    ExpectAt(features, 5.0, 0.0);
}

TEST(Features, ScansTheLineOfALine)
{
    const struct {
        const char * line;
        Ends ends;
    } rows[] = {
        {R"(<Line endY="4" endX="3" startY="2" startX="1">)", {1.0, 2.0, 3.0, 4.0}},
        {"<Line>", {0.0, 0.0, 0.0, 0.0}},
        {R"(<Line startY="2">)", {0.0, 2.0, 0.0, 0.0}},
        {R"(<Line x="1" y="2" StartX="3" startXs="4" endX ="5">)", {0.0, 0.0, 0.0, 0.0}},
        {R"(<LinestartX="1" bendX="2">)", {1.0, 0.0, 2.0, 0.0}},
        {R"(<Line startX="one" endX="1e2">)", {0.0, 0.0, 100.0, 0.0}},
        {R"(<Line startX="1 startY=2" endX="3">)", {1.0, 0.0, 3.0, 0.0}},
        {R"(<Line startY="2"startX="1">)", {2.0, 0.0, 0.0, 0.0}},
        {R"(<Line endX="3"startY="2">)", {0.0, 3.0, 0.0, 0.0}},
        {R"(<Line endY="4"endX="3">)", {0.0, 0.0, 4.0, 0.0}},
        {R"(<Line endY="4"startX="3">)", {4.0, 0.0, 0.0, 0.0}},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        Features features;
        Read(features, {row.line, "</Line>", "</Features>"});
        ASSERT_EQ(DrawTypes(features), std::vector<int>{18});
        EXPECT_EQ(EndsOf(At<Line>(features, 0)), row.ends);
        EXPECT_EQ(At<Line>(features, 0).LineDesc->LineEnd, "ROUND");
    }
}

TEST(Features, ALineDescriptionInAnUnknownElementMakesALine)
{
    Features features;
    EXPECT_EQ(Read(features, {"<UserSpecial>", R"(<LineDesc lineEnd="SQUARE" lineWidth="0.5"/>)", "</UserSpecial>",
                              R"(<Circle diameter="1"/>)", R"(<Line startX="1" startY="2">)",
                              R"(<LineDesc lineEnd="FLAT" lineWidth="0.25"/>)", "</Line>", R"(<Circle diameter="2"/>)",
                              "</Features>", "left"}),
              Texts{"left"});
    ASSERT_EQ(DrawTypes(features), (std::vector<int>{18, 2}));
    EXPECT_EQ(EndsOf(At<Line>(features, 0)), (Ends{0.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(At<Line>(features, 0).LineDesc->LineEnd, "FLAT");
    EXPECT_EQ(At<Line>(features, 0).LineDesc->LineWidth, 0.25);
    EXPECT_EQ(At<Circle>(features, 1).Diameter, 2.0);
}

TEST(Features, ALineDescriptionOutsideAShapeMakesALineToo)
{
    Features features;
    EXPECT_EQ(Read(features, {R"(<LineDesc lineEnd="SQUARE"/>)", "</Features>", "</Set>"}), Texts{});
    ASSERT_EQ(DrawTypes(features), std::vector<int>{18});
    EXPECT_EQ(At<Line>(features, 0).LineDesc->LineEnd, "ROUND");
}

TEST(Features, ASelfClosedLineReadsOnToTheEndOfTheNextOne)
{
    Features features;
    Read(features, {R"(<Line startX="1" startY="2"/>)", R"(<Circle diameter="1"/>)", R"(<Line startX="3">)", "</Line>",
                    R"(<Circle diameter="2"/>)", "</Features>"});
    ASSERT_EQ(DrawTypes(features), (std::vector<int>{18, 2}));
    EXPECT_EQ(At<Line>(features, 0).StartPoint->GetPoint_X(), 1.0);
    EXPECT_EQ(At<Circle>(features, 1).Diameter, 2.0);
}

TEST(Features, ACircleReadsNoFurtherLine)
{
    Features features;
    Read(features, {R"(<Circle diameter="1">)", "</Circle>", R"(<Circle diameter="2"/>)", "<Circle>", "</Features>"});
    ASSERT_EQ(DrawTypes(features), (std::vector<int>{2, 2, 2}));
    EXPECT_EQ(At<Circle>(features, 0).Diameter, 1.0);
    EXPECT_EQ(At<Circle>(features, 1).Diameter, 2.0);
    EXPECT_EQ(At<Circle>(features, 2).Diameter, 0.0);
}

TEST(Features, IgnoresOtherShapesAndEmptyLines)
{
    Features features;
    EXPECT_EQ(
        Read(features, {"", R"(<RectCenter width="1" height="2"/>)", "<Polygon>", R"(<PolyBegin x="1"/>)", "</Polygon>",
                        R"(<Arc startX="1">)", "</Arc>", R"(<circle diameter="1"/>)", R"(< Circle diameter="1">)",
                        R"(<Text Circle="a"/>)", "</features>", "</Set>", "</Features>", "left"}),
        Texts{"left"});
    ExpectAt(features, 0.0, 0.0);
    EXPECT_TRUE(features.DrawObjArray.IsEmpty());
}

TEST(Features, TakesAPolyLineWithACapitalLForALine)
{
    Features features;
    EXPECT_EQ(Read(features, {"<PolyLine>", R"(<PolyBegin x="1"/>)", "</PolyLine>", R"(<Circle diameter="1"/>)",
                              "</Line>", "</Features>", "left"}),
              Texts{"left"});
    EXPECT_EQ(DrawTypes(features), std::vector<int>{18});
}

TEST(Features, EndsWhateverElseTheFirstTokenHolds)
{
    for (const char * const closing : {"</Features>", R"(</FeaturesEnd x="1">)", "x/Features", "\t</Features>"}) {
        Features features;
        EXPECT_EQ(Read(features, {closing, "left"}), Texts{"left"}) << closing;
    }
}

const Texts kFeaturesLines = {R"(<Location x="1"/>)",
                              "<Polyline>",
                              R"(<PolyBegin x="1"/>)",
                              "</Polyline>",
                              R"(<Line endX="1">)",
                              "<LineDesc/>",
                              "</Line>",
                              "<Contour>",
                              "<Polygon>",
                              "</Polygon>",
                              "<Cutout>",
                              "</Cutout>",
                              "</Contour>",
                              R"(<Circle diameter="1"/>)",
                              "</Features>"};

TEST(Features, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kFeaturesLines, [](CStdioFile & file, std::size_t lines) {
        Features features;
        features.FeaturesAdd(file);
        EXPECT_EQ(features.Location.GetX(), lines > 0 ? 1.0 : 0.0);
        std::vector<int> types{20, 18, 3, 2};
        types.resize(lines > 13 ? 4 : lines > 7 ? 3 : lines > 4 ? 2 : lines > 1 ? 1 : 0);
        EXPECT_EQ(DrawTypes(features), types);
    });
}

TEST(Features, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kFeaturesLines, [](CStdioFile & file) { Features().FeaturesAdd(file); });
}

TEST(Features, LosesTheShapeInHandWithAnException)
{
    for (const char * const line :
         {"<Polyline>", R"(<Line startX="1">)", R"(<Line startX="1>)", "<Contour>", R"(<Circle diameter="1>)"}) {
        SCOPED_TRACE(line);
        Features features;
        EXPECT_THROW(Read(features, {R"(<Circle diameter="1"/>)", line, "  ", "</Features>"}), CInvalidArgException);
        EXPECT_EQ(DrawTypes(features), std::vector<int>{2});
    }
}

TEST(Features, WritesItsLocationAlsoWhenItIsEmpty)
{
    Features features;
    ExpectExport(features, Below(R"(
   <Features>
      <Location x="0.000000" y="0.000000"/>
   </Features>
)"));
}

TEST(Features, StopsAtTheFirstShapeThatGivesZero)
{
    Features features;
    features.DrawObjArray.Add(new Writing<CIPC2581_DrawObj>("first"));
    features.DrawObjArray.Add(new Writing<CIPC2581_DrawObj>("second", 0));
    features.DrawObjArray.Add(new Circle);
    EXPECT_EQ(Exported(features), (Export{0, Below(R"(
   <Features>
      <Location x="0.000000" y="0.000000"/>
first 1
second 1
)")}));
}

TEST(Features, CopiesItsShapesThroughTheirClones)
{
    int deleted = 0;
    Features source;
    Read(source,
         {R"(<Location x="1" y="2"/>)", R"(<Circle diameter="3"/>)", R"(<Line startX="1">)", "</Line>", "</Features>"});
    const Features copy(source);
    Features target;
    target.DrawObjArray.Add(new Counted<Circle>(deleted));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(deleted, 1);
    for (const Features * const one : {&copy, static_cast<const Features *>(&target)}) {
        ExpectAt(*one, 1.0, 2.0);
        ASSERT_EQ(DrawTypes(*one), (std::vector<int>{2, 18}));
        EXPECT_NE(one->DrawObjArray.GetAt(0), source.DrawObjArray.GetAt(0));
        EXPECT_EQ(At<Circle>(*one, 0).Diameter, 3.0);
        // A line becomes a plain shape in a copied list.
        EXPECT_TRUE(IsA<CIPC2581_DrawObj>(one->DrawObjArray.GetAt(1)));
    }
    EXPECT_EQ(Exported(target).result, 0);
    EXPECT_EQ(Exported(source).result, 1);
}

TEST(Features, AssignmentToItselfKeepsItsShapes)
{
    Features features;
    Read(features,
         {R"(<Location x="1" y="2"/>)", R"(<Circle diameter="3"/>)", R"(<Line startX="1">)", "</Line>", "</Features>"});
    const Features & same = features;
    features = same;
    ExpectAt(features, 1.0, 2.0);
    ASSERT_EQ(DrawTypes(features), (std::vector<int>{2, 18}));
    EXPECT_EQ(At<Line>(features, 1).StartPoint->GetPoint_X(), 1.0);
}

}  // namespace
