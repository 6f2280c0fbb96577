#ifndef IPC2581_HOSTS_IPC2581_BOARD_COPPER_H
#define IPC2581_HOSTS_IPC2581_BOARD_COPPER_H

#include <string_view>

namespace ipc2581::host {

// Whether a layer of this function carries current.
bool IsCopper(std::string_view layerFunction);

}  // namespace ipc2581::host

#endif
