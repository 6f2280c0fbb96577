#include "ipc2581/base/lines/LineFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/platform/Afx.h"
#include "tests/support/Files.h"

namespace {

using ipc2581::detail::ReadAhead;
using ipc2581::tests::Bytes;
using ipc2581::tests::FullDevice;
using ipc2581::tests::HasFullDevice;
using ipc2581::tests::NoFullDevice;
using ipc2581::tests::TempFolder;
using ipc2581::tests::WrittenText;

using Texts = std::vector<std::string>;

// What is read at once, and how much the lines around it differ from that.
constexpr std::size_t BlockSize = 131072;
constexpr std::size_t Around = 40;

class LineFile : public testing::Test {
protected:
    // Opens the file with these bytes for reading and writing.
    void Open(std::string_view bytes)
    {
        path = folder.Save("lines", bytes);
        ASSERT_TRUE(lines.Open(path.c_str(), "r+b"));
    }
    std::string Next()
    {
        std::string_view line;
        return lines.NextLine(line) ? std::string(line) : "no line";
    }
    Texts Rest()
    {
        Texts rest;
        std::string_view line;
        while (lines.NextLine(line)) {
            rest.emplace_back(line);
        }
        EXPECT_TRUE(line.empty());
        return rest;
    }
    void Write(std::string_view text) { lines.Write(text.data(), text.size()); }
    // In the place of as many bytes.
    void Overwrite(std::string_view bytes) { lines.WriteBytes(bytes.data(), bytes.size()); }

