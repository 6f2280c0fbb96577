#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/OpenFile.h"
#include "hosts/ipc2581/output/ScratchFolder.h"

namespace ipc2581::host {
namespace {

namespace fs = std::filesystem;

constexpr const char * DesignEnding = ".cvg";

// Of the name of a board.
std::string WithoutEnding(const std::string & name)
{
    const std::size_t end = name.find(DesignEnding);
    if (end != std::string::npos) {
        return name.substr(0, end);
    }
    fs::path stem(name);
    for (const std::string packed : {".gz", ".zst", ".xz", ".bz2"}) {
        if (stem.extension() == packed) {
            stem = stem.stem();
        }
    }
    return stem.stem().string();
}

// Beside the board, with ".txt" for the first ".cvg" of the name and all behind it, or for another ending. That of a
// board without a name of its own is the standard output.
std::string ReportPath(const std::string & board)
{
    if (IsStandardInput(board)) {
        return "-";
    }
    const fs::path path(board);
    std::error_code error;
    const fs::file_type type = fs::status(path, error).type();
    if (type == fs::file_type::none) {
        throw Error(board, error.message());
    }
    if (type != fs::file_type::regular) {
        return "-";
    }
    return (path.parent_path() / (WithoutEnding(path.filename().string()) + ".txt")).string();
}

// The library makes the report in one go under a name of its own choice: in a folder where nothing can suffer.
std::string ReportText(const std::string & told, CIPC2581_Parser & root)
{
    ScratchFolder folder;
    const std::string made = folder.File("report.txt");
    const std::string design = made.substr(0, made.size() - 4) + DesignEnding;
    if (design.find(DesignEnding) != made.size() - 4) {
        throw Error(made, "the folder for temporary files must not have \".cvg\" in its name");
    }
    WriteReport(design, told, root);
    const OpenedFile file = OpenFile(made);
    std::string text;
    std::array<char, 1 << 16> block;
    while (const std::size_t count = ReadBlock(made, file.get(), block)) {
        text.append(block.data(), count);
    }
    return text;
}

struct Options {
    std::string board;
    Reading reading;
    std::string output;  // empty is one beside the board
    Existing existing = Existing::Refuse;
};

void Report(const Options & options)
{
    const std::string reportPath = options.output.empty() ? ReportPath(options.board) : options.output;
    RefuseOutput(reportPath, {options.board}, options.existing);
    LastBoard board = OpenBoard(options.board, options.reading);
    Output output(reportPath, {options.board}, options.existing);
    output.Stream() << ReportText(reportPath, board.Root());
    output.Finish();
    WarnOfImport(board);
    EndWhereLost({&board});
}

}  // namespace

void AddReportCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "report", "Write the library's report next to the board, as .txt",
                                    "ipc2581 report board.cvg");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    command.add_option("-o,--output", options->output, "Write to FILE, or to standard output for -, instead")
        ->type_name("FILE");
    AddForce(command, options->existing);
    command.callback([options] { Report(*options); });
}

}  // namespace ipc2581::host
