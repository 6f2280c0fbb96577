#ifndef IPC2581_HOSTS_IPC2581_HTML_PAGEFACTS_H
#define IPC2581_HOSTS_IPC2581_HTML_PAGEFACTS_H

#include <string>

#include <nlohmann/json.hpp>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// The heads and the rows of a table, as a page has them.
nlohmann::json PageTable(const Table & table);

// The listings of a board that a page shows, by the names that the page knows them by.
nlohmann::json PageTables(Board & board, const Lengths & lengths);

}  // namespace ipc2581::host

#endif
