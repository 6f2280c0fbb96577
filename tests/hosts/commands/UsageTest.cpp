#include <string>

#include <gtest/gtest.h>

#include "ipc2581/version.h"
#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

TEST(Usage, VersionIsThatOfTheLibrary)
{
    EXPECT_EQ(RunProgram({"--version"}), (Result{0, std::string("ipc2581 ") + Version + "\n", ""}));
}

TEST(Usage, HelpListsEachCommandWithAnExample)
{
    const Result help = RunProgram({"--help"});
    EXPECT_EQ(help, (Result{0, Golden("help.txt", help.out), ""}));
    for (const std::string command : {"info", "bom", "components", "nets", "layers", "stackup", "packages", "pins",
                                      "pads", "holes", "tracks", "svg", "check", "convert", "report", "diff"}) {
        EXPECT_NE(help.out.find("\n  ipc2581 " + command + " "), std::string::npos) << command;
        const Result own = RunProgram({command, "--help"});
        EXPECT_NE(own.out.find("Example: ipc2581 " + command + " "), std::string::npos) << own;
        EXPECT_EQ(own.status, 0);
    }
}

TEST(Usage, HelpOnAFullDiskFails)
{
    Setting full;
    full.output = "/dev/full";
    EXPECT_EQ(RunProgram({"--help"}, full), Failure("standard output: cannot be written: No space left on device"));
}

TEST(Usage, WrongOneIsToldInOneLine)
{
    EXPECT_EQ(RunProgram({}), WrongUsage("A subcommand is required"));
    EXPECT_EQ(RunProgram({"info"}), WrongUsage("BOARD is required"));
    EXPECT_EQ(RunProgram({"convert", "board.cvg"}), WrongUsage("OUT is required"));
    EXPECT_EQ(RunProgram({"report"}), WrongUsage("BOARD is required"));
    EXPECT_EQ(RunProgram({"info", "board.cvg", "--format", "xml"}),
              WrongUsage("--format: must be table, csv or json, not xml"));
    EXPECT_EQ(RunProgram({"info", "board.cvg", "--colour"}),
              WrongUsage("The following argument was not expected: --colour"));
    EXPECT_EQ(RunProgram({"frobnicate"}).status, 2);
}

}  // namespace
}  // namespace ipc2581::tests
