#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <system_error>

#include "hosts/ipc2581/check/PictureLosses.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/drawing/BoardDrawing.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/output/Output.h"
#include "hosts/ipc2581/svg/SvgPicture.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    Reading reading;
    std::string folder;
};

void MakeFolder(const std::string & folder)
{
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    if (failure) {
        throw Error(folder, "cannot be created: " + SystemCause(failure.value()));
    }
}

// Names of files, each of which no other one has on any file system.
class FileNames {
public:
    std::string NameOf(std::string_view layer)
    {
        constexpr std::size_t longest = 100;
        std::string name = "layer-";
        for (const char ch : layer.substr(0, longest)) {
            const bool isPlain = (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9') ||
                                 ch == '.' || ch == '-' || ch == '_' || ch == '+';
            name += isPlain ? ch : '_';
        }
        std::string tried = name;
        for (int i = 2; !m_taken.insert(LowerCase(tried)).second; ++i) {
            tried = name + "-" + std::to_string(i);
        }
        return tried + ".svg";
    }

private:
    std::set<std::string> m_taken;
};

void Svg(const Options & options)
{
    Board board = OpenBoard(options.board, options.reading);
    const Drawing drawing = DrawingOf(board);
    MakeFolder(options.folder);
    const auto write = [&](const std::string & name, const std::function<void(std::ostream &)> & picture) {
        Output output((std::filesystem::path(options.folder) / name).string(), {options.board});
        picture(output.Stream());
        output.Finish();
    };
    write("board-top.svg", [&](std::ostream & out) { WriteSidePicture(out, drawing, Side::Top); });
    write("board-bottom.svg", [&](std::ostream & out) { WriteSidePicture(out, drawing, Side::Bottom); });
    FileNames names;
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        write(names.NameOf(drawing.layers[i].name), [&](std::ostream & out) { WriteLayerPicture(out, drawing, i); });
    }
    if (board.Report() == nullptr) {
        Warn(board, PictureLosses(board));
    }
    WarnOfImport(board);
    EndWhereLost({&board});
}

}  // namespace

void AddSvgCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command = AddCommand(program, "svg", "Draw the top, the bottom and each layer of a board",
                                    "ipc2581 svg board.cvg -o pictures");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    command.add_option("-o,--output", options->folder, "Folder for the pictures; created if missing")
        ->required()
        ->type_name("DIR");
    command.callback([options] { Svg(*options); });
}

}  // namespace ipc2581::host
