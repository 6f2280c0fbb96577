#include "ipc2581/cad/LayerFeatureSet.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Features.h"
#include "ipc2581/cad/Hole.h"
#include "ipc2581/cad/Pad.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/cad/Holes.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;
using SetArray = CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray;

// Reads the lines under a Set line and gives those that are left.
Texts Read(Set & set, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    set.SetAdd(file);
    return file.Rest();
}

void Fill(Set & set)
{
    Read(set, {R"(<ColorRef id="C1"/>)", "<Features>", R"(<Location x="1" y="2"/>)", R"(<Circle diameter="3"/>)",
               "</Features>", R"(<Pad pin="4">)", R"(<Location x="5" y="6"/>)", "</Pad>",
               R"(<Hole name="H" diameter="0.3" x="7" y="8"/>)", "</Set>"});
    set.Net = "GND";
    set.TestPoint = true;
    set.Plate = true;
    set.PadUsage = "VIA";
}

void ExpectFilledButForTheHolePosition(const Set & set)
{
    EXPECT_EQ(set.Kind, 2);
    EXPECT_EQ(set.Net, "GND");
    EXPECT_EQ(set.ColorRef, "C1");
    EXPECT_TRUE(set.TestPoint);
    EXPECT_TRUE(set.Plate);
    EXPECT_EQ(set.PadUsage, "VIA");
    EXPECT_EQ(set.Features.Location.GetX(), 1.0);
    EXPECT_EQ(set.Features.Location.GetY(), 2.0);
    ASSERT_EQ(set.Features.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CIPC2581_DicDraw_Circle &>(*set.Features.DrawObjArray.GetAt(0)).Diameter, 3.0);
    EXPECT_EQ(set.Pad.Pin, "4");
    EXPECT_EQ(set.Pad.Location.GetX(), 5.0);
    EXPECT_EQ(set.Pad.Location.GetY(), 6.0);
    EXPECT_EQ(TextsOf(set.Hole), (HoleTexts{"H", "0.3", "", "", ""}));
}

TEST(LayerFeatureSet, StartsEmpty)
{
    const Set set;
    EXPECT_EQ(set.Kind, 0);
    EXPECT_EQ(set.Net, "");
    EXPECT_EQ(set.ColorRef, "");
    EXPECT_FALSE(set.TestPoint);
    EXPECT_FALSE(set.Plate);
    EXPECT_EQ(set.PadUsage, "");
    EXPECT_TRUE(set.Features.DrawObjArray.IsEmpty());
    EXPECT_EQ(set.Pad.Pin, "");
    EXPECT_EQ(TextsOf(set.Hole), HoleTexts{});
    ExpectAt(set.Hole, 0.0, 0.0);
}

TEST(LayerFeatureSet, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Set>);
    EXPECT_TRUE(IsVirtual(&Set::Export));
    EXPECT_EQ(Slot(&Set::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Set::SetAdd));
}

TEST(LayerFeatureSet, ACopyHasEverythingButThePositionOfTheHole)
{
    Set source;
    Fill(source);
    const Set copy(source);
    ExpectFilledButForTheHolePosition(copy);
    EXPECT_NE(copy.Features.DrawObjArray.GetAt(0), source.Features.DrawObjArray.GetAt(0));
    ExpectAt(copy.Hole, 0.0, 0.0);
}

TEST(LayerFeatureSet, AssignmentLeavesThePositionOfTheHole)
{
    Set source;
    Fill(source);
    Set target;
    target.Hole.Location.SetData(9.0, 10.0);
    target.Features.DrawObjArray.Add(new CIPC2581_DrawObj);
    EXPECT_EQ(&(target = source), &target);
    ExpectFilledButForTheHolePosition(target);
    EXPECT_NE(target.Features.DrawObjArray.GetAt(0), source.Features.DrawObjArray.GetAt(0));
    ExpectAt(target.Hole, 9.0, 10.0);
}

TEST(LayerFeatureSet, AssignmentToItselfChangesNothing)
{
    Set set;
    Fill(set);
    const Set & same = set;
    set = same;
    ExpectFilledButForTheHolePosition(set);
    ExpectAt(set.Hole, 7.0, 8.0);
}

