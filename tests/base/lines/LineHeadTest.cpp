#include "ipc2581/base/lines/LineHead.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/FirstToken.h"
#include "ipc2581/base/lines/LineFile.h"
#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "tests/support/Files.h"

namespace {

using ipc2581::detail::Examine;
using ipc2581::detail::FirstToken;
using ipc2581::detail::HeadSize;
using ipc2581::detail::LineHead;
using ipc2581::detail::LineHeads;
using ipc2581::detail::ReadAhead;
using ipc2581::tests::Lines;

// Lines one after another, as a reader would ask for them.
class Reading {
public:
    // The head that is expected of the line, or the empty text; it is remembered in any case.
    std::string Next(std::string_view line)
    {
        m_buffer.assign(line).append(ReadAhead, '\n');
        const LineHead * const expected = m_heads.Expected(m_buffer.data());
        const std::string text = expected == nullptr ? "" : std::string(expected->text.data(), expected->size);
        const std::size_t tokenAt = line.find_first_not_of(' ');
        const std::size_t end = std::min(line.find(' ', tokenAt), line.size());
        if (expected != nullptr && expected->size == end) {
            m_last = *expected;
            m_heads.TakeExpected();
            return text;
        }
        m_heads.Remember(line.substr(0, end), tokenAt, Examine(line.substr(tokenAt, end - tokenAt)), end);
        return text;
    }
    [[nodiscard]] const LineHead & Last() const { return m_last; }

private:
    LineHeads m_heads;
    LineHead m_last;
    std::string m_buffer;
};

TEST(LineHeads, ExpectsNothingAtFirst)
{
    Reading reading;
    EXPECT_EQ(reading.Next("  <Set>"), "");
    EXPECT_EQ(reading.Next("  <Set>"), "");
}

TEST(LineHeads, ExpectsWhatCameBehindALineLikeTheLast)
{
    Reading reading;
    for (const std::string_view line : {"  <Set net=\"1\">", "    <Pad>", "  </Set>", "  <Set net=\"2\">"}) {
        EXPECT_EQ(reading.Next(line), "") << line;
    }
    EXPECT_EQ(reading.Next("    <Pad>"), "    <Pad>");
    EXPECT_EQ(reading.Next("  </Set>"), "  </Set>");
    EXPECT_EQ(reading.Next("  <Set net=\"3\">"), "  <Set");
    EXPECT_EQ(reading.Next("    <Hole/>"), "");
    EXPECT_EQ(reading.Next("  </Set>"), "");
    EXPECT_EQ(reading.Next("  <Set>"), "  <Set");  // the token goes on, which the caller sees
}

TEST(LineHeads, KnowsFourThatMayFollow)
{
    Reading reading;
    const std::vector<std::string> behind = {" <A>", " <B>", " <C>", " <D>"};
    for (const std::string & line : behind) {
        reading.Next(" <Set>");
        reading.Next(line);
    }
    for (const std::string & line : behind) {
        reading.Next(" <Set>");
        EXPECT_EQ(reading.Next(line), line);
    }
    reading.Next(" <Set>");
    EXPECT_EQ(reading.Next(" <E>"), "");
    reading.Next(" <Set>");
    EXPECT_EQ(reading.Next(" <A>"), "");  // the one that was found first has gone
}

TEST(LineHeads, KeepWhatTheTestsOfALineNeed)
{
    Reading reading;
    for (int i = 0; i < 3; ++i) {
        reading.Next("    <Layer name=\"TOP\"/>");
    }
    const LineHead & head = reading.Last();
    EXPECT_EQ(std::string(head.text.data(), head.size), "    <Layer");
    EXPECT_EQ(head.tested, 5);
    EXPECT_EQ(head.testedSize, 5);
    EXPECT_EQ(head.set, Examine("<Layer").set);
    EXPECT_EQ(head.plainRestAt, 10U);
    EXPECT_TRUE(head.isIndented);
    for (int i = 0; i < 3; ++i) {
        reading.Next("</Set> x");
    }
    EXPECT_EQ(reading.Last().tested, 1);
    EXPECT_EQ(reading.Last().testedSize, 4);
    EXPECT_FALSE(reading.Last().isIndented);
}

TEST(LineHeads, ForgetsLongOnes)
{
    Reading reading;
    const std::string fits = std::string(HeadSize - 3, ' ') + "<A>";
    const std::string isTooLong = " " + fits;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(reading.Next(isTooLong), "");
    }
    reading.Next(fits);
    reading.Next(fits);
    EXPECT_EQ(reading.Next(fits), fits);
}

