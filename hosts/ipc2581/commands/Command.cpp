#include "hosts/ipc2581/commands/Command.h"

#include <algorithm>
#include <cstdio>
#include <future>
#include <iostream>
#include <map>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/ImportWarnings.h"
#include "hosts/ipc2581/board/MemoryBound.h"
#include "hosts/ipc2581/check/Losses.h"
#include "hosts/ipc2581/commands/ExitStatus.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/Pack.h"
#include "hosts/ipc2581/output/Progress.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

constexpr const char * StandardInput = "standard input";

const std::map<std::string, Format> Formats = {
    {"table", Format::Table}, {"csv", Format::Csv}, {"json", Format::Json}, {"jsonl", Format::JsonLines}};

// As an argument names it.
std::string Asked(const std::string & name)
{
    return name == StandardInput ? "-" : name;
}

template <typename Opened>
Opened Read(const std::string & path, const Reading & reading)
{
    BoardFile file = OpenBoardFile(path);
    Progress progress("Reading " + file.Name());
    return Opened(std::move(file), reading, &progress);
}

}  // namespace

CLI::App & AddCommand(CLI::App & program, const std::string & name, const std::string & description,
                      const std::string & example)
{
    CLI::App & command = *program.add_subcommand(name, description);
    command.footer("Example: " + example);
    return command;
}

void AddBoard(CLI::App & command, std::string & board, const std::string & name)
{
    command
        .add_option(name, board,
                    "IPC-2581 file, or - for standard input; may be packed as .gz, .zst, .xz, .bz2, .zip, .7z or .tar")
        ->required()
        ->type_name("");
}

void AddReading(CLI::App & command, Reading & reading)
{
    CLI::Option * const exact =
        command.add_flag("--exact", reading.isExact, "Read as the library reads its own files, one element a line");
    command.add_option("--step", reading.step, "The step to read, instead of the first one with components")
        ->type_name("NAME")
        ->excludes(exact);
    AddStrict(command, reading.isStrict);
}

void AddStrict(CLI::App & command, bool & isStrict)
{
    command.add_flag("--strict", isStrict, "End with 3 where anything of a board was lost or read otherwise");
}

BoardFile OpenBoardFile(const std::string & board)
{
    return board == "-" ? BoardFile(StandardInput, stdin) : BoardFile(board);
}

Board ReadBoard(const std::string & path, const Reading & reading)
{
    return Read<Board>(path, reading);
}

LastBoard OpenBoard(const std::string & path, const Reading & reading)
{
    return Read<LastBoard>(path, reading);
}

TwoBoards OpenTwoBoards(const std::string & before, const std::string & after, Reading reading)
{
    if (IsStandardInput(before) && IsStandardInput(after)) {
        throw Error(StandardInput, "is there to be read once; give one of the boards as a file");
    }
    // The reader of the core has its messages in one place for the whole program.
    reading.isBesideAnother = !reading.isExact;
    BoardFile oldFile = OpenBoardFile(before);
    BoardFile newFile = OpenBoardFile(after);
    Progress progress("Reading " + oldFile.Name() + " and " + newFile.Name());
    const std::launch when = reading.isBesideAnother ? ReadingAtOnce() : std::launch::deferred;
    auto read = std::async(when, [&] { return std::make_unique<LastBoard>(std::move(newFile), reading); });
    auto board = std::make_unique<LastBoard>(std::move(oldFile), reading, &progress);
    return {std::move(board), read.get()};
}

void AddListingOptions(CLI::App & command, ListingOptions & options)
{
    command
        .add_option_function<std::string>(
            "-f,--format", [&options](const std::string & name) { options.format = Formats.at(name); },
            "table (default), csv, json or jsonl, which is a line of JSON for each row")
        ->check([](const std::string & name) {
            return Formats.contains(name) ? "" : "must be table, csv, json or jsonl, not " + name;
        })
        ->type_name("FORMAT");
    command
        .add_option("-o,--output", options.output,
                    "Write to FILE instead of standard output; packed if it ends in .gz, .zst, .xz or .bz2")
        ->type_name("FILE");
}

void AddForce(CLI::App & command, Existing & existing)
{
    command.add_flag_callback(
        "--force", [&existing] { existing = Existing::Replace; }, "Replace what is there already");
}

