#include "ipc2581/base/Scan.h"

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

using ipc2581::detail::FindBlank;
using ipc2581::detail::FindLineFeed;
using ipc2581::detail::Ordinary;
using ipc2581::detail::ReadAhead;
using ipc2581::detail::SkipBlanks;
using ipc2581::detail::SkipOrdinary;

// One of the searches, and the characters that it stops at.
struct Search {
    const char * name;
    const char * (*find)(const char * at, const char * end);
    bool (*stopsAt)(char ch);
};

bool IsOrdinary(char ch)
{
    return std::string_view(" \"=<>/").find(ch) == std::string_view::npos;
}

class Scan : public testing::TestWithParam<Search> {
protected:
    // Searches a text between two margins, in which every byte is one that the search stops at.
    static std::size_t Found(std::string_view text)
    {
        char stop = 0;
        while (!GetParam().stopsAt(stop)) {
            ++stop;
        }
        const std::string margin(ReadAhead, stop);
        const std::string buffer = margin + std::string(text) + margin;
        const char * const begin = buffer.data() + ReadAhead;
        return static_cast<std::size_t>(GetParam().find(begin, begin + text.size()) - begin);
    }
    static std::size_t Expected(std::string_view text)
    {
        return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), GetParam().stopsAt) - text.begin());
    }
};

INSTANTIATE_TEST_SUITE_P(Searches, Scan,
                         testing::Values(Search{"SkipBlanks", &SkipBlanks, [](char ch) { return ch != ' '; }},
                                         Search{"FindBlank", &FindBlank, [](char ch) { return ch == ' '; }},
                                         Search{"SkipOrdinary", &SkipOrdinary, [](char ch) { return !IsOrdinary(ch); }},
                                         Search{"FindLineFeed", &FindLineFeed, [](char ch) { return ch == '\n'; }}),
                         [](const testing::TestParamInfo<Search> & search) { return search.param.name; });

TEST_P(Scan, TellsEveryByteApart)
{
    for (int ch = 0; ch < 256; ++ch) {
        const std::string text(1, static_cast<char>(ch));
        EXPECT_EQ(Found(text), Expected(text)) << ch;
    }
}

TEST_P(Scan, FindsEveryByteAtEveryPlace)
{
    const char pass = GetParam().stopsAt(' ') ? 'a' : ' ';
    for (std::size_t size = 1; size <= 50; ++size) {
        for (std::size_t at = 0; at < size; ++at) {
            for (const char ch : std::string_view(" \"=<>/\n\r\t\0;?.a\x7F\x80\xFF", 18)) {
                std::string text(size, pass);
                text[at] = ch;
                ASSERT_EQ(Found(text), Expected(text)) << size << ' ' << at << ' ' << static_cast<int>(ch);
            }
        }
    }
}

TEST_P(Scan, StopsAtTheEnd)
{
    const char pass = GetParam().stopsAt(' ') ? 'a' : ' ';
    for (std::size_t size = 0; size <= 200; ++size) {
        EXPECT_EQ(Found(std::string(size, pass)), size);
    }
}

TEST_P(Scan, FindsTheFirstOfMany)
{
    std::mt19937 random(2581);
    for (int i = 0; i < 20000; ++i) {
        std::string text(random() % 70, GetParam().stopsAt(' ') ? 'a' : ' ');
        for (std::size_t count = random() % 4; count > 0 && !text.empty(); --count) {
            text[random() % text.size()] = static_cast<char>(random() % 256);
        }
        ASSERT_EQ(Found(text), Expected(text)) << testing::PrintToString(text);
    }
}

TEST(Ordinary, IsAllButBlanksQuotesAndWhatHasAMeaning)
{
    for (int ch = 0; ch < 256; ++ch) {
        EXPECT_EQ(Ordinary[static_cast<unsigned char>(ch)], IsOrdinary(static_cast<char>(ch))) << ch;
    }
}

}  // namespace
