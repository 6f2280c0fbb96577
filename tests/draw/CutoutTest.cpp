#include "ipc2581/draw/Cutout.h"

#include <memory>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/draw/Text.h"
#include "tests/draw/Contours.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

void Fill(CIPC2581_Cutout & cutout)
{
    Lines file{R"(<PolyBegin x="1" y="2" />)", R"(   <PolyStepSegment x="3" y="4" />)",
               R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="FALSE" />)", "</Cutout>", "behind"};
    EXPECT_EQ(cutout.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
}

TEST(Cutout, ReadsBeginPointAndSteps)
{
    CIPC2581_Cutout cutout;
    Fill(cutout);
    EXPECT_EQ(ShortContour(cutout), "b1,2 s3,4 c5,6");
    EXPECT_EQ(cutout.PolyStepArray->GetAt(1)->GetCenterPoint()->GetPoint_X(), 7.0);
    EXPECT_EQ(cutout.PolyStepArray->GetAt(1)->GetCenterPoint()->GetPoint_Y(), 8.0);
    EXPECT_EQ(cutout.PolyStepArray->GetAt(1)->GetClockWise(), 1);
    Fill(cutout);
    EXPECT_EQ(ShortContour(cutout), "b1,2 s3,4 c5,6 s3,4 c5,6");
}

// A line whose first token holds two words goes to the first test that it passes.
TEST(Cutout, TestsHaveTheirOrderAndExcludeEachOther)
{
    const struct {
        const char * line;
        const char * result;
        bool ends;
    } cases[] = {
        {R"(<PolyStepSegmentPolyBegin x="1" y="2">)", "b1,2", false},
        {R"(<PolyStepCurvePolyBegin x="1" y="2">)", "b1,2", false},
        {R"(</CutoutPolyBegin x="1" y="2">)", "b1,2", false},
        {"<PolyBegin/></Cutout>", "b0,0", false},
        {R"(<PolyStepCurvePolyStepSegment x="1" y="2">)", "b0,0 s1,2", false},
        {R"(</CutoutPolyStepSegment x="1" y="2">)", "b0,0 s1,2", false},
        {R"(</CutoutPolyStepCurve x="1" y="2">)", "b0,0 c1,2", false},
        {R"(</Cutout x="1" y="2">)", "b0,0", true},
        {"<Any/CutoutAny>", "b0,0", true},
        {"</PolyStepSegment>", "b0,0 s0,0", false},
        {"</PolyStepCurve>", "b0,0 c0,0", false},
        {"</PolyBegin>", "b0,0", false},
    };
    for (const auto & row : cases) {
        CIPC2581_Cutout cutout;
        Lines file{row.line, "behind"};
        EXPECT_EQ(cutout.Import(file.File()), 1);
        EXPECT_EQ(ShortContour(cutout), row.result) << row.line;
        EXPECT_EQ(file.Rest().size(), row.ends ? 1U : 0U) << row.line;
    }
}

TEST(Cutout, OtherLinesArePassedOver)
{
    CIPC2581_Cutout cutout;
    Lines file{"<Cutout>",  "</Polygon>", "</CutOut>", R"(<LineDesc x="1">)", R"(<Any PolyBegin x="1">)",
               "</Cutout>", "behind"};
    EXPECT_EQ(cutout.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
    EXPECT_EQ(ShortContour(cutout), "b0,0");
}

TEST(Cutout, KeepsWhatWasReadAtTheEndOfFile)
{
    const Texts lines{"<PolyBegin x=\"1\" y=\"2\" />\n", "<PolyStepSegment x=\"3\" y=\"4\" />\n",
                      "<PolyStepCurve x=\"5\" y=\"6\" />\n"};
    const char * const results[] = {"b0,0", "b1,2", "b1,2 s3,4", "b1,2 s3,4 c5,6"};
    std::string bytes;
    for (std::size_t count = 0; count <= lines.size(); ++count) {
        CIPC2581_Cutout cutout;
        Lines file(bytes);
        EXPECT_EQ(cutout.Import(file.File()), 1);
        EXPECT_EQ(ShortContour(cutout), results[count]);
        bytes += count < lines.size() ? lines[count] : "";
    }
}

TEST(Cutout, KeepsWhatWasReadBeforeALineThatRaises)
{
    for (const char * line : {" ", R"(<PolyStepSegment x="open)", "<PolyStepCurve x=1", R"(<PolyBegin y="open)"}) {
        CIPC2581_Cutout cutout;
        Fill(cutout);
        Lines file{line, "behind"};
        EXPECT_THROW(cutout.Import(file.File()), CInvalidArgException) << line;
        EXPECT_EQ(ShortContour(cutout), "b1,2 s3,4 c5,6") << line;
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << line;
    }
}

TEST(Cutout, IsWrittenWithItsChildrenOneIndentDeeper)
{
    CIPC2581_Cutout cutout;
    Fill(cutout);
    EXPECT_EQ(Exported(cutout).result, 1);
    EXPECT_EQ(Written(cutout, 0), Below(R"(
   <Cutout>
      <PolyBegin x="1.000000" y="2.000000" />
      <PolyStepSegment x="3.000000" y="4.000000" />
      <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="TRUE" />
   </Cutout>
)"));
    EXPECT_EQ(Written(cutout, 2), Below(R"(
         <Cutout>
            <PolyBegin x="1.000000" y="2.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
            <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="TRUE" />
         </Cutout>
)"));
}

TEST(Cutout, IsWrittenWithoutSteps)
{
    CIPC2581_Cutout cutout;
    const auto written = Exported(cutout, -1);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, Below(R"(
<Cutout>
   <PolyBegin x="0.000000" y="0.000000" />
</Cutout>
)"));
}

TEST(Cutout, WritingStopsWhereAChildFails)
{
    CIPC2581_Cutout cutout;
    cutout.PolyStepArray->Add(new Refusing<CIPC2581_PolyStep>);
    EXPECT_EQ(Exported(cutout).result, 0);
    EXPECT_EQ(Written(cutout), Joined({"   <Cutout>", R"(      <PolyBegin x="0.000000" y="0.000000" />)"}));
    delete cutout.PolyBegin;
    cutout.PolyBegin = new Refusing<CIPC2581_Point>;
    EXPECT_EQ(Exported(cutout).result, 0);
    EXPECT_EQ(Written(cutout), "   <Cutout>\n");
}

// Unlike a polygon, which keeps its parts.
TEST(Cutout, InitReplacesItsParts)
{
    int begins = 0;
    int lists = 0;
    int steps = 0;
    CIPC2581_Cutout cutout;
    delete cutout.PolyBegin;
    cutout.PolyBegin = new Counted<CIPC2581_Point>(begins);
    delete cutout.PolyStepArray;
    cutout.PolyStepArray = new Counted<CIPC2581_PolyStepArray>(lists);
    cutout.PolyStepArray->Add(new Counted<CIPC2581_PolyStep>(steps));
    cutout.Init();
    EXPECT_EQ(begins, 1);
    EXPECT_EQ(lists, 1);
    EXPECT_EQ(steps, 1);
    EXPECT_EQ(ShortContour(cutout), "b0,0");
    EXPECT_EQ(cutout.GetDrawType(), 23);
}

TEST(Cutout, CopyingLeavesTheType)
{
    CIPC2581_Cutout source;
    source.SetDrawType(5);
    EXPECT_EQ(CIPC2581_Cutout(source).GetDrawType(), 23);
    const std::unique_ptr<CIPC2581_Cutout> clone(source.clone());
    EXPECT_EQ(clone->GetDrawType(), 23);
    CIPC2581_Cutout target;
    target.SetDrawType(6);
    target = source;
    EXPECT_EQ(target.GetDrawType(), 6);
}

TEST(Cutout, OrderOfReplacedOperations)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_Cutout::*)(CStdioFile &)>(&CIPC2581_Cutout::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Cutout::Export), 6U);
}

using List = CExPtrArray<CIPC2581_Cutout *, CIPC2581_Cutout *>;

Texts All(const CIPC2581_CutoutArray & array)
{
    Texts texts;
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        texts.push_back(ShortContour(*array.GetAt(i)));
    }
    return texts;
}

