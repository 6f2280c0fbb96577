#include <algorithm>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "ipc2581/each.h"
#include "tests/import/support/Documents.h"
#include "tests/import/support/ShapeText.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

using Package = CIPC2581_Ecad_CadData_Step_Package;
using Component = CIPC2581_Ecad_CadData_Step_Component;
using Net = CIPC2581_Ecad_CadData_Step_LogicalNet;
using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;

constexpr const char * Dot = R"(<DictionaryStandard units="MILLIMETER"><EntryStandard id="DOT">
    <Circle diameter="1"/></EntryStandard></DictionaryStandard>)";
constexpr const char * Square = R"(<Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="1" y="0"/>
    <PolyStepSegment x="1" y="1"/><PolyStepSegment x="0" y="0"/></Polygon>)";
constexpr const char * SquareText = "0,0 line 1,0 line 1,1 line 0,0";

Imported ImportStep(const std::string & step)
{
    return ImportDocument({.content = Dot, .step = step});
}

const Package & PackageOf(const Imported & imported, std::size_t index = 0)
{
    return *Each(StepOf(imported).PackageArray)[index];
}

const Component & ComponentOf(const Imported & imported, std::size_t index = 0)
{
    return *Each(StepOf(imported).ComponentArray)[index];
}

const Net & NetOf(const Imported & imported, std::size_t index)
{
    return *Each(StepOf(imported).LogicalNetArray)[index];
}

// A net as "name: U1.1 U2.7".
std::string NetText(const Net & net)
{
    std::string text = Str(net.Name) + ":";
    for (const auto * const pin : Each(net.LogicalNetPinArray)) {
        text += " " + Str(pin->ComponentRef) + "." + Str(pin->Pin);
    }
    return text;
}

Texts NetTexts(const Imported & imported)
{
    Texts texts;
    for (const Net * const net : Each(StepOf(imported).LogicalNetArray)) {
        texts.push_back(NetText(*net));
    }
    return texts;
}

