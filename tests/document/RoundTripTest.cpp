#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

std::string_view WithoutIndent(std::string_view line)
{
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

// What a file says once it has been read and written.
std::string ReadAndWritten(std::string_view bytes)
{
    const TempFolder folder;
    CString from(folder.Save("read.cvg", bytes));
    CString to(folder.Path("written.cvg"));
    CIPC2581_Parser root;
    EXPECT_EQ(CIPC2581_XmlLiteReader().OpenPath(from, root), 1);
    EXPECT_EQ(CIPC2581_XmlLiteReader().WriteFilePath(to, root), 1);
    return WrittenText(static_cast<const char *>(to));
}

// Where in a board the lines of a row stand.
enum class Place { Root, Content, Entry, Ecad, CadData, Step, Package, Features };

struct Around {
    Texts front;
    Texts back;
};

const std::map<Place, Around> Places = {
    {Place::Root, {{}, {}}},
    {Place::Content, {{"<Content>"}, {"</Content>"}}},
    {Place::Entry,
     {{"<Content>", R"(<DictionaryStandard units="MM">)", R"(<EntryStandard id="e">)"},
      {"</EntryStandard>", "</DictionaryStandard>", "</Content>"}}},
    {Place::Ecad, {{R"(<Ecad name="e">)"}, {"</Ecad>"}}},
    {Place::CadData, {{R"(<Ecad name="e">)", "<CadData>"}, {"</CadData>", "</Ecad>"}}},
    {Place::Step, {{R"(<Ecad name="e">)", "<CadData>", R"(<Step name="s">)"}, {"</Step>", "</CadData>", "</Ecad>"}}},
    {Place::Package,
     {{R"(<Ecad name="e">)", "<CadData>", R"(<Step name="s">)", R"(<Package name="p" type="t">)"},
      {"</Package>", "</Step>", "</CadData>", "</Ecad>"}}},
    {Place::Features,
     {{R"(<Ecad name="e">)", "<CadData>", R"(<Step name="s">)", R"(<LayerFeature layerRef="l">)", R"(<Set net="n">)",
       "<Features>"},
      {"</Features>", "</Set>", "</LayerFeature>", "</Step>", "</CadData>", "</Ecad>"}}},
};

// An element, the lines that the written file then has, each as often as it stands here, and texts that it has
// nowhere.
struct Row {
    std::string name;
    Place place;
    Texts lines;
    Texts kept;
    Texts dropped;
};

const std::vector<Row> Rows = {
    // The document
    {"RootTag",
     Place::Root,
     {R"(<IPC-2581 revision="C" xmlns="x">)", "</IPC-2581>"},
     {R"(<?xml version="1.0" encoding="UTF-8"?>)", "</IPC-2581>"},
     {"revision", R"(xmlns="x")"}},
    {"LogisticHeader",
     Place::Root,
     {"<LogisticHeader>", R"(<Role name="Owner"/>)", R"(<Person name="Ann"/>)", "</LogisticHeader>"},
     {},
     {"LogisticHeader", "Role", "Person", "Owner", "Ann"}},
    {"HistoryRecord",
     Place::Root,
     {R"(<HistoryRecord number="1" origination="o" toolRef="t" lastChange="c">)", "</HistoryRecord>"},
     {},
     {"HistoryRecord", "origination"}},
    {"Bom",
     Place::Root,
     {R"(<Bom name="b">)", R"(<BomHeader assembly="a"/>)", R"(<BomItem quantity="1">)", R"(<RefDes name="R1"/>)",
      "</BomItem>", "</Bom>"},
     {},
     {"Bom", "RefDes", "R1"}},
    {"UnknownSection", Place::Root, {R"(<Avl name="a">)", "</Avl>"}, {}, {"Avl"}},
    {"NoSection",
     Place::Root,
     {},
     {"<Content>",
      R"(<FunctionMode mode="" level=""/>)",
      "<DictionaryColor>",
      "</DictionaryColor>",
      "</Content>",
      R"(<Ecad name="">)",
      R"(<CadHeader units="">)",
      "</CadHeader>",
      "<CadData>",
      R"(<Step name="">)",
      R"(<Datum x="0.000000" y="0.000000" />)",
      "<Profile>",
      "<Polygon>",
      R"(<PolyBegin x="0.000000" y="0.000000" />)",
      "</Polygon>",
      "</Profile>",
      R"(<PhyNetGroup name="">)",
      "</PhyNetGroup>",
      "</Step>",
      "</CadData>",
      "</Ecad>"},
     {"Dictionary"
      "Standard",
      "Layer", "Package"}},
    {"SectionsInOtherOrder",
     Place::Root,
     {R"(<Ecad name="e">)", "</Ecad>", "<Content>", R"(<FunctionMode mode="m" level="1"/>)", "</Content>"},
     {R"(<FunctionMode mode="m" level="1"/>)", R"(<Ecad name="e">)"},
     {}},

    // Content
    {"FunctionMode",
     Place::Content,
     {R"(<FunctionMode level="1" mode="ASSEMBLY" comment="c" />)"},
     {R"(<FunctionMode mode="ASSEMBLY" level="1"/>)"},
     {"comment"}},
    {"References",
     Place::Content,
     {"<StepRef>step</StepRef>", "<LayerRef>layer</LayerRef>", "<BomRef>bom</BomRef>"},
     {},
     {"StepRef", "LayerRef", "BomRef", "step", "layer", "bom"}},
    {"DictionaryStandardWithoutAnEntry",
     Place::Content,
     {R"(<DictionaryStandard units="MM">)", "</DictionaryStandard>"},
     {},
     {"DictionaryStandard", "MM"}},
    {"DictionaryStandard",
     Place::Content,
     {R"(<DictionaryStandard units="MM">)", R"(<EntryStandard id="two words" comment="c">)", "</EntryStandard>",
      "</DictionaryStandard>"},
     {R"(<DictionaryStandard units="MM">)", R"(<EntryStandard id="two words">)", "</EntryStandard>",
      "</DictionaryStandard>"},
     {"comment"}},
    {"DictionaryUser",
     Place::Content,
     {R"(<DictionaryUser units="MM">)", R"(<EntryUser id="u">)", R"(<Text textString="t"/>)", "</EntryUser>",
      "</DictionaryUser>"},
     {},
     {"DictionaryUser", "EntryUser", "Text", "MM"}},
    {"DictionaryColor",
     Place::Content,
     {"<DictionaryColor>", R"(<EntryColor id="red">)", R"(<Color r="255" g="1.9" b="blue" id="ref"/>)", "</EntryColor>",
      "</DictionaryColor>"},
     {"<DictionaryColor>", R"(<EntryColor id="red">)", R"(<Color r="255" g="1" b="0" />)", "</EntryColor>",
      "</DictionaryColor>"},
     {"ref"}},
    {"UnitsOfDictionaryColor",
     Place::Content,
     {R"(<DictionaryStandard units="MM">)", R"(<EntryStandard id="e">)", "</EntryStandard>", "</DictionaryStandard>",
      R"(<DictionaryColor units="INCH">)", "</DictionaryColor>"},
     {R"(<DictionaryStandard units="INCH">)", "<DictionaryColor>"},
     {"MM"}},
    {"DictionariesOfOtherKinds",
     Place::Content,
     {R"(<DictionaryLineDesc units="MM">)", R"(<EntryLineDesc id="l">)", "</EntryLineDesc>", "</DictionaryLineDesc>"},
     {},
     {"LineDesc"}},

    // Entries of the standard dictionary
    {"ButterflyRound",
     Place::Entry,
     {R"(<Butterfly shape="ROUND" diameter="1"/>)"},
     {R"(<Butterfly Shape="ROUND" diameter="1.000000" />)"},
     {" shape="}},
    {"ButterflySquare",
     Place::Entry,
     {R"(<Butterfly shape="SQUARE" side="1"/>)"},
     {R"(<Butterfly Shape="SQUARE" side="1.000000" />)"},
     {"diameter"}},
    {"ButterflyOfAnotherShape", Place::Entry, {R"(<Butterfly shape="HEXAGON" side="1"/>)"}, {}, {"Butterfly"}},
    {"ButterflyAsWritten", Place::Entry, {R"(<Butterfly Shape="ROUND" diameter="1.000000" />)"}, {}, {"Butterfly"}},
    {"Circle", Place::Entry, {R"(<Circle diameter="1.23456789"/>)"}, {R"(<Circle diameter="1.234568" />)"}, {}},
    {"Diamond",
     Place::Entry,
     {R"(<Diamond height="2" width="1"/>)"},
     {R"(<Diamond width="1.000000" height="2.000000" />)"},
     {}},
    {"Donut",
     Place::Entry,
     {R"(<Donut shape="SQUARE" outerDiameter="2" innerDiameter="1"/>)"},
     {R"(<Diamond Shape="SQUARE" outerDiameter="2.000000" innerDiameter="1.000000" />)"},
     {"Donut", " shape="}},
    {"DonutAsWritten",
     Place::Entry,
     {R"(<Diamond Shape="SQUARE" outerDiameter="2.000000" innerDiameter="1.000000" />)"},
     {R"(<Diamond width="0.000000" height="0.000000" />)"},
     {"SQUARE", "Diameter"}},
    {"Ellipse",
     Place::Entry,
     {R"(<Ellipse width="1" height="2"/>)"},
     {R"(<Ellipse width="1.000000" height="2.000000" />)"},
     {}},
    {"Hexagon", Place::Entry, {R"(<Hexagon length="1"/>)"}, {R"(<Hexagon length="1.000000" />)"}, {}},
    {"Moire",
     Place::Entry,
     {R"(<Moire diameter="1" ringWidth="2" ringGap="3" ringNumber="4" lineWidth="5" lineLength="6" lineAngle="7"/>)"},
     {R"(<Moire diameter="6.000000" ringWidth="0.000000" ringGap="0.000000" ringNumber="0")"
      R"( lineWidth="0.000000" lineLength="0.000000" lineAngle="0.000000" />)"},
     {}},
    {"Octagon", Place::Entry, {R"(<Octagon length="1"/>)"}, {R"(<Octagon length="1.000000" />)"}, {}},
    {"Oval", Place::Entry, {R"(<Oval width="1" height="2"/>)"}, {R"(<Oval width="1.000000" height="2.000000" />)"}, {}},
    {"RectCenter",
     Place::Entry,
     {R"(<RectCenter width="1" height="2"/>)"},
     {R"(<RectCenter width="1.000000" height="2.000000" />)"},
     {}},
    {"RectCham",
     Place::Entry,
     {R"(<RectCham width="1" height="2" chamfer="3" upperRight="TRUE" lowerLeft="TRUE"/>)"},
     {R"(<RectCham width="1.000000" height="2.000000" chamfer="3.000000"  />)"},
     {"TRUE", "upperRight", "lowerLeft"}},
    {"RectChamWithItsOwnWord",
     Place::Entry,
     {R"(<RectCham width="1" height="2" chamfer="3" lowerLeft="TURE" upperRight="TURE"/>)"},
     {R"(<RectCham width="1.000000" height="2.000000" chamfer="3.000000" upperRight="TRUE"lowerLeft="TRUE" />)"},
     {"TURE"}},
    {"RectCorner",
     Place::Entry,
     {R"(<RectCorner lowerLeftX="1" lowerLeftY="2" upperRightX="3" upperRightY="4"/>)"},
     {R"(<RectCorner lowerLeftX="1.000000" lowerLeftY="2.000000" upperRightX="3.000000" upperRightY="4.000000" />)"},
     {}},
    {"RectRound",
     Place::Entry,
     {R"(<RectRound width="1" height="2" radius="3" upperLeft="TRUE" lowerRight="TRUE"/>)"},
     {R"(<RectRound width="1.000000" height="2.000000" radius="3.000000"  />)"},
     {"TRUE", "upperLeft", "lowerRight"}},
    {"RectRoundWithItsOwnWord",
     Place::Entry,
     {R"(<RectRound width="1" height="2" radius="3" upperRight="TURE" upperLeft="TURE" lowerLeft="TURE")"
      R"( lowerRight="TURE"/>)"},
     {R"(<RectRound width="1.000000" height="2.000000" radius="3.000000")"
      R"( upperRight="TRUE"upperLeft="TRUE"lowerLeft="TRUE"lowerRight="TRUE" />)"},
     {"TURE"}},
    {"Thermal",
     Place::Entry,
     {R"(<Thermal shape="OCTAGON" outerDiameter="2" innerDiameter="1" spokeCount="6" gap="3" spokeStartAngle="5"/>)"},
     {R"(<Thermal shape="OCTAGON" outerDiameter="2.000000" innerDiameter="1.000000" spokeCount="4")"
      R"( gap="3.000000" spokeStartAngle="5.000000" />)"},
     {}},
    {"ThermalOfNoShape",
     Place::Entry,
     {R"(<Thermal outerDiameter="2"/>)"},
     {R"(<Thermal shape="ROUND" outerDiameter="2.000000" innerDiameter="0.000000" spokeCount="4")"
      R"( gap="0.000000" spokeStartAngle="0.000000" />)"},
     {}},
    {"Triangle",
     Place::Entry,
     {R"(<Triangle base="1" height="2"/>)"},
     {R"(<Triangle base="1.000000" height="2.000000" />)"},
     {}},
    {"Contour",
     Place::Entry,
     {"<Contour>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>",
      "<Cutout>", R"(<PolyBegin x="5" y="6"/>)",
      R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="TRUE"/>)", "</Cutout>",
      R"(<FillDesc fillProperty="FILL"/>)", "</Contour>"},
     {"<Contour>", R"(<PolyBegin x="1.000000" y="2.000000" />)", R"(<PolyStepSegment x="3.000000" y="4.000000" />)",
      "<Cutout>", R"(<PolyBegin x="5.000000" y="6.000000" />)",
      R"(<PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="FALSE" />)",
      "</Cutout>", "</Contour>"},
     {"FillDesc"}},
    {"OtherEntries",
     Place::Entry,
     {"<Polyline>", R"(<PolyBegin x="1" y="2"/>)", "</Polyline>", R"(<LineDesc lineEnd="ROUND"/>)"},
     {R"(<EntryStandard id="e">)", "</EntryStandard>"},
     {"Polyline", "LineDesc", R"(x="1.000000")"}},

    // Ecad, header, layers and stackup
    {"CadHeader",
     Place::Ecad,
     {R"(<CadHeader units="INCH">)", R"(<Spec name="s">)", "</Spec>", "</CadHeader>"},
     {R"(<Ecad name="e">)", R"(<CadHeader units="INCH">)", "</CadHeader>"},
     {"Spec"}},
    {"Layer",
     Place::CadData,
     {R"(<Layer name="TOP" layerFunction="SIGNAL" side="TOP" polarity="NEGATIVE" comment="c"/>)"},
     {R"(<Layer name="TOP" layerFunction="SIGNAL" side="TOP" polarity="NEGATIVE">)", "</Layer>"},
     {"comment"}},
    {"LayerWithChildren",
     Place::CadData,
     {R"(<Layer name="DRILL">)", R"(<Span fromLayer="a" toLayer="b"/>)", "</Layer>"},
     {R"(<Layer name="DRILL" layerFunction="" side="" polarity="POSITIVE">)", "</Layer>"},
     {"Span", "fromLayer"}},
    {"Stackup",
     Place::CadData,
     {R"(<Stackup overallThickness="1.6" tolPlus="0.1" tolMinus="0.2" whereMeasured="METAL">)",
      R"(<StackupGroup name="g" thickness="1">)", R"(<StackupLayer layerOrGroupRef="TOP" thickness="1"/>)",
      "</StackupGroup>", "</Stackup>"},
     {},
     {"Stackup", "hickness", "METAL", "TOP"}},

    // Step
    {"Step",
     Place::CadData,
     {R"(<Step type="BOARD" name="s">)", R"(<Datum x="1" y="-2" comment="c"/>)", "</Step>"},
     {R"(<Step name="s">)", R"(<Datum x="1.000000" y="-2.000000" />)", "</Step>"},
     {"BOARD", "comment"}},
    {"TwoSteps",
     Place::CadData,
     {R"(<Step name="one">)", R"(<LogicalNet name="a">)", "</LogicalNet>", "</Step>", R"(<Step name="two">)",
      R"(<LogicalNet name="b">)", "</LogicalNet>", "</Step>"},
     {R"(<Step name="two">)", R"(<LogicalNet name="a">)", R"(<LogicalNet name="b">)", "</Step>"},
     {"one"}},
    {"UnknownChild",
     Place::Step,
     {R"(<StepRepeat stepRef="s" x="1"/>)", R"(<Dfx category="COMPONENT">)", "</Dfx>"},
     {R"(<Step name="s">)"},
     {"StepRepeat", "Dfx"}},
    {"PadStack",
     Place::Step,
     {R"(<PadStack net="GND">)", R"(<LayerHole name="h" diameter="1">)", R"(<Span fromLayer="a" toLayer="b"/>)",
      "</LayerHole>", R"(<LayerPad layerRef="TOP" pin="1">)", R"(<Location x="1" y="2"/>)",
      R"(<StandardPrimitiveRef id="S1"/>)", "</LayerPad>", "</PadStack>"},
     {},
     {"Pad", "Hole", "Span", "GND", "StandardPrimitiveRef"}},
    {"Profile",
     Place::Step,
     {"<Profile>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>",
      "<Polygon>", R"(<PolyStepSegment x="5" y="6"/>)", "</Polygon>", "<Cutout>", R"(<PolyBegin x="7" y="8"/>)",
      "</Cutout>", "</Profile>"},
     {"<Profile>", "<Polygon>", R"(<PolyBegin x="1.000000" y="2.000000" />)",
      R"(<PolyStepSegment x="3.000000" y="4.000000" />)", R"(<PolyStepSegment x="5.000000" y="6.000000" />)",
      "</Polygon>", "<Cutout>", R"(<PolyBegin x="7.000000" y="8.000000" />)", "</Cutout>", "</Profile>"},
     {}},

    // Package
    {"Package",
     Place::Step,
     {R"(<Package name="P 1" type="CHIP" pinOne="1" height="2">)", "</Package>"},
     {R"(<Package name="P 1" type="CHIP">)", "<SilkScreen>", "</SilkScreen>", "</Package>"},
     {"pinOne", "height", "Outline", "AssemblyDrawing", "LandPattern", "Pin"}},
    {"PackageTypeWithTabs",
     Place::Step,
     {"<Package name=\"p\" type=\"CHIP  \t\t\">", "</Package>"},
     {"<Package name=\"p\" type=\"CHIP \t\t\">"},
     {}},
    {"PackageOutline",
     Place::Package,
     {"<Outline>", R"(<LineDesc lineEnd="SQUARE" lineWidth="1"/>)", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)",
      R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", "</Outline>"},
     {"<Outline>", R"(<PolyBegin x="1.000000" y="2.000000" />)", R"(<PolyStepSegment x="3.000000" y="4.000000" />)",
      R"(<LineDesc lineEnd="SQUARE" lineWidth="1.000000" />)", "</Outline>"},
     {}},
    {"PackageOutlineWithoutSteps",
     Place::Package,
     {"<Outline>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", "</Polygon>", "</Outline>"},
     {},
     {"Outline", "LineDesc", R"(x="1.000000")"}},
    {"AssemblyDrawing",
     Place::Package,
     {"<AssemblyDrawing>", "<Outline>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)",
      "</Polygon>", R"(<LineDesc lineEnd="ROUND" lineWidth="1"/>)", "</Outline>", R"(<Text textString="U1"/>)",
      "</AssemblyDrawing>"},
     {"<AssemblyDrawing>", "<Outline>", R"(<PolyStepSegment x="3.000000" y="4.000000" />)",
      R"(<LineDesc lineEnd="ROUND" lineWidth="1.000000" />)", "</Outline>", "</AssemblyDrawing>"},
     {"Text", "U1"}},
    {"AssemblyDrawingWithoutSteps",
     Place::Package,
     {"<AssemblyDrawing>", "<Outline>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", "</Polygon>", "</Outline>",
      "</AssemblyDrawing>"},
     {},
     {"AssemblyDrawing", "Outline"}},
    {"LandPattern",
     Place::Package,
     {"<LandPattern>", R"(<Pad pin="1" padstackDefRef="d">)", R"(<Xform rotation="90" mirror="TRUE"/>)",
      R"(<Location x="1" y="2"/>)", R"(<StandardPrimitiveRef id="S1"/>)", "</Pad>", "<Target>", "</Target>",
      "</LandPattern>"},
     {"<LandPattern>", R"(<Pad pin="1">)", R"(<Xform rotation="90.000000"/>)",
      R"(<Location x="1.000000" y="2.000000"/>)", R"(<StandardPrimitiveRef id="S1"/>)", "</Pad>", "</LandPattern>"},
     {"mirror", "padstackDefRef", "Target"}},
    {"LandPatternWithoutAPad", Place::Package, {"<LandPattern>", "</LandPattern>"}, {}, {"LandPattern"}},
    {"SilkScreen",
     Place::Package,
     {"<SilkScreen>", "<Outline>", "<Polygon>", R"(<PolyStepSegment x="9" y="9"/>)", "</Polygon>", "</Outline>",
      "<Target>", R"(<Location x="1" y="2"/>)", R"(<Xform rotation="90"/>)", "<Polyline>",
      R"(<PolyBegin x="3" y="4"/>)", R"(<PolyStepSegment x="5" y="6"/>)", R"(<LineDesc lineEnd="NONE" lineWidth="1"/>)",
      "</Polyline>", R"(<Circle diameter="1"/>)", "</Target>", "</SilkScreen>"},
     {"<SilkScreen>", "<Target>", R"(<Location x="1.000000" y="2.000000" />)", "<Polyline>",
      R"(<PolyBegin x="3.000000" y="4.000000" />)", R"(<PolyStepSegment x="5.000000" y="6.000000" />)",
      R"(<LineDesc lineEnd="NONE" lineWidth="1.000000" />)", "</Polyline>", "</Target>", "</SilkScreen>"},
     {"Outline", R"(x="9)", "Xform", "Circle"}},
    {"Pin",
     Place::Package,
     {R"(<Pin name="A" number="1" mountType="SMT" electricalType="ELECTRICAL" type="THRU">)",
      R"(<Xform rotation="90" mirror="TRUE"/>)", R"(<Location x="1.5" y="-2"/>)", R"(<StandardPrimitiveRef id="C1"/>)",
      "<Outline>", "<Polygon>", R"(<PolyStepSegment x="9" y="9"/>)", "</Polygon>", "</Outline>", "</Pin>"},
     {R"(<Pin number="1" name="A" type="THRU" electricalType="ELECTRICAL">)",
      R"(<Location x="1.500000" y="-2.000000"/>)", R"(<StandardPrimitiveRef id="C1"/>)", "</Pin>"},
     {"Xform", "Outline", "mountType", R"(x="9)"}},
    {"EmptyPin",
     Place::Package,
     {R"(<Pin number="1">)", "</Pin>"},
     {R"(<Pin number="1" name="" type="" electricalType="">)", R"(<Location x="0.000000" y="0.000000"/>)",
      R"(<StandardPrimitiveRef id=""/>)", "</Pin>"},
     {}},

    // Component and nets
    {"Component",
     Place::Step,
     {R"(<Component refDes="R1" packageRef="P" layerRef="TOP" part="two words" mountType="SMT" weight="1")"
      R"( standoff="0.1" height="1.5">)",
      R"(<Xform rotation="90" mirror="TRUE"/>)", R"(<Location x="1" y="2"/>)", "</Component>"},
     {R"(<Component refDes="R1" packageRef="P" layerRef="TOP" part="two words" mountType="SMT")"
      R"( standoff="0.1" height="0.0">)",
      R"(<Xform rotation="90.000000"/>)", R"(<Location x="1.000000" y="2.000000"/>)", "</Component>"},
     {"mirror", "1.5", "weight"}},
    {"EmptyComponent",
     Place::Step,
     {R"(<Component refDes="R1">)", "</Component>"},
     {R"(<Component refDes="R1" packageRef="" layerRef="" part="" mountType="OTHER" standoff="" height="0.0">)",
      R"(<Xform rotation="0.000000"/>)", R"(<Location x="0.000000" y="0.000000"/>)", "</Component>"},
     {}},
    {"LogicalNet",
     Place::Step,
     {R"(<LogicalNet name="GND" netClass="GROUND">)", R"(<LogicalNetPin componentRef="R1" pin="1" title="t"/>)",
      "</LogicalNet>"},
     {R"(<LogicalNet name="GND">)", R"(<LogicalNetPin pin="1" componentRef="R1" />)", "</LogicalNet>"},
     {"netClass", "title"}},
    {"PhyNetGroup",
     Place::Step,
     {R"(<PhyNetGroup name="g" optimized="TRUE">)", R"(<PhyNet name="GND">)",
      R"(<PhyNetPoint layerRef="TOP" x="1" y="2" netNode="END" exposure="EXPOSED" via="TRUE" test="TRUE")"
      R"( comment="c">)",
      R"(<StandardPrimitiveRef id="S1"/>)", "</PhyNetPoint>", "</PhyNet>", "</PhyNetGroup>"},
     {R"(<PhyNetGroup name="g">)", R"(<PhyNet name="GND">)",
      R"(<PhyNetPoint x="1.000000" y="2.000000" layerRef="TOP" netNode="END" exposure="EXPOSED" via="TRUE">)",
      R"(<StandardPrimitiveRef id="S1"/>)", "</PhyNetPoint>", "</PhyNet>", "</PhyNetGroup>"},
     {"optimized", "test", "comment"}},
    {"PhyNetPointThatIsNoVia",
     Place::Step,
     {R"(<PhyNetGroup name="g">)", R"(<PhyNet name="GND">)", R"(<PhyNetPoint x="1" y="2" via="FALSE">)",
      "</PhyNetPoint>", "</PhyNet>", "</PhyNetGroup>"},
     {R"(<PhyNetPoint x="1.000000" y="2.000000" layerRef="" netNode="" exposure="">)",
      R"(<StandardPrimitiveRef id=""/>)"},
     {"via", "FALSE"}},

    // Layer features
    {"LayerFeatureWithoutASet",
     Place::Step,
     {R"(<LayerFeature layerRef="TOP" comment="c">)", "</LayerFeature>"},
     {R"(<LayerFeature layerRef="TOP">)", "<Set>", R"(<ColorRef id="" />)", "</Set>", "</LayerFeature>"},
     {"comment"}},
    {"ColorOfASet",
     Place::Step,
     {R"(<LayerFeature layerRef="TOP">)", R"(<Set net="n">)", R"(<ColorRef id="red"/>)", "</Set>", R"(<Set net="m">)",
      "</Set>", "</LayerFeature>"},
     {"<Set>", R"(<ColorRef id="red" />)", R"(<Set net="n">)", R"(<Set net="m">)", "<Features>", "<Features>", "</Set>",
      "</Set>", "</Set>"},
     {}},
    {"ColorSetAsWritten",
     Place::Step,
     {R"(<LayerFeature layerRef="TOP">)", "<Set>", R"(<ColorRef id="red" />)", "</Set>", "</LayerFeature>"},
     {"<Set>", R"(<ColorRef id="red" />)", R"(<Set net="">)", "<Features>", R"(<Location x="0.000000" y="0.000000"/>)",
      "</Features>", "</Set>", "</Set>"},
     {}},
    {"PadSet",
     Place::Step,
     {R"(<LayerFeature layerRef="TOP">)", R"(<Set net="n" testPoint="TRUE" plate="yes" padUsage="VIA" geometry="g">)",
      R"(<Xform rotation="9"/>)", R"(<Pad pin="U1.1">)", R"(<Location x="1" y="2"/>)",
      R"(<StandardPrimitiveRef id="S1"/>)", "</Pad>", "</Set>", "</LayerFeature>"},
     {R"(<Set net="n" testPoint="TRUE" plate="FALSE" padUsage="VIA">)", R"(<Pad pin="U1.1">)",
      R"(<Location x="1.000000" y="2.000000"/>)", R"(<StandardPrimitiveRef id="S1"/>)", "</Pad>"},
     {"geometry", "Xform"}},
    {"PadSetWithoutANet",
     Place::Step,
     {R"(<LayerFeature layerRef="TOP">)", R"(<Set plate="TRUE">)", "<Pad>", "</Pad>", "</Set>", "</LayerFeature>"},
     {R"(<Set testPoint="FALSE" plate="TRUE" padUsage="">)", "<Pad>", R"(<Location x="0.000000" y="0.000000"/>)",
      R"(<StandardPrimitiveRef id=""/>)", "</Pad>"},
     {"net="}},
    {"HoleSet",
     Place::Step,
     {R"(<LayerFeature layerRef="DRILL">)", R"(<Set net="n" testPoint="TRUE" padUsage="VIA">)",
      R"(<Hole name="h" diameter="0.30" platingStatus="VIA" plusTol="+0" minusTol="-0" x="1" y="2" type="ROUND"/>)",
      "</Set>", "</LayerFeature>"},
     {"<Set>", "<Set>",
      R"(<Hole name="h" diameter="0.30" platingStatus="VIA" plusTol="+0" minusTol="-0" x="1.000000")"
      R"( y="2.000000" />)"},
     {"net=", "testPoint", "padUsage", R"(type="ROUND")"}},
    {"FeaturesSet",
     Place::Features,
     {R"(<Location x="1" y="2"/>)", R"(<Xform rotation="90"/>)"},
     {R"(<Set net="n">)", "<Features>", R"(<Location x="1.000000" y="2.000000"/>)", "</Features>"},
     {"Xform", "testPoint"}},
    {"Polyline",
     Place::Features,
     {"<Polyline>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)",
      R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="FALSE"/>)",
      R"(<LineDesc lineEnd="ROUND" lineWidth="1" lineProperty="SOLID"/>)", "</Polyline>"},
     {"<Polyline>", R"(<PolyBegin x="1.000000" y="2.000000" />)", R"(<PolyStepSegment x="3.000000" y="4.000000" />)",
      R"(<PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="TRUE" />)",
      R"(<LineDesc lineEnd="ROUND" lineWidth="1.000000" />)", "</Polyline>"},
     {"lineProperty"}},
    {"CurveThatStatesNoDirection",
     Place::Features,
     {"<Polyline>", R"(<PolyStepCurve x="5" y="6"/>)", "</Polyline>"},
     {R"(<PolyStepCurve x="5.000000" y="6.000000" centerX="0.000000" centerY="0.000000" clockwise="TRUE" />)"},
     {}},
    {"Line",
     Place::Features,
     {R"(<Line startX="1" startY="2" endX="3" endY="4">)", R"(<LineDesc lineWidth="1"/>)", "</Line>"},
     {R"(<Line startX="1.000000" startY="2.000000" endX="3.000000" endY="4.000000">)",
      R"(<LineDesc lineEnd="ROUND" lineWidth="1.000000" />)", "</Line>"},
     {}},
    {"ContourOfFeatures",
     Place::Features,
     {"<Contour>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", "</Polygon>", "</Contour>"},
     {"<Contour>", R"(<PolyBegin x="1.000000" y="2.000000" />)", "</Contour>"},
     {}},
    {"CircleOfFeatures", Place::Features, {R"(<Circle diameter="1"/>)"}, {R"(<Circle diameter="1.000000" />)"}, {}},
    {"OtherFeatures",
     Place::Features,
     {R"(<UserPrimitiveRef id="u"/>)", R"(<RectCenter width="1" height="2"/>)", R"(<Arc startX="1"/>)",
      R"(<Text textString="t"/>)"},
     {"<Features>", "</Features>"},
     {"UserPrimitiveRef", "RectCenter", "Arc", "Text"}},

    // Values
    {"SlashesOfValues",
     Place::Step,
     {R"(<LogicalNet name="A/B/">)", "</LogicalNet>"},
     {R"(<LogicalNet name="AB">)"},
     {}},
    {"BlanksOfValues",
     Place::Step,
     {R"(<LogicalNet name=" A   B ">)", "</LogicalNet>"},
     {R"(<LogicalNet name=" A B ">)"},
     {}},
    {"BracketsOfValues",
     Place::Step,
     {R"(<LogicalNet name="A<B>">)", "</LogicalNet>"},
     {R"(<LogicalNet name="AB">)"},
     {}},
    {"EntitiesOfValues",
     Place::Step,
     {R"(<LogicalNet name="&amp;&#x41;'">)", "</LogicalNet>"},
     {R"(<LogicalNet name="&amp;&#x41;'">)"},
     {}},
    {"NumbersOfValues",
     Place::Step,
     {R"(<Datum x="1.5e2mm" y="ten"/>)"},
     {R"(<Datum x="150.000000" y="0.000000" />)"},
     {"mm"}},
    {"SmallNumbersOfValues",
     Place::Step,
     {R"(<Datum x="-0.0000001" y="0.0000005"/>)"},
     {R"(<Datum x="-0.000000" y="0.000000" />)"},
     {}},
    {"Comments", Place::Step, {"<!-- two words -->", "<!--word-->"}, {R"(<Step name="s">)"}, {"<!--", "word"}},
};

class RoundTrip : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Elements, RoundTrip, testing::ValuesIn(Rows),
                         [](const testing::TestParamInfo<Row> & row) { return row.param.name; });

TEST_P(RoundTrip, KeepsAndDrops)
{
    const Row & row = GetParam();
    const Around & around = Places.at(row.place);
    const std::string written = ReadAndWritten(Joined(around.front) + Joined(row.lines) + Joined(around.back));
    Texts lines = Split(written);
    for (std::string & line : lines) {
        line = WithoutIndent(line);
    }
    for (const std::string & line : row.kept) {
        EXPECT_EQ(std::count(lines.begin(), lines.end(), line), std::count(row.kept.begin(), row.kept.end(), line))
            << line << " in\n"
            << written;
    }
    for (const std::string & text : row.dropped) {
        EXPECT_EQ(written.find(text), std::string::npos) << text << " in\n" << written;
    }
}

TEST(RoundTripOfContent, PutsTheStandardDictionaryInFrontOfTheColors)
{
    const std::string written =
        ReadAndWritten(Joined({"<Content>", "<DictionaryColor>", "</DictionaryColor>",
                               R"(<DictionaryStandard units="MM">)", R"(<EntryStandard id="e">)", "</EntryStandard>",
                               "</DictionaryStandard>", R"(<FunctionMode mode="m" level="1"/>)", "</Content>"}));
    EXPECT_LT(written.find("<FunctionMode"), written.find("<DictionaryStandard"));
    EXPECT_LT(written.find("<DictionaryStandard"), written.find("<DictionaryColor"));
}

TEST(RoundTripOfStep, PutsItsChildrenInItsOwnOrder)
{
    const Texts order = {"<Datum", "<Profile",   "<Package",    "<SilkScreen",  "<LandPattern",
                         "<Pin",   "<Component", "<LogicalNet", "<PhyNetGroup", "<LayerFeature"};
    const std::string written = ReadAndWritten(Joined({R"(<Ecad name="e">)",
                                                       "<CadData>",
                                                       R"(<Step name="s">)",
                                                       R"(<LayerFeature layerRef="l">)",
                                                       "</LayerFeature>",
                                                       R"(<PhyNetGroup name="g">)",
                                                       "</PhyNetGroup>",
                                                       R"(<LogicalNet name="n">)",
                                                       "</LogicalNet>",
                                                       R"(<Component refDes="R1">)",
                                                       "</Component>",
                                                       R"(<Package name="p">)",
                                                       R"(<Pin number="1">)",
                                                       "</Pin>",
                                                       "<LandPattern>",
                                                       "<Pad>",
                                                       "</Pad>",
                                                       "</LandPattern>",
                                                       "</Package>",
                                                       "<Profile>",
                                                       "</Profile>",
                                                       R"(<Datum x="1" y="2"/>)",
                                                       "</Step>",
                                                       "</CadData>",
                                                       "</Ecad>"}));
    std::size_t before = 0;
    for (const std::string & tag : order) {
        const std::size_t at = written.find(tag);
        ASSERT_NE(at, std::string::npos) << tag;
        EXPECT_LT(before, at) << tag;
        before = at;
    }
}

std::string Example()
{
    return Bytes(IPC2581_SOURCE_FOLDER "/examples/board.cvg");
}

bool IsTag(std::string_view line, std::string_view tag)
{
    return WithoutIndent(line).starts_with(tag);
}

// The value of an attribute of a line.
std::string ValueOf(const std::string & line, const std::string & key)
{
    const std::size_t begin = line.find(" " + key + R"(=")") + key.size() + 3;
    return line.substr(begin, line.find('"', begin) - begin);
}

void Replace(std::string & line, std::string_view what, std::string_view with)
{
    const std::size_t at = line.find(what);
    if (at != std::string::npos) {
        line.replace(at, what.size(), with);
    }
}

// The line as a cycle changes it; empty if it is dropped.
std::string Rewritten(std::string line)
{
    if (IsTag(line, "<PolyStepCurve")) {
        const bool isTrue = ValueOf(line, "clockwise") == "TRUE";
        Replace(line, isTrue ? R"("TRUE")" : R"("FALSE")", isTrue ? R"("FALSE")" : R"("TRUE")");
    }
    else if (IsTag(line, "<Butterfly")) {
        line = line.find(" Shape=") != std::string::npos ? "" : line;
        Replace(line, " shape=", " Shape=");
    }
    else if (IsTag(line, "<Diamond Shape")) {
        line.erase(line.find('<'));
        line += R"(<Diamond width="0.000000" height="0.000000" />)";
    }
    else if (IsTag(line, "<Donut")) {
        Replace(line, "<Donut shape=", "<Diamond Shape=");
    }
    else if (IsTag(line, "<Moire")) {
        const std::string length = ValueOf(line, "lineLength");
        line.erase(line.find('<'));
        line += R"(<Moire diameter=")" + length +
                R"(" ringWidth="0.000000" ringGap="0.000000" ringNumber="0" lineWidth="0.000000")"
                R"( lineLength="0.000000" lineAngle="0.000000" />)";
    }
    else if ((IsTag(line, "<RectRound") || IsTag(line, "<RectCham")) && line.find(" upper") != std::string::npos) {
        line = line.substr(0, line.find(" upper")) + "  />";
    }
    else if (IsTag(line, "<Xform")) {
        Replace(line, R"( mirror="TRUE")", "");
    }
    else if (IsTag(line, "<PhyNetPoint")) {
        Replace(line, R"( via="FALSE")", "");
        Replace(line, R"( test="TRUE")", "");
        Replace(line, R"( test="FALSE")", "");
    }
    else if (IsTag(line, "<Component")) {
        Replace(line, R"(height=")" + ValueOf(line, "height") + R"(")", R"(height="0.0")");
    }
    return line;
}

