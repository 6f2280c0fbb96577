#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_BOMTABLE_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_BOMTABLE_H

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What must be bought, one row per item: in the order of the file, or by designators, R2 before R10.
Table BomTable(Board & board, bool isSorted);

// What items are put together by.
enum class BomGroup { Value, Part, Package };

// The same with one row for all items of a value, a part or a package. An item without a value goes by its part, and
// one without a part by its number.
Table BomGroupTable(Board & board, bool isSorted, BomGroup group);

}  // namespace ipc2581::host

#endif