TEST(StepSection, TakesNameDatumAndProfileWithItsCutouts)
{
    const Imported imported = ImportStep(std::string(R"(<Datum x="1" y="-2"/><Profile>)") + Square +
                                         R"(<Cutout><PolyBegin x="0.5" y="0.5"/>
        <PolyStepCurve x="0.5" y="0.5" centerX="0.4" centerY="0.5" clockwise="true"/></Cutout></Profile>)");
    EXPECT_EQ(Str(StepOf(imported).Name), "board");
    EXPECT_EQ(PointText(StepOf(imported).Datum), "1,-2");
    const CIPC2581_Polygon & polygon = *StepOf(imported).Profile.Polygon;
    EXPECT_EQ(StepsText(*polygon.PolyBegin, *polygon.PolyStepArray), SquareText);
    EXPECT_EQ(ShapeTexts(*StepOf(imported).Profile.Cutouts), (Texts{"Cutout 0.5,0.5 clockwise 0.5,0.5 about 0.4,0.5"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(StepSection, PlacesTheProfileByItsTransform)
{
    const Imported imported = ImportStep(R"(<Profile><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="1" y="0"/>
        <Xform xOffset="10" rotation="90" mirror="true" scale="2"/></Polygon></Profile>)");
    const CIPC2581_Polygon & polygon = *StepOf(imported).Profile.Polygon;
    EXPECT_EQ(StepsText(*polygon.PolyBegin, *polygon.PolyStepArray), "10,0 line 10,2");
}

TEST(StepSection, TakesComponentsWithTheirTransforms)
{
    const Imported imported = ImportStep(R"(<Package name="P"/>
        <Component refDes="U1" packageRef="P" part="N" layerRef="TOP" mountType="SMT" standoff="0.0" height="1.5">
        <Xform xOffset="1" yOffset="2" rotation="90" mirror="true" scale="3"/><Location x="10" y="20"/></Component>
        <Component refDes="U2" packageRef="P" layerRef="TOP"><Xform mirror="1"/></Component>
        <Component refDes="U3" packageRef="P" layerRef="TOP"/>)");
    const Component & component = ComponentOf(imported);
    EXPECT_EQ(Str(component.RefDes), "U1");
    EXPECT_EQ(Str(component.PackageRef), "P");
    EXPECT_EQ(Str(component.Part), "N");
    EXPECT_EQ(Str(component.LayerRef), "TOP");
    EXPECT_EQ(Str(component.MountType), "SMT");
    EXPECT_EQ(Str(component.Standoff), "0.0");
    EXPECT_EQ(component.Height, 1.5);
    EXPECT_EQ(XformText(*component.Xform), "1,2 turned 90 mirrored scaled 3");
    EXPECT_EQ(PointText(component.Location), "10,20");
    EXPECT_EQ(XformText(*ComponentOf(imported, 1).Xform), "0,0 turned 0 mirrored scaled 0");
    EXPECT_EQ(XformText(*ComponentOf(imported, 2).Xform), "0,0 turned 0 scaled 0");
    EXPECT_EQ(Losses(imported.report), Texts());
    EXPECT_EQ(Notes(imported.report), Texts());
}

TEST(StepSection, KeepsReferencesOfAComponentThatLeadNowhereAndTellsThem)
{
    const Imported imported = ImportStep(R"(<Component refDes="U1" packageRef="NO_P" layerRef="NO_L"/>)");
    EXPECT_EQ(Str(ComponentOf(imported).PackageRef), "NO_P");
    EXPECT_EQ(Str(ComponentOf(imported).LayerRef), "NO_L");
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: layer \"NO_L\" is not in the file",
                                             "DanglingReference: package \"NO_P\" is not in the file"}));
}

TEST(StepSection, TakesAPackageWithItsDrawings)
{
    const std::string outline =
        std::string("<Outline>") + Square + R"(<LineDesc lineEnd="SQUARE" lineWidth="0.1"/></Outline>)";
    const std::string marking = R"(<Marking markingUsage="PIN_ONE"><Xform rotation="90" mirror="true"/>
        <Location x="3" y="4"/><Line startX="1" startY="0" endX="2" endY="0"><LineDesc lineEnd="ROUND" lineWidth="0.2"/>
        </Line></Marking>)";
    const Imported imported =
        ImportStep(R"(<Package name="P" type="CHIP" pinOne="1">)" + outline + "<SilkScreen>" + outline + marking +
                   "</SilkScreen><AssemblyDrawing>" + outline + marking + "</AssemblyDrawing></Package>");
    const Package & package = PackageOf(imported);
    EXPECT_EQ(Str(package.name), "P");
    EXPECT_EQ(Str(package.type), "CHIP");
    const std::string outlineText = std::string("Outline ") + SquareText + " pen 0.1 SQUARE";
    EXPECT_EQ(ShapeText(*package.Outline), outlineText);
    EXPECT_EQ(ShapeText(*package.SilkScreen.Outline), outlineText);
    EXPECT_EQ(ShapeText(*package.AssemblyDrawing.Outline), outlineText);
    for (const auto * const targets : {&package.SilkScreen.TargetArray, &package.AssemblyDrawing.TargetArray}) {
        ASSERT_EQ(Count(*targets), 1U);
        EXPECT_EQ(PointText(targets->GetAt(0)->Location), "3,4");
        EXPECT_EQ(ShapeTexts(*targets->GetAt(0)->DrawObjArray), (Texts{"Line 0,1 to 0,2 pen 0.2 ROUND"}));
    }
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Step/Package pinOne=1",
                     "Ecad/CadData/Step/Package/SilkScreen/Marking markingUsage=PIN_ONE",
                     "Ecad/CadData/Step/Package/AssemblyDrawing/Marking markingUsage=PIN_ONE"}));
}

TEST(StepSection, TakesAnAssemblyDrawingOfMarkingsWithoutAnOutline)
{
    const Imported imported = ImportStep(R"(<Package name="P"><AssemblyDrawing>
        <Marking><StandardPrimitiveRef id="DOT"/></Marking><Marking><Circle diameter="2"/></Marking>
        </AssemblyDrawing></Package>)");
    const auto & targets = PackageOf(imported).AssemblyDrawing.TargetArray;
    ASSERT_EQ(Count(targets), 2U);
    EXPECT_EQ(ShapeTexts(*targets.GetAt(0)->DrawObjArray), (Texts{"Circle Diameter=1"}));
    EXPECT_EQ(ShapeTexts(*targets.GetAt(1)->DrawObjArray), (Texts{"Circle Diameter=2"}));
}

