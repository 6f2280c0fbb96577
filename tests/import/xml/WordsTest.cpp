#include "import/xml/Words.h"

#include <algorithm>
#include <deque>
#include <string>
#include <unordered_set>

#include <gtest/gtest.h>

namespace ipc2581::detail {
namespace {

TEST(Words, StandInTheOrderOfTheAlphabetAndOnce)
{
    EXPECT_TRUE(std::is_sorted(KnownWords.begin(), KnownWords.end()));
    EXPECT_EQ(std::adjacent_find(KnownWords.begin(), KnownWords.end()), KnownWords.end());
    EXPECT_EQ(KnownWords.front(), "");
}

TEST(Words, AreKnownByTheirPlace)
{
    EXPECT_EQ(W(""), 0);
    EXPECT_EQ(KnownWords[W("Component")], "Component");
    EXPECT_EQ(KnownWords[W("yOffset")], "yOffset");
}

TEST(WordTable, KnowsTheWordsOfTheImport)
{
    WordTable table;
    EXPECT_EQ(table.Of("Component", false), W("Component"));
    EXPECT_EQ(table.Of("x", false), W("x"));
    EXPECT_EQ(table.Of("component", false), KnownWords.size());
    EXPECT_EQ(table.Names().at(W("Component")), "Component");
}

TEST(WordTable, GivesNumbersToOtherNamesInTurn)
{
    WordTable table;
    const std::string first = "one";
    const std::string second = "two";
    EXPECT_EQ(table.Of(first.c_str(), false), KnownWords.size());
    EXPECT_EQ(table.Of(second.c_str(), false), KnownWords.size() + 1);
    EXPECT_EQ(table.Of(first.c_str(), false), KnownWords.size());
    ASSERT_EQ(table.Names().size(), KnownWords.size() + 2);
    EXPECT_EQ(table.Names()[KnownWords.size()], "one");
    EXPECT_EQ(table.Names()[KnownWords.size() + 1], "two");
}

TEST(WordTable, KnowsNoNameOfAnotherNamespace)
{
    WordTable table;
    const std::string name = "Component";
    const Word foreign = table.Of(name.c_str(), true);
    EXPECT_GE(foreign, KnownWords.size());
    EXPECT_EQ(table.Of(name.c_str(), false), W("Component"));
    EXPECT_EQ(table.Of(name.c_str(), true), foreign);
    EXPECT_EQ(table.Names()[foreign], "Component");
}

TEST(WordTable, FindsEachOfManyNamesAgain)
{
    WordTable table;
    std::deque<std::string> names;
    for (std::size_t i = 0; i < 60'000; ++i) {
        names.push_back("name" + std::to_string(i));
        ASSERT_EQ(table.Of(names.back().c_str(), i % 2 == 0), KnownWords.size() + i);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        ASSERT_EQ(table.Of(names[i].c_str(), i % 2 == 0), KnownWords.size() + i);
        ASSERT_EQ(table.Names()[KnownWords.size() + i], names[i]);
    }
}

TEST(WordTable, HasRoomForAllNumbersAndNoMore)
{
    WordTable table;
    std::deque<std::string> names;
    std::unordered_set<Word> words;
    for (std::size_t i = KnownWords.size(); i < 65'536; ++i) {
        names.push_back(std::to_string(i));
        words.insert(table.Of(names.back().c_str(), false));
    }
    EXPECT_EQ(words.size(), names.size());
    const std::string more = "more";
    EXPECT_THROW(table.Of(more.c_str(), false), std::length_error);
    EXPECT_EQ(table.Of("Component", false), W("Component"));
}

TEST(WordTable, CutsAVeryLongName)
{
    WordTable table;
    const std::string name(1000, 'n');
    const Word word = table.Of(name.c_str(), false);
    EXPECT_EQ(table.Names()[word], name.substr(0, 100));
}

}  // namespace
}  // namespace ipc2581::detail
