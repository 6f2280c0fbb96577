#include <gtest/gtest.h>

#include "ipc2581/each.h"
#include "tests/import/support/Documents.h"
#include "tests/import/support/ShapeText.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

using Layer = CIPC2581_Ecad_CadData_Layer;
using Stackup = CIPC2581_Ecad_CadData_Stackup;
using StackupLayer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;

const Layer & LayerOf(const Imported & imported, std::size_t index)
{
    return *Each(imported.board->m_Ecad.m_CadData.m_arrLayer)[index];
}

const Stackup & StackupOf(const Imported & imported)
{
    return imported.board->m_Ecad.m_CadData.m_Stackup;
}

const StackupLayer & StackupLayerOf(const Imported & imported, std::size_t index, std::size_t group = 0)
{
    return *Each(Each(StackupOf(imported).StackupGroupArray)[group]->StackupLayerArray)[index];
}

const std::string MaterialSpec = R"(<CadHeader units="MILLIMETER">
    <Spec name="S1"><General type="MATERIAL"><Property text="FR4"/></General></Spec></CadHeader>)";

std::string StackupWith(const std::string & layers)
{
    return R"(<Layer name="TOP"/><Stackup><StackupGroup>)" + layers + "</StackupGroup></Stackup>";
}

TEST(CadSection, TakesTheUnitOfTheBoardAndTheNameOfTheDesign)
{
    const Imported imported =
        ImportText(R"(<IPC-2581><Ecad name="design"><CadHeader units="INCH"/></Ecad></IPC-2581>)");
    EXPECT_EQ(Str(imported.board->m_Ecad.name), "design");
    EXPECT_EQ(Str(imported.board->m_Ecad.m_CadHeader.units), "INCH");
    EXPECT_EQ(Losses(imported.report), Texts());
    EXPECT_EQ(Notes(imported.report), Texts());
}

TEST(CadSection, TellsAUnitThatItDoesNotKnow)
{
    const Imported imported = ImportText(R"(<IPC-2581><Ecad><CadHeader units="FURLONG"/></Ecad></IPC-2581>)");
    EXPECT_EQ(Str(imported.board->m_Ecad.m_CadHeader.units), "FURLONG");
    EXPECT_EQ(Notes(imported.report), (Texts{"UnknownUnit: the unit \"FURLONG\" of the board is not known"}));
}

TEST(CadSection, TakesTheLayers)
{
    const Imported imported = ImportDocument({.data = R"(
        <Layer name="TOP" layerFunction="CONDUCTOR" side="TOP" polarity="POSITIVE"/>
        <Layer name="C1" layerFunction="CORE" side="INTERNAL" polarity="NEGATIVE"/>)"});
    ASSERT_EQ(Count(imported.board->m_Ecad.m_CadData.m_arrLayer), 2U);
    EXPECT_EQ(Str(LayerOf(imported, 0).name), "TOP");
    EXPECT_EQ(Str(LayerOf(imported, 0).layerFunction), "CONDUCTOR");
    EXPECT_EQ(Str(LayerOf(imported, 0).side), "TOP");
    EXPECT_EQ(Str(LayerOf(imported, 0).polarity), "POSITIVE");
    EXPECT_EQ(Str(LayerOf(imported, 1).polarity), "NEGATIVE");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(CadSection, LosesTheProfilesOfLayersAndZonesAndBends)
{
    const std::string contour = R"(<Polygon><PolyBegin x="7" y="7"/><PolyStepSegment x="8" y="7"/></Polygon>)";
    const Imported imported = ImportDocument(
        {.data = R"(<Layer name="TOP"><Profile>)" + contour + R"(</Profile></Layer><Stackup><StackupGroup/>
                 <StackupZone name="Z"><Profile>)" +
                 contour + "</Profile></StackupZone></Stackup>",
         .step = R"(<Profile><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="1" y="0"/></Polygon></Profile>
                 <StackupZone name="Z2"><Profile>)" +
                 contour + R"(</Profile></StackupZone>
                 <Bend name="B"><BendArea><Profile>)" +
                 contour + "</Profile></BendArea></Bend>"});
    const CIPC2581_Polygon & profile = *StepOf(imported).Profile.Polygon;
    EXPECT_EQ(StepsText(*profile.PolyBegin, *profile.PolyStepArray), "0,0 line 1,0");
    EXPECT_EQ(Count(StepOf(imported).Profile.Cutouts), 0U);
    for (const char * const path :
         {"Ecad/CadData/Layer/Profile/Polygon/PolyBegin", "Ecad/CadData/Stackup/StackupZone/Profile/Polygon/PolyBegin",
          "Ecad/CadData/Step/StackupZone/Profile/Polygon/PolyBegin",
          "Ecad/CadData/Step/Bend/BendArea/Profile/Polygon/PolyBegin"}) {
        ASSERT_EQ(imported.report.LostAt(path).size(), 1U) << path;
        EXPECT_EQ(imported.report.LostAt(path)[0].Value("x"), "7") << path;
    }
}