TEST(StepSection, TakesTheLandPattern)
{
    const Imported imported = ImportStep(R"(<Package name="P"><LandPattern>
        <Pad><Xform rotation="30"/><Location x="1" y="2"/><StandardPrimitiveRef id="DOT"/><PinRef pin="7"/></Pad>
        <Target><Location x="3" y="4"/><StandardPrimitiveRef id="DOT"/></Target></LandPattern></Package>)");
    const auto & pattern = PackageOf(imported).LandPattern;
    ASSERT_EQ(Count(pattern.PadArray), 1U);
    EXPECT_EQ(pattern.PadArray.GetAt(0)->Rotation, 30);
    EXPECT_EQ(PointText(pattern.PadArray.GetAt(0)->Location), "1,2");
    EXPECT_EQ(Str(pattern.PadArray.GetAt(0)->StandardPrimitiveRefId), "DOT");
    EXPECT_EQ(Str(pattern.PadArray.GetAt(0)->Pin), "7");
    ASSERT_EQ(Count(pattern.TargetArray), 1U);
    EXPECT_EQ(PointText(pattern.TargetArray.GetAt(0)->Location), "3,4");
    EXPECT_EQ(ShapeTexts(*pattern.TargetArray.GetAt(0)->DrawObjArray), (Texts{"Circle Diameter=1"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(StepSection, TakesPinsWithTheirTransforms)
{
    const Imported imported = ImportStep(R"(<Package name="P">
        <Pin number="1" name="A" type="SURFACE" electricalType="ELECTRICAL">
        <Xform xOffset="1" yOffset="2" rotation="90" mirror="true" scale="3"/><Location x="5" y="6"/>
        <StandardPrimitiveRef id="DOT"/></Pin></Package>)");
    const auto & pin = *PackageOf(imported).PinArray.GetAt(0);
    EXPECT_EQ(Str(pin.number), "1");
    EXPECT_EQ(Str(pin.name), "A");
    EXPECT_EQ(Str(pin.type), "SURFACE");
    EXPECT_EQ(Str(pin.electricalType), "ELECTRICAL");
    EXPECT_EQ(XformText(*pin.Xform), "1,2 turned 90 mirrored scaled 3");
    EXPECT_EQ(PointText(pin.Location), "5,6");
    EXPECT_EQ(Str(pin.StandardPrimitiveRef), "DOT");
    EXPECT_EQ(EntryIds(imported), (Texts{"DOT"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(StepSection, MakesAPinOfEachPlaceOfAPin)
{
    const Imported imported = ImportStep(R"(<Package name="P"><Pin number="3" name="n" type="SURFACE">
        <Location x="0" y="1"/><StandardPrimitiveRef id="DOT"/>
        <Xform rotation="45"/><Location x="0" y="-1"/><Circle diameter="2"/></Pin></Package>)");
    ASSERT_EQ(Count(PackageOf(imported).PinArray), 2U);
    const auto & first = *PackageOf(imported).PinArray.GetAt(0);
    const auto & second = *PackageOf(imported).PinArray.GetAt(1);
    EXPECT_EQ(PointText(first.Location), "0,1");
    EXPECT_EQ(first.Xform->Rotation, 0);
    EXPECT_EQ(Str(first.StandardPrimitiveRef), "DOT");
    EXPECT_EQ(Str(second.number), "3");
    EXPECT_EQ(Str(second.name), "n");
    EXPECT_EQ(Str(second.type), "SURFACE");
    EXPECT_EQ(PointText(second.Location), "0,-1");
    EXPECT_EQ(second.Xform->Rotation, 45);
    EXPECT_EQ(EntryShapes(imported, Str(second.StandardPrimitiveRef)), (Texts{"Circle Diameter=2"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(StepSection, TakesTheOutlineOfAPin)
{
    const Imported imported = ImportStep(std::string(R"(<Package name="P"><Pin number="1"><Outline>)") + Square +
                                         R"(<LineDesc lineEnd="NONE" lineWidth="0.3"/></Outline></Pin></Package>)");
    const auto & outline = PackageOf(imported).PinArray.GetAt(0)->Outline;
    EXPECT_EQ(StepsText(*outline.Polygon->PolyBegin, *outline.Polygon->PolyStepArray), SquareText);
    EXPECT_EQ(outline.LineDesc->LineWidth, 0.3);
    EXPECT_EQ(Str(outline.LineDesc->LineEnd), "NONE");
}

TEST(StepSection, TakesLogicalNetsWithTheirPins)
{
    const Imported imported = ImportStep(R"(<Package name="P"><Pin number="1"/><Pin number="2"/></Package>
        <Component refDes="U&amp;1" packageRef="P" layerRef="TOP"/><LogicalNet name="A&lt;0&gt;" netClass="SIGNAL">
        <PinRef componentRef="U&amp;1" pin="1"/><LogicalNetPin componentRef="U&amp;1" pin="2"/></LogicalNet>
        <LogicalNet name="B"/>)");
    EXPECT_EQ(NetTexts(imported), (Texts{"A&lt;0&gt;: U&amp;1.1 U&amp;1.2", "B:"}));
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LogicalNet netClass=SIGNAL"}));
    EXPECT_EQ(Notes(imported.report), Texts());
}

TEST(StepSection, TakesTheTitleOfAPinOfANet)
{
    const Imported imported = ImportStep(R"(<Component refDes="U1"/><LogicalNet name="A">
        <PinRef componentRef="U1" pin="1" title="clock"/></LogicalNet>)");
    EXPECT_EQ(Str(NetOf(imported, 0).LogicalNetPinArray->GetAt(0)->Title), "clock");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(StepSection, KeepsPinsOfComponentsThatAreNotThereAndTellsThem)
{
    const Imported imported = ImportStep(R"(<LogicalNet name="A"><PinRef componentRef="GONE" pin="1"/></LogicalNet>)");
    EXPECT_EQ(NetTexts(imported), (Texts{"A: GONE.1"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: component \"GONE\" is not in the file"}));
}

TEST(StepSection, TakesThePointsOfPhysicalNets)
{
    const Imported imported = ImportStep(R"(<PhyNetGroup name="G" optimized="true"><PhyNet name="N">
        <PhyNetPoint x="1" y="2" layerRef="TOP" netNode="END" exposure="EXPOSED" via="true" test="1">
        <StandardPrimitiveRef id="DOT"/></PhyNetPoint>
        <PhyNetPoint x="3" y="4" layerRef="GONE" via="0"/></PhyNet></PhyNetGroup>)");
    EXPECT_EQ(Str(StepOf(imported).PhyNetGroup.Name), "G");
    ASSERT_EQ(Count(StepOf(imported).PhyNetGroup.PhyNetArray), 1U);
    const auto & net = *StepOf(imported).PhyNetGroup.PhyNetArray.GetAt(0);
    EXPECT_EQ(Str(net.Name), "N");
    const Point & point = *net.PhyNetPointArray.GetAt(0);
    EXPECT_EQ(PointText(point.Location), "1,2");
    EXPECT_EQ(Str(point.LayerRef), "TOP");
    EXPECT_EQ(Str(point.NetNode), "END");
    EXPECT_EQ(Str(point.Exposure), "EXPOSED");
    EXPECT_EQ(point.Via, 1);
    EXPECT_EQ(point.Test, 1);
    EXPECT_EQ(Str(point.StandardPrimitiveRefId), "DOT");
    EXPECT_EQ(net.PhyNetPointArray.GetAt(1)->Via, 0);
    EXPECT_EQ(Str(net.PhyNetPointArray.GetAt(1)->LayerRef), "GONE");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/PhyNetGroup optimized=true"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: layer \"GONE\" is not in the file"}));
}

TEST(StepSection, TakesPadStacksWithPadsHoleAndSpan)
{
    const Imported imported = ImportStep(R"(<PadStack net="N">
        <LayerHole name="H" diameter="0.5" platingStatus="VIA" plusTol="0.1" minusTol="0.2" x="3" y="4">
        <Span fromLayer="TOP" toLayer="IN1"/></LayerHole>
        <LayerPad layerRef="TOP"><Xform rotation="90"/><Location x="3" y="4"/><StandardPrimitiveRef id="DOT"/></LayerPad>
        <LayerPad layerRef="GONE"><Location x="3" y="4"/><StandardPrimitiveRef id="DOT"/></LayerPad></PadStack>)");
    const auto & stack = *StepOf(imported).PadStackArray.GetAt(0);
    EXPECT_EQ(Str(stack.NetName), "N");
    EXPECT_EQ(Str(stack.LayerHole->Name), "H");
    EXPECT_EQ(Str(stack.LayerHole->Diameter), "0.5");
    EXPECT_EQ(Str(stack.LayerHole->PlatingStatus), "VIA");
    EXPECT_EQ(Str(stack.LayerHole->PlusTol), "0.1");
    EXPECT_EQ(Str(stack.LayerHole->MinusTol), "0.2");
    EXPECT_EQ(PointText(stack.LayerHole->Location), "3,4");
    EXPECT_EQ(Str(stack.LayerHole->FromLayer), "TOP");
    EXPECT_EQ(Str(stack.LayerHole->ToLayer), "IN1");
    ASSERT_EQ(Count(stack.LayerPadArray), 2U);
    EXPECT_EQ(Str(stack.LayerPadArray->GetAt(0)->LayerRef), "TOP");
    EXPECT_EQ(stack.LayerPadArray->GetAt(0)->Rotation, 90);
    EXPECT_EQ(Str(stack.LayerPadArray->GetAt(1)->LayerRef), "GONE");
    EXPECT_EQ(Losses(imported.report), Texts());
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: layer \"GONE\" is not in the file",
                                             "DanglingReference: layer \"IN1\" is not in the file"}));
}

TEST(StepSection, TellsAPanelAndDoesNotMergeIt)
{
    const Imported imported = ImportStep(R"(<StepRepeat stepRef="one" x="1" y="2" nx="3" ny="4" dx="5" dy="6"
        angle="0.0" mirror="false"/>)");
    EXPECT_EQ(Notes(imported.report), (Texts{"StepRepeat: the board repeats the step \"one\""}));
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Step/StepRepeat stepRef=one x=1 y=2 nx=3 ny=4 dx=5 dy=6 angle=0.0 mirror=false"}));
}

TEST(StepSection, SaysWhichComponentPackageOrNetALostFactBelongsTo)
{
    const Imported imported = ImportStep(R"(<Package name="P"/><Package name="Q" pinOne="1"/><Component refDes="U1"/>
        <Component refDes="U2"/><Component refDes="U3" weight="3"/><LogicalNet name="A"/>
        <LogicalNet name="B" netClass="SIGNAL"/>)");
    ASSERT_EQ(imported.report.LostCount(), 3U);
    EXPECT_EQ(imported.report.Lost(0).owner, 1U);
    EXPECT_EQ(imported.report.Lost(1).owner, 2U);
    EXPECT_EQ(imported.report.Lost(2).owner, 1U);
}

// A step as a whole, with what a name makes it be known by.
std::string StepNamed(const std::string & name, const std::string & inStep)
{
    return "<Step name=\"" + name + "\">" + inStep + "</Step>";
}

Imported ImportSteps(const std::string & steps, const std::string & wanted = {})
{
    ImportOptions options;
    options.step = wanted;
    return ImportText("<IPC-2581><Ecad><CadHeader units=\"INCH\"/><CadData><Layer name=\"TOP\"/>" + steps +
                          "</CadData></Ecad></IPC-2581>",
                      options);
}

const std::string WithComponent = R"(<Component refDes="U1" layerRef="TOP"/>)";

TEST(StepSection, TakesTheFirstOfSeveralStepsThatHasComponents)
{
    const Imported imported = ImportSteps(StepNamed("panel", R"(<Datum x="1" y="1"/>)") +
                                          StepNamed("board", WithComponent) + StepNamed("other", WithComponent));
    EXPECT_EQ(Str(StepOf(imported).Name), "board");
    EXPECT_EQ(Count(StepOf(imported).ComponentArray), 1U);
    EXPECT_EQ(PointText(StepOf(imported).Datum), "0,0");
    EXPECT_EQ(Notes(imported.report), (Texts{"StepLeftOut: the step \"panel\"", "StepLeftOut: the step \"other\""}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(StepSection, TakesTheFirstStepWhereNoneHasComponents)
{
    const Imported imported =
        ImportSteps(StepNamed("one", R"(<Datum x="1" y="1"/>)") + StepNamed("two", R"(<Datum x="2" y="2"/>)") +
                    StepNamed("three", R"(<Datum x="3" y="3"/>)"));
    EXPECT_EQ(Str(StepOf(imported).Name), "one");
    EXPECT_EQ(PointText(StepOf(imported).Datum), "1,1");
    EXPECT_EQ(Notes(imported.report), (Texts{"StepLeftOut: the step \"two\"", "StepLeftOut: the step \"three\""}));
}

TEST(StepSection, TakesTheStepThatIsAskedFor)
{
    const Imported imported =
        ImportSteps(StepNamed("one", WithComponent) + StepNamed("two", R"(<Datum x="2" y="2"/>)"), "two");
    EXPECT_EQ(Str(StepOf(imported).Name), "two");
    EXPECT_EQ(Count(StepOf(imported).ComponentArray), 0U);
    EXPECT_EQ(Notes(imported.report), (Texts{"StepLeftOut: the step \"one\""}));
}

TEST(StepSection, TakesNoStepWhereTheOneAskedForIsNotThere)
{
    const Imported imported = ImportSteps(StepNamed("one", WithComponent), "two");
    EXPECT_EQ(Str(StepOf(imported).Name), "");
    EXPECT_EQ(Count(StepOf(imported).ComponentArray), 0U);
    EXPECT_EQ(Notes(imported.report), (Texts{"StepLeftOut: the step \"one\""}));
}

TEST(StepSection, LeavesNothingOfAStepThatIsLeftOut)
{
    const std::string all = R"(<PadStack net="N"/><Datum x="1" y="1"/><Profile><Polygon><PolyBegin x="0" y="0"/>
        <PolyStepSegment x="1" y="0"/></Polygon></Profile><Package name="P" pinOne="1"/><LogicalNet name="A"/>
        <PhyNetGroup name="G"><PhyNet name="A"/></PhyNetGroup><LayerFeature layerRef="TOP"><Set net="A">
        <NonstandardAttribute name="a" type="STRING" value="b"/><Pad/></Set></LayerFeature>)";
    const Imported alone = ImportSteps(StepNamed("board", WithComponent));
    const Imported behind = ImportSteps(StepNamed("panel", all) + StepNamed("board", WithComponent));
    const Step & step = StepOf(behind);
    EXPECT_EQ(Count(step.PadStackArray) + Count(step.PackageArray) + Count(step.LogicalNetArray) +
                  Count(step.LayerFeatureArray) + Count(step.PhyNetGroup.PhyNetArray) +
                  Count(step.Profile.Polygon->PolyStepArray),
              0U);
    EXPECT_EQ(Str(step.PhyNetGroup.Name), "");
    EXPECT_EQ(Losses(behind.report), Losses(alone.report));
    EXPECT_EQ(behind.report.RemarkCount(), 0U);
}

TEST(StepSection, MakesNetsOfSetsAlsoInTheSecondStep)
{
    const std::string set = R"(<LayerFeature layerRef="TOP"><Set net="A"><Pad><PinRef componentRef="U1" pin="1"/></Pad>
        </Set></LayerFeature>)";
    const Imported imported =
        ImportSteps(StepNamed("panel", R"(<LogicalNet name="X"/>)") + StepNamed("board", WithComponent + set));
    EXPECT_EQ(NetTexts(imported), (Texts{"A: U1.1"}));
}

// A board whose first step has no components, so that the second one is imported.
std::string TwoSteps(const std::string & first, const std::string & second)
{
    return R"(<IPC-2581><Content><DictionaryStandard units="INCH"><EntryStandard id="E"><Circle diameter="1"/>
        </EntryStandard></DictionaryStandard><DictionaryLineDesc units="INCH"><EntryLineDesc id="PEN">
        <LineDesc lineEnd="ROUND" lineWidth="3"/></EntryLineDesc></DictionaryLineDesc></Content><Ecad>
        <CadHeader units="INCH"/><CadData><Layer name="TOP"><Span fromLayer="TOP" toLayer="TOP"/></Layer>
        <Step name="a"><Package name="Q"/>)" +
           first + R"(</Step><Step name="b"><Package name="P"/><Component refDes="U" packageRef="P" layerRef="TOP"/>)" +
           second + "</Step></CadData></Ecad></IPC-2581>";
}

TEST(StepSection, LeavesNoTraceOfAStepThatIsLeftOut)
{
    const std::string shapes = FeaturesOnTop(R"(<Line><LineDescRef id="PEN"/></Line>)") +
                               OnTop("<Set net='N'><Hole/></Set><Set><Pad><Circle diameter='3'/></Pad></Set>");
    const Imported imported = ImportText(TwoSteps(shapes, "<Odd/>"));
    EXPECT_EQ(Str(StepOf(imported).Name), "b");
    EXPECT_EQ(EntryIds(imported), (Texts{"E"}));
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Content/DictionaryLineDesc/EntryLineDesc id=PEN",
                     "Content/DictionaryLineDesc/EntryLineDesc/LineDesc lineEnd=ROUND lineWidth=3",
                     "Ecad/CadData/Layer/Span fromLayer=TOP toLayer=TOP", "Ecad/CadData/Step/Odd"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"StepLeftOut: the step \"a\""}));
    EXPECT_EQ(Count(StepOf(imported).LogicalNetArray), 0U);
    EXPECT_EQ(imported.report.Elements().at("Hole").stated, 1U);
}

TEST(StepSection, TakesTheSameFromTheStepAskedFor)
{
    const std::string text = TwoSteps("<Odd/>", FeaturesOnTop(R"(<Line><LineDescRef id="PEN"/></Line>)"));
    ImportOptions options;
    options.step = "b";
    EXPECT_EQ(ReportText(ImportText(text).report), ReportText(ImportText(text, options).report));
}

TEST(StepSection, KnowsThePackagesOfStepsThatAreLeftOut)
{
    std::string text = TwoSteps("", "");
    text.insert(text.find("<Ecad>"), R"(<Bom name="B"><BomItem packageRef="Q"><RefDes name="U" packageRef="P"/>
        <RefDes name="V" packageRef="GONE" layerRef="NONE"/></BomItem></Bom>)");
    EXPECT_EQ(Notes(ImportText(text).report),
              (Texts{"StepLeftOut: the step \"a\"", "DanglingReference: package \"GONE\" is not in the file",
                     "DanglingReference: layer \"NONE\" is not in the file"}));
}

TEST(StepSection, ReadsAFileAgainWithProgressThatNeverFallsBack)
{
    std::vector<double> parts;
    ImportOptions options;
    options.progress = [&](double part) {
        parts.push_back(part);
        return true;
    };
    const std::string many = "<!--" + std::string(5'000'000, 'x') + "-->";
    EXPECT_EQ(Str(StepOf(ImportText(TwoSteps(many, many), options)).Name), "b");
    EXPECT_GT(parts.size(), 10U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
    EXPECT_EQ(parts.back(), 1.0);
}

TEST(StepSection, ReadsAPipeAgain)
{
    const TempFolder folder;
    const std::string path = folder.Path("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const std::string many = "<!--" + std::string(300'000, 'x') + "-->";
    const std::string text = TwoSteps(many, many);
    std::thread writer([&] { std::ofstream(path, std::ios::binary) << text; });
    const Imported imported = Import(path);
    writer.join();
    EXPECT_EQ(Str(StepOf(imported).Name), "b");
    EXPECT_EQ(ReportText(imported.report), ReportText(ImportText(text).report));
}

}  // namespace
}  // namespace ipc2581::tests