// Which element, with all its lines, a cycle drops at that line; empty if none.
std::string DroppedAt(std::string_view line, bool isInPin)
{
    for (std::string tag : {"LogisticHeader", "Bom", "DictionaryUser", "Stackup", "PadStack"}) {
        if (IsTag(line, "<" + tag + " ") || IsTag(line, "<" + tag + ">")) {
            return tag;
        }
    }
    return isInPin && IsTag(line, "<Outline>") ? "Outline" : "";
}

// What a cycle makes of a file that is in the form of a written one, but for elements that are only read.
Texts Rewritten(const Texts & lines)
{
    Texts result;
    bool isInPin = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string & line = lines[i];
        if (const std::string dropped = DroppedAt(line, isInPin); !dropped.empty()) {
            while (!IsTag(lines[i], "</" + dropped + ">")) {
                ++i;
            }
            continue;
        }
        isInPin = IsTag(line, "<Pin") || (isInPin && !IsTag(line, "</Pin"));
        if (IsTag(line, "<StepRef") || IsTag(line, "<LayerRef") || IsTag(line, "<BomRef") ||
            IsTag(line, "<HistoryRecord") || (isInPin && IsTag(line, "<Xform"))) {
            continue;
        }
        const std::string rewritten = Rewritten(line);
        if (!rewritten.empty()) {
            result.push_back(rewritten);
        }
        // The set that carries the color of its layer is written in front of itself.
        if (IsTag(line, "</Set>") && IsTag(lines[i - 1], "<ColorRef")) {
            const std::string indent(line.find('<'), ' ');
            for (const std::string_view added :
                 {R"(<Set net="">)", "   <Features>", R"(      <Location x="0.000000" y="0.000000"/>)",
                  "   </Features>", "</Set>"}) {
                result.push_back(indent + std::string(added));
            }
        }
    }
    return result;
}

