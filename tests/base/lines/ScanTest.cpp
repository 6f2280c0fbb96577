#include "ipc2581/base/lines/Scan.h"

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using ipc2581::detail::FindBlank;
using ipc2581::detail::FindLineFeed;
using ipc2581::detail::FindNearSpecial;
using ipc2581::detail::HeadBits;
using ipc2581::detail::HeadSize;
using ipc2581::detail::LineStart;
using ipc2581::detail::Ordinary;
using ipc2581::detail::ReadAhead;
using ipc2581::detail::ShortKey;
using ipc2581::detail::SkipBlanks;
using ipc2581::detail::SpecialWalk;

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

// A text of blanks and others, in runs of up to eighty.
std::string RunsOfBlanks(std::mt19937 & random)
{
    std::string text;
    for (std::size_t runs = random() % 5; runs > 0; --runs) {
        text.append(random() % 80, ' ').append(random() % 80, "<a/\n"[random() % 4]);
    }
    return text;
}

TEST(LineStart, FindsTheFirstRunOfOtherCharactersThanBlanks)
{
    std::mt19937 random(2581);
    for (int i = 0; i < 50000; ++i) {
        const std::string text = RunsOfBlanks(random);
        for (const char behind : {' ', '<', '\n'}) {
            const std::string buffer = text + std::string(ReadAhead, behind);
            const char * const begin = buffer.data();
            const auto [start, end] = LineStart(begin).FirstToken(begin, begin + text.size());
            const std::size_t expectedStart = std::min(text.find_first_not_of(' '), text.size());
            const std::size_t expectedEnd = std::min(text.find(' ', expectedStart), text.size());
            ASSERT_EQ(static_cast<std::size_t>(start - begin), expectedStart) << text;
            ASSERT_EQ(static_cast<std::size_t>(end - begin), expectedEnd) << text;
        }
    }
}

TEST(LineStart, FindsTheLineFeedHoweverFarItIs)
{
    std::mt19937 random(2581);
    for (int i = 0; i < 50000; ++i) {
        const std::string text = RunsOfBlanks(random);
        for (const char behind : {' ', '<', '\n'}) {
            const std::string buffer = text + std::string(ReadAhead, behind);
            const char * const begin = buffer.data();
            const char * const found = LineStart(begin).LineFeed(begin, begin + text.size());
            ASSERT_EQ(static_cast<std::size_t>(found - begin), std::min(text.find('\n'), text.size())) << text;
        }
    }
}

TEST(LineStart, FindsNothingInAnEmptyLine)
{
    const std::string buffer(ReadAhead, '\n');
    EXPECT_EQ(LineStart(buffer.data()).LineFeed(buffer.data(), buffer.data()), buffer.data());
    EXPECT_EQ(LineStart().FirstToken(buffer.data(), buffer.data()), std::pair(buffer.data(), buffer.data()));
}

TEST(HeadBits, ComparesSoManyBytes)
{
    const std::string text = "      <PolyStepSegment x=\"1\" y=\"2\"/> and further on to its end";
    for (std::size_t size = 1; size <= HeadSize; ++size) {
        const HeadBits bits(size);
        EXPECT_TRUE(bits.AreEqual(text.data(), text.data())) << size;
        for (std::size_t at = 0; at < HeadSize; ++at) {
            std::string other = text;
            other[at] = '\0';
            EXPECT_EQ(bits.AreEqual(text.data(), other.data()), at >= size) << size << ' ' << at;
        }
    }
}

TEST(HeadBits, OfNoTextAreEqualToNothing)
{
    const std::string text(HeadSize + ReadAhead, '\0');
    EXPECT_FALSE(HeadBits().AreEqual(text.data(), text.data()));
}

TEST(ShortKey, IsAtATextThatBeginsWithItAndTheCharacterBehind)
{
    constexpr ShortKey key("x=", '"');
    EXPECT_EQ(key.Size(), 3U);
    const auto isAt = [&key](const char * text) { return key.IsAt((text + std::string(ReadAhead, 'a')).c_str()); };
    EXPECT_TRUE(isAt("x=\"1\""));
    EXPECT_TRUE(isAt("x=\""));
    EXPECT_FALSE(isAt("x='"));
    EXPECT_FALSE(isAt("X=\""));
    EXPECT_FALSE(isAt(" x=\""));
    EXPECT_FALSE(isAt("x\""));
}

