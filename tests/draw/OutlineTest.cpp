#include "ipc2581/draw/Outline.h"

#include <algorithm>
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

void AddSegment(CIPC2581_Outline & outline, const char * line = R"(<PolyStepSegment x="3" y="4" />)")
{
    Tokens tokens(line);
    outline.Polygon->SegmentAdd(tokens);
}

std::size_t Steps(const CIPC2581_Outline & outline)
{
    return static_cast<std::size_t>(outline.Polygon->PolyStepArray->GetSize());
}

// A polygon from 1, 2 to 3, 4 with a square end and the width 9.
class Outline : public testing::Test {
public:
    Outline()
    {
        outline.Polygon->PolyBegin->GetPoint()->SetData(1, 2);
        AddSegment(outline);
        outline.LineDesc->LineEnd = "SQUARE";
        outline.LineDesc->SetLineWidth(9);
        outline.LineDesc->SetShape(4);
    }

    static void ExpectSample(const CIPC2581_Outline & made)
    {
        EXPECT_EQ(made.Polygon->PolyBegin->GetPoint_X(), 1.0);
        EXPECT_EQ(made.Polygon->PolyBegin->GetPoint_Y(), 2.0);
        ASSERT_EQ(Steps(made), 1U);
        EXPECT_EQ(made.Polygon->PolyStepArray->GetAt(0)->GetEndPoint()->GetPoint_X(), 3.0);
        EXPECT_EQ(made.LineDesc->LineEnd, "SQUARE");
        EXPECT_EQ(made.LineDesc->LineWidth, 9.0);
        EXPECT_EQ(made.LineDesc->Shape, 4);
    }

    static void ExpectNew(const CIPC2581_Outline & made)
    {
        EXPECT_EQ(made.GetDrawType(), 19);
        EXPECT_EQ(made.Polygon->GetDrawType(), 22);
        EXPECT_EQ(made.Polygon->PolyBegin->GetPoint_X(), 0.0);
        EXPECT_EQ(made.Polygon->PolyBegin->GetPoint_Y(), 0.0);
        EXPECT_EQ(Steps(made), 0U);
        EXPECT_EQ(made.LineDesc->LineEnd, "ROUND");
        EXPECT_EQ(made.LineDesc->LineWidth, 0.0);
        EXPECT_EQ(made.LineDesc->Shape, 0);
    }

    CIPC2581_Outline outline;
};

TEST_F(Outline, StartsEmpty)
{
    ExpectNew(CIPC2581_Outline());
}