TEST(LineHeads, StayRightWithMoreThanTheyHaveRoomFor)
{
    Reading reading;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 2000; ++i) {
            const std::string line = "  <Element" + std::to_string(i);
            const std::string expected = reading.Next(line);
            EXPECT_TRUE(expected.empty() || line.starts_with(expected)) << line << ' ' << expected;
        }
    }
    for (int i = 0; i < 3; ++i) {
        reading.Next("  <Set>");
    }
    EXPECT_EQ(reading.Next("  <Set>"), "  <Set>");
}

// What the lines of a file are, taken as expected where that is possible and read otherwise.
std::vector<std::string> LinesOf(std::string_view text, std::size_t & expected)
{
    Lines file(text);
    ipc2581::detail::LineFile & lines = file.File().Lines();
    std::vector<std::string> all;
    std::string_view line;
    for (;;) {
        if (const LineHead * const head = lines.NextExpectedLine(line)) {
            EXPECT_TRUE(line.starts_with(std::string_view(head->text.data(), head->size))) << line;
            ++expected;
        }
        else if (lines.NextLine(line)) {
            const std::size_t tokenAt = line.find_first_not_of(' ');
            if (tokenAt != std::string_view::npos) {
                const std::size_t end = std::min(line.find(' ', tokenAt), line.size());
                const FirstToken token = Examine(line.substr(tokenAt, end - tokenAt));
                lines.Heads().Remember(line.substr(0, end), tokenAt, token, end);
            }
        }
        else {
            return all;
        }
        all.emplace_back(line);
    }
}

TEST(LineFileHeads, AnExpectedLineIsTheOneThatWouldBeRead)
{
    using Texts = std::vector<std::string>;
    std::size_t expected = 0;
    EXPECT_EQ(LinesOf("  <A>\n  <A>\n  <A>\n  <A>\n", expected), Texts(4, "  <A>"));
    EXPECT_EQ(expected, 2U);
    EXPECT_EQ(LinesOf("  <A>\r\n  <A>\r\n  <A>\r\n", expected), Texts(3, "  <A>"));
    EXPECT_EQ(expected, 3U);
    // A token that goes on, a return that ends no line, a line that the file ends.
    EXPECT_EQ(LinesOf(" <A\n <A\n <AB\n <A\r<\n <A\r\r\n <A", expected),
              (Texts{" <A", " <A", " <AB", " <A\r<", " <A\r", " <A"}));
    EXPECT_EQ(expected, 3U);
    EXPECT_EQ(LinesOf(" <A x\n <A x\n <A \n <A    y\n <A  \r\n <A z", expected),
              (Texts{" <A x", " <A x", " <A ", " <A    y", " <A  ", " <A z"}));
    EXPECT_EQ(expected, 6U);
}

// The lines fill the buffer evenly, so that behind the end of the file stands what would go on as expected.
TEST(LineFileHeads, WhatIsLeftInTheBufferBehindTheEndIsNoPartOfALine)
{
    constexpr std::string_view line = "  <Pad x=\"12\"/>";
    static_assert((line.size() + 1) % 16 == 0);
    std::string text;
    for (int i = 0; i < 20000; ++i) {
        text.append(line).append(1, '\n');
    }
    for (std::size_t size = 1; size <= line.size(); ++size) {
        std::size_t expected = 0;
        const std::vector<std::string> lines = LinesOf(text + std::string(line.substr(0, size)), expected);
        ASSERT_EQ(lines.size(), 20001U) << size;
        EXPECT_EQ(lines.back(), line.substr(0, size));
        EXPECT_EQ(lines[19999], line);
        EXPECT_GT(expected, 19900U) << size;
    }
}

TEST(LineFileHeads, ALineWithoutABlankIsNeverExpected)
{
    std::size_t expected = 0;
    EXPECT_EQ(LinesOf("<A>\n<A>\n<A>\n<A> \n", expected), (std::vector<std::string>{"<A>", "<A>", "<A>", "<A> "}));
    EXPECT_EQ(expected, 1U);
}

}  // namespace
