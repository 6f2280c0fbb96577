#include "ipc2581/cad/PackageOutline.h"

#include <cstddef>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Polygon.h"
#include "tests/cad/PackageParts.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// Shapes that count how often they are assigned through their virtual operation.
class AssignedLineDesc : public CIPC2581_LineDesc {
public:
    CIPC2581_LineDesc & operator=(const CIPC2581_LineDesc & other) override
    {
        ++assignments;
        return CIPC2581_LineDesc::operator=(other);
    }
    int assignments = 0;
};

class AssignedPolygon : public CIPC2581_Polygon {
public:
    using CIPC2581_Polygon::operator=;
    CIPC2581_Polygon & operator=(const CIPC2581_Polygon & other) override
    {
        ++assignments;
        return CIPC2581_Polygon::operator=(other);
    }
    int assignments = 0;
};

const LineList kFilledOutline = {R"(<LineDesc lineEnd="SQUARE" lineWidth="0.5"/>)",
                                 "<Polygon>",
                                 R"(<PolyBegin x="1" y="2"/>)",
                                 R"(<PolyStepSegment x="3" y="4"/>)",
                                 "</Polygon>",
                                 "</Outline>"};

void ExpectFilled(const PackageOutline & outline)
{
    EXPECT_EQ(outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.5);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_X(), 1.0);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_Y(), 2.0);
    ASSERT_EQ(Steps(outline), 1);
    EXPECT_EQ(outline.Polygon->PolyStepArray->GetAt(0)->EndPoint->GetPoint_X(), 3.0);
    EXPECT_EQ(outline.Polygon->PolyStepArray->GetAt(0)->EndPoint->GetPoint_Y(), 4.0);
}

void ExpectDefault(const PackageOutline & outline)
{
    EXPECT_EQ(outline.LineDesc->LineEnd, "ROUND");
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.0);
    EXPECT_EQ(outline.LineDesc->Shape, 0);
    EXPECT_EQ(outline.Polygon->DrawType, 22);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_X(), 0.0);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_Y(), 0.0);
    EXPECT_EQ(Steps(outline), 0);
}

TEST(PackageOutline, StartsWithADefaultLineAndAnEmptyPolygon)
{
    const PackageOutline outline;
    ExpectDefault(outline);
}

TEST(PackageOutline, KeepsTheOrderOfItsVirtualOperations)
{
    using Assign = PackageOutline & (PackageOutline::*)(const PackageOutline &);
    EXPECT_TRUE(std::has_virtual_destructor_v<PackageOutline>);
    EXPECT_TRUE(IsVirtual(&PackageOutline::clone));
    EXPECT_EQ(Slot(&PackageOutline::clone), kFirstSlot);
    EXPECT_EQ(Slot(static_cast<Assign>(&PackageOutline::operator=)), kFirstSlot + 1);
    EXPECT_EQ(Slot(&PackageOutline::Import), kFirstSlot + 2);
    EXPECT_EQ(Slot(&PackageOutline::Export), kFirstSlot + 3);
}

TEST(PackageOutline, GivesItsPartsOut)
{
    const PackageOutline outline;
    EXPECT_EQ(outline.GetLineDesc(), outline.LineDesc);
    EXPECT_EQ(outline.GetPolygon(), outline.Polygon);
}

TEST(PackageOutline, SettersAssignThroughTheVirtualOperationOfThePart)
{
    PackageOutline outline;
    const auto * const line = Replace(outline.LineDesc, std::make_unique<AssignedLineDesc>());
    const auto * const polygon = Replace(outline.Polygon, std::make_unique<AssignedPolygon>());
    CIPC2581_LineDesc newLine;
    newLine.LineWidth = 2.5;
    CIPC2581_Polygon newPolygon;
    newPolygon.PolyBegin->SetPoint_X(7.0);
    outline.SetLineDesc(&newLine);
    outline.SetPolygon(&newPolygon);
    EXPECT_EQ(line->assignments, 1);
    EXPECT_EQ(polygon->assignments, 1);
    EXPECT_EQ(outline.LineDesc, line);
    EXPECT_EQ(outline.Polygon, polygon);
    EXPECT_EQ(outline.LineDesc->LineWidth, 2.5);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_X(), 7.0);
}

TEST(PackageOutline, InitResetsItsPartsInPlace)
{
    PackageOutline outline;
    Read(outline, kFilledOutline);
    outline.LineDesc->Shape = 3;
    const auto * const line = outline.LineDesc;
    const auto * const polygon = outline.Polygon;
    outline.Init();
    EXPECT_EQ(outline.LineDesc, line);
    EXPECT_EQ(outline.Polygon, polygon);
    ExpectDefault(outline);
}

