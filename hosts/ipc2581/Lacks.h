#ifndef IPC2581_HOSTS_IPC2581_LACKS_H
#define IPC2581_HOSTS_IPC2581_LACKS_H

#include <initializer_list>

#include "hosts/ipc2581/Board.h"

namespace ipc2581::host {

enum class Listed { Items, Components, LogicalNets, PhysicalNets };

// Tells in one line on the error stream what is known to be missing in a listing of these, or to stand in it otherwise
// than the writer of the file meant, and points to the command that tells all of it. Silent if nothing is.
void WarnOfLacks(Board & board, std::initializer_list<Listed> listed);

}  // namespace ipc2581::host

#endif
