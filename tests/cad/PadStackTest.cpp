#include "ipc2581/cad/PadStack.h"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/cad/Hole.h"
#include "ipc2581/cad/Pad.h"
#include "ipc2581/cad/Step.h"
#include "tests/cad/Holes.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"

namespace {

using namespace ipc2581::tests;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using PadArray = CIPC2581_Ecad_CadData_Step_PadArray;
using PadStack = CIPC2581_Ecad_CadData_Step_PadStack;
using PadStackArray = CIPC2581_Ecad_CadData_Step_PadStackArray;

// Reads the lines under a PadStack line and gives those that are left.
Texts Read(PadStack & stack, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    stack.PadStackAdd(file);
    return file.Rest();
}

TEST(PadStack, StartsWithAnEmptyHoleAndNoPads)
{
    const PadStack stack;
    EXPECT_EQ(stack.NetName, "");
    ASSERT_NE(stack.LayerPadArray, nullptr);
    EXPECT_TRUE(stack.LayerPadArray->IsEmpty());
    ASSERT_NE(stack.LayerHole, nullptr);
    EXPECT_EQ(TextsOf(*stack.LayerHole), HoleTexts{});
    EXPECT_EQ(stack.LayerHole->ToLayer, "");
    EXPECT_EQ(stack.LayerHole->FromLayer, "");
    ExpectAt(*stack.LayerHole, 0.0, 0.0);
}

TEST(PadStack, HasAVirtualDestructorAndCannotBeWritten)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<PadStack>);
    EXPECT_FALSE(HasExport<PadStack>);
    EXPECT_FALSE(IsVirtual(&PadStack::PadStackAdd));
}

TEST(PadStack, GivesItsNetOutByValue)
{
    PadStack stack;
    stack.SetNetName("GND");
    EXPECT_EQ(stack.NetName, "GND");
    CString net = stack.GetNetName();
    EXPECT_EQ(net, "GND");
    net = "VCC";
    EXPECT_EQ(stack.GetNetName(), "GND");
}

TEST(PadStack, TakesAnotherListOfPadsAndDeletesNothing)
{
    int deleted = 0;
    PadStack stack;
    PadArray * const replaced = Replace(stack.LayerPadArray, std::make_unique<Counted<PadArray>>(deleted));
    EXPECT_EQ(stack.GetLayerPadArray(), replaced);
    auto * const other = new PadArray;
    stack.SetLayerPadArray(other);
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(stack.LayerPadArray, other);
    EXPECT_EQ(stack.GetLayerPadArray(), other);
    delete replaced;
}

class Noted : public Hole {
public:
    explicit Noted(std::vector<std::string> & notes) : m_notes(notes) {}
    ~Noted() override { m_notes.emplace_back("hole"); }

private:
    std::vector<std::string> & m_notes;
};

class NotedPads : public PadArray {
public:
    explicit NotedPads(std::vector<std::string> & notes) : m_notes(notes) {}
    ~NotedPads() override { m_notes.emplace_back("pads"); }

private:
    std::vector<std::string> & m_notes;
};

TEST(PadStack, DeletesItsHoleBeforeItsPads)
{
    std::vector<std::string> notes;
    {
        PadStack stack;
        Replace(stack.LayerHole, std::make_unique<Noted>(notes));
        Replace(stack.LayerPadArray, std::make_unique<NotedPads>(notes));
    }
    EXPECT_EQ(notes, (std::vector<std::string>{"hole", "pads"}));
}

TEST(PadStack, GoesWithoutItsParts)
{
    std::vector<std::string> notes;
    {
        PadStack stack;
        Replace(stack.LayerHole, std::make_unique<Noted>(notes));
        delete stack.LayerPadArray;
        stack.LayerPadArray = nullptr;
    }
    {
        PadStack stack;
        Replace(stack.LayerPadArray, std::make_unique<NotedPads>(notes));
        delete stack.LayerHole;
        stack.LayerHole = nullptr;
    }
    EXPECT_EQ(notes, (std::vector<std::string>{"hole", "pads"}));
}

