#include "ipc2581/draw/Polygon.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/draw/Contours.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

TEST(Polygon, ReadsBeginPointAndSteps)
{
    CIPC2581_Polygon polygon;
    Lines file{R"(<PolyBegin x="1" y="2" />)",
               R"(   <PolyStepSegment x="3" y="4" />)",
               R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="TRUE" />)",
               R"(<PolyStepSegment x="1" y="2"/>)",
               "</Polygon>",
               "behind"};
    EXPECT_EQ(polygon.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(ShortContour(polygon), "b1,2 s3,4 c5,6 s1,2");
    const CIPC2581_PolyStep & curve = *polygon.PolyStepArray->GetAt(1);
    EXPECT_EQ(curve.GetCenterPoint()->GetPoint_X(), 7.0);
    EXPECT_EQ(curve.GetCenterPoint()->GetPoint_Y(), 8.0);
    EXPECT_EQ(curve.GetClockWise(), 0);
}

TEST(Polygon, AddsToTheStepsThatItHas)
{
    CIPC2581_Polygon polygon;
    Lines first{R"(<PolyBegin x="1" y="2" />)", R"(<PolyStepSegment x="3" y="4" />)", "</Polygon>"};
    polygon.Import(first.File());
    Lines second{R"(<PolyBegin x="9" />)", R"(<PolyStepSegment x="5" y="6" />)", "</Polygon>"};
    polygon.Import(second.File());
    EXPECT_EQ(ShortContour(polygon), "b9,2 s3,4 s5,6");
}

// A line whose first token holds two words goes to the first test that it passes.
TEST(Polygon, TestsHaveTheirOrderAndExcludeEachOther)
{
    const struct {
        const char * line;
        const char * result;
        bool ends;
    } cases[] = {
        {R"(<PolyBeginPolyStepSegment x="1" y="2">)", "b1,2", false},
        {R"(<PolyStepSegmentPolyBegin x="1" y="2">)", "b1,2", false},
        {R"(<PolyStepCurvePolyBegin x="1" y="2">)", "b1,2", false},
        {R"(</PolygonPolyBegin x="1" y="2">)", "b1,2", false},
        {"<PolyBegin></Polygon>", "b0,0", false},
        {R"(<PolyStepCurvePolyStepSegment x="1" y="2">)", "b0,0 s1,2", false},
        {R"(</PolygonPolyStepSegment x="1" y="2">)", "b0,0 s1,2", false},
        {R"(<PolyStepCurve/Polygon x="1" y="2">)", "b0,0 c1,2", false},
        {R"(</Polygon x="1" y="2">)", "b0,0", true},
        {R"(<Any/PolygonAny x="1" y="2">)", "b0,0", true},
    };
    for (const auto & row : cases) {
        CIPC2581_Polygon polygon;
        Lines file{row.line, "behind"};
        EXPECT_EQ(polygon.Import(file.File()), 1);
        EXPECT_EQ(ShortContour(polygon), row.result) << row.line;
        EXPECT_EQ(file.Rest().size(), row.ends ? 1U : 0U) << row.line;
    }
}

// The closing line of a step holds the step's word.
TEST(Polygon, ClosingLinesOfStepsAppendSteps)
{
    CIPC2581_Polygon polygon;
    Lines file{R"(<PolyBegin x="1" y="2">)", "</PolyBegin>", R"(<PolyStepSegment x="3" y="4">)", "</PolyStepSegment>",
               "</PolyStepCurve>"};
    EXPECT_EQ(polygon.Import(file.File()), 1);
    EXPECT_EQ(ShortContour(polygon), "b1,2 s3,4 s0,0 c0,0");
    EXPECT_EQ(polygon.PolyStepArray->GetAt(2)->GetClockWise(), 1);
}

