#include "hosts/ipc2581/html/PageFacts.h"

#include <map>
#include <sstream>

#include "hosts/ipc2581/board/BoardFeatures.h"
#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/check/ImportNotes.h"
#include "hosts/ipc2581/check/PictureLosses.h"
#include "hosts/ipc2581/listings/BomTable.h"
#include "hosts/ipc2581/listings/ComponentTable.h"
#include "hosts/ipc2581/listings/InfoListing.h"
#include "hosts/ipc2581/listings/LayerTables.h"
#include "hosts/ipc2581/listings/NetTables.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using nlohmann::json;

// So many lines of the file stand behind each row of a report.
constexpr std::size_t ToldLines = 20;

json PageColumn(const Column & column)
{
    json head = {{"key", column.key}, {"title", column.title}};
    if (column.isLength) {
        head["unit"] = column.unit;
    }
    return head;
}

// Sections of a listing under their keys. Those with values are objects, those with rows are lists of objects.
json Sections(const Listing & listing)
{
    std::ostringstream text;
    listing.Print(text, Format::Json, {});
    json sections = json::parse(text.str());
    for (const char * const head : {"file", "step", "units", "warnings"}) {
        sections.erase(head);
    }
    return sections;
}

// How long the tracks of each net are.
Table TrackLengths(Board & board, const Lengths & lengths)
{
    std::map<std::string, double> sums;
    for (const Track & track : TracksOf(board)) {
        sums[std::string(*track.net)] += LengthOf(track);
    }
    Table table("track_lengths", {"net", lengths.Named("length")});
    for (const auto & [net, sum] : sums) {
        table.Add({Shown(net), lengths.Of(sum)});
    }
    return table;
}

Table FirstPins(Board & board)
{
    Table table("first_pins", {"package", "pin"});
    const auto facts = FactsOfPackages(board);
    std::size_t place = 0;
    for (const CIPC2581_Ecad_CadData_Step_Package * const package : Each(board.Step().PackageArray)) {
        const auto found = facts.find(place++);
        if (found != facts.end() && !found->second.pinOne.empty()) {
            table.Add({Shown(package->name), Shown(found->second.pinOne)});
        }
    }
    return table;
}

void AddReport(Board & board, json & tables)
{
    Table notes("notes", {{"what is not as it stands", "text"}, "count", "lines"});
    Table facts("facts", {"element", "attributes", "count", "lines"});
    if (board.Report() != nullptr) {
        ListImport(*board.Report(), ToldLines, notes, facts);
    }
    else if (const std::string losses = PictureLosses(board); !losses.empty()) {
        notes.Add({losses, 1, Cell()});
    }
    tables["notes"] = PageTable(notes);
    tables["facts"] = PageTable(facts);
}

}  // namespace

json PageTable(const Table & table)
{
    json columns = json::array();
    for (const Column & column : table.Columns()) {
        columns.push_back(PageColumn(column));
    }
    std::string rows = "[";
    table.ForEachRow([&](const Row & row) {
        rows += rows.size() > 1 ? ",[" : "[";
        for (std::size_t i = 0; i < row.size(); ++i) {
            rows += i > 0 ? "," : "";
            row[i].AppendJson(rows);
        }
        rows += "]";
    });
    rows += "]";
    return {{"columns", std::move(columns)}, {"rows", json::parse(rows)}};
}

json PageTables(Board & board, const Lengths & lengths)
{
    json tables = {{"items", PageTable(BomTable(board, true))},
                   {"components", PageTable(ComponentTable(board, lengths, {.isSorted = true}))},
                   {"nets", PageTable(NetTable(board, true))},
                   {"lengths", PageTable(TrackLengths(board, lengths))},
                   {"layers", PageTable(LayerTable(board))},
                   {"stackup", PageTable(StackupTable(board, lengths))},
                   {"firstPins", PageTable(FirstPins(board))},
                   {"info", Sections(InfoListing(board, lengths, false))}};
    AddReport(board, tables);
    return tables;
}

}  // namespace ipc2581::host