TEST(CadSection, TakesTheStackup)
{
    const Imported imported = ImportDocument({.data = R"(<Layer name="TOP"/>
        <Stackup name="S" overallThickness="1.6" tolPlus="0.1" tolMinus="0.2" whereMeasured="METAL">
        <StackupGroup name="G" thickness="1.5" tolPlus="0.01" tolMinus="0.02">
        <StackupLayer layerOrGroupRef="TOP" materialType="COPPER" thickness="0.035"/></StackupGroup></Stackup>)"});
    const Stackup & stackup = StackupOf(imported);
    EXPECT_EQ(Str(stackup.overallThickness), "1.6");
    EXPECT_EQ(Str(stackup.tolPlus), "0.1");
    EXPECT_EQ(Str(stackup.tolMinus), "0.2");
    EXPECT_EQ(Str(stackup.whereMeasured), "METAL");
    ASSERT_EQ(Count(stackup.StackupGroupArray), 1U);
    const auto & group = *stackup.StackupGroupArray.GetAt(0);
    EXPECT_EQ(Str(group.name), "G");
    EXPECT_EQ(group.thickness, 1.5);
    EXPECT_EQ(group.tolPlus, 0.01);
    EXPECT_EQ(group.tolMinus, 0.02);
    EXPECT_EQ(Str(StackupLayerOf(imported, 0).layerOrGroupRef), "TOP");
    EXPECT_EQ(Str(StackupLayerOf(imported, 0).materialType), "COPPER");
    EXPECT_EQ(StackupLayerOf(imported, 0).thickness, 0.035);
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Stackup name=S"}));
}

TEST(CadSection, TakesTheMaterialOfALayerFromTheSpecThatItRefersTo)
{
    const Imported imported = ImportDocument(
        {.header = MaterialSpec,
         .data = StackupWith(R"(<StackupLayer layerOrGroupRef="TOP"><SpecRef id="S1"/></StackupLayer>)")});
    EXPECT_EQ(Str(StackupLayerOf(imported, 0).materialType), "FR4");
    EXPECT_EQ(imported.report.LostAt("Ecad/CadHeader/Spec/General/Property").size(), 0U);
    // A reference says more than the material does.
    EXPECT_EQ(imported.report.LostAt("Ecad/CadData/Stackup/StackupGroup/StackupLayer/SpecRef").size(), 1U);
}

TEST(CadSection, LeavesTheMaterialOfALayerThatHasOneOfItsOwn)
{
    const Imported imported = ImportDocument(
        {.header = MaterialSpec,
         .data = StackupWith(
             R"(<StackupLayer materialType="OWN" layerOrGroupRef="TOP"><SpecRef id="S1"/></StackupLayer>)")});
    EXPECT_EQ(Str(StackupLayerOf(imported, 0).materialType), "OWN");
    ASSERT_EQ(imported.report.LostAt("Ecad/CadHeader/Spec/General/Property").size(), 1U);
    EXPECT_EQ(imported.report.LostAt("Ecad/CadHeader/Spec/General/Property")[0].Value("text"), "FR4");
}

TEST(CadSection, LosesSpecsThatNameNoMaterial)
{
    const Imported imported = ImportDocument(
        {.header = R"(<CadHeader units="MILLIMETER"><Spec name="S1">
             <General type="ELECTRICAL"><Property text="HIGH"/></General>
             <Dielectric type="LOSS_TANGENT"><Property value="0.02"/></Dielectric></Spec></CadHeader>)",
         .data = StackupWith(R"(<StackupLayer layerOrGroupRef="TOP"><SpecRef id="S1"/></StackupLayer>)")});
    EXPECT_EQ(Str(StackupLayerOf(imported, 0).materialType), "");
    EXPECT_EQ(
        Losses(imported.report),
        (Texts{"Ecad/CadHeader/Spec name=S1", "Ecad/CadHeader/Spec/General type=ELECTRICAL",
               "Ecad/CadHeader/Spec/General/Property text=HIGH", "Ecad/CadHeader/Spec/Dielectric type=LOSS_TANGENT",
               "Ecad/CadHeader/Spec/Dielectric/Property value=0.02",
               "Ecad/CadData/Stackup/StackupGroup/StackupLayer/SpecRef id=S1"}));
}

TEST(CadSection, TellsAReferenceToASpecThatIsNotThere)
{
    const Imported imported = ImportDocument(
        {.data = StackupWith(R"(<StackupLayer layerOrGroupRef="TOP"><SpecRef id="NONE"/></StackupLayer>)")});
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: spec \"NONE\" is not in the file"}));
}

