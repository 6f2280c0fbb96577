#include "ipc2581/base/platform/CStdioFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include <gtest/gtest.h>

#include <unistd.h>
#if defined(_WIN32)
#include <windows.h>
#endif

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

namespace fs = std::filesystem;

constexpr unsigned kRead = CStdioFile::modeRead;
constexpr unsigned kReadWrite = CStdioFile::modeReadWrite;
constexpr unsigned kWrite = CStdioFile::modeCreate | CStdioFile::modeWrite;

// The cause that the system tells of a read in memory that is not there.
#if defined(_WIN32)
constexpr int FailedRead = EINVAL;
#else
constexpr int FailedRead = EIO;
#endif

bool Opens(const std::string & path, unsigned flags)
{
    CStdioFile file;
    return file.Open(path.c_str(), flags, nullptr) != 0;
}

Texts Read(std::string_view bytes)
{
    return Lines(bytes).Rest();
}

std::string WrittenBytes(const Texts & texts)
{
    const TempFolder folder;
    const std::string path = folder.Path("written.txt");
    CStdioFile file;
    EXPECT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
    for (const std::string & text : texts) {
        file.WriteString(text.c_str());
    }
    file.Close();
    return Bytes(path);
}

// The text of the file exception that an action raises; empty if it raises none.
template <typename Action>
std::string Failure(Action action)
{
    try {
        action();
    }
    catch (const CFileException & error) {
        return error.what();
    }
    return "";
}

void ExpectTells(const std::string & failure, const std::string & path, int cause)
{
    EXPECT_NE(failure.find(path), std::string::npos) << failure;
    EXPECT_NE(failure.find(std::generic_category().message(cause)), std::string::npos) << failure;
}

TEST(CStdioFile, FlagsHaveTheirNumbers)
{
    EXPECT_EQ(kRead, 0U);
    EXPECT_EQ(static_cast<unsigned>(CStdioFile::modeWrite), 1U);
    EXPECT_EQ(kReadWrite, 2U);
    EXPECT_EQ(static_cast<unsigned>(CStdioFile::modeCreate), 4096U);
    EXPECT_EQ(kWrite, 4097U);
}

TEST(CStdioFile, MissingFileFailsToOpenAndIsNotMade)
{
    const TempFolder folder;
    const std::string path = folder.Path("missing.xml");
    EXPECT_FALSE(Opens(path, kReadWrite));
    EXPECT_FALSE(Opens(path, kRead));
    EXPECT_FALSE(fs::exists(path));
}

TEST(CStdioFile, EmptyPathFailsToOpen)
{
    for (const unsigned flags : {kRead, kReadWrite, kWrite}) {
        EXPECT_FALSE(Opens("", flags)) << flags;
    }
}

TEST(CStdioFile, FolderFailsToOpen)
{
    const TempFolder folder;
    EXPECT_FALSE(Opens(folder.Path(""), kReadWrite));
    EXPECT_FALSE(Opens(folder.Path(""), kWrite));
}

TEST(CStdioFile, FolderIsNeverAnEmptyFile)
{
    const TempFolder folder;
    CStdioFile file;
    CString line;
    if (file.Open(folder.Path("").c_str(), kRead, nullptr) != 0) {
        ExpectTells(Failure([&] { file.ReadString(line); }), folder.Path(""), EISDIR);
    }
}

TEST(CStdioFile, FileInAMissingFolderFailsToOpen)
{
    const TempFolder folder;
    EXPECT_FALSE(Opens(folder.Path("missing/file.xml"), kWrite));
}

TEST(CStdioFile, FailedOpenRaisesNothing)
{
    CStdioFile file;
    EXPECT_NO_THROW(file.Open("/missing/file.xml", kReadWrite, nullptr));
}

TEST(CStdioFile, ReadOnlyFileFailsForReadingAndWriting)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "line\n");
    fs::permissions(path, fs::perms::owner_read);
    if (MayBeWritten(path)) {
        GTEST_SKIP() << "root may write to every file";
    }
    EXPECT_FALSE(Opens(path, kReadWrite));
    EXPECT_FALSE(Opens(path, kWrite));
    EXPECT_TRUE(Opens(path, kRead));
    // Some systems do not remove what nobody may write.
    fs::permissions(path, fs::perms::owner_all);
}

