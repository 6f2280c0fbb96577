#include <gtest/gtest.h>

#include "ipc2581/base/Codes.h"
#include "ipc2581/each.h"
#include "tests/import/support/Documents.h"
#include "tests/import/support/ShapeText.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Part = R"(<Package name="P"><Pin number="1"/><Pin number="2"/></Package>
    <Component refDes="U1" packageRef="P" layerRef="TOP"/>)";

// The nets as "A: U1.1 U1.2".
Texts NetTexts(const Imported & imported)
{
    Texts texts;
    for (const auto * const net : Each(StepOf(imported).LogicalNetArray)) {
        std::string text = Str(net->Name) + ":";
        for (const auto * const pin : Each(net->LogicalNetPinArray)) {
            text += " " + Str(pin->ComponentRef) + "." + Str(pin->Pin);
        }
        texts.push_back(text);
    }
    return texts;
}

TEST(FeatureSection, TakesTheFieldsOfASet)
{
    const Imported imported = ImportDocument(
        {.step = OnTop(R"(<Set net="A" testPoint="true" plate="1" padUsage="VIA"><ColorRef id="GREEN"/></Set>)")});
    const LayerSet & set = SetOf(imported, 0);
    EXPECT_EQ(Str(set.Net), "A");
    EXPECT_TRUE(set.TestPoint);
    EXPECT_TRUE(set.Plate);
    EXPECT_EQ(Str(set.PadUsage), "VIA");
    EXPECT_EQ(Str(set.ColorRef), "GREEN");
    EXPECT_EQ(Str(StepOf(imported).LayerFeatureArray.GetAt(0)->ColorRefId), "GREEN");
    EXPECT_EQ(Str(StepOf(imported).LayerFeatureArray.GetAt(0)->LayerRef), "TOP");
}

struct FlagCase {
    const char * word;
    bool isSet;
    bool isLost = false;
};

class SetFlag : public testing::TestWithParam<FlagCase> {};

TEST_P(SetFlag, IsATruthValueOfXml)
{
    const std::string word = GetParam().word;
    const Imported imported =
        ImportDocument({.step = OnTop("<Set testPoint=\"" + word + "\" plate=\"" + word + "\"/>")});
    EXPECT_EQ(SetOf(imported, 0).TestPoint, GetParam().isSet);
    EXPECT_EQ(SetOf(imported, 0).Plate, GetParam().isSet);
    EXPECT_EQ(Losses(imported.report),
              GetParam().isLost ? (Texts{"Ecad/CadData/Step/LayerFeature/Set testPoint=" + word + " plate=" + word})
                                : Texts());
}

INSTANTIATE_TEST_SUITE_P(Words, SetFlag,
                         testing::Values(FlagCase{"true", true}, FlagCase{"1", true}, FlagCase{"TRUE", true},
                                         FlagCase{" true ", true}, FlagCase{"false", false}, FlagCase{"0", false},
                                         FlagCase{"FALSE", false}, FlagCase{"yes", false, true},
                                         FlagCase{"", false, true}, FlagCase{"TURE", false, true}));

