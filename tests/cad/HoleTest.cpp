#include "ipc2581/cad/Hole.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "tests/cad/Holes.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using HoleArray = CIPC2581_Ecad_CadData_Step_HoleArray;

// Reads the lines under a LayerHole line and gives those that are left.
Texts Read(Hole & hole, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    hole.LayerHoleAdd(file);
    return file.Rest();
}

void Fill(Hole & hole)
{
    hole.Name = "H1";
    hole.Diameter = "0.30";
    hole.PlatingStatus = "PLATED";
    hole.PlusTol = "0.1";
    hole.MinusTol = "0.2";
    hole.Location.SetData(1.5, -2.0);
    hole.ToLayer = "BOTTOM";
    hole.FromLayer = "TOP";
}

void ExpectFilledTexts(const Hole & hole)
{
    EXPECT_EQ(hole.Name, "H1");
    EXPECT_EQ(hole.Diameter, "0.30");
    EXPECT_EQ(hole.PlatingStatus, "PLATED");
    EXPECT_EQ(hole.PlusTol, "0.1");
    EXPECT_EQ(hole.MinusTol, "0.2");
    EXPECT_EQ(hole.ToLayer, "BOTTOM");
    EXPECT_EQ(hole.FromLayer, "TOP");
}

void ExpectEmptyTexts(const Hole & hole)
{
    EXPECT_EQ(hole.Name, "");
    EXPECT_EQ(hole.Diameter, "");
    EXPECT_EQ(hole.PlatingStatus, "");
    EXPECT_EQ(hole.PlusTol, "");
    EXPECT_EQ(hole.MinusTol, "");
    EXPECT_EQ(hole.ToLayer, "");
    EXPECT_EQ(hole.FromLayer, "");
}

TEST(Hole, StartsEmpty)
{
    const Hole hole;
    ExpectEmptyTexts(hole);
    ExpectAt(hole, 0.0, 0.0);
}

TEST(Hole, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Hole>);
    EXPECT_TRUE(IsVirtual(&Hole::Export));
    EXPECT_EQ(Slot(&Hole::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Hole::LayerHoleAdd));
}

TEST(Hole, InitLeavesTheLocation)
{
    Hole hole;
    Fill(hole);
    hole.Init();
    ExpectEmptyTexts(hole);
    ExpectAt(hole, 1.5, -2.0);
}

TEST(Hole, ACopyHasTheTextsAndTheDefaultLocation)
{
    Hole source;
    Fill(source);
    const Hole copy(source);
    ExpectFilledTexts(copy);
    ExpectAt(copy, 0.0, 0.0);
}

TEST(Hole, AssignmentLeavesTheLocationOfTheTarget)
{
    Hole source;
    Fill(source);
    Hole target;
    target.Location.SetData(7.0, 8.0);
    EXPECT_EQ(&(target = source), &target);
    ExpectFilledTexts(target);
    ExpectAt(target, 7.0, 8.0);
}

TEST(Hole, AssignmentToItselfChangesNothing)
{
    Hole hole;
    Fill(hole);
    const Hole & same = hole;
    hole = same;
    ExpectFilledTexts(hole);
    ExpectAt(hole, 1.5, -2.0);
}

TEST(Hole, ReadsItsSpan)
{
    Hole hole;
    EXPECT_EQ(Read(hole, {R"(<Span fromLayer="TOP" toLayer="BOTTOM"/>)", "</Hole>", "left"}), Texts{"left"});
    EXPECT_EQ(hole.ToLayer, "BOTTOM");
    EXPECT_EQ(hole.FromLayer, "TOP");
    EXPECT_EQ(hole.Name, "");
}

TEST(Hole, TestsForToLayerBeforeFromLayer)
{
    Hole hole;
    Read(hole, {R"(<Span fromLayer="A"toLayer="B">)", "</Hole>"});
    EXPECT_EQ(hole.ToLayer, "AtoLayer=B");
    EXPECT_EQ(hole.FromLayer, "");
}

TEST(Hole, ScansItsSpanFromTheFirstTokenForWordsWithAnEqualSign)
{
    Hole hole;
    Read(hole, {R"(<SpantoLayer="A B" toLayers="C" fromLayer name="D">)", "</Hole>"});
    EXPECT_EQ(hole.ToLayer, "A B");
    EXPECT_EQ(hole.FromLayer, "");
    EXPECT_EQ(hole.Name, "");
}

TEST(Hole, ASlashTurnsASpanAway)
{
    for (const char * const closing : {R"(</HoleSpan toLayer="B">)", R"(</LayerHoleSpan toLayer="B">)"}) {
        Hole hole;
        EXPECT_EQ(Read(hole, {"<Span/>", R"(<Span/ toLayer="B">)", R"(</Span toLayer="B">)", closing, "left"}),
                  Texts{"left"})
            << closing;
        EXPECT_EQ(hole.ToLayer, "");
    }
}

TEST(Hole, EndsAtBothItsClosingTags)
{
    for (const char * const closing : {"</Hole>", "</LayerHole>", "</Holes>", R"(</LayerHoles x="1">)"}) {
        Hole hole;
        EXPECT_EQ(Read(hole, {closing, "left"}), Texts{"left"}) << closing;
    }
}

TEST(Hole, IgnoresEverythingElse)
{
    Hole hole;
    EXPECT_EQ(Read(hole, {"", R"(<LayerPad layerRef="TOP">)", "</LayerPad>", R"(<Hole name="H" x="1"/>)", "</PadStack>",
                          R"(<span toLayer="B">)", R"(< Span toLayer="B">)", "</hole>", "</LayerHole>", "left"}),
              Texts{"left"});
    ExpectEmptyTexts(hole);
    ExpectAt(hole, 0.0, 0.0);
}

const Texts kHoleLines = {"<Special>", R"(<Span toLayer="B"/>)", "</LayerHole>"};

TEST(Hole, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kHoleLines, [](CStdioFile & file, std::size_t lines) {
        Hole hole;
        hole.LayerHoleAdd(file);
        EXPECT_EQ(hole.ToLayer, lines > 1 ? "B" : "");
    });
}

TEST(Hole, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kHoleLines, [](CStdioFile & file) { Hole().LayerHoleAdd(file); });
}

TEST(Hole, ThrowsForAValueThatItsLineDoesNotClose)
{
    Hole hole;
    EXPECT_THROW(Read(hole, {R"(<Span toLayer="B>)", "</Hole>"}), CInvalidArgException);
    EXPECT_THROW(Read(hole, {"<Span fromLayer=B>", "</Hole>"}), CInvalidArgException);
}

TEST(Hole, WritesOneLine)
{
    Hole hole;
    ExpectExport(hole, Below(R"(
   <Hole name="" diameter="" platingStatus="" plusTol="" minusTol="" x="0.000000" y="0.000000" />
)"));
}

TEST(Hole, WritesItsTextsAsTheyAreAndNoSpan)
{
    Hole hole;
    Fill(hole);
    const char * const line = Below(R"(
   <Hole name="H1" diameter="0.30" platingStatus="PLATED" plusTol="0.1" minusTol="0.2" x="1.500000" y="-2.000000" />
)");
    ExpectExport(hole, line);
    hole.ToLayer = "";
    hole.FromLayer = "";
    ExpectExport(hole, line);
}

TEST(HoleArray, OwnsItsHoles)
{
    ExpectOwnsItsElements<HoleArray, Hole>();
}

TEST(HoleArray, WritesItsHoles)
{
    ExpectWritesItsElements<HoleArray, Hole>();
}

}  // namespace