// A program that runs cannot be opened for writing, not even by root.
TEST(CStdioFile, RunningProgramFailsForReadingAndWriting)
{
    const std::string program = RunningProgram();
    if (MayBeWritten(program)) {
        GTEST_SKIP() << "this system lets a running program be written";
    }
    EXPECT_FALSE(Opens(program, kReadWrite));
    EXPECT_TRUE(Opens(program, kRead));
}

TEST(CStdioFile, ReadWriteLeavesTheFileAsItIs)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "line\r\n");
    EXPECT_TRUE(Opens(path, kReadWrite));
    EXPECT_EQ(Bytes(path), "line\r\n");
}

TEST(CStdioFile, ReadWriteTakesWrittenText)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "lines\n");
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
    file.WriteString("LI");
    file.Close();
    EXPECT_EQ(Bytes(path), "LInes\n");
}

TEST(CStdioFile, WritingGoesOnWhereReadingStopped)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "one\ntwo\nthree\n");
    CStdioFile file;
    CString line;
    ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
    ASSERT_NE(file.ReadString(line), 0);
    file.WriteString("TW");
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "o");
    file.Close();
    EXPECT_EQ(Bytes(path), "one\nTWo\nthree\n");
}

TEST(CStdioFile, CreateMakesAnEmptyFile)
{
    const TempFolder folder;
    EXPECT_TRUE(Opens(folder.Path("new.xml"), kWrite));
    EXPECT_EQ(Bytes(folder.Path("new.xml")), "");
}

TEST(CStdioFile, CreateEmptiesAnExistingFile)
{
    const TempFolder folder;
    const std::string path = folder.Save("old.xml", "old\n");
    EXPECT_TRUE(Opens(path, kWrite));
    EXPECT_EQ(Bytes(path), "");
}

TEST(CStdioFile, SecondOpenClosesTheFirstFile)
{
    const TempFolder folder;
    CStdioFile file;
    ASSERT_NE(file.Open(folder.Path("first.xml").c_str(), kWrite, nullptr), 0);
    file.WriteString("first\n");
    ASSERT_NE(file.Open(folder.Path("second.xml").c_str(), kWrite, nullptr), 0);
    EXPECT_EQ(WrittenText(folder.Path("first.xml")), "first\n");
    file.WriteString("second\n");
    file.Close();
    EXPECT_EQ(WrittenText(folder.Path("first.xml")), "first\n");
    EXPECT_EQ(WrittenText(folder.Path("second.xml")), "second\n");
}

TEST(CStdioFile, SecondOpenReadsFromTheStart)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "one\ntwo\n");
    CStdioFile file;
    CString line;
    for (int i = 0; i < 2; ++i) {
        ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
        EXPECT_NE(file.ReadString(line), 0);
        EXPECT_EQ(line, "one");
    }
}

TEST(CStdioFile, SecondOpenThatFailsHasClosedTheFirstFile)
{
    Lines lines({"one", "two"});
    CString line("old");
    EXPECT_EQ(lines.File().Open("/missing/file.xml", kReadWrite, nullptr), 0);
    EXPECT_EQ(lines.File().ReadString(line), 0);
    EXPECT_EQ(line, "");
}

TEST(CStdioFile, OpensAgainAfterClose)
{
    const TempFolder folder;
    const std::string path = folder.Path("file.xml");
    CStdioFile file;
    CString line;
    ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
    file.WriteString("line\n");
    file.Close();
    ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "line");
}

TEST(CStdioFile, CloseWithoutAnOpenFileDoesNothing)
{
    CStdioFile file;
    EXPECT_NO_THROW(file.Close());
    Lines lines({"one"});
    lines.File().Close();
    EXPECT_NO_THROW(lines.File().Close());
}

TEST(CStdioFile, DestructorWritesAndCloses)
{
    const TempFolder folder;
    const std::string path = folder.Path("file.xml");
    {
        CStdioFile file;
        ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
        file.WriteString("line\n");
    }
    EXPECT_EQ(WrittenText(path), "line\n");
}

TEST(CStdioFile, DestructorGivesTheDescriptorBack)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "line\n");
    const int before = dup(0);
    close(before);
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(Opens(path, kReadWrite));
        EXPECT_FALSE(Opens(folder.Path("missing.xml"), kReadWrite));
        EXPECT_FALSE(Opens(folder.Path(""), kReadWrite));
    }
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before);
}

