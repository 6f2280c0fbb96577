#include <gtest/gtest.h>

#include "ipc2581/each.h"
#include "tests/import/support/Documents.h"
#include "tests/import/support/ShapeText.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

using Pad = CIPC2581_Ecad_CadData_Step_Pad;

const std::string Dictionary = R"(<DictionaryStandard units="MILLIMETER">
    <EntryStandard id="RECT"><RectCenter width="2" height="1"/></EntryStandard>
    <EntryStandard id="CORNER"><Contour><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="3" y="0"/>
    <PolyStepSegment x="0" y="1"/><PolyStepSegment x="0" y="0"/></Polygon></Contour></EntryStandard>
    <EntryStandard id="CUT"><RectCham width="4" height="2" chamfer="0.5" upperRight="true" upperLeft="false"
    lowerLeft="false" lowerRight="false"/></EntryStandard></DictionaryStandard>)";

Imported ImportPads(const std::string & pads, const std::string & inStep = {}, const std::string & content = Dictionary)
{
    return ImportDocument({.content = content, .step = inStep + OnTop("<Set>" + pads + "</Set>")});
}

const Pad & PadOf(const Imported & imported, std::size_t index = 0)
{
    return SetOf(imported, index).Pad;
}

// A pad as "RECT at 1,2 turned 30".
std::string PadText(const Pad & pad)
{
    return Str(pad.StandardPrimitiveRefId) + " at " + PointText(pad.Location) + " turned " + NumberText(pad.Rotation);
}

TEST(PadReader, TakesPlaceTurnAndShapeOfAPad)
{
    const Imported imported =
        ImportPads(R"(<Pad><Xform rotation="30"/><Location x="1" y="2"/><StandardPrimitiveRef id="RECT"/></Pad>)");
    EXPECT_EQ(PadText(PadOf(imported)), "RECT at 1,2 turned 30");
    EXPECT_EQ(EntryIds(imported), (Texts{"RECT", "CORNER", "CUT"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, AddsTheOffsetOfTheTransformToThePlace)
{
    const Imported imported = ImportPads(R"(<Pad><Xform xOffset="10" yOffset="20" rotation="90"/><Location x="1" y="2"/>
        <StandardPrimitiveRef id="RECT"/></Pad>)");
    EXPECT_EQ(PadText(PadOf(imported)), "RECT at 11,22 turned 90");
}

TEST(PadReader, WritesThePinWithItsComponentAndWithoutAPrefix)
{
    const Imported imported =
        ImportPads(R"(<Pad><PinRef componentRef="U&amp;1" pin="A1"/></Pad><Pad><PinRef pin="7"/></Pad>
        <Pad pin="own"/>)",
                   R"(<Component refDes="U&amp;1"/>)");
    EXPECT_EQ(Str(PadOf(imported, 0).Pin), "U&amp;1.A1");
    EXPECT_EQ(Str(PadOf(imported, 1).Pin), "7");
    EXPECT_EQ(Str(PadOf(imported, 2).Pin), "own");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Str(PadOf(imported, i).PinPrefix), "");
        EXPECT_EQ(PadOf(imported, i).UsePinPrefix, 0);
    }
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, TakesTheFirstOfSeveralPinsAndTellsTheOthers)
{
    const Imported imported =
        ImportPads(R"(<Pad><PinRef componentRef="U1" pin="1"/><PinRef componentRef="U1" pin="2" title="t"/></Pad>)",
                   R"(<Component refDes="U1"/>)");
    EXPECT_EQ(Str(PadOf(imported).Pin), "U1.1");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Step/LayerFeature/Set/Pad/PinRef componentRef=U1 pin=2 title=t"}));
}

TEST(PadReader, LeavesASymmetricShapeAsItIsInAMirror)
{
    const Imported imported =
        ImportPads(R"(<Pad><Xform rotation="30" mirror="true"/><StandardPrimitiveRef id="RECT"/></Pad>)");
    // Turned counterclockwise and then mirrored, it lies as if turned clockwise.
    EXPECT_EQ(PadText(PadOf(imported)), "RECT at 0,0 turned -30");
    EXPECT_EQ(EntryIds(imported), (Texts{"RECT", "CORNER", "CUT"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, GivesAMirroredShapeThatIsNotSymmetricAnEntryOfItsOwn)
{
    const Imported imported =
        ImportPads(R"(<Pad><Xform rotation="90" mirror="true"/><StandardPrimitiveRef id="CORNER"/></Pad>
        <Pad><Xform mirror="true"/><Location x="1" y="1"/><StandardPrimitiveRef id="CORNER"/></Pad>
        <Pad><StandardPrimitiveRef id="CORNER"/></Pad>)");
    ASSERT_EQ(EntryIds(imported).size(), 4U);
    const std::string id = EntryIds(imported).back();
    EXPECT_EQ(EntryShapes(imported, id), (Texts{"Contour 0,0 line -3,0 line 0,1 line 0,0"}));
    EXPECT_EQ(PadText(PadOf(imported, 0)), id + " at 0,0 turned -90");
    EXPECT_EQ(PadText(PadOf(imported, 1)), id + " at 1,1 turned 0");
    EXPECT_EQ(PadText(PadOf(imported, 2)), "CORNER at 0,0 turned 0");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, MirrorsTheCornersOfARectangle)
{
    const Imported imported = ImportPads(R"(<Pad><Xform mirror="true"/><StandardPrimitiveRef id="CUT"/></Pad>)");
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported).StandardPrimitiveRefId)),
              (Texts{"RectCham Width=4 Height=2 Chamfer=0.5 UpperLeft=1"}));
}

