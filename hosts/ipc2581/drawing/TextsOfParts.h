#ifndef IPC2581_HOSTS_IPC2581_DRAWING_TEXTSOFPARTS_H
#define IPC2581_HOSTS_IPC2581_DRAWING_TEXTSOFPARTS_H

#include <set>
#include <string>
#include <utility>

#include "hosts/ipc2581/board/Board.h"

namespace ipc2581::host {

// The layers on which the file itself writes something of a part, each with the designator of the part. The model has
// the strokes of such a text and not whose it is; the report of the import knows. Empty for a board that the reader of
// the core has read.
std::set<std::pair<std::string, std::string>> TextsOfParts(const Board & board);

}  // namespace ipc2581::host

#endif
