// What the worker of the page calls. Each function tells how it ended; what it made, or why it made nothing, is the
// result, which is there until the next one is made.
#include <array>
#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <emscripten.h>
#include <import/ForWriting.h>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/board/ImportWarnings.h"
#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/check/CheckListing.h"
#include "hosts/ipc2581/diff/BoardDifferences.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/html/PageData.h"
#include "hosts/ipc2581/listings/BomTable.h"
#include "hosts/ipc2581/listings/ComponentTable.h"
#include "hosts/ipc2581/listings/FeatureTables.h"
#include "hosts/ipc2581/listings/InfoListing.h"
#include "hosts/ipc2581/listings/LayerTables.h"
#include "hosts/ipc2581/listings/NetTables.h"
#include "hosts/ipc2581/listings/PackageTables.h"
#include "hosts/ipc2581/text/Text.h"

EM_JS(void, TellProgress, (int percent), { Module.tellProgress(percent); });

namespace ipc2581::host {
namespace {

enum Outcome { Made, Failed, NoMemory };

class Progress : public CProgressCtrl {
public:
    int SetPos(int position) override
    {
        const int before = CProgressCtrl::SetPos(position);
        if (position != before) {
            TellProgress(position);
        }
        return before;
    }
};

// A file that was dropped. It goes by the name that it has for people, in the folder that the module is in.
class DroppedFile {
public:
    explicit DroppedFile(std::string name) : m_name(std::move(name)) {}

    [[nodiscard]] BoardFile Open() const { return BoardFile(m_name); }

    // Reads it, if it is not in memory.
    Board & Read(const Reading & reading)
    {
        if (m_board == nullptr || m_board->HowRead().isExact != reading.isExact) {
            Forget();
            Progress progress;
            m_board = std::make_unique<Board>(Open(), reading, &progress);
        }
        return *m_board;
    }

    void Forget() { m_board.reset(); }

private:
    std::string m_name;
    std::unique_ptr<Board> m_board;
};

// All that there is between two calls.
struct State {
    std::array<std::optional<DroppedFile>, 2> files;
    Reading reading;
    std::string result;

