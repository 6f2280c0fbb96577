#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

TEST(Info, TellsOfTheExampleBoardInEachFormat)
{
    ExpectGoldenListings("info");
    ExpectGoldenListings("info", {"--all"}, "info-all");
}

TEST(Info, TellsOfABoardWithNothingInIt)
{
    const TempFolder folder;
    const Result info = RunProgram({"info", "--all", folder.Save("small.cvg", SmallBoard())});
    EXPECT_EQ(info, (Result{0, Golden("info-small.txt", info.out), ""}));
}

TEST(Info, ExtentsHoldTheArcsOfTheProfile)
{
    const TempFolder folder;
    const std::string board = folder.Save("round.cvg", SmallBoard("<Profile>\n"
                                                                  "<Polygon>\n"
                                                                  "<PolyBegin x=\"10\" y=\"0\"/>\n"
                                                                  "<PolyStepCurve x=\"-10\" y=\"0\" centerX=\"0\" "
                                                                  "centerY=\"0\" clockwise=\"FALSE\"/>\n"
                                                                  "<PolyStepSegment x=\"10\" y=\"0\"/>\n"
                                                                  "</Polygon>\n"
                                                                  "</Profile>\n"));
    EXPECT_NE(RunProgram({"info", "--all", board})
                  .out.find("\nprofile\n"
                            "  left     -10\n"
                            "  bottom     0\n"
                            "  right     10\n"
                            "  top       10\n"
                            "  width     20\n"
                            "  height    10\n"
                            "  cutouts    0\n"),
              std::string::npos);
}

// A board of three layers of copper and one of silk.
std::string BoardWithStep(const std::string & stepLines, const std::string & stackup = "")
{
    std::string board = SmallBoard(stepLines);
    board.insert(board.find("<CadData"), "<CadHeader units=\"MILLIMETER\"/>\n");
    return board.insert(board.find("<Step"), "<Layer name=\"TOP\" layerFunction=\"CONDUCTOR\" side=\"TOP\"/>\n"
                                             "<Layer name=\"GND\" layerFunction=\"PLANE\" side=\"INTERNAL\"/>\n"
                                             "<Layer name=\"BOT\" layerFunction=\"SIGNAL\" side=\"BOTTOM\"/>\n"
                                             "<Layer name=\"SILK\" layerFunction=\"SILKSCREEN\" side=\"TOP\"/>\n" +
                                                 stackup);
}

// The lines of the sections of a board, without blanks in a row.
std::string Sections(const std::string & board, const std::string & bom = "")
{
    const TempFolder folder;
    std::string text = board;
    text.insert(text.find("<Ecad"), bom);
    std::string lines;
    for (const char ch : RunProgram({"info", folder.Save("b.xml", text)}).out) {
        if (ch != ' ' || (!lines.empty() && lines.back() != ' ' && lines.back() != '\n')) {
            lines.append(1, ch);
        }
    }
    return lines;
}

TEST(Info, CountsPartsBySideAndFitting)
{
    const std::string pin = "<Location x=\"0\" y=\"0\"/><StandardPrimitiveRef id=\"C\"/>";
    const std::string board =
        BoardWithStep("<Package name=\"P\"><Pin number=\"1\">" + pin + pin + "</Pin><Pin number=\"2\">" + pin +
                      "</Pin></Package>\n"
                      "<Component refDes=\"R1\" packageRef=\"P\" layerRef=\"BOT\"/>\n"
                      "<Component refDes=\"R2\" packageRef=\"P\" layerRef=\"TOP\"/>\n"
                      "<Component refDes=\"R3\" packageRef=\"P\" layerRef=\"TOP\"/>\n"
                      "<Component refDes=\"R4\" packageRef=\"P\" layerRef=\"TOP\"/>\n"
                      "<LogicalNet name=\"N\"><PinRef componentRef=\"R1\" pin=\"1\"/></LogicalNet>\n");
    const std::string sections =
        Sections(board, "<Bom name=\"b\"><BomItem><RefDes name=\"R1\" populate=\"true\"/><RefDes name=\"R2\" "
                        "populate=\"false\"/><RefDes name=\"R3\" populate=\"true\"/></BomItem></Bom>\n");
    EXPECT_NE(sections.find("\ncopper layers 3\ncomponents 4\npins 8\nnets 1\npins on nets 1\n"), std::string::npos)
        << sections;
    EXPECT_NE(sections.find("\nside components fitted not fitted not in the BOM\nTOP 3 1 1 1\nBOTTOM 1 1 0 0\n"),
              std::string::npos)
        << sections;
}

