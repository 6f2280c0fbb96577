#include "hosts/ipc2581/check/CheckListing.h"

#include <future>
#include <memory>
#include <optional>
#include <set>

#include "hosts/ipc2581/board/ImportWarnings.h"
#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/board/MemoryBound.h"
#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/check/ElementCounts.h"
#include "hosts/ipc2581/check/ImportNotes.h"
#include "hosts/ipc2581/check/LineCheck.h"
#include "hosts/ipc2581/check/Losses.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/ScratchFile.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

XmlCounts CountWritten(CIPC2581_Parser & root)
{
    const ScratchFile file;
    WriteModel(file.Path(), "temporary file", root, nullptr);
    return CountXml(file.Path());
}

void List(const Findings & findings, Table & table)
{
    for (const auto & [what, places] : findings.All()) {
        std::vector<Cell> row(what.begin(), what.end());
        row.emplace_back(places.count);
        row.emplace_back(FirstNumbers{places.lines, places.count});
        table.Add(std::move(row));
    }
}

Cell ErrorIn(const XmlCounts & counts)
{
    return counts.error.empty() ? Cell() : "line " + std::to_string(counts.errorLine) + ": " + counts.error;
}

std::size_t Find(const ElementCounts & counts, const std::string & name)
{
    const auto found = counts.find(name);
    return found == counts.end() ? 0 : found->second;
}

void ListElements(const ElementCounts & file, const ElementCounts & taken, const ElementCounts & model,
                  const ElementCounts & written, Table & table)
{
    std::set<std::string> names;
    for (const ElementCounts * const counts : {&file, &taken, &written}) {
        for (const auto & [name, count] : *counts) {
            names.insert(name);
        }
    }
    for (const std::string & name : names) {
        const auto inModel = model.find(name);
        table.Add({name, Find(file, name), Find(taken, name), inModel == model.end() ? Cell() : Cell(inModel->second),
                   Find(written, name)});
    }
}

// What XML parsers make of the file.
struct Parsed {
    std::optional<Imported> imported;
    std::string refused;  // why the import does not take it
    XmlCounts counts;
};

Parsed ParsedOf(const BoardFile & file)
{
    Parsed parsed;
    try {
        ImportOptions options;
        options.inOneThread = true;
        parsed.imported = ImportModel(file, std::move(options), nullptr);
    }
    catch (const Error & error) {
        parsed.refused = error.what();
    }
    parsed.counts = CountXml(file.PlainPath());
    return parsed;
}

// What the import tells of the file, or why it does not take it.
void ListImported(const Parsed & parsed, std::size_t limit, Checked & checked)
{
    Values & sums = checked.listing.AddValues("import");
    Table & notes = checked.listing.AddTable("import notes", {{"what is not as it stands", "text"}, "count", "lines"});
    Table & facts = checked.listing.AddTable("no place", {"element", "attributes", "count", "lines"});
    const std::optional<Imported> & imported = parsed.imported;
    const auto count = [&](auto counted) { return imported.has_value() ? Cell(counted()) : Cell(); };
    sums.Add("facts without a place", count([&] { return imported->report.LostCount(); }));
    sums.Add("remarks of sets", count([&] { return imported->report.RemarkCount(); }));
    sums.Add("notes", count([&] { return imported->report.Notes().size(); }));
    sums.Add("refused", imported.has_value() ? Cell() : Cell(parsed.refused));
    if (!imported.has_value()) {
        checked.changesAListing = true;
        return;
    }
    ListImport(imported->report, limit, notes, facts);
    checked.source.step = Shown(imported->board->m_Ecad.m_CadData.m_Step.Name);
    checked.source.units = UnitsWord(imported->board->m_Ecad.m_CadHeader.units);
    checked.source.warnings = WarningsOfImport(imported->report, false);
    checked.changesAListing = ChangesAListing(imported->report, false);
    checked.losses = LossesOf(imported->report, false);
}

}  // namespace

Checked CheckListing(const BoardFile & file, std::size_t limit, CProgressCtrl * progress)
{
    auto parsing = std::async(ReadingAtOnce(), [&] { return ParsedOf(file); });
    auto root = std::make_unique<CIPC2581_Parser>();
    const LineFindings found = CheckLines(file, limit, *root, progress);
    if (!found.stops.All().empty()) {
        // Any other read ends at the first of them, and the model with it.
        root = std::make_unique<CIPC2581_Parser>();
        CIPC2581_XmlLiteReader reader;
        ReadModel(file, reader, *root, progress);
    }
    const XmlCounts written = CountWritten(*root);
    const Parsed parsed = parsing.get();
    const XmlCounts & inFile = parsed.counts;

    Checked checked;
    checked.source.file = file.Name();
    Listing & listing = checked.listing;
    ListImported(parsed, limit, checked);
    Values & sums = listing.AddValues("check");
    sums.Add("lines", found.lines);
    sums.Add("well-formed XML", inFile.error.empty());
    sums.Add("XML error", ErrorIn(inFile));
    sums.Add("well-formed when written", written.error.empty());
    sums.Add("XML error when written", ErrorIn(written));
    sums.Add("stops of the read", found.stops.Sum());
    sums.Add("lines taken for others", found.swallows.Sum());
    sums.Add("values read otherwise", found.readOtherwise.Sum());
    sums.Add("elements passed over", found.elements.Sum());
    sums.Add("attributes passed over", found.attributes.Sum());
    sums.Add("attributes not written as read", found.notWritten.Sum());
    List(found.stops, listing.AddTable("stops", {{"what stops the read", "text"}, "count", "lines"}));
    List(found.swallows,
         listing.AddTable("structure", {{"what is taken for something else", "text"}, "count", "lines"}));
    List(found.readOtherwise, listing.AddTable("values", {{"what is read otherwise", "text"}, "count", "lines"}));
    List(found.elements, listing.AddTable("passed elements", {"element", "in", "count", "lines"}));
    List(found.attributes, listing.AddTable("passed attributes", {"element", "attribute", "count", "lines"}));
    List(found.notWritten, listing.AddTable("not written", {"element", "attribute", "written", "count", "lines"}));
    ListElements(inFile.elements, found.taken, CountModel(*root), written.elements,
                 listing.AddTable("elements", {"element", "file", "taken", "model", "written"}));
    return checked;
}

}  // namespace ipc2581::host
