#ifndef IPC2581_HOSTS_IPC2581_CHECK_LINECHECK_H
#define IPC2581_HOSTS_IPC2581_CHECK_LINECHECK_H

#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/BoardFile.h"

namespace ipc2581::host {

// Where something was found: how often, and the numbers of the first lines.
struct Places {
    std::size_t count = 0;
    std::vector<std::size_t> lines;
};

// Equal findings, summed up, in the order in which they came up first.
class Findings {
public:
    explicit Findings(std::size_t limit) : m_limit(limit) {}

    void Add(std::initializer_list<std::string_view> what, std::size_t line);
    // How often anything was found.
    [[nodiscard]] std::size_t Sum() const;
    [[nodiscard]] const std::vector<std::pair<std::vector<std::string>, Places>> & All() const { return m_all; }

private:
    std::size_t m_limit;
    std::vector<std::pair<std::vector<std::string>, Places>> m_all;
    std::unordered_map<std::string, std::size_t> m_index;
    std::string m_key;
};

// What the reader makes of each line of a file, and what of that is not written back.
struct LineFindings {
    explicit LineFindings(std::size_t limit)
        : stops(limit), swallows(limit), readOtherwise(limit), elements(limit), attributes(limit), notWritten(limit)
    {
    }

    std::size_t lines = 0;
    Findings stops;          // what
    Findings swallows;       // what
    Findings readOtherwise;  // what
    Findings elements;       // element, the element that it stands in
    Findings attributes;     // element, attribute
    Findings notWritten;     // element, attribute, what comes of it
    // How often the reader takes an element, by its name.
    std::map<std::string, std::size_t, std::less<>> taken;
};

// Reads the file into the root, and goes on behind lines that would stop the read: then the root holds more than
// another read would give. Each finding keeps the numbers of so many lines. The progress may be null. Throws Error for
// a file that cannot be read.
LineFindings CheckLines(const BoardFile & file, std::size_t limit, CIPC2581_Parser & root, CProgressCtrl * progress);

}  // namespace ipc2581::host

#endif