TEST(Polygon, OtherLinesArePassedOver)
{
    CIPC2581_Polygon polygon;
    Lines file{"<Polygon>",
               R"(<LineDesc x="1">)",
               R"(<polyBegin x="1">)",
               R"(<PolyStep x="1">)",
               R"(<Any PolyBegin x="1">)",
               "</Polyline>",
               "</Cutout>",
               "</Outline>",
               "</polygon>",
               R"(< PolyStepSegment x="1">)",
               "<polystepcurve>",
               "</Polygon>",
               "behind"};
    EXPECT_EQ(polygon.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(ShortContour(polygon), "b0,0");
}

TEST(Polygon, KeepsWhatWasReadAtTheEndOfFile)
{
    const Texts lines{"<PolyBegin x=\"1\" y=\"2\" />\n", "<PolyStepSegment x=\"3\" y=\"4\" />\n",
                      "<PolyStepCurve x=\"5\" y=\"6\" />\n"};
    const char * const results[] = {"b0,0", "b1,2", "b1,2 s3,4", "b1,2 s3,4 c5,6"};
    std::string bytes;
    for (std::size_t count = 0; count <= lines.size(); ++count) {
        CIPC2581_Polygon polygon;
        Lines file(bytes);
        EXPECT_EQ(polygon.Import(file.File()), 1);
        EXPECT_EQ(ShortContour(polygon), results[count]);
        bytes += count < lines.size() ? lines[count] : "";
    }
}

TEST(Polygon, KeepsWhatWasReadBeforeALineThatRaises)
{
    for (const char * line : {" ", R"(<PolyStepSegment x="open)", "<PolyStepCurve x=1", R"(<PolyBegin y="open)"}) {
        CIPC2581_Polygon polygon;
        Lines file{R"(<PolyBegin x="1" y="2" />)", R"(<PolyStepSegment x="3" y="4" />)", line, "behind"};
        EXPECT_THROW(polygon.Import(file.File()), CInvalidArgException) << line;
        EXPECT_EQ(ShortContour(polygon), "b1,2 s3,4") << line;
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << line;
    }
}

CIPC2581_Polygon * Sample()
{
    auto polygon = std::make_unique<CIPC2581_Polygon>();
    Lines file{R"(<PolyBegin x="1" y="2" />)", R"(<PolyStepSegment x="3" y="4" />)",
               R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="FALSE" />)"};
    polygon->Import(file.File());
    return polygon.release();
}

TEST(Polygon, IsWrittenWithItsChildrenOneIndentDeeper)
{
    const std::unique_ptr<CIPC2581_Polygon> polygon(Sample());
    EXPECT_EQ(Exported(*polygon).result, 1);
    EXPECT_EQ(Written(*polygon, 0), Below(R"(
   <Polygon>
      <PolyBegin x="1.000000" y="2.000000" />
      <PolyStepSegment x="3.000000" y="4.000000" />
      <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="TRUE" />
   </Polygon>
)"));
    EXPECT_EQ(Written(*polygon, 2), Below(R"(
         <Polygon>
            <PolyBegin x="1.000000" y="2.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
            <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="TRUE" />
         </Polygon>
)"));
}

TEST(Polygon, IsWrittenWithoutSteps)
{
    CIPC2581_Polygon polygon;
    const auto written = Exported(polygon);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, Below(R"(
   <Polygon>
      <PolyBegin x="0.000000" y="0.000000" />
   </Polygon>
)"));
    EXPECT_EQ(Written(polygon, -1), Below(R"(
<Polygon>
   <PolyBegin x="0.000000" y="0.000000" />
</Polygon>
)"));
    EXPECT_EQ(Written(polygon, -2), Below(R"(
<Polygon>
<PolyBegin x="0.000000" y="0.000000" />
</Polygon>
)"));
}

TEST(Polygon, EachReadAndWriteTurnsTheDirectionRound)
{
    const std::unique_ptr<CIPC2581_Polygon> polygon(Sample());
    std::string text = Written(*polygon);
    for (const char * direction : {R"(clockwise="FALSE")", R"(clockwise="TRUE")", R"(clockwise="FALSE")"}) {
        CIPC2581_Polygon read;
        Lines file(text);
        EXPECT_EQ(read.Import(file.File()), 1);
        EXPECT_EQ(ShortContour(read), "b1,2 s3,4 c5,6");
        text = Written(read);
        EXPECT_NE(text.find(direction), std::string::npos) << text;
    }
}

TEST(Polygon, DirectionThatIsNotStatedIsWrittenAsTrueAndAnUnknownOneAsFalse)
{
    CIPC2581_Polygon polygon;
    Lines file{R"(<PolyStepCurve x="1" />)", R"(<PolyStepCurve x="2" clockwise="maybe" />)"};
    polygon.Import(file.File());
    EXPECT_EQ(Written(polygon), Below(R"(
   <Polygon>
      <PolyBegin x="0.000000" y="0.000000" />
      <PolyStepCurve x="1.000000" y="0.000000" centerX="0.000000" centerY="0.000000" clockwise="TRUE" />
      <PolyStepCurve x="2.000000" y="0.000000" centerX="0.000000" centerY="0.000000" clockwise="FALSE" />
   </Polygon>
)"));
}

TEST(Polygon, WritingStopsWhereItsBeginPointFails)
{
    const std::unique_ptr<CIPC2581_Polygon> polygon(Sample());
    delete polygon->PolyBegin;
    polygon->PolyBegin = new Refusing<CIPC2581_Point>;
    const auto written = Exported(*polygon);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, "   <Polygon>\n");
}

TEST(Polygon, WritingStopsWhereAStepFails)
{
    CIPC2581_Polygon polygon;
    polygon.PolyStepArray->Add(new Refusing<CIPC2581_PolyStep>);
    const auto written = Exported(polygon);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, Joined({"   <Polygon>", R"(      <PolyBegin x="0.000000" y="0.000000" />)"}));
}

TEST(Polygon, WritingStopsWhereItsStepListFails)
{
    CIPC2581_Polygon polygon;
    delete polygon.PolyStepArray;
    polygon.PolyStepArray = new Refusing<CIPC2581_PolyStepArray>;
    const auto written = Exported(polygon);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, Joined({"   <Polygon>", R"(      <PolyBegin x="0.000000" y="0.000000" />)"}));
}

TEST(Polygon, InItKeepsItsParts)
{
    const std::unique_ptr<CIPC2581_Polygon> polygon(Sample());
    const CIPC2581_Point * begin = polygon->PolyBegin;
    const CPointD * point = begin->GetPoint();
    const CIPC2581_PolyStepArray * steps = polygon->PolyStepArray;
    polygon->InIt();
    EXPECT_EQ(polygon->PolyBegin, begin);
    EXPECT_EQ(polygon->PolyBegin->GetPoint(), point);
    EXPECT_EQ(polygon->PolyStepArray, steps);
    EXPECT_EQ(ShortContour(*polygon), "b0,0");
    EXPECT_EQ(polygon->GetDrawType(), 22);
}

// The shape inherits an Init beside its own InIt.
TEST(Polygon, InitOfTheBaseChangesTheTypeAlone)
{
    const std::unique_ptr<CIPC2581_Polygon> polygon(Sample());
    polygon->Init();
    EXPECT_EQ(polygon->GetDrawType(), 17);
    EXPECT_EQ(ShortContour(*polygon), "b1,2 s3,4 c5,6");
}

TEST(Polygon, CopyingLeavesTheType)
{
    CIPC2581_Polygon source;
    source.SetDrawType(5);
    EXPECT_EQ(CIPC2581_Polygon(source).GetDrawType(), 22);
    const std::unique_ptr<CIPC2581_Polygon> clone(source.clone());
    EXPECT_EQ(clone->GetDrawType(), 22);
    CIPC2581_Polygon target;
    target.SetDrawType(6);
    target = source;
    EXPECT_EQ(target.GetDrawType(), 6);
}

TEST(Polygon, OrderOfReplacedOperations)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_Polygon::*)(CStdioFile &)>(&CIPC2581_Polygon::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Polygon::Export), 6U);
}

}  // namespace
