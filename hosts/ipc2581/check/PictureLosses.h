#ifndef IPC2581_HOSTS_IPC2581_CHECK_PICTURELOSSES_H
#define IPC2581_HOSTS_IPC2581_CHECK_PICTURELOSSES_H

#include <string>

#include "hosts/ipc2581/board/Board.h"

namespace ipc2581::host {

// What pictures of the board are known to lack, cause by cause; empty if nothing is.
std::string PictureLosses(Board & board);

}  // namespace ipc2581::host

#endif
