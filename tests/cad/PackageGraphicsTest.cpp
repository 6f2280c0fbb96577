#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/AssemblyDrawing.h"
#include "ipc2581/cad/LandPattern.h"
#include "ipc2581/cad/Package.h"
#include "ipc2581/cad/PackageOutline.h"
#include "ipc2581/cad/PackagePin.h"
#include "ipc2581/cad/Pad.h"
#include "ipc2581/cad/SilkScreen.h"
#include "ipc2581/cad/SilkScreenTarget.h"
#include "ipc2581/cad/Target.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Outline.h"
#include "ipc2581/draw/PolyStep.h"
#include "ipc2581/draw/Polygon.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using AssemblyDrawing = CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing;
using LandPattern = CIPC2581_Ecad_CadData_Step_Package_LandPattern;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using PackageOutline = CIPC2581_Ecad_CadData_Step_Package_Outline;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;
using SilkScreen = CIPC2581_Ecad_CadData_Step_Package_SilkScreen;
using SilkScreenArray = CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray;
using SilkScreenTarget = CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target;
using SilkScreenTargetArray = CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray;
using Target = CIPC2581_Ecad_CadData_Step_Target;

Texts Read(PackageOutline & outline, LineList lines)
{
    Lines file(lines);
    EXPECT_EQ(outline.Import(file), 1);
    return file.Rest();
}

Texts Read(Package & package, LineList lines)
{
    Lines file(lines);
    package.PackageAdd(file);
    return file.Rest();
}

Texts Read(LandPattern & pattern, LineList lines)
{
    Lines file(lines);
    pattern.LandPatternAdd(file);
    return file.Rest();
}

Texts Read(SilkScreen & silkScreen, LineList lines)
{
    Lines file(lines);
    silkScreen.SilkScreenAdd(file);
    return file.Rest();
}

Texts Read(SilkScreenTarget & target, LineList lines)
{
    Lines file(lines);
    target.TargetAdd(file);
    return file.Rest();
}

template <typename Holder>
std::int64_t Steps(const Holder & holder)
{
    return holder.Polygon->PolyStepArray->GetSize();
}

void AddStep(const CIPC2581_Outline & outline, double x, double y)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    step->SetEndPointX(x);
    step->SetEndPointY(y);
    outline.Polygon->PolyStepArray->Add(step.release());
}

// A target that gives 0 behind its first lines: a plain shape cannot be written.
Target * TargetThatStops()
{
    auto target = std::make_unique<Target>();
    target->DrawObjArray->Add(new CIPC2581_DrawObj);
    return target.release();
}

const char * const kTarget = Below(R"(
   <Target>
      <Location x="0.000000" y="0.000000" />
   </Target>
)");

const char * const kStoppedTarget = Below(R"(
   <Target>
      <Location x="0.000000" y="0.000000" />
)");

const char * const kPad = Below(R"(
   <Pad>
      <Location x="0.000000" y="0.000000"/>
      <StandardPrimitiveRef id=""/>
   </Pad>
)");

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

TEST(AssemblyDrawing, StartsEmpty)
{
    const AssemblyDrawing drawing;
    ASSERT_NE(drawing.Outline, nullptr);
    EXPECT_EQ(drawing.Outline->DrawType, 19);
    EXPECT_EQ(Steps(*drawing.Outline), 0);
    EXPECT_EQ(drawing.Text.TextString, "");
    EXPECT_EQ(drawing.Text.DrawType, 17);
    EXPECT_NE(drawing.Text.Xform, nullptr);
    EXPECT_TRUE(drawing.TargetArray.IsEmpty());
}

TEST(AssemblyDrawing, KeepsTheOrderOfItsVirtualOperations)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<AssemblyDrawing>);
    EXPECT_TRUE(IsVirtual(&AssemblyDrawing::Import));
    EXPECT_EQ(Slot(&AssemblyDrawing::Import), kFirstSlot);
    EXPECT_EQ(Slot(&AssemblyDrawing::Export), kFirstSlot + 1);
    EXPECT_FALSE(IsVirtual(&AssemblyDrawing::clone));
}

