#ifndef IPC2581_HOSTS_IPC2581_DIFF_BOARDDIFFERENCES_H
#define IPC2581_HOSTS_IPC2581_DIFF_BOARDDIFFERENCES_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/diff/Differences.h"

namespace ipc2581::host {

// A board, and the unit in which its lengths are compared.
struct Compared {
    Board & board;
    const Lengths & lengths;
};

struct DiffOptions {
    // All that lies on one of the boards alone, and not only the first of each layer.
    bool isAll = false;
};

// All differences between two boards: between their models, and between what the import tells besides. When and by
// whom a file was made is none.
Differences DifferencesOf(const Compared & before, const Compared & after, const DiffOptions & options = {});

}  // namespace ipc2581::host

#endif
