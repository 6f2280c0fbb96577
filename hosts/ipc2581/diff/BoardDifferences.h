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

// All differences between the models of two boards. Throws Error if a temporary file cannot be written.
Differences DifferencesOf(const Compared & before, const Compared & after);

}  // namespace ipc2581::host

#endif
