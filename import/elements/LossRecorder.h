#ifndef IPC2581_IMPORT_ELEMENTS_LOSSRECORDER_H
#define IPC2581_IMPORT_ELEMENTS_LOSSRECORDER_H

#include <cstddef>
#include <cstdint>
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
    void AddAttribute(Word name, std::string_view value);
    void AddText(std::string_view text) { AddAttribute(W(""), text); }
    void AddRemark() { ++m_report.m_remarks; }
    void AddNote(NoteKind kind, std::size_t line, std::string text);

    // How often an element stands in the file.
    void CountStated(Word element);

    // To forget what a part of the file has lost: all between two marks.
    struct Mark {
        std::size_t facts = 0;
        std::size_t remarks = 0;
        std::size_t notes = 0;
    };
    [[nodiscard]] Mark MarkHere() const;
    void Forget(const Mark & from, const Mark & to);

    // The report, with the names that the table has for its words.
    ImportReport Take(const WordTable & words);

private:
    ImportReport m_report;
    std::unordered_map<std::uint64_t, Path> m_pathIndex;
    // What was asked for last, which is mostly what is asked for next.
    std::uint64_t m_lastKey = UINT64_MAX;
    Path m_lastPath = 0;
    std::vector<std::size_t> m_stated;
};

}  // namespace ipc2581::detail

#endif
