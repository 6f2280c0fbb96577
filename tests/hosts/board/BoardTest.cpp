#include <algorithm>
#include <array>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <archive.h>
#include <archive_entry.h>
#include <sys/stat.h>

#include "tests/hosts/Program.h"
#include "tests/support/Sanitizers.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

struct Entry {
    const char * name;
    const std::string & text;
};

// An archive with a folder and these files; the compression is that of the whole.
std::string Archive(int format, std::initializer_list<Entry> entries, int compression = ARCHIVE_FILTER_NONE)
{
    const TempFolder folder;
    const std::string path = folder.Path("packed");
    archive * const writer = archive_write_new();
    archive_write_add_filter(writer, compression);
    archive_write_set_format(writer, format);
    EXPECT_EQ(archive_write_open_filename(writer, path.c_str()), ARCHIVE_OK);
    archive_entry * const entry = archive_entry_new();
    if (format != ARCHIVE_FORMAT_RAW) {
        archive_entry_set_pathname(entry, "boards/");
        archive_entry_set_filetype(entry, AE_IFDIR);
        EXPECT_EQ(archive_write_header(writer, entry), ARCHIVE_OK);
    }
    for (const Entry & file : entries) {
        archive_entry_clear(entry);
        archive_entry_set_pathname(entry, file.name);
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_entry_set_size(entry, static_cast<la_int64_t>(file.text.size()));
        EXPECT_EQ(archive_write_header(writer, entry), ARCHIVE_OK);
        EXPECT_EQ(archive_write_data(writer, file.text.data(), file.text.size()),
                  static_cast<la_ssize_t>(file.text.size()));
    }
    archive_entry_free(entry);
    EXPECT_EQ(archive_write_free(writer), ARCHIVE_OK);
    return Bytes(path);
}

std::string Compressed(int compression, const std::string & text)
{
    return Archive(ARCHIVE_FORMAT_RAW, {{"board", text}}, compression);
}

std::string Gzip(const std::string & text)
{
    return Compressed(ARCHIVE_FILTER_GZIP, text);
}

std::string Zip(std::initializer_list<Entry> entries)
{
    return Archive(ARCHIVE_FORMAT_ZIP, entries);
}

// How a file may be compressed as a whole.
struct Compression {
    const char * ending;
    int filter;
    const char * name;
    std::size_t badAt;  // a place where a wrong byte is found without a sum
};

constexpr std::array<Compression, 4> Compressions = {{{".gz", ARCHIVE_FILTER_GZIP, "gzip", 500},
                                                      {".zst", ARCHIVE_FILTER_ZSTD, "zstd", 5},
                                                      {".xz", ARCHIVE_FILTER_XZ, "xz", 500},
                                                      {".bz2", ARCHIVE_FILTER_BZIP2, "bzip2", 500}}};

// What the program tells of these bytes under this name.
struct Told {
    TempFolder folder;
    TempFolder temporary;
    std::string path;
    Result result;

