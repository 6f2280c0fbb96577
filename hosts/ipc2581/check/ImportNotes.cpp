#include "hosts/ipc2581/check/ImportNotes.h"

#include <cstddef>
#include <map>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/ImportWarnings.h"

namespace ipc2581::host {
namespace {

void AddCause(std::string & causes, const std::string & cause)
{
    causes.append(causes.empty() ? "" : "; ").append(cause);
}

// Those that a reader of one line wants one by one; references are many.
bool IsOneByOne(NoteKind kind)
{
    return kind != NoteKind::DanglingReference && kind != NoteKind::NetsFromSets && kind != NoteKind::StepLeftOut;
}

// The steps that were not imported, and how to get them.
std::string StepsLeftOut(const ImportReport & report)
{
    constexpr std::size_t mostNamed = 5;
    std::string steps;
    std::size_t count = 0;
    for (const Note & note : report.Notes()) {
        if (note.kind == NoteKind::StepLeftOut && ++count <= mostNamed) {
            steps.append(count == 1 ? "" : ", ").append(note.text);
        }
    }
    if (count > mostNamed) {
        steps += " and " + std::to_string(count - mostNamed) + " more";
    }
    return steps.empty() ? "" : steps + (count == 1 ? " is" : " are") + " not imported (--step NAME reads another one)";
}

// What the facts of one path have in common.
struct LostAtPath {
    std::set<std::string_view> attributes;
    FirstNumbers lines;
};

}  // namespace

std::string NotesOfImport(const ImportReport & report, bool isStepChosen)
{
    std::string causes = isStepChosen ? "" : StepsLeftOut(report);
    std::size_t dangling = 0;
    for (const Note & note : report.Notes()) {
        dangling += note.kind == NoteKind::DanglingReference ? 1U : 0U;
        if (IsOneByOne(note.kind)) {
            AddCause(causes, TextOf(note));
        }
    }
    if (dangling != 0) {
        AddCause(causes,
                 std::to_string(dangling) + (dangling == 1 ? " reference leads nowhere" : " references lead nowhere"));
    }
    return causes;
}

void ListImport(const ImportReport & report, std::size_t limit, Table & notes, Table & facts)
{
    const auto count = [&](FirstNumbers & lines, std::size_t line) {
        if (lines.numbers.size() < limit) {
            lines.numbers.push_back(line);
        }
        ++lines.count;
    };
    std::vector<std::string> order;
    std::map<std::string, FirstNumbers> linesOfNotes;
    for (const Note & note : report.Notes()) {
        const auto [place, isNew] = linesOfNotes.try_emplace(TextOf(note));
        if (isNew) {
            order.push_back(place->first);
        }
        count(place->second, note.line);
    }
    for (const std::string & text : order) {
        const FirstNumbers & lines = linesOfNotes[text];
        notes.Add({text, lines.count, lines});
    }
    std::map<std::string, LostAtPath> paths;
    auto place = paths.end();
    report.ForEachLost([&](const LostFact & fact) {
        if (place == paths.end() || place->first != fact.path) {
            place = paths.try_emplace(fact.path).first;
        }
        for (const auto & [name, value] : fact.attributes) {
            place->second.attributes.insert(name);
        }
        count(place->second.lines, fact.line);
    });
    for (const auto & [path, countOfPath] : report.LostPaths()) {
        const LostAtPath & lost = paths[path];
        facts.Add(
            {path, std::vector<std::string>(lost.attributes.begin(), lost.attributes.end()), countOfPath, lost.lines});
    }
    if (report.RemarkCount() != 0) {
        facts.Add({"Ecad/CadData/Step/LayerFeature/Set/NonstandardAttribute",
                   std::vector<std::string>{"name", "type", "value"}, report.RemarkCount(),
                   FirstNumbers{{}, report.RemarkCount()}});
    }
}

}  // namespace ipc2581::host
