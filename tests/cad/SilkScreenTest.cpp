#include "ipc2581/cad/SilkScreen.h"

#include <cstddef>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/draw/Outline.h"
#include "tests/cad/PackageParts.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using SilkScreenArray = CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray;

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

}  // namespace
