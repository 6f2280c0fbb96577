#include <memory>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/board/LibraryMessages.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/output/Progress.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    std::string output;
};

void WriteFile(const std::string & path, const std::string & told, CIPC2581_Parser & root)
{
    Progress progress("Writing " + told);
    CIPC2581_XmlLiteReader writer;
    writer.m_pProgressCtrl = &progress;
    CString writePath(path.c_str());
    const LibraryMessages messages;
    try {
        if (writer.WriteFilePath(writePath, root) == 0) {
            throw Error(told, "cannot be written: " + messages.Text());
        }
    }
    catch (const CFileException & failure) {
        throw Error(told, "cannot be written: " + CauseOf(failure));
    }
}

void Convert(const Options & options)
{
    RefuseInput(options.output, {options.board});
    Board board(options.board);
    FileReplacement file(options.output);
    WriteFile(file.WritePath(), options.output, board.Root());
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
