#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char * Board = IPC2581_SOURCE_FOLDER "/examples/board.cvg";

TEST(HtmlCommand, WritesAPageThatItReplaces)
{
    const TempFolder folder;
    const std::string page = folder.Path("board.html");
    EXPECT_EQ(RunProgram({"html", Board, "-o", page}), (Result{0, "", ""}));
    const std::string first = Bytes(page);
    EXPECT_TRUE(first.starts_with("<!doctype html>"));
    EXPECT_EQ(RunProgram({"html", Board, "-o", page}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(page), first);
}

TEST(HtmlCommand, ReplacesNothingOfOthersWithoutForce)
{
    const TempFolder folder;
    const std::string page = folder.Save("board.html", "<p>mine</p>");
    EXPECT_EQ(RunProgram({"html", Board, "-o", page}).status, 1);
    EXPECT_EQ(Bytes(page), "<p>mine</p>");
    EXPECT_EQ(RunProgram({"html", Board, "-o", page, "--force"}).status, 0);
    EXPECT_NE(Bytes(page), "<p>mine</p>");
}

TEST(HtmlCommand, NeverOverwritesABoard)
{
    const TempFolder folder;
    const std::string board = folder.Save("a.cvg", Bytes(Board));
    const std::string other = folder.Save("b.cvg", Bytes(Board));
    for (const std::string & output : {board, other}) {
        const Result result = RunProgram({"html", board, "--against", other, "-o", output, "--force"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "ipc2581: " + output + ": is the board itself, which is never overwritten\n");
    }
}

TEST(HtmlCommand, WritesToTheStandardOutput)
{
    const Result result = RunProgram({"html", Board, "-o", "-"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out.starts_with("<!doctype html>"));
    EXPECT_TRUE(result.out.ends_with("</html>\n"));
}

TEST(HtmlCommand, TellsWhatIsWrong)
{
    const TempFolder folder;
    EXPECT_EQ(RunProgram({"html", Board}).status, 2);
    EXPECT_EQ(RunProgram({"html", Board, "-o", folder.Path("x.html"), "--units", "ell"}).status, 2);
    const Result missing = RunProgram({"html", "missing.cvg", "-o", folder.Path("x.html")});
    EXPECT_EQ(missing, (Result{1, "", "ipc2581: missing.cvg: No such file or directory\n"}));
    EXPECT_EQ(RunProgram({"html", "-", "--against", "-", "-o", folder.Path("x.html")}),
              (Result{1, "", "ipc2581: standard input: is there to be read once; give one of the boards as a file\n"}));
    EXPECT_FALSE(fs::exists(folder.Path("x.html")));
}

TEST(HtmlCommand, EndsWithThreeWhereSomethingWasLost)
{
    const TempFolder folder;
    const Result result = RunProgram({"html", Board, "-o", folder.Path("x.html"), "--strict"});
    EXPECT_EQ(result.status, 3);
    EXPECT_TRUE(fs::exists(folder.Path("x.html")));
}

TEST(HtmlCommand, TakesEncodingsAndNamesThatAreNone)
{
    const TempFolder folder;
    std::string text = Bytes(Board);
    text.replace(text.find("\"RES-47K\""), 9, "\"RES\xff&lt;b>\"");
    const std::string board = folder.Save("<title><script>alert(1)<script>\xff.cvg", text);
    const Result result = RunProgram({"html", "--exact", board, "-o", folder.Path("x.html")});
    EXPECT_EQ(result.status, 0) << result;
    EXPECT_EQ(Bytes(folder.Path("x.html")).find("<script>alert"), std::string::npos);
}

}  // namespace
}  // namespace ipc2581::tests