TEST_F(Outline, FieldsStandInTheirOrder)
{
    const std::vector<const void *> fields{&outline.DrawType, &outline.Polygon, &outline.LineDesc};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST_F(Outline, GettersGiveTheOwnedObjectsAndSettersCopy)
{
    CIPC2581_Outline target;
    const CIPC2581_Polygon * polygon = target.Polygon;
    const CIPC2581_LineDesc * lineDesc = target.LineDesc;
    target.SetPolygon(outline.GetPolygon());
    target.SetLineDesc(outline.GetLineDesc());
    outline.InIt();
    EXPECT_EQ(target.GetPolygon(), polygon);
    EXPECT_EQ(target.GetLineDesc(), lineDesc);
    ExpectSample(target);
}

TEST_F(Outline, InItResetsInPlace)
{
    const CIPC2581_Polygon * polygon = outline.Polygon;
    const CIPC2581_PolyStepArray * steps = outline.Polygon->PolyStepArray;
    const CIPC2581_LineDesc * lineDesc = outline.LineDesc;
    outline.SetDrawType(5);
    outline.Polygon->SetDrawType(5);
    outline.InIt();
    ExpectNew(outline);
    EXPECT_EQ(outline.Polygon, polygon);
    EXPECT_EQ(outline.Polygon->PolyStepArray, steps);
    EXPECT_EQ(outline.LineDesc, lineDesc);
}

// The shape inherits an Init beside its own InIt.
TEST_F(Outline, InitOfTheBaseChangesTheTypeAlone)
{
    outline.Init();
    EXPECT_EQ(outline.GetDrawType(), 17);
    ExpectSample(outline);
}

TEST_F(Outline, InItMakesMissingParts)
{
    delete outline.Polygon;
    delete outline.LineDesc;
    outline.Polygon = nullptr;
    outline.LineDesc = nullptr;
    outline.InIt();
    ASSERT_NE(outline.Polygon, nullptr);
    ASSERT_NE(outline.LineDesc, nullptr);
    ExpectNew(outline);
}

TEST_F(Outline, DestructorToleratesMissingParts)
{
    auto made = std::make_unique<CIPC2581_Outline>();
    delete made->Polygon;
    delete made->LineDesc;
    made->Polygon = nullptr;
    made->LineDesc = nullptr;
    EXPECT_NO_FATAL_FAILURE(made.reset());
}

TEST_F(Outline, CopiesAreDeep)
{
    const CIPC2581_Outline copy(outline);
    const std::unique_ptr<CIPC2581_Outline> clone(outline.clone());
    CIPC2581_Outline target;
    AddSegment(target);
    AddSegment(target);
    const CIPC2581_Polygon * polygon = target.Polygon;
    EXPECT_EQ(&(target = outline), &target);
    EXPECT_EQ(target.Polygon, polygon);
    outline.InIt();
    ExpectSample(copy);
    ExpectSample(*clone);
    ExpectSample(target);
}

TEST_F(Outline, CopyingLeavesTheTypes)
{
    outline.SetDrawType(5);
    outline.Polygon->SetDrawType(5);
    const CIPC2581_Outline copy(outline);
    const std::unique_ptr<CIPC2581_Outline> clone(outline.clone());
    CIPC2581_Outline target;
    target.SetDrawType(6);
    target = outline;
    EXPECT_EQ(copy.GetDrawType(), 19);
    EXPECT_EQ(clone->GetDrawType(), 19);
    EXPECT_EQ(target.GetDrawType(), 6);
    EXPECT_EQ(copy.Polygon->GetDrawType(), 22);
}

TEST_F(Outline, AssignmentToItselfDoesNothing)
{
    const CIPC2581_PolyStep * step = outline.Polygon->PolyStepArray->GetAt(0);
    const CIPC2581_Outline & same = outline;
    outline = same;
    ExpectSample(outline);
    EXPECT_EQ(outline.Polygon->PolyStepArray->GetAt(0), step);
}

TEST_F(Outline, AssignmentThroughTheBaseLeavesTheParts)
{
    CIPC2581_Outline source;
    source.SetDrawType(5);
    CIPC2581_DrawObj & base = outline;
    base = source;
    EXPECT_EQ(outline.GetDrawType(), 5);
    ExpectSample(outline);
}

TEST_F(Outline, ReadsPolygonAndLineDescriptionInEitherOrder)
{
    const std::vector<std::string_view> polygon{"<Polygon>", R"(<PolyBegin x="1" y="2" />)",
                                                R"(<PolyStepSegment x="3" y="4" />)", "</Polygon>"};
    const std::string_view lineDesc = R"(<LineDesc lineEnd="SQUARE" lineWidth="9" />)";
    Lines before{lineDesc, polygon[0], polygon[1], polygon[2], polygon[3], "</Outline>", "behind"};
    Lines behind{polygon[0], polygon[1], polygon[2], polygon[3], lineDesc, "</Outline>", "behind"};
    for (Lines * file : {&before, &behind}) {
        CIPC2581_Outline read;
        read.LineDesc->SetShape(4);
        EXPECT_EQ(read.Import(file->File()), 1);
        EXPECT_EQ(file->Rest(), Texts{"behind"});
        ExpectSample(read);
    }
}

TEST_F(Outline, SecondPolygonAddsItsStepsAndReplacesTheBeginPoint)
{
    Lines file{"<Polygon>",
               R"(<PolyBegin x="7" y="8" />)",
               R"(<PolyStepSegment x="5" />)",
               "</Polygon>",
               "<Polygon >",
               R"(<PolyStepSegment x="6" />)",
               "</Polygon>",
               "</Outline>"};
    EXPECT_EQ(outline.Import(file.File()), 1);
    EXPECT_EQ(Steps(outline), 3U);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_X(), 7.0);
    EXPECT_EQ(outline.Polygon->PolyStepArray->GetAt(2)->GetEndPoint()->GetPoint_X(), 6.0);
}