    Told(const std::string & name, const std::string & bytes, const std::vector<std::string> & options = {})
    {
        path = folder.Save(name, bytes);
        Setting setting;
        setting.temporaryFolder = temporary.Path("");
        std::vector<std::string> arguments = {"info", path};
        arguments.insert(arguments.end(), options.begin(), options.end());
        result = RunProgram(arguments, setting);
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
    for (const auto & [ending, filter, name, badAt] : Compressions) {
        EXPECT_EQ(Told(std::string("board.cvg") + ending, Compressed(filter, board)).result, plain) << name;
    }
    EXPECT_EQ(Told("board.zip", Zip({{"boards/board.cvg", board}})).result, plain);
    EXPECT_EQ(Told("board.7z", Archive(ARCHIVE_FORMAT_7ZIP, {{"boards/board.cvg", board}})).result, plain);
    EXPECT_EQ(Told("board.tar", Archive(ARCHIVE_FORMAT_TAR_USTAR, {{"boards/board.cvg", board}})).result, plain);
}

TEST(Board, MayBeInACompressedArchive)
{
    const std::string board = SmallBoard();
    const std::string other = "read me";
    const Result plain = Told("board.cvg", board).result;
    for (const auto & [ending, filter, name, badAt] : Compressions) {
        const std::string one = Archive(ARCHIVE_FORMAT_TAR_USTAR, {{"README", other}, {"boards/b.xml", board}}, filter);
        EXPECT_EQ(Told(std::string("board.tar") + ending, one).result, plain) << name;
        const Told two(std::string("two.tar") + ending,
                       Archive(ARCHIVE_FORMAT_TAR_USTAR, {{"a.xml", board}, {"b.cvg", board}}, filter));
        EXPECT_EQ(two.result, Failure(two.path + ": the archive contains 2 boards instead of one")) << name;
    }
}

TEST(Board, IsKnownAsPackedByItsBytes)
{
    EXPECT_EQ(Told("board.cvg", Gzip(SmallBoard())).result, Told("plain.cvg", SmallBoard()).result);
}

TEST(Board, MayBePackedInSeveralPieces)
{
    const std::string board = Bytes(ExampleBoard());
    const Result plain = RunProgram({"info", ExampleBoard()});
    for (const auto & [ending, filter, name, badAt] : Compressions) {
        const std::string pieces = Compressed(filter, board.substr(0, 1000)) + Compressed(filter, board.substr(1000));
        EXPECT_EQ(Told(std::string("board") + ending, pieces).result, plain) << name;
    }
}

TEST(Board, IsTheOneOfItsKindInAnArchive)
{
    const std::string board = SmallBoard();
    const std::string other = "read me";
    const Result plain = Told("board.cvg", board).result;
    for (const int format : {ARCHIVE_FORMAT_ZIP, ARCHIVE_FORMAT_7ZIP, ARCHIVE_FORMAT_TAR_USTAR}) {
        EXPECT_EQ(Told("a", Archive(format, {{"README", other}, {"boards/b.xml", board}})).result, plain);
        EXPECT_EQ(Told("b", Archive(format, {{"only", board}})).result, plain);
        const Told two("c", Archive(format, {{"a.xml", board}, {"b.cvg", board}}));
        EXPECT_EQ(two.result, Failure(two.path + ": the archive contains 2 boards instead of one"));
        const Told none("d", Archive(format, {{"README", other}, {"LICENCE", other}}));
        EXPECT_EQ(none.result, Failure(none.path + ": the archive contains 0 boards instead of one"));
    }
}

void ExpectCause(const Told & told, const std::string & cause)
{
    EXPECT_EQ(told.result, Failure(told.path + ": " + cause));
}

TEST(Board, DamagedCompressionIsToldByTheNameOfTheFile)
{
    const std::string board = Bytes(ExampleBoard());
    for (const auto & [ending, filter, name, badAt] : Compressions) {
        const std::string path = std::string("board") + ending;
        const std::string packed = Compressed(filter, board);
        ExpectCause({path, Middle(packed, 500)}, "the " + std::string(name) + " data end early");
        ExpectCause({path, Middle(packed, packed.size() - 1)}, "the " + std::string(name) + " data end early");
        ExpectCause({path, WithBadByteAt(packed, badAt)}, "the " + std::string(name) + " data are damaged");
        ExpectCause({path, board}, "is not packed as its name says");
    }
    ExpectCause({"short.bz2", Middle(Compressed(ARCHIVE_FILTER_BZIP2, board), 6)}, "the bzip2 data are damaged");
}

TEST(Board, SumOfTheUnpackedBytesIsCompared)
{
    const std::string packed = Gzip(Bytes(ExampleBoard()));
    ExpectCause({"sum.gz", WithBadByteAt(packed, packed.size() - 8)}, "the gzip data are damaged");
    const std::string archive =
        Archive(ARCHIVE_FORMAT_TAR_USTAR, {{"board.cvg", Bytes(ExampleBoard())}}, ARCHIVE_FILTER_GZIP);
    ExpectCause({"sum.tar.gz", WithBadByteAt(archive, archive.size() - 8)}, "the gzip data are damaged");
}

TEST(Board, DamagedArchiveIsToldByTheNameOfTheFile)
{
    const std::string board = Bytes(ExampleBoard());
    const std::string zip = Zip({{"board.cvg", board}});
    ExpectCause({"a.zip", Middle(zip, 500)}, "the zip archive is damaged");
    ExpectCause({"b.zip", WithBadByteAt(zip, 300)}, "the zip archive is damaged");
    const std::string sevenZip = Archive(ARCHIVE_FORMAT_7ZIP, {{"board.cvg", board}});
    ExpectCause({"a.7z", Middle(sevenZip, 500)}, "the 7z archive is damaged");
    ExpectCause({"b.7z", WithBadByteAt(sevenZip, 500)}, "the 7z archive is damaged");
    const std::string tar = Archive(ARCHIVE_FORMAT_TAR_USTAR, {{"board.cvg", board}});
    ExpectCause({"a.tar", Middle(tar, 5000)}, "the tar archive is damaged");
    ExpectCause({"b.tar", WithBadByteAt(tar, 5)}, "the tar archive is damaged");
    ExpectCause({"a.tar.gz", Gzip(Middle(tar, 5000))}, "the tar archive is damaged");
    for (const std::string name : {"i.zip", "i.7z", "i.tar"}) {
        ExpectCause({name, board}, "is not packed as its name says");
    }
}

TEST(Board, BytesDecideHowItIsPacked)
{
    const TempFolder folder;
    const std::string zip = folder.Save("board.gz", Zip({{"board.cvg", Bytes(ExampleBoard())}}));
    EXPECT_EQ(RunProgram({"bom", zip}), RunProgram({"bom", ExampleBoard()}));
}

// A zip archive by a program with this locale, which tells in the archive what the code of its names is.
std::string ZipIn(const char * locale, const char * name, const std::string & board)
{
    const std::string other = "read me";
    const locale_t names = newlocale(LC_CTYPE_MASK, locale, nullptr);
    const locale_t before = uselocale(names);
    const std::string zip = Zip({{"README", other}, {name, board}});
    uselocale(before);
    freelocale(names);
    return zip;
}

TEST(Board, NameInAnyCodeIsOneOfABoard)
{
    const std::string board = SmallBoard();
    const Result plain = Told("board.cvg", board).result;
    EXPECT_EQ(Told("a.zip", ZipIn("C.UTF-8", "\xc3\xbc.xml", board)).result, plain);
    EXPECT_EQ(Told("b.zip", ZipIn("C", "\xc3\xbc.xml", board)).result, plain);
    EXPECT_EQ(Told("c.zip", ZipIn("C", "\xfc.xml", board)).result, plain);
}

TEST(Board, FullTemporaryFolderIsAnError)
{
    const TempFolder folder;
    const TempFolder temporary;
    Setting setting;
    setting.temporaryFolder = temporary.Path("");
    setting.fileLimit = 1000;
    EXPECT_EQ(RunProgram({"info", folder.Save("board.gz", Gzip(Bytes(ExampleBoard())))}, setting),
              Failure(temporary.Path("") + ": cannot write a temporary file: File too large"));
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

TEST(Board, MayComeThroughAPipe)
{
    const TempFolder folder;
    folder.Save("board.cvg", Bytes(ExampleBoard()));
    folder.Save("board.zip", Zip({{"boards/board.cvg", Bytes(ExampleBoard())}}));
    for (const auto & [ending, filter, name, badAt] : Compressions) {
        folder.Save(std::string("board") + ending, Compressed(filter, Bytes(ExampleBoard())));
    }
    ASSERT_EQ(mkfifo(folder.Path("pipe.cvg").c_str(), 0600), 0);
    for (const std::string command : {"info", "info --exact", "bom", "components", "nets", "check"}) {
        const Result plain = RunShell("ipc2581 " + command + " board.cvg", folder.Path(""));
        EXPECT_NE(plain.out, "");
        for (const std::string file : {"board.cvg", "board.gz", "board.zst", "board.xz", "board.bz2", "board.zip"}) {
            for (const std::string way :
                 {"ipc2581 COMMAND - < ", "ipc2581 COMMAND /dev/stdin < ", "cat FILE | ipc2581 COMMAND - #",
                  "cat FILE | ipc2581 COMMAND /dev/stdin #", "cat FILE > pipe.cvg & ipc2581 COMMAND pipe.cvg #"}) {
                std::string run = way + file;
                run.replace(run.find("COMMAND"), 7, command);
                const std::size_t at = run.find("FILE");
                if (at != std::string::npos) {
                    run.replace(at, 4, file);
                }
                EXPECT_EQ(RunShell(run, folder.Path("")), plain) << run;
            }
        }
        EXPECT_EQ(RunShell("ipc2581 " + command + " <(cat board.cvg)", folder.Path("")), plain) << command;
    }
}

TEST(Board, OfTheStandardInputIsToldAsThat)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard("<Step><\n"));
    EXPECT_EQ(RunProgram({"info", "-"}, {.input = board}), Failure("standard input:9: StartTag: invalid element name"));
    const std::string dangling = folder.Save(
        "b.cvg", SmallBoard("<LogicalNet name=\"N\"><PinRef componentRef=\"U1\" pin=\"1\"/></LogicalNet>\n"));
    EXPECT_EQ(RunProgram({"info", "-"}, {.input = dangling}).err,
              "ipc2581: standard input: warning: 1 reference leads nowhere; see ipc2581 check -\n");
    EXPECT_EQ(RunProgram({"info", "-"}, {.input = folder.Path("")}),
              Failure("standard input: cannot be read: Is a directory"));
    EXPECT_EQ(RunShell("ipc2581 info - <&-"), Failure("standard input: cannot be read: Bad file descriptor"));
}

