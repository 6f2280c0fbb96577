#include <map>
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
    EXPECT_EQ(
        RunProgram({}),
        WrongUsage(
            "a command is missing: one of info, bom, components, nets, layers, stackup, packages, pins, pads, holes, "
            "tracks, svg, html, check, convert, report, diff, sqlite"));
    EXPECT_EQ(RunProgram({"info"}), WrongUsage("BOARD is required"));
    EXPECT_EQ(RunProgram({"convert", "board.cvg"}), WrongUsage("OUT is required"));
    EXPECT_EQ(RunProgram({"report"}), WrongUsage("BOARD is required"));
    EXPECT_EQ(RunProgram({"info", "board.cvg", "--format", "xml"}),
              WrongUsage("--format: must be table, csv, json or jsonl, not xml"));
    EXPECT_EQ(RunProgram({"info", "board.cvg", "--colour"}),
              WrongUsage("The following argument was not expected: --colour"));
    EXPECT_EQ(RunProgram({"frobnicate"}), WrongUsage("frobnicate is no command"));
}

TEST(Usage, WhatMayHaveBeenMeantIsTold)
{
    const std::map<std::string, std::string> meant = {
        {"inof", "info"}, {"bmo", "bom"},      {"component", "components"},
        {"NETS", "nets"}, {"conv", "convert"}, {"chekc", "check"}};
    for (const auto & [misspelt, command] : meant) {
        EXPECT_EQ(RunProgram({misspelt, "board.cvg"}),
                  WrongUsage(misspelt + " is no command; did you mean " + command + "?"));
    }
    EXPECT_EQ(RunProgram({"board.cvg"}), WrongUsage("board.cvg is no command"));
    EXPECT_EQ(RunProgram({"info", "board.cvg", "--fromat", "csv"}),
              WrongUsage("The following arguments were not expected: --fromat csv; did you mean --format?"));
}

TEST(Usage, ArgumentsThatAreTooManyAreToldInTheOrderGiven)
{
    EXPECT_EQ(RunProgram({"info", "one", "two", "three", "--four"}),
              WrongUsage("The following arguments were not expected: two three --four"));
    EXPECT_EQ(RunProgram({"diff", "a", "b", "c\nd"}), WrongUsage("The following argument was not expected: c?d"));
}

TEST(Usage, TerminalWithoutEscapesGetsNone)
{
    if (const std::string why = WhyNoTerminal(); !why.empty()) {
        GTEST_SKIP() << why;
    }
    const auto shown = [](const std::string & type, const std::string & noColor) {
        return RunProgram({"bom", ExampleBoard(), "-o", "/dev/null"},
                          {.isOnTerminal = true, .terminalType = type, .noColor = noColor})
            .err;
    };
    EXPECT_NE(shown("xterm", "").find("\x1b["), std::string::npos);
    EXPECT_EQ(shown("dumb", ""), "");
    EXPECT_EQ(shown("xterm", "1"), "");
}

}  // namespace
}  // namespace ipc2581::tests
