#ifndef IPC2581_HOSTS_IPC2581_HTML_PAGEDATA_H
#define IPC2581_HOSTS_IPC2581_HTML_PAGEDATA_H

#include <string>

#include "hosts/ipc2581/board/Board.h"

namespace ipc2581::host {

// What is put on a page.
struct PageChoice {
    std::string unit = {};  // of lengths; empty is that of the board
};

// All that a page shows of a board, as bytes: docs/page-data.md tells their form. Throws Error for a board whose unit
// nobody knows if one is asked for.
std::string PageDataOf(Board & board, const PageChoice & choice);
// The same of two boards, of which the other is taken as the newer one: it is drawn, with what it lacks of the first.
std::string PageDataOf(Board & before, Board & after, const PageChoice & choice);

}  // namespace ipc2581::host

#endif
