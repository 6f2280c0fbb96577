#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOARDSIZE_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOARDSIZE_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/geometry/Extents.h"

namespace ipc2581::host {

// Those of the profile.
Extents ExtentsOf(const CIPC2581_Ecad_CadData_Step & step);

// That of the only group where the stackup itself does not tell.
Cell ThicknessOf(const CIPC2581_Ecad_CadData_Stackup & stackup, const Lengths & lengths);

}  // namespace ipc2581::host

#endif