TEST(PadReader, GivesAScaledShapeAnEntryOfItsOwn)
{
    const Imported imported = ImportPads(R"(<Pad><Xform scale="2"/><StandardPrimitiveRef id="RECT"/></Pad>
        <Pad><Xform scale="3"/><StandardPrimitiveRef id="RECT"/></Pad>
        <Pad><Xform scale="2"/><StandardPrimitiveRef id="RECT"/></Pad>)");
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 0).StandardPrimitiveRefId)),
              (Texts{"RectCenter Width=4 Height=2"}));
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 1).StandardPrimitiveRefId)),
              (Texts{"RectCenter Width=6 Height=3"}));
    EXPECT_EQ(Str(PadOf(imported, 2).StandardPrimitiveRefId), Str(PadOf(imported, 0).StandardPrimitiveRefId));
}

TEST(PadReader, PutsAShapeThatStandsInPlaceIntoTheDictionary)
{
    const Imported imported =
        ImportPads(R"(<Pad><Xform rotation="45"/><Circle diameter="3"/></Pad><Pad><Circle diameter="3"/></Pad>
        <Pad><Circle diameter="4"/></Pad>)");
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 0).StandardPrimitiveRefId)), (Texts{"Circle Diameter=3"}));
    EXPECT_EQ(PadOf(imported, 0).Rotation, 45);
    EXPECT_EQ(Str(PadOf(imported, 1).StandardPrimitiveRefId), Str(PadOf(imported, 0).StandardPrimitiveRefId));
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 2).StandardPrimitiveRefId)), (Texts{"Circle Diameter=4"}));
    EXPECT_EQ(EntryIds(imported).size(), 5U);
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, PutsAUserFigureIntoTheStandardDictionary)
{
    const std::string user = R"(<DictionaryUser units="MILLIMETER"><EntryUser id="RECT"><UserSpecial>
        <Oval width="5" height="1"/></UserSpecial></EntryUser></DictionaryUser>)";
    const Imported imported = ImportPads(
        R"(<Pad><UserPrimitiveRef id="RECT"/></Pad><Pad><UserPrimitiveRef id="RECT"/></Pad>)", {}, Dictionary + user);
    const std::string id = Str(PadOf(imported, 0).StandardPrimitiveRefId);
    EXPECT_NE(id, "RECT");
    EXPECT_EQ(Str(PadOf(imported, 1).StandardPrimitiveRefId), id);
    EXPECT_EQ(EntryShapes(imported, id), (Texts{"Oval Width=5 Height=1"}));
    EXPECT_EQ(EntryShapes(imported, "RECT"), (Texts{"RectCenter Width=2 Height=1"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, WritesEntriesInTheUnitOfTheirDictionary)
{
    const Imported imported = ImportPads(R"(<Pad><Circle diameter="25.4"/></Pad>
        <Pad><Xform mirror="true"/><StandardPrimitiveRef id="CORNER"/></Pad><Pad><UserPrimitiveRef id="BAR"/></Pad>)",
                                         {}, R"(<DictionaryStandard units="INCH"><EntryStandard id="CORNER"><Contour>
        <Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="3" y="0"/><PolyStepSegment x="0" y="1"/></Polygon></Contour>
        </EntryStandard></DictionaryStandard><DictionaryUser units="MICRON"><EntryUser id="BAR"><UserSpecial>
        <RectCenter width="25400" height="12700"/></UserSpecial></EntryUser></DictionaryUser>)");
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 0).StandardPrimitiveRefId)), (Texts{"Circle Diameter=1"}));
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 1).StandardPrimitiveRefId)),
              (Texts{"Contour 0,0 line -3,0 line 0,1"}));
    EXPECT_EQ(EntryShapes(imported, Str(PadOf(imported, 2).StandardPrimitiveRefId)),
              (Texts{"RectCenter Width=1 Height=0.5"}));
}

