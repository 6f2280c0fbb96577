#include "tests/import/facts/FileFacts.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace ipc2581::facts {
namespace {

using Lines = std::vector<std::string>;

// What an example states, as one line for each fact of the kind, in the order of the file.
Lines FactsOf(const std::string & example, std::string_view kind)
{
    Lines lines;
    for (const Fact & fact : FactsOfFile(std::string(IPC2581_IMPORT_EXAMPLES) + "/" + example)) {
        if (fact.kind == kind) {
            lines.push_back(Describe(fact));
        }
    }
    return lines;
}

TEST(FileFacts, TakeStrokes)
{
    const Lines expected = {
        R"(track layerRef="TOP" net="STROKES" lineEnd="ROUND" x=11 y=2 toX=13 toY=4 lineWidth=0.25)",
        R"(track layerRef="TOP" net="STROKES" lineEnd="SQUARE" x=15 y=10 toX=15 toY=14 overX=15.5857864 overY=15.4142136 toX=17 toY=16 lineWidth=0.3)",
        R"(track layerRef="TOP" net="STROKES" lineEnd="ROUND" x=20 y=0 overX=14.1421356 overY=14.1421356 toX=0 toY=20 lineWidth=0.2)",
        R"(track layerRef="TOP" net="STROKES" lineEnd="ROUND" x=40 y=0 overX=-28.2842712 overY=-28.2842712 toX=0 toY=40 lineWidth=0.4)",
        R"(track layerRef="TOP" net="RINGS" lineEnd="ROUND" left=29 bottom=39 right=31 top=41 area=3.14159265 centroidX=30 centroidY=40 length=6.28318531 lineWidth=0.15)",
        R"(track layerRef="TOP" net="RINGS" lineEnd="ROUND" left=48.5 bottom=48.5 right=51.5 top=51.5 area=7.06858347 centroidX=50 centroidY=50 length=9.42477796 lineWidth=0.25)",
        R"(track layerRef="TOP" net="RINGS" lineEnd="SQUARE" left=60 bottom=60 right=70 top=70 area=50 centroidX=66.6666667 centroidY=63.3333333 length=34.1421356 lineWidth=0.5)",
        R"(track layerRef="TOP" net="RINGS" lineEnd="SQUARE" left=66 bottom=62 right=68 top=64 area=3.14159265 centroidX=67 centroidY=63 length=6.28318531 lineWidth=0.5)",
        R"(track layerRef="TOP" net="LOGO" lineEnd="ROUND" x=10 y=50 toX=35.4 toY=50 lineWidth=0.254)",
        R"(track layerRef="TOP" net="LOGO" lineEnd="SQUARE" x=10 y=75.4 toX=35.4 toY=75.4 lineWidth=0.5)",
        R"(track layerRef="TOP" net="LOGO" lineEnd="ROUND" x=0 y=90 toX=5 toY=90 lineWidth=0.25)"};
    EXPECT_EQ(FactsOf("drawing.xml", "track"), expected);
}

TEST(FileFacts, TakeAreasAndSlots)
{
    const Lines expected = {
        R"(area layerRef="TOP" net="AREAS" left=1 bottom=1 right=16 top=11 area=135.269908 centroidX=8.12673224 centroidY=6.05914102 length=53.7079633)",
        R"(area layerRef="TOP" net="AREAS" left=18 bottom=17 right=22 top=23 area=23.5707963 centroidX=20 centroidY=19.9494399 length=19.1415927)",
        R"(area layerRef="TOP" net="AREAS" left=27 bottom=18 right=33 top=22 area=24 centroidX=30 centroidY=20 length=20)",
        R"(area layerRef="TOP" net="AREAS" left=39 bottom=18 right=41 top=22 area=7.14159265 centroidX=40 centroidY=20 length=10.2831853)",
        R"(area layerRef="TOP" net="LOGO" left=8.73 bottom=48.73 right=11.27 top=51.27 area=5.06707479 centroidX=10 centroidY=50 length=7.97964534)",
        R"(area layerRef="TOP" net="LOGO" left=8 bottom=49 right=12 top=51 area=7.14159265 centroidX=10 centroidY=50 length=10.2831853)",
        R"(area layerRef="TOP" net="LOGO" left=1 bottom=91 right=4 top=93 area=6 centroidX=2.5 centroidY=92 length=10)",
        R"(area layerRef="TOP" net="LOGO" left=19 bottom=90.5 right=21 top=93.5 area=3 centroidX=20 centroidY=91.5 length=8.32455532)",
        R"(area layerRef="SLOTS" net="SLOT" left=89 bottom=7 right=91 top=13 area=12 centroidX=90 centroidY=10 length=16)",
        R"(area layerRef="SLOTS" net="SLOT" left=88 bottom=29 right=92 top=31 area=7.14159265 centroidX=90 centroidY=30 length=10.2831853)"};
    EXPECT_EQ(FactsOf("drawing.xml", "area"), expected);
}

TEST(FileFacts, TakeTexts)
{
    const Lines expected = {
        R"(text layerRef="TOP" net="" text="A<B & Ö" lowerLeftX=70 lowerLeftY=10 upperRightX=62 upperRightY=8 fontSize=12)"};
    EXPECT_EQ(FactsOf("drawing.xml", "text"), expected);
}

TEST(FileFacts, TakePads)
{
    const Lines expected = {
        R"(pad layerRef="TOP" net="A" pin="U1.1" testPoint="true" plate="false" padUsage="TERMINATION" left=9 bottom=7 right=10 top=10 area=1.5 centroidX=9.66666667 centroidY=8 length=7.16227766)",
        R"(pad layerRef="TOP" net="A" pin="" testPoint="true" plate="false" padUsage="TERMINATION" left=19.0669873 bottom=5.8839746 right=20.9330127 top=8.1160254 area=2 centroidX=20 centroidY=7 length=6)",
        R"(pad layerRef="TOP" net="A" pin="" testPoint="true" plate="false" padUsage="TERMINATION" left=25 bottom=6.75 right=26 top=7.75 area=0.785398163 centroidX=25.5 centroidY=7.25 length=3.14159265)",
        R"(pad layerRef="TOP" net="A" pin="" testPoint="true" plate="false" padUsage="TERMINATION" left=39.5 bottom=9.5 right=40.5 top=11.5 area=2 centroidX=40 centroidY=10.5 length=6)",
        R"(pad layerRef="TOP" net="A" pin="" testPoint="true" plate="false" padUsage="TERMINATION" left=49.4090097 bottom=10.4090097 right=52.5909903 top=13.5909903 area=2 centroidX=51 centroidY=12 length=9)",
        R"(pad layerRef="BOTTOM" net="A" pin="U2.1" testPoint="false" plate="false" padUsage="" left=28.8839746 bottom=6.0669873 right=31.1160254 top=7.9330127 area=2 centroidX=30 centroidY=7 length=6)",
        R"(pad layerRef="BOTTOM" net="A" pin="" testPoint="false" plate="false" padUsage="" left=35 bottom=7 right=36 top=10 area=1.5 centroidX=35.3333333 centroidY=8 length=7.16227766)",
        R"(pad layerRef="BOTTOM" net="A" pin="" testPoint="false" plate="false" padUsage="" left=38 bottom=9.75 right=42 top=10.25 area=2 centroidX=40 centroidY=10 length=9)",
        R"(pad layerRef="BOTTOM" net="A" pin="" testPoint="false" plate="false" padUsage="" left=42.8567363 bottom=5.66789589 right=47.1432637 top=8.24528002 area=7.875 centroidX=45.0263615 centroidY=6.98192019 length=11.7071068)"};
    EXPECT_EQ(FactsOf("pads.xml", "pad"), expected);
}

TEST(FileFacts, TakePackagePins)
{
    const Lines expected = {
        R"(package-pin package="PART" number="1" name="" type="SURFACE" electricalType="ELECTRICAL" mirror="false" x=-2.75 y=-0.5 rotation=180 left=0 bottom=0 right=3 top=1 area=1.5 centroidX=1 centroidY=0.333333333 length=7.16227766)",
        R"(package-pin package="PART" number="2" name="K" type="THRU" electricalType="MECHANICAL" mirror="true" x=3 y=0 rotation=270 left=-0.5 bottom=-1.5 right=0.5 top=1.5 area=3 centroidX=0 centroidY=0 length=8)",
        R"(package-pin package="PART" number="3" name="" type="SURFACE" electricalType="ELECTRICAL" mirror="false" x=0 y=1 rotation=0 left=-1 bottom=-0.5 right=1 top=0.5 area=2 centroidX=0 centroidY=0 length=6)",
        R"(package-pin package="PART" number="3" name="" type="SURFACE" electricalType="ELECTRICAL" mirror="false" x=0 y=-1 rotation=0 left=-0.5 bottom=-1 right=0.5 top=1 area=2 centroidX=0 centroidY=0 length=6)"};
    EXPECT_EQ(FactsOf("pads.xml", "package-pin"), expected);
}

TEST(FileFacts, TakeHoles)
{
    const Lines expected = {
        R"(hole layerRef="DRILL" net="A" name="H1" platingStatus="PLATED" fromLayer="TOP" toLayer="BOTTOM" x=40 y=10 diameter=0.6 plusTol=0.05 minusTol=0.05)",
        R"(hole layerRef="DRILL" net="A" name="H2" platingStatus="VIA" fromLayer="TOP" toLayer="TOP" x=42 y=10 diameter=0.3 plusTol=0 minusTol=0)"};
    EXPECT_EQ(FactsOf("pads.xml", "hole"), expected);
}

TEST(FileFacts, TakeEntries)
{
    const Lines expected = {
        R"(dictionary-entry id="RECT_2X1" left=-1 bottom=-0.5 right=1 top=0.5 area=2 centroidX=0 centroidY=0 length=6)",
        R"(dictionary-entry id="RECT_2X1_TURNED" left=-0.5 bottom=-1 right=0.5 top=1 area=2 centroidX=0 centroidY=0 length=6)",
        R"(dictionary-entry id="CIRCLE_ASIDE" left=0 bottom=-0.25 right=1 top=0.75 area=0.785398163 centroidX=0.5 centroidY=0.25 length=3.14159265)",
        R"(dictionary-entry id="CORNER" left=0 bottom=0 right=3 top=1 area=1.5 centroidX=1 centroidY=0.333333333 length=7.16227766)",
        R"(dictionary-entry id="CORNER_TURNED" left=0 bottom=0 right=1 top=3 area=1.5 centroidX=0.333333333 centroidY=1 length=7.16227766)"};
    EXPECT_EQ(FactsOf("pads.xml", "dictionary-entry"), expected);
}

TEST(FileFacts, TakeTransforms)
{
    const Lines expected = {R"(component-xform refDes="U1" mirror="false" rotation=90 xOffset=0 yOffset=0 scale=1)",
                            R"(component-xform refDes="U2" mirror="true" rotation=90 xOffset=1 yOffset=2 scale=1)"};
    EXPECT_EQ(FactsOf("pads.xml", "component-xform"), expected);
}

TEST(FileFacts, TakeOtherUnitsOfStrokes)
{
    const Lines expected = {
        R"(track layerRef="TOP" net=""1" > 0" lineEnd="ROUND" x=0.9 y=1 toX=0.9 toY=1.5 lineWidth=0.01)",
        R"(track layerRef="TOP" net=""1" > 0" lineEnd="NONE" left=-2 bottom=-1.5 right=8 top=3.5 area=50 centroidX=3 centroidY=1 length=30 lineWidth=0.1)"};
    EXPECT_EQ(FactsOf("mixed-units.xml", "track"), expected);
}

TEST(FileFacts, TakeOtherUnitsOfMarkings)
{
    const Lines expected = {
        R"(package-marking package="FOOT" of="silk" lineEnd="NONE" left=-9.5 bottom=-5 right=10.5 top=5 area=200 centroidX=0.5 centroidY=0 length=60 lineWidth=0.2)",
        R"(package-marking package="FOOT" of="land pattern" left=-0.1 bottom=0.11339746 right=0.1 top=0.28660254 area=0.0259807621 centroidX=0 centroidY=0.2 length=0.6)"};
    EXPECT_EQ(FactsOf("mixed-units.xml", "package-marking"), expected);
}

TEST(FileFacts, TakeOtherUnitsOfPads)
{
    const Lines expected = {
        R"(land-pattern-pad package="FOOT" pin="1" left=-0.125 bottom=-0.05 right=-0.075 top=0.05 area=0.00491415927 centroidX=-0.1 centroidY=0 length=0.282831853)"};
    EXPECT_EQ(FactsOf("mixed-units.xml", "land-pattern-pad"), expected);
}

TEST(FileFacts, TakeItemsOfTheBill)
{
    const Lines expected = {
        R"(bom-item item="ONE" quantity="2" category="ELECTRICAL" description="both of one package" pins="2" packageRef="FOOT")",
        R"(bom-item item="2-INSIDE" quantity="2" category="MECHANICAL" description="" pins="0" packageRef="")",
        R"(bom-item item="PAPER" quantity="1.5" category="DOCUMENT" description="" pins="" packageRef="")"};
    EXPECT_EQ(FactsOf("mixed-units.xml", "bom-item"), expected);
}

TEST(FileFacts, TakePlacements)
{
    const Lines expected = {R"(bom-refdes item="ONE" name="X1" populate="true")",
                            R"(bom-refdes item="ONE" name="X2" populate="false")",
                            R"(bom-refdes item="2-INSIDE" name="X3" populate="true")",
                            R"(bom-refdes item="2-INSIDE" name="X4" populate="true")"};
    EXPECT_EQ(FactsOf("mixed-units.xml", "bom-refdes"), expected);
}

TEST(FileFacts, TakeMaterials)
{
    const Lines expected = {R"(material group="RIGID_GROUP" layerOrGroupRef="TOP" material="ROLLED COPPER")",
                            R"(material group="RIGID_GROUP" layerOrGroupRef="CORE" material="GLASS & RESIN")",
                            R"(material group="FLEX_GROUP" layerOrGroupRef="COVER" material="")",
                            R"(material group="FLEX_GROUP" layerOrGroupRef="TOP" material="ROLLED COPPER")"};
    EXPECT_EQ(FactsOf("flex-zones.xml", "material"), expected);
}

TEST(FileFacts, TakeTheProfileOfTheBoardAlone)
{
    const Lines expected = {
        R"(profile  left=0 bottom=0 right=50 top=20 area=700.858407 centroidX=20.713958 centroidY=7.86031458 length=139.141593)"};
    EXPECT_EQ(FactsOf("flex-zones.xml", "profile"), expected);
}

TEST(FileFacts, TakeColours)
{
    const Lines expected = {R"(set-color layerRef="COVER" id="AMBER")", R"(set-color layerRef="TOP" id="AMBER")",
                            R"(set-color layerRef="TOP" id="NIGHT")"};
    EXPECT_EQ(FactsOf("flex-zones.xml", "set-color"), expected);
}

TEST(FileFacts, TakeTheFirstStepWithComponents)
{
    const Lines expected = {R"(step name="board" datumX=0 datumY=0)"};
    EXPECT_EQ(FactsOf("panel.xml", "step"), expected);
}

TEST(FileFacts, TakeNetsOfSets)
{
    const Lines expected = {R"(net name="B-Zeile Ω")", R"(net name="A")"};
    EXPECT_EQ(FactsOf("panel.xml", "net"), expected);
}

TEST(FileFacts, TakePinsOfSets)
{
    const Lines expected = {R"(net-pin net="B-Zeile Ω" componentRef="J1" pin="1")",
                            R"(net-pin net="B-Zeile Ω" componentRef="J1" pin="1A")",
                            R"(net-pin net="B-Zeile Ω" componentRef="J1" pin="2")"};
    EXPECT_EQ(FactsOf("panel.xml", "net-pin"), expected);
}

TEST(FileFacts, TakeTheFunctionMode)
{
    const Lines expected = {R"(function-mode mode="ASSEMBLY" level="" comment="Grüße 'panel'")"};
    EXPECT_EQ(FactsOf("panel.xml", "function-mode"), expected);
}

TEST(FileFacts, TakePadStacks)
{
    const Lines expected = {
        R"(padstack-pad net="VCC" layerRef="TOP" pin="" left=6.25 bottom=7.25 right=7.75 top=8.75 area=1.76714587 centroidX=7 centroidY=8 length=4.71238898)",
        R"(padstack-pad net="VCC" layerRef="BOTTOM" pin="D1.1" left=5.79289322 bottom=6.79289322 right=8.20710678 top=9.20710678 area=2.78539816 centroidX=7 centroidY=8 length=7.14159265)",
        R"(padstack-pad net="" layerRef="TOP" pin="" left=-1 bottom=-0.732050808 right=3 top=2.73205081 area=7.79422863 centroidX=1 centroidY=1 length=18)"};
    EXPECT_EQ(FactsOf("first-board.xml", "padstack-pad"), expected);
}

TEST(FileFacts, TakePhysicalNets)
{
    const Lines expected = {
        R"(phynet-point net="VCC" layerRef="TOP" netNode="MIDDLE" exposure="EXPOSED" via="true" test="false" shape="CIRCLE" x=7 y=8)"};
    EXPECT_EQ(FactsOf("first-board.xml", "phynet-point"), expected);
}

TEST(FileFacts, NeedAWellFormedFile)
{
    EXPECT_THROW(FactsOfFile("no-such-file.xml"), std::runtime_error);
}

}  // namespace
}  // namespace ipc2581::facts