// Compares line by line, so that a failure shows the one line that differs.
void ExpectSameLines(const Texts & lines, const Texts & expected)
{
    for (std::size_t i = 0; i < std::min(lines.size(), expected.size()); ++i) {
        ASSERT_EQ(lines[i], expected[i]) << "line " << i + 1;
    }
    EXPECT_EQ(lines.size(), expected.size());
}

TEST(RoundTripOfTheExample, ChangesWhatHostsRelyOnAndNothingElse)
{
    Texts lines = Split(Example());
    for (int cycle = 0; cycle < 4; ++cycle) {
        SCOPED_TRACE("cycle " + std::to_string(cycle + 1));
        const Texts written = Split(ReadAndWritten(Joined(lines)));
        ExpectSameLines(written, Rewritten(lines));
        lines = written;
    }
}

// How the sizes of a model differ from those of the one before it, without what is the same.
ModelSizes Grown(const ModelSizes & before, const ModelSizes & after)
{
    ModelSizes grown;
    for (const auto & [name, size] : after) {
        const auto found = before.find(name);
        const std::int64_t difference = size - (found == before.end() ? 0 : found->second);
        if (difference != 0 && name != "texts" && name != "numbers") {
            grown[name] = difference;
        }
    }
    for (const auto & [name, size] : before) {
        if (size != 0 && after.find(name) == after.end()) {
            grown[name] = -size;
        }
    }
    return grown;
}

