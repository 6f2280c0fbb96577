#ifndef IPC2581_HOSTS_IPC2581_CHECK_CHECKLISTING_H
#define IPC2581_HOSTS_IPC2581_CHECK_CHECKLISTING_H

#include <cstddef>
#include <string>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/BoardFile.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// How a check ends.
struct Checked {
    Listing listing;
    Source source;
    // Whether the file is refused, or something in it is shown otherwise than it stands there.
    bool changesAListing = false;
    // As LossesOf tells them; empty for a file that is refused.
    std::string losses;
};

// What the reader does not take from a file and what a written one lacks, line by line. Each finding tells the numbers
// of so many lines. The progress may be null. Throws Error for a file that cannot be read.
Checked CheckListing(const BoardFile & file, std::size_t limit, CProgressCtrl * progress = nullptr);

}  // namespace ipc2581::host

#endif