TEST(AssemblyDrawing, ImportReadsNothing)
{
    AssemblyDrawing drawing;
    Lines file({"<Outline>", "<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "</Outline>"});
    EXPECT_EQ(drawing.Import(file), 1);
    EXPECT_EQ(file.Rest().size(), 5U);
    EXPECT_EQ(Steps(*drawing.Outline), 0);
}

TEST(AssemblyDrawing, InitKeepsTheOutlineAndClearsTheRest)
{
    AssemblyDrawing drawing;
    AddStep(*drawing.Outline, 1.0, 2.0);
    drawing.Text.TextString = "R1";
    int targets = 0;
    drawing.TargetArray.Add(new Counted<Target>(targets));
    const CIPC2581_Outline * const outline = drawing.Outline;
    const std::unique_ptr<CIPC2581_Xform> abandoned(drawing.Text.Xform);
    drawing.Init();
    EXPECT_EQ(drawing.Outline, outline);
    EXPECT_EQ(outline->DrawType, 17);
    EXPECT_EQ(Steps(*outline), 1);
    EXPECT_EQ(drawing.Text.TextString, "");
    EXPECT_NE(drawing.Text.Xform, abandoned.get());
    EXPECT_EQ(targets, 1);
    EXPECT_TRUE(drawing.TargetArray.IsEmpty());
}

TEST(AssemblyDrawing, InitMakesAMissingOutline)
{
    AssemblyDrawing drawing;
    delete drawing.Outline;
    drawing.Outline = nullptr;
    const std::unique_ptr<CIPC2581_Xform> abandoned(drawing.Text.Xform);
    drawing.Init();
    ASSERT_NE(drawing.Outline, nullptr);
    EXPECT_EQ(drawing.Outline->DrawType, 19);
}

TEST(AssemblyDrawing, ACopyIsAnEmptyDrawing)
{
    AssemblyDrawing source;
    AddStep(*source.Outline, 1.0, 2.0);
    source.Outline->LineDesc->LineEnd = "SQUARE";
    source.Text.TextString = "R1";
    source.TargetArray.Add(new Target);
    const AssemblyDrawing copy(source);
    const std::unique_ptr<AssemblyDrawing> clone(source.clone());
    for (const AssemblyDrawing * const drawing : {&copy, static_cast<const AssemblyDrawing *>(clone.get())}) {
        EXPECT_NE(drawing->Outline, source.Outline);
        EXPECT_EQ(drawing->Outline->DrawType, 19);
        EXPECT_EQ(drawing->Outline->LineDesc->LineEnd, "ROUND");
        EXPECT_EQ(Steps(*drawing->Outline), 0);
        EXPECT_EQ(drawing->Text.TextString, "");
        EXPECT_TRUE(drawing->TargetArray.IsEmpty());
    }
    EXPECT_EQ(source.TargetArray.GetSize(), 1);
}

TEST(AssemblyDrawing, AssignmentDoesNothing)
{
    AssemblyDrawing source;
    AddStep(*source.Outline, 1.0, 2.0);
    source.Text.TextString = "R1";
    source.TargetArray.Add(new Target);
    AssemblyDrawing target;
    target.Text.TextString = "R2";
    target.TargetArray.Add(new Target);
    target.TargetArray.Add(new Target);
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(Steps(*target.Outline), 0);
    EXPECT_EQ(target.Text.TextString, "R2");
    EXPECT_EQ(target.TargetArray.GetSize(), 2);
}

TEST(AssemblyDrawing, DeletesItsOutlineAndItsTargets)
{
    int outlines = 0;
    int targets = 0;
    {
        AssemblyDrawing drawing;
        Replace(drawing.Outline, std::make_unique<Counted<CIPC2581_Outline>>(outlines));
        drawing.TargetArray.Add(new Counted<Target>(targets));
    }
    EXPECT_EQ(outlines, 1);
    EXPECT_EQ(targets, 1);
}

TEST(AssemblyDrawing, TakesItsFirstOutlineFromAFile)
{
    Package package;
    EXPECT_EQ(
        Read(package,
             {"<AssemblyDrawing>", "<Outline>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)",
              R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", R"(<LineDesc lineEnd="SQUARE" lineWidth="0.5"/>)",
              "</Outline>", R"(<Text textString="R1" fontSize="2">)", R"(<Xform rotation="90"/>)", "</Text>",
              "<Target>", R"(<Location x="1" y="2"/>)", "</Target>", "</AssemblyDrawing>", "</Package>", "left"}),
        Texts{"left"});
    AssemblyDrawing & drawing = package.AssemblyDrawing;
    EXPECT_EQ(drawing.Text.TextString, "");
    EXPECT_TRUE(drawing.TargetArray.IsEmpty());
    ExpectExport(drawing, Below(R"(
   <AssemblyDrawing>
      <Outline>
         <Polygon>
            <PolyBegin x="1.000000" y="2.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
         </Polygon>
         <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />
      </Outline>
   </AssemblyDrawing>
)"));
}

TEST(AssemblyDrawing, LeavesASecondOutlineToThePackage)
{
    Package package;
    Read(package,
         {"<AssemblyDrawing>", "<Outline>", "</Outline>", "<Outline>", "<Polygon>", R"(<PolyStepSegment x="3" y="4"/>)",
          "</Polygon>", "</Outline>", "</AssemblyDrawing>", "</Package>"});
    EXPECT_EQ(Steps(*package.AssemblyDrawing.Outline), 0);
    EXPECT_EQ(Steps(*package.Outline), 1);
}

TEST(AssemblyDrawing, WithoutAnOutlineRunsOnToTheNextOne)
{
    Package package;
    EXPECT_EQ(Read(package,
                   {"<AssemblyDrawing>", "</AssemblyDrawing>", R"(<Pin number="1">)", "</Pin>", "<SilkScreen>",
                    "<Outline>", "<Polygon>", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", "</Outline>",
                    "<Target>", "</Target>", "</SilkScreen>", R"(<Pin number="2">)", "</Pin>", "</Package>", "left"}),
              Texts{"left"});
    EXPECT_EQ(Steps(*package.AssemblyDrawing.Outline), 1);
    EXPECT_TRUE(package.SilkScreen.TargetArray.IsEmpty());
    ASSERT_EQ(package.PinArray.GetSize(), 1);
    EXPECT_EQ(package.PinArray.GetAt(0)->number, "2");
}

TEST(AssemblyDrawing, WithoutAnyOutlineSwallowsTheFile)
{
    Package package;
    EXPECT_EQ(Read(package, {"<AssemblyDrawing>", "</AssemblyDrawing>", "<Pin>", "</Pin>", "</Package>", "<Other>"}),
              Texts{});
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(AssemblyDrawing, WritesNothingWithoutSteps)
{
    AssemblyDrawing drawing;
    EXPECT_EQ(Exported(drawing), (Export{1, ""}));
    drawing.Outline->Polygon->PolyBegin->SetPoint_X(1.0);
    drawing.TargetArray.Add(TargetThatStops());
    EXPECT_EQ(Exported(drawing), (Export{1, ""}));
}

TEST(AssemblyDrawing, WritesItsTargetsBehindItsOutlineAndNoText)
{
    AssemblyDrawing drawing;
    AddStep(*drawing.Outline, 3.0, 4.0);
    drawing.Text.TextString = "R1";
    drawing.TargetArray.Add(new Target);
    ExpectExport(drawing, Below(R"(
   <AssemblyDrawing>
      <Outline>
         <Polygon>
            <PolyBegin x="0.000000" y="0.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
         </Polygon>
         <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
      </Outline>
)") + Indented(kTarget, 1) + "   </AssemblyDrawing>\n");
}

TEST(AssemblyDrawing, StopsAtTheFirstPartThatGivesZero)
{
    AssemblyDrawing drawing;
    Replace(drawing.Outline, std::make_unique<Writing<CIPC2581_Outline>>("outline"));
    AddStep(*drawing.Outline, 3.0, 4.0);
    drawing.TargetArray.Add(TargetThatStops());
    EXPECT_EQ(Exported(drawing), (Export{0, "   <AssemblyDrawing>\noutline 1\n" + Indented(kStoppedTarget, 1)}));
    Replace(drawing.Outline, std::make_unique<Writing<CIPC2581_Outline>>("outline", 0));
    AddStep(*drawing.Outline, 3.0, 4.0);
    EXPECT_EQ(Exported(drawing), (Export{0, "   <AssemblyDrawing>\noutline 1\n"}));
}

TEST(LandPattern, StartsEmpty)
{
    const LandPattern pattern;
    EXPECT_TRUE(pattern.PadArray.IsEmpty());
    EXPECT_TRUE(pattern.TargetArray.IsEmpty());
}

TEST(LandPattern, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<LandPattern>);
    EXPECT_TRUE(IsVirtual(&LandPattern::Export));
    EXPECT_EQ(Slot(&LandPattern::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&LandPattern::LandPatternAdd));
}

TEST(LandPattern, ReadsItsPadsInTheirOrder)
{
    LandPattern pattern;
    EXPECT_EQ(
        Read(pattern, {R"(<Pad pin="1">)", R"(<Location x="1" y="2"/>)", R"(<StandardPrimitiveRef id="A"/>)", "</Pad>",
                       R"(<Pad x="1" pin="2" layerRef="TOP">)", "</Pad>", "<Pad>", "</Pad>", "</LandPattern>", "left"}),
        Texts{"left"});
    ASSERT_EQ(pattern.PadArray.GetSize(), 3);
    EXPECT_EQ(pattern.PadArray.GetAt(0)->Pin, "1");
    EXPECT_EQ(pattern.PadArray.GetAt(0)->Location.GetX(), 1.0);
    EXPECT_EQ(pattern.PadArray.GetAt(0)->StandardPrimitiveRefId, "A");
    EXPECT_EQ(pattern.PadArray.GetAt(1)->Pin, "2");
    EXPECT_EQ(pattern.PadArray.GetAt(1)->LayerRef, "");
    EXPECT_EQ(pattern.PadArray.GetAt(1)->Location.GetX(), 0.0);
    EXPECT_EQ(pattern.PadArray.GetAt(2)->Pin, "");
}

TEST(LandPattern, ScansAPadFromTheFirstTokenForTheWordWithItsEqualSign)
{
    LandPattern pattern;
    Read(pattern,
         {R"(<Padpin="1" pinned="2" pin>)", "</Pad>", R"(<Pad pin="a b" spin="c">)", "</Pad>", "</LandPattern>"});
    ASSERT_EQ(pattern.PadArray.GetSize(), 2);
    EXPECT_EQ(pattern.PadArray.GetAt(0)->Pin, "1");
    EXPECT_EQ(pattern.PadArray.GetAt(1)->Pin, "c");
}

TEST(LandPattern, ASlashTurnsAPadAway)
{
    LandPattern pattern;
    EXPECT_EQ(Read(pattern, {"<Pad/>", "</Pad>", R"(<Pad/ pin="1">)", R"(</LandPatternPad pin="1">)", "left"}),
              Texts{"left"});
    EXPECT_TRUE(pattern.PadArray.IsEmpty());
}

TEST(LandPattern, TakesEveryWordWithPadInItForAPad)
{
    LandPattern pattern;
    Read(pattern, {R"(<PadstackPadDefRef pin="1"/>)", "</Pad>", R"(<Pad pin="2" />)", "</LayerPad>", "</LandPattern>"});
    ASSERT_EQ(pattern.PadArray.GetSize(), 2);
    EXPECT_EQ(pattern.PadArray.GetAt(0)->Pin, "1");
    EXPECT_EQ(pattern.PadArray.GetAt(1)->Pin, "2");
}

TEST(LandPattern, ReadsNoTargets)
{
    LandPattern pattern;
    Read(pattern, {"", "<Target>", R"(<Location x="1" y="2"/>)", "</Target>", "<pad>", "</LandPattern>"});
    EXPECT_TRUE(pattern.TargetArray.IsEmpty());
    EXPECT_TRUE(pattern.PadArray.IsEmpty());
}

const Texts kLandPatternLines = {R"(<Pad pin="1">)", "</Pad>", R"(<Pad pin="2">)", "</Pad>", "</LandPattern>"};

TEST(LandPattern, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kLandPatternLines, [](CStdioFile & file, std::size_t lines) {
        LandPattern pattern;
        pattern.LandPatternAdd(file);
        EXPECT_EQ(pattern.PadArray.GetSize(), lines > 2 ? 2 : static_cast<int>(lines > 0));
    });
}

TEST(LandPattern, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kLandPatternLines, [](CStdioFile & file) { LandPattern().LandPatternAdd(file); });
}

TEST(LandPattern, LosesThePadInHandWithAnException)
{
    LandPattern pattern;
    EXPECT_THROW(Read(pattern, {"<Pad>", "</Pad>", "<Pad>", "  ", "</Pad>"}), CInvalidArgException);
    EXPECT_EQ(pattern.PadArray.GetSize(), 1);
    EXPECT_THROW(Read(pattern, {R"(<Pad pin="open>)", "</Pad>"}), CInvalidArgException);
    EXPECT_EQ(pattern.PadArray.GetSize(), 1);
}

TEST(LandPattern, WritesNothingWhenItIsEmpty)
{
    LandPattern pattern;
    EXPECT_EQ(Exported(pattern, 2), (Export{1, ""}));
}

TEST(LandPattern, WritesItsPadsInFrontOfItsTargets)
{
    LandPattern pattern;
    pattern.TargetArray.Add(new Target);
    ExpectExport(pattern, "   <LandPattern>\n" + Indented(kTarget, 1) + "   </LandPattern>\n");
    pattern.PadArray.Add(new Pad);
    ExpectExport(pattern, "   <LandPattern>\n" + Indented(kPad, 1) + Indented(kTarget, 1) + "   </LandPattern>\n");
    pattern.TargetArray.DeleteAll();
    ExpectExport(pattern, "   <LandPattern>\n" + Indented(kPad, 1) + "   </LandPattern>\n");
}

TEST(LandPattern, StopsAtTheFirstElementThatGivesZero)
{
    LandPattern pattern;
    pattern.TargetArray.Add(TargetThatStops());
    EXPECT_EQ(Exported(pattern), (Export{0, "   <LandPattern>\n" + Indented(kStoppedTarget, 1)}));
    pattern.PadArray.Add(new Writing<Pad>("pad", 0));
    EXPECT_EQ(Exported(pattern), (Export{0, "   <LandPattern>\npad 1\n"}));
}

TEST(SilkScreen, StartsEmpty)
{
    const SilkScreen silkScreen;
    ASSERT_NE(silkScreen.Outline, nullptr);
    EXPECT_EQ(silkScreen.Outline->DrawType, 19);
    EXPECT_EQ(Steps(*silkScreen.Outline), 0);
    EXPECT_EQ(silkScreen.Outline->LineDesc->LineEnd, "ROUND");
    EXPECT_EQ(silkScreen.Text.TextString, "");
    EXPECT_TRUE(silkScreen.TargetArray.IsEmpty());
}

TEST(SilkScreen, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<SilkScreen>);
    EXPECT_TRUE(IsVirtual(&SilkScreen::Export));
    EXPECT_EQ(Slot(&SilkScreen::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&SilkScreen::SilkScreenAdd));
}

TEST(SilkScreen, HasNeitherInitNorCopyOperations)
{
    EXPECT_FALSE(HasInit<SilkScreen>);
    EXPECT_FALSE(std::is_copy_constructible_v<SilkScreen>);
    EXPECT_FALSE(std::is_copy_assignable_v<SilkScreen>);
}

TEST(SilkScreen, DeletesItsOutlineAndItsTargets)
{
    int outlines = 0;
    int targets = 0;
    {
        SilkScreen silkScreen;
        Replace(silkScreen.Outline, std::make_unique<Counted<CIPC2581_Outline>>(outlines));
        silkScreen.TargetArray.Add(new Counted<Target>(targets));
    }
    EXPECT_EQ(outlines, 1);
    EXPECT_EQ(targets, 1);
}

TEST(SilkScreen, ReadsItsTargetsAndDropsOutlineAndText)
{
    SilkScreen silkScreen;
    EXPECT_EQ(
        Read(silkScreen, {"<Outline>", "<Polygon>", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>",
                          R"(<LineDesc lineEnd="SQUARE" lineWidth="1"/>)", "</Outline>", R"(<Text textString="R1">)",
                          "</Text>", "<Target>", R"(<Location x="1" y="2"/>)", "</Target>", "<Target>",
                          R"(<Location x="3" y="4"/>)", "</Target>", "</SilkScreen>", "left"}),
        Texts{"left"});
    ASSERT_EQ(silkScreen.TargetArray.GetSize(), 2);
    EXPECT_EQ(silkScreen.TargetArray.GetAt(0)->Location.GetX(), 1.0);
    EXPECT_EQ(silkScreen.TargetArray.GetAt(1)->Location.GetX(), 3.0);
    EXPECT_EQ(Steps(*silkScreen.Outline), 0);
    EXPECT_EQ(silkScreen.Outline->LineDesc->LineEnd, "ROUND");
    EXPECT_EQ(silkScreen.Text.TextString, "");
}

TEST(SilkScreen, ASlashTurnsATargetAway)
{
    SilkScreen silkScreen;
    EXPECT_EQ(Read(silkScreen, {"<Target/>", "</Target>", R"(<Target/ x="1">)", "</SilkScreenTarget>", "left"}),
              Texts{"left"});
    EXPECT_TRUE(silkScreen.TargetArray.IsEmpty());
}

TEST(SilkScreen, TakesASlashBehindTheFirstTokenForAnOpeningLine)
{
    SilkScreen silkScreen;
    Read(silkScreen, {"", "<SomeTarget />", "</SilkScreen>", "</Target>", "</SilkScreen>"});
    EXPECT_EQ(silkScreen.TargetArray.GetSize(), 1);
}

const Texts kSilkScreenLines = {"<Target>",  R"(<Location x="1"/>)", "</Target>", "<Target>",
                                "</Target>", "</SilkScreen>"};

TEST(SilkScreen, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kSilkScreenLines, [](CStdioFile & file, std::size_t lines) {
        SilkScreen silkScreen;
        silkScreen.SilkScreenAdd(file);
        EXPECT_EQ(silkScreen.TargetArray.GetSize(), lines > 3 ? 2 : static_cast<int>(lines > 0));
    });
}

TEST(SilkScreen, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kSilkScreenLines, [](CStdioFile & file) { SilkScreen().SilkScreenAdd(file); });
}

TEST(SilkScreen, LosesTheTargetInHandWithAnException)
{
    SilkScreen silkScreen;
    EXPECT_THROW(Read(silkScreen, {"<Target>", "</Target>", "<Target>", "<Contour>", "<Polygon>", " "}),
                 CInvalidArgException);
    EXPECT_EQ(silkScreen.TargetArray.GetSize(), 1);
}

TEST(SilkScreen, IsWrittenAlsoWhenItIsEmpty)
{
    SilkScreen silkScreen;
    ExpectExport(silkScreen, "   <SilkScreen>\n   </SilkScreen>\n");
}

TEST(SilkScreen, WritesItsTargetsBehindItsOutlineAndNoText)
{
    SilkScreen silkScreen;
    AddStep(*silkScreen.Outline, 3.0, 4.0);
    silkScreen.Text.TextString = "R1";
    silkScreen.TargetArray.Add(new Target);
    ExpectExport(silkScreen, Below(R"(
   <SilkScreen>
      <Outline>
         <Polygon>
            <PolyBegin x="0.000000" y="0.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
         </Polygon>
         <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
      </Outline>
)") + Indented(kTarget, 1) + "   </SilkScreen>\n");
}

TEST(SilkScreen, StopsAtTheFirstPartThatGivesZero)
{
    SilkScreen silkScreen;
    silkScreen.TargetArray.Add(TargetThatStops());
    EXPECT_EQ(Exported(silkScreen), (Export{0, "   <SilkScreen>\n" + Indented(kStoppedTarget, 1)}));
    Replace(silkScreen.Outline, std::make_unique<Writing<CIPC2581_Outline>>("outline", 0));
    EXPECT_EQ(Exported(silkScreen), (Export{0, "   <SilkScreen>\noutline 1\n"}));
}

TEST(SilkScreenArray, OwnsItsElementsAndCannotBeWritten)
{
    ExpectOwnsItsElements<SilkScreenArray, SilkScreen>();
    EXPECT_FALSE(HasExport<SilkScreenArray>);
}

// A contour with one polygon, as a target of the silk screen reads it.
const LineList kContourTarget = {R"(<Location x="1" y="2"/>)",
                                 "<Contour>",
                                 "<Polygon>",
                                 R"(<PolyStepSegment x="3" y="4"/>)",
                                 "</Polygon>",
                                 "</Contour>",
                                 "</Target>"};

const CIPC2581_DicDraw_Contour & ContourAt(const SilkScreenTarget & target, std::int64_t index)
{
    return dynamic_cast<const CIPC2581_DicDraw_Contour &>(*target.DrawObjArray.GetAt(index));
}

TEST(SilkScreenTarget, StartsEmpty)
{
    const SilkScreenTarget target;
    EXPECT_EQ(target.Location.GetX(), 0.0);
    EXPECT_EQ(target.Location.GetY(), 0.0);
    EXPECT_TRUE(target.DrawObjArray.IsEmpty());
}

TEST(SilkScreenTarget, HasAVirtualDestructorAndCannotBeWritten)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<SilkScreenTarget>);
    EXPECT_FALSE(HasExport<SilkScreenTarget>);
    EXPECT_FALSE(IsVirtual(&SilkScreenTarget::TargetAdd));
}

