#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <import/ForWriting.h>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/commands/ExitStatus.h"
#include "hosts/ipc2581/files/OpenFile.h"
#include "hosts/ipc2581/files/Pack.h"
#include "hosts/ipc2581/files/ScratchFile.h"
#include "hosts/ipc2581/output/FileReplacement.h"
#include "hosts/ipc2581/output/Progress.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    Reading reading;
    std::string output;
    Existing existing = Existing::Refuse;
};

void Add(std::string & list, std::size_t count, std::string_view one, std::string_view several)
{
    if (count != 0) {
        list.append(list.empty() ? "" : ", ")
            .append(std::to_string(count))
            .append(" ")
            .append(count == 1 ? one : several);
    }
}

// Says in one line what the written file does not have of the board, and gives whether there is anything.
bool TellUnwritten(const std::string & output, Board & board)
{
    std::string list;
    for (const Unwritten & own : UnwrittenOf(board.Root())) {
        Add(list, own.count, own.one, own.several);
    }
    if (board.Report() != nullptr) {
        Add(list, board.Report()->LostCount(), "fact without a place in the model",
            "facts without a place in the model");
        Add(list, board.Report()->RemarkCount(), "remark of a set", "remarks of sets");
    }
    if (!list.empty()) {
        std::cerr << "ipc2581: " << OneLine(output) << ": not written: " << list << "\n";
    }
    return !list.empty();
}

// The writer of the library writes to a path.
void WriteFile(const Options & options, CIPC2581_Parser & root)
{
    FileReplacement file(options.output, options.existing);
    {
        Progress progress("Writing " + options.output);
        WriteModel(file.WritePath(), options.output, root, &progress);
    }
    file.Commit();
}

// What is no file, or is packed, takes the bytes of a file that nobody sees.
void WriteStream(const Options & options, CIPC2581_Parser & root)
{
    const ScratchFile scratch;
    {
        Progress progress("Writing " + options.output);
        WriteModel(scratch.Path(), "temporary file", root, &progress);
    }
    Output output(options.output, {options.board}, options.existing);
    const OpenedFile file = OpenFile(scratch.Path());
    std::vector<char> block(std::size_t(1) << 16);
    while (const std::size_t count = ReadBlock("temporary file", file.get(), block)) {
        output.Stream().write(block.data(), static_cast<std::streamsize>(count));
    }
    output.Finish();
}

void Convert(const Options & options)
{
    RefuseOutput(options.output, {options.board}, options.existing);
    LastBoard board = OpenBoard(options.board, options.reading);
    if (board.Report() != nullptr) {
        PrepareForWriting(board.Root());
    }
    const bool isStream = IsStandardOutput(options.output) || IsPackedName(options.output);
    isStream ? WriteStream(options, board.Root()) : WriteFile(options, board.Root());
    const bool isUnwritten =
        TellUnwritten(IsStandardOutput(options.output) ? "standard output" : options.output, board);
    WarnOfImport(board);
    EndWhereLost({&board});
    if (isUnwritten && options.reading.isStrict) {
        throw ExitStatus{LostStatus};
    }
}

}  // namespace

void AddConvertCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "convert", "Read a board and write it as the library writes it",
                                    "ipc2581 convert board.xml board.cvg");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    command
        .add_option("OUT", options->output,
                    "The file to write, or - for standard output; packed if it ends in .gz, .zst, .xz or .bz2")
        ->required()
        ->type_name("");
    AddForce(command, options->existing);
    command.callback([options] { Convert(*options); });
}

}  // namespace ipc2581::host
