#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_PACKAGETABLES_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_PACKAGETABLES_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What kinds of parts there are, with the number of their pins and of the components that have this package: in the
// order of the file, or by name, P2 before P10.
Table PackageTable(Board & board, const Lengths & lengths, bool isSorted);

// The pins of the packages, one row for each place of a pin: in the order of the file, or by package and pin.
Table PinTable(Board & board, const Lengths & lengths, bool isSorted);

}  // namespace ipc2581::host

#endif
