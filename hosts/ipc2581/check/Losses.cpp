#include "hosts/ipc2581/check/Losses.h"

#include <algorithm>

#include "hosts/ipc2581/check/ImportNotes.h"
#include "hosts/ipc2581/check/LineCheck.h"

namespace ipc2581::host {
namespace {

void Add(std::string & losses, std::size_t count, const char * one, const char * several)
{
    if (count != 0) {
        losses.append(losses.empty() ? "" : ", ").append(std::to_string(count)).append(count == 1 ? one : several);
    }
}

// Nets that are made of what the sets and pads say are all there.
std::size_t CountNotes(const ImportReport & report, bool isStepChosen)
{
    const auto count = std::count_if(report.Notes().begin(), report.Notes().end(), [&](const Note & note) {
        return note.kind != NoteKind::NetsFromSets && (note.kind != NoteKind::StepLeftOut || !isStepChosen);
    });
    return static_cast<std::size_t>(count);
}

std::string LossesOfExactRead(const BoardFile & file)
{
    CIPC2581_Parser root;
    const LineFindings found = CheckLines(file, 0, root, nullptr);
    std::string losses;
    Add(losses, found.swallows.Sum(), " line taken for another", " lines taken for others");
    Add(losses, found.readOtherwise.Sum(), " value read otherwise", " values read otherwise");
    Add(losses, found.elements.Sum(), " element passed over", " elements passed over");
    Add(losses, found.attributes.Sum(), " attribute passed over", " attributes passed over");
    return losses;
}

}  // namespace

bool ChangesAListing(const ImportReport & report, bool isStepChosen)
{
    return CountNotes(report, isStepChosen) != 0;
}

std::string LossesOf(const ImportReport & report, bool isStepChosen)
{
    std::string losses;
    Add(losses, report.LostCount(), " fact without a place in the model", " facts without a place in the model");
    Add(losses, report.RemarkCount(), " remark of a set", " remarks of sets");
    Add(losses, CountNotes(report, isStepChosen), " note of the import", " notes of the import");
    return losses;
}

std::string LossesOf(const Board & board)
{
    return board.Report() == nullptr ? LossesOfExactRead(board.File())
                                     : LossesOf(*board.Report(), !board.HowRead().step.empty());
}

}  // namespace ipc2581::host