TEST(Info, CountsHolesByDiameterAndPlatingAndFindsTheSmallest)
{
    const auto hole = [](const std::string & diameter, const std::string & plating, const std::string & x) {
        return "<Set><Hole name=\"H\" diameter=\"" + diameter + "\" platingStatus=\"" + plating + "\" x=\"" + x +
               "\" y=\"0\"/></Set>\n";
    };
    const auto line = [](const std::string & width) {
        return "<Set><Features><Line startX=\"0\" startY=\"0\" endX=\"1\" endY=\"0\"><LineDesc lineEnd=\"ROUND\" "
               "lineWidth=\"" +
               width + "\"/></Line></Features></Set>\n";
    };
    const std::string sections = Sections(
        BoardWithStep("<LayerFeature layerRef=\"TOP\">\n" + hole("10", "PLATED", "1") + hole("0.40", "VIA", "2") +
                      hole("0.4", "NONPLATED", "3") + hole("0.4", "ODD", "4") + line("0.3") + line("0.15") + line("0") +
                      "</LayerFeature>\n<LayerFeature layerRef=\"SILK\">\n" + line("0.1") + "</LayerFeature>\n"));
    EXPECT_NE(sections.find("\nholes 4\nsmallest hole (mm) 0.4\nsmallest track (mm) 0.15\n"), std::string::npos)
        << sections;
    EXPECT_NE(sections.find("\ndiameter (mm) holes plated via nonplated other\n0.4 3 0 1 1 1\n10 1 1 0 0 0\n"),
              std::string::npos)
        << sections;
}

TEST(Info, ThicknessIsThatOfTheStackupOrOfItsOnlyGroup)
{
    const std::string group = "<StackupGroup name=\"G\" thickness=\"1.2\"></StackupGroup>";
    EXPECT_NE(Sections(BoardWithStep("", "<Stackup overallThickness=\"1.60\">" + group + "</Stackup>\n"))
                  .find("\nthickness (mm) 1.6\n"),
              std::string::npos);
    EXPECT_NE(Sections(BoardWithStep("", "<Stackup>" + group + "</Stackup>\n")).find("\nthickness (mm) 1.2\n"),
              std::string::npos);
    EXPECT_EQ(Sections(BoardWithStep("", "<Stackup>" + group + group + "</Stackup>\n")).find("thickness"),
              std::string::npos);
}

TEST(Info, GoesIntoAFileAllAtOnce)
{
    const TempFolder folder;
    const std::string file = folder.Path("info.txt");
    EXPECT_EQ(RunProgram({"info", ExampleBoard(), "-o", file}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(file), RunProgram({"info", ExampleBoard()}).out);
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"info.txt"});
}

TEST(Info, LeavesAGoodFileWhereTheDiskIsFull)
{
    const TempFolder folder;
    const std::string file = folder.Save("info.txt", "good");
    Setting small;
    small.fileLimit = 100;
    EXPECT_EQ(RunProgram({"info", ExampleBoard(), "-o", file}, small),
              Failure(file + ": cannot be written: File too large"));
    EXPECT_EQ(Bytes(file), "good");
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"info.txt"});
}

TEST(Info, FullOutputIsAnError)
{
    Setting full;
    full.output = "/dev/full";
    EXPECT_EQ(RunProgram({"info", ExampleBoard()}, full),
              Failure("standard output: cannot be written: No space left on device"));
    EXPECT_EQ(RunProgram({"info", ExampleBoard(), "-o", "/dev/full"}),
              Failure("/dev/full: cannot be written: No space left on device"));
}

TEST(Info, IsNeverWrittenOverTheBoard)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"info", board, "-o", board}),
              Failure(board + ": is the board itself, which is never overwritten"));
    EXPECT_EQ(Bytes(board), SmallBoard());
}

TEST(Info, ShowsABarOnATerminalAndWipesItOut)
{
    if (const std::string why = WhyNoTerminal(); !why.empty()) {
        GTEST_SKIP() << why;
    }
    Setting terminal;
    terminal.isOnTerminal = true;
    const std::string shown = RunProgram({"info", ExampleBoard()}, terminal).err;
    const std::string wipe = "\r\x1b[K";
    const std::string bar = wipe + "Reading " + ExampleBoard() + " [";
    EXPECT_TRUE(shown.starts_with(bar + std::string(25, ' ') + "]   0%")) << shown;
    EXPECT_TRUE(shown.ends_with(bar + std::string(25, '#') + "] 100%" + wipe)) << shown;
}

}  // namespace
}  // namespace ipc2581::tests
