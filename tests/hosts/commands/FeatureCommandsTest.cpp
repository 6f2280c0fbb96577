#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

// What is listed of layers, packages and what lies on the layers.
namespace ipc2581::tests {
namespace {

// A small board in millimetres with two layers and these lines in its step.
std::string BoardWithStep(const std::string & stepLines)
{
    std::string board = SmallBoard(stepLines);
    board.insert(board.find("<CadData"), "<CadHeader units=\"MILLIMETER\"/>\n");
    return board.insert(board.find("<Step"), "<Layer name=\"TOP\" layerFunction=\"CONDUCTOR\" side=\"TOP\"/>\n"
                                             "<Layer name=\"SILK\" layerFunction=\"SILKSCREEN\" side=\"TOP\"/>\n"
                                             "<Layer name=\"DRILL\" layerFunction=\"DRILL\" side=\"ALL\"/>\n");
}

// The rows of a listing of a board with these lines in its step, without their heading.
std::string Rows(const std::vector<std::string> & arguments, const std::string & stepLines)
{
    const TempFolder folder;
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {folder.Save("b.xml", BoardWithStep(stepLines)), "--format", "csv"});
    const Result result = RunProgram(all);
    EXPECT_EQ(result.status, 0) << result;
    return result.out.substr(result.out.find('\n') + 1);
}

std::string OnLayer(const std::string & layer, const std::string & sets)
{
    return "<LayerFeature layerRef=\"" + layer + "\">\n" + sets + "</LayerFeature>\n";
}

TEST(FeatureCommands, ListTheExampleBoardInEachFormat)
{
    for (const std::string command : {"layers", "stackup", "packages", "pins", "pads", "holes", "tracks"}) {
        ExpectGoldenListings(command);
    }
}

TEST(FeatureCommands, PackagesCountPinsAndComponents)
{
    const std::string pin = "<Location x=\"0\" y=\"0\"/><StandardPrimitiveRef id=\"C\"/>";
    const std::string step =
        "<Package name=\"P10\" type=\"CHIP\" height=\"1.5\" pinOne=\"1\"><Pin number=\"1\" type=\"SURFACE\">" + pin +
        pin + "</Pin><Pin number=\"2\" type=\"THRU\">" + pin +
        "</Pin></Package>\n"
        "<Package name=\"P2\" type=\"OTHER\"><Pin number=\"1\" type=\"BLIND\">" +
        pin +
        "</Pin></Package>\n"
        "<Component refDes=\"U1\" packageRef=\"P10\" layerRef=\"TOP\"/>\n"
        "<Component refDes=\"U2\" packageRef=\"P10\" layerRef=\"TOP\"/>\n";
    EXPECT_EQ(Rows({"packages"}, step), "P10,CHIP,2,1,1,0,1.5,1,2,millimeter\nP2,OTHER,1,0,0,1,,,0,millimeter\n");
    EXPECT_EQ(Rows({"packages", "--sort", "--units", "um"}, step),
              "P2,OTHER,1,0,0,1,,,0,micron\nP10,CHIP,2,1,1,0,1500,1,2,micron\n");
}

TEST(FeatureCommands, PinsHaveARowForEachPlace)
{
    const std::string step =
        "<Package name=\"P\"><Pin number=\"10\" name=\"A\" type=\"THRU\" electricalType=\"MECHANICAL\">"
        "<Location x=\"1\" y=\"2\"/><StandardPrimitiveRef id=\"C\"/><Location x=\"3\" y=\"4\"/>"
        "<StandardPrimitiveRef id=\"D\"/></Pin><Pin number=\"9\"><Xform rotation=\"90\"/><Location "
        "x=\"5\" y=\"6\"/></Pin></Package>\n";
    const std::string ten = "P,10,A,THRU,MECHANICAL,1,2,0,C,millimeter\nP,10,A,THRU,MECHANICAL,3,4,0,D,millimeter\n";
    const std::string nine = "P,9,,,,5,6,90,,millimeter\n";
    EXPECT_EQ(Rows({"pins"}, step), ten + nine);
    EXPECT_EQ(Rows({"pins", "--sort"}, step), nine + ten);
}

TEST(FeatureCommands, PadsTellNetPinAndUsage)
{
    const std::string step =
        "<Component refDes=\"U1\" layerRef=\"TOP\"/><LogicalNet name=\"N10\"/><LogicalNet name=\"N9\"/>\n" +
        OnLayer("TOP",
                "<Set net=\"N10\" testPoint=\"true\" plate=\"true\" padUsage=\"VIA\"><Pad><Location x=\"1\" y=\"2\"/>"
                "<StandardPrimitiveRef id=\"C\"/></Pad></Set>\n"
                "<Set net=\"N9\"><Pad><Xform rotation=\"45\"/><Location x=\"3\" y=\"4\"/><StandardPrimitiveRef "
                "id=\"C\"/><PinRef componentRef=\"U1\" pin=\"7\"/></Pad></Set>\n");
    const std::string ten = "N10,TOP,1,2,0,C,,VIA,yes,yes,set,millimeter\n";
    const std::string nine = "N9,TOP,3,4,45,C,U1.7,,no,no,set,millimeter\n";
    EXPECT_EQ(Rows({"pads"}, step), ten + nine);
    EXPECT_EQ(Rows({"pads", "--sort"}, step), nine + ten);
}

TEST(FeatureCommands, PadsOfPadStacksHaveNoUsage)
{
    const std::string step = "<PadStack net=\"N\"><LayerPad layerRef=\"TOP\"><Location x=\"1\" y=\"2\"/>"
                             "<StandardPrimitiveRef id=\"C\"/></LayerPad></PadStack>\n";
    EXPECT_EQ(Rows({"pads"}, step), "N,TOP,1,2,0,C,,,,,pad stack,millimeter\n");
}

TEST(FeatureCommands, HolesTellPlatingSpanAndNet)
{
    const std::string hole =
        "<Hole name=\"H\" diameter=\"0.4\" platingStatus=\"PLATED\" plusTol=\"0.1\" minusTol=\"0.05\" "
        "x=\"1\" y=\"2\"><Span fromLayer=\"TOP\" toLayer=\"SILK\"/></Hole>";
    const std::string step = OnLayer("DRILL", "<Set net=\"N\">" + hole + "</Set>\n");
    EXPECT_EQ(Rows({"holes", "--units", "um"}, step), "H,400,PLATED,1000,2000,N,TOP,SILK,100,50,DRILL,set,micron\n");
}

TEST(FeatureCommands, HoleOfPadStackAndLayerIsOne)
{
    const auto stack = [](const std::string & x) {
        return "<PadStack net=\"N\"><LayerHole name=\"S\" diameter=\"0.40\" platingStatus=\"VIA\" plusTol=\"0\" "
               "minusTol=\"0\" "
               "x=\"" +
               x + "\" y=\"2\"><Span fromLayer=\"TOP\" toLayer=\"SILK\"/></LayerHole></PadStack>\n";
    };
    const std::string onLayer = OnLayer(
        "DRILL", "<Set net=\"N\"><Hole name=\"H\" diameter=\"0.4\" platingStatus=\"VIA\" x=\"1\" y=\"2\"/></Set>\n");
    EXPECT_EQ(Rows({"holes"}, stack("1") + stack("3") + onLayer),
              "S,0.4,VIA,3,2,N,TOP,SILK,0,0,,pad stack,millimeter\nH,0.4,VIA,1,2,N,,,,,DRILL,set,millimeter\n");
}

TEST(FeatureCommands, TracksAreTheStrokesOnCopper)
{
    const std::string lineDesc = "<LineDesc lineEnd=\"SQUARE\" lineWidth=\"0.2\"/>";
    const std::string line = "<Line startX=\"0\" startY=\"0\" endX=\"3\" endY=\"4\">" + lineDesc + "</Line>";
    const std::string arc =
        "<Polyline><PolyBegin x=\"2\" y=\"0\"/><PolyStepCurve x=\"0\" y=\"2\" centerX=\"0\" centerY=\"0\" "
        "clockwise=\"false\"/><PolyStepSegment x=\"0\" y=\"5\"/>" +
        lineDesc + "</Polyline>";
    const std::string set = "<Set net=\"N\"><Features><Location x=\"10\" y=\"20\"/>" + line + "</Features></Set>\n";
    const std::string step =
        OnLayer("SILK", set) + OnLayer("TOP", set + "<Set><Features>" + arc + "</Features></Set>\n");
    EXPECT_EQ(Rows({"tracks"}, step), "N,TOP,line,0.2,SQUARE,10,20,13,24,,,,5,millimeter\n"
                                      ",TOP,arc,0.2,SQUARE,2,0,0,2,0,0,no,3.141593,millimeter\n"
                                      ",TOP,line,0.2,SQUARE,0,2,0,5,,,,3,millimeter\n");
}

TEST(FeatureCommands, LayersCountTheirSets)
{
    EXPECT_EQ(Rows({"layers"}, OnLayer("TOP", "<Set/><Set/>") + OnLayer("SILK", "<Set/>")),
              "TOP,CONDUCTOR,TOP,POSITIVE,yes,2\nSILK,SILKSCREEN,TOP,POSITIVE,no,1\nDRILL,DRILL,ALL,POSITIVE,no,0\n");
}

}  // namespace
}  // namespace ipc2581::tests
