#include <gtest/gtest.h>

#include "tests/import/support/Documents.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

// What a set draws on a board in millimetres, with the content that it refers to.
Imported Draw(const std::string & shapes, const std::string & content = {})
{
    return ImportDocument({.content = content, .step = FeaturesOnTop(shapes)});
}

const std::string Pens = R"(<DictionaryLineDesc units="INCH"><EntryLineDesc id="PEN">
    <LineDesc lineEnd="SQUARE" lineWidth="0.1"/></EntryLineDesc></DictionaryLineDesc>)";

struct StrokeCase {
    const char * name;
    std::string xml;
    const char * drawn;
};

class StrokeByReference : public testing::TestWithParam<StrokeCase> {};

TEST_P(StrokeByReference, HasWidthAndEndOfItsLineDescription)
{
    const Imported imported = Draw(GetParam().xml, Pens);
    EXPECT_EQ(Drawn(imported), (Texts{GetParam().drawn}));
    EXPECT_EQ(Losses(imported.report), Texts());
    EXPECT_EQ(Notes(imported.report), Texts());
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, StrokeByReference,
    testing::Values(
        StrokeCase{"Line", R"(<Line startX="1" startY="2" endX="3" endY="4"><LineDescRef id="PEN"/></Line>)",
                   "Line 1,2 to 3,4 pen 2.54 SQUARE"},
        StrokeCase{"Polyline", R"(<Polyline><PolyBegin x="1" y="2"/><PolyStepSegment x="3" y="4"/>
                       <LineDescRef id="PEN"/></Polyline>)",
                   "Polyline 1,2 line 3,4 pen 2.54 SQUARE"},
        StrokeCase{"Arc", R"(<Arc startX="1" startY="0" endX="0" endY="1" centerX="0" centerY="0" clockwise="false">
                       <LineDescRef id="PEN"/></Arc>)",
                   "Polyline 1,0 arc 0,1 about 0,0 pen 2.54 SQUARE"},
        StrokeCase{"Outline", R"(<Outline><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="1" y="0"/></Polygon>
                       <LineDescRef id="PEN"/></Outline>)",
                   "Outline 0,0 line 1,0 pen 2.54 SQUARE"}),
    [](const auto & test) { return std::string(test.param.name); });

TEST(ShapeReader, DrawsAnArcAsAPolylineWithOneCurve)
{
    const std::string ends = R"(<Arc startX="1" startY="0" endX="0" endY="1" centerX="0" centerY="0")";
    const std::string pen = R"(><LineDesc lineEnd="ROUND" lineWidth="0.5"/></Arc>)";
    EXPECT_EQ(Drawn(Draw(ends + R"( clockwise="false")" + pen)),
              (Texts{"Polyline 1,0 arc 0,1 about 0,0 pen 0.5 ROUND"}));
    EXPECT_EQ(Drawn(Draw(ends + R"( clockwise="true")" + pen)),
              (Texts{"Polyline 1,0 clockwise 0,1 about 0,0 pen 0.5 ROUND"}));
    EXPECT_EQ(Drawn(Draw(ends + R"( clockwise="1")" + pen)),
              (Texts{"Polyline 1,0 clockwise 0,1 about 0,0 pen 0.5 ROUND"}));
}

TEST(ShapeReader, TakesTheDirectionOfCurvesAsTruthValues)
{
    for (const auto & [word, step] :
         {std::pair("true", "clockwise"), std::pair("1", "clockwise"), std::pair("TRUE", "clockwise"),
          std::pair("false", "arc"), std::pair("0", "arc"), std::pair("FALSE", "arc")}) {
        const Imported imported = Draw(std::string(R"(<Polyline><PolyBegin x="1" y="0"/>
            <PolyStepCurve x="0" y="1" centerX="0" centerY="0" clockwise=")") +
                                       word + R"("/><LineDesc lineEnd="ROUND" lineWidth="1"/></Polyline>)");
        EXPECT_EQ(Drawn(imported), (Texts{std::string("Polyline 1,0 ") + step + " 0,1 about 0,0 pen 1 ROUND"})) << word;
        EXPECT_EQ(Losses(imported.report), Texts()) << word;
    }
}

struct PrimitiveCase {
    const char * name;
    const char * xml;
    const char * drawn;
};

class Primitive : public testing::TestWithParam<PrimitiveCase> {};

