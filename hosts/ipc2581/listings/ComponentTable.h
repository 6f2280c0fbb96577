#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_COMPONENTTABLE_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_COMPONENTTABLE_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// Where each part is placed: in the order of the file, or by designator, R2 before R10.
Table ComponentTable(Board & board, const Lengths & lengths, bool isSorted);

}  // namespace ipc2581::host

#endif