void RefuseOutput(const std::string & output, std::initializer_list<std::string> inputs, Existing existing)
{
    if (IsStandardOutput(output)) {
        return;
    }
    RefuseInput(output, inputs);
    static_cast<void>(IsPackedName(output));
    if (existing == Existing::Refuse) {
        RefuseExisting(output);
    }
}

void AddBoardListing(CLI::App & command, SortedListing & options)
{
    AddBoard(command, options.board);
    AddReading(command, options.reading);
    AddListingOptions(command, options.listing);
}

void AddSort(CLI::App & command, SortedListing & options, const std::string & order)
{
    command.add_flag("--sort", options.isSorted, order + ", instead of in file order");
}

void AddUnits(CLI::App & command, std::string & unit)
{
    command.add_option("--units", unit, "List lengths in mm, inch, mil or um, instead of the units of the board")
        ->check([](const std::string & name) {
            const std::vector<std::string> units = Lengths::Units();
            return std::find(units.begin(), units.end(), name) != units.end()
                       ? ""
                       : "must be mm, inch, mil or um, not " + name;
        })
        ->type_name("UNIT");
}

void PrintTable(const SortedListing & options, const TableMaker & make, const std::vector<Listed> & listed)
{
    LastBoard board = OpenBoard(options.board, options.reading);
    const Lengths lengths(board, options.unit);
    const std::string losses = LacksOf(board, listed);
    Print(make(board, lengths), options.listing, {options.board}, SourceOf(board, lengths, losses));
    Warn(board, losses);
    EndWhereLost({&board});
}

void AddLengthListing(CLI::App & program, const LengthListing & listing)
{
    const auto options = std::make_shared<SortedListing>();
    CLI::App & command = AddCommand(program, listing.name, listing.description, listing.example);
    AddBoardListing(command, *options);
    AddUnits(command, options->unit);
    AddSort(command, *options, listing.order);
    command.callback([options, listing] {
        PrintTable(
            *options,
            [&](Board & board, const Lengths & lengths) { return listing.make(board, lengths, options->isSorted); },
            listing.listed);
    });
}

void WarnOfImport(const Board & board)
{
    if (board.Report() != nullptr) {
        Warn(board, OneLine(NotesOfImport(*board.Report(), !board.HowRead().step.empty())));
    }
}

std::string LacksOf(Board & board, const std::vector<Listed> & listed, Absence absence)
{
    if (board.Report() != nullptr) {
        return OneLine(NotesOfImport(*board.Report(), !board.HowRead().step.empty()));
    }
    return ListingLosses(board, listed, absence).Text();
}

Source SourceOf(Board & board, const Lengths & lengths, const std::string & losses)
{
    Source source{board.File().Name(), Shown(board.Step().Name), lengths.Word()};
    if (board.Report() != nullptr) {
        source.warnings = WarningsOfImport(*board.Report(), !board.HowRead().step.empty());
    }
    else if (!losses.empty()) {
        source.warnings.push_back({"not_read", 0, losses});
    }
    return source;
}

void TellLosses(const std::string & board, const std::string & losses)
{
    std::cerr << "ipc2581: " << OneLine(board) << ": lost or read otherwise: " << losses << "; see ipc2581 check "
              << OneLine(Asked(board)) << "\n";
}

void EndWhereLost(std::initializer_list<const Board *> boards)
{
    bool isLost = false;
    for (const Board * const board : boards) {
        const std::string losses = board->HowRead().isStrict ? LossesOf(*board) : "";
        if (!losses.empty()) {
            TellLosses(board->File().Name(), losses);
            isLost = true;
        }
    }
    if (isLost) {
        throw ExitStatus{LostStatus};
    }
}

void Warn(const Board & board, const std::string & losses)
{
    if (!losses.empty()) {
        const std::string & name = board.File().Name();
        std::cerr << "ipc2581: " << name << ": warning: " << losses << "; see ipc2581 check " << Asked(name) << "\n";
    }
}

void TellFailure(const std::exception & failure)
{
    const bool isForMemory = dynamic_cast<const std::bad_alloc *>(&failure) != nullptr;
    std::cerr << "ipc2581: " << (isForMemory ? "out of memory" : failure.what()) << "\n";
}

}  // namespace ipc2581::host