TEST(Board, IsAFile)
{
    const TempFolder folder;
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
    const std::string nothing = ": contains no section of an IPC-2581 document";
    const std::map<std::string, std::string> causes = {{"", ":1: Document is empty"},
                                                       {"\n\n", ":3: Start tag expected, '<' not found"},
                                                       {"\x89PNG\r\n", ":1: Start tag expected, '<' not found"},
                                                       {"<IPC-2581>\n</IPC-2581>\n", nothing}};
    for (const auto & [bytes, cause] : causes) {
        const Told told("board.cvg", bytes);
        EXPECT_EQ(told.result, Failure(told.path + cause));
        const Told exact("board.cvg", bytes, {"--exact"});
        EXPECT_EQ(exact.result, Failure(exact.path + nothing));
    }
    const Told other("board.cvg", "<svg>\n</svg>\n");
    EXPECT_EQ(other.result, Failure(other.path + ":1: the root element is not IPC-2581"));
}

TEST(Board, ThatIsNotWholeIsToldByEveryCommand)
{
    const TempFolder folder;
    const std::string whole = SmallBoard();
    const std::string board = folder.Save("board.cvg", whole.substr(0, whole.find("</Step>")));
    const std::vector<std::vector<std::string>> commands = {{"info", board},
                                                            {"bom", board},
                                                            {"components", board},
                                                            {"nets", board},
                                                            {"report", board},
                                                            {"convert", board, folder.Path("out.cvg")},
                                                            {"svg", board, "-o", folder.Path("out")}};
    for (std::vector<std::string> command : commands) {
        EXPECT_EQ(RunProgram(command),
                  Failure(board + ":9: the file ends here and is not whole: Premature end of data in tag Step line 8"))
            << command.front();
        command.emplace_back("--exact");
        EXPECT_EQ(RunProgram(command), Failure(board + ":8: the file ends without </IPC-2581>, so it is not whole"))
            << command.front();
    }
    const Result diff = RunProgram({"diff", "--exact", ExampleBoard(), board});
    EXPECT_EQ(diff.status, 2);
    EXPECT_NE(diff.err.find(":8: the file ends without"), std::string::npos) << diff;
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"board.cvg"});
}