TEST(CStdioFile, ReadsLinesWithoutTheirEnds)
{
    EXPECT_EQ(Read("one\ntwo\n"), (Texts{"one", "two"}));
}

TEST(CStdioFile, LineEndAtTheEndOfTheFileGivesNoExtraLine)
{
    EXPECT_EQ(Read("one\n"), Texts{"one"});
    EXPECT_EQ(Read("one\r\n"), Texts{"one"});
}

TEST(CStdioFile, LastLineWithoutALineEndIsALine)
{
    EXPECT_EQ(Read("one\ntwo"), (Texts{"one", "two"}));
    EXPECT_EQ(Read("x"), Texts{"x"});
}

TEST(CStdioFile, EmptyFileHasNoLine)
{
    EXPECT_EQ(Read(""), Texts{});
}

TEST(CStdioFile, EmptyLinesAreLines)
{
    EXPECT_EQ(Read("\n\none\n\n"), (Texts{"", "", "one", ""}));
    EXPECT_EQ(Read("\r\n\r\n"), (Texts{"", ""}));
}

TEST(CStdioFile, CarriageReturnBeforeALineFeedBelongsToTheLineEnd)
{
    EXPECT_EQ(Read("one\r\ntwo\nthree\r\n"), (Texts{"one", "two", "three"}));
}

TEST(CStdioFile, CarriageReturnElsewhereIsText)
{
    EXPECT_EQ(Read("a\rb\n\rc\r\n"), (Texts{"a\rb", "\rc"}));
    EXPECT_EQ(Read("a\r"), Texts{"a\r"});
    EXPECT_EQ(Read("\r"), Texts{"\r"});
}

TEST(CStdioFile, OneCarriageReturnBelongsToALineEnd)
{
    EXPECT_EQ(Read("a\r\r\nb\n"), (Texts{"a\r", "b"}));
}

TEST(CStdioFile, BytesOfALineAreKept)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\n') {
            all += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(Read(all + "\nnext\n"), (Texts{all, "next"}));
}

TEST(CStdioFile, NulBytesAreKept)
{
    using std::string_literals::operator""s;
    EXPECT_EQ(Read("a\0b\n\0\nc\0"s), (Texts{"a\0b"s, "\0"s, "c\0"s}));
}

// Storage tends to be cut at powers of two: a line, its end or its carriage return may stand across a cut.
TEST(CStdioFile, LinesOfAnyLengthAreRead)
{
    for (std::size_t power = 64; power <= std::size_t{1} << 17U; power *= 2) {
        for (std::size_t length = power - 3; length <= power + 1; ++length) {
            const std::string text(length, 'x');
            EXPECT_EQ(Read(text + "\r\ny\n"), (Texts{text, "y"})) << length;
            EXPECT_EQ(Read(text + "\ny\r\n"), (Texts{text, "y"})) << length;
            EXPECT_EQ(Read(text + "\rz\n"), (Texts{text + "\rz"})) << length;
            EXPECT_EQ(Read(text + "\r"), (Texts{text + "\r"})) << length;
            EXPECT_EQ(Read(text), (Texts{text})) << length;
        }
    }
}

TEST(CStdioFile, LineOfThreeMillionBytesIsRead)
{
    std::string text;
    for (int i = 0; text.size() < 3'000'000; ++i) {
        text += std::to_string(i) + ' ';
    }
    EXPECT_EQ(Read("before\n" + text + "\r\nafter\n"), (Texts{"before", text, "after"}));
}

TEST(CStdioFile, ManyLinesAreReadInOrder)
{
    std::string bytes;
    Texts expected;
    for (int i = 0; i < 50'000; ++i) {
        expected.push_back(std::to_string(i));
        bytes += expected.back() + (i % 2 == 0 ? "\n" : "\r\n");
    }
    EXPECT_EQ(Read(bytes), expected);
}

TEST(CStdioFile, LineReplacesTheTextBefore)
{
    Lines lines({"one", ""});
    CString line("something longer");
    EXPECT_NE(lines.File().ReadString(line), 0);
    EXPECT_EQ(line, "one");
    EXPECT_NE(lines.File().ReadString(line), 0);
    EXPECT_EQ(line, "");
}

TEST(CStdioFile, EndOfFileGivesZeroAndEmptiesTheTextEachTime)
{
    Lines lines({});
    for (int i = 0; i < 2; ++i) {
        CString line("old");
        EXPECT_EQ(lines.File().ReadString(line), 0);
        EXPECT_EQ(line, "");
    }
}

