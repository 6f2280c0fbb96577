#include <array>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/ipc2581/check/PictureLosses.h"
#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/html/HtmlPage.h"
#include "hosts/ipc2581/html/PageData.h"
#include "hosts/ipc2581/output/Output.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

struct Options {
    std::string board;
    std::string against;
    Reading reading;
    std::string output;
    PageChoice page;
    Existing existing = Existing::Refuse;
};

// What this program has made it may replace.
bool IsOwnPage(const std::string & path)
{
    std::array<char, HtmlMark.size()> start = {};
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), start.size());
    return file && std::string_view(start.data(), start.size()) == HtmlMark;
}

void WarnOf(Board & board)
{
    if (board.Report() == nullptr) {
        Warn(board, PictureLosses(board));
    }
    WarnOfImport(board);
}

// Of the board, or of what differs between it and the one that it is compared with.
void WritePageOf(const Options & options, std::string_view title, const std::string & data)
{
    const Existing existing = IsOwnPage(options.output) ? Existing::Replace : options.existing;
    Output output(options.output, {options.board, options.against}, existing);
    WritePage(output.Stream(), title, data);
    output.Finish();
}

void HtmlOfOne(const Options & options)
{
    LastBoard board = OpenBoard(options.board, options.reading);
    WritePageOf(options, OneLine(board.File().Name()), PageDataOf(board, options.page));
    WarnOf(board);
    EndWhereLost({&board});
}

void HtmlOfTwo(const Options & options)
{
    const TwoBoards boards = OpenTwoBoards(options.board, options.against, options.reading);
    Board & before = *boards.before;
    Board & after = *boards.after;
    const std::string title = OneLine(before.File().Name()) + " / " + OneLine(after.File().Name());
    WritePageOf(options, title, PageDataOf(before, after, options.page));
    WarnOf(before);
    WarnOf(after);
    EndWhereLost({&before, &after});
}

void Html(const Options & options)
{
    const Existing existing = IsOwnPage(options.output) ? Existing::Replace : options.existing;
    if (options.against.empty()) {
        RefuseOutput(options.output, {options.board}, existing);
        HtmlOfOne(options);
        return;
    }
    RefuseOutput(options.output, {options.board, options.against}, existing);
    HtmlOfTwo(options);
}

}  // namespace

void AddHtmlCommand(CLI::App & program)
{
    const auto options = std::make_shared<Options>();
    CLI::App & command =
        AddCommand(program, "html", "Make one page of a board that any browser shows: parts, nets, layers, stackup",
                   "ipc2581 html board.cvg -o board.html");
    AddBoard(command, options->board);
    AddReading(command, options->reading);
    command.add_option("-o,--output", options->output, "Write the page to FILE")->required()->type_name("FILE");
    command
        .add_option("--against", options->against,
                    "Show what differs between BOARD and B, which is taken as the newer one")
        ->type_name("B");
    AddUnits(command, options->page.unit);
    AddForce(command, options->existing);
    command.callback([options] { Html(*options); });
}

}  // namespace ipc2581::host
