#include "ipc2581/cad/LayerFeature.h"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/cad/LayerFeatureSet.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using LayerFeature = CIPC2581_Ecad_CadData_Step_LayerFeature;
using LayerFeatureArray = CIPC2581_Ecad_CadData_Step_LayerFeatureArray;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

// Reads the lines under a LayerFeature line and gives those that are left.
Texts Read(LayerFeature & feature, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    feature.LayerFeatureAdd(file);
    return file.Rest();
}

// Reads what an Export has written, from behind its opening line.
void ReadBack(LayerFeature & feature, const std::string & text)
{
    Lines file(text.substr(text.find('\n') + 1));
    feature.LayerFeatureAdd(file);
    EXPECT_TRUE(file.Rest().empty());
}

const std::string kEmptySet = Below(R"(
      <Set net="">
         <Features>
            <Location x="0.000000" y="0.000000"/>
         </Features>
      </Set>
)");

std::string ColourSet(const std::string & id)
{
    return Joined({"      <Set>", R"(         <ColorRef id=")" + id + R"(" />)", "      </Set>"});
}

TEST(LayerFeature, StartsEmpty)
{
    const LayerFeature feature;
    EXPECT_EQ(feature.LayerRef, "");
    EXPECT_EQ(feature.ColorRefId, "");
    EXPECT_TRUE(feature.SetArray.IsEmpty());
}

TEST(LayerFeature, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<LayerFeature>);
    EXPECT_TRUE(IsVirtual(&LayerFeature::Export));
    EXPECT_EQ(Slot(&LayerFeature::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&LayerFeature::LayerFeatureAdd));
}

TEST(LayerFeature, GivesItsReferencesOutByValue)
{
    LayerFeature feature;
    feature.SetLayerRef("TOP");
    feature.SetColorRefId("C1");
    EXPECT_EQ(feature.LayerRef, "TOP");
    EXPECT_EQ(feature.ColorRefId, "C1");
    CString layer = feature.GetLayerRef();
    CString colour = feature.GetColorRefId();
    EXPECT_EQ(layer, "TOP");
    EXPECT_EQ(colour, "C1");
    layer = "BOTTOM";
    colour = "C2";
    EXPECT_EQ(feature.GetLayerRef(), "TOP");
    EXPECT_EQ(feature.GetColorRefId(), "C1");
}

TEST(LayerFeature, ReadsItsSetsInTheirOrder)
{
    LayerFeature feature;
    EXPECT_EQ(Read(feature, {R"(<Set net="A">)", "<Features>", R"(<Circle diameter="1"/>)", "</Features>", "</Set>",
                             R"(<Set net="B" padUsage="VIA" testPoint="TRUE" plate="TRUE">)", R"(<Pad pin="1">)",
                             "</Pad>", "</Set>", "<Set>", R"(<Hole name="H"/>)", "</Set>", "</LayerFeature>", "left"}),
              Texts{"left"});
    ASSERT_EQ(feature.SetArray.GetSize(), 3);
    EXPECT_EQ(feature.SetArray.GetAt(0)->Net, "A");
    EXPECT_EQ(feature.SetArray.GetAt(0)->Kind, 0);
    EXPECT_FALSE(feature.SetArray.GetAt(0)->TestPoint);
    EXPECT_FALSE(feature.SetArray.GetAt(0)->Plate);
    EXPECT_EQ(feature.SetArray.GetAt(0)->PadUsage, "");
    EXPECT_EQ(feature.SetArray.GetAt(1)->Net, "B");
    EXPECT_EQ(feature.SetArray.GetAt(1)->Kind, 1);
    EXPECT_TRUE(feature.SetArray.GetAt(1)->TestPoint);
    EXPECT_TRUE(feature.SetArray.GetAt(1)->Plate);
    EXPECT_EQ(feature.SetArray.GetAt(1)->PadUsage, "VIA");
    EXPECT_EQ(feature.SetArray.GetAt(2)->Net, "");
    EXPECT_EQ(feature.SetArray.GetAt(2)->Kind, 2);
    EXPECT_EQ(feature.LayerRef, "");
}