TEST(LayerFeatureSet, IsOfTheKindThatItReadLast)
{
    const std::string_view features[] = {"<Features>", "</Features>"};
    Set set;
    set.Kind = 7;
    Read(set, {R"(<ColorRef id="C1"/>)", R"(<Xform rotation="90"/>)", "</Set>"});
    EXPECT_EQ(set.Kind, 7);
    Read(set, {features[0], features[1], "</Set>"});
    EXPECT_EQ(set.Kind, 0);
    Read(set, {R"(<Pad pin="1">)", "</Pad>", "</Set>"});
    EXPECT_EQ(set.Kind, 1);
    Read(set, {R"(<Hole name="H"/>)", "</Set>"});
    EXPECT_EQ(set.Kind, 2);
    Read(set, {features[0], features[1], "</Set>"});
    EXPECT_EQ(set.Kind, 0);
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Hole.Name, "H");
}

TEST(LayerFeatureSet, KeepsTheKindsApart)
{
    Set set;
    EXPECT_EQ(Read(set, {R"(<Hole name="H" x="1"/>)", R"(<Pad pin="1">)", R"(<Location x="2" y="3"/>)", "</Pad>",
                         "<Features>", R"(<Location x="4" y="5"/>)", R"(<Circle diameter="1"/>)", "</Features>",
                         "</Set>", "left"}),
              Texts{"left"});
    ExpectAt(set.Hole, 1.0, 0.0);
    EXPECT_EQ(set.Pad.Location.GetX(), 2.0);
    EXPECT_EQ(set.Features.Location.GetX(), 4.0);
    EXPECT_EQ(set.Features.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(set.Net, "");
}

TEST(LayerFeatureSet, ASecondBlockOfFeaturesAddsToTheFirst)
{
    Set set;
    Read(set, {"<Features>", R"(<Circle diameter="1"/>)", "</Features>", "<Features>", R"(<Circle diameter="2"/>)",
               "</Features>", "</Set>"});
    EXPECT_EQ(set.Features.DrawObjArray.GetSize(), 2);
}

TEST(LayerFeatureSet, ASecondPadOrHoleWritesOverTheFieldsThatItNames)
{
    Set set;
    Read(set, {R"(<Pad pin="1">)", R"(<Location x="1" y="2"/>)", "</Pad>", "<Pad>", R"(<Location x="3"/>)", "</Pad>",
               R"(<Hole name="H1" diameter="1" x="1" y="2"/>)", R"(<Hole diameter="2" x="3"/>)", "</Set>"});
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Pad.Location.GetX(), 3.0);
    EXPECT_EQ(set.Pad.Location.GetY(), 2.0);
    EXPECT_EQ(TextsOf(set.Hole), (HoleTexts{"H1", "2", "", "", ""}));
    ExpectAt(set.Hole, 3.0, 2.0);
}

TEST(LayerFeatureSet, TakesTheLastColourWhateverSlashItsLineHas)
{
    Set set;
    EXPECT_EQ(Read(set, {R"(<ColorRef id="C1"/>)", R"(<ColorRefid="C2" />)", R"(<ColorRef ids="C3" Id="C4">)", "left"}),
              Texts{});
    EXPECT_EQ(set.ColorRef, "C2");
    EXPECT_EQ(Read(set, {R"(</ColorRef id="C5">)", R"(</SetColorRef grid="C 6">)", "</Set>", "left"}), Texts{"left"});
    EXPECT_EQ(set.ColorRef, "C 6");
}

TEST(LayerFeatureSet, PassesOverAnyTransformFirst)
{
    Set set;
    EXPECT_EQ(Read(set, {R"(<Xform rotation="90" x="1"/>)", R"(<ColorRefXform id="C1">)", R"(<XformHole name="H">)",
                         "<Xform/>", "</SetXform>", "</Set>", "left"}),
              Texts{"left"});
    EXPECT_EQ(set.ColorRef, "");
    EXPECT_EQ(set.Hole.Name, "");
    EXPECT_EQ(set.Kind, 0);
}

