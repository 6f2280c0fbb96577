#ifndef IPC2581_HOSTS_IPC2581_DRAWING_BOARDDRAWING_H
#define IPC2581_HOSTS_IPC2581_DRAWING_BOARDDRAWING_H

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/drawing/Drawing.h"

namespace ipc2581::host {

// Makes the drawing of a board, which needs the board no longer.
Drawing DrawingOf(Board & board);

}  // namespace ipc2581::host

#endif