TEST(PadStack, ACopySharesHoleAndPads)
{
    PadStack source;
    source.NetName = "GND";
    PadStack copy(source);
    EXPECT_EQ(copy.NetName, "GND");
    EXPECT_EQ(copy.LayerPadArray, source.LayerPadArray);
    EXPECT_EQ(copy.LayerHole, source.LayerHole);
    copy.LayerPadArray = nullptr;
    copy.LayerHole = nullptr;
}

TEST(PadStack, AssignmentSharesHoleAndPads)
{
    PadStack source;
    source.NetName = "GND";
    PadStack target;
    const std::unique_ptr<PadArray> pads(target.LayerPadArray);
    const std::unique_ptr<Hole> hole(target.LayerHole);
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.NetName, "GND");
    EXPECT_EQ(target.LayerPadArray, source.LayerPadArray);
    EXPECT_EQ(target.LayerHole, source.LayerHole);
    target.LayerPadArray = nullptr;
    target.LayerHole = nullptr;
}

TEST(PadStack, TakesItsNetFromTheStep)
{
    CIPC2581_Ecad_CadData_Step step;
    Lines file({R"(<PadStack net="GND">)", R"(<LayerHole name="H1">)", "</LayerHole>", "</PadStack>",
                R"(<PadStack name="S">)", "</PadStack>", "</Step>"});
    Tokens tokens("<Step>");
    step.ReadStep(tokens, file, nullptr);
    ASSERT_EQ(step.PadStackArray.GetSize(), 2);
    EXPECT_EQ(step.PadStackArray.GetAt(0)->NetName, "GND");
    EXPECT_EQ(step.PadStackArray.GetAt(0)->LayerHole->Name, "H1");
    EXPECT_EQ(step.PadStackArray.GetAt(1)->NetName, "");
    EXPECT_EQ(step.PadStackArray.GetAt(1)->LayerHole->Name, "");
    EXPECT_EQ(Written(step).find("PadStack"), std::string::npos);
}

TEST(PadStack, ReadsItsPadsAndItsHole)
{
    PadStack stack;
    EXPECT_EQ(
        Read(stack, {R"(<LayerPad layerRef="TOP" pin="1">)", R"(<Location x="1" y="2"/>)",
                     R"(<StandardPrimitiveRef id="A"/>)", "</LayerPad>",
                     R"(<LayerHole name="H1" diameter="0.30" platingStatus="VIA" plusTol="0.1" )"
                     R"(minusTol="0.2" x="1.5" y="-2">)",
                     R"(<Span fromLayer="TOP" toLayer="BOTTOM"/>)", "</LayerHole>", R"(<LayerPad layerRef="BOTTOM">)",
                     R"(<StandardPrimitiveRef id="B"/>)", "</LayerPad>", "</PadStack>", "left"}),
        Texts{"left"});
    ASSERT_EQ(stack.LayerPadArray->GetSize(), 2);
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->LayerRef, "TOP");
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->Pin, "1");
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->Location.GetY(), 2.0);
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->StandardPrimitiveRefId, "A");
    EXPECT_EQ(stack.LayerPadArray->GetAt(1)->LayerRef, "BOTTOM");
    EXPECT_EQ(stack.LayerPadArray->GetAt(1)->StandardPrimitiveRefId, "B");
    EXPECT_EQ(TextsOf(*stack.LayerHole), (HoleTexts{"H1", "0.30", "VIA", "0.1", "0.2"}));
    ExpectAt(*stack.LayerHole, 1.5, -2.0);
    EXPECT_EQ(stack.LayerHole->FromLayer, "TOP");
    EXPECT_EQ(stack.LayerHole->ToLayer, "BOTTOM");
    EXPECT_EQ(stack.NetName, "");
}

TEST(PadStack, KeepsItsDefaultHoleWithoutALayerHole)
{
    PadStack stack;
    const Hole * const hole = stack.LayerHole;
    Read(stack, {R"(<LayerPad layerRef="TOP">)", "</LayerPad>", "</PadStack>"});
    EXPECT_EQ(stack.LayerHole, hole);
    EXPECT_EQ(TextsOf(*stack.LayerHole), HoleTexts{});
}

