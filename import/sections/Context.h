#ifndef IPC2581_IMPORT_SECTIONS_CONTEXT_H
#define IPC2581_IMPORT_SECTIONS_CONTEXT_H

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "import/Import.h"
#include "import/elements/LossRecorder.h"
#include "import/elements/TakeFields.h"
#include "import/elements/Tree.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/ipc2581.h"

namespace ipc2581::detail {

// Names of a file, as keys that a piece of text finds.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};
template <typename Value>
using ByName = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;
using Names = std::unordered_set<std::string, TextHash, std::equal_to<>>;

// Facts that have arrived only if somebody refers to them: told at the end if nobody has.
struct Unreferenced {
    LossRecorder::Path path = 0;
    std::size_t line = 0;
    std::vector<std::pair<Word, std::string>> attributes;
    bool isReferenced = false;
};

// Tells of those of the entries that nobody has referred to, in the order of the file.
template <typename Entries>
void ReportUnreferencedOf(const Entries & entries, LossRecorder & losses)
{
    std::vector<const Unreferenced *> left;
    for (const auto & [name, entry] : entries) {
        if (!entry.facts.isReferenced) {
            left.push_back(&entry.facts);
        }
    }
    std::sort(left.begin(), left.end(), [](const auto * one, const auto * other) { return one->line < other->line; });
    for (const Unreferenced * const facts : left) {
        losses.BeginFact(facts->path, facts->line, 0);
        for (const auto & [name, value] : facts->attributes) {
            losses.AddAttribute(name, value);
        }
    }
}

// Why the import ends in the middle of a well-formed file.
struct ImportFault : std::runtime_error {
    ImportFault(std::size_t lineOfFault, const std::string & cause) : std::runtime_error(cause), line(lineOfFault) {}

    std::size_t line;
};

// What the sections of one import share.
struct Context {
    CIPC2581_Parser & board;
    const ImportOptions & options;
    ObjectBlocks blocks;
    LossRecorder losses;

    // Elements read so far; a bound for what a file may make by referring to it.
    std::size_t elements = 0;

    // Makes an object of the model beside those that are there.
    template <typename Object>
    std::unique_ptr<Object> Make()
    {
        constexpr std::size_t placeInList = 2 * sizeof(Object *);
        blocks.Count(placeInList);
        return std::unique_ptr<Object>(MakeFrom<Object>(blocks));
    }

    void Note(NoteKind kind, std::size_t line, std::string text) { losses.AddNote(kind, line, std::move(text)); }
    // Tells of a reference that leads nowhere.
    void TellDangling(std::size_t line, std::string_view what, std::string_view name)
    {
        std::string text(what);
        text.append(" \"").append(name).append("\" is not in the file");
        losses.AddNote(NoteKind::DanglingReference, line, std::move(text));
    }
};

// Appends an object to a list of the model, which owns it.
template <typename List, typename Object>
Object & AddTo(List & list, std::unique_ptr<Object> object)
{
    PartOf(list).Add(object.get());
    return *object.release();
}

}  // namespace ipc2581::detail

#endif
