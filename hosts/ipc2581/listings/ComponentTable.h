#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_COMPONENTTABLE_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_COMPONENTTABLE_H

#include <string>
#include <vector>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What is listed of components, and how.
struct ComponentChoice {
    bool isSorted = false;      // by designator, R2 before R10, instead of in the order of the file
    bool isFittedOnly = false;  // without those that the bill of materials tells as not fitted
    // Rotations of parts at the bottom are counterclockwise as seen from below, as files have them, or from above.
    bool isTurnedFromAbove = false;
    // Keys, or the name of a head that other programs take; empty for all.
    std::vector<std::string> columns = {};
};

// Where each part is placed. The columns are such as can be chosen.
Table ComponentTable(Board & board, const Lengths & lengths, const ComponentChoice & choice);

// Whether these are columns that can be chosen.
bool AreComponentColumns(const std::vector<std::string> & columns);

// The names of the heads: "placement", "position".
std::vector<std::string> ComponentHeads();
// The keys of all columns.
std::vector<std::string> ComponentKeys();

}  // namespace ipc2581::host

#endif