TEST_P(Primitive, KeepsItsMeasures)
{
    const Imported imported = Draw(GetParam().xml);
    EXPECT_EQ(Drawn(imported), (Texts{GetParam().drawn}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, Primitive,
    testing::Values(
        PrimitiveCase{"Butterfly", R"(<Butterfly shape="SQUARE" side="2"/>)", "Butterfly Shape=1 Size=2"},
        PrimitiveCase{"RoundButterfly", R"(<Butterfly shape="ROUND" diameter="2"/>)", "Butterfly Size=2"},
        PrimitiveCase{"Circle", R"(<Circle diameter="2"/>)", "Circle Diameter=2"},
        PrimitiveCase{"Diamond", R"(<Diamond width="2" height="1"/>)", "Diamond Width=2 Height=1"},
        PrimitiveCase{"Donut", R"(<Donut shape="HEXAGON" outerDiameter="3" innerDiameter="1"/>)",
                      "Donut Shape=2 OuterDiameter=3 InnerDiameter=1"},
        PrimitiveCase{"Ellipse", R"(<Ellipse width="2" height="1"/>)", "Ellipse Width=2 Height=1"},
        PrimitiveCase{"Hexagon", R"(<Hexagon length="2"/>)", "Hexagon Length=2"},
        PrimitiveCase{"Moire", R"(<Moire diameter="9" ringWidth="1" ringGap="0.5" ringNumber="3" lineWidth="0.1"
            lineLength="10" lineAngle="45"/>)",
                      "Moire Diameter=9 RingWidth=1 RingGap=0.5 RingNumber=3 LineWidth=0.1 LineLength=10 LineAngle=45"},
        PrimitiveCase{"Octagon", R"(<Octagon length="2"/>)", "Octagon Length=2"},
        PrimitiveCase{"Oval", R"(<Oval width="2" height="1"/>)", "Oval Width=2 Height=1"},
        PrimitiveCase{"RectCenter", R"(<RectCenter width="2" height="1"/>)", "RectCenter Width=2 Height=1"},
        PrimitiveCase{"RectCham", R"(<RectCham width="4" height="2" chamfer="0.5" upperRight="true" upperLeft="0"
            lowerLeft="1" lowerRight="false"/>)",
                      "RectCham Width=4 Height=2 Chamfer=0.5 UpperRight=1 LowerLeft=1"},
        PrimitiveCase{"RectRound", R"(<RectRound width="4" height="2" radius="0.5" upperRight="false" upperLeft="TRUE"
            lowerLeft="FALSE" lowerRight="true"/>)",
                      "RectRound Width=4 Height=2 Radius=0.5 UpperLeft=1 LowerRight=1"},
        PrimitiveCase{"RectRoundWithoutFlags", R"(<RectRound width="4" height="2" radius="0.5"/>)",
                      "RectRound Width=4 Height=2 Radius=0.5 UpperRight=1 UpperLeft=1 LowerLeft=1 LowerRight=1"},
        PrimitiveCase{"RectRoundWithoutRoundCorners", R"(<RectRound width="4" height="2" radius="0.5" upperRight="false"
            upperLeft="false" lowerLeft="0" lowerRight="false"/>)",
                      "RectCenter Width=4 Height=2"},
        PrimitiveCase{"RectCorner", R"(<RectCorner lowerLeftX="1" lowerLeftY="2" upperRightX="3" upperRightY="4"/>)",
                      "RectCorner Lower_LeftX=1 Lower_LeftY=2 Upper_RightX=3 Upper_RightY=4"},
        PrimitiveCase{"Thermal",
                      R"(<Thermal shape="OCTAGON" outerDiameter="3" innerDiameter="1" spokeCount="4" gap="0.2"
            spokeStartAngle="45"/>)",
                      "Thermal Shape=3 OuterDiameter=3 InnerDiameter=1 SpokeCount=4 Gap=0.2 SpokeStartAngle=45"},
        PrimitiveCase{"Triangle", R"(<Triangle base="2" height="1"/>)", "Triangle Base=2 Height=1"}),
    [](const auto & test) { return std::string(test.param.name); });

