#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "hosts/ipc2581/check/Losses.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/commands/ExitStatus.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/Pack.h"
#include "hosts/ipc2581/sqlite/BoardDatabase.h"

namespace ipc2581::host {
namespace {

enum Status { SomeNotRead = 1 };

struct Options {
    std::vector<std::string> boards;
    Reading reading;
    std::string output;
};

void RefuseDatabase(const Options & options)
{
    if (options.output.empty() || IsStandardOutput(options.output)) {
        throw Error(options.output.empty() ? "\"\"" : options.output, "is no file that a database can be written to");
    }
    if (IsPackedName(options.output)) {
        throw Error(options.output, "is the name of a packed file, and a database is not packed");
    }
    for (const std::string & board : options.boards) {
        RefuseInput(options.output, {board});
    }
}

enum class Outcome { Whole, Lost, NotRead };

// A board that cannot be read is told, and what was read of it before stays.
Outcome PutBoard(const std::string & path, const Reading & reading, BoardDatabase & database)
{
    try {
        Board board = ReadBoard(path, reading);
        database.Put(board);
        WarnOfImport(board);
        const std::string losses = reading.isStrict ? LossesOf(board) : "";
        if (losses.empty()) {
            return Outcome::Whole;
        }
        TellLosses(board.File().Name(), losses);
        return Outcome::Lost;
    }
    catch (const DatabaseError &) {
        throw;
    }
    catch (const std::exception & failure) {
        TellFailure(failure);
        return Outcome::NotRead;
    }
}

void FillDatabase(const Options & options)
{
    RefuseDatabase(options);
    BoardDatabase database(options.output);
    bool isAllRead = true;
    bool isLost = false;
    for (const std::string & path : options.boards) {
        const Outcome outcome = PutBoard(path, options.reading, database);
        isAllRead = isAllRead && outcome != Outcome::NotRead;
        isLost = isLost || outcome == Outcome::Lost;
    }
    if (!isAllRead) {
        throw ExitStatus{SomeNotRead};
    }
    if (isLost) {
        throw ExitStatus{LostStatus};
    }
}

}  // namespace

void AddSqliteCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "sqlite", "Put boards into an SQLite database, each in place of what was read of it before",
                   "ipc2581 sqlite *.cvg -o boards.sqlite");
    command
        .add_option("BOARD", options->boards,
                    "IPC-2581 files, or - for standard input; may be packed as .gz, .zst, .xz, .bz2, .zip, .7z or .tar")
        ->required()
        ->type_name("");
    AddReading(command, options->reading);
    command.add_option("-o,--output", options->output, "The database; created if missing")
        ->required()
        ->type_name("FILE");
    command.callback([options] { FillDatabase(*options); });
}

}  // namespace ipc2581::host
