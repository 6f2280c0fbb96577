#include "ipc2581/cad/LayerFeatureSet.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/cad/Features.h"
#include "ipc2581/cad/Hole.h"
#include "ipc2581/cad/Pad.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/cad/Models.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"

namespace {

using namespace ipc2581::tests;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;
using SetArray = CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray;

// Reads the lines under a Set line and gives those that are left.
TextLines Read(Set & set, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    set.SetAdd(file);
    return file.Rest();
}

using Five = std::array<std::string, 5>;

// Name, diameter, plating status and the two tolerances.
Five TextsOf(const Hole & hole)
{
    return {Str(hole.Name), Str(hole.Diameter), Str(hole.PlatingStatus), Str(hole.PlusTol), Str(hole.MinusTol)};
}

void ExpectAt(const Hole & hole, double x, double y)
{
    EXPECT_EQ(hole.Location.GetX(), x);
    EXPECT_EQ(hole.Location.GetY(), y);
}

void Fill(Set & set)
{
    Read(set, {"<ColorRef id=\"C1\"/>", "<Features>", "<Location x=\"1\" y=\"2\"/>", "<Circle diameter=\"3\"/>",
               "</Features>", "<Pad pin=\"4\">", "<Location x=\"5\" y=\"6\"/>", "</Pad>",
               "<Hole name=\"H\" diameter=\"0.3\" x=\"7\" y=\"8\"/>", "</Set>"});
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
    EXPECT_EQ(TextsOf(set.Hole), (Five{"H", "0.3", "", "", ""}));
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
    EXPECT_EQ(TextsOf(set.Hole), Five{});
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
    Read(set, {"<ColorRef id=\"C1\"/>", "<Xform rotation=\"90\"/>", "</Set>"});
    EXPECT_EQ(set.Kind, 7);
    Read(set, {features[0], features[1], "</Set>"});
    EXPECT_EQ(set.Kind, 0);
    Read(set, {"<Pad pin=\"1\">", "</Pad>", "</Set>"});
    EXPECT_EQ(set.Kind, 1);
    Read(set, {"<Hole name=\"H\"/>", "</Set>"});
    EXPECT_EQ(set.Kind, 2);
    Read(set, {features[0], features[1], "</Set>"});
    EXPECT_EQ(set.Kind, 0);
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Hole.Name, "H");
}

TEST(LayerFeatureSet, KeepsTheKindsApart)
{
    Set set;
    EXPECT_EQ(Read(set, {"<Hole name=\"H\" x=\"1\"/>", "<Pad pin=\"1\">", "<Location x=\"2\" y=\"3\"/>", "</Pad>",
                         "<Features>", "<Location x=\"4\" y=\"5\"/>", "<Circle diameter=\"1\"/>", "</Features>",
                         "</Set>", "left"}),
              TextLines{"left"});
    ExpectAt(set.Hole, 1.0, 0.0);
    EXPECT_EQ(set.Pad.Location.GetX(), 2.0);
    EXPECT_EQ(set.Features.Location.GetX(), 4.0);
    EXPECT_EQ(set.Features.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(set.Net, "");
}

TEST(LayerFeatureSet, ASecondBlockOfFeaturesAddsToTheFirst)
{
    Set set;
    Read(set, {"<Features>", "<Circle diameter=\"1\"/>", "</Features>", "<Features>", "<Circle diameter=\"2\"/>",
               "</Features>", "</Set>"});
    EXPECT_EQ(set.Features.DrawObjArray.GetSize(), 2);
}

TEST(LayerFeatureSet, ASecondPadOrHoleWritesOverTheFieldsThatItNames)
{
    Set set;
    Read(set, {"<Pad pin=\"1\">", "<Location x=\"1\" y=\"2\"/>", "</Pad>", "<Pad>", "<Location x=\"3\"/>", "</Pad>",
               "<Hole name=\"H1\" diameter=\"1\" x=\"1\" y=\"2\"/>", "<Hole diameter=\"2\" x=\"3\"/>", "</Set>"});
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Pad.Location.GetX(), 3.0);
    EXPECT_EQ(set.Pad.Location.GetY(), 2.0);
    EXPECT_EQ(TextsOf(set.Hole), (Five{"H1", "2", "", "", ""}));
    ExpectAt(set.Hole, 3.0, 2.0);
}

TEST(LayerFeatureSet, TakesTheLastColourWhateverSlashItsLineHas)
{
    Set set;
    EXPECT_EQ(Read(set, {"<ColorRef id=\"C1\"/>", "<ColorRefid=\"C2\" />", "<ColorRef ids=\"C3\" Id=\"C4\">", "left"}),
              TextLines{});
    EXPECT_EQ(set.ColorRef, "C2");
    EXPECT_EQ(Read(set, {"</ColorRef id=\"C5\">", "</SetColorRef grid=\"C 6\">", "</Set>", "left"}), TextLines{"left"});
    EXPECT_EQ(set.ColorRef, "C 6");
}