// A closing line of a polygon, and one that closes itself, start the reading of one as well.
TEST_F(Outline, AnyLineWithPolygonStartsOne)
{
    for (const char * line : {"</Polygon>", "<Polygon/>", "<Polygon />", "   <MyPolygons >", "</LineDescPolygon>",
                              "<Polygon></Outline>", "</OutlinePolygon >"}) {
        CIPC2581_Outline read;
        Lines file{
            line,         "</Outline>", R"(<LineDesc lineWidth="3">)", R"(<PolyStepSegment x="5" />)", "</Polygon>",
            "</Outline>", "behind"};
        EXPECT_EQ(read.Import(file.File()), 1) << line;
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << line;
        EXPECT_EQ(Steps(read), 1U) << line;
        EXPECT_EQ(read.LineDesc->LineWidth, 0.0) << line;
    }
}

TEST_F(Outline, LineDescriptionIsTestedFirst)
{
    Lines file{R"(<PolygonLineDesc lineWidth="3">)", R"(<LineDescPolygon lineEnd="A">)", "</Outline>", "behind"};
    EXPECT_EQ(outline.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(outline.LineDesc->LineWidth, 3.0);
    EXPECT_EQ(outline.LineDesc->LineEnd, "A");
}

// A slash in the first token keeps a line from being a description.
TEST_F(Outline, DescriptionWithASlashInItsFirstTokenIsPassedOver)
{
    for (const char * line : {"</LineDesc>", "<LineDesc/>", R"(<LineDesclineWidth="3"/>)",
                              R"(</LineDesc lineWidth="3">)", R"(<LineDesc/ lineWidth="3">)"}) {
        Lines file{line, "</Outline>", "behind"};
        EXPECT_EQ(outline.Import(file.File()), 1);
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << line;
        ExpectSample(outline);
    }
}

TEST_F(Outline, DescriptionWithASlashGoesToTheLaterTests)
{
    Lines file{R"(</LineDesc/Outline lineWidth="3">)", "behind"};
    EXPECT_EQ(outline.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    ExpectSample(outline);
}

TEST_F(Outline, StepsOutsideAPolygonArePassedOver)
{
    Lines file{"<Outline>",
               R"(<PolyBegin x="8" y="9" />)",
               R"(<PolyStepSegment x="5" />)",
               "<polygon>",
               "</outline>",
               "<Any Polygon>",
               "</Outline>",
               "behind"};
    EXPECT_EQ(outline.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    ExpectSample(outline);
}

TEST_F(Outline, KeepsWhatWasReadAtTheEndOfFile)
{
    const Texts lines{"<LineDesc lineWidth=\"3\" />\n", "<Polygon>\n", "<PolyBegin x=\"1\" />\n",
                      "<PolyStepSegment x=\"3\" y=\"4\" />\n", "</Polygon>\n"};
    std::string bytes;
    for (std::size_t count = 0; count <= lines.size(); ++count) {
        CIPC2581_Outline read;
        Lines file(bytes);
        EXPECT_EQ(read.Import(file.File()), 1);
        EXPECT_EQ(read.LineDesc->LineWidth, count > 0 ? 3.0 : 0.0);
        EXPECT_EQ(read.Polygon->PolyBegin->GetPoint_X(), count > 2 ? 1.0 : 0.0);
        EXPECT_EQ(Steps(read), count > 3 ? 1U : 0U);
        bytes += count < lines.size() ? lines[count] : "";
    }
}

TEST_F(Outline, KeepsWhatWasReadBeforeALineThatRaises)
{
    Lines outside{R"(<LineDesc lineWidth="3" />)", " ", "behind"};
    EXPECT_THROW(outline.Import(outside.File()), CInvalidArgException);
    EXPECT_EQ(outside.Rest(), Texts{"behind"});
    EXPECT_EQ(outline.LineDesc->LineWidth, 3.0);
    Lines inside{"<Polygon>", R"(<PolyStepSegment x="5" />)", R"(<PolyStepCurve x="open)", "behind"};
    EXPECT_THROW(outline.Import(inside.File()), CInvalidArgException);
    EXPECT_EQ(inside.Rest(), Texts{"behind"});
    EXPECT_EQ(Steps(outline), 2U);
}

// Notes which of its operations were called through the outline.
class Noting : public CIPC2581_Polygon {
public:
    using CIPC2581_Polygon::Import;
    int Import(CStdioFile & /*file*/) override
    {
        calls += 'i';
        return 0;
    }
    using CIPC2581_Polygon::operator=;
    CIPC2581_Polygon & operator=(const CIPC2581_Polygon & other) override
    {
        calls += '=';
        return CIPC2581_Polygon::operator=(other);
    }
    int Export(CStdioFile & file, int level) override
    {
        calls += 'e';
        CString text;
        text.Format("%d\n", level);
        file.WriteString(text);
        return 0;
    }

    std::string calls;
};

class RefusingLineDesc : public CIPC2581_LineDesc {
public:
    int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }
};

TEST_F(Outline, PolygonIsReachedByItsVirtualOperations)
{
    CIPC2581_Outline target;
    delete target.Polygon;
    auto * noting = new Noting;
    target.Polygon = noting;
    target = outline;
    EXPECT_EQ(noting->calls, "=");
    ExpectSample(target);
    Lines file{"<Polygon>", "</Outline>", "behind"};
    EXPECT_EQ(target.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(noting->calls, "=i");
}

TEST_F(Outline, IsWrittenPolygonFirst)
{
    EXPECT_EQ(Exported(outline).result, 1);
    EXPECT_EQ(Written(outline, 0), Below(R"(
   <Outline>
      <Polygon>
         <PolyBegin x="1.000000" y="2.000000" />
         <PolyStepSegment x="3.000000" y="4.000000" />
      </Polygon>
      <LineDesc lineEnd="SQUARE" lineWidth="9.000000" />
   </Outline>
)"));
    EXPECT_EQ(Written(outline, 2), Below(R"(
         <Outline>
            <Polygon>
               <PolyBegin x="1.000000" y="2.000000" />
               <PolyStepSegment x="3.000000" y="4.000000" />
            </Polygon>
            <LineDesc lineEnd="SQUARE" lineWidth="9.000000" />
         </Outline>
)"));
}

TEST_F(Outline, IsNotWrittenWithoutSteps)
{
    outline.Polygon->PolyStepArray->DeleteAll();
    const auto written = Exported(outline, 2);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "");
    CIPC2581_Outline made;
    EXPECT_EQ(Exported(made).result, 1);
    EXPECT_EQ(Written(made), "");
}

TEST_F(Outline, OneSegmentIsEnoughToBeWritten)
{
    CIPC2581_Outline made;
    AddSegment(made, "<PolyStepSegment>");
    EXPECT_EQ(Written(made, -1), Below(R"(
<Outline>
   <Polygon>
      <PolyBegin x="0.000000" y="0.000000" />
      <PolyStepSegment x="0.000000" y="0.000000" />
   </Polygon>
   <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
</Outline>
)"));
}

TEST_F(Outline, FailuresOfItsChildrenAreNotLookedAt)
{
    delete outline.Polygon;
    outline.Polygon = new Noting;
    AddSegment(outline);
    delete outline.LineDesc;
    outline.LineDesc = new RefusingLineDesc;
    const auto written = Exported(outline);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "   <Outline>\n1\n   </Outline>\n");
}

TEST_F(Outline, OrderOfReplacedOperations)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_Outline::*)(CStdioFile &)>(&CIPC2581_Outline::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Outline::Export), 6U);
}

}  // namespace
