#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_LAYERTABLES_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_LAYERTABLES_H

#include <string>
#include <unordered_map>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// The side of each layer by its name.
std::unordered_map<std::string, std::string> SidesOfLayers(Board & board);

// The layers in the order of the file, with the number of sets that lie on each.
Table LayerTable(Board & board);

// The build-up of the board, from the first layer of the first group on.
Table StackupTable(Board & board, const Lengths & lengths);

}  // namespace ipc2581::host

#endif