TEST(LayerFeatureSet, PassesOverAnyTransformFirst)
{
    Set set;
    EXPECT_EQ(Read(set, {"<Xform rotation=\"90\" x=\"1\"/>", "<ColorRefXform id=\"C1\">", "<XformHole name=\"H\">",
                         "<Xform/>", "</SetXform>", "</Set>", "left"}),
              TextLines{"left"});
    EXPECT_EQ(set.ColorRef, "");
    EXPECT_EQ(set.Hole.Name, "");
    EXPECT_EQ(set.Kind, 0);
}

TEST(LayerFeatureSet, TestsForTheColourBeforeTheFeatures)
{
    Set set;
    set.Kind = 7;
    EXPECT_EQ(Read(set, {"<FeaturesColorRef id=\"C1\">", "</Set>", "left"}), TextLines{"left"});
    EXPECT_EQ(set.ColorRef, "C1");
    EXPECT_EQ(set.Kind, 7);
}

TEST(LayerFeatureSet, TestsForTheFeaturesBeforeThePad)
{
    Set set;
    set.Kind = 7;
    Read(set, {"<PadFeatures pin=\"1\">", "<Circle diameter=\"1\"/>", "</Features>", "</Set>"});
    EXPECT_EQ(set.Kind, 0);
    EXPECT_EQ(set.Pad.Pin, "");
    EXPECT_EQ(set.Features.DrawObjArray.GetSize(), 1);
}

TEST(LayerFeatureSet, TestsForThePadBeforeTheHole)
{
    Set set;
    Read(set, {"<HolePad pin=\"1\" name=\"H\">", "</Pad>", "</Set>"});
    EXPECT_EQ(set.Kind, 1);
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Hole.Name, "");
}

TEST(LayerFeatureSet, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const word : {"Features", "Pad", "Hole"}) {
        SCOPED_TRACE(word);
        const std::string attributes = " pin=\"1\" name=\"H\" x=\"2\">";
        Set set;
        set.Kind = 7;
        EXPECT_EQ(Read(set, {"<" + std::string(word) + "/>", "<" + std::string(word) + "/" + attributes,
                             "</" + std::string(word) + attributes, "</Set" + std::string(word) + attributes, "left"}),
                  TextLines{"left"});
        EXPECT_EQ(set.Kind, 7);
        EXPECT_EQ(set.Pad.Pin, "");
        EXPECT_EQ(set.Hole.Name, "");
    }
}

TEST(LayerFeatureSet, IgnoresEmptyAndUnknownLines)
{
    Set set;
    EXPECT_EQ(Read(set, {"", "<Set net=\"A\">", "<Location x=\"1\"/>", "<Circle diameter=\"1\"/>", "<hole name=\"H\">",
                         "< Hole name=\"H\">", "<Span toLayer=\"B\"/>", "</LayerFeature>", "</set>", "</Set>", "left"}),
              TextLines{"left"});
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
        {"<Pad pin=\"1\" x=\"5\" layerRef=\"TOP\">", "1"},
        {"<Padpin=\"1\" >", "1"},
        {"<Pad pin=\"U1.2 a\" spin=\"3\">", "3"},
        {"<Pad pins=\"1\" Pin=\"2\" pin =\"3\">", ""},
        {"<Pad pin=\"U1.2\">", "U1.2"},
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
        Five texts;
        double x;
        double y;
    } rows[] = {
        {"<Hole y=\"2\" minusTol=\"e\" plusTol=\"d\" platingStatus=\"c\" diameter=\"b\" name=\"a\" x=\"1\"/>",
         {"a", "b", "c", "d", "e"},
         1.0,
         2.0},
        // Every token counts, the first one too, and only words with their equal sign.
        {"<Holename=\"a\" Name=\"b\" diameters=\"c\" platingStatus plusTol =\"d\" minusTols=\"e\" X=\"1\" yy =\"2\">",
         {"a", "", "", "", ""},
         0.0,
         0.0},
        // In the chain of the texts the first word that fits takes the token.
        {"<Hole diameter=\"b\"name=\"a\">", {"bname=a", "", "", "", ""}, 0.0, 0.0},
        {"<Hole platingStatus=\"c\"diameter=\"b\">", {"", "cdiameter=b", "", "", ""}, 0.0, 0.0},
        {"<Hole plusTol=\"d\"platingStatus=\"c\">", {"", "", "dplatingStatus=c", "", ""}, 0.0, 0.0},
        {"<Hole minusTol=\"e\"plusTol=\"d\">", {"", "", "", "eplusTol=d", ""}, 0.0, 0.0},
        // x goes before y.
        {"<Hole y=\"2\"x=\"1\">", {}, 2.0, 0.0},
        // The token of a text is tested for a coordinate too.
        {"<Hole name=\"3\"x=\"4\">", {"3x=4", "", "", "", ""}, 3.0, 0.0},
        {"<Hole platingStatus=\"5\"y=\"6\">", {"", "", "5y=6", "", ""}, 0.0, 5.0},
        // So is the token on which a value that runs on has ended, from where the number runs on itself.
        {"<Hole name=\"H x=5\" y=\"2\" diameter=\"1\">", {"H 5", "1", "", "", ""}, 5.0, 0.0},
        {"<Hole diameter=\"a y=7\" name=\"b\">", {"", "a 7", "", "", ""}, 0.0, 7.0},
        {"<Hole name=\"two words\" x=\"1\" y=\"2\" />", {"two words", "", "", "", ""}, 1.0, 2.0},
        {"<Hole x=\"1 name=2\" diameter=\"3\">", {"", "3", "", "", ""}, 1.0, 0.0},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        Set set;
        EXPECT_EQ(Read(set, {row.line, "</Set>", "left"}), TextLines{"left"});
        EXPECT_EQ(set.Kind, 2);
        EXPECT_EQ(TextsOf(set.Hole), row.texts);
        ExpectAt(set.Hole, row.x, row.y);
    }
}

