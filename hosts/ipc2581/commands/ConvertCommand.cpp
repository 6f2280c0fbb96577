#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include <import/ForWriting.h>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/output/FileReplacement.h"
#include "hosts/ipc2581/output/Progress.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    Reading reading;
    std::string output;
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

// Says in one line what the written file does not have of the board.
void TellUnwritten(const std::string & output, Board & board)
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
}

void Convert(const Options & options)
{
    RefuseInput(options.output, {options.board});
    Board board = OpenBoard(options.board, options.reading);
    if (board.Report() != nullptr) {
        PrepareForWriting(board.Root());
    }
    FileReplacement file(options.output);
    {
        Progress progress("Writing " + options.output);
        WriteModel(file.WritePath(), options.output, board.Root(), &progress);
    }
    file.Commit();
    TellUnwritten(options.output, board);
}

}  // namespace

void AddConvertCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "convert", "Read a board and write it as the library writes it",
                                    "ipc2581 convert board.xml board.cvg");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    command.add_option("OUT", options->output, "The file to write")->required()->type_name("");
    command.callback([options] { Convert(*options); });
}

}  // namespace ipc2581::host
