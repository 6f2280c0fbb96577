#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/listings/ComponentTable.h"
#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

using Texts = std::set<std::string>;

constexpr const char * Page = IPC2581_SOURCE_FOLDER "/docs/hosts.md";
constexpr const char * Pictures = IPC2581_SOURCE_FOLDER "/docs/pictures";
constexpr const char * ManPage = IPC2581_SOURCE_FOLDER "/hosts/ipc2581/share/ipc2581.1";
constexpr const char * Completion = IPC2581_SOURCE_FOLDER "/hosts/ipc2581/share/completion.bash";

std::vector<std::string> LinesOf(const std::string & text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

// A command line, and what the page shows of its output.
struct Shown {
    std::size_t line = 0;
    std::string command;
    std::vector<std::string> output;
};

// All of the fenced blocks that begin with a command line.
std::vector<Shown> ShownCommands(const std::string & page)
{
    std::vector<Shown> commands;
    bool isFenced = false;
    bool isSession = false;
    std::size_t number = 0;
    for (const std::string & line : LinesOf(page)) {
        ++number;
        if (line.starts_with("```")) {
            isFenced = !isFenced;
            isSession = false;
        }
        else if (isFenced && line.starts_with("$ ")) {
            commands.push_back({number, line.substr(2), {}});
            isSession = true;
        }
        else if (isSession) {
            commands.back().output.push_back(line);
        }
    }
    return commands;
}

// The lines as they were printed, where "..." stands for some that are left out.
bool IsShown(std::span<const std::string> shown, std::span<const std::string> printed)
{
    if (shown.empty()) {
        return printed.empty();
    }
    if (shown.front() != "...") {
        return !printed.empty() && shown.front() == printed.front() && IsShown(shown.subspan(1), printed.subspan(1));
    }
    for (std::size_t leftOut = 1; leftOut <= printed.size(); ++leftOut) {
        if (IsShown(shown.subspan(1), printed.subspan(leftOut))) {
            return true;
        }
    }
    return false;
}

// What a terminal in the folder shows.
std::string Printed(const std::string & command, const std::string & folder)
{
    return RunShell("{ " + command + "\n} 2>&1", folder).out;
}

std::string Help(const std::string & command = "")
{
    std::vector<std::string> arguments = {"--help"};
    if (!command.empty()) {
        arguments.insert(arguments.begin(), command);
    }
    return RunProgram(arguments).out;
}

// The first words of the indented lines under a heading, cut at commas.
Texts WordsUnder(const std::string & heading, const std::string & help)
{
    Texts words;
    bool isUnder = false;
    for (const std::string & line : LinesOf(help)) {
        if (!line.starts_with("  ")) {
            isUnder = line == heading;
        }
        else if (isUnder) {
            std::istringstream first(line.substr(2, line.find(' ', 2) - 2));
            for (std::string word; std::getline(first, word, ',');) {
                words.insert(word);
            }
        }
    }
    return words;
}

Texts Commands()
{
    return WordsUnder("Subcommands:", Help());
}

Texts Options(const std::string & command = "")
{
    return WordsUnder("Options:", Help(command));
}

// All words of a text that begin with a hyphen, but for the lone one that is a standard stream.
Texts OptionsIn(std::string_view text)
{
    const auto isPart = [](char ch) { return ch == '-' || std::isalnum(static_cast<unsigned char>(ch)) != 0; };
    Texts options;
    std::string word;
    for (const char ch : std::string(text) + " ") {
        if (isPart(ch)) {
            word += ch;
            continue;
        }
        if (word.starts_with('-') && word.size() > 1) {
            options.insert(word);
        }
        word.clear();
    }
    return options;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

// The lines of the man page under this heading, without the escapes of font and hyphen.
std::string ManSection(const std::string & heading)
{
    std::string section;
    bool isIn = false;
    for (const std::string & line : LinesOf(Bytes(ManPage))) {
        if (line.starts_with(".SH ") || line.starts_with(".SS ")) {
            isIn = line.substr(4) == heading;
        }
        else if (isIn) {
            section += Replaced(Replaced(line, "\\fI", ""), "\\-", "-") + "\n";
        }
    }
    return section;
}

// What bash puts in place of the last of the words.
Texts Completed(const std::vector<std::string> & words, const std::string & folder = "")
{
    std::vector<std::string> arguments = {"-c",
                                          "source \"$0\"; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _ipc2581; "
                                          "[[ ${#COMPREPLY[@]} -eq 0 ]] || printf '%s\\n' \"${COMPREPLY[@]}\"",
                                          Completion, "ipc2581"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    const Result result = RunProgram(arguments, {.program = "/bin/bash", .folder = folder});
    EXPECT_EQ(result.err, "");
    const std::vector<std::string> lines = LinesOf(result.out);
    return {lines.begin(), lines.end()};
}

TEST(Docs, LeftOutLinesAreTold)
{
    using L = std::vector<std::string>;
    EXPECT_TRUE(IsShown(L{"a", "b"}, L{"a", "b"}));
    EXPECT_FALSE(IsShown(L{"a"}, L{"a", "b"}));
    EXPECT_FALSE(IsShown(L{"a", "b"}, L{"a"}));
    EXPECT_TRUE(IsShown(L{"a", "...", "d"}, L{"a", "b", "d", "c", "d"}));
    EXPECT_TRUE(IsShown(L{"a", "..."}, L{"a", "b"}));
    EXPECT_FALSE(IsShown(L{"a", "..."}, L{"a"}));
    EXPECT_FALSE(IsShown(L{"...", "d"}, L{"a", "d", "e"}));
}

TEST(Docs, PageShowsWhatTheProgramPrints)
{
    const TempFolder folder;
    folder.Save("board.cvg", Bytes(ExampleBoard()));
    for (const Shown & shown : ShownCommands(Bytes(Page))) {
        const std::string printed = Printed(shown.command, folder.Path(""));
        EXPECT_TRUE(IsShown(shown.output, LinesOf(printed)))
            << Page << ":" << shown.line << ": " << shown.command << " prints\n"
            << printed;
    }
}

TEST(Docs, PageShowsEachCommand)
{
    Texts shown;
    for (const Shown & command : ShownCommands(Bytes(Page))) {
        std::istringstream words(command.command);
        std::string program;
        std::string name;
        words >> program >> name;
        if (program == "ipc2581") {
            shown.insert(name.substr(0, name.find(';')));
        }
    }
    EXPECT_EQ(shown, Commands());
}

TEST(Docs, PicturesAreWhatTheProgramDraws)
{
    const TempFolder folder;
    ASSERT_EQ(RunProgram({"svg", ExampleBoard(), "-o", folder.Path("drawn")}), (Result{0, "", ""}));
    const Texts drawings = {"board-bottom.svg", "board-top.svg"};
    Texts pictures = Names(Pictures);
    // Drawn in Python, whose tests look after it, and a browser.
    pictures.erase("drill-holes.png");
    pictures.erase("viewer.png");
    EXPECT_EQ(pictures, drawings);
    const std::string page = Bytes(Page);
    for (const std::string & name : drawings) {
        const std::string path = std::string(Pictures) + "/" + name;
        const std::string drawn = Bytes(folder.Path("drawn/" + name));
        if (std::getenv("IPC2581_UPDATE_GOLDEN") != nullptr) {
            std::ofstream(path, std::ios::binary) << drawn;
        }
        EXPECT_EQ(Bytes(path), drawn) << name;
        EXPECT_NE(page.find("](pictures/" + name + ")"), std::string::npos) << name;
    }
}

TEST(Docs, ManPageTellsEachCommandAndOption)
{
    EXPECT_EQ(OptionsIn(ManSection("DESCRIPTION")), Options());
    const Texts listingOptions = OptionsIn(ManSection("OUTPUT"));
    EXPECT_EQ(listingOptions, (Texts{"-f", "--format", "-o", "--output"}));
    EXPECT_EQ(OptionsIn(ManSection("UNITS")), Texts{"--units"});
    for (const std::string & command : Commands()) {
        Texts told = OptionsIn(ManSection(command));
        // Help is told once for all, and what a synopsis names of the listing options too.
        told.insert({"-h", "--help"});
        if (told.contains("--format")) {
            told.insert(listingOptions.begin(), listingOptions.end());
        }
        EXPECT_EQ(told, Options(command)) << command;
    }
}

TEST(Docs, ManPageIsFormattedWithoutWarning)
{
    const Result result = RunProgram({"-c", "command -v groff || exit 99; groff -t -man -ww -z -Tutf8 \"$0\"", ManPage},
                                     {.program = "/bin/sh"});
    if (result.status == 99) {
        GTEST_SKIP() << "groff is not there";
    }
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
}

TEST(Docs, CompletionKnowsEachCommandAndOption)
{
    EXPECT_EQ(Completed({""}), Commands());
    EXPECT_EQ(Completed({"co"}), (Texts{"components", "convert"}));
    EXPECT_EQ(Completed({"-"}), Options());
    for (const std::string & command : Commands()) {
        EXPECT_EQ(Completed({command, "-"}), Options(command)) << command;
        EXPECT_EQ(Completed({command, "board.cvg", "--h"}), Texts{"--help"}) << command;
    }
}

TEST(Docs, CompletionKnowsTheFormats)
{
    const Texts formats = {"table", "csv", "json", "jsonl"};
    EXPECT_EQ(Completed({"bom", "--format", ""}), formats);
    EXPECT_EQ(Completed({"bom", "board.cvg", "-f", "j"}), (Texts{"json", "jsonl"}));
    EXPECT_EQ(Completed({"bom", "--format", "="}), formats);
    EXPECT_EQ(Completed({"bom", "--format", "=", "c"}), Texts{"csv"});
}

TEST(Docs, CompletionKnowsTheUnits)
{
    const std::vector<std::string> names = host::Lengths::Units();
    const Texts units(names.begin(), names.end());
    EXPECT_EQ(Completed({"components", "--units", ""}), units);
    EXPECT_EQ(Completed({"nets", "--units", "=", "mi"}), Texts{"mil"});
    std::string told = ManSection("UNITS");
    for (const std::string & unit : units) {
        EXPECT_NE(told.find(unit), std::string::npos) << unit;
    }
}

TEST(Docs, CompletionKnowsWhatCanBeChosen)
{
    const std::vector<std::string> heads = host::ComponentHeads();
    EXPECT_EQ(Completed({"components", "--columns", ""}), Texts(heads.begin(), heads.end()));
    EXPECT_EQ(Completed({"components", "--bottom-rotation", ""}), (Texts{"above", "below"}));
    EXPECT_EQ(Completed({"bom", "--group", "pa"}), (Texts{"package", "part"}));
}

TEST(Docs, CompletionOffersBoardsByTheirEndings)
{
    const TempFolder folder;
    const Texts boards = {"a board.cvg", "b.xml", "c.gz", "d.zst", "e.zip", "f.xz", "g.bz2", "h.7z", "i.tar", "folder"};
    for (const std::string & name : boards) {
        if (name != "folder") {
            folder.Save(name, "");
        }
    }
    folder.Save("notes.txt", "");
    std::filesystem::create_directory(folder.Path("folder"));
    Texts all = boards;
    all.insert("notes.txt");
    const auto completed = [&](const std::vector<std::string> & words) { return Completed(words, folder.Path("")); };

    for (const std::string & command : Commands()) {
        EXPECT_EQ(completed({command, ""}), boards) << command;
        EXPECT_EQ(completed({command, "b"}), Texts{"b.xml"}) << command;
    }
    EXPECT_EQ(completed({"nets", "--physical", "--format", "=", "csv", "-o", "x", ""}), boards);
    EXPECT_EQ(completed({"nets", "b.xml", ""}), Texts{});
    EXPECT_EQ(completed({"diff", "b.xml", ""}), boards);
    EXPECT_EQ(completed({"diff", "b.xml", "c.gz", ""}), Texts{});
    EXPECT_EQ(completed({"sqlite", "-o", "x", "b.xml", "c.gz", ""}), boards);
    EXPECT_EQ(completed({"convert", "b.xml", ""}), all);
    EXPECT_EQ(completed({"bom", "b.xml", "-o", ""}), all);
    EXPECT_EQ(completed({"svg", "b.xml", "--output", ""}), Texts{"folder"});
}

}  // namespace
}  // namespace ipc2581::tests