    // The one that is shown: of two, the newer.
    DroppedFile & Shown() { return files[1].has_value() ? *files[1] : *files[0]; }
    [[nodiscard]] bool AreTwo() const { return files[1].has_value(); }
};

State & TheState()
{
    static State state;
    return state;
}

// As the program tells it, with the column too.
std::string TextOf(const Error & error)
{
    const std::string line = error.Line() == 0 ? "" : ":" + std::to_string(error.Line());
    const std::string column = error.Column() == 0 ? "" : ":" + std::to_string(error.Column());
    return OneLine(error.File()) + line + column + ": " + error.Cause();
}

Outcome Try(const std::function<std::string(State & state)> & make)
{
    State & state = TheState();
    state.result = {};
    try {
        state.result = make(state);
        return Made;
    }
    catch (const std::bad_alloc &) {
        return NoMemory;
    }
    catch (const Error & error) {
        state.result = TextOf(error);
    }
    catch (const std::exception & error) {
        state.result = error.what();
    }
    return Failed;
}

Source SourceOf(Board & board, const Lengths & lengths)
{
    Source source{board.File().Name(), Shown(board.Step().Name), lengths.Word()};
    if (board.Report() != nullptr) {
        source.warnings = WarningsOfImport(*board.Report(), false);
    }
    return source;
}

Format FormatOf(std::string_view name)
{
    return name == "csv" ? Format::Csv : name == "json" ? Format::Json : Format::Table;
}

struct ListingRow {
    std::string_view name;
    Table (*make)(Board & board, const Lengths & lengths);
};

// As the program lists them without an option.
constexpr std::array Listings = {
    ListingRow{"bom", [](Board & board, const Lengths &) { return BomTable(board, false); }},
    ListingRow{"components", [](Board & board, const Lengths & lengths) { return ComponentTable(board, lengths, {}); }},
    ListingRow{"nets", [](Board & board, const Lengths &) { return NetTable(board, false); }},
    ListingRow{"layers", [](Board & board, const Lengths &) { return LayerTable(board); }},
    ListingRow{"stackup", StackupTable},
    ListingRow{"packages", [](Board & board, const Lengths & lengths) { return PackageTable(board, lengths, false); }},
    ListingRow{"pins", [](Board & board, const Lengths & lengths) { return PinTable(board, lengths, false); }},
    ListingRow{"pads", [](Board & board, const Lengths & lengths) { return PadTable(board, lengths, false); }},
    ListingRow{"holes", [](Board & board, const Lengths & lengths) { return HoleTable(board, lengths, false); }},
    ListingRow{"tracks", [](Board & board, const Lengths & lengths) { return TrackTable(board, lengths, false); }},
};

void PrintCheck(State & state, Format format, std::ostream & out)
{
    constexpr std::size_t few = 10;
    // It reads the file in three ways of its own.
    DroppedFile & file = state.Shown();
    file.Forget();
    const Checked checked = CheckListing(file.Open(), few);
    checked.listing.Print(out, format, checked.source);
}

void PrintDifferences(State & state, Format format, std::ostream & out)
{
    Board & before = state.files[0]->Read(state.reading);
    Board & after = state.files[1]->Read(state.reading);
    const Lengths lengths(before, "");
    const Lengths otherLengths(after, "");
    const Differences differences = DifferencesOf({before, lengths}, {after, otherLengths});
    const Source source = SourceOf(before, lengths);
    const Source other = SourceOf(after, otherLengths);
    differences.Rows().Print(out, format, source, &other);
}

void PrintListing(State & state, std::string_view name, Format format, std::ostream & out)
{
    if (name == "check") {
        PrintCheck(state, format, out);
        return;
    }
    if (name == "diff") {
        PrintDifferences(state, format, out);
        return;
    }
    Board & board = state.Shown().Read(state.reading);
    const Lengths lengths(board, "");
    const Source source = SourceOf(board, lengths);
    if (name == "info") {
        InfoListing(board, lengths, false).Print(out, format, source);
        return;
    }
    for (const ListingRow & row : Listings) {
        if (row.name == name) {
            row.make(board, lengths).Print(out, format, source);
        }
    }
}

// The writer of the library writes to a path.
void WriteTo(State & state, const std::string & path)
{
    DroppedFile & file = state.Shown();
    Board & board = file.Read(state.reading);
    if (board.Report() != nullptr) {
        PrepareForWriting(board.Root());
    }
    Progress progress;
    WriteModel(path, "the written board", board.Root(), &progress);
    // What was made ready for the writer is not the board any more that was read.
    file.Forget();
}

}  // namespace
}  // namespace ipc2581::host

using namespace ipc2581::host;

extern "C" {

// Takes the file of this name as the first board, or as the second one, which is newer.
EMSCRIPTEN_KEEPALIVE void TakeFile(int place, const char * name)
{
    TheState().files.at(static_cast<std::size_t>(place)).emplace(name);
}

// By the import, or by the reader of the core.
EMSCRIPTEN_KEEPALIVE void ReadExactly(int isExact)
{
    TheState().reading.isExact = isExact != 0;
}

EMSCRIPTEN_KEEPALIVE int MakePageData()
{
    return Try([](State & state) {
        Board & first = state.files[0]->Read(state.reading);
        return state.AreTwo() ? PageDataOf(first, state.files[1]->Read(state.reading), {}) : PageDataOf(first, {});
    });
}

EMSCRIPTEN_KEEPALIVE int MakeListing(const char * name, const char * format)
{
    return Try([&](State & state) {
        std::ostringstream out;
        PrintListing(state, name, FormatOf(format), out);
        return std::move(out).str();
    });
}

EMSCRIPTEN_KEEPALIVE int WriteBoard(const char * path)
{
    return Try([&](State & state) {
        WriteTo(state, path);
        return std::string();
    });
}

EMSCRIPTEN_KEEPALIVE const char * Result()
{
    return TheState().result.data();
}

EMSCRIPTEN_KEEPALIVE std::size_t ResultSize()
{
    return TheState().result.size();
}

// Gives the memory of the models and of the result back. Who asks for more reads the files again.
EMSCRIPTEN_KEEPALIVE void Forget()
{
    State & state = TheState();
    state.result = std::string();
    for (std::optional<DroppedFile> & file : state.files) {
        if (file.has_value()) {
            file->Forget();
        }
    }
}
}