TEST(RoundTripOfTheExample, LeavesTheSameModelButForWhatIsOnlyRead)
{
    ModelFiles files;
    const std::string first = Example();
    const std::string second = ReadAndWritten(first);
    const std::string third = ReadAndWritten(second);
    const ModelSizes sizes = files.Read(first).sizes;
    const ModelSizes again = files.Read(second).sizes;
    EXPECT_EQ(Grown(sizes, again), (ModelSizes{{"references", -9},
                                               {"items", -7},
                                               {"designators", -8},
                                               {"groups", -1},
                                               {"stackup layers", -3},
                                               {"pad stacks", -6},
                                               {"layer pads", -12},
                                               {"steps", -37},
                                               {"sets", 6}}));
    // The butterfly is read without its shape, and then not written.
    EXPECT_EQ(Grown(again, files.Read(third).sizes), (ModelSizes{{"sets", 6}, {"shapes", -1}}));
    EXPECT_EQ(Grown(files.Read(third).sizes, files.Read(ReadAndWritten(third)).sizes), (ModelSizes{{"sets", 6}}));
}

// A number that other bytes would hardly have.
std::uint64_t Digest(std::string_view bytes)
{
    std::uint64_t digest = 0xcbf29ce484222325;
    for (const char ch : bytes) {
        digest = (digest ^ static_cast<unsigned char>(ch)) * 0x100000001b3;
    }
    return digest;
}

