#include "hosts/ipc2581/drawing/Drawing.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/ipc2581/drawing/BoardDrawing.h"
#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

Drawing DrawingOfFile(const std::string & path)
{
    Board board{BoardFile(path)};
    return DrawingOf(board);
}

// Of a board in millimetres with a shape in inches, two layers, and these lines in its step.
Drawing DrawingOfStep(const std::string & stepLines)
{
    const TempFolder folder;
    return DrawingOfFile(folder.Save("board.cvg", "<IPC-2581>\n"
                                                  "<Content>\n"
                                                  "<DictionaryStandard units=\"INCH\">\n"
                                                  "<EntryStandard id=\"PAD\">\n"
                                                  "<RectCenter width=\"2\" height=\"1\"/>\n"
                                                  "</EntryStandard>\n"
                                                  "</DictionaryStandard>\n"
                                                  "</Content>\n"
                                                  "<Ecad name=\"e\">\n"
                                                  "<CadHeader units=\"MILLIMETER\">\n"
                                                  "</CadHeader>\n"
                                                  "<CadData>\n"
                                                  "<Layer name=\"TOP\" layerFunction=\"SIGNAL\" side=\"TOP\" "
                                                  "polarity=\"POSITIVE\"/>\n"
                                                  "<Layer name=\"BOT\" layerFunction=\"PLANE\" side=\"BOTTOM\" "
                                                  "polarity=\"NEGATIVE\"/>\n"
                                                  "<Step name=\"s\">\n" +
                                                      stepLines +
                                                      "</Step>\n"
                                                      "</CadData>\n"
                                                      "</Ecad>\n"
                                                      "</IPC-2581>\n"));
}

std::string OnLayer(const std::string & layer, const std::string & setLines)
{
    return "<LayerFeature layerRef=\"" + layer + "\">\n" + setLines + "</LayerFeature>\n";
}

const std::string Package = "<Package name=\"P\" type=\"SMT\">\n"
                            "<Outline>\n<Polygon>\n<PolyBegin x=\"-2\" y=\"-1\"/>\n"
                            "<PolyStepSegment x=\"2\" y=\"-1\"/>\n<PolyStepSegment x=\"2\" y=\"1\"/>\n"
                            "</Polygon>\n<LineDesc lineEnd=\"SQUARE\" lineWidth=\"0.1\"/>\n</Outline>\n"
                            "<Pin number=\"1\" type=\"SURFACE\">\n<Location x=\"1\" y=\"0\"/>\n"
                            "<StandardPrimitiveRef id=\"PAD\"/>\n</Pin>\n"
                            "</Package>\n";

TEST(Drawing, OfABoardThatDrawsNothingHasItsLayersAndUnit)
{
    const Drawing drawing = DrawingOfStep("");
    EXPECT_EQ(drawing.unit, "MILLIMETER");
    EXPECT_EQ(drawing.millimetres, 1.0);
    EXPECT_EQ(drawing.decimals, 3);
    EXPECT_TRUE(drawing.profile.IsEmpty());
    ASSERT_EQ(drawing.layers.size(), 2U);
    EXPECT_EQ(drawing.layers[0].name, "TOP");
    EXPECT_EQ(drawing.layers[0].role, LayerRole::Copper);
    EXPECT_EQ(drawing.layers[0].side, Side::Top);
    EXPECT_FALSE(drawing.layers[0].isNegative);
    EXPECT_FALSE(drawing.layers[0].hasFeatures);
    EXPECT_TRUE(drawing.layers[1].isNegative);
    EXPECT_EQ(drawing.names, std::vector<std::string>{""});
}

