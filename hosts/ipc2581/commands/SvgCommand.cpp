#include <algorithm>
#include <array>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <iostream>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "hosts/ipc2581/check/PictureLosses.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/drawing/BoardDrawing.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/output/Output.h"
#include "hosts/ipc2581/svg/SvgPicture.h"
#include "hosts/ipc2581/svg/SvgPng.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

namespace fs = std::filesystem;

struct Options {
    std::string board;
    Reading reading;
    std::string folder;
    std::vector<std::string> layers;
    bool hasWholeFrame = false;
    bool isPng = false;
    int width = 2000;
    Existing existing = Existing::Refuse;
};

void MakeFolder(const std::string & folder)
{
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        throw Error(folder, "cannot be created: " + SystemCause(failure.value()));
    }
}

// Names of files without their ending, each of which no other one has on any file system.
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
        return tried;
    }

private:
    std::set<std::string> m_taken;
};

struct Picture {
    std::string path;
    std::function<void(std::ostream &)> write;
};

std::vector<Picture> PicturesOf(const Options & options, const std::set<std::string> & chosen, const Drawing & drawing,
                                const SvgFrame & frame)
{
    std::vector<Picture> pictures;
    const auto add = [&](const std::string & name, std::function<void(std::ostream &)> write) {
        const std::string file = name + (options.isPng ? ".png" : ".svg");
        pictures.push_back({(fs::path(options.folder) / file).string(), std::move(write)});
    };
    if (chosen.empty()) {
        for (const Side side : {Side::Top, Side::Bottom}) {
            add(side == Side::Top ? "board-top" : "board-bottom",
                [&, side](std::ostream & out) { WriteSidePicture(out, drawing, frame, side); });
        }
    }
    FileNames names;
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        const std::string name = names.NameOf(drawing.layers[i].name);
        if (chosen.empty() || chosen.contains(drawing.layers[i].name)) {
            add(name, [&, i](std::ostream & out) { WriteLayerPicture(out, drawing, frame, i); });
        }
    }
    return pictures;
}

// How long the name of a layer is that the text begins with, up to a comma or to its end. A name may have commas
// itself, so the longest one counts; 0 if there is none.
std::size_t NameLength(std::string_view text, const std::set<std::string, std::less<>> & names)
{
    std::size_t end = text.size();
    while (!names.contains(text.substr(0, end))) {
        end = end == 0 ? std::string_view::npos : text.rfind(',', end - 1);
        if (end == std::string_view::npos) {
            return 0;
        }
    }
    return end;
}

// The layers that are asked for, by their names in the drawing. Throws Error for one that is not there.
std::set<std::string> ChosenLayers(const Options & options, const std::string & board, const Drawing & drawing)
{
    std::set<std::string, std::less<>> names;
    std::string list;
    for (const DrawnLayer & layer : drawing.layers) {
        names.insert(layer.name);
        list.append(list.empty() ? "" : ", ").append(layer.name);
    }
    std::set<std::string> chosen;
    for (const std::string & asked : options.layers) {
        std::string_view rest = asked;
        do {
            const std::size_t length = NameLength(rest, names);
            if (length == 0) {
                const std::string name(rest.substr(0, rest.find(',')));
                throw Error(board, std::string("has no layer \"").append(name).append("\"; it has ").append(list));
            }
            chosen.emplace(rest.substr(0, length));
            rest.remove_prefix(std::min(length + 1, rest.size()));
        } while (!rest.empty());
    }
    return chosen;
}

// By what stands in its first bytes, wherever it has come from.
bool IsOwnPicture(const fs::path & path)
{
    std::ifstream file(path, std::ios::binary);
    std::array<char, 100> start = {};
    file.read(start.data(), start.size());
    const std::string_view bytes(start.data(), static_cast<std::size_t>(file.gcount()));
    return bytes.starts_with(SvgMark) ||
           (bytes.starts_with("\x89PNG") && bytes.find(PngMark) != std::string_view::npos);
}

bool HasNameOfPicture(const std::string & name)
{
    const bool isPicture = name.ends_with(".svg") || name.ends_with(".png");
    return isPicture &&
           (name.starts_with("board-top.") || name.starts_with("board-bottom.") || name.starts_with("layer-"));
}