TEST(RoundTripOfTheExample, GivesTheSameTextOnEverySystem)
{
    const std::string written = ReadAndWritten(Example());
    EXPECT_EQ(written.size(), 76609U);
    EXPECT_EQ(Digest(written), 4623639492905474979U);
}

TEST(RoundTripOfTheExample, IsTheSameForAModelThatIsWrittenTwice)
{
    const TempFolder folder;
    CString from(folder.Save("read.cvg", Example()));
    CString to(folder.Path("written.cvg"));
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    ASSERT_EQ(reader.OpenPath(from, root), 1);
    ASSERT_EQ(reader.WriteFilePath(to, root), 1);
    const std::string once = WrittenText(static_cast<const char *>(to));
    ASSERT_EQ(reader.WriteFilePath(to, root), 1);
    EXPECT_TRUE(WrittenText(static_cast<const char *>(to)) == once);
    EXPECT_TRUE(ReadAndWritten(Example()) == once);
}

// Whether a line of blanks behind each of the lines is harmless: only the two dictionaries take one, and not in their
// contours.
std::vector<bool> TakesBlanksBehind(const Texts & lines)
{
    std::vector<bool> takes;
    bool isInDictionary = false;
    bool isInContour = false;
    for (const std::string & line : lines) {
        if (IsTag(line, "<DictionaryStandard") || IsTag(line, "<DictionaryUser")) {
            isInDictionary = true;
        }
        if (IsTag(line, "</DictionaryStandard") || IsTag(line, "</DictionaryUser")) {
            isInDictionary = false;
        }
        if (IsTag(line, "<Contour") || IsTag(line, "</Contour")) {
            isInContour = IsTag(line, "<Contour");
        }
        takes.push_back(isInDictionary && !isInContour);
    }
    return takes;
}

