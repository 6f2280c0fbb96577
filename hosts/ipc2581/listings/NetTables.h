#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_NETTABLES_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_NETTABLES_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What is connected, one row per logical net, with its pins: in the order of the file, or by net and pin, R2.1 before
// R10.1.
Table NetTable(Board & board, bool isSorted);

// The same for the physical nets, one row per point on the board.
Table NetPointTable(Board & board, const Lengths & lengths, bool isSorted);

}  // namespace ipc2581::host

#endif