TEST(LayerFeatureSet, TestsForTheColourBeforeTheFeatures)
{
    Set set;
    set.Kind = 7;
    EXPECT_EQ(Read(set, {R"(<FeaturesColorRef id="C1">)", "</Set>", "left"}), Texts{"left"});
    EXPECT_EQ(set.ColorRef, "C1");
    EXPECT_EQ(set.Kind, 7);
}

TEST(LayerFeatureSet, TestsForTheFeaturesBeforeThePad)
{
    Set set;
    set.Kind = 7;
    Read(set, {R"(<PadFeatures pin="1">)", R"(<Circle diameter="1"/>)", "</Features>", "</Set>"});
    EXPECT_EQ(set.Kind, 0);
    EXPECT_EQ(set.Pad.Pin, "");
    EXPECT_EQ(set.Features.DrawObjArray.GetSize(), 1);
}

TEST(LayerFeatureSet, TestsForThePadBeforeTheHole)
{
    Set set;
    Read(set, {R"(<HolePad pin="1" name="H">)", "</Pad>", "</Set>"});
    EXPECT_EQ(set.Kind, 1);
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Hole.Name, "");
}

TEST(LayerFeatureSet, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const word : {"Features", "Pad", "Hole"}) {
        SCOPED_TRACE(word);
        const std::string attributes = R"( pin="1" name="H" x="2">)";
        Set set;
        set.Kind = 7;
        EXPECT_EQ(Read(set, {"<" + std::string(word) + "/>", "<" + std::string(word) + "/" + attributes,
                             "</" + std::string(word) + attributes, "</Set" + std::string(word) + attributes, "left"}),
                  Texts{"left"});
        EXPECT_EQ(set.Kind, 7);
        EXPECT_EQ(set.Pad.Pin, "");
        EXPECT_EQ(set.Hole.Name, "");
    }
}

TEST(LayerFeatureSet, IgnoresEmptyAndUnknownLines)
{
    Set set;
    EXPECT_EQ(
        Read(set, {"", R"(<Set net="A">)", R"(<Location x="1"/>)", R"(<Circle diameter="1"/>)", R"(<hole name="H">)",
                   R"(< Hole name="H">)", R"(<Span toLayer="B"/>)", "</LayerFeature>", "</set>", "</Set>", "left"}),
        Texts{"left"});
    EXPECT_EQ(set.Net, "");
    EXPECT_EQ(set.Hole.Name, "");
    EXPECT_EQ(set.Hole.ToLayer, "");
    EXPECT_TRUE(set.Features.DrawObjArray.IsEmpty());
}

TEST(LayerFeatureSet, TakesThePinOfAPadLine)
{
    const struct {
        const char * line;
        const char * pin;
    } rows[] = {
        {R"(<Pad pin="1" x="5" layerRef="TOP">)", "1"},
        {R"(<Padpin="1" >)", "1"},
        {R"(<Pad pin="U1.2 a" spin="3">)", "3"},
        {R"(<Pad pins="1" Pin="2" pin ="3">)", ""},
        {R"(<Pad pin="U1.2">)", "U1.2"},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        Set set;
        Read(set, {row.line, "</Pad>", "</Set>"});
        EXPECT_EQ(set.Pad.Pin, row.pin);
        EXPECT_EQ(set.Pad.LayerRef, "");
        EXPECT_EQ(set.Pad.Location.GetX(), 0.0);
        EXPECT_EQ(set.Pad.UsePinPrefix, 0);
        EXPECT_EQ(set.Pad.PinPrefix, "");
    }
}