TEST(DamageOfTheExample, ALineOfBlanksThrowsButInTheTwoDictionaries)
{
    const MessageBoxes boxes;
    ModelFiles files;
    const std::string bytes = Example();
    const Texts lines = Split(bytes);
    const std::vector<bool> takesBlanks = TakesBlanksBehind(lines);
    const ModelSizes whole = files.Read(bytes).sizes;
    std::size_t end = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        end += lines[i].size() + 1;
        const Outcome outcome = files.Read(bytes.substr(0, end) + "   \n" + bytes.substr(end));
        ASSERT_EQ(outcome.isCut, !takesBlanks[i]) << "behind line " << i + 1 << ": " << lines[i];
        if (takesBlanks[i]) {
            EXPECT_EQ(outcome.sizes, whole) << "behind line " << i + 1;
        }
        else {
            EXPECT_EQ(Shrunk(outcome.sizes, whole), "") << "behind line " << i + 1;
        }
    }
    EXPECT_TRUE(files.Read("   \n" + bytes).isCut);
    EXPECT_GT(std::count(takesBlanks.begin(), takesBlanks.end(), true), 50);
    EXPECT_EQ(MessageBoxes::Texts(), Texts{});
}

TEST(DamageOfTheExample, AFileThatEndsBehindAnyLineIsReadQuietly)
{
    const MessageBoxes boxes;
    ModelFiles files;
    const std::string bytes = Example();
    ModelSizes before;
    std::size_t end = 0;
    for (const std::string & line : Split(bytes)) {
        end += line.size() + 1;
        const Outcome outcome = files.Read(bytes.substr(0, end));
        ASSERT_FALSE(outcome.isCut) << line;
        ASSERT_EQ(Shrunk(before, outcome.sizes), "") << line;
        before = outcome.sizes;
    }
    EXPECT_EQ(before, files.Read(bytes).sizes);
    EXPECT_EQ(MessageBoxes::Texts(), Texts{});
}

}  // namespace