TEST(SilkScreenTarget, ReadsContoursWithTheDrawTypeFive)
{
    SilkScreenTarget target;
    EXPECT_EQ(Read(target, {"<Contour>", "<Polygon>", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", "<Cutout>",
                            "</Cutout>", "</Contour>", R"(<Location x="1" y="2"/>)", "<Contour>", "</Contour>",
                            "</Target>", "left"}),
              Texts{"left"});
    EXPECT_EQ(target.Location.GetX(), 1.0);
    EXPECT_EQ(target.Location.GetY(), 2.0);
    ASSERT_EQ(target.DrawObjArray.GetSize(), 2);
    EXPECT_EQ(ContourAt(target, 0).DrawType, 5);
    EXPECT_EQ(ContourAt(target, 0).DicDrawObjArray->GetSize(), 2);
    EXPECT_EQ(ContourAt(target, 1).DrawType, 5);
    EXPECT_EQ(ContourAt(target, 1).DicDrawObjArray->GetSize(), 0);
    EXPECT_EQ(CIPC2581_DicDraw_Contour().DrawType, 3);
}

TEST(SilkScreenTarget, TestsForTheContourBeforeTheLocation)
{
    SilkScreenTarget target;
    Read(target, {R"(<LocationContour x="1" y="2">)", "</Contour>", "</Target>"});
    EXPECT_EQ(target.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(target.Location.GetX(), 0.0);
}

TEST(SilkScreenTarget, ASlashTurnsContourAndLocationAway)
{
    for (const char * const closing : {"</TargetContour>", R"(</TargetLocation x="1">)"}) {
        SCOPED_TRACE(closing);
        SilkScreenTarget target;
        EXPECT_EQ(
            Read(target, {"<Contour/>", "</Contour>", R"(<Location/ x="1">)", R"(</Location y="1">)", closing, "left"}),
            Texts{"left"});
        EXPECT_TRUE(target.DrawObjArray.IsEmpty());
        EXPECT_EQ(target.Location.GetX(), 0.0);
        EXPECT_EQ(target.Location.GetY(), 0.0);
    }
}

TEST(SilkScreenTarget, IgnoresPolylinesAndOtherLines)
{
    SilkScreenTarget target;
    Read(target, {"", "<Polyline>", R"(<PolyBegin x="1"/>)", "</Polyline>", R"(<Circle diameter="1"/>)",
                  R"(<Xform rotation="1"/>)", "</Target>"});
    EXPECT_TRUE(target.DrawObjArray.IsEmpty());
}

TEST(SilkScreenTarget, ScansItsLocationForXBeforeY)
{
    SilkScreenTarget target;
    Read(target, {R"(<Locationy="4" x="3">)", R"(<Location y="9"x="8">)", R"(<Location X="5" xs="6">)", "</Target>"});
    EXPECT_EQ(target.Location.GetX(), 9.0);
    EXPECT_EQ(target.Location.GetY(), 4.0);
}

TEST(SilkScreenTarget, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile({"<Contour>", "<Polygon>", "</Polygon>", "</Contour>", R"(<Location x="1"/>)", "</Target>"},
                     [](CStdioFile & file, std::size_t lines) {
                         SilkScreenTarget target;
                         target.TargetAdd(file);
                         EXPECT_EQ(target.DrawObjArray.GetSize(), lines > 0 ? 1 : 0);
                         EXPECT_EQ(target.Location.GetX(), lines > 4 ? 1.0 : 0.0);
                     });
}

TEST(SilkScreenTarget, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows({"<Contour>", "<Polygon>", "</Polygon>", "</Contour>", "</Target>"},
                             [](CStdioFile & file) { SilkScreenTarget().TargetAdd(file); });
}

TEST(SilkScreenTarget, CopiesItsShapesThroughTheirClones)
{
    SilkScreenTarget source;
    Read(source, kContourTarget);
    source.DrawObjArray.Add(new CIPC2581_DicDraw_Circle);
    const SilkScreenTarget copy(source);
    SilkScreenTarget target;
    target.DrawObjArray.Add(new CIPC2581_DrawObj);
    EXPECT_EQ(&(target = source), &target);
    for (const SilkScreenTarget * const one : {&copy, static_cast<const SilkScreenTarget *>(&target)}) {
        EXPECT_EQ(one->Location.GetX(), 1.0);
        EXPECT_EQ(one->Location.GetY(), 2.0);
        ASSERT_EQ(one->DrawObjArray.GetSize(), 2);
        EXPECT_NE(one->DrawObjArray.GetAt(0), source.DrawObjArray.GetAt(0));
        EXPECT_EQ(ContourAt(*one, 0).DrawType, 5);
        // What a contour holds becomes a plain shape in its clone.
        EXPECT_TRUE(IsA<CIPC2581_DrawObj>(ContourAt(*one, 0).DicDrawObjArray->GetAt(0)));
        EXPECT_TRUE(IsA<CIPC2581_DicDraw_Circle>(one->DrawObjArray.GetAt(1)));
    }
}

TEST(SilkScreenTarget, AssignmentToItselfKeepsItsShapes)
{
    SilkScreenTarget target;
    Read(target, kContourTarget);
    const SilkScreenTarget & same = target;
    target = same;
    ASSERT_EQ(target.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(ContourAt(target, 0).DrawType, 5);
    EXPECT_EQ(target.Location.GetX(), 1.0);
}

TEST(SilkScreenTargetArray, OwnsItsElementsAndCannotBeWritten)
{
    ExpectOwnsItsElements<SilkScreenTargetArray, SilkScreenTarget>();
    EXPECT_FALSE(HasExport<SilkScreenTargetArray>);
}

}  // namespace