TEST(LayerFeatureSet, ScansTheLineOfAHoleTwiceInEachStep)
{
    const struct {
        const char * line;
        HoleTexts texts;
        double x;
        double y;
    } rows[] = {
        {R"(<Hole y="2" minusTol="e" plusTol="d" platingStatus="c" diameter="b" name="a" x="1"/>)",
         {"a", "b", "c", "d", "e"},
         1.0,
         2.0},
        // Every token counts, the first one too, and only words with their equal sign.
        {R"(<Holename="a" Name="b" diameters="c" platingStatus plusTol ="d" minusTols="e" X="1" yy ="2">)",
         {"a", "", "", "", ""},
         0.0,
         0.0},
        // In the chain of the texts the first word that fits takes the token.
        {R"(<Hole diameter="b"name="a">)", {"bname=a", "", "", "", ""}, 0.0, 0.0},
        {R"(<Hole platingStatus="c"diameter="b">)", {"", "cdiameter=b", "", "", ""}, 0.0, 0.0},
        {R"(<Hole plusTol="d"platingStatus="c">)", {"", "", "dplatingStatus=c", "", ""}, 0.0, 0.0},
        {R"(<Hole minusTol="e"plusTol="d">)", {"", "", "", "eplusTol=d", ""}, 0.0, 0.0},
        // x goes before y.
        {R"(<Hole y="2"x="1">)", {}, 2.0, 0.0},
        // The token of a text is tested for a coordinate too.
        {R"(<Hole name="3"x="4">)", {"3x=4", "", "", "", ""}, 3.0, 0.0},
        {R"(<Hole platingStatus="5"y="6">)", {"", "", "5y=6", "", ""}, 0.0, 5.0},
        // So is the token on which a value that runs on has ended, from where the number runs on itself.
        {R"(<Hole name="H x=5" y="2" diameter="1">)", {"H 5", "1", "", "", ""}, 5.0, 0.0},
        {R"(<Hole diameter="a y=7" name="b">)", {"", "a 7", "", "", ""}, 0.0, 7.0},
        {R"(<Hole name="two words" x="1" y="2" />)", {"two words", "", "", "", ""}, 1.0, 2.0},
        {R"(<Hole x="1 name=2" diameter="3">)", {"", "3", "", "", ""}, 1.0, 0.0},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        Set set;
        EXPECT_EQ(Read(set, {row.line, "</Set>", "left"}), Texts{"left"});
        EXPECT_EQ(set.Kind, 2);
        EXPECT_EQ(TextsOf(set.Hole), row.texts);
        ExpectAt(set.Hole, row.x, row.y);
    }
}

TEST(LayerFeatureSet, KeepsTheLastValueOfASelfClosingHoleClean)
{
    Set set;
    Read(set, {R"(<Hole x="1" y="2" name="H" diameter="0.300" platingStatus="VIA" plusTol="0" minusTol="0.10"/>)",
               "</Hole>", "</Set>"});
    EXPECT_EQ(TextsOf(set.Hole), (HoleTexts{"H", "0.300", "VIA", "0", "0.10"}));
    ExpectExport(set, Below(R"(
   <Set>
      <Hole name="H" diameter="0.300" platingStatus="VIA" plusTol="0" minusTol="0.10" x="1.000000" y="2.000000" />
   </Set>
)"));
}

const Texts kSetLines = {R"(<ColorRef id="C"/>)", "<Features>", R"(<Circle diameter="1"/>)", "</Features>",
                         R"(<Pad pin="1">)",      "</Pad>",     R"(<Hole name="H"/>)",       "</Set>"};

TEST(LayerFeatureSet, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kSetLines, [](CStdioFile & file, std::size_t lines) {
        Set set;
        set.Kind = 7;
        set.SetAdd(file);
        EXPECT_EQ(set.ColorRef, lines > 0 ? "C" : "");
        EXPECT_EQ(set.Features.DrawObjArray.GetSize(), lines > 2 ? 1 : 0);
        EXPECT_EQ(set.Pad.Pin, lines > 4 ? "1" : "");
        EXPECT_EQ(set.Hole.Name, lines > 6 ? "H" : "");
        EXPECT_EQ(set.Kind, lines > 6 ? 2 : lines > 4 ? 1 : lines > 1 ? 0 : 7);
    });
}

TEST(LayerFeatureSet, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kSetLines, [](CStdioFile & file) { Set().SetAdd(file); });
}

TEST(LayerFeatureSet, ThrowsForAnAttributeThatItsLineDoesNotClose)
{
    for (const char * const line : {R"(<ColorRef id="C>)", "<Pad pin=1>", R"(<Hole name="H>)", R"(<Hole x="1>)",
                                    R"(<Hole name="H x=5">)", R"(<Hole minusTol="1 y=2"/>)"}) {
        Set set;
        EXPECT_THROW(Read(set, {line, "</Pad>", "</Set>"}), CInvalidArgException) << line;
    }
}

