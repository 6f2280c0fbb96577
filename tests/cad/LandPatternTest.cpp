#include "ipc2581/cad/LandPattern.h"

#include <cstddef>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Pad.h"
#include "tests/cad/PackageParts.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;

const char * const kPad = Below(R"(
   <Pad>
      <Location x="0.000000" y="0.000000"/>
      <StandardPrimitiveRef id=""/>
   </Pad>
)");

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

}  // namespace