TEST(Board, MayHaveSomethingBehindItsEnd)
{
    const std::string board = SmallBoard();
    EXPECT_EQ(Told("a.cvg", board + "<!-- " + std::string(5000, '-') + " -->\n", {"--exact"}).result.status, 0);
    const std::string spaced = board.substr(0, board.size() - 2) + " >";
    EXPECT_EQ(Told("b.cvg", spaced, {"--exact"}).result.status, 0);
    EXPECT_EQ(Told("c.cvg", board.substr(0, board.size() - 2), {"--exact"}).result.status, 1);
}

TEST(Board, IsReadFromTheStepThatIsAskedFor)
{
    const TempFolder folder;
    const std::string part = "<Component refDes=\"R1\"/>";
    const std::string board = folder.Save(
        "board.cvg", "<IPC-2581><Ecad><CadData><Step name=\"panel\"/><Step name=\"one\">" + part +
                         "</Step><Step name=\"two\">" + part + part + "</Step></CadData></Ecad></IPC-2581>");
    const auto stepOf = [&](const std::vector<std::string> & options) {
        std::vector<std::string> arguments = {"components", board, "-f", "csv"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const std::string out = RunProgram(arguments).out;
        return std::count(out.begin(), out.end(), '\n') - 1;
    };
    EXPECT_EQ(stepOf({}), 1);
    EXPECT_EQ(stepOf({"--step", "two"}), 2);
    EXPECT_EQ(stepOf({"--step", "panel"}), 0);
    const std::string leftOut = "ipc2581: " + board +
                                ": warning: the step \"panel\", the step \"two\" are not imported (--step NAME reads "
                                "another one); see ipc2581 check " +
                                board + "\n";
    for (const std::string command : {"info", "bom", "components", "nets", "svg", "report", "convert", "diff"}) {
        std::vector<std::string> arguments = {command, board};
        if (command == "svg") {
            arguments.insert(arguments.end(), {"-o", folder.Path("out")});
        }
        if (command == "convert" || command == "diff") {
            arguments.push_back(command == "convert" ? "/dev/null" : ExampleBoard());
        }
        EXPECT_EQ(RunProgram(arguments).err, leftOut) << command;
        arguments.insert(arguments.end(), {"--step", command == "diff" ? "blinker" : "one"});
        if (command == "report") {
            arguments.emplace_back("--force");
        }
        if (command != "diff") {
            EXPECT_EQ(RunProgram(arguments).err, "") << command;
        }
    }
    EXPECT_EQ(RunProgram({"nets", board, "--step", "three"}),
              Failure(board + ": has no step \"three\"; it has \"panel\", \"one\", \"two\""));
    EXPECT_EQ(RunProgram({"nets", board, "--step", "two", "--exact"}), WrongUsage("--exact excludes --step"));
}

TEST(Board, ManyStepsThatAreNotImportedAreToldInOneLine)
{
    std::string steps;
    for (int i = 0; i < 9; ++i) {
        steps += "</Step><Step name=\"" + std::to_string(i) + "\">";
    }
    const std::string err = Told("board.cvg", SmallBoard(steps)).result.err;
    EXPECT_NE(err.find("the step \"0\", the step \"1\", the step \"2\", the step \"3\", the step \"4\" and 4 more are "
                       "not imported (--step NAME reads another one); see"),
              std::string::npos)
        << err;
}

TEST(Board, ThatHasLostSomethingEndsAStrictCommandWithAStatusOfItsOwn)
{
    const TempFolder folder;
    const std::string lossy =
        folder.Save("lossy.cvg", SmallBoard("<Route/>\n<Component refDes=\"R1\" weight=\"2\"/>\n"));
    const std::string whole = folder.Save("whole.cvg", SmallBoard());
    const std::string lost = ": lost or read otherwise: 2 facts without a place in the model; see ipc2581 check ";
    for (const std::string command : {"info", "bom", "components", "nets"}) {
        const Result plain = RunProgram({command, lossy});
        EXPECT_EQ(plain.status, 0);
        EXPECT_EQ(RunProgram({command, lossy, "--strict"}),
                  (Result{3, plain.out, plain.err + "ipc2581: " + lossy + lost + lossy + "\n"}));
        EXPECT_EQ(RunProgram({command, whole, "--strict"}).status, 0) << command;
    }
    EXPECT_EQ(RunProgram({"diff", lossy, whole, "--strict"}).status, 3);
    EXPECT_EQ(RunProgram({"diff", whole, whole, "--strict"}).status, 0);
    EXPECT_EQ(RunProgram({"diff", lossy, "none", "--strict"}).status, 2);
    EXPECT_EQ(RunProgram({"svg", lossy, "-o", folder.Path("out"), "--strict"}).status, 3);
    EXPECT_EQ(RunProgram({"svg", whole, "-o", folder.Path("out2"), "--strict"}).status, 0);
    EXPECT_EQ(RunProgram({"report", lossy, "--strict"}).status, 3);
    EXPECT_EQ(RunProgram({"report", whole, "--strict"}).status, 0);
    EXPECT_EQ(RunProgram({"convert", lossy, folder.Path("lossy.out"), "--strict"}).status, 3);
    EXPECT_EQ(RunProgram({"convert", whole, folder.Path("whole.out"), "--strict"}).status, 0);
    EXPECT_TRUE(Names(folder.Path("")).contains("lossy.out"));
    EXPECT_TRUE(Names(folder.Path("")).contains("lossy.txt"));

    const Result exact = RunProgram({"info", lossy, "--strict", "--exact"});
    EXPECT_EQ(exact.status, 3);
    EXPECT_EQ(exact.err, Warning(lossy, "1 component listed without a side (on a layer that was not read)") +
                             "ipc2581: " + lossy +
                             ": lost or read otherwise: 1 line taken for another, 1 element passed over, 1 attribute "
                             "passed over; see ipc2581 check " +
                             lossy + "\n");
    EXPECT_EQ(RunProgram({"info", whole, "--strict", "--exact"}), RunProgram({"info", whole, "--exact"}));
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
    const std::string cause = "its model takes more than the 100000000 bytes that it may";
    EXPECT_EQ(RunProgram({"info", board}, small), Failure(board + ": " + cause));
    EXPECT_EQ(RunProgram({"info", board, "--exact"}, small), Failure(board + ": cannot be read: " + cause));
    EXPECT_EQ(RunProgram({"check", board}, small), Failure(board + ": cannot be read: " + cause));
    EXPECT_EQ(RunProgram({"info", ExampleBoard()}, small).status, 0);
}

TEST(Board, LineThatStopsTheReadIsTold)
{
    const auto expect = [](const Told & told, const std::string & cause) {
        EXPECT_EQ(told.result, Failure(told.path + cause + " stops the read"));
    };
    expect({"board.cvg", SmallBoard("\n  \n"), {"--exact"}}, ":10: a line of blanks");
    expect({"board.cvg", SmallBoard("<Package name=\"A\" type=\"SMT>\n"), {"--exact"}},
           ":9: a value that is cut off at the end of its line");
    expect({"board.cvg", "<Content>\n<FunctionMode mode=\"A\" level=\"1\"/>\r\n\r\n</Content>\n", {"--exact"}},
           ":3: an empty line inside the Content section");
    expect({"board.cvg.gz", Gzip(SmallBoard("  \r\n")), {"--exact"}}, ":9: a line of blanks");
    expect({"board.cvg", "<Bom name=\"open>", {"--exact"}}, ":1: a value that is cut off at the end of its line");
}

}  // namespace
}  // namespace ipc2581::tests