TEST(PadStack, ASecondHoleWritesOverTheFieldsThatItNames)
{
    PadStack stack;
    Read(stack,
         {R"(<LayerHole name="H1" diameter="1" platingStatus="VIA" x="1" y="2">)",
          R"(<Span fromLayer="TOP" toLayer="BOTTOM"/>)", "</LayerHole>",
          R"(<LayerHole diameter="2" plusTol="0.1" y="4">)", R"(<Span toLayer="L2"/>)", "</LayerHole>", "</PadStack>"});
    EXPECT_EQ(TextsOf(*stack.LayerHole), (HoleTexts{"H1", "2", "VIA", "0.1", ""}));
    ExpectAt(*stack.LayerHole, 1.0, 4.0);
    EXPECT_EQ(stack.LayerHole->FromLayer, "TOP");
    EXPECT_EQ(stack.LayerHole->ToLayer, "L2");
}

TEST(PadStack, ScansTheLineOfAHoleTwiceInEachStep)
{
    const struct {
        const char * line;
        HoleTexts texts;
        double x;
        double y;
    } rows[] = {
        {R"(<LayerHole y="2" minusTol="e" plusTol="d" platingStatus="c" diameter="b" name="a" x="1">)",
         {"a", "b", "c", "d", "e"},
         1.0,
         2.0},
        // Every token counts, the first one too, and only words with their equal sign.
        {R"(<LayerHolename="a" Name="b" diameters="c" platingStatus plusTol ="d" minusTols="e" X="1" yy ="2">)",
         {"a", "", "", "", ""},
         0.0,
         0.0},
        {R"(<LayerHole filename="a" maxx="3" offsety="4">)", {"a", "", "", "", ""}, 3.0, 4.0},
        // In the chain of the texts the first word that fits takes the token.
        {R"(<LayerHole diameter="b"name="a">)", {"bname=a", "", "", "", ""}, 0.0, 0.0},
        {R"(<LayerHole platingStatus="c"name="a">)", {"cname=a", "", "", "", ""}, 0.0, 0.0},
        {R"(<LayerHole platingStatus="c"diameter="b">)", {"", "cdiameter=b", "", "", ""}, 0.0, 0.0},
        {R"(<LayerHole plusTol="d"platingStatus="c">)", {"", "", "dplatingStatus=c", "", ""}, 0.0, 0.0},
        {R"(<LayerHole minusTol="e"plusTol="d">)", {"", "", "", "eplusTol=d", ""}, 0.0, 0.0},
        {R"(<LayerHole minusTol="e"name="a">)", {"ename=a", "", "", "", ""}, 0.0, 0.0},
        // x goes before y.
        {R"(<LayerHole y="2"x="1">)", {}, 2.0, 0.0},
        // The token of a text is tested for a coordinate too.
        {R"(<LayerHole diameter="3"x="4">)", {"", "3x=4", "", "", ""}, 3.0, 0.0},
        {R"(<LayerHole minusTol="5"y="6">)", {"", "", "", "", "5y=6"}, 0.0, 5.0},
        // So is the token on which a value that runs on has ended, from where the number runs on itself.
        {R"(<LayerHole name="H x=5" y="2" diameter="1">)", {"H 5", "1", "", "", ""}, 5.0, 0.0},
        {R"(<LayerHole diameter="a y=7" name="b">)", {"", "a 7", "", "", ""}, 0.0, 7.0},
        {R"(<LayerHole name="two words" x="1" y="2">)", {"two words", "", "", "", ""}, 1.0, 2.0},
        // A number that runs on hides the tokens of its value.
        {R"(<LayerHole x="1 name=2" diameter="3">)", {"", "3", "", "", ""}, 1.0, 0.0},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        PadStack stack;
        Read(stack, {row.line, "</LayerHole>", "</PadStack>"});
        EXPECT_EQ(TextsOf(*stack.LayerHole), row.texts);
        ExpectAt(*stack.LayerHole, row.x, row.y);
    }
}