TEST(LayerFeatureSet, ASelfClosedPadReadsOnToTheNextEndOfAPad)
{
    Set set;
    EXPECT_EQ(Read(set, {R"(<Pad pin="1" />)", R"(<Location x="1" y="2"/>)", "</Set>", "<Set>", R"(<Pad pin="2">)",
                         "</Pad>", "</Set>", "left"}),
              Texts{"left"});
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Pad.Location.GetX(), 1.0);
}

const std::string kFeatures = Below(R"(
      <Features>
         <Location x="0.000000" y="0.000000"/>
      </Features>
   </Set>
)");

const std::string kPad = Below(R"(
      <Pad pin="1">
         <Location x="0.000000" y="0.000000"/>
         <StandardPrimitiveRef id=""/>
      </Pad>
   </Set>
)");

const std::string kHole =
    Joined({R"(      <Hole name="H" diameter="" platingStatus="" plusTol="" minusTol="" x="0.000000" y="0.000000" />)",
            "   </Set>"});

// A set that holds something for each kind.
void FillForWriting(Set & set, int kind)
{
    set.Kind = kind;
    set.ColorRef = "C1";
    set.Pad.Pin = "1";
    set.Hole.Name = "H";
}

TEST(LayerFeatureSet, WritesFeaturesWithTheNetAlone)
{
    Set set;
    FillForWriting(set, 0);
    ExpectExport(set, Joined({R"(   <Set net="">)"}) + kFeatures);
    set.Net = "GND";
    set.TestPoint = true;
    set.Plate = true;
    set.PadUsage = "VIA";
    ExpectExport(set, Joined({R"(   <Set net="GND">)"}) + kFeatures);
}

TEST(LayerFeatureSet, WritesAPadWithItsFlags)
{
    Set set;
    FillForWriting(set, 1);
    ExpectExport(set, Joined({R"(   <Set testPoint="FALSE" plate="FALSE" padUsage="">)"}) + kPad);
    set.TestPoint = true;
    set.PadUsage = "VIA";
    ExpectExport(set, Joined({R"(   <Set testPoint="TRUE" plate="FALSE" padUsage="VIA">)"}) + kPad);
    set.Net = "GND";
    ExpectExport(set, Joined({R"(   <Set net="GND" testPoint="TRUE" plate="FALSE" padUsage="VIA">)"}) + kPad);
    set.TestPoint = false;
    set.Plate = true;
    ExpectExport(set, Joined({R"(   <Set net="GND" testPoint="FALSE" plate="TRUE" padUsage="VIA">)"}) + kPad);
}

TEST(LayerFeatureSet, WritesAHoleWithNothingOfTheSet)
{
    Set set;
    FillForWriting(set, 2);
    set.Net = "GND";
    set.TestPoint = true;
    set.Plate = true;
    set.PadUsage = "VIA";
    ExpectExport(set, "   <Set>\n" + kHole);
}

TEST(LayerFeatureSet, WritesItsClosingLineAloneForAnyOtherKind)
{
    for (const int kind : {-1, 3, 4, 100}) {
        Set set;
        FillForWriting(set, kind);
        set.Net = "GND";
        ExpectExport(set, "   </Set>\n");
    }
}

TEST(LayerFeatureSet, StopsWhenItsFeaturesGiveZero)
{
    Set set;
    set.Features.DrawObjArray.Add(new CIPC2581_DrawObj);
    EXPECT_EQ(Exported(set), (Export{0, Below(R"(
   <Set net="">
      <Features>
         <Location x="0.000000" y="0.000000"/>
)")}));
    set.Kind = 1;
    EXPECT_EQ(Exported(set).result, 1);
}

TEST(LayerFeatureSetArray, OwnsItsSets)
{
    ExpectOwnsItsElements<SetArray, Set>();
}

TEST(LayerFeatureSetArray, WritesItsSets)
{
    ExpectWritesItsElements<SetArray, Set>();
}

}  // namespace
