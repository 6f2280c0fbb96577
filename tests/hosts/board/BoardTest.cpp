#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <zip.h>
#include <zlib.h>
#include <zstd.h>

#include "tests/hosts/Program.h"
#include "tests/support/Sanitizers.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

std::string Gzip(const std::string & text)
{
    const TempFolder folder;
    const std::string path = folder.Path("packed");
    gzFile_s * const file = gzopen(path.c_str(), "wb");
    EXPECT_EQ(gzwrite(file, text.data(), static_cast<unsigned>(text.size())), static_cast<int>(text.size()));
    EXPECT_EQ(gzclose(file), Z_OK);
    return Bytes(path);
}

std::string Zstandard(const std::string & text)
{
    std::string packed(ZSTD_compressBound(text.size()), '\0');
    packed.resize(ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), 3));
    return packed;
}

struct Entry {
    const char * name;
    const std::string & text;
};

std::string Zip(std::initializer_list<Entry> entries)
{
    const TempFolder folder;
    const std::string path = folder.Path("packed");
    zip_t * const archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
    zip_dir_add(archive, "boards", 0);
    for (const Entry & entry : entries) {
        zip_file_add(archive, entry.name, zip_source_buffer(archive, entry.text.data(), entry.text.size(), 0), 0);
    }
    EXPECT_EQ(zip_close(archive), 0);
    return Bytes(path);
}

// What the program tells of these bytes under this name.
struct Told {
    TempFolder folder;
    TempFolder temporary;
    std::string path;
    Result result;

    Told(const std::string & name, const std::string & bytes)
    {
        path = folder.Save(name, bytes);
        Setting setting;
        setting.temporaryFolder = temporary.Path("");
        result = RunProgram({"info", path}, setting);
        EXPECT_EQ(Bytes(path), bytes);
        EXPECT_TRUE(Names(temporary.Path("")).empty());
    }
};

std::string Middle(const std::string & bytes, std::size_t count)
{
    return bytes.substr(0, count);
}

std::string WithBadByteAt(std::string bytes, std::size_t at)
{
    bytes[at] = static_cast<char>(bytes[at] ^ 0x55);
    return bytes;
}

TEST(Board, MayBePacked)
{
    const std::string board = Bytes(ExampleBoard());
    const Result plain = RunProgram({"info", ExampleBoard()});
    EXPECT_EQ(Told("board.cvg.gz", Gzip(board)).result, plain);
    EXPECT_EQ(Told("board.cvg.zst", Zstandard(board)).result, plain);
    EXPECT_EQ(Told("board.zip", Zip({{"boards/board.cvg", board}})).result, plain);
}

TEST(Board, IsKnownAsPackedByItsBytes)
{
    EXPECT_EQ(Told("board.cvg", Gzip(SmallBoard())).result, Told("plain.cvg", SmallBoard()).result);
}

TEST(Board, MayBePackedInSeveralPieces)
{
    const std::string board = Bytes(ExampleBoard());
    const std::string first = board.substr(0, 1000);
    const std::string second = board.substr(1000);
    const Result plain = RunProgram({"info", ExampleBoard()});
    EXPECT_EQ(Told("board.gz", Gzip(first) + Gzip(second)).result, plain);
    EXPECT_EQ(Told("board.zst", Zstandard(first) + Zstandard(second)).result, plain);
}

TEST(Board, IsTheOneOfItsKindInAnArchive)
{
    const std::string board = SmallBoard();
    const std::string other = "read me";
    const Result plain = Told("board.cvg", board).result;
    EXPECT_EQ(Told("a.zip", Zip({{"README", other}, {"boards/b.xml", board}})).result, plain);
    EXPECT_EQ(Told("b.zip", Zip({{"only", board}})).result, plain);
    const Told two("c.zip", Zip({{"a.xml", board}, {"b.cvg", board}}));
    EXPECT_EQ(two.result, Failure(two.path + ": the archive holds 2 boards where it must hold one"));
    const Told none("d.zip", Zip({{"README", other}, {"LICENCE", other}}));
    EXPECT_EQ(none.result, Failure(none.path + ": the archive holds 0 boards where it must hold one"));
}