TEST(CStdioFile, ReadingAnUnopenedFileGivesZeroAndEmptiesTheText)
{
    CStdioFile file;
    CString line("old");
    EXPECT_EQ(file.ReadString(line), 0);
    EXPECT_EQ(line, "");
}

TEST(CStdioFile, ReadingAClosedFileGivesZeroAndEmptiesTheText)
{
    Lines lines({"one", "two"});
    CString line;
    ASSERT_NE(lines.File().ReadString(line), 0);
    lines.File().Close();
    EXPECT_EQ(lines.File().ReadString(line), 0);
    EXPECT_EQ(line, "");
}

TEST(CStdioFile, WritesTextExactly)
{
    EXPECT_EQ(WrittenBytes({"one", "", " two\t", "100%s %d %n"}), "one two\t100%s %d %n");
    EXPECT_EQ(WrittenBytes({"\xff\x80\x01\x1a"}), "\xff\x80\x01\x1a");
}

TEST(CStdioFile, WrittenLineEndIsThePlatforms)
{
#if defined(_WIN32)
    const std::string end = "\r\n";
#else
    const std::string end = "\n";
#endif
    EXPECT_EQ(WrittenBytes({"one\ntwo\n"}), "one" + end + "two" + end);
    EXPECT_EQ(WrittenBytes({"\n", "\n\n", "one", "\n"}), end + end + end + "one" + end);
    EXPECT_EQ(WrittenBytes({"one\r\n"}), "one\r" + end);

    Texts texts;
    std::string expected;
    for (std::size_t length = 0; length < 2000; ++length) {
        texts.push_back(std::string(length, 'x') + "\n");
        expected += std::string(length, 'x') + end;
    }
    EXPECT_TRUE(WrittenBytes(texts) == expected);
    EXPECT_TRUE(WrittenBytes({std::string(300'000, '\n')}).size() == 300'000 * end.size());
}

TEST(CStdioFile, BytesAreWrittenAsTheyStand)
{
    const TempFolder folder;
    const std::string path = folder.Path("bytes");
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
    const std::string bytes("a\n\0\r\n\n", 6);
    file.Write(bytes.data(), bytes.size());
    file.WriteString("text");
    file.Write(bytes.data(), bytes.size());
    file.Close();
    EXPECT_EQ(Bytes(path), bytes + "text" + bytes);
}

TEST(CStdioFile, PathsAreInUtf8)
{
    const TempFolder folder;
    const std::string path = folder.Path("Leiterplatte \xc3\xa4\xc3\x96 \xe5\x9f\xba\xe6\x9d\xbf \xf0\x9f\x94\xa7.xml");
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
    file.WriteString("line\n");
    file.Close();
    EXPECT_EQ(WrittenText(path), "line\n");
    CString line;
    ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "line");
}

TEST(CStdioFile, PathsMayBeLong)
{
    const TempFolder folder;
#if defined(_WIN32)
    // The library of the tests takes such a path in this form alone.
    const std::string mark = "\\\\?\\";
#else
    const std::string mark;
#endif
    std::string path = folder.Path(std::string(100, 'a'));
    for (const char letter : {'b', 'c', 'd'}) {
        fs::create_directory(mark + path);
        path = (fs::path(path) / std::string(100, letter)).string();
    }
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0) << path;
    file.WriteString("line\n");
    file.Close();
    EXPECT_EQ(WrittenText(mark + path), "line\n");
    CString line;
    ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "line");
    file.Close();
    fs::path made = mark + path;
    for (int level = 0; level < 4; ++level) {
        fs::remove(made);
        made = made.parent_path();
    }
}

