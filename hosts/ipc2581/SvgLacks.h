#ifndef IPC2581_HOSTS_IPC2581_SVGLACKS_H
#define IPC2581_HOSTS_IPC2581_SVGLACKS_H

#include "hosts/ipc2581/Board.h"
#include "hosts/ipc2581/SvgBoard.h"

namespace ipc2581::host {

// Tells in one line on the error stream what pictures of the board are known to lack, and points to the command that
// tells all of it. Silent if nothing is.
void WarnOfSvgLacks(Board & board, const SvgBoard & pictures);

}  // namespace ipc2581::host

#endif
