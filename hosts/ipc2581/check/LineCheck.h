#ifndef IPC2581_HOSTS_IPC2581_CHECK_LINECHECK_H
#define IPC2581_HOSTS_IPC2581_CHECK_LINECHECK_H

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/ipc2581/check/LossTable.h"

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

    void Add(std::vector<std::string> what, std::size_t line);
    [[nodiscard]] const std::vector<std::pair<std::vector<std::string>, Places>> & All() const { return m_all; }

private:
    std::size_t m_limit;
    std::vector<std::pair<std::vector<std::string>, Places>> m_all;
    std::unordered_map<std::string, std::size_t> m_index;
};

// What the reader makes of each line of a file, found by the table of losses and without the library.
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

// Walks through the lines of a file as the reader does, and goes on behind those that stop it. Each finding keeps the
// numbers of so many lines.
LineFindings CheckLines(const std::string & path, std::size_t limit);

}  // namespace ipc2581::host

#endif