// What nothing was written to takes no room on the disk of most systems.
TEST(CStdioFile, FilesMayBeLargerThanTwoGigabytes)
{
    const TempFolder folder;
    const std::string path = folder.Path("large.xml");
    constexpr std::int64_t start = (std::int64_t(1) << 31) + 1000;
    {
        std::ofstream out(fs::path(path), std::ios::binary);
        out.seekp(start);
        out << "one\ntwo\nthree\n";
        if (!out.flush()) {
            GTEST_SKIP() << "the disk is too small";
        }
    }
    CStdioFile file;
    CString line;
    ASSERT_NE(file.Open(path.c_str(), kReadWrite, nullptr), 0);
    std::string bytes(1U << 20, '\0');
    for (std::int64_t left = start; left > 0;) {
        const auto piece = static_cast<std::size_t>(std::min<std::int64_t>(left, std::int64_t(1) << 20));
        ASSERT_EQ(file.Read(bytes.data(), piece), piece);
        left -= static_cast<std::int64_t>(piece);
    }
    ASSERT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "one");
    file.WriteString("TW");
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "o");
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "three");
    EXPECT_EQ(file.ReadString(line), 0);
    file.Close();
    std::ifstream in(fs::path(path), std::ios::binary);
    in.seekg(start);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "one\nTWo\nthree\n");
}

#if defined(_WIN32)
TEST(CStdioFile, PathThatIsNoUtf8FailsToOpen)
{
    const TempFolder folder;
    EXPECT_FALSE(Opens(folder.Path("") + "\xe4.xml", kWrite));
}

TEST(CStdioFile, NamedPipeIsNotOpenedForReading)
{
    const std::string path = "\\\\.\\pipe\\ipc2581-test";
    const HANDLE pipe = CreateNamedPipeA(path.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 0, 0, 0, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(Opens(path, kRead));
    EXPECT_FALSE(Opens(path, kReadWrite));
    EXPECT_FALSE(Opens("//./PIPE/ipc2581-test", kRead));
    CloseHandle(pipe);
}
#endif

TEST(CStdioFile, TextsOfAnyLengthAreWritten)
{
    for (std::size_t power = 64; power <= std::size_t{1} << 17U; power *= 2) {
        for (std::size_t length = power - 1; length <= power + 1; ++length) {
            const std::string text(length, 'x');
            EXPECT_EQ(WrittenBytes({"a", text, "b"}), "a" + text + "b") << length;
        }
    }
    const std::string large(3'000'000, 'y');
    EXPECT_EQ(WrittenBytes({"a", large, "b", large}), "a" + large + "b" + large);
}

TEST(CStdioFile, ManyShortTextsAreWrittenInOrder)
{
    Texts texts;
    std::string expected;
    for (int i = 0; i < 50'000; ++i) {
        texts.push_back(std::to_string(i) + ' ');
        expected += texts.back();
    }
    EXPECT_EQ(WrittenBytes(texts), expected);
}

TEST(CStdioFile, FlushBringsTheTextToTheFile)
{
    const TempFolder folder;
    const std::string path = folder.Path("file.xml");
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
    file.WriteString("one\n");
    file.Flush();
    EXPECT_EQ(WrittenText(path), "one\n");
    file.WriteString("two\n");
    file.Close();
    EXPECT_EQ(WrittenText(path), "one\ntwo\n");
}

TEST(CStdioFile, WriteOnlyFileCannotBeRead)
{
    const TempFolder folder;
    const std::string path = folder.Path("file.xml");
    CStdioFile file;
    CString line;
    ASSERT_NE(file.Open(path.c_str(), kWrite, nullptr), 0);
    ExpectTells(Failure([&] { file.ReadString(line); }), path, EBADF);
}

TEST(CStdioFile, FileOpenForReadingCannotBeWritten)
{
    const TempFolder folder;
    const std::string path = folder.Save("file.xml", "line\n");
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), kRead, nullptr), 0);
    const auto write = [&file] {
        file.WriteString("text");
        file.Flush();
    };
    ExpectTells(Failure(write), path, EBADF);
    EXPECT_EQ(Bytes(path), "line\n");
}

TEST(CStdioFile, UnopenedFileCannotBeWritten)
{
    CStdioFile file;
    EXPECT_THROW(file.WriteString("text"), CFileException);
}

// The start of a program's own memory is never mapped, so that reading there fails.
TEST(CStdioFile, FailedReadRaisesTheFileException)
{
    CStdioFile file;
    CString line;
    if (file.Open("/proc/self/mem", kRead, nullptr) == 0) {
        GTEST_SKIP() << "no file at hand that fails to be read";
    }
    ExpectTells(Failure([&] { file.ReadString(line); }), "/proc/self/mem", FailedRead);
}

TEST(CStdioFile, FullDiskIsToldByClose)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, kWrite, nullptr), 0);
    file.WriteString("text");
    ExpectTells(Failure([&file] { file.Close(); }), FullDevice, ENOSPC);
}