TEST(PackageOutline, InitMakesMissingParts)
{
    PackageOutline outline;
    delete outline.LineDesc;
    delete outline.Polygon;
    outline.LineDesc = nullptr;
    outline.Polygon = nullptr;
    outline.Init();
    ASSERT_NE(outline.LineDesc, nullptr);
    ASSERT_NE(outline.Polygon, nullptr);
    ExpectDefault(outline);
}

TEST(PackageOutline, CopiesHavePartsOfTheirOwn)
{
    PackageOutline source;
    Read(source, kFilledOutline);
    const PackageOutline copy(source);
    const std::unique_ptr<PackageOutline> clone(source.clone());
    PackageOutline target;
    EXPECT_EQ(&(target = source), &target);
    source.Init();
    for (const PackageOutline * const outline :
         {&copy, static_cast<const PackageOutline *>(clone.get()), static_cast<const PackageOutline *>(&target)}) {
        EXPECT_NE(outline->LineDesc, source.LineDesc);
        EXPECT_NE(outline->Polygon, source.Polygon);
        ExpectFilled(*outline);
    }
}

TEST(PackageOutline, AssignsThroughTheVirtualOperationsOfItsParts)
{
    PackageOutline source;
    Read(source, kFilledOutline);
    PackageOutline target;
    const auto * const line = Replace(target.LineDesc, std::make_unique<AssignedLineDesc>());
    const auto * const polygon = Replace(target.Polygon, std::make_unique<AssignedPolygon>());
    target = source;
    EXPECT_EQ(line->assignments, 1);
    EXPECT_EQ(polygon->assignments, 1);
    ExpectFilled(target);
}

TEST(PackageOutline, AssignmentToItselfChangesNothing)
{
    PackageOutline outline;
    Read(outline, kFilledOutline);
    const PackageOutline & same = outline;
    outline = same;
    ExpectFilled(outline);
}

TEST(PackageOutline, DeletesItsParts)
{
    int lines = 0;
    int polygons = 0;
    {
        PackageOutline outline;
        Replace(outline.LineDesc, std::make_unique<Counted<CIPC2581_LineDesc>>(lines));
        Replace(outline.Polygon, std::make_unique<Counted<CIPC2581_Polygon>>(polygons));
    }
    EXPECT_EQ(lines, 1);
    EXPECT_EQ(polygons, 1);
}

TEST(PackageOutline, ReadsItsLineDescriptionAndItsPolygon)
{
    PackageOutline outline;
    EXPECT_EQ(Read(outline, {"<Polygon>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)",
                             "</Polygon>", R"(<LineDesc lineEnd="SQUARE" lineWidth="0.5"/>)", "</Outline>", "left"}),
              Texts{"left"});
    ExpectFilled(outline);
}