TEST(ShortKey, TakesFifteenCharactersAndNoMore)
{
    constexpr ShortKey fits("electricalType=", '"');
    constexpr ShortKey isTooLong("layerOrGroupRef=", '"');
    const std::string margin(ReadAhead, 'a');
    EXPECT_TRUE(fits.IsAt(("electricalType=\"" + margin).c_str()));
    EXPECT_FALSE(fits.IsAt(("electricalTypo=\"" + margin).c_str()));
    EXPECT_FALSE(isTooLong.IsAt(("layerOrGroupRef=\"" + margin).c_str()));
    EXPECT_FALSE(isTooLong.IsAt(std::string(ReadAhead, '\0').c_str()));
}

TEST(FindNearSpecial, LooksAtSixteenCharacters)
{
    for (std::size_t at = 0; at < 32; ++at) {
        for (int ch = 0; ch < 256; ++ch) {
            std::string text(at, 'a');
            text += static_cast<char>(ch);
            text += std::string(ReadAhead, 'a');
            const bool isNear = at < 16 && !IsOrdinary(static_cast<char>(ch));
            EXPECT_EQ(FindNearSpecial(text.data()), isNear ? text.data() + at : nullptr) << at << ' ' << ch;
        }
    }
    EXPECT_EQ(*FindNearSpecial("12\"<                                    "), '"');
}

// The places of the characters that are not ordinary.
std::vector<std::ptrdiff_t> Specials(std::string_view text)
{
    std::vector<std::ptrdiff_t> specials;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsOrdinary(text[i])) {
            specials.push_back(static_cast<std::ptrdiff_t>(i));
        }
    }
    return specials;
}

using Places = std::pair<std::ptrdiff_t, std::ptrdiff_t>;

Places FirstAndThird(SpecialWalk & walk, const char * begin, std::ptrdiff_t from)
{
    const auto [first, third] = walk.FirstAndThird(begin + from);
    return {first - begin, third - begin};
}

TEST(SpecialWalk, TellsEveryByteApart)
{
    for (int ch = 0; ch < 256; ++ch) {
        const std::string text = std::string(1, static_cast<char>(ch)) + "a=a\"a\"" + std::string(ReadAhead, 'a');
        const char * const begin = text.data();
        SpecialWalk walk(begin, begin + 8);
        EXPECT_EQ(FirstAndThird(walk, begin, 0), IsOrdinary(static_cast<char>(ch)) ? Places(2, 6) : Places(0, 4)) << ch;
    }
}

TEST(SpecialWalk, TakesThreeAtATime)
{
    std::mt19937 random(2581);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (std::size_t count = random() % 30; count > 0; --count) {
            text.append(random() % 20, 'a').append(1, " \"=<>/"[random() % 6]);
        }
        const std::vector<std::ptrdiff_t> specials = Specials(text);
        const std::string buffer = text + std::string(ReadAhead, 'a');
        const char * const begin = buffer.data();
        SpecialWalk walk(begin, begin + text.size());
        std::ptrdiff_t from = 0;
        std::size_t next = 0;
        while (next + 2 < specials.size()) {
            ASSERT_EQ(FirstAndThird(walk, begin, from), Places(specials[next], specials[next + 2])) << text;
            from = specials[next + 2] + 1;
            next += 3;
            for (std::size_t skipped = random() % 4; skipped > 0 && next < specials.size(); --skipped) {
                from = specials[next++] + 1;
            }
        }
        ASSERT_EQ(FirstAndThird(walk, begin, from), Places(from, from)) << text;
    }
}

TEST(SpecialWalk, FindsTheThirdHoweverFarItIs)
{
    for (std::size_t distance = 0; distance <= 300; ++distance) {
        const std::string value(distance, 'a');
        const std::string text = "a=\"" + value + "\" bcd=\"" + value + "\"/>";
        const std::string buffer = text + std::string(ReadAhead, 'a');
        SpecialWalk walk(buffer.data(), buffer.data() + text.size());
        const auto gap = static_cast<std::ptrdiff_t>(distance);
        EXPECT_EQ(FirstAndThird(walk, buffer.data(), 0), Places(1, gap + 3)) << distance;
        EXPECT_EQ(FirstAndThird(walk, buffer.data(), gap + 5), Places(gap + 8, 2 * gap + 10)) << distance;
    }
}

TEST(Ordinary, IsAllButBlanksQuotesAndWhatHasAMeaning)
{
    for (int ch = 0; ch < 256; ++ch) {
        EXPECT_EQ(Ordinary[static_cast<unsigned char>(ch)], IsOrdinary(static_cast<char>(ch))) << ch;
    }
}

}  // namespace