TEST(PadStack, ThrowsForAnAttributeThatItsLineDoesNotClose)
{
    for (const char * const line :
         {R"(<LayerHole name="open>)", "<LayerHole name=1>", R"(<LayerHole x="1>)", "<LayerHole y=1>",
          // The text is complete, and the number behind it runs off the end.
          R"(<LayerHole name="H x=5">)", R"(<LayerPad layerRef="TOP>)", "<LayerPad pin=1>"}) {
        PadStack stack;
        EXPECT_THROW(Read(stack, {line, "</LayerHole>", "</LayerPad>", "</PadStack>"}), CInvalidArgException) << line;
        EXPECT_TRUE(stack.LayerPadArray->IsEmpty());
    }
}

TEST(PadStack, KeepsTheTextInFrontOfACutNumber)
{
    PadStack stack;
    EXPECT_THROW(Read(stack, {R"(<LayerHole name="H x=5">)", "</LayerHole>"}), CInvalidArgException);
    EXPECT_EQ(stack.LayerHole->Name, "H 5");
    ExpectAt(*stack.LayerHole, 0.0, 0.0);
}

TEST(PadStack, ReadsABadCoordinateAsZero)
{
    PadStack stack;
    stack.LayerHole->Location.SetData(1.0, 2.0);
    Read(stack, {R"(<LayerHole x="left" y="">)", "</LayerHole>", "</PadStack>"});
    ExpectAt(*stack.LayerHole, 0.0, 0.0);
}

TEST(PadStack, ScansTheLineOfAPad)
{
    const struct {
        const char * line;
        const char * layer;
        const char * pin;
    } rows[] = {
        {R"(<LayerPad pin="1" layerRef="TOP">)", "TOP", "1"},
        {R"(<LayerPadlayerRef="TOP" spin="2">)", "TOP", "2"},
        {R"(<LayerPad layerRefs="TOP" LayerRef="TOP" pin ="1" x="3">)", "", ""},
        {R"(<LayerPad pin="1"layerRef="TOP">)", "1layerRef=TOP", ""},
        {R"(<LayerPad layerRef="A pin=B" pin="U1.2">)", "A B", "U1.2"},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        PadStack stack;
        Read(stack, {row.line, "</LayerPad>", "</PadStack>"});
        ASSERT_EQ(stack.LayerPadArray->GetSize(), 1);
        EXPECT_EQ(stack.LayerPadArray->GetAt(0)->LayerRef, row.layer);
        EXPECT_EQ(stack.LayerPadArray->GetAt(0)->Pin, row.pin);
        EXPECT_EQ(stack.LayerPadArray->GetAt(0)->Location.GetX(), 0.0);
        EXPECT_EQ(stack.LayerPadArray->GetAt(0)->UsePinPrefix, 0);
        EXPECT_EQ(stack.LayerPadArray->GetAt(0)->PinPrefix, "");
    }
}

TEST(PadStack, TestsForTheHoleBeforeThePad)
{
    PadStack stack;
    EXPECT_EQ(Read(stack,
                   {R"(<LayerPadLayerHole name="H" layerRef="TOP">)", "</LayerPad>", "</Hole>", "</PadStack>", "left"}),
              Texts{"left"});
    EXPECT_EQ(stack.LayerHole->Name, "H");
    EXPECT_TRUE(stack.LayerPadArray->IsEmpty());
}

TEST(PadStack, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const word : {"LayerHole", "LayerPad"}) {
        SCOPED_TRACE(word);
        const std::string attributes = R"( name="H" layerRef="TOP">)";
        PadStack stack;
        EXPECT_EQ(
            Read(stack, {"<" + std::string(word) + "/>", "<" + std::string(word) + "/" + attributes,
                         "</" + std::string(word) + attributes, "</PadStack" + std::string(word) + attributes, "left"}),
            Texts{"left"});
        EXPECT_EQ(stack.LayerHole->Name, "");
        EXPECT_TRUE(stack.LayerPadArray->IsEmpty());
    }
}

