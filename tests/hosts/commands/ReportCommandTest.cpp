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

TEST(Report, NeedsTheEndingInTheName)
{
    const TempFolder folder;
    for (const std::string name : {"board.xml", "board.CVG"}) {
        const std::string board = folder.Save(name, SmallBoard());
        EXPECT_EQ(RunProgram({"report", board}),
                  Failure(board + ": has no \".cvg\" in its name, which the report's name is made from"));
    }
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
    EXPECT_EQ(RunProgram({"report", board}, {.fileLimit = 150}),
              Failure(report + ": cannot be written: File too large"));
    EXPECT_EQ(Bytes(report), "good");
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"board.cvg", "board.txt"}));
}

}  // namespace
}  // namespace ipc2581::tests
