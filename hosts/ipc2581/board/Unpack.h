#ifndef IPC2581_HOSTS_IPC2581_BOARD_UNPACK_H
#define IPC2581_HOSTS_IPC2581_BOARD_UNPACK_H

#include <memory>
#include <string>

#include "hosts/ipc2581/files/ScratchFile.h"

namespace ipc2581::host {

// How a file is packed, by its first bytes.
enum class Packing { None, Gzip, Zstandard, Xz, Bzip2, Zip, SevenZip, Tar };

// Throws Error if the file cannot be read, or if its name promises a packing and its bytes have none.
Packing FindPacking(const std::string & path);

// The board of the file, unpacked, or copied where it is not packed. Of an archive, which may be compressed as a whole,
// it is the one file, or the one of several that has the name of a board. Throws Error for a damaged file and for an
// archive that does not hold one board.
std::unique_ptr<ScratchFile> Unpack(const std::string & path, Packing packing);

}  // namespace ipc2581::host

#endif