// Pictures of this program that this run has not written are of an earlier board.
void RemoveStale(const std::string & folder, const std::vector<Picture> & pictures)
{
    std::set<std::string> written;
    for (const Picture & picture : pictures) {
        written.insert(fs::path(picture.path).filename().string());
    }
    std::vector<fs::path> stale;
    for (const fs::directory_entry & entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (HasNameOfPicture(name) && !written.contains(name) &&
            entry.symlink_status().type() == fs::file_type::regular && IsOwnPicture(entry.path())) {
            stale.push_back(entry.path());
        }
    }
    for (const fs::path & path : stale) {
        std::error_code ignored;
        fs::remove(path, ignored);
    }
}

std::string Drawn(const Options & options, const Picture & picture)
{
    std::ostringstream svg;
    picture.write(svg);
    if (!options.isPng) {
        return std::move(svg).str();
    }
    try {
        return PngOf(svg.view(), options.width);
    }
    catch (const std::runtime_error & error) {
        throw Error(picture.path, error.what());
    }
}

void WritePicture(const Options & options, const Picture & picture, const std::string & drawn)
{
    // What this program has drawn it may replace.
    const Existing existing = IsOwnPicture(picture.path) ? Existing::Replace : options.existing;
    Output output(picture.path, {options.board}, existing);
    output.Stream() << drawn;
    output.Finish();
}

// The next ones are drawn while one is written.
void WritePictures(const Options & options, const std::vector<Picture> & pictures)
{
    constexpr std::size_t ahead = 3;
    std::deque<std::future<std::string>> drawn;
    std::size_t next = 0;
    for (const Picture & picture : pictures) {
        for (; next < pictures.size() && drawn.size() < ahead; ++next) {
            drawn.push_back(std::async([&options, &own = pictures[next]] { return Drawn(options, own); }));
        }
        WritePicture(options, picture, drawn.front().get());
        drawn.pop_front();
    }
}

// Documents reach beyond the frame that suits the board.
void TellCutLayers(const std::set<std::string> & chosen, const std::string & board, const Drawing & drawing,
                   const std::vector<std::size_t> & layersBeyond)
{
    std::string cut;
    for (const std::size_t layer : layersBeyond) {
        const std::string & name = drawing.layers[layer].name;
        if (chosen.empty() || chosen.contains(name)) {
            cut.append(cut.empty() ? "" : ", ").append(name);
        }
    }
    if (!cut.empty()) {
        std::cerr << "ipc2581: " << OneLine(board)
                  << ": warning: layers that reach beyond the pictures: " << OneLine(cut)
                  << "; --whole shows all of them\n";
    }
}

void Svg(const Options & options)
{
    LastBoard board = OpenBoard(options.board, options.reading);
    const Drawing drawing = DrawingOf(board);
    const std::set<std::string> chosen = ChosenLayers(options, board.File().Name(), drawing);
    const std::vector<Extents> layerBoxes = BoxesOfLayers(drawing);
    const SvgFrame frame = FrameOf(drawing, layerBoxes, options.hasWholeFrame);
    const std::vector<Picture> pictures = PicturesOf(options, chosen, drawing, frame);
    MakeFolder(options.folder);
    for (const Picture & picture : pictures) {
        RefuseOutput(picture.path, {options.board}, IsOwnPicture(picture.path) ? Existing::Replace : options.existing);
    }
    WritePictures(options, pictures);
    RemoveStale(options.folder, pictures);
    if (board.Report() == nullptr) {
        Warn(board, PictureLosses(board));
    }
    TellCutLayers(chosen, board.File().Name(), drawing, LayersBeyond(layerBoxes, frame));
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
    command.add_option("--layers", options->layers, "Draw these layers alone, with a comma between their names")
        ->allow_extra_args(false)
        ->type_name("NAMES");
    command.add_flag("--whole", options->hasWholeFrame,
                     "Make the pictures as large as the largest layer, instead of as large as the board");
    CLI::Option * const png = command.add_flag("--png", options->isPng, "Write PNG files instead of SVG files");
    constexpr int widest = 30000;
    command.add_option("--width", options->width, "Width of a PNG file in pixels, 2000 if it is not given")
        ->check(CLI::Range(1, widest))
        ->needs(png)
        ->type_name("PIXELS");
    AddForce(command, options->existing);
    command.callback([options] { Svg(*options); });
}

}  // namespace ipc2581::host