TEST(PadStack, IgnoresEmptyAndUnknownLines)
{
    PadStack stack;
    EXPECT_EQ(Read(stack, {"", R"(<Pad pin="1">)", R"(<Hole name="H"/>)", "</Pad>", "</Hole>", R"(<layerpad pin="1">)",
                           R"(< LayerPad pin="1">)", R"(<Span toLayer="B"/>)", "</padstack>", "</PadStack>", "left"}),
              Texts{"left"});
    EXPECT_TRUE(stack.LayerPadArray->IsEmpty());
    EXPECT_EQ(TextsOf(*stack.LayerHole), HoleTexts{});
    EXPECT_EQ(stack.LayerHole->ToLayer, "");
}

TEST(PadStack, ASelfClosedHoleSwallowsTheLinesUpToTheNextHoleThatEnds)
{
    PadStack stack;
    EXPECT_EQ(Read(stack, {R"(<LayerHole name="H1" />)", R"(<LayerPad layerRef="TOP">)", "</LayerPad>", "</PadStack>",
                           R"(<PadStack net="B">)", R"(<LayerHole name="H2">)", R"(<Span toLayer="L2"/>)",
                           "</LayerHole>", R"(<LayerPad layerRef="BOTTOM">)", "</LayerPad>", "</PadStack>", "left"}),
              Texts{"left"});
    EXPECT_EQ(stack.LayerHole->Name, "H1");
    EXPECT_EQ(stack.LayerHole->ToLayer, "L2");
    ASSERT_EQ(stack.LayerPadArray->GetSize(), 1);
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->LayerRef, "BOTTOM");
}

TEST(PadStack, ASelfClosedPadSwallowsTheEndOfItsStack)
{
    PadStack stack;
    EXPECT_EQ(Read(stack, {R"(<LayerPad layerRef="TOP" />)", R"(<LayerHole name="H1">)", "</LayerHole>", "</PadStack>",
                           R"(<LayerPad layerRef="BOTTOM">)", "</LayerPad>", "</PadStack>", "left"}),
              Texts{"left"});
    EXPECT_EQ(stack.LayerHole->Name, "");
    ASSERT_EQ(stack.LayerPadArray->GetSize(), 2);
    EXPECT_EQ(stack.LayerPadArray->GetAt(1)->LayerRef, "BOTTOM");
}

const Texts kStackLines = {R"(<LayerPad layerRef="TOP">)",
                           R"(<Location x="1"/>)",
                           "</LayerPad>",
                           R"(<LayerHole name="H">)",
                           R"(<Span toLayer="B"/>)",
                           "</LayerHole>",
                           R"(<LayerPad layerRef="BOTTOM">)",
                           "</LayerPad>",
                           "</PadStack>"};

TEST(PadStack, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kStackLines, [](CStdioFile & file, std::size_t lines) {
        PadStack stack;
        stack.PadStackAdd(file);
        EXPECT_EQ(stack.LayerPadArray->GetSize(), lines > 6 ? 2 : static_cast<int>(lines > 0));
        EXPECT_EQ(stack.LayerHole->Name, lines > 3 ? "H" : "");
        EXPECT_EQ(stack.LayerHole->ToLayer, lines > 4 ? "B" : "");
    });
}

TEST(PadStack, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kStackLines, [](CStdioFile & file) { PadStack().PadStackAdd(file); });
}

TEST(PadStack, LosesThePadInHandWithAnException)
{
    PadStack stack;
    EXPECT_THROW(Read(stack, {R"(<LayerPad pin="1">)", "</LayerPad>", R"(<LayerPad pin="2">)", " ", "</LayerPad>"}),
                 CInvalidArgException);
    ASSERT_EQ(stack.LayerPadArray->GetSize(), 1);
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->Pin, "1");
}

TEST(PadStackArray, OwnsItsStacksAndCannotBeWritten)
{
    ExpectOwnsItsElements<PadStackArray, PadStack>();
    EXPECT_FALSE(HasExport<PadStackArray>);
}

}  // namespace