TEST(CadSection, PutsTheGroupsOfASecondStackupBehindThoseOfTheFirst)
{
    const Imported imported = ImportDocument({.data = R"(
        <Stackup name="one" overallThickness="1"><StackupGroup name="g1"/></Stackup>
        <Stackup name="two" overallThickness="2"><StackupGroup name="g2"/></Stackup>)"});
    EXPECT_EQ(Str(StackupOf(imported).overallThickness), "1");
    ASSERT_EQ(Count(StackupOf(imported).StackupGroupArray), 2U);
    EXPECT_EQ(Str(StackupOf(imported).StackupGroupArray.GetAt(1)->name), "g2");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Stackup name=one", "Ecad/CadData/Stackup name=two overallThickness=2"}));
    ASSERT_EQ(imported.report.Notes().size(), 1U);
    EXPECT_EQ(imported.report.Notes()[0].kind, NoteKind::Merged);
}

TEST(CadSection, TellsTheSpanOfALayerWithoutHoles)
{
    const Imported imported = ImportDocument(
        {.data = R"(<Layer name="DRILL" layerFunction="DRILL"><Span fromLayer="TOP" toLayer="IN1"/></Layer>)"});
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Layer/Span fromLayer=TOP toLayer=IN1"}));
}

TEST(CadSection, SaysWhichLayerALostFactBelongsTo)
{
    const Imported imported = ImportDocument({.data = R"(<Layer name="A"/><Layer name="B"><SpecRef id="x"/></Layer>)"});
    ASSERT_EQ(imported.report.LostCount(), 1U);
    EXPECT_EQ(imported.report.Lost(0).owner, 1U);
}

TEST(CadSection, TellsLayersOfStackupsAndSpansThatAreNotThere)
{
    const Imported imported =
        ImportDocument({.data = R"(<Layer name="TOP"/><Layer name="DRILL"><Span fromLayer="TOP" toLayer="NONE"/></Layer>
        <Stackup><StackupGroup name="G"><StackupLayer layerOrGroupRef="GONE"/><StackupLayer layerOrGroupRef="TOP"/>
        <StackupLayer layerOrGroupRef="G"/></StackupGroup></Stackup>)",
                        .step = R"(<LayerFeature layerRef="DRILL"><Set><Hole name="H"/></Set></LayerFeature>)"});
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: layer \"NONE\" is not in the file",
                                             "DanglingReference: layer \"GONE\" is not in the file"}));
    EXPECT_EQ(imported.report.Notes()[0].line, imported.report.Notes()[1].line - 1);
}

TEST(CadSection, TellsWhatNobodyRefersToInTheOrderOfTheFileWithItsOwner)
{
    std::string layers;
    Texts expected;
    for (int i = 0; i < 20; ++i) {
        const std::string number = std::to_string(i);
        layers += "<Layer name='L" + number + "' odd='" + number + "'><Span fromLayer='L0'/></Layer>";
        expected.push_back("Ecad/CadData/Layer odd=" + number);
        expected.emplace_back("Ecad/CadData/Layer/Span fromLayer=L0");
    }
    expected.emplace_back("Ecad/CadData/Step/Component odd=1");
    const Imported imported = ImportDocument({.data = layers, .step = R"(<Component refDes="U" odd="1"/>)"});
    EXPECT_EQ(Losses(imported.report), expected);
    EXPECT_EQ(imported.report.Lost(7).owner, 3U);
}

TEST(CadSection, TellsTheSpecOfAMaterialThatNobodyRefersTo)
{
    const Imported imported = ImportDocument({.header = R"(<CadHeader units="INCH"><Spec name="A"/><Spec name="B">
        <General type="MATERIAL"><Property text="X"/></General></Spec></CadHeader>)"});
    const auto lost = imported.report.LostAt("Ecad/CadHeader/Spec/General/Property");
    ASSERT_EQ(lost.size(), 1U);
    EXPECT_EQ(lost[0].owner, 1U);
    EXPECT_EQ(lost[0].Value("text"), "X");
}

TEST(CadSection, TakesTheFirstEcadAndTheFirstHeader)
{
    const Imported imported = ImportText(R"(<IPC-2581><Ecad name="a"><CadHeader units="INCH"/></Ecad>
        <Ecad name="b"><CadHeader units="MILLIMETER"/></Ecad></IPC-2581>)");
    EXPECT_EQ(Str(imported.board->m_Ecad.name), "a");
    EXPECT_EQ(Str(imported.board->m_Ecad.m_CadHeader.units), "INCH");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad name=b", "Ecad/CadHeader units=MILLIMETER"}));
}

}  // namespace
}  // namespace ipc2581::tests