TEST(LayerFeature, ScansTheLineOfASet)
{
    const struct {
        const char * line;
        const char * net;
        bool testPoint;
        bool plate;
        const char * padUsage;
    } rows[] = {
        {R"(<Set padUsage="VIA" plate="TRUE" net="A">)", "A", false, true, "VIA"},
        {R"(<Set testPoint="TRUE">)", "", true, false, ""},
        {R"(<Set testPoint="NOTTRUEYET" plate="xTRUE">)", "", true, true, ""},
        {R"(<Set testPoint="true" plate="True">)", "", false, false, ""},
        {R"(<Set testPoint="FALSE" plate="1">)", "", false, false, ""},
        {R"(<Set testPoint="TRUE" testPoint="FALSE" plate="TRUE" plate="">)", "", false, false, ""},
        {R"(<Set testPoint="FALSE" testPoint="TRUE" net="A" net="B">)", "B", true, false, ""},
        // Any token that holds the word with its equal sign counts, the first one too.
        {R"(<Setnet="A" template="TRUE">)", "A", false, true, ""},
        {R"(<Set net ="A" Net="B" testpoint="TRUE" plates="TRUE" padUsage>)", "", false, false, ""},
        // A value that runs on takes the tokens up to its quote with it.
        {R"(<Set net="A plate=TRUE b" padUsage="c d">)", "A TRUE b", false, false, "c d"},
        {R"(<Set testPoint="a TRUE" plate="b c">)", "", true, false, ""},
        // The order of the tests decides for a token with two words.
        {R"(<Set testPoint="TRUE"net="A">)", "TRUEnet=A", false, false, ""},
        {R"(<Set plate="TRUE"testPoint="FALSE">)", "", true, false, ""},
        {R"(<Set padUsage="TRUE"plate="FALSE">)", "", false, true, ""},
        {R"(<Set padUsage="TRUE"testPoint="FALSE">)", "", true, false, ""},
        {R"(<Set padUsage="VIA"net="A">)", "VIAnet=A", false, false, ""},
        {R"(<Set plate="TRUE"net="A">)", "TRUEnet=A", false, false, ""},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        LayerFeature feature;
        Read(feature, {row.line, "</Set>", "</LayerFeature>"});
        ASSERT_EQ(feature.SetArray.GetSize(), 1);
        const Set & set = *feature.SetArray.GetAt(0);
        EXPECT_EQ(set.Net, row.net);
        EXPECT_EQ(set.TestPoint, row.testPoint);
        EXPECT_EQ(set.Plate, row.plate);
        EXPECT_EQ(set.PadUsage, row.padUsage);
    }
}

TEST(LayerFeature, PassesOverAnyTransformFirst)
{
    LayerFeature feature;
    EXPECT_EQ(Read(feature, {R"(<Xform rotation="90"/>)", R"(<XformSet net="A">)", "<Xform/>", "</LayerFeatureXform>",
                             "</SetXform>", R"(<Set net="B">)", "</Set>", "</LayerFeature>", "left"}),
              Texts{"left"});
    ASSERT_EQ(feature.SetArray.GetSize(), 1);
    EXPECT_EQ(feature.SetArray.GetAt(0)->Net, "B");
}

TEST(LayerFeature, ASlashTurnsASetAway)
{
    LayerFeature feature;
    EXPECT_EQ(Read(feature, {"<Set/>", "</Set>", R"(<Set/ net="A">)", R"(</LayerFeatureSet net="A">)", "left"}),
              Texts{"left"});
    EXPECT_TRUE(feature.SetArray.IsEmpty());
}

TEST(LayerFeature, ASelfClosedSetTakesTheLinesOfTheNextOne)
{
    LayerFeature feature;
    Read(feature, {R"(<Set net="A" />)", R"(<Set net="B">)", R"(<Hole name="H"/>)", "</Set>", "</LayerFeature>"});
    ASSERT_EQ(feature.SetArray.GetSize(), 1);
    EXPECT_EQ(feature.SetArray.GetAt(0)->Net, "A");
    EXPECT_EQ(feature.SetArray.GetAt(0)->Hole.Name, "H");
}