// A cutout that was filled, and an empty one.
void Fill(CIPC2581_CutoutArray & array)
{
    auto * filled = new CIPC2581_Cutout;
    array.Add(filled);
    Fill(*filled);
    array.Add(new CIPC2581_Cutout);
}

const Texts g_filled{"b1,2 s3,4 c5,6", "b0,0"};

TEST(CutoutArray, IsADrawingObjectAndAList)
{
    static_assert(std::is_base_of_v<CIPC2581_DrawObj, CIPC2581_CutoutArray>);
    static_assert(std::is_base_of_v<List, CIPC2581_CutoutArray>);
    CIPC2581_CutoutArray array;
    EXPECT_EQ(static_cast<void *>(static_cast<CIPC2581_DrawObj *>(&array)), static_cast<void *>(&array));
    EXPECT_EQ(static_cast<char *>(static_cast<void *>(static_cast<List *>(&array))),
              static_cast<char *>(static_cast<void *>(&array)) + sizeof(CIPC2581_DrawObj));
    EXPECT_EQ(sizeof(array), sizeof(CIPC2581_DrawObj) + sizeof(List));
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(CutoutArray, OwnsItsElements)
{
    int deleted = 0;
    {
        CIPC2581_CutoutArray array;
        array.Add(new Counted<CIPC2581_Cutout>(deleted));
        array.Add(new Counted<CIPC2581_Cutout>(deleted));
    }
    EXPECT_EQ(deleted, 2);
}

TEST(CutoutArray, CopiesHaveType17AndTrueCopiesOfTheCutouts)
{
    CIPC2581_CutoutArray source;
    Fill(source);
    const CIPC2581_CutoutArray copy(source);
    const std::unique_ptr<CIPC2581_CutoutArray> clone(source.clone());
    source.GetAt(0)->Init();
    source.DeleteLastElement();
    EXPECT_EQ(All(copy), g_filled);
    EXPECT_EQ(All(*clone), g_filled);
    EXPECT_EQ(copy.GetDrawType(), 17);
    EXPECT_EQ(clone->GetDrawType(), 17);
    EXPECT_EQ(source.GetDrawType(), 24);
    EXPECT_EQ(copy.GetAt(0)->GetDrawType(), 23);
}

TEST(CutoutArray, AssignmentDeletesItsElementsAndLeavesTheType)
{
    int deleted = 0;
    CIPC2581_CutoutArray source;
    Fill(source);
    source.SetDrawType(5);
    CIPC2581_CutoutArray target;
    target.Add(new Counted<CIPC2581_Cutout>(deleted));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(All(target), g_filled);
    EXPECT_EQ(All(source), g_filled);
    EXPECT_EQ(target.GetDrawType(), 24);
}

TEST(CutoutArray, AssignmentToItselfDoesNothing)
{
    CIPC2581_CutoutArray array;
    Fill(array);
    const CIPC2581_Cutout * first = array.GetAt(0);
    const CIPC2581_CutoutArray & same = array;
    array = same;
    EXPECT_EQ(array.GetAt(0), first);
    EXPECT_EQ(All(array), g_filled);
}

class Special : public CIPC2581_Cutout {
public:
    using CIPC2581_Cutout::clone;
    CIPC2581_Cutout * clone() override { return new Special; }
};

TEST(CutoutArray, ElementsAreClonedAsThemselves)
{
    CIPC2581_CutoutArray source;
    source.Add(new Special);
    const CIPC2581_CutoutArray copy(source);
    ASSERT_EQ(copy.GetSize(), 1);
    EXPECT_NE(dynamic_cast<Special *>(copy.GetAt(0)), nullptr);
}

TEST(CutoutArray, AssignmentThroughTheBaseLeavesTheElements)
{
    CIPC2581_CutoutArray source;
    source.SetDrawType(5);
    CIPC2581_CutoutArray target;
    Fill(target);
    CIPC2581_DrawObj & base = target;
    base = source;
    EXPECT_EQ(target.GetDrawType(), 5);
    EXPECT_EQ(All(target), g_filled);
}

TEST(CutoutArray, ReadsAndWritesNothingAndTellsIt)
{
    CIPC2581_CutoutArray array;
    Fill(array);
    const auto written = Exported(array);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, "");
    Lines file{"</Cutout>"};
    EXPECT_EQ(array.Import(file.File()), 0);
    EXPECT_EQ(file.Rest().size(), 1U);
}

TEST(CutoutArray, StopsTheListThatHoldsIt)
{
    CIPC2581_DrawObjArray list;
    list.Add(new CIPC2581_Cutout);
    list.Add(new CIPC2581_CutoutArray);
    list.Add(new CIPC2581_Cutout);
    const auto written = Exported(list);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, Below(R"(
   <Cutout>
      <PolyBegin x="0.000000" y="0.000000" />
   </Cutout>
)"));
}

TEST(CutoutArray, KeepsTheReadingAndWritingOperationsOfTheBase)
{
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_DrawObj::*)(CStdioFile &)>(&CIPC2581_CutoutArray::Import)), 5U);
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_DrawObj::*)(CStdioFile &, int)>(&CIPC2581_CutoutArray::Export)), 6U);
}

}  // namespace
