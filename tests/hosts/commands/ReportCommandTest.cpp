#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char * SmallReport = "ASSEMBLY 1\n\nDictionaryStandard Units: \n";

TEST(Report, LiesBesideTheBoard)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", Bytes(ExampleBoard()));
    EXPECT_EQ(RunProgram({"report", board}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(folder.Path("board.txt")), "ASSEMBLY 1\n"
                                               "\n"
                                               "SetpRef: blinker\n"
                                               "LayerRef: SILK_TOP\n"
                                               "LayerRef: MASK_TOP\n"
                                               "LayerRef: TOP\n"
                                               "LayerRef: CORE\n"
                                               "LayerRef: BOTTOM\n"
                                               "LayerRef: SILK_BOTTOM\n"
                                               "LayerRef: DRILL\n"
                                               "BomRef: blinker-bom\n"
                                               "DictionaryStandard Units: MILLIMETER\n");
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"board.cvg", "board.txt"}));
}

TEST(Report, IsNamedAfterAllInFrontOfTheFirstEnding)
{
    const TempFolder folder;
    folder.Save("a.cvg.old.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"report", "a.cvg.old.cvg"}, {.folder = folder.Path("")}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(folder.Path("a.txt")), SmallReport);
}

TEST(Report, LiesBesideTheBoardInAFolderWithTheSameEnding)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("all.cvg"));
    const std::string board = folder.Save("all.cvg/board.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"report", board}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(folder.Path("all.cvg/board.txt")), SmallReport);
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"all.cvg"});
}

TEST(Report, IsNamedAfterABoardOfAnyName)
{
    for (const std::string name : {"board.xml", "board.CVG", "board", "board.cvg.gz"}) {
        const TempFolder folder;
        const std::string board = folder.Save(name, SmallBoard());
        const bool isPacked = name.ends_with(".gz");
        EXPECT_EQ(isPacked ? RunShell("mv board.cvg.gz b && gzip -c b > board.cvg.gz && rm b && ipc2581 report " + name,
                                      folder.Path(""))
                           : RunProgram({"report", board}),
                  (Result{0, "", ""}));
        EXPECT_EQ(Bytes(folder.Path("board.txt")), SmallReport);
        EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{name, "board.txt"}));
    }
    const TempFolder folder;
    folder.Save("a.b.xml", SmallBoard());
    EXPECT_EQ(RunShell("gzip a.b.xml && ipc2581 report a.b.xml.gz", folder.Path("")), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(folder.Path("a.b.txt")), SmallReport);
}

TEST(Report, IsWrittenWhereTheOutputIsNamed)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard());
    const std::string out = folder.Path("other");
    EXPECT_EQ(RunProgram({"report", board, "-o", out}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(out), SmallReport);
    EXPECT_EQ(RunProgram({"report", board, "-o", "-"}), (Result{0, SmallReport, ""}));
    EXPECT_EQ(RunProgram({"report", "-"}, {.folder = folder.Path(""), .input = board}), (Result{0, SmallReport, ""}));
    EXPECT_EQ(RunProgram({"report", "/dev/stdin"}, {.input = board}), (Result{0, SmallReport, ""}));
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"board.cvg", "other"}));
}

TEST(Report, ReplacesOnlyByForce)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard());
    const std::string report = folder.Save("board.txt", "good");
    const Result refused = Failure(report + ": is there already; --force replaces it");
    EXPECT_EQ(RunProgram({"report", board}), refused);
    EXPECT_EQ(RunProgram({"report", board, "-o", report}), refused);
    EXPECT_EQ(Bytes(report), "good");
    EXPECT_EQ(RunProgram({"report", board, "--force"}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(report), SmallReport);
    const std::string text = folder.Save("text.txt", SmallBoard());
    EXPECT_EQ(RunProgram({"report", text, "--force"}),
              Failure(text + ": is the board itself, which is never overwritten"));
}

TEST(Report, LeavesNothingInTheTemporaryFolder)
{
    const TempFolder folder;
    const TempFolder temporary;
    const std::string board = folder.Save("board.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"report", board}, {.temporaryFolder = temporary.Path("")}), (Result{0, "", ""}));
    EXPECT_TRUE(Names(temporary.Path("")).empty());
}

TEST(Report, DoesNotTrustATemporaryFolderWithTheEnding)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard());
    fs::create_directory(folder.Path("temporary.cvg"));
    const Result result = RunProgram({"report", board}, {.temporaryFolder = folder.Path("temporary.cvg")});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.ends_with(": the folder for temporary files must not have \".cvg\" in its name\n"))
        << result;
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"board.cvg", "temporary.cvg"}));
}

TEST(Report, LeavesAGoodOneWhereTheDiskIsFull)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", Bytes(ExampleBoard()));
    const std::string report = folder.Save("board.txt", "good");
    EXPECT_EQ(RunProgram({"report", board, "--force"}, {.fileLimit = 150}),
              Failure(report + ": cannot be written: File too large"));
    EXPECT_EQ(Bytes(report), "good");
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"board.cvg", "board.txt"}));
}

}  // namespace
}  // namespace ipc2581::tests
