#include <memory>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/output/FileReplacement.h"
#include "hosts/ipc2581/output/Progress.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    std::string output;
};

void Convert(const Options & options)
{
    RefuseInput(options.output, {options.board});
    Board board = OpenBoard(options.board);
    FileReplacement file(options.output);
    {
        Progress progress("Writing " + options.output);
        WriteModel(file.WritePath(), options.output, board.Root(), &progress);
    }
    file.Commit();
}

}  // namespace

void AddConvertCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "convert", "Read a board and write it as the library writes it",
                                    "ipc2581 convert board.xml board.cvg");
    AddBoard(command, options->board);
    command.add_option("OUT", options->output, "The file to write")->required()->type_name("");
    command.callback([options] { Convert(*options); });
}

}  // namespace ipc2581::host