TEST(PackageOutline, KeepsTheRoundEndWithoutALineDescription)
{
    PackageOutline outline;
    Read(outline, {"<Polygon>", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "ROUND");
    EXPECT_EQ(Steps(outline), 1);
}

TEST(PackageOutline, LeavesWhatALineDescriptionDoesNotName)
{
    PackageOutline outline;
    Read(outline, {R"(<LineDesc lineEnd="SQUARE"/>)", R"(<LineDesc lineWidth="0.5"/>)", R"(<LineDesc width="3"/>)",
                   "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.5);
}

TEST(PackageOutline, TestsForTheLineEndBeforeTheLineWidth)
{
    PackageOutline outline;
    Read(outline, {R"(<LineDesc lineWidth="2"lineEnd="SQUARE">)", "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "2lineEnd=SQUARE");
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.0);
}

TEST(PackageOutline, ScansItsLineDescriptionFromTheFirstTokenForWordsWithAnEqualSign)
{
    PackageOutline outline;
    Read(outline, {R"(<LineDesclineEnd="SQUARE" lineWidths="2" lineEnds="FLAT" LINEWIDTH="3">)", "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.0);
}

TEST(PackageOutline, StepsOverTheTokensOfAValueThatRunsOn)
{
    PackageOutline outline;
    Read(outline, {R"(<LineDesc lineEnd="A lineWidth=7" lineWidth="2">)", "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "A 7");
    EXPECT_EQ(outline.LineDesc->LineWidth, 2.0);
}

TEST(PackageOutline, ReadsABadWidthAsZero)
{
    PackageOutline outline;
    outline.LineDesc->LineWidth = 4.0;
    Read(outline, {R"(<LineDesc lineWidth="wide"/>)", "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.0);
}

TEST(PackageOutline, ThrowsForAValueThatItsLineDoesNotClose)
{
    PackageOutline outline;
    EXPECT_THROW(Read(outline, {R"(<LineDesc lineWidth="2" lineEnd="open>)", "</Outline>"}), CInvalidArgException);
    EXPECT_EQ(outline.LineDesc->LineWidth, 2.0);
    EXPECT_EQ(outline.LineDesc->LineEnd, "ROUND");
}

TEST(PackageOutline, TestsForTheLineDescriptionBeforeThePolygon)
{
    PackageOutline outline;
    Read(outline, {R"(<PolygonLineDesc lineEnd="SQUARE">)", R"(<PolyStepSegment x="1"/>)", "</Outline>"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(Steps(outline), 0);
}

TEST(PackageOutline, ASlashTurnsALineDescriptionAway)
{
    PackageOutline outline;
    EXPECT_EQ(Read(outline, {R"(</LineDesc lineEnd="SQUARE">)", R"(<LineDesc/ lineEnd="SQUARE">)",
                             R"(</OutlineLineDesc lineEnd="SQUARE">)", "left"}),
              Texts{"left"});
    EXPECT_EQ(outline.LineDesc->LineEnd, "ROUND");
}

TEST(PackageOutline, NoSlashTurnsAPolygonAway)
{
    for (const char * const polygon : {"</Polygon>", "<Polygon/>", "</OutlinePolygon>"}) {
        SCOPED_TRACE(polygon);
        PackageOutline outline;
        EXPECT_EQ(
            Read(outline, {polygon, "</Outline>", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "</Outline>", "left"}),
            Texts{"left"});
        EXPECT_EQ(Steps(outline), 1);
    }
}

TEST(PackageOutline, ASecondPolygonAddsToTheFirst)
{
    PackageOutline outline;
    Read(outline, {"<Polygon>", R"(<PolyBegin x="1"/>)", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "<Polygon>",
                   R"(<PolyBegin x="5"/>)", R"(<PolyStepSegment x="2"/>)", "</Polygon>", "</Outline>"});
    EXPECT_EQ(Steps(outline), 2);
    EXPECT_EQ(outline.Polygon->PolyBegin->GetPoint_X(), 5.0);
}

TEST(PackageOutline, IgnoresEmptyAndUnknownLines)
{
    PackageOutline outline;
    EXPECT_EQ(Read(outline, {"", "<Outline>", R"(<Xform lineEnd="SQUARE">)", R"(<linedesc lineEnd="SQUARE">)",
                             R"(< LineDesc lineEnd="SQUARE">)", R"(<PolyStepSegment x="1"/>)", "</Outline>", "left"}),
              Texts{"left"});
    ExpectDefault(outline);
}

const Texts kOutlineLines = {R"(<LineDesc lineEnd="SQUARE"/>)", "<Polygon>", R"(<PolyStepSegment x="3"/>)",
                             "</Polygon>", "</Outline>"};

TEST(PackageOutline, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kOutlineLines, [](CStdioFile & file, std::size_t lines) {
        PackageOutline outline;
        EXPECT_EQ(outline.Import(file), 1);
        EXPECT_EQ(outline.LineDesc->LineEnd, lines > 0 ? "SQUARE" : "ROUND");
        EXPECT_EQ(Steps(outline), lines > 2 ? 1 : 0);
    });
}

TEST(PackageOutline, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kOutlineLines, [](CStdioFile & file) { PackageOutline().Import(file); });
}

TEST(PackageOutline, WritesItselfAlsoWhenItIsEmpty)
{
    PackageOutline outline;
    ExpectExport(outline, Below(R"(
   <Outline>
      <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
      <Polygon>
         <PolyBegin x="0.000000" y="0.000000" />
      </Polygon>
   </Outline>
)"));
}

TEST(PackageOutline, WritesTheLineDescriptionInFrontOfThePolygon)
{
    PackageOutline outline;
    Read(outline, kFilledOutline);
    ExpectExport(outline, Below(R"(
   <Outline>
      <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />
      <Polygon>
         <PolyBegin x="1.000000" y="2.000000" />
         <PolyStepSegment x="3.000000" y="4.000000" />
      </Polygon>
   </Outline>
)"));
}

TEST(PackageOutline, StopsAtTheFirstPartThatGivesZero)
{
    PackageOutline outline;
    Replace(outline.Polygon, std::make_unique<Writing<CIPC2581_Polygon>>("polygon", 0));
    EXPECT_EQ(Exported(outline), (Export{0, Below(R"(
   <Outline>
      <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
polygon 1
)")}));
    Replace(outline.LineDesc, std::make_unique<Writing<CIPC2581_LineDesc>>("line", 0));
    EXPECT_EQ(Exported(outline), (Export{0, "   <Outline>\nline 1\n"}));
}

}  // namespace
