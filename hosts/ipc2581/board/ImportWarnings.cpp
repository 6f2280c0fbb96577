#include "hosts/ipc2581/board/ImportWarnings.h"

namespace ipc2581::host {
namespace {

const char * NameOf(NoteKind kind)
{
    switch (kind) {
    case NoteKind::NetsFromSets:
        return "nets_from_sets";
    case NoteKind::StepLeftOut:
        return "step_left_out";
    case NoteKind::StepRepeat:
        return "step_repeat";
    case NoteKind::DanglingReference:
        return "dangling_reference";
    case NoteKind::UnknownUnit:
        return "unknown_unit";
    case NoteKind::Merged:
        return "merged";
    }
    return "";
}

}  // namespace

std::string TextOf(const Note & note)
{
    return note.kind == NoteKind::StepLeftOut ? note.text + " is left out" : note.text;
}

std::vector<Warning> WarningsOfImport(const ImportReport & report, bool isStepChosen)
{
    std::vector<Warning> warnings;
    for (const Note & note : report.Notes()) {
        if (note.kind != NoteKind::StepLeftOut || !isStepChosen) {
            warnings.push_back({NameOf(note.kind), note.line, TextOf(note)});
        }
    }
    return warnings;
}

}  // namespace ipc2581::host
