#ifndef IPC2581_HOSTS_IPC2581_CHECK_LOSSES_H
#define IPC2581_HOSTS_IPC2581_CHECK_LOSSES_H

#include <string>

#include "hosts/ipc2581/board/Board.h"

namespace ipc2581::host {

// What of a report changes what a listing or a picture shows. A step that was asked for leaves out the others as it
// should.
bool ChangesAListing(const ImportReport & report, bool isStepChosen);

// What of the file has no place in the model or is not there as it stands, for one line; empty if nothing is.
std::string LossesOf(const ImportReport & report, bool isStepChosen);
std::string LossesOf(const Board & board);

}  // namespace ipc2581::host

#endif