TEST(LayerFeature, IgnoresEmptyAndUnknownLines)
{
    LayerFeature feature;
    EXPECT_EQ(Read(feature,
                   {"", R"(<ColorRef id="C1"/>)", "<Features>", R"(<Pad pin="1">)", "</Pad>", "</Features>",
                    R"(<set net="A">)", R"(< Set net="A">)", "</Step>", "</layerfeature>", "</LayerFeature>", "left"}),
              Texts{"left"});
    EXPECT_TRUE(feature.SetArray.IsEmpty());
    EXPECT_EQ(feature.ColorRefId, "");
}

TEST(LayerFeature, TakesTheLastColourOfItsSets)
{
    LayerFeature feature;
    feature.ColorRefId = "C0";
    Read(feature, {"<Set>", "</Set>"});
    EXPECT_EQ(feature.ColorRefId, "C0");
    Read(feature, {"<Set>", R"(<ColorRef id="C1"/>)", "</Set>"});
    EXPECT_EQ(feature.ColorRefId, "C1");
    Read(feature, {"<Set>", R"(<ColorRef id="C2"/>)", "</Set>", "<Set>", R"(<ColorRef id=""/>)", "</Set>", "<Set>",
                   "</Set>", "</LayerFeature>"});
    EXPECT_EQ(feature.ColorRefId, "C2");
    EXPECT_EQ(feature.SetArray.GetAt(2)->ColorRef, "C2");
}

const Texts kFeatureLines = {R"(<Set net="A">)", R"(<ColorRef id="C1"/>)", "<Features>", "</Features>",
                             "</Set>",           R"(<Set net="B">)",       "</Set>",     "</LayerFeature>"};

TEST(LayerFeature, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kFeatureLines, [](CStdioFile & file, std::size_t lines) {
        LayerFeature feature;
        feature.LayerFeatureAdd(file);
        EXPECT_EQ(feature.SetArray.GetSize(), lines > 5 ? 2 : static_cast<int>(lines > 0));
        EXPECT_EQ(feature.ColorRefId, lines > 1 ? "C1" : "");
    });
}

TEST(LayerFeature, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kFeatureLines, [](CStdioFile & file) { LayerFeature().LayerFeatureAdd(file); });
}

TEST(LayerFeature, LosesTheSetInHandWithAnException)
{
    LayerFeature feature;
    EXPECT_THROW(Read(feature, {R"(<Set net="A">)", R"(<ColorRef id="C1"/>)", "</Set>", R"(<Set net="B">)",
                                R"(<ColorRef id="C2"/>)", "<Features>", "<Polyline>", " "}),
                 CInvalidArgException);
    ASSERT_EQ(feature.SetArray.GetSize(), 1);
    EXPECT_EQ(feature.SetArray.GetAt(0)->Net, "A");
    EXPECT_EQ(feature.ColorRefId, "C1");
}

TEST(LayerFeature, ThrowsForAnAttributeThatItsLineDoesNotClose)
{
    for (const char * const line :
         {R"(<Set net="A>)", "<Set testPoint=TRUE>", R"(<Set plate="TRUE>)", R"(<Set padUsage="V>)"}) {
        LayerFeature feature;
        EXPECT_THROW(Read(feature, {line, "</Set>"}), CInvalidArgException) << line;
        EXPECT_TRUE(feature.SetArray.IsEmpty());
    }
}

TEST(LayerFeature, WritesItsColourInASetOfItsOwn)
{
    LayerFeature feature;
    ExpectExport(feature, Joined({R"(   <LayerFeature layerRef="">)"}) + ColourSet("") + "   </LayerFeature>\n");
    feature.LayerRef = "TOP";
    feature.ColorRefId = "C1";
    ExpectExport(feature, Joined({R"(   <LayerFeature layerRef="TOP">)"}) + ColourSet("C1") + "   </LayerFeature>\n");
}

