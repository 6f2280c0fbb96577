#include "ipc2581/draw/Arc.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
// Start, end and centre.
using Coordinates = std::array<double, 6>;

Coordinates Of(const CIPC2581_Arc & arc)
{
    return {arc.StartPoint->GetPoint_X(), arc.StartPoint->GetPoint_Y(),  arc.EndPoint->GetPoint_X(),
            arc.EndPoint->GetPoint_Y(),   arc.CenterPoint->GetPoint_X(), arc.CenterPoint->GetPoint_Y()};
}

// From 1, 2 to 3, 4 around 5, 6, clockwise, with a square end and the width 0.5.
class Arc : public testing::Test {
public:
    Arc()
    {
        CIPC2581_Point point;
        point.GetPoint()->SetData(1, 2);
        arc.SetStartPoint(&point);
        point.GetPoint()->SetData(3, 4);
        arc.SetEndPoint(&point);
        point.GetPoint()->SetData(5, 6);
        arc.SetCenterPoint(&point);
        arc.SetClockwise(1);
        CIPC2581_LineDesc desc;
        desc.LineEnd = "SQUARE";
        desc.SetLineWidth(0.5);
        desc.SetShape(7);
        arc.SetLineDesc(&desc);
    }

    static void ExpectSampleDesc(const CIPC2581_Arc & made)
    {
        EXPECT_EQ(made.LineDesc->LineEnd, "SQUARE");
        EXPECT_EQ(made.LineDesc->LineWidth, 0.5);
        EXPECT_EQ(made.LineDesc->Shape, 7);
    }

    static void ExpectNew(const CIPC2581_Arc & made)
    {
        EXPECT_EQ(made.GetDrawType(), 17);
        EXPECT_EQ(Of(made), Coordinates{});
        EXPECT_EQ(made.Clockwise, 0);
        EXPECT_EQ(made.LineDesc->LineEnd, "ROUND");
        EXPECT_EQ(made.LineDesc->LineWidth, 0.0);
        EXPECT_EQ(made.LineDesc->Shape, 0);
    }

    CIPC2581_Arc arc;
};

TEST_F(Arc, StartsAtZeroCounterClockwise)
{
    ExpectNew(CIPC2581_Arc());
}

