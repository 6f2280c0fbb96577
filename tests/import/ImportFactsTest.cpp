#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "import/Import.h"
#include "tests/import/facts/Fact.h"
#include "tests/import/facts/FileFacts.h"
#include "tests/import/facts/ModelFacts.h"
#include "tests/support/Files.h"

namespace ipc2581::facts {
namespace {

namespace fs = std::filesystem;

// The boards in the folder, none if it is not there.
std::vector<fs::path> BoardsIn(const fs::path & folder)
{
    std::vector<fs::path> boards;
    std::error_code isMissing;
    for (const fs::directory_entry & entry : fs::directory_iterator(folder, isMissing)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(".xml") || name.ends_with(".xml.zst")) {
            boards.push_back(entry.path());
        }
    }
    std::sort(boards.begin(), boards.end());
    return boards;
}

std::string TestName(const testing::TestParamInfo<fs::path> & info)
{
    std::string name = info.param.filename().string();
    name.resize(name.find('.'));
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

void ExpectFactsOfFile(const fs::path & path)
{
    const auto imported = Import(path);
    ASSERT_NE(imported.board, nullptr);
    const auto comparisons = Compare(FactsOfFile(path.string()), FactsOfModel(*imported.board));
    const bool isRight = std::all_of(comparisons.begin(), comparisons.end(),
                                     [](const KindComparison & comparison) { return comparison.IsRight(); });
    EXPECT_TRUE(isRight) << Table(comparisons, 3);
}

class ImportFacts : public testing::TestWithParam<fs::path> {};

TEST_P(ImportFacts, AreThoseOfTheFile)
{
    if (GetParam().extension() == ".xml") {
        ExpectFactsOfFile(GetParam());
        return;
    }
    const tests::TempFolder folder;
    const std::string unpacked = folder.Path("board.xml");
    if (std::system(("zstd -dqo '" + unpacked + "' '" + GetParam().string() + "'").c_str()) != 0) {
        GTEST_SKIP() << "zstd cannot unpack " << GetParam();
    }
    ExpectFactsOfFile(unpacked);
}

INSTANTIATE_TEST_SUITE_P(Examples, ImportFacts, testing::ValuesIn(BoardsIn(IPC2581_IMPORT_EXAMPLES)), TestName);
INSTANTIATE_TEST_SUITE_P(Boards, ImportFacts, testing::ValuesIn(BoardsIn(IPC2581_BOARDS)), TestName);

TEST(ImportFactsOfBoards, AreLookedAt)
{
    if (BoardsIn(IPC2581_BOARDS).empty()) {
        GTEST_SKIP() << "no real boards in " << IPC2581_BOARDS;
    }
}

TEST(ImportFactsOfExamples, AreLookedAt)
{
    EXPECT_FALSE(BoardsIn(IPC2581_IMPORT_EXAMPLES).empty());
}

}  // namespace
}  // namespace ipc2581::facts