TEST(LayerFeature, WritesItsSetsBehindItsColour)
{
    LayerFeature feature;
    feature.SetArray.Add(new Set);
    feature.SetArray.Add(new Set);
    feature.SetArray.GetAt(1)->Kind = 2;
    feature.SetArray.GetAt(1)->ColorRef = "C9";
    ExpectExport(feature, Joined({R"(   <LayerFeature layerRef="">)"}) + ColourSet("") + kEmptySet + Below(R"(
      <Set>
         <Hole name="" diameter="" platingStatus="" plusTol="" minusTol="" x="0.000000" y="0.000000" />
      </Set>
   </LayerFeature>
)"));
}

TEST(LayerFeature, StopsAtTheFirstSetThatGivesZero)
{
    LayerFeature feature;
    feature.SetArray.Add(new Writing<Set>("first", 0));
    feature.SetArray.Add(new Writing<Set>("second"));
    EXPECT_EQ(Exported(feature),
              (Export{0, Joined({R"(   <LayerFeature layerRef="">)"}) + ColourSet("") + "first 1\n"}));
}

TEST(LayerFeature, GetsOneMoreSetInEachCycle)
{
    LayerFeature first;
    Read(first, {"<Set>", R"(<ColorRef id="C1"/>)", "</Set>", "</LayerFeature>"});
    const std::string body = ColourSet("C1") + kEmptySet;
    EXPECT_EQ(Written(first), Joined({R"(   <LayerFeature layerRef="">)"}) + body + "   </LayerFeature>\n");
    LayerFeature second;
    ReadBack(second, Written(first));
    ASSERT_EQ(second.SetArray.GetSize(), 2);
    EXPECT_EQ(second.ColorRefId, "C1");
    EXPECT_EQ(second.SetArray.GetAt(0)->ColorRef, "C1");
    EXPECT_EQ(second.SetArray.GetAt(0)->Kind, 0);
    EXPECT_EQ(Written(second),
              Joined({R"(   <LayerFeature layerRef="">)"}) + body + kEmptySet + "   </LayerFeature>\n");
    LayerFeature third;
    ReadBack(third, Written(second));
    EXPECT_EQ(third.SetArray.GetSize(), 3);
    EXPECT_EQ(third.ColorRefId, "C1");
    EXPECT_EQ(Written(third),
              Joined({R"(   <LayerFeature layerRef="">)"}) + body + kEmptySet + kEmptySet + "   </LayerFeature>\n");
}

TEST(LayerFeatureArray, OwnsItsElements)
{
    ExpectOwnsItsElements<LayerFeatureArray, LayerFeature>();
}

TEST(LayerFeatureArray, WritesItsElements)
{
    ExpectWritesItsElements<LayerFeatureArray, LayerFeature>();
}

TEST(LayerFeatureArray, FindsTheFirstOfALayerByBothNames)
{
    LayerFeatureArray features;
    for (const char * const layer : {"TOP", "BOTTOM", "BOTTOM", ""}) {
        auto feature = std::make_unique<LayerFeature>();
        feature->LayerRef = layer;
        features.Add(feature.release());
    }
    const struct {
        const char * name;
        int index;
    } rows[] = {{"TOP", 0}, {"BOTTOM", 1}, {"", 3}, {"top", -1}, {"TO", -1}, {"TOPS", -1}, {" TOP", -1}};
    for (const auto & row : rows) {
        // An index out of range gives null.
        EXPECT_EQ(features.pGetLayerFeatureWithName(row.name), features.GetAt(row.index)) << row.name;
        EXPECT_EQ(features.FindLayerFeature(row.name), features.GetAt(row.index)) << row.name;
    }
}

TEST(LayerFeatureArray, FindsNothingWhenItIsEmpty)
{
    LayerFeatureArray features;
    EXPECT_EQ(features.pGetLayerFeatureWithName("TOP"), nullptr);
    EXPECT_EQ(features.FindLayerFeature(""), nullptr);
}

}  // namespace