TEST_F(Arc, FieldsStandInTheirOrder)
{
    const std::vector<const void *> fields{&arc.DrawType,    &arc.StartPoint, &arc.EndPoint,
                                           &arc.CenterPoint, &arc.Clockwise,  &arc.LineDesc};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST_F(Arc, SettersCopyAndGettersGiveTheOwnedObjects)
{
    EXPECT_EQ(Of(arc), (Coordinates{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(arc.GetStartPoint(), arc.StartPoint);
    EXPECT_EQ(arc.GetEndPoint(), arc.EndPoint);
    EXPECT_EQ(arc.GetCenterPoint(), arc.CenterPoint);
    EXPECT_EQ(arc.GetLineDesc(), arc.LineDesc);
    ExpectSampleDesc(arc);
}

TEST_F(Arc, DirectionIsStoredAsItIs)
{
    for (const int clockwise : {0, 1, 2, -1}) {
        arc.SetClockwise(clockwise);
        EXPECT_EQ(arc.Clockwise, clockwise);
        EXPECT_EQ(arc.GetClockwise(), clockwise);
    }
}

TEST_F(Arc, InitResetsInPlace)
{
    const std::vector<const void *> parts{arc.StartPoint, arc.EndPoint, arc.CenterPoint, arc.LineDesc};
    arc.SetDrawType(5);
    arc.Init();
    ExpectNew(arc);
    EXPECT_EQ(parts, (std::vector<const void *>{arc.StartPoint, arc.EndPoint, arc.CenterPoint, arc.LineDesc}));
}

TEST_F(Arc, InitMakesMissingParts)
{
    for (CIPC2581_Point ** part : {&arc.StartPoint, &arc.EndPoint, &arc.CenterPoint}) {
        delete *part;
        *part = nullptr;
    }
    delete arc.LineDesc;
    arc.LineDesc = nullptr;
    arc.Init();
    for (CIPC2581_Point * part : {arc.StartPoint, arc.EndPoint, arc.CenterPoint}) {
        ASSERT_NE(part, nullptr);
    }
    ASSERT_NE(arc.LineDesc, nullptr);
    ExpectNew(arc);
}

TEST_F(Arc, DestructorToleratesMissingParts)
{
    auto made = std::make_unique<CIPC2581_Arc>();
    for (CIPC2581_Point ** part : {&made->StartPoint, &made->EndPoint, &made->CenterPoint}) {
        delete *part;
        *part = nullptr;
    }
    delete made->LineDesc;
    made->LineDesc = nullptr;
    EXPECT_NO_FATAL_FAILURE(made.reset());
}

// Hosts rely on it that an arc's points do not travel with a copy.
TEST_F(Arc, CopiesTakeDirectionAndDescriptionAndNoPoints)
{
    const CIPC2581_Arc copy(arc);
    const std::unique_ptr<CIPC2581_Arc> clone(arc.clone());
    arc.LineDesc->SetShape(8);
    for (const CIPC2581_Arc * made : {&copy, static_cast<const CIPC2581_Arc *>(clone.get())}) {
        EXPECT_EQ(Of(*made), Coordinates{});
        EXPECT_EQ(made->Clockwise, 1);
        ExpectSampleDesc(*made);
    }
}

TEST_F(Arc, AssignmentLeavesThePointsOfTheTarget)
{
    CIPC2581_Arc target;
    target.StartPoint->GetPoint()->SetData(10, 11);
    target.EndPoint->GetPoint()->SetData(12, 13);
    target.CenterPoint->GetPoint()->SetData(14, 15);
    EXPECT_EQ(&(target = arc), &target);
    EXPECT_EQ(Of(target), (Coordinates{10, 11, 12, 13, 14, 15}));
    EXPECT_EQ(target.Clockwise, 1);
    ExpectSampleDesc(target);
    EXPECT_EQ(Of(arc), (Coordinates{1, 2, 3, 4, 5, 6}));
}

TEST_F(Arc, CopyingLeavesTheType)
{
    arc.SetDrawType(5);
    EXPECT_EQ(CIPC2581_Arc(arc).GetDrawType(), 17);
    const std::unique_ptr<CIPC2581_Arc> clone(arc.clone());
    EXPECT_EQ(clone->GetDrawType(), 17);
    CIPC2581_Arc target;
    target.SetDrawType(6);
    target = arc;
    EXPECT_EQ(target.GetDrawType(), 6);
}

TEST_F(Arc, AssignmentToItselfDoesNothing)
{
    const CIPC2581_Arc & same = arc;
    arc = same;
    EXPECT_EQ(Of(arc), (Coordinates{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(arc.Clockwise, 1);
    ExpectSampleDesc(arc);
}

TEST_F(Arc, AssignmentThroughTheBaseLeavesTheParts)
{
    CIPC2581_Arc source;
    source.SetDrawType(5);
    CIPC2581_DrawObj & base = arc;
    base = source;
    EXPECT_EQ(arc.GetDrawType(), 5);
    EXPECT_EQ(arc.Clockwise, 1);
    ExpectSampleDesc(arc);
}

// The x of end and centre is never read: both of their attributes go to the y, and the later one wins.
TEST_F(Arc, ReadsCoordinates)
{
    const struct {
        const char * line;
        Coordinates points;
    } cases[] = {
        {R"(<Arc startX="1.5" startY="-2" >)", {1.5, -2, 0, 0, 0, 0}},
        {R"(<Arc endX="5" endY="7">)", {0, 0, 0, 7, 0, 0}},
        {R"(<Arc endY="7" endX="5">)", {0, 0, 0, 5, 0, 0}},
        {R"(<Arc endX="5">)", {0, 0, 0, 5, 0, 0}},
        {R"(<Arc centerX="5" centerY="7"/>)", {0, 0, 0, 0, 0, 7}},
        {R"(<Arc centerY="7" centerX="5"/>)", {0, 0, 0, 0, 0, 5}},
        {R"(<Arc centerX="5"/>)", {0, 0, 0, 0, 0, 5}},
        {R"(   <Arc startX="1" startY="2" endX="3" endY="4" centerX="5" centerY="6">)", {1, 2, 0, 4, 0, 6}},
        {R"(<Arc startX="1" startX="2">)", {2, 0, 0, 0, 0, 0}},
        {R"(<Arc startX="one" startY="2mm">)", {0, 2, 0, 0, 0, 0}},
        {R"(<Arc startX="1/2" startY="1e2">)", {12, 100, 0, 0, 0, 0}},
        {R"(<Arc restartX="1" bendY="2" epicenterY="3">)", {1, 0, 0, 2, 0, 3}},
        {R"(<Arc startx="1" x="2" y="3" start="4">)", {0, 0, 0, 0, 0, 0}},
        {R"(<Arc startX="1 2" startY="3">)", {1, 3, 0, 0, 0, 0}},
        {R"(<Arc startX=1 startY="3">)", {1, 0, 0, 0, 0, 0}},
        {R"(<ArcstartX="1">)", {1, 0, 0, 0, 0, 0}},
        {R"(<startX="1"Arc startY="2">)", {1, 2, 0, 0, 0, 0}},
        {R"(<arc startX="1">)", {0, 0, 0, 0, 0, 0}},
        {R"(<Any Arc startX="1">)", {0, 0, 0, 0, 0, 0}},
        {R"(<MyArcs startX="1">)", {1, 0, 0, 0, 0, 0}},
    };
    for (const auto & row : cases) {
        SCOPED_TRACE(row.line);
        CIPC2581_Arc read;
        Lines file{row.line};
        EXPECT_EQ(read.Import(file.File()), 1);
        EXPECT_EQ(Of(read), row.points);
    }
}

TEST_F(Arc, AttributesAreTestedInTheirOrder)
{
    const struct {
        const char * line;
        Coordinates points;
    } cases[] = {
        {R"(<Arc startY="8"startX="9">)", {8, 0, 0, 0, 0, 0}},
        {R"(<Arc endX="8"startY="9">)", {0, 8, 0, 0, 0, 0}},
        {R"(<Arc endY="8"endX="9">)", {0, 0, 0, 8, 0, 0}},
        {R"(<Arc centerX="8"endX="9">)", {0, 0, 0, 8, 0, 0}},
        {R"(<Arc centerX="8"endY="9">)", {0, 0, 0, 8, 0, 0}},
        {R"(<Arc centerY="8"centerX="9">)", {0, 0, 0, 0, 0, 8}},
        {R"(<Arc clockwise="8"centerY="9">)", {0, 0, 0, 0, 0, 8}},
    };
    for (const auto & row : cases) {
        SCOPED_TRACE(row.line);
        CIPC2581_Arc read;
        read.SetClockwise(1);
        Lines file{row.line};
        read.Import(file.File());
        EXPECT_EQ(Of(read), row.points);
        EXPECT_EQ(read.Clockwise, 1);
    }
}

// Only the control character with the code 1 counts as clockwise.
TEST_F(Arc, ReadsItsDirection)
{
    const struct {
        const char * line;
        int clockwise;
    } cases[] = {
        {"<Arc clockwise=\"\x01\">", 1},
        {"<Arc clockwise=\"\x01\x01\">", 0},
        {"<Arc clockwise=\"\x02\">", 0},
        {R"(<Arc clockwise="1">)", 0},
        {R"(<Arc clockwise="TRUE">)", 0},
        {R"(<Arc clockwise="FALSE">)", 0},
        {R"(<Arc clockwise="true">)", 0},
        {R"(<Arc clockwise="">)", 0},
        {"<Arc clockwise=\" \x01\">", 0},
        {"<Arc anticlockwise=\"\x01\">", 1},
        {"<Arc>", 7},
        {R"(<Arc Clockwise="TRUE">)", 7},
        {"<Arc clockwise=\"/\x01/\" />", 1},
    };
    for (const auto & row : cases) {
        CIPC2581_Arc read;
        read.SetClockwise(7);
        Lines file{row.line};
        EXPECT_EQ(read.Import(file.File()), 1);
        EXPECT_EQ(read.Clockwise, row.clockwise) << row.line;
    }
}

TEST_F(Arc, DirectionIsTakenOnce)
{
    CIPC2581_Arc read;
    read.SetClockwise(1);
    Lines file{R"(<Arc clockwise="two words" startX="3">)"};
    EXPECT_EQ(read.Import(file.File()), 1);
    EXPECT_EQ(read.Clockwise, 0);
    EXPECT_EQ(Of(read), (Coordinates{3, 0, 0, 0, 0, 0}));
}

TEST_F(Arc, ValueThatIsNotClosedRaisesBehindWhatStandsBefore)
{
    for (const char * line : {R"(<Arc startX="9" startY="open >)", R"(<Arc startX="9" clockwise=TRUE >)",
                              R"(<Arc startX="9" centerX="open)"}) {
        CIPC2581_Arc read;
        Lines file{line};
        EXPECT_THROW(read.Import(file.File()), CInvalidArgException) << line;
        EXPECT_EQ(Of(read), (Coordinates{9, 0, 0, 0, 0, 0}));
    }
}

TEST_F(Arc, OwnClosingLineDoesNotEndIt)
{
    Lines file{R"(<Arc startX="9">)", "</Arc>",  R"(<LineDesc lineWidth="3" />)",
               R"(<Arc startY="8">)", "</Line>", "behind"};
    EXPECT_EQ(arc.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(Of(arc), (Coordinates{9, 8, 3, 4, 5, 6}));
    EXPECT_EQ(arc.LineDesc->LineWidth, 3.0);
}

TEST_F(Arc, TestsHaveTheirOrder)
{
    Lines file{R"(<LineDescArc lineWidth="3" startX="9">)", R"(</LineArc startY="8">)",
               R"(</Line/LineDesc lineWidth="4">)", "</Line>", "behind"};
    EXPECT_EQ(arc.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(Of(arc), (Coordinates{9, 8, 3, 4, 5, 6}));
    EXPECT_EQ(arc.LineDesc->LineWidth, 4.0);
}

TEST_F(Arc, CoordinatesStandOnNoOtherLine)
{
    Lines file{R"(<LineDesc startX="9" endY="9" clockwise="FALSE" />)", R"(<Line startX="9">)", "</Line>"};
    EXPECT_EQ(arc.Import(file.File()), 1);
    EXPECT_EQ(Of(arc), (Coordinates{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(arc.Clockwise, 1);
}

TEST_F(Arc, KeepsWhatWasReadBeforeABlankLine)
{
    Lines file{R"(<Arc startX="9">)", " "};
    EXPECT_THROW(arc.Import(file.File()), CInvalidArgException);
    EXPECT_EQ(Of(arc), (Coordinates{9, 2, 3, 4, 5, 6}));
}

TEST_F(Arc, IsWrittenWithItsDescription)
{
    const std::string opening = Below(R"(
<Arc startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000" centerX="5.000000" centerY="6.000000" clockwise="TRUE">
)");
    EXPECT_EQ(Exported(arc).result, 1);
    EXPECT_EQ(Written(arc, 0),
              "   " + opening + Joined({R"(      <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />)", "   </Arc>"}));
    EXPECT_EQ(Written(arc, 2),
              "         " + opening +
                  Joined({R"(            <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />)", "         </Arc>"}));
}

TEST_F(Arc, AnyDirectionButOneIsWrittenAsFalse)
{
    for (const int clockwise : {0, 2, -1}) {
        CIPC2581_Arc made;
        made.SetClockwise(clockwise);
        EXPECT_EQ(Written(made, -1), Below(R"(
<Arc startX="0.000000" startY="0.000000" endX="0.000000" endY="0.000000" centerX="0.000000" centerY="0.000000" clockwise="FALSE">
   <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
</Arc>
)"));
    }
}

TEST_F(Arc, WrittenDirectionIsLostWhenItIsRead)
{
    Lines file(Written(arc));
    CIPC2581_Arc read;
    read.SetClockwise(1);
    EXPECT_EQ(read.Import(file.File()), 1);
    EXPECT_EQ(read.Clockwise, 0);
    EXPECT_EQ(Of(read), (Coordinates{1, 2, 0, 4, 0, 6}));
    EXPECT_EQ(read.LineDesc->LineEnd, "SQUARE");
}

class OddLineDesc : public CIPC2581_LineDesc {
public:
    explicit OddLineDesc(int result) : m_result(result) {}
    int Export(CStdioFile & /*file*/, int /*level*/) override { return m_result; }

private:
    int m_result;
};

TEST_F(Arc, WritesNoClosingLineWhereItsDescriptionFails)
{
    const std::string opening = Below(R"(
   <Arc startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000" centerX="5.000000" centerY="6.000000" clockwise="TRUE">
)");
    for (const int result : {0, 1, -1}) {
        delete arc.LineDesc;
        arc.LineDesc = new OddLineDesc(result);
        const auto written = Exported(arc);
        EXPECT_EQ(written.result, result == 0 ? 0 : 1);
        EXPECT_EQ(written.text, result == 0 ? opening : opening + "   </Arc>\n");
    }
}

TEST_F(Arc, OrderOfReplacedOperations)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_Arc::*)(CStdioFile &)>(&CIPC2581_Arc::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Arc::Export), 6U);
}

}  // namespace