TEST(CStdioFile, FullDiskIsToldByFlush)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, kWrite, nullptr), 0);
    file.WriteString("text");
    ExpectTells(Failure([&file] { file.Flush(); }), FullDevice, ENOSPC);
}

TEST(CStdioFile, FullDiskIsToldByTheSecondOpen)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    const TempFolder folder;
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, kWrite, nullptr), 0);
    file.WriteString("text");
    const auto open = [&] { file.Open(folder.Path("file.xml").c_str(), kWrite, nullptr); };
    ExpectTells(Failure(open), FullDevice, ENOSPC);
}

TEST(CStdioFile, FullDiskIsToldWhateverTheLength)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    for (const std::size_t length : {1U, 4096U, 65'536U, 65'537U, 3'000'000U}) {
        const std::string text(length, 'x');
        CStdioFile file;
        ASSERT_NE(file.Open(FullDevice, kWrite, nullptr), 0);
        const auto write = [&] {
            file.WriteString(text.c_str());
            file.Close();
        };
        ExpectTells(Failure(write), FullDevice, ENOSPC);
    }
}

TEST(CStdioFile, FullDiskIsToldOnAFileForReadingAndWriting)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, kReadWrite, nullptr), 0);
    file.WriteString("text");
    ExpectTells(Failure([&file] { file.Close(); }), FullDevice, ENOSPC);
}

TEST(CStdioFile, FileIsClosedAfterAFailedClose)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, kWrite, nullptr), 0);
    file.WriteString("text");
    EXPECT_THROW(file.Close(), CFileException);
    EXPECT_NO_THROW(file.Close());
}

TEST(CStdioFile, DestructionIsQuietAfterAFailure)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    auto file = std::make_unique<CStdioFile>();
    ASSERT_NE(file->Open(FullDevice, kWrite, nullptr), 0);
    file->WriteString("text");
    EXPECT_THROW(file->Flush(), CFileException);
    EXPECT_NO_THROW(file.reset());
}

TEST(CStdioFile, DestructionIsQuietOnAFullDisk)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    auto file = std::make_unique<CStdioFile>();
    ASSERT_NE(file->Open(FullDevice, kWrite, nullptr), 0);
    file->WriteString("text");
    EXPECT_NO_THROW(file.reset());
}

TEST(CStdioFile, FailureIsTheFileExceptionByValue)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, kWrite, nullptr), 0);
    file.WriteString("text");
    EXPECT_THROW(file.Close(), std::runtime_error);
}

class CountingFile : public CStdioFile {
public:
    int Open(const char * path, unsigned flags, CFileException * error) override
    {
        calls += 'o';
        return CStdioFile::Open(path, flags, error);
    }
    int ReadString(CString & line) override
    {
        calls += 'r';
        return CStdioFile::ReadString(line);
    }
    void WriteString(const char * text) override
    {
        calls += 'w';
        CStdioFile::WriteString(text);
    }
    void Close() override
    {
        calls += 'c';
        CStdioFile::Close();
    }

    std::string calls;
};

TEST(CStdioFile, FourOperationsAreVirtual)
{
    const TempFolder folder;
    CountingFile counting;
    CStdioFile & file = counting;
    CString line;
    EXPECT_NE(file.Open(folder.Save("file.xml", "line\n").c_str(), kReadWrite, nullptr), 0);
    EXPECT_NE(file.ReadString(line), 0);
    EXPECT_EQ(line, "line");
    EXPECT_NO_THROW(file.Close());
    EXPECT_NE(file.Open(folder.Path("new.xml").c_str(), kWrite, nullptr), 0);
    file.WriteString("text");
    EXPECT_NO_THROW(file.Close());
    std::string told;
    for (const char call : counting.calls) {
        told += told.ends_with(call) ? "" : std::string(1, call);
    }
    EXPECT_EQ(told, "orcowc");
}

TEST(CStdioFile, DerivedFileIsDestroyedThroughItsBase)
{
    const TempFolder folder;
    std::unique_ptr<CStdioFile> file = std::make_unique<CountingFile>();
    ASSERT_NE(file->Open(folder.Path("file.xml").c_str(), kWrite, nullptr), 0);
    file->WriteString("text");
    file.reset();
    EXPECT_EQ(Bytes(folder.Path("file.xml")), "text");
}

}  // namespace
