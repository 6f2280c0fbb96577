#include "ipc2581/draw/Line.h"

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
using Coordinates = std::array<double, 4>;

Coordinates Of(const CIPC2581_Line & line)
{
    return {line.StartPoint->GetPoint_X(), line.StartPoint->GetPoint_Y(), line.EndPoint->GetPoint_X(),
            line.EndPoint->GetPoint_Y()};
}

// From 1, 2 to 3, 4 with a square end and the width 0.5.
class Line : public testing::Test {
public:
    Line()
    {
        CIPC2581_LineDesc desc;
        desc.LineEnd = "SQUARE";
        desc.SetLineWidth(0.5);
        desc.SetShape(7);
        line.SetData(1, 2, 3, 4, &desc);
    }

    static void ExpectSample(const CIPC2581_Line & made)
    {
        EXPECT_EQ(Of(made), (Coordinates{1, 2, 3, 4}));
        EXPECT_EQ(made.LineDesc->LineEnd, "SQUARE");
        EXPECT_EQ(made.LineDesc->LineWidth, 0.5);
        EXPECT_EQ(made.LineDesc->Shape, 7);
    }

    static void ExpectNew(const CIPC2581_Line & made)
    {
        EXPECT_EQ(made.GetDrawType(), 18);
        EXPECT_EQ(Of(made), Coordinates{});
        EXPECT_EQ(made.LineDesc->LineEnd, "ROUND");
        EXPECT_EQ(made.LineDesc->LineWidth, 0.0);
        EXPECT_EQ(made.LineDesc->Shape, 0);
    }

    CIPC2581_Line line;
};

TEST_F(Line, StartsAtZeroWithPartsOfItsOwn)
{
    const CIPC2581_Line made;
    ExpectNew(made);
    EXPECT_NE(made.StartPoint, made.EndPoint);
}

