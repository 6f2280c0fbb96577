#include "ipc2581/cad/AssemblyDrawing.h"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/draw/Outline.h"
#include "tests/cad/PackageParts.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using AssemblyDrawing = CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing;

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

}  // namespace