TEST(PadReader, KeepsAPrimitiveThatIsNotThereAndTellsIt)
{
    const Imported imported = ImportPads(R"(<Pad><StandardPrimitiveRef id="GONE"/></Pad>)");
    EXPECT_EQ(Str(PadOf(imported).StandardPrimitiveRefId), "GONE");
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: primitive \"GONE\" is not in the file"}));
    const Imported user = ImportPads(R"(<Pad><UserPrimitiveRef id="GONE"/></Pad>)");
    EXPECT_EQ(Str(PadOf(user).StandardPrimitiveRefId), "GONE");
    EXPECT_EQ(Notes(user.report), (Texts{"DanglingReference: figure \"GONE\" is not in the file"}));
}

TEST(PadReader, TellsTheComponentOfAPinThatIsNotThere)
{
    const Imported imported = ImportPads(R"(<Pad><PinRef componentRef="GONE" pin="1"/></Pad>)");
    EXPECT_EQ(Str(PadOf(imported).Pin), "GONE.1");
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: component \"GONE\" is not in the file"}));
}

const std::string Stack = R"(<PadStackDef name="THROUGH">
    <PadstackPadDef layerRef="TOP" padUse="ANTIPAD"><StandardPrimitiveRef id="CUT"/></PadstackPadDef>
    <PadstackPadDef layerRef="TOP" padUse="REGULAR"><Location x="1" y="0"/><StandardPrimitiveRef id="RECT"/></PadstackPadDef>
    </PadStackDef>)";

TEST(PadReader, TakesTheShapeOfAPadWithoutOneFromItsPadStack)
{
    const Imported imported =
        ImportPads(R"(<Pad padstackDefRef="THROUGH"><Xform rotation="90"/><Location x="10" y="10"/></Pad>)", Stack);
    EXPECT_EQ(PadText(PadOf(imported)), "RECT at 10,11 turned 90");
    // The definition says more than this pad has taken of it.
    EXPECT_FALSE(imported.report.LostAt("Ecad/CadData/Step/PadStackDef").empty());
    EXPECT_EQ(imported.report.LostAt("Ecad/CadData/Step/LayerFeature/Set/Pad").size(), 1U);
}

TEST(PadReader, LeavesAPadWithAShapeOfItsOwnAlone)
{
    const Imported imported = ImportPads(
        R"(<Pad padstackDefRef="THROUGH"><Location x="10" y="10"/><StandardPrimitiveRef id="CORNER"/></Pad>)", Stack);
    EXPECT_EQ(PadText(PadOf(imported)), "CORNER at 10,10 turned 0");
}

TEST(PadReader, TellsAPadStackThatIsNotThere)
{
    const Imported imported = ImportPads(R"(<Pad padstackDefRef="GONE"/>)");
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: pad stack \"GONE\" is not in the file"}));
}

TEST(PadReader, GivesPinsAndPointsOfNetsEntriesOfTheirOwn)
{
    const Imported imported = ImportPads({}, R"(<Package name="P"><Pin number="1"><Xform rotation="90" mirror="true"/>
        <RectCenter width="7" height="1"/></Pin></Package><PhyNetGroup name="G"><PhyNet name="N">
        <PhyNetPoint x="1" y="2" layerRef="TOP"><Circle diameter="7"/></PhyNetPoint></PhyNet></PhyNetGroup>)");
    const auto & pin = *StepOf(imported).PackageArray.GetAt(0)->PinArray.GetAt(0);
    EXPECT_EQ(EntryShapes(imported, Str(pin.StandardPrimitiveRef)), (Texts{"RectCenter Width=7 Height=1"}));
    EXPECT_EQ(XformText(*pin.Xform), "0,0 turned 90 mirrored scaled 0");
    const auto & point = *StepOf(imported).PhyNetGroup.PhyNetArray.GetAt(0)->PhyNetPointArray.GetAt(0);
    EXPECT_EQ(EntryShapes(imported, Str(point.StandardPrimitiveRefId)), (Texts{"Circle Diameter=7"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(PadReader, TellsTheStrangersOfEachShapeThatStandsInPlace)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set><Pad><Circle diameter="1" odd="x"/></Pad>
        <Pad><Circle diameter="1" odd="x"/></Pad></Set>)")});
    EXPECT_EQ(EntryIds(imported), (Texts{"SHAPE"}));
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set/Pad/Circle odd=x",
                                              "Ecad/CadData/Step/LayerFeature/Set/Pad/Circle odd=x"}));
}

TEST(PadReader, TakesTheFirstPlaceAndTheFirstTransform)
{
    const Imported imported = ImportDocument({.step = OnTop(R"(<Set><Pad><Xform rotation="90"/><Xform rotation="45"/>
        <Location x="1" y="2"/><Location x="3" y="4"/></Pad></Set>)")});
    EXPECT_EQ(SetOf(imported, 0).Pad.Rotation, 90);
    EXPECT_EQ(SetOf(imported, 0).Pad.Location.X, 1);
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set/Pad/Xform rotation=45",
                                              "Ecad/CadData/Step/LayerFeature/Set/Pad/Location x=3 y=4"}));
}

}  // namespace
}  // namespace ipc2581::tests