TEST(FeatureSection, MakesASetOfEachPadHoleAndFeaturesOfASet)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set net="A" testPoint="1" plate="1" padUsage="VIA">
        <ColorRef id="RED"/><Pad><Location x="1" y="0"/></Pad><Pad><Location x="2" y="0"/></Pad>
        <Hole name="H" diameter="1" x="3" y="0"/><Features><Location x="4" y="0"/></Features></Set>)")});
    ASSERT_EQ(SetCount(imported), 4U);
    EXPECT_EQ(SetOf(imported, 0).Kind, SetKinds::Pad);
    EXPECT_EQ(PointText(SetOf(imported, 0).Pad.Location), "1,0");
    EXPECT_EQ(SetOf(imported, 1).Kind, SetKinds::Pad);
    EXPECT_EQ(PointText(SetOf(imported, 1).Pad.Location), "2,0");
    EXPECT_EQ(SetOf(imported, 2).Kind, SetKinds::Hole);
    EXPECT_EQ(PointText(SetOf(imported, 2).Hole.Location), "3,0");
    EXPECT_EQ(SetOf(imported, 3).Kind, SetKinds::Features);
    EXPECT_EQ(PointText(SetOf(imported, 3).Features.Location), "4,0");
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(Str(SetOf(imported, i).Net), "A") << i;
        EXPECT_TRUE(SetOf(imported, i).TestPoint) << i;
        EXPECT_TRUE(SetOf(imported, i).Plate) << i;
        EXPECT_EQ(Str(SetOf(imported, i).PadUsage), "VIA") << i;
        EXPECT_EQ(Str(SetOf(imported, i).ColorRef), "RED") << i;
    }
}

TEST(FeatureSection, KeepsASetWithNothingInIt)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set net="A"/><Set net="B"/>)")});
    ASSERT_EQ(SetCount(imported), 2U);
    EXPECT_EQ(Str(SetOf(imported, 1).Net), "B");
}

TEST(FeatureSection, TellsWhatElseASetHas)
{
    const Imported imported =
        ImportDocument({.step = OnTop(R"(<Set net="A" geometry="G" polarity="POSITIVE"><SpecRef id="S"/></Set>)")});
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set geometry=G polarity=POSITIVE",
                                              "Ecad/CadData/Step/LayerFeature/Set/SpecRef id=S"}));
}

TEST(FeatureSection, CountsTheRemarksOfSets)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set>
        <NonstandardAttribute name="a" type="STRING" value="1"/><NonstandardAttribute name="b" type="STRING" value="2"/>
        </Set>)")});
    EXPECT_EQ(imported.report.RemarkCount(), 2U);
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(FeatureSection, TakesHolesWithTheirOwnSpan)
{
    const Imported imported = ImportDocument(
        {.data = R"(<Layer name="TOP"/><Layer name="DRILL"><Span fromLayer="TOP" toLayer="BOTTOM"/></Layer>)",
         .step = R"(<LayerFeature layerRef="DRILL"><Set><Hole name="H" diameter="0.5" platingStatus="VIA" plusTol="0.1"
             minusTol="0.2" x="1" y="2" type="CIRCLE"><Span fromLayer="TOP" toLayer="IN1"/></Hole></Set></LayerFeature>)"});
    const auto & hole = SetOf(imported, 0).Hole;
    EXPECT_EQ(Str(hole.Name), "H");
    EXPECT_EQ(Str(hole.Diameter), "0.5");
    EXPECT_EQ(Str(hole.PlatingStatus), "VIA");
    EXPECT_EQ(Str(hole.PlusTol), "0.1");
    EXPECT_EQ(Str(hole.MinusTol), "0.2");
    EXPECT_EQ(PointText(hole.Location), "1,2");
    EXPECT_EQ(Str(hole.FromLayer), "TOP");
    EXPECT_EQ(Str(hole.ToLayer), "IN1");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Layer/Span fromLayer=TOP toLayer=BOTTOM",
                                              "Ecad/CadData/Step/LayerFeature/Set/Hole type=CIRCLE"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: layer \"BOTTOM\" is not in the file",
                                             "DanglingReference: layer \"IN1\" is not in the file"}));
}

