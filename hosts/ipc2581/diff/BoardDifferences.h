#ifndef IPC2581_HOSTS_IPC2581_DIFF_BOARDDIFFERENCES_H
#define IPC2581_HOSTS_IPC2581_DIFF_BOARDDIFFERENCES_H

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/diff/Differences.h"

namespace ipc2581::host {

// All differences between the models of two boards. Throws Error if a temporary file cannot be written.
Differences DifferencesOf(Board & before, Board & after);

}  // namespace ipc2581::host

#endif