TEST(ShapeReader, PutsTheOwnTransformOfAShapeIntoIt)
{
    EXPECT_EQ(Drawn(Draw(R"(<RectCenter width="2" height="1"><Xform rotation="90" scale="2"/></RectCenter>)")),
              (Texts{"RectCenter Width=2 Height=4"}));
    EXPECT_EQ(Drawn(Draw(R"(<Circle diameter="1"><Xform xOffset="3" yOffset="4" mirror="true"/></Circle>)")),
              (Texts{"Circle Diameter=1 OffsetX=3 OffsetY=4"}));
    EXPECT_EQ(Drawn(Draw(R"(<RectCenter width="2" height="1"><Xform xOffset="10"/></RectCenter>)")),
              (Texts{"Contour 9,-0.5 line 11,-0.5 line 11,0.5 line 9,0.5 line 9,-0.5"}));
}

TEST(ShapeReader, ScalesThenTurnsThenMirrorsThenMoves)
{
    EXPECT_EQ(Drawn(Draw(R"(<Xform xOffset="10" yOffset="20" rotation="90" mirror="true" scale="2"/>
                  <Polyline><PolyBegin x="1" y="0"/><PolyStepCurve x="0" y="1" centerX="0" centerY="0" clockwise="false"/>
                  <LineDesc lineEnd="ROUND" lineWidth="0.5"/></Polyline>)")),
              (Texts{"Polyline 10,22 clockwise 12,20 about 10,20 pen 1 ROUND"}));
}

TEST(ShapeReader, AppliesInnerTransformsFirst)
{
    EXPECT_EQ(Drawn(Draw(R"(<Xform rotation="90"/><UserSpecial><Xform xOffset="1"/>
                  <Line startX="0" startY="0" endX="1" endY="0"><Xform mirror="true"/>
                  <LineDesc lineEnd="ROUND" lineWidth="1"/></Line></UserSpecial>)")),
              (Texts{"Line 0,1 to 0,0 pen 1 ROUND"}));
}

TEST(ShapeReader, DrawsTheFigureThatIsReferredToInPlace)
{
    const std::string users = R"(<DictionaryUser units="INCH"><EntryUser id="LOGO"><UserSpecial>
        <Line startX="0" startY="0" endX="1" endY="0"><LineDesc lineEnd="ROUND" lineWidth="0.01"/></Line>
        <Circle diameter="0.1"/></UserSpecial></EntryUser></DictionaryUser>)";
    const Imported imported = Draw(R"(<Xform xOffset="1"/><UserPrimitiveRef id="LOGO"/>)", users);
    EXPECT_EQ(Drawn(imported), (Texts{"Line 1,0 to 26.4,0 pen 0.254 ROUND", "Circle Diameter=2.54 OffsetX=1"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ShapeReader, DrawsThePrimitiveThatIsReferredToInPlace)
{
    const std::string standards = R"(<DictionaryStandard units="MICRON"><EntryStandard id="OVAL">
        <Oval width="4000" height="2000"/></EntryStandard></DictionaryStandard>)";
    const Imported imported = Draw(R"(<Xform rotation="90"/><StandardPrimitiveRef id="OVAL"/>)", standards);
    EXPECT_EQ(Drawn(imported), (Texts{"Oval Width=2 Height=4"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ShapeReader, ConvertsThroughFiguresOfOtherUnits)
{
    const std::string content = Pens + R"(<DictionaryStandard units="MICRON"><EntryStandard id="DOT">
        <Circle diameter="25400"/></EntryStandard></DictionaryStandard>
        <DictionaryUser units="INCH"><EntryUser id="INNER"><UserSpecial><StandardPrimitiveRef id="DOT"/>
        <Line startX="0" startY="0" endX="1" endY="0"><LineDescRef id="PEN"/></Line></UserSpecial></EntryUser>
        <EntryUser id="OUTER"><UserSpecial><UserPrimitiveRef id="INNER"/></UserSpecial></EntryUser></DictionaryUser>)";
    const Imported imported = Draw(R"(<UserPrimitiveRef id="OUTER"/>)", content);
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=25.4", "Line 0,0 to 25.4,0 pen 2.54 SQUARE"}));
    EXPECT_EQ(Losses(imported.report), Texts());
    EXPECT_EQ(Notes(imported.report), Texts());
}

TEST(ShapeReader, DrawsHollowShapesAsStrokes)
{
    const std::string look = R"(<LineDesc lineEnd="ROUND" lineWidth="0.1"/><FillDesc fillProperty="HOLLOW"/>)";
    EXPECT_EQ(Drawn(Draw("<Circle diameter=\"2\">" + look + "</Circle>")),
              (Texts{"Polyline 1,0 arc -1,0 about 0,0 arc 1,0 about 0,0 pen 0.1 ROUND"}));
    EXPECT_EQ(Drawn(Draw("<RectCenter width=\"2\" height=\"1\">" + look + "</RectCenter>")),
              (Texts{"Polyline -1,-0.5 line 1,-0.5 line 1,0.5 line -1,0.5 line -1,-0.5 pen 0.1 ROUND"}));
    const Imported contour = Draw(R"(<Contour><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="4" y="0"/>
        <PolyStepSegment x="0" y="4"/><PolyStepSegment x="0" y="0"/>)" +
                                  look +
                                  R"(</Polygon><Cutout><PolyBegin x="1" y="1"/><PolyStepSegment x="2" y="1"/>
        <PolyStepSegment x="1" y="1"/></Cutout></Contour>)");
    EXPECT_EQ(Drawn(contour), (Texts{"Polyline 0,0 line 4,0 line 0,4 line 0,0 pen 0.1 ROUND",
                                     "Polyline 1,1 line 2,1 line 1,1 pen 0.1 ROUND"}));
}

TEST(ShapeReader, DrawsHollowShapesByReferences)
{
    const std::string content =
        Pens + R"(<DictionaryFillDesc><EntryFillDesc id="EMPTY"><FillDesc fillProperty="HOLLOW"/>
        </EntryFillDesc></DictionaryFillDesc>)";
    const Imported imported =
        Draw(R"(<Circle diameter="2"><LineDescRef id="PEN"/><FillDescRef id="EMPTY"/></Circle>)", content);
    EXPECT_EQ(Drawn(imported), (Texts{"Polyline 1,0 arc -1,0 about 0,0 arc 1,0 about 0,0 pen 2.54 SQUARE"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ShapeReader, DrawsAHollowPrimitiveOfTheDictionaryAsAStroke)
{
    const Imported imported = Draw(R"(<StandardPrimitiveRef id="RING"/>)", R"(<DictionaryStandard units="MICRON">
        <EntryStandard id="RING"><Circle diameter="2000"><LineDesc lineEnd="NONE" lineWidth="100"/>
        <FillDesc fillProperty="HOLLOW"/></Circle></EntryStandard></DictionaryStandard>)");
    EXPECT_EQ(Drawn(imported), (Texts{"Polyline 1,0 arc -1,0 about 0,0 arc 1,0 about 0,0 pen 0.1 NONE"}));
    // The dictionary has no place for strokes.
    EXPECT_EQ(EntryShapes(imported, "RING"), (Texts{"Circle Diameter=2000"}));
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Content/DictionaryStandard/EntryStandard/Circle/LineDesc lineEnd=NONE lineWidth=100",
                     "Content/DictionaryStandard/EntryStandard/Circle/FillDesc fillProperty=HOLLOW"}));
}

TEST(ShapeReader, DrawsFilledShapesAsAreasAndTellsTheirLines)
{
    const Imported imported = Draw(R"(<Circle diameter="2"><LineDesc lineEnd="ROUND" lineWidth="0.1"/>
        <FillDesc fillProperty="FILL"/></Circle>)");
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=2"}));
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Step/LayerFeature/Set/Features/Circle/LineDesc lineEnd=ROUND lineWidth=0.1"}));
}

TEST(ShapeReader, TellsHatchesAndFillsThemAllTheSame)
{
    const Imported imported = Draw(R"(<Circle diameter="2"><FillDesc fillProperty="HATCH" lineWidth="0.1" pitch1="1"/>
        </Circle>)");
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=2"}));
    EXPECT_EQ(
        Losses(imported.report),
        (Texts{
            "Ecad/CadData/Step/LayerFeature/Set/Features/Circle/FillDesc fillProperty=HATCH lineWidth=0.1 pitch1=1"}));
}

TEST(ShapeReader, LosesShapesThatTakeAwayAndTellsThem)
{
    const std::string fills = R"(<DictionaryFillDesc><EntryFillDesc id="AWAY"><FillDesc fillProperty="VOID"/>
        </EntryFillDesc></DictionaryFillDesc>)";
    const Imported imported = Draw(R"(<UserSpecial><Circle diameter="9"><FillDescRef id="AWAY"/></Circle>
        <Circle diameter="1"/><Contour><Polygon><PolyBegin x="5" y="5"/><FillDesc fillProperty="VOID"/></Polygon></Contour>
        </UserSpecial>)",
                                   fills);
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=1"}));
    const std::string path = "Ecad/CadData/Step/LayerFeature/Set/Features/UserSpecial/";
    EXPECT_EQ(Losses(imported.report),
              (Texts{path + "Circle diameter=9", path + "Circle/FillDescRef id=AWAY", path + "Contour",
                     path + "Contour/Polygon", path + "Contour/Polygon/PolyBegin x=5 y=5",
                     path + "Contour/Polygon/FillDesc fillProperty=VOID"}));
}

TEST(ShapeReader, DrawsContoursWithTheirCutouts)
{
    const Imported imported = Draw(R"(<Contour><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="4" y="0"/>
        <PolyStepCurve x="0" y="4" centerX="0" centerY="0" clockwise="false"/><PolyStepSegment x="0" y="0"/></Polygon>
        <Cutout><PolyBegin x="1" y="1"/><PolyStepSegment x="2" y="1"/><PolyStepSegment x="1" y="1"/></Cutout></Contour>)");
    EXPECT_EQ(Drawn(imported),
              (Texts{"Contour 0,0 line 4,0 arc 0,4 about 0,0 line 0,0 without 1,1 line 2,1 line 1,1"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ShapeReader, PlacesPolygonsByTheirOwnTransforms)
{
    EXPECT_EQ(Drawn(Draw(R"(<Contour><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="4" y="0"/>
                  <Xform rotation="90"/></Polygon><Cutout><PolyBegin x="1" y="0"/><PolyStepSegment x="2" y="0"/>
                  <Xform mirror="true"/></Cutout></Contour>)")),
              (Texts{"Contour 0,0 line 0,4 without -1,0 line -2,0"}));
}

TEST(ShapeReader, TakesTextsWithPlaceBoxFontAndColor)
{
    const Imported imported = Draw(R"(<Text textString="A&lt;B &#xD6;" fontSize="12"><Xform xOffset="1" yOffset="2"
        rotation="90" mirror="true"/><BoundingBox lowerLeftX="3" lowerLeftY="4" upperRightX="5" upperRightY="6"/>
        <FontRef id="F"/><ColorRef id="C"/></Text>)");
    EXPECT_EQ(
        Drawn(imported),
        (Texts{"Text \"A&lt;B \u00D6\" size 12 at 1,2 turned 90 mirrored scaled 0 in 3,4 to 5,6 font F color C"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ShapeReader, TellsFiguresThatAreNotThere)
{
    const Imported imported = Draw(R"(<UserSpecial><UserPrimitiveRef id="NO_U"/><StandardPrimitiveRef id="NO_S"/>
        <Line startX="0" startY="0" endX="1" endY="0"><LineDescRef id="NO_L"/></Line></UserSpecial>)");
    EXPECT_EQ(Drawn(imported), (Texts{"Line 0,0 to 1,0 pen 0 ROUND"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: figure \"NO_U\" is not in the file",
                                             "DanglingReference: primitive \"NO_S\" is not in the file",
                                             "DanglingReference: line description \"NO_L\" is not in the file"}));
    const std::string path = "Ecad/CadData/Step/LayerFeature/Set/Features/UserSpecial/";
    EXPECT_EQ(Losses(imported.report), (Texts{path + "UserPrimitiveRef id=NO_U", path + "StandardPrimitiveRef id=NO_S",
                                              path + "Line/LineDescRef id=NO_L"}));
}

TEST(ShapeReader, TellsNumbersThatAreNone)
{
    const Imported imported = Draw(R"(<Circle diameter="wide"/><RectCenter width="2mm" height=" 1 "/>)");
    EXPECT_EQ(Losses(imported.report), (Texts{"Ecad/CadData/Step/LayerFeature/Set/Features/Circle diameter=wide",
                                              "Ecad/CadData/Step/LayerFeature/Set/Features/RectCenter width=2mm"}));
    EXPECT_EQ(Drawn(imported)[1], "RectCenter Width=2 Height=1");
}

const std::string InFeatures = "Ecad/CadData/Step/LayerFeature/Set/Features/";

TEST(ShapeReader, TakesTheFirstBeginOfAContour)
{
    const Imported imported =
        Draw(R"(<Polyline><PolyBegin x="1" y="1"/><PolyBegin x="2" y="2"/><PolyStepSegment x="3" y="3"/></Polyline>)");
    EXPECT_EQ(Losses(imported.report), (Texts{InFeatures + "Polyline/PolyBegin x=2 y=2"}));
}

TEST(ShapeReader, TakesTheFirstOfEachThatATextHas)
{
    const Imported imported = Draw(R"(<Text textString="t"><Xform rotation="1"/><Xform rotation="2"/><FontRef id="a"/>
        <FontRef id="b"/><BoundingBox lowerLeftX="1"/><BoundingBox lowerLeftX="2"/><ColorRef id="c"/><ColorRef id="d"/>
        </Text>)");
    EXPECT_EQ(Losses(imported.report),
              (Texts{InFeatures + "Text/Xform rotation=2", InFeatures + "Text/FontRef id=b",
                     InFeatures + "Text/BoundingBox lowerLeftX=2", InFeatures + "Text/ColorRef id=d"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: color \"c\" is not in the file"}));
}

TEST(ShapeReader, TakesTheFirstTransformOfAShapeAndOfFeatures)
{
    const Imported imported = Draw(R"(<Xform xOffset="1"/><Xform xOffset="2"/><Location x="3"/><Location x="4"/>
        <Line startX="0" startY="0" endX="1" endY="0"><Xform xOffset="5"/><Xform xOffset="6"/></Line>)");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Ecad/CadData/Step/LayerFeature/Set/Features/Xform xOffset=2",
                     "Ecad/CadData/Step/LayerFeature/Set/Features/Location x=4", InFeatures + "Line/Xform xOffset=6"}));
}

struct ButterflyCase {
    const char * name;
    const char * attributes;
    const char * drawn;
    Texts lost;
};

class Butterflies : public testing::TestWithParam<ButterflyCase> {};

TEST_P(Butterflies, AreMeasuredByTheirShape)
{
    const Imported imported = Draw(std::string("<Butterfly ") + GetParam().attributes + "/>");
    EXPECT_EQ(Drawn(imported), (Texts{GetParam().drawn}));
    EXPECT_EQ(Losses(imported.report), GetParam().lost);
}

INSTANTIATE_TEST_SUITE_P(
    Measures, Butterflies,
    testing::Values(ButterflyCase{"Round", R"(shape="ROUND" diameter="2")", "Butterfly Size=2", {}},
                    ButterflyCase{"Square", R"(shape="SQUARE" side="3")", "Butterfly Shape=1 Size=3", {}},
                    ButterflyCase{"RoundOfBoth",
                                  R"(shape="ROUND" side="3" diameter="2")",
                                  "Butterfly Size=2",
                                  {InFeatures + "Butterfly side=3"}},
                    ButterflyCase{"SquareOfBoth",
                                  R"(diameter="2" side="3" shape="SQUARE")",
                                  "Butterfly Shape=1 Size=3",
                                  {InFeatures + "Butterfly diameter=2"}},
                    ButterflyCase{"RoundBySide", R"(shape="ROUND" side="3")", "Butterfly Size=3", {}},
                    ButterflyCase{
                        "SquareByDiameter", R"(shape="SQUARE" diameter="2")", "Butterfly Shape=1 Size=2", {}}),
    [](const auto & own) { return own.param.name; });

TEST(ShapeReader, LosesTheFillOfAnOutline)
{
    const Imported imported = Draw(R"(<Outline><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="1" y="1"/>
        <FillDesc fillProperty="FILL"/></Polygon><LineDesc lineWidth="1"/><LineDesc lineWidth="2"/></Outline>
        <Outline><Polygon><PolyBegin x="0" y="0"/><PolyStepSegment x="1" y="1"/><FillDesc fillProperty="HOLLOW"/>
        </Polygon></Outline>)");
    EXPECT_EQ(Losses(imported.report), (Texts{InFeatures + "Outline/Polygon/FillDesc fillProperty=FILL",
                                              InFeatures + "Outline/LineDesc lineWidth=2"}));
}

// Each of the four parts of the ring is one contour, and none of them a hole in another one.
TEST(ShapeReader, KeepsTheHoleOfASquareThermalThatIsMoved)
{
    const Imported imported =
        Draw(R"(<Thermal shape="SQUARE" outerDiameter="6" innerDiameter="3" spokeCount="4" gap="1">
        <Xform xOffset="10"/></Thermal>)");
    const Texts drawn = Drawn(imported);
    ASSERT_EQ(drawn.size(), 4U);
    for (const std::string & contour : drawn) {
        EXPECT_EQ(contour.find("Cutout"), std::string::npos) << contour;
    }
}

}  // namespace
}  // namespace ipc2581::tests
