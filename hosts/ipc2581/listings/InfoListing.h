#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_INFOLISTING_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_INFOLISTING_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What is in a board: what people ask first, and for all of it names, layers, and how many there are of everything.
Listing InfoListing(Board & board, const Lengths & lengths, bool isAll);

}  // namespace ipc2581::host

#endif
