#include <filesystem>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include <ipc2581/ipc2581.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

std::string WrittenByTheLibrary(const std::string & board)
{
    const TempFolder folder;
    CString path(board.c_str());
    CString written(folder.Path("written.cvg").c_str());
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    reader.OpenPath(path, root);
    EXPECT_EQ(reader.WriteFilePath(written, root), 1);
    return Bytes(written.GetString());
}

// The line that tells what the writer leaves out of the example board.
std::string Unwritten(const std::string & out)
{
    return "ipc2581: " + out +
           ": not written: 1 logistic header, 1 history record, 7 items of the bill of materials, 9 references of the "
           "content, 3 layers of the stackup, 6 pad stacks, 5 points of nets for tests, 2 heights of components, 1 "
           "mirrored component, 10 outlines of pins, 4 transforms of pins\n";
}

TEST(Convert, KeepsTheDirectionOfCurvesOfWhatItHasImported)
{
    const TempFolder folder;
    const std::string curve = "<PolyStepCurve x=\"2.000000\" y=\"0.000000\" centerX=\"1.000000\" centerY=\"0.000000\" "
                              "clockwise=\"TRUE\" />";
    const std::string board = folder.Save(
        "board.xml", SmallBoard("<Profile><Polygon><PolyBegin x=\"0\" y=\"0\"/>" + curve + "</Polygon></Profile>"));
    const std::string out = folder.Path("out.cvg");
    EXPECT_EQ(RunProgram({"convert", board, out}), (Result{0, "", ""}));
    EXPECT_NE(Bytes(out).find(curve), std::string::npos) << Bytes(out);
}

TEST(Convert, TellsWhatOfAnImportedBoardIsNotWritten)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.xml", SmallBoard("<Route/><StackupZone name=\"Z\"/>"));
    const std::string out = folder.Path("out.cvg");
    EXPECT_EQ(RunProgram({"convert", board, out}),
              (Result{0, "", "ipc2581: " + out + ": not written: 2 facts without a place in the model\n"}));
}

TEST(Convert, WritesWhatTheLibraryWrites)
{
    const TempFolder folder;
    const std::string board = Bytes(ExampleBoard());
    const std::string out = folder.Path("out.cvg");
    EXPECT_EQ(RunProgram({"convert", "--exact", ExampleBoard(), out}), (Result{0, "", Unwritten(out)}));
    EXPECT_EQ(Bytes(out), WrittenByTheLibrary(ExampleBoard()));
    EXPECT_EQ(Bytes(ExampleBoard()), board);
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.cvg"});
}

TEST(Convert, WritesToADeviceToo)
{
    EXPECT_EQ(RunProgram({"convert", "--exact", ExampleBoard(), "/dev/stdout"}),
              (Result{0, WrittenByTheLibrary(ExampleBoard()), Unwritten("standard output")}));
}

TEST(Convert, WritesToAPipe)
{
    const std::string written = WrittenByTheLibrary(ExampleBoard());
    const TempFolder folder;
    const Result expected = {0, written, Unwritten("standard output")};
    for (const std::string out : {"-", "/dev/stdout", "/dev/fd/1"}) {
        EXPECT_EQ(RunProgram({"convert", "--exact", ExampleBoard(), out}, {.folder = folder.Path("")}), expected)
            << out;
    }
    EXPECT_EQ(RunProgram({"convert", "--exact", "-", "-"}, {.folder = folder.Path(""), .input = ExampleBoard()}),
              expected);
    EXPECT_TRUE(Names(folder.Path("")).empty());
    EXPECT_EQ(
        RunShell("{ echo in front; ipc2581 convert --exact " + ExampleBoard() + " /dev/stdout; } 2>/dev/null").out,
        "in front\n" + written);
}

TEST(Convert, PacksByTheEndingOfTheName)
{
    const std::string written = WrittenByTheLibrary(ExampleBoard());
    const TempFolder folder;
    const std::map<std::string, std::string> magics = {
        {"a.gz", "\x1f\x8b"}, {"a.zst", "\x28\xb5\x2f\xfd"}, {"a.xz", "\xfd\x37zXZ"}, {"a.bz2", "BZh"}};
    for (const auto & [name, magic] : magics) {
        const std::string out = folder.Path(name);
        EXPECT_EQ(RunProgram({"convert", "--exact", ExampleBoard(), out}), (Result{0, "", Unwritten(out)}));
        const std::string packed = Bytes(out);
        EXPECT_TRUE(packed.starts_with(magic)) << name;
        EXPECT_LT(packed.size(), written.size() / 4) << name;
        EXPECT_EQ(RunProgram({"convert", "--exact", out, "-"}).out,
                  RunProgram({"convert", "--exact", folder.Save("plain.cvg", written), "-"}).out)
            << name;
        EXPECT_EQ(RunProgram({"convert", "--exact", ExampleBoard(), out, "--force"}).status, 0);
        EXPECT_EQ(Bytes(out), packed) << name << " differs the second time";
    }
}