TEST(FeatureSection, GivesBlindHolesTheSpanOfTheirLayer)
{
    const Imported imported = ImportDocument(
        {.data = R"(<Layer name="DRILL"><Span fromLayer="TOP" toLayer="IN1"/></Layer>)",
         .step = R"(<LayerFeature layerRef="DRILL"><Set><Hole name="H1" x="1" y="2"/><Hole name="H2" x="3" y="4"/></Set>
             </LayerFeature>)"});
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(Str(SetOf(imported, i).Hole.FromLayer), "TOP");
        EXPECT_EQ(Str(SetOf(imported, i).Hole.ToLayer), "IN1");
    }
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(FeatureSection, LosesNegativeSetsAndTellsThem)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set net="A" polarity="NEGATIVE"><Features>
        <Circle diameter="1"/></Features></Set><Set net="B"/>)")});
    ASSERT_EQ(SetCount(imported), 1U);
    EXPECT_EQ(Str(SetOf(imported, 0).Net), "B");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set net=A polarity=NEGATIVE",
                                              "Ecad/CadData/Step/LayerFeature/Set/Features",
                                              "Ecad/CadData/Step/LayerFeature/Set/Features/Circle diameter=1"}));
}

TEST(FeatureSection, KeepsTheLayerThatIsNotThereAndTellsIt)
{
    const Imported imported = ImportDocument({.step = R"(<LayerFeature layerRef="GONE"><Set/></LayerFeature>)"});
    EXPECT_EQ(Str(StepOf(imported).LayerFeatureArray.GetAt(0)->LayerRef), "GONE");
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: layer \"GONE\" is not in the file"}));
}