TEST(Board, DamagedPackingIsToldByTheNameOfTheFile)
{
    const std::string board = Bytes(ExampleBoard());
    const auto expect = [](const Told & told, const std::string & cause) {
        EXPECT_EQ(told.result, Failure(told.path + ": " + cause));
    };
    expect({"a.gz", Middle(Gzip(board), 500)}, "the gzip data end early");
    expect({"b.gz", WithBadByteAt(Gzip(board), 500)}, "the gzip data are damaged");
    expect({"c.zst", Middle(Zstandard(board), 500)}, "the zstd data end early");
    expect({"d.zst", WithBadByteAt(Zstandard(board), 5)}, "the zstd data are damaged");
    expect({"e.zip", Middle(Zip({{"board.cvg", board}}), 500)}, "the zip archive is damaged");
    expect({"f.zip", WithBadByteAt(Zip({{"board.cvg", board}}), 300)}, "the zip archive is damaged");
    for (const std::string name : {"g.gz", "h.zst", "i.zip"}) {
        expect({name, board}, "is not packed as the end of its name tells");
    }
}

TEST(Board, FullTemporaryFolderIsAnError)
{
    const TempFolder folder;
    const TempFolder temporary;
    Setting setting;
    setting.temporaryFolder = temporary.Path("");
    setting.fileLimit = 1000;
    EXPECT_EQ(RunProgram({"info", folder.Save("board.gz", Gzip(Bytes(ExampleBoard())))}, setting),
              Failure(temporary.Path("") + ": a temporary file cannot be written: File too large"));
    EXPECT_TRUE(Names(temporary.Path("")).empty());
}

TEST(Board, MayBeWriteProtected)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", Bytes(ExampleBoard()));
    fs::permissions(folder.Path(""), fs::perms(0755));
    fs::permissions(board, fs::perms(0444));
    Setting unprivileged;
    unprivileged.isUnprivileged = true;
    const Result result = RunProgram({"info", board}, unprivileged);
    if (result.status > 2) {
        GTEST_SKIP() << "the program cannot be run by another user";
    }
    EXPECT_EQ(result, RunProgram({"info", ExampleBoard()}));
    fs::permissions(board, fs::perms(0));
    EXPECT_EQ(RunProgram({"info", board}, unprivileged), Failure(board + ": Permission denied"));
}

TEST(Board, IsARegularFile)
{
    const TempFolder folder;
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(RunProgram({"info", pipe}), Failure(pipe + ": is not a regular file"));
    EXPECT_EQ(RunProgram({"info", folder.Path("none.cvg")}),
              Failure(folder.Path("none.cvg") + ": No such file or directory"));
    EXPECT_EQ(RunProgram({"info", folder.Path("")}), Failure(folder.Path("") + ": Is a directory"));
    EXPECT_EQ(RunProgram({"info", ""}), Failure(": No such file or directory"));
}

TEST(Board, NameWithALineFeedIsToldInOneLine)
{
    EXPECT_EQ(RunProgram({"info", "two\nlines"}), Failure("two?lines: No such file or directory"));
}

TEST(Board, HoldsSomething)
{
    for (const std::string bytes : {"", "\n\n", "\x89PNG\r\n", "<IPC-2581>\n</IPC-2581>\n"}) {
        const Told told("board.cvg", bytes);
        EXPECT_EQ(told.result, Failure(told.path + ": holds no section of an IPC-2581 document"));
    }
}

TEST(Board, ThatWasMadeToTakeAllMemoryIsTold)
{
    if (HasSanitizer) {
        GTEST_SKIP() << "a sanitizer needs more address space than there is memory";
    }
    std::string packages;
    for (int i = 0; i < 200000; ++i) {
        packages += "<Package>\n</Package>\n";
    }
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard(packages));
    const Setting small = {.memoryLimit = 300000000};
    const std::string cause = ": cannot be read: its model takes more than the 100000000 bytes that it may";
    EXPECT_EQ(RunProgram({"info", board}, small), Failure(board + cause));
    EXPECT_EQ(RunProgram({"check", board}, small), Failure(board + cause));
    EXPECT_EQ(RunProgram({"info", ExampleBoard()}, small).status, 0);
}

TEST(Board, LineThatStopsTheReadIsTold)
{
    const auto expect = [](const Told & told, const std::string & cause) {
        EXPECT_EQ(told.result, Failure(told.path + cause + " stops the read"));
    };
    expect({"board.cvg", SmallBoard("\n  \n")}, ":10: a line of blanks");
    expect({"board.cvg", SmallBoard("<Package name=\"A\" type=\"SMT>\n")},
           ":9: a value that is cut off at the end of its line");
    expect({"board.cvg", "<Content>\n<FunctionMode mode=\"A\" level=\"1\"/>\r\n\r\n</Content>\n"},
           ":3: an empty line inside the Content section");
    expect({"board.cvg.gz", Gzip(SmallBoard("  \r\n"))}, ":9: a line of blanks");
    expect({"board.cvg", "<Bom name=\"open>"}, ":1: a value that is cut off at the end of its line");
}

}  // namespace
}  // namespace ipc2581::tests