    TempFolder folder;
    std::string path;
    ipc2581::detail::LineFile lines;
};

// A line whose bytes tell their places.
std::string LongLine(std::size_t size)
{
    std::string line(size, ' ');
    for (std::size_t i = 0; i < size; ++i) {
        line[i] = static_cast<char>('a' + i % 23);
    }
    return line;
}

TEST_F(LineFile, CutsLinesAtTheirEnds)
{
    Open("one\n\ntwo\r\n\r\n\rthree\r\r\nfour\n \nlast");
    EXPECT_EQ(Rest(), (Texts{"one", "", "two", "", "\rthree\r", "four", " ", "last"}));
    EXPECT_EQ(Next(), "no line");
}

TEST_F(LineFile, KeepsACarriageReturnAtTheEndOfAFileWithoutALineEnd)
{
    Open("one\ntwo\r");
    EXPECT_EQ(Rest(), (Texts{"one", "two\r"}));
}

TEST_F(LineFile, KeepsEveryByte)
{
    std::string all;
    for (int ch = 0; ch < 256; ++ch) {
        if (ch != '\n') {
            all += static_cast<char>(ch);
        }
    }
    Open(all + "\n" + all);
    EXPECT_EQ(Rest(), (Texts{all, all}));
}

TEST_F(LineFile, HasNoLineInAnEmptyFile)
{
    Open("");
    EXPECT_EQ(Rest(), Texts{});
}

TEST_F(LineFile, TakesLinesOfEveryLengthAroundABlock)
{
    for (const std::string_view lineEnd : {"\n", "\r\n"}) {
        for (std::size_t size = BlockSize - Around; size <= BlockSize + Around; ++size) {
            const std::string line = LongLine(size);
            Open(line + std::string(lineEnd) + "short" + std::string(lineEnd) + line);
            ASSERT_EQ(Rest(), (Texts{line, "short", line})) << size;
        }
    }
}

TEST_F(LineFile, TakesShortLinesAcrossTheEndOfABlock)
{
    for (std::size_t size = BlockSize - Around; size <= BlockSize + 2; ++size) {
        const std::string line = LongLine(size);
        Open(line + "\nfirst\r\n\n\r\nsecond with more than sixteen bytes\r\nend");
        ASSERT_EQ(Rest(), (Texts{line, "first", "", "", "second with more than sixteen bytes", "end"})) << size;
    }
}

TEST_F(LineFile, TakesALineOfManyBlocksBetweenShortOnes)
{
    for (const std::size_t size : {2 * BlockSize - 1, 2 * BlockSize, 2 * BlockSize + 1, 5 * BlockSize + 7}) {
        const std::string line = LongLine(size);
        Open("a\n" + line + "\nb\n" + line);
        ASSERT_EQ(Rest(), (Texts{"a", line, "b", line})) << size;
    }
}

TEST_F(LineFile, TakesManyBlocksOfShortLines)
{
    Texts expected;
    std::string bytes;
    for (std::size_t i = 0; i < 30000; ++i) {
        expected.push_back(LongLine(i % 47));
        bytes.append(expected.back()).append(i % 3 == 0 ? "\r\n" : "\n");
    }
    Open(bytes);
    EXPECT_TRUE(Rest() == expected);
}

TEST_F(LineFile, LetsEveryLineBeReadBeyondItsEnds)
{
    Open("first\n" + LongLine(BlockSize - 3) + "\nx\n" + LongLine(3 * BlockSize) + "\nlast");
    std::string_view line;
    std::size_t count = 0;
    while (lines.NextLine(line)) {
        const std::string around(line.data() - ReadAhead, line.size() + 2 * ReadAhead);
        EXPECT_EQ(std::string_view(around).substr(ReadAhead, line.size()), line);
        ++count;
    }
    EXPECT_EQ(count, 5u);
}

TEST_F(LineFile, HasNoLineOnceItIsClosed)
{
    Open("one\ntwo\n");
    EXPECT_EQ(Next(), "one");
    lines.Close();
    EXPECT_FALSE(lines.IsOpen());
    EXPECT_EQ(Next(), "no line");
    char byte = 0;
    EXPECT_EQ(lines.Read(&byte, 1), 0u);
    EXPECT_NO_THROW(lines.Close());
    EXPECT_NO_THROW(lines.Flush());
}

TEST_F(LineFile, HasNoLineBeforeItIsOpen)
{
    EXPECT_EQ(Next(), "no line");
    EXPECT_THROW(Write("x"), CFileException);
    EXPECT_THROW(lines.Reserve(1), CFileException);
}

TEST_F(LineFile, StartsAfreshInEachFile)
{
    Open("one\ntwo\n");
    EXPECT_EQ(Next(), "one");
    lines.Close();
    Open("three\nfour\n");
    EXPECT_EQ(Rest(), (Texts{"three", "four"}));
}

TEST_F(LineFile, DoesNotOpenWhatIsNotThere)
{
    EXPECT_FALSE(lines.Open(folder.Path("none").c_str(), "rb"));
    EXPECT_FALSE(lines.IsOpen());
    EXPECT_EQ(Next(), "no line");
}

TEST_F(LineFile, WritesBehindTheLastLineRead)
{
    Open("one\ntwo\nthree\nfour\n");
    EXPECT_EQ(Next(), "one");
    Overwrite("TWO\n");
    EXPECT_EQ(Next(), "three");
    Overwrite("FOUR\nfive\n");
    EXPECT_EQ(Next(), "no line");
    lines.Close();
    EXPECT_EQ(Bytes(path), "one\nTWO\nthree\nFOUR\nfive\n");
}

TEST_F(LineFile, ReadsBehindWhatWasWritten)
{
    Open("one\ntwo\nthree\n");
    Overwrite("ONE\n");
    EXPECT_EQ(Rest(), (Texts{"two", "three"}));
    Write("four");
    lines.Flush();
    EXPECT_EQ(Bytes(path), "ONE\ntwo\nthree\nfour");
}

TEST_F(LineFile, WritesAndReadsInTurnAcrossBlocks)
{
    const std::string line = LongLine(BlockSize - 2) + "\n";
    Open(line + line + line + line);
    EXPECT_EQ(Next() + "\n", line);
    std::string other = line;
    std::reverse(other.begin(), other.end() - 1);
    Overwrite(other);
    EXPECT_EQ(Next() + "\n", line);
    Overwrite(other);
    lines.Close();
    EXPECT_TRUE(Bytes(path) == line + other + line + other);
}

TEST_F(LineFile, ReadsBytesAndLinesInTurn)
{
    Open("one\ntwo\nthree");
    std::string bytes(5, '.');
    EXPECT_EQ(lines.Read(bytes.data(), 5), 5u);
    EXPECT_EQ(bytes, "one\nt");
    EXPECT_EQ(Next(), "wo");
    EXPECT_EQ(lines.Read(bytes.data(), 0), 0u);
    EXPECT_EQ(Next(), "three");
    EXPECT_EQ(lines.Read(bytes.data(), 5), 0u);
}

TEST_F(LineFile, ReadsBytesOfManyBlocks)
{
    const std::string all = LongLine(3 * BlockSize + 5);
    Open(all);
    std::string bytes(all.size() + 10, '.');
    EXPECT_EQ(lines.Read(bytes.data(), bytes.size()), all.size());
    EXPECT_TRUE(bytes.substr(0, all.size()) == all);
}

TEST_F(LineFile, WritesPiecesOfEveryLengthAroundABlock)
{
    std::string expected;
    Open("");
    for (std::size_t size = BlockSize - 5; size <= BlockSize + 5; ++size) {
        const std::string piece = LongLine(size) + "\n";
        Write(piece);
        Write("");
        Write("x\n");
        expected += piece + "x\n";
    }
    lines.Close();
    EXPECT_TRUE(WrittenText(path) == expected);
}

TEST_F(LineFile, WritesWhatWasCommittedOfItsRoom)
{
    Open("");
    for (const std::size_t room : {std::size_t(1), std::size_t(10), BlockSize, 2 * BlockSize + 1, std::size_t(3)}) {
        char * const out = lines.Reserve(room);
        std::fill_n(out, room, 'w');
        lines.Commit(out + (room + 1) / 2);
    }
    lines.Close();
    EXPECT_TRUE(Bytes(path) == std::string(1 + 5 + BlockSize / 2 + BlockSize + 1 + 2, 'w'));
}

TEST_F(LineFile, WritesWhatIsBufferedWhenItGoes)
{
    path = folder.Save("lines", "");
    {
        ipc2581::detail::LineFile file;
        ASSERT_TRUE(file.Open(path.c_str(), "r+b"));
        file.Write("one\n", 4);
        EXPECT_EQ(Bytes(path), "");
    }
    EXPECT_EQ(WrittenText(path), "one\n");
}

TEST_F(LineFile, TellsTheFileAndTheCauseOfAFailedWrite)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    ASSERT_TRUE(lines.Open(FullDevice, "r+b"));
    Write("one\n");
    try {
        lines.Flush();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const CFileException & exception) {
        EXPECT_EQ(std::string(exception.what()),
                  "cannot write " + std::string(FullDevice) + ": " + std::generic_category().message(ENOSPC));
    }
    try {
        lines.Close();
    }
    catch (const CFileException &) {
        // The C library of Windows may try once more.
        EXPECT_TRUE(ipc2581::detail::WritesReturns);
    }
    EXPECT_FALSE(lines.IsOpen());
}

TEST_F(LineFile, IsClosedAlsoWhenThatFails)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    ASSERT_TRUE(lines.Open(FullDevice, "r+b"));
    Write("one\n");
    EXPECT_THROW(lines.Close(), CFileException);
    EXPECT_FALSE(lines.IsOpen());
    EXPECT_EQ(Next(), "no line");
}

TEST_F(LineFile, TellsAFailedRead)
{
    if (!lines.Open(folder.Path(".").c_str(), "rb")) {
        GTEST_SKIP() << "this system opens no folder";
    }
    std::string_view line;
    EXPECT_THROW(lines.NextLine(line), CFileException);
}

}  // namespace