TEST(Convert, WritesNoArchives)
{
    const TempFolder folder;
    for (const std::string name : {"a.zip", "a.7z", "a.tar", "a.tar.gz"}) {
        const std::string out = folder.Path(name);
        EXPECT_EQ(RunProgram({"convert", ExampleBoard(), out}),
                  Failure(out + ": archives are not written; use .gz, .zst, .xz or .bz2"));
    }
    EXPECT_TRUE(Names(folder.Path("")).empty());
}

TEST(Convert, ReplacesOnlyByForce)
{
    const TempFolder folder;
    for (const std::string name : {"out.cvg", "out.gz"}) {
        const std::string out = folder.Save(name, "good");
        EXPECT_EQ(RunProgram({"convert", ExampleBoard(), out}),
                  Failure(out + ": is there already; --force replaces it"));
        EXPECT_EQ(Bytes(out), "good");
    }
}

TEST(Convert, TakesThePlaceOfAFileAndKeepsItsPermissions)
{
    const TempFolder folder;
    const std::string out = folder.Save("out.cvg", "old");
    fs::permissions(out, fs::perms(0640));
    fs::create_symlink("out.cvg", folder.Path("link.cvg"));
    EXPECT_EQ(RunProgram({"convert", "--exact", "--force", ExampleBoard(), "link.cvg"}, {.folder = folder.Path("")}),
              (Result{0, "", Unwritten("link.cvg")}));
    EXPECT_EQ(Bytes(out), WrittenByTheLibrary(ExampleBoard()));
    EXPECT_EQ(fs::status(out).permissions(), fs::perms(0640));
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"link.cvg", "out.cvg"}));
}

TEST(Convert, LeavesAGoodFileWhereTheDiskIsFull)
{
    const TempFolder folder;
    const std::string out = folder.Save("out.cvg", "good");
    EXPECT_EQ(RunProgram({"convert", ExampleBoard(), out, "--force"}, {.fileLimit = 10000}),
              Failure(out + ": cannot be written: File too large"));
    EXPECT_EQ(Bytes(out), "good");
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.cvg"});
    EXPECT_EQ(RunProgram({"convert", ExampleBoard(), "/dev/full"}),
              Failure("/dev/full: cannot be written: No space left on device"));
    EXPECT_EQ(RunProgram({"convert", ExampleBoard(), "-"}, {.output = "/dev/full"}),
              Failure("standard output: cannot be written: No space left on device"));
    EXPECT_EQ(RunShell("ipc2581 convert " + ExampleBoard() + " - >&-"),
              Failure("standard output: cannot be written: Bad file descriptor"));
    const std::string packed = folder.Path("out.gz");
    EXPECT_EQ(RunProgram({"convert", ExampleBoard(), packed}, {.fileLimit = 2000}).status, 1);
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.cvg"});
}

TEST(Convert, LeavesAGoodFileWhereTheBoardStopsTheRead)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard(" \n"));
    const std::string out = folder.Save("out.cvg", "good");
    EXPECT_EQ(RunProgram({"convert", "--exact", board, out, "--force"}),
              Failure(board + ":9: a line of blanks stops the read"));
    const std::string cut = folder.Save("cut.cvg", "<IPC-2581>\n<Ecad>\n");
    EXPECT_EQ(RunProgram({"convert", cut, out, "--force"}),
              Failure(cut + ":3: the file ends here and is not whole: Premature end of data in tag Ecad line 2"));
    EXPECT_EQ(Bytes(out), "good");
}

TEST(Convert, IsNeverWrittenOverTheBoard)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", SmallBoard());
    fs::create_symlink(board, folder.Path("link.cvg"));
    for (const std::string & out : {board, folder.Path("./board.cvg"), folder.Path("link.cvg")}) {
        EXPECT_EQ(RunProgram({"convert", board, out}),
                  Failure(out + ": is the board itself, which is never overwritten"));
    }
    EXPECT_EQ(RunProgram({"convert", "-", board, "--force"}, {.input = board}),
              Failure(board + ": is the board itself, which is never overwritten"));
    EXPECT_EQ(Bytes(board), SmallBoard());
}

TEST(Convert, TellsWhereItCannotWrite)
{
    const TempFolder folder;
    const std::string lost = folder.Path("none/out.cvg");
    EXPECT_EQ(RunProgram({"convert", ExampleBoard(), lost}),
              Failure(lost + ": cannot be created: No such file or directory"));
    EXPECT_EQ(RunProgram({"convert", ExampleBoard(), folder.Path("")}), Failure(folder.Path("") + ": Is a directory"));
}

TEST(Convert, ShowsABarBothWays)
{
    if (const std::string why = WhyNoTerminal(); !why.empty()) {
        GTEST_SKIP() << why;
    }
    const TempFolder folder;
    const std::string out = folder.Path("out.cvg");
    const std::string shown = RunProgram({"convert", ExampleBoard(), out}, {.isOnTerminal = true}).err;
    EXPECT_NE(shown.find("Reading " + ExampleBoard() + " ["), std::string::npos);
    EXPECT_NE(shown.find("Writing " + out + " ["), std::string::npos);
}

}  // namespace
}  // namespace ipc2581::tests