TEST(Drawing, StrokesHaveWidthEndsArcsAndNet)
{
    const Drawing drawing = DrawingOfStep(
        OnLayer("TOP", "<Set net=\"GND\">\n<Features>\n<Location x=\"10\" y=\"20\"/>\n"
                       "<Polyline>\n<PolyBegin x=\"1\" y=\"0\"/>\n<PolyStepSegment x=\"2\" y=\"0\"/>\n"
                       "<PolyStepCurve x=\"0\" y=\"2\" centerX=\"0\" centerY=\"0\" clockwise=\"FALSE\"/>\n"
                       "<LineDesc lineEnd=\"NONE\" lineWidth=\"0.25\"/>\n</Polyline>\n"
                       "</Features>\n</Set>\n"));
    EXPECT_TRUE(drawing.layers[0].hasFeatures);
    ASSERT_EQ(drawing.layers[0].items.size(), 1U);
    const Item & item = drawing.layers[0].items[0];
    EXPECT_EQ(item.kind, ItemKind::Stroke);
    EXPECT_EQ(item.width, 0.25);
    EXPECT_EQ(item.ends, StrokeEnds::None);
    EXPECT_EQ(drawing.names[item.net], "GND");
    Path path;
    path.MoveTo({11, 20});
    path.LineTo({12, 20});
    path.ArcTo({10, 22}, {10, 20}, false);
    EXPECT_EQ(PathsOf(drawing, item), std::vector<Path>{path});
}

TEST(Drawing, OutlinesAreOwnOrPlacedFromTheDictionary)
{
    const Drawing drawing = DrawingOfStep(
        OnLayer("TOP", "<Set net=\"VCC\">\n<Features>\n<Location x=\"5\" y=\"6\"/>\n"
                       "<Circle diameter=\"2\"/>\n</Features>\n</Set>\n"
                       "<Set net=\"GND\">\n<Pad pin=\"7\">\n<Xform rotation=\"90\"/>\n"
                       "<Location x=\"100\" y=\"50\"/>\n<StandardPrimitiveRef id=\"PAD\"/>\n</Pad>\n</Set>\n"
                       "<Set>\n<Pad>\n<StandardPrimitiveRef id=\"NOBODY\"/>\n</Pad>\n</Set>\n"));
    ASSERT_EQ(drawing.layers[0].items.size(), 2U);
    const Item & circle = drawing.layers[0].items[0];
    EXPECT_EQ(circle.kind, ItemKind::Outline);
    EXPECT_EQ(circle.shape, Item::OwnPaths);
    Path round;
    round.AddEllipse({5, 6}, 1, 1);
    EXPECT_EQ(PathsOf(drawing, circle), std::vector<Path>{round});
    const Item & pad = drawing.layers[0].items[1];
    EXPECT_EQ(drawing.shapes[pad.shape].id, "PAD");
    EXPECT_EQ(PathsOf(drawing, pad)[0].steps[0].end, Vertex(-25.4, -12.7));
    EXPECT_EQ(pad.placement.location, Vertex(100, 50));
    EXPECT_EQ(pad.placement.rotation, 90);
    EXPECT_EQ(drawing.names[pad.net], "GND");
    EXPECT_EQ(drawing.names[pad.pin], "7");
}

TEST(Drawing, HolesStandOnceWithTheLayersThatTheyGoThrough)
{
    const std::string hole = "diameter=\"0.5\" platingStatus=\"VIA\" plusTol=\"0\" minusTol=\"0\" x=\"3\" y=\"4\"";
    const Drawing drawing =
        DrawingOfStep("<PadStack net=\"GND\">\n<LayerHole name=\"H\" " + hole +
                      ">\n<Span fromLayer=\"TOP\" toLayer=\"BOT\"/>\n</LayerHole>\n<LayerPad layerRef=\"BOT\">\n"
                      "<Location x=\"3\" y=\"4\"/>\n<StandardPrimitiveRef id=\"PAD\"/>\n</LayerPad>\n</PadStack>\n" +
                      OnLayer("DRILL", "<Set net=\"GND\">\n<Hole name=\"H\" " + hole + "/>\n</Set>\n"));
    ASSERT_EQ(drawing.holes.size(), 1U);
    const DrillHole & drilled = drawing.holes[0];
    EXPECT_EQ(drilled.center, Vertex(3, 4));
    EXPECT_EQ(drilled.diameter, 0.5);
    EXPECT_EQ(drawing.names[drilled.net], "GND");
    EXPECT_TRUE(drilled.GoesThrough(0));
    EXPECT_TRUE(drilled.GoesThrough(1));
    EXPECT_EQ(drawing.layers[1].items.size(), 1U);
    ASSERT_EQ(drawing.layers.size(), 3U);
    EXPECT_EQ(drawing.layers[2].name, "DRILL");
    ASSERT_EQ(drawing.layers[2].items.size(), 1U);
    EXPECT_EQ(drawing.layers[2].items[0].kind, ItemKind::Hole);
    EXPECT_EQ(drawing.layers[2].items[0].width, 0.5);
    EXPECT_EQ(drawing.layers[2].items[0].placement.location, Vertex(3, 4));
}

