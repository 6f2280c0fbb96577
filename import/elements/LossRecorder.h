#ifndef IPC2581_IMPORT_ELEMENTS_LOSSRECORDER_H
#define IPC2581_IMPORT_ELEMENTS_LOSSRECORDER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "import/ImportReport.h"
#include "import/xml/Words.h"

namespace ipc2581::detail {

// Fills a report while a file is imported.
class LossRecorder {
public:
    // A chain of elements from the root down; 0 is the one outside of the root.
    using Path = std::uint32_t;

    LossRecorder();

    Path PathOf(Path parent, Word element);

    // A fact, and behind it its attributes.
    void BeginFact(Path path, std::size_t line, std::size_t owner);
    void AddAttribute(Word name, std::string_view value, bool isHeld = false);
    void AddText(std::string_view text) { AddAttribute(W(""), text); }
    void AddRemark() { ++m_report.m_remarks; }
    // The features of a layer begin on a line.
    void BeginLayer(std::size_t line, std::string_view name) { m_report.m_layers.emplace(line, name); }
    void AddNote(NoteKind kind, std::size_t line, std::string text);
    // Tells of a reference that leads nowhere.
    void AddDangling(std::size_t line, std::string_view what, std::string_view name);

    // How often an element stands in the file.
    void CountStated(Word element);

    // What is held arrives if somebody refers to it, and is lost if nobody ever does. 0 holds nothing.
    using Hold = std::uint32_t;
    [[nodiscard]] Hold NewHold();
    void Refer(Hold hold) { m_isReferred[hold] = true; }
    // Says that attributes of the fact that was begun are held, and whether the element is.
    void HoldFact(Hold hold, bool isElementHeld);

    // Facts that are begun between these two stand where the file has them, which was the end when it was asked for.
    [[nodiscard]] std::size_t PlaceHere() const { return m_report.m_facts.size(); }
    void BeginLate(std::size_t place) { m_latePlace = place; }
    void EndLate() { m_latePlace.reset(); }

    // The report, with the names that the table has for its words.
    ImportReport Take(const WordTable & words);

private:
    struct LateFact {
        std::size_t place;
        ImportReport::Fact fact;
    };
    struct HeldFact {
        std::size_t fact;
        Hold hold;
        bool isElementHeld;
    };

    [[nodiscard]] ImportReport::Fact & LastFact();
    // Leaves out what is held of the fact if that has arrived. True if nothing of it is left.
    bool Settle(const HeldFact & held);
    // Leaves out the facts that have arrived after all, and puts the late ones where the file has them.
    void DropArrived();
    void InsertLate();
    void CountLost();

    ImportReport m_report;
    std::optional<std::size_t> m_latePlace;
    std::vector<LateFact> m_late;
    std::vector<HeldFact> m_held;
    std::vector<bool> m_isReferred = {false};
    std::unordered_map<std::uint64_t, Path> m_pathIndex;
    // What was asked for last, which is mostly what is asked for next.
    std::uint64_t m_lastKey = UINT64_MAX;
    Path m_lastPath = 0;
    std::vector<std::size_t> m_stated;
};

}  // namespace ipc2581::detail

#endif