TEST(FeatureSection, PutsTheTransformOfFeaturesIntoTheirShapes)
{
    const Imported imported = ImportDocument({.step = FeaturesOnTop(R"(
        <Xform xOffset="10" yOffset="20" rotation="90" mirror="true" scale="2"/><Location x="100" y="200"/>
        <Line startX="0" startY="0" endX="1" endY="0"><LineDesc lineEnd="ROUND" lineWidth="0.1"/></Line>)")});
    EXPECT_EQ(PointText(SetOf(imported, 0).Features.Location), "100,200");
    EXPECT_EQ(Drawn(imported), (Texts{"Line 10,20 to 10,22 pen 0.2 ROUND"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(FeatureSection, DrawsSlotsAsAreas)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set net="A">
        <SlotCavity name="S1" platingStatus="PLATED"><Xform rotation="90"/><Location x="7" y="8"/>
        <Outline><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="2" y="0"/><PolyStepSegment x="0" y="1"/>
        <PolyStepSegment x="0" y="0"/></Polygon><LineDesc lineEnd="ROUND" lineWidth="0.1"/></Outline></SlotCavity>
        <SlotCavity name="S2"><Oval width="3" height="1"/></SlotCavity></Set>)")});
    ASSERT_EQ(SetCount(imported), 2U);
    EXPECT_EQ(SetOf(imported, 0).Kind, SetKinds::Features);
    EXPECT_EQ(PointText(SetOf(imported, 0).Features.Location), "7,8");
    EXPECT_EQ(Drawn(imported), (Texts{"Contour 0,0 line 0,2 line -1,0 line 0,0", "Oval Width=3 Height=1"}));
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Step/LayerFeature/Set/SlotCavity name=S1 platingStatus=PLATED",
                     "Ecad/CadData/Step/LayerFeature/Set/SlotCavity/Outline/LineDesc lineEnd=ROUND lineWidth=0.1",
                     "Ecad/CadData/Step/LayerFeature/Set/SlotCavity name=S2"}));
}

TEST(FeatureSection, DrawsFiducialsAndMarksAsAreas)
{
    for (const char * const name : {"Fiducial", "BadBoardMark", "GlobalFiducial", "GoodPanelMark", "LocalFiducial"}) {
        const std::string mark(name);
        const Imported imported =
            ImportDocument({.step = OnTop("<Set><" + mark + "><Location x=\"1\" y=\"2\"/><Circle diameter=\"3\"/></" +
                                          mark + "></Set>")});
        EXPECT_EQ(PointText(SetOf(imported, 0).Features.Location), "1,2") << mark;
        EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=3"})) << mark;
        EXPECT_EQ(Losses(imported.report), Texts()) << mark;
    }
}

TEST(FeatureSection, MakesNetsOfSetsAndPadsWhereThereAreNoLogicalOnes)
{
    const Imported imported = ImportDocument({.step = Part + OnTop(R"(
        <Set net="A"><Pad><PinRef componentRef="U1" pin="1"/></Pad><Pad><PinRef componentRef="U1" pin="2"/></Pad></Set>
        <Set net="B"/><Set net="A"><Pad><PinRef componentRef="U1" pin="1"/></Pad></Set>
        <Set><Pad><PinRef componentRef="U1" pin="1"/></Pad></Set>)")});
    EXPECT_EQ(NetTexts(imported), (Texts{"A: U1.1 U1.2", "B:"}));
    ASSERT_EQ(imported.report.Notes().size(), 1U);
    EXPECT_EQ(imported.report.Notes()[0].kind, NoteKind::NetsFromSets);
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(FeatureSection, MakesOneNetOfTheSetsOfSeveralLayers)
{
    const std::string set = R"(<Set net="A"><Pad><PinRef componentRef="U1" pin="1"/></Pad></Set>)";
    const Imported imported = ImportDocument({.step = Part + OnTop(set) + OnTop(set)});
    EXPECT_EQ(NetTexts(imported), (Texts{"A: U1.1"}));
}

TEST(FeatureSection, LeavesLogicalNetsAsTheyAre)
{
    const Imported imported =
        ImportDocument({.step = Part + std::string(R"(<LogicalNet name="A"/>)") +
                                OnTop(R"(<Set net="A"><Pad><PinRef componentRef="U1" pin="1"/></Pad></Set>)")});
    EXPECT_EQ(NetTexts(imported), (Texts{"A:"}));
    EXPECT_EQ(Notes(imported.report), Texts());
}

TEST(FeatureSection, WritesTheNamesOfNetsWithEntities)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set net="&lt;1&gt;&amp;&quot;"/>)")});
    EXPECT_EQ(NetTexts(imported), (Texts{"&lt;1&gt;&amp;&quot;:"}));
    EXPECT_EQ(Str(SetOf(imported, 0).Net), "&lt;1&gt;&amp;&quot;");
}

TEST(FeatureSection, TakesTheFirstSpanOfAHole)
{
    const Imported imported = ImportDocument(
        {.step = OnTop(R"(<Set><Hole><Span fromLayer="TOP" toLayer="TOP"/><Span fromLayer="2"/></Hole></Set>)")});
    EXPECT_EQ(Str(SetOf(imported, 0).Hole.FromLayer), "TOP");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set/Hole/Span fromLayer=2"}));
}

TEST(FeatureSection, TakesTheFirstColorOfASet)
{
    const Imported imported = ImportDocument(
        {.content = R"(<DictionaryColor><EntryColor id="A"/></DictionaryColor>)",
         .step = OnTop(R"(<Set><ColorRef id="A"/><ColorRef id="B"/></Set><Set><ColorRef id="GONE"/></Set>)")});
    EXPECT_EQ(Str(SetOf(imported, 0).ColorRef), "A");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set/ColorRef id=B"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: color \"GONE\" is not in the file"}));
}

TEST(FeatureSection, MakesNoNetsWhereLogicalOnesStandBehindTheLayers)
{
    const Imported imported =
        ImportDocument({.step = OnTop(R"(<Set net="A"><Pad><PinRef componentRef="U" pin="1"/></Pad></Set>
             <Set net="B"/><Set net="A"/><Set net="B"/>)") +
                                R"(<LogicalNet name="A"><PinRef componentRef="V" pin="2"/></LogicalNet>)"});
    EXPECT_EQ(NetTexts(imported), (Texts{"A: V.2"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: component \"U\" is not in the file",
                                             "DanglingReference: component \"V\" is not in the file",
                                             "DanglingReference: net \"B\" is not in the file"}));
}

}  // namespace
}  // namespace ipc2581::tests
