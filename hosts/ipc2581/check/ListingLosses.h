#ifndef IPC2581_HOSTS_IPC2581_CHECK_LISTINGLOSSES_H
#define IPC2581_HOSTS_IPC2581_CHECK_LISTINGLOSSES_H

#include <cstddef>
#include <string>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/check/Causes.h"

namespace ipc2581::host {

enum class Listed {
    Items,
    Components,
    LogicalNets,
    PhysicalNets,
    Layers,
    Sets,
    StackupLayers,
    Packages,
    Pins,
    Pads,
    Holes,
    Tracks,
};

// Whether it is told that a file has none of what is listed.
enum class Absence { Told, Untold };

// What is known to be missing in a listing of these, or to stand in it otherwise than the writer of the file meant,
// cause by cause.
Causes ListingLosses(Board & board, const std::vector<Listed> & listed, Absence absence = Absence::Told);

// How many components stand on a layer that the reader has lost.
std::size_t CountWithoutSide(Board & board);

}  // namespace ipc2581::host

#endif
