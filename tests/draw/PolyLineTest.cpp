#include "ipc2581/draw/PolyLine.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/draw/Contours.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// All of it in short: "b1,2 s3,4 c5,6 w9" for a begin point, a segment, a curve and a line width.
std::string Short(const CIPC2581_PolyLine & polyLine)
{
    return ShortContour(polyLine) + " w" + std::to_string(static_cast<int>(polyLine.LineDesc->LineWidth));
}

void Fill(CIPC2581_PolyLine & polyLine)
{
    Lines file{R"(<PolyBegin x="1" y="2" />)",
               R"(   <PolyStepSegment x="3" y="4" />)",
               R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="TRUE" />)",
               R"(<LineDesc lineEnd="SQUARE" lineWidth="9" />)",
               "</Polyline>",
               "behind"};
    EXPECT_EQ(polyLine.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
}

TEST(PolyLine, StartsWithARoundEnd)
{
    const CIPC2581_PolyLine polyLine;
    EXPECT_EQ(Short(polyLine), "b0,0 w0");
    EXPECT_EQ(polyLine.LineDesc->LineEnd, "ROUND");
    EXPECT_LT(static_cast<const void *>(&polyLine.PolyStepArray), static_cast<const void *>(&polyLine.LineDesc));
}

TEST(PolyLine, ReadsBeginPointStepsAndLineDescription)
{
    CIPC2581_PolyLine polyLine;
    Fill(polyLine);
    EXPECT_EQ(Short(polyLine), "b1,2 s3,4 c5,6 w9");
    EXPECT_EQ(polyLine.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(polyLine.PolyStepArray->GetAt(1)->GetCenterPoint()->GetPoint_X(), 7.0);
    EXPECT_EQ(polyLine.PolyStepArray->GetAt(1)->GetCenterPoint()->GetPoint_Y(), 8.0);
    EXPECT_EQ(polyLine.PolyStepArray->GetAt(1)->GetClockWise(), 0);
}

TEST(PolyLine, AddsToTheStepsThatItHas)
{
    CIPC2581_PolyLine polyLine;
    Fill(polyLine);
    Fill(polyLine);
    EXPECT_EQ(Short(polyLine), "b1,2 s3,4 c5,6 s3,4 c5,6 w9");
}

// A begin point's line goes through the other tests too; any other word excludes those behind it.
TEST(PolyLine, TestsHaveTheirOrder)
{
    const struct {
        const char * line;
        const char * result;
        bool ends;
    } cases[] = {
        {R"(<PolyBegin x="1" y="2">)", "b1,2 w0", false},
        {R"(<PolyBeginPolyStepSegment x="1" y="2">)", "b1,2 s1,2 w0", false},
        {R"(<PolyStepCurvePolyBegin x="1" y="2">)", "b1,2 c1,2 w0", false},
        {R"(<PolyBeginLineDesc x="1" lineWidth="3">)", "b1,0 w3", false},
        {R"(<PolyBegin/Polyline x="1" y="2">)", "b1,2 w0", true},
        {"<PolyBegin/></Polyline>", "b0,0 w0", true},
        {R"(<PolyBeginPolyStepSegmentPolyStepCurve x="1">)", "b1,0 s1,0 w0", false},
        {R"(<PolyBeginPolyStepSegment/Polyline x="1">)", "b1,0 s1,0 w0", false},
        {R"(<PolyStepCurvePolyStepSegment x="1" y="2">)", "b0,0 s1,2 w0", false},
        {R"(<LineDescPolyStepSegment x="1" lineWidth="3">)", "b0,0 s1,0 w0", false},
        {R"(</PolylinePolyStepSegment x="1">)", "b0,0 s1,0 w0", false},
        {R"(<LineDescPolyStepCurve x="1" lineWidth="3">)", "b0,0 c1,0 w0", false},
        {R"(</PolylinePolyStepCurve x="1">)", "b0,0 c1,0 w0", false},
        {R"(</PolylineLineDesc x="1" lineWidth="3">)", "b0,0 w3", false},
        {R"(</Polyline x="1" lineWidth="3">)", "b0,0 w0", true},
        {"<Any/PolylineAny>", "b0,0 w0", true},
    };
    for (const auto & row : cases) {
        CIPC2581_PolyLine polyLine;
        Lines file{row.line, "behind"};
        EXPECT_EQ(polyLine.Import(file.File()), 1);
        EXPECT_EQ(Short(polyLine), row.result) << row.line;
        EXPECT_EQ(file.Rest().size(), row.ends ? 1U : 0U) << row.line;
    }
}

TEST(PolyLine, ClosingLinesOfStepsAppendStepsAndThatOfADescriptionEndsNothing)
{
    CIPC2581_PolyLine polyLine;
    Lines file{"</PolyBegin>", "</PolyStepSegment>", "</PolyStepCurve>", "</LineDesc>", "</Polyline>", "behind"};
    EXPECT_EQ(polyLine.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(Short(polyLine), "b0,0 s0,0 c0,0 w0");
}

TEST(PolyLine, OtherLinesArePassedOver)
{
    CIPC2581_PolyLine polyLine;
    Lines file{"<Polyline>",
               "</PolyLine>",
               "</Polygon>",
               "</Line>",
               R"(<PolyStep x="1">)",
               R"(<Any PolyBegin x="1">)",
               "<Line>",
               "</polyline>",
               "< x>",
               "</Polyline>",
               "behind"};
    EXPECT_EQ(polyLine.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(Short(polyLine), "b0,0 w0");
}

TEST(PolyLine, KeepsWhatWasReadAtTheEndOfFile)
{
    const Texts lines{"<PolyBegin x=\"1\" y=\"2\" />\n", "<PolyStepSegment x=\"3\" y=\"4\" />\n",
                      "<PolyStepCurve x=\"5\" y=\"6\" />\n", "<LineDesc lineWidth=\"9\" />\n"};
    const char * const results[] = {"b0,0 w0", "b1,2 w0", "b1,2 s3,4 w0", "b1,2 s3,4 c5,6 w0", "b1,2 s3,4 c5,6 w9"};
    std::string bytes;
    for (std::size_t count = 0; count <= lines.size(); ++count) {
        CIPC2581_PolyLine polyLine;
        Lines file(bytes);
        EXPECT_EQ(polyLine.Import(file.File()), 1);
        EXPECT_EQ(Short(polyLine), results[count]);
        bytes += count < lines.size() ? lines[count] : "";
    }
}

TEST(PolyLine, KeepsWhatWasReadBeforeALineThatRaises)
{
    for (const char * line : {" ", R"(<PolyStepSegment x="open)", "<PolyStepCurve clockwise=TRUE",
                              R"(<PolyBegin y="open)", R"(<LineDesc lineEnd="open)"}) {
        CIPC2581_PolyLine polyLine;
        Fill(polyLine);
        Lines file{line, "behind"};
        EXPECT_THROW(polyLine.Import(file.File()), CInvalidArgException) << line;
        EXPECT_EQ(Short(polyLine), "b1,2 s3,4 c5,6 w9") << line;
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << line;
    }
}

TEST(PolyLine, IsWrittenWithItsChildrenOneIndentDeeper)
{
    CIPC2581_PolyLine polyLine;
    Fill(polyLine);
    EXPECT_EQ(Exported(polyLine).result, 1);
    EXPECT_EQ(Written(polyLine, 0), Below(R"(
   <Polyline>
      <PolyBegin x="1.000000" y="2.000000" />
      <PolyStepSegment x="3.000000" y="4.000000" />
      <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="FALSE" />
      <LineDesc lineEnd="SQUARE" lineWidth="9.000000" />
   </Polyline>
)"));
    EXPECT_EQ(Written(polyLine, 2), Below(R"(
         <Polyline>
            <PolyBegin x="1.000000" y="2.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
            <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="FALSE" />
            <LineDesc lineEnd="SQUARE" lineWidth="9.000000" />
         </Polyline>
)"));
}

TEST(PolyLine, IsWrittenWithoutSteps)
{
    CIPC2581_PolyLine polyLine;
    const auto written = Exported(polyLine, -1);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, Below(R"(
<Polyline>
   <PolyBegin x="0.000000" y="0.000000" />
   <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
</Polyline>
)"));
}

template <typename Part>
void Refuse(Part *& part)
{
    delete part;
    part = new Refusing<Part>;
}

TEST(PolyLine, WritingStopsWhereAChildFails)
{
    CIPC2581_PolyLine polyLine;
    const std::string opening = "   <Polyline>\n";
    const std::string begin = Joined({R"(      <PolyBegin x="0.000000" y="0.000000" />)"});
    const std::string step = Joined({R"(      <PolyStepSegment x="0.000000" y="0.000000" />)"});
    polyLine.PolyStepArray->Add(new CIPC2581_PolyStep);
    Refuse(polyLine.LineDesc);
    EXPECT_EQ(Exported(polyLine).result, 0);
    EXPECT_EQ(Written(polyLine), opening + begin + step);
    polyLine.PolyStepArray->Add(new Refusing<CIPC2581_PolyStep>);
    EXPECT_EQ(Exported(polyLine).result, 0);
    EXPECT_EQ(Written(polyLine), opening + begin + step);
    Refuse(polyLine.PolyStepArray);
    EXPECT_EQ(Exported(polyLine).result, 0);
    EXPECT_EQ(Written(polyLine), opening + begin);
    Refuse(polyLine.PolyBegin);
    EXPECT_EQ(Exported(polyLine).result, 0);
    EXPECT_EQ(Written(polyLine), opening);
}

TEST(PolyLine, WritesNoDescriptionWhereAStepFails)
{
    CIPC2581_PolyLine polyLine;
    polyLine.PolyStepArray->Add(new Refusing<CIPC2581_PolyStep>);
    const auto written = Exported(polyLine);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, Joined({"   <Polyline>", R"(      <PolyBegin x="0.000000" y="0.000000" />)"}));
}

TEST(PolyLine, InitKeepsItsParts)
{
    CIPC2581_PolyLine polyLine;
    Fill(polyLine);
    const std::vector<const void *> parts{polyLine.PolyBegin, polyLine.PolyStepArray, polyLine.LineDesc};
    polyLine.Init();
    EXPECT_EQ(parts, (std::vector<const void *>{polyLine.PolyBegin, polyLine.PolyStepArray, polyLine.LineDesc}));
    EXPECT_EQ(Short(polyLine), "b0,0 w0");
    EXPECT_EQ(polyLine.LineDesc->LineEnd, "ROUND");
    EXPECT_EQ(polyLine.GetDrawType(), 20);
}

TEST(PolyLine, InitMakesAMissingLineDescription)
{
    CIPC2581_PolyLine polyLine;
    delete polyLine.LineDesc;
    polyLine.LineDesc = nullptr;
    polyLine.Init();
    ASSERT_NE(polyLine.LineDesc, nullptr);
    EXPECT_EQ(polyLine.LineDesc->LineEnd, "ROUND");
}

TEST(PolyLine, DestructorToleratesAMissingLineDescription)
{
    auto polyLine = std::make_unique<CIPC2581_PolyLine>();
    delete polyLine->LineDesc;
    polyLine->LineDesc = nullptr;
    EXPECT_NO_FATAL_FAILURE(polyLine.reset());
}

TEST(PolyLine, CopiesHaveALineDescriptionOfTheirOwn)
{
    CIPC2581_PolyLine source;
    Fill(source);
    source.LineDesc->SetShape(4);
    const CIPC2581_PolyLine copy(source);
    const std::unique_ptr<CIPC2581_PolyLine> clone(source.clone());
    CIPC2581_PolyLine target;
    const CIPC2581_LineDesc * owned = target.LineDesc;
    target = source;
    EXPECT_EQ(target.LineDesc, owned);
    source.Init();
    for (const CIPC2581_PolyLine * made : {&copy, static_cast<const CIPC2581_PolyLine *>(clone.get()),
                                           static_cast<const CIPC2581_PolyLine *>(&target)}) {
        EXPECT_EQ(Short(*made), "b1,2 s3,4 c5,6 w9");
        EXPECT_EQ(made->LineDesc->LineEnd, "SQUARE");
        EXPECT_EQ(made->LineDesc->GetShape(), 4);
    }
}

// Unlike the other geometry shapes.
TEST(PolyLine, CopyingTakesTheTypeAlong)
{
    CIPC2581_PolyLine source;
    source.SetDrawType(5);
    EXPECT_EQ(CIPC2581_PolyLine(source).GetDrawType(), 5);
    const std::unique_ptr<CIPC2581_PolyLine> clone(source.clone());
    EXPECT_EQ(clone->GetDrawType(), 5);
    CIPC2581_PolyLine target;
    target = source;
    EXPECT_EQ(target.GetDrawType(), 5);
}

TEST(PolyLine, OrderOfReplacedOperations)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_PolyLine::*)(CStdioFile &)>(&CIPC2581_PolyLine::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_PolyLine::Export), 6U);
}

}  // namespace
