#include <cstddef>
#include <string>
#include <utility>
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

// A board of which the reader of the core takes a part, since some lines hold several elements.
constexpr const char * HalfRead =
    "<Layer name=\"CU\" layerFunction=\"CONDUCTOR\" side=\"TOP\"/>\n"
    "<Layer name=\"Y\" layerFunction=\"DRILL\"/><Layer name=\"X\" layerFunction=\"DRILL\"/>\n"
    "<Stackup>\n"
    "<StackupGroup name=\"G\">\n"
    "<StackupLayer layerOrGroupRef=\"CU\"/><StackupLayer layerOrGroupRef=\"X\"/>\n"
    "</StackupGroup>\n"
    "</Stackup>\n"
    "<Step name=\"one\">\n"
    "<PadStack net=\"N\">\n"
    "<LayerHole name=\"S\" diameter=\"1\" x=\"9\" y=\"9\">\n"
    "<Span fromLayer=\"CU\" toLayer=\"CU\"/>\n"
    "</LayerHole>\n"
    "<LayerPad layerRef=\"CU\">\n"
    "<Location x=\"1\" y=\"2\"/>\n"
    "<StandardPrimitiveRef id=\"C\"/>\n"
    "</LayerPad>\n"
    "</PadStack>\n"
    "<Package name=\"P\" type=\"CHIP\" height=\"1\" pinOne=\"1\">\n"
    "<LandPattern>\n"
    "<Pad>\n"
    "<Location x=\"1\" y=\"2\"/>\n"
    "<StandardPrimitiveRef id=\"C\"/>\n"
    "</Pad>\n"
    "</LandPattern>\n"
    "<Pin number=\"1\" type=\"THRU\"><Location x=\"1\" y=\"2\"/></Pin>\n"
    "<Pin number=\"2\" type=\"THRU\">\n"
    "<Location x=\"1\" y=\"2\"/>\n"
    "</Pin>\n"
    "</Package>\n"
    "<LayerFeature layerRef=\"CU\">\n"
    "<Set net=\"N\" plate=\"true\" testPoint=\"true\">\n"
    "<Pad>\n"
    "<Location x=\"1\" y=\"2\"/>\n"
    "<StandardPrimitiveRef id=\"C\"/>\n"
    "</Pad>\n"
    "<Pad>\n"
    "<Location x=\"1\" y=\"3\"/>\n"
    "<StandardPrimitiveRef id=\"C\"/>\n"
    "</Pad>\n"
    "<Hole name=\"H\" diameter=\"1\" x=\"1\" y=\"2\"/><Hole name=\"H\" diameter=\"2\" x=\"1\" y=\"2\"/>\n"
    "</Set>\n"
    "<Set net=\"N\">\n"
    "<Features>\n"
    "<Line startX=\"0\" startY=\"0\" endX=\"1\" endY=\"1\">\n"
    "<LineDesc lineEnd=\"ROUND\" lineWidth=\"1\"/>\n"
    "</Line>\n"
    "<Line startX=\"0\" startY=\"0\" endX=\"2\" endY=\"2\"><LineDesc lineEnd=\"ROUND\" lineWidth=\"1\"/></Line>\n"
    "<Polyline><PolyBegin x=\"1\" y=\"1\"/><PolyStepSegment x=\"2\" y=\"2\"/><PolyStepCurve x=\"1\" y=\"1\" "
    "centerX=\"1\" centerY=\"2\"/></Polyline>\n"
    "</Features>\n"
    "</Set>\n"
    "<Set net=\"M\"><Features><Line startX=\"0\" startY=\"0\" endX=\"1\" endY=\"1\"/></Features></Set>\n"
    "</LayerFeature>\n"
    "</Step>\n";

std::string HalfReadBoard()
{
    std::string board = SmallBoard();
    const std::size_t step = board.find("<Step");
    return board.replace(step, board.find("</CadData>") - step, HalfRead);
}

TEST(FeatureCommands, TellWhatAnExactReadLacks)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", HalfReadBoard());
    const auto told = [&](const std::string & command) {
        const Result result = RunProgram({command, "--exact", board});
        EXPECT_EQ(result.status, 0) << result;
        return result.err;
    };
    const auto warned = [&](const std::string & causes) { return Warning(board, causes); };
    EXPECT_EQ(told("layers"), warned("1 of 3 layers missing; 1 of 3 sets missing"));
    EXPECT_EQ(told("stackup"), warned("1 of 2 layers of the stackup missing"));
    EXPECT_EQ(told("packages"), warned("1 package listed without a height (height is not read); 1 package listed "
                                       "without pin one (pinOne is not read); 1 of 2 pins of packages missing"));
    EXPECT_EQ(told("pins"), warned("1 of 2 pins of packages missing"));
    EXPECT_EQ(told("pads"), warned("1 of 3 pads missing; 1 pad listed as not plated (plate is not \"TRUE\" in upper "
                                   "case); 1 pad listed as no test point (testPoint is not \"TRUE\" in upper case)"));
    EXPECT_EQ(told("holes"), warned("1 of 3 holes missing"));
    EXPECT_EQ(told("tracks"), warned("3 of 5 tracks missing"));
    EXPECT_EQ(told("info"), warned("1 of 3 layers missing; 1 of 2 layers of the stackup missing; 1 of 3 holes missing; "
                                   "3 of 5 tracks missing"));
}

TEST(FeatureCommands, TellWhatAFileHasNoneOfAfterAnExactRead)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard());
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"layers", "layers"},     {"stackup", "layers of the stackup"},
        {"packages", "packages"}, {"pins", "pins of packages"},
        {"pads", "pads"},         {"holes", "holes"},
        {"tracks", "tracks"}};
    for (const auto & [command, things] : rows) {
        EXPECT_EQ(RunProgram({command, "--exact", board}).err,
                  Warning(board, "no " + things + " in the file" +
                                     (command == "packages" ? "; no pins of packages in the file" : "")));
        EXPECT_EQ(RunProgram({command, board}).err, "");
    }
    EXPECT_EQ(RunProgram({"info", "--exact", board}).err, "");
}

}  // namespace
}  // namespace ipc2581::tests