TEST(LayerFeatureSet, KeepsTheLastValueOfASelfClosingHoleClean)
{
    Set set;
    Read(set, {"<Hole x=\"1\" y=\"2\" name=\"H\" diameter=\"0.300\" platingStatus=\"VIA\" plusTol=\"0\" "
               "minusTol=\"0.10\"/>",
               "</Hole>", "</Set>"});
    EXPECT_EQ(TextsOf(set.Hole), (Five{"H", "0.300", "VIA", "0", "0.10"}));
    ExpectExport(set, "   <Set>\n"
                      "      <Hole name=\"H\" diameter=\"0.300\" platingStatus=\"VIA\" plusTol=\"0\" minusTol=\"0.10\" "
                      "x=\"1.000000\" y=\"2.000000\" />\n"
                      "   </Set>\n");
}

const TextLines kSetLines = {"<ColorRef id=\"C\"/>", "<Features>", "<Circle diameter=\"1\"/>", "</Features>",
                             "<Pad pin=\"1\">",      "</Pad>",     "<Hole name=\"H\"/>",       "</Set>"};

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
    for (const char * const line : {"<ColorRef id=\"C>", "<Pad pin=1>", "<Hole name=\"H>", "<Hole x=\"1>",
                                    "<Hole name=\"H x=5\">", "<Hole minusTol=\"1 y=2\"/>"}) {
        Set set;
        EXPECT_THROW(Read(set, {line, "</Pad>", "</Set>"}), CInvalidArgException) << line;
    }
}

TEST(LayerFeatureSet, ASelfClosedPadReadsOnToTheNextEndOfAPad)
{
    Set set;
    EXPECT_EQ(Read(set, {"<Pad pin=\"1\" />", "<Location x=\"1\" y=\"2\"/>", "</Set>", "<Set>", "<Pad pin=\"2\">",
                         "</Pad>", "</Set>", "left"}),
              TextLines{"left"});
    EXPECT_EQ(set.Pad.Pin, "1");
    EXPECT_EQ(set.Pad.Location.GetX(), 1.0);
}

const std::string kFeatures = "      <Features>\n"
                              "         <Location x=\"0.000000\" y=\"0.000000\"/>\n"
                              "      </Features>\n"
                              "   </Set>\n";

const std::string kPad = "      <Pad pin=\"1\">\n"
                         "         <Location x=\"0.000000\" y=\"0.000000\"/>\n"
                         "         <StandardPrimitiveRef id=\"\"/>\n"
                         "      </Pad>\n"
                         "   </Set>\n";

const std::string kHole = "      <Hole name=\"H\" diameter=\"\" platingStatus=\"\" plusTol=\"\" minusTol=\"\" "
                          "x=\"0.000000\" y=\"0.000000\" />\n"
                          "   </Set>\n";

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
    ExpectExport(set, "   <Set net=\"\">\n" + kFeatures);
    set.Net = "GND";
    set.TestPoint = true;
    set.Plate = true;
    set.PadUsage = "VIA";
    ExpectExport(set, "   <Set net=\"GND\">\n" + kFeatures);
}

TEST(LayerFeatureSet, WritesAPadWithItsFlags)
{
    Set set;
    FillForWriting(set, 1);
    ExpectExport(set, "   <Set testPoint=\"FALSE\" plate=\"FALSE\" padUsage=\"\">\n" + kPad);
    set.TestPoint = true;
    set.PadUsage = "VIA";
    ExpectExport(set, "   <Set testPoint=\"TRUE\" plate=\"FALSE\" padUsage=\"VIA\">\n" + kPad);
    set.Net = "GND";
    ExpectExport(set, "   <Set net=\"GND\" testPoint=\"TRUE\" plate=\"FALSE\" padUsage=\"VIA\">\n" + kPad);
    set.TestPoint = false;
    set.Plate = true;
    ExpectExport(set, "   <Set net=\"GND\" testPoint=\"FALSE\" plate=\"TRUE\" padUsage=\"VIA\">\n" + kPad);
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
    EXPECT_EQ(Exported(set), (Export{0, "   <Set net=\"\">\n"
                                        "      <Features>\n"
                                        "         <Location x=\"0.000000\" y=\"0.000000\"/>\n"}));
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
