#ifndef IPC2581_IMPORT_IMPORTREPORT_H
#define IPC2581_IMPORT_IMPORTREPORT_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ipc2581/base/Export.h"

namespace ipc2581 {

namespace detail {
class LossRecorder;
}  // namespace detail

// A fact that a file states and the model has no member for: an element, or some attributes of one. Names and values
// stand in the report.
struct IPC2581_API LostFact {
    // Its elements from the root down, without the root: "Ecad/CadHeader/Spec/General". Of a very deep one the last.
    std::string path;
    // Of the opening tag; 0 if it is not known.
    std::size_t line = 0;
    // Which of several it belongs to, counted from 0: the BomItem, Component, LogicalNet, Package or Layer of this
    // place in its list, the Spec, PadStackDef, Set or AvlItem of this place in the file.
    std::size_t owner = 0;
    // Name and value, with nothing escaped; those that the model has are not among them. Text of an element comes
    // last, under an empty name.
    std::vector<std::pair<std::string_view, std::string_view>> attributes;

    // The value of an attribute; empty if it is not there.
    [[nodiscard]] std::string_view Value(std::string_view name) const;
    // The last name of the path.
    [[nodiscard]] std::string_view Element() const;
};

// What an import did otherwise than to take a fact to its member.
enum class NoteKind {
    NetsFromSets,       // the file has no logical nets; they are made of what its sets and pads say
    StepLeftOut,        // the file has several steps, and this one was not imported
    StepRepeat,         // a panel; what it repeats is not merged
    DanglingReference,  // a reference to something that the file does not have; it is kept
    UnknownUnit,        // lengths in it are taken as those of the board
    Merged,             // several of what the model has one place for
};

// One of these, with a sentence that tells it.
struct Note {
    NoteKind kind;     // what it is about
    std::size_t line;  // counted from 1
    std::string text;  // without the line
};

// How often an element stands in a file, and how often something of it was lost.
struct ElementCount {
    std::size_t stated = 0;  // elements of the name
    std::size_t lost = 0;    // those that are in the report, whole or in part
};

// What came of the facts of a file: all that is not here has arrived in the model.
class IPC2581_API ImportReport {
public:
    // Facts without a member, in the order of the file.
    [[nodiscard]] std::size_t LostCount() const { return m_facts.size(); }
    // One of them, by its place; the report must outlive it.
    [[nodiscard]] LostFact Lost(std::size_t index) const;
    // The facts of elements at a path, in the order of the file.
    [[nodiscard]] std::vector<LostFact> LostAt(std::string_view path) const;
    // Shows each fact, in the order of the file, at less cost than one by one. The fact that is shown is valid until
    // the next one.
    void ForEachLost(const std::function<void(const LostFact &)> & show) const;
    // The same of the facts of elements at a path.
    void ForEachLostAt(std::string_view path, const std::function<void(const LostFact &)> & show) const;
    // The layer that a fact on a line belongs to, if it stands in the features of one: what the LayerFeature that has
    // begun last up to the line names, of several that begin on one line the first, with nothing escaped. Empty if none
    // has begun.
    [[nodiscard]] std::string_view LayerAt(std::size_t line) const;
    // Remarks of sets, NonstandardAttribute elements, which are counted instead of listed.
    [[nodiscard]] std::size_t RemarkCount() const { return m_remarks; }
    // Each path that has lost something, with the number of its facts, in the order of the file.
    [[nodiscard]] std::vector<std::pair<std::string, std::size_t>> LostPaths() const;

    [[nodiscard]] const std::vector<Note> & Notes() const { return m_notes; }
    // By the name of the element.
    [[nodiscard]] const std::map<std::string, ElementCount, std::less<>> & Elements() const { return m_elements; }

private:
    friend class detail::LossRecorder;

    // There may be as many as there are pads on a board, so it is small. The attributes stand in m_values from begin to
    // end, as FactValues.h has them.
    struct Fact {
        std::uint64_t begin;
        std::uint32_t line;
        std::uint32_t owner;
        std::uint32_t path;
        std::uint32_t length;
    };

    // A path is an element within another path; 0 is the one outside of the root.
    struct Step {
        std::uint32_t parent;
        std::uint32_t name;
    };

    [[nodiscard]] std::string PathText(std::uint32_t path) const;
    void FillValues(const Fact & fact, LostFact & lost) const;

    std::vector<Step> m_paths;
    std::vector<std::string> m_names;
    std::vector<Fact> m_facts;
    std::string m_values;
    // By the lines of their LayerFeature elements.
    std::map<std::size_t, std::string> m_layers;
    std::size_t m_remarks = 0;
    std::vector<Note> m_notes;
    std::map<std::string, ElementCount, std::less<>> m_elements;
};

}  // namespace ipc2581

#endif
