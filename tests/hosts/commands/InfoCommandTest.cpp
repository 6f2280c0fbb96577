#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

TEST(Info, TellsOfTheExampleBoardInEachFormat)
{
    ExpectGoldenListings("info");
}

TEST(Info, TellsOfABoardWithNothingInIt)
{
    const TempFolder folder;
    const Result info = RunProgram({"info", folder.Save("small.cvg", SmallBoard())});
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
    EXPECT_NE(RunProgram({"info", board})
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
