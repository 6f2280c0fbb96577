#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// True if a value is taken that the beginning of a line leaves open: behind its last closed value stands a word that
// is tested for, and no value that is closed.
bool CutsAValue(const BoardLine & line, std::string_view beginning)
{
    if (!line.isScanned) {
        return false;
    }
    std::size_t behind = 0;
    bool isOpen = false;
    for (std::size_t at = 0; at < beginning.size(); ++at) {
        if (beginning[at] == '"') {
            isOpen = !isOpen;
            behind = isOpen ? behind : at + 1;
        }
    }
    const std::string_view rest = beginning.substr(behind);
    // The shape is looked for in the token itself.
    if (rest.find("shape") != std::string_view::npos) {
        return false;
    }
    for (const std::string_view word : line.words) {
        if (rest.find(word) != std::string_view::npos) {
            return true;
        }
    }
    return rest.find('=') != std::string_view::npos;
}

TEST(EndOfFile, TheWholeBoardFillsTheModel)
{
    const Outcome outcome = ModelFiles().Read(WholeBoardBytes());
    EXPECT_FALSE(outcome.isCut);
    EXPECT_EQ(outcome.sizes,
              (ModelSizes{{"colours", 1},    {"components", 1},     {"designators", 1},  {"entries", 1},
                          {"groups", 1},     {"items", 1},          {"lands", 1},        {"layer features", 1},
                          {"layer pads", 1}, {"layers", 1},         {"logical nets", 1}, {"net pins", 1},
                          {"numbers", 89},   {"packages", 1},       {"pad stacks", 1},   {"physical nets", 1},
                          {"pins", 1},       {"points", 1},         {"references", 3},   {"sets", 3},
                          {"shapes", 27},    {"stackup layers", 1}, {"steps", 12},       {"targets", 1},
                          {"texts", 82}}));
}

TEST(EndOfFile, BehindEveryLineKeepsWhatWasRead)
{
    const MessageBoxes boxes;
    ModelFiles files;
    std::string bytes;
    ModelSizes before;
    for (const BoardLine & line : WholeBoard) {
        bytes.append(line.text).append("\n");
        const Outcome outcome = files.Read(bytes);
        EXPECT_FALSE(outcome.isCut) << line.text;
        EXPECT_EQ(Shrunk(before, outcome.sizes), "") << line.text;
        before = outcome.sizes;
    }
    EXPECT_EQ(MessageBoxes::Texts(), std::vector<std::string>{});
}

TEST(EndOfFile, AMissingLastLineEndChangesNothing)
{
    ModelFiles files;
    std::string bytes;
    for (const BoardLine & line : WholeBoard) {
        const ModelSizes without = files.Read(bytes.append(line.text)).sizes;
        EXPECT_EQ(without, files.Read(bytes.append("\n")).sizes) << line.text;
    }
}

TEST(EndOfFile, WithinALineThrowsWhereItCutsAValueAndNowhereElse)
{
    const MessageBoxes boxes;
    ModelFiles files;
    std::string bytes;
    ModelSizes before;
    for (const BoardLine & line : WholeBoard) {
        for (std::size_t length = 1; length <= line.text.size(); ++length) {
            const std::string_view beginning = line.text.substr(0, length);
            const Outcome outcome = files.Read(bytes + std::string(beginning));
            EXPECT_EQ(outcome.isCut, CutsAValue(line, beginning)) << beginning;
            if (!outcome.isCut) {
                EXPECT_EQ(Shrunk(before, outcome.sizes), "") << beginning;
                before = outcome.sizes;
            }
        }
        bytes.append(line.text).append("\n");
    }
    EXPECT_EQ(MessageBoxes::Texts(), std::vector<std::string>{});
}

TEST(EndOfFile, WithinTheIndentThrowsWhereALineOfBlanksDoes)
{
    ModelFiles files;
    EXPECT_TRUE(files.Read("   ").isCut);
    EXPECT_TRUE(files.Read("<Content>\n   ").isCut);
    EXPECT_TRUE(files.Read("<Content>\n<DictionaryColor>\n   ").isCut);
    EXPECT_TRUE(files.Read("<LogisticHeader>\n   ").isCut);
    EXPECT_TRUE(files.Read("<Bom>\n<BomItem>\n   ").isCut);
    EXPECT_TRUE(files.Read("<Ecad>\n<CadData>\n<Step>\n<Package>\n<Pin>\n   ").isCut);
    EXPECT_FALSE(files
                     .Read(Below(R"(
<Content>
<DictionaryStandard units="MM">
   )"))
                     .isCut);
    EXPECT_FALSE(files
                     .Read(Below(R"(
<Content>
<DictionaryStandard units="MM">
<EntryStandard id="a">
   )"))
                     .isCut);
    EXPECT_FALSE(files
                     .Read(Below(R"(
<Content>
<DictionaryUser units="MM">
   )"))
                     .isCut);
}

}  // namespace