TEST(Drawing, PartsArePlacedWithTheNetsOfTheirPins)
{
    const Drawing drawing = DrawingOfStep(
        Package + "<Component refDes=\"R1\" packageRef=\"P\" layerRef=\"BOT\">\n"
                  "<Xform rotation=\"90\"/>\n<Location x=\"10\" y=\"20\"/>\n</Component>\n"
                  "<Component refDes=\"X1\" packageRef=\"NONE\" layerRef=\"TOP\">\n"
                  "<Location x=\"1\" y=\"2\"/>\n</Component>\n"
                  "<LogicalNet name=\"OUT\">\n<LogicalNetPin componentRef=\"R1\" pin=\"1\"/>\n</LogicalNet>\n");
    ASSERT_EQ(drawing.footprints.size(), 1U);
    ASSERT_EQ(drawing.parts.size(), 2U);
    const PlacedPart & part = drawing.parts[0];
    EXPECT_EQ(drawing.names[part.refDes], "R1");
    EXPECT_EQ(part.side, Side::Bottom);
    EXPECT_TRUE(part.placement.isMirrored);
    const std::vector<Item> items = ItemsOf(drawing, part);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].kind, ItemKind::Outline);
    EXPECT_EQ(drawing.names[items[0].net], "OUT");
    EXPECT_EQ(drawing.names[items[0].pin], "1");
    EXPECT_NEAR(items[0].placement.location.X, 10, 1e-9);
    EXPECT_NEAR(items[0].placement.location.Y, 21, 1e-9);
    EXPECT_EQ(items[1].kind, ItemKind::Stroke);
    EXPECT_EQ(items[1].ends, StrokeEnds::Square);
    EXPECT_EQ(items[2].kind, ItemKind::Text);
    EXPECT_EQ(drawing.names[items[2].text], "R1");
    for (const Item & item : items) {
        EXPECT_EQ(drawing.names[item.refDes], "R1");
    }
    EXPECT_EQ(drawing.parts[1].footprint, PlacedPart::NoFootprint);
    const std::vector<Item> label = ItemsOf(drawing, drawing.parts[1]);
    ASSERT_EQ(label.size(), 1U);
    EXPECT_EQ(label[0].paths[0].steps[0].end, Vertex(1, 2));
}

TEST(Drawing, OfTheExampleBoardOutlivesIt)
{
    const Drawing drawing = DrawingOfFile(ExampleBoard());
    EXPECT_GT(drawing.shapes.size(), 10U);
    EXPECT_EQ(drawing.parts.size(), 17U);
    EXPECT_FALSE(drawing.profile.IsEmpty());
    const auto isGround = [&](const Item & item) { return drawing.names[item.net] == "GND"; };
    const auto top = std::find_if(drawing.layers.begin(), drawing.layers.end(),
                                  [](const DrawnLayer & layer) { return layer.name == "TOP"; });
    ASSERT_NE(top, drawing.layers.end());
    EXPECT_TRUE(std::any_of(top->items.begin(), top->items.end(), isGround));
    EXPECT_TRUE(top->color.has_value());
}

}  // namespace
}  // namespace ipc2581::tests
