#ifndef IPC2581_HOSTS_IPC2581_HTML_PAGEDIFFERENCES_H
#define IPC2581_HOSTS_IPC2581_HTML_PAGEDIFFERENCES_H

#include <string>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What differs between two boards, with lengths in the unit, or each in that of its board if it is empty.
Table DifferenceTable(Board & before, Board & after, const std::string & unit);

}  // namespace ipc2581::host

#endif
