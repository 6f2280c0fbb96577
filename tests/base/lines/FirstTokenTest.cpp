#include "ipc2581/base/lines/FirstToken.h"

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/lines/Word.h"

namespace {

using ipc2581::detail::Examine;
using ipc2581::detail::FirstToken;
using ipc2581::detail::FirstTokenMemory;
using ipc2581::detail::ReadAhead;
using ipc2581::detail::SetOf;

bool AreEqual(const FirstToken & left, const FirstToken & right)
{
    return left.front == right.front && left.back == right.back && left.isDirty == right.isDirty &&
           left.set == right.set;
}

// Looks the token up in a buffer in which other bytes stand behind it.
FirstToken Found(FirstTokenMemory & memory, std::string_view token, char behind = '<')
{
    const std::string buffer = std::string(token) + std::string(ReadAhead, behind);
    return memory.Find(std::string_view(buffer).substr(0, token.size()));
}

struct Row {
    std::string_view token;
    int front;
    int back;
    bool isDirty;
};

const std::vector<Row> Rows = {
    {"", 0, 0, false},           {"A", 0, 0, false},      {"<A", 1, 0, false},   {"A>", 0, 1, false},
    {"<A>", 1, 1, false},        {"</A>", 1, 1, false},   {"<A/>", 1, 1, false}, {"<", 1, 0, false},
    {">", 1, 0, false},          {"<>", 1, 1, false},     {"><", 1, 1, false},   {"<<", 1, 1, false},
    {"<<A", 1, 0, true},         {"A>>", 0, 1, true},     {"<<>", 1, 1, true},   {"A<B", 0, 0, true},
    {"<A>text</A>", 1, 1, true}, {"<A>text", 1, 0, true},
};

TEST(FirstToken, CountsTheBracketsAtItsEnds)
{
    for (const Row & row : Rows) {
        const FirstToken token = Examine(row.token);
        EXPECT_EQ(token.front, row.front) << row.token;
        EXPECT_EQ(token.back, row.back) << row.token;
        EXPECT_EQ(token.isDirty, row.isDirty) << row.token;
    }
}

TEST(FirstToken, HasTheSetOfItsCharacters)
{
    EXPECT_EQ(Examine("Step/=").set, SetOf("Step/="));
    EXPECT_EQ(Examine("").set, SetOf(""));
}

TEST(FirstTokenMemory, FindsWhatAnExaminationTells)
{
    FirstTokenMemory memory;
    for (int turn = 0; turn < 2; ++turn) {
        for (const Row & row : Rows) {
            EXPECT_TRUE(AreEqual(Found(memory, row.token), Examine(row.token))) << row.token;
        }
    }
}

TEST(FirstTokenMemory, TakesATokenOfAnyLength)
{
    FirstTokenMemory memory;
    for (std::size_t size = 0; size < 80; ++size) {
        const std::string token = "<" + std::string(size, 'a') + "b";
        EXPECT_TRUE(AreEqual(Found(memory, token), Examine(token))) << size;
        EXPECT_TRUE(AreEqual(Found(memory, token + ">"), Examine(token + ">"))) << size;
    }
}

TEST(FirstTokenMemory, DoesNotLookBehindTheToken)
{
    FirstTokenMemory memory;
    for (std::size_t size = 0; size < 30; ++size) {
        const std::string token(size, 'q');
        for (const char behind : {'<', 'q', '\0', '/', '\n'}) {
            EXPECT_TRUE(AreEqual(Found(memory, token, behind), Examine(token))) << size;
        }
    }
}

TEST(FirstTokenMemory, TellsANulFromTheEnd)
{
    using namespace std::string_view_literals;
    for (const auto & [shorter, longer] : {std::pair(""sv, "\0"sv), std::pair("A"sv, "A\0"sv),
                                           std::pair("\0"sv, "\0\0"sv), std::pair("<A>"sv, "<A>\0"sv)}) {
        FirstTokenMemory memory;
        for (int turn = 0; turn < 2; ++turn) {
            EXPECT_TRUE(AreEqual(Found(memory, shorter), Examine(shorter)));
            EXPECT_TRUE(AreEqual(Found(memory, longer), Examine(longer)));
        }
    }
}

TEST(FirstTokenMemory, StaysRightWithMoreTokensThanItHasRoomFor)
{
    constexpr std::string_view alphabet("<>/=aZ\0\xFF", 8);
    FirstTokenMemory memory;
    std::mt19937 random(2581);
    for (int i = 0; i < 20000; ++i) {
        std::string token;
        for (std::size_t count = random() % 28; count > 0; --count) {
            token += alphabet[random() % alphabet.size()];
        }
        const FirstToken expected = Examine(token);
        ASSERT_TRUE(AreEqual(Found(memory, token), expected)) << testing::PrintToString(token);
        ASSERT_TRUE(AreEqual(Found(memory, token), expected)) << testing::PrintToString(token);
    }
}

}  // namespace