TEST_F(Line, FieldsStandInTheirOrder)
{
    const std::vector<const void *> fields{&line.DrawType, &line.StartPoint, &line.EndPoint, &line.LineDesc};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST_F(Line, SetDataCopiesIntoItsParts)
{
    ExpectSample(line);
    EXPECT_EQ(line.GetDrawType(), 18);
}

TEST_F(Line, GettersGiveTheOwnedObjects)
{
    EXPECT_EQ(line.GetStartPoint(), line.StartPoint);
    EXPECT_EQ(line.GetEndPoint(), line.EndPoint);
    EXPECT_EQ(line.GetLineDesc(), line.LineDesc);
}

TEST_F(Line, SettersCopy)
{
    const CIPC2581_Point * start = line.StartPoint;
    const CIPC2581_Point * end = line.EndPoint;
    {
        CIPC2581_Point point;
        point.GetPoint()->SetData(8, 9);
        line.SetStartPoint(&point);
        point.GetPoint()->SetData(6, 7);
        line.SetEndPoint(&point);
    }
    EXPECT_EQ(Of(line), (Coordinates{8, 9, 6, 7}));
    EXPECT_EQ(line.StartPoint, start);
    EXPECT_EQ(line.EndPoint, end);
}

TEST_F(Line, InitResetsInPlace)
{
    const CIPC2581_Point * start = line.StartPoint;
    const CIPC2581_Point * end = line.EndPoint;
    const CIPC2581_LineDesc * desc = line.LineDesc;
    line.SetDrawType(5);
    line.Init();
    ExpectNew(line);
    EXPECT_EQ(line.StartPoint, start);
    EXPECT_EQ(line.EndPoint, end);
    EXPECT_EQ(line.LineDesc, desc);
}

TEST_F(Line, InitMakesMissingParts)
{
    delete line.StartPoint;
    delete line.EndPoint;
    delete line.LineDesc;
    line.StartPoint = nullptr;
    line.EndPoint = nullptr;
    line.LineDesc = nullptr;
    line.Init();
    ASSERT_NE(line.StartPoint, nullptr);
    ASSERT_NE(line.EndPoint, nullptr);
    ASSERT_NE(line.LineDesc, nullptr);
    ExpectNew(line);
}

TEST_F(Line, DestructorToleratesMissingParts)
{
    auto made = std::make_unique<CIPC2581_Line>();
    delete made->StartPoint;
    delete made->EndPoint;
    delete made->LineDesc;
    made->StartPoint = nullptr;
    made->EndPoint = nullptr;
    made->LineDesc = nullptr;
    EXPECT_NO_FATAL_FAILURE(made.reset());
}

TEST_F(Line, CopiesAreDeep)
{
    const CIPC2581_Line copy(line);
    const std::unique_ptr<CIPC2581_Line> clone(line.clone());
    CIPC2581_Line target;
    const CIPC2581_Point * start = target.StartPoint;
    EXPECT_EQ(&(target = line), &target);
    EXPECT_EQ(target.StartPoint, start);
    line.Init();
    ExpectSample(copy);
    ExpectSample(*clone);
    ExpectSample(target);
}

TEST_F(Line, CopyingLeavesTheType)
{
    line.SetDrawType(5);
    EXPECT_EQ(CIPC2581_Line(line).GetDrawType(), 18);
    const std::unique_ptr<CIPC2581_Line> clone(line.clone());
    EXPECT_EQ(clone->GetDrawType(), 18);
    CIPC2581_Line target;
    target.SetDrawType(6);
    target = line;
    EXPECT_EQ(target.GetDrawType(), 6);
}

TEST_F(Line, AssignmentToItselfDoesNothing)
{
    const CIPC2581_Line & same = line;
    line = same;
    ExpectSample(line);
}

TEST_F(Line, AssignmentThroughTheBaseLeavesTheParts)
{
    CIPC2581_Line source;
    source.SetDrawType(5);
    CIPC2581_DrawObj & base = line;
    base = source;
    EXPECT_EQ(line.GetDrawType(), 5);
    ExpectSample(line);
}

TEST_F(Line, ReadsItsLineDescription)
{
    Lines file{R"(<LineDesc lineEnd="NONE" lineWidth="0.2" />)", "</Line>", "behind"};
    EXPECT_EQ(line.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(line.LineDesc->LineEnd, "NONE");
    EXPECT_EQ(line.LineDesc->LineWidth, 0.2);
    EXPECT_EQ(line.LineDesc->Shape, 7);
}

// The caller has read the coordinates from the opening line.
TEST_F(Line, NeverReadsItsCoordinates)
{
    Lines file{R"(<Line startX="6" startY="6" endX="6" endY="6">)",
               R"(<LineDesc startX="6" startY="6" endX="6" endY="6"/>)", "</Line>"};
    EXPECT_EQ(line.Import(file.File()), 1);
    ExpectSample(line);
}

TEST_F(Line, DescriptionIsTestedBeforeTheEnd)
{
    Lines file{R"(</Line/LineDesc lineWidth="3">)", "</LineDesc>", "<LineDesc></Line>", "</Line>", "behind"};
    EXPECT_EQ(line.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(line.LineDesc->LineWidth, 3.0);
}

TEST_F(Line, NestedLinesAndOtherEndsArePassedOver)
{
    Lines file{R"(<Line x="1">)", "<Line>", "</Polyline>", "</Arc>", "</Lin>", "</Lines>", "behind"};
    EXPECT_EQ(line.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
}

TEST_F(Line, KeepsWhatWasReadBeforeABlankLineOrTheEndOfFile)
{
    Lines blank{R"(<LineDesc lineWidth="3" />)", " ", "</Line>"};
    EXPECT_THROW(line.Import(blank.File()), CInvalidArgException);
    EXPECT_EQ(line.LineDesc->LineWidth, 3.0);
    Lines cut(R"(<LineDesc lineWidth="4" />)");
    EXPECT_EQ(line.Import(cut.File()), 1);
    EXPECT_EQ(line.LineDesc->LineWidth, 4.0);
}

TEST_F(Line, IsWrittenWithItsDescription)
{
    EXPECT_EQ(Exported(line).result, 1);
    EXPECT_EQ(Written(line, 0), Below(R"(
   <Line startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000">
      <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />
   </Line>
)"));
    EXPECT_EQ(Written(line, 2), Below(R"(
         <Line startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000">
            <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />
         </Line>
)"));
}

TEST_F(Line, NewOneIsWrittenWhole)
{
    CIPC2581_Line made;
    EXPECT_EQ(Written(made, -1), Below(R"(
<Line startX="0.000000" startY="0.000000" endX="0.000000" endY="0.000000">
   <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
</Line>
)"));
}

TEST_F(Line, UnknownLineEndComesBack)
{
    Lines file{R"(<LineDesc lineEnd="POINTED" />)", "</Line>"};
    line.Import(file.File());
    EXPECT_NE(Written(line).find(R"(lineEnd="POINTED")"), std::string::npos);
}

class OddLineDesc : public CIPC2581_LineDesc {
public:
    explicit OddLineDesc(int result) : m_result(result) {}
    int Export(CStdioFile & /*file*/, int /*level*/) override { return m_result; }

private:
    int m_result;
};

TEST_F(Line, WritesNoClosingLineWhereItsDescriptionFails)
{
    const std::string opening =
        Joined({R"(   <Line startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000">)"});
    for (const int result : {0, 1, -1}) {
        delete line.LineDesc;
        line.LineDesc = new OddLineDesc(result);
        const auto written = Exported(line);
        EXPECT_EQ(written.result, result == 0 ? 0 : 1);
        EXPECT_EQ(written.text, result == 0 ? opening : opening + "   </Line>\n");
    }
}

TEST_F(Line, OrderOfReplacedOperations)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_Line::*)(CStdioFile &)>(&CIPC2581_Line::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Line::Export), 6U);
}

}  // namespace
