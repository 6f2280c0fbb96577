#ifndef IPC2581_HOSTS_IPC2581_BOARD_UNPACK_H
#define IPC2581_HOSTS_IPC2581_BOARD_UNPACK_H

#include <string>

#include "hosts/ipc2581/files/ScratchFile.h"

namespace ipc2581::host {

// How a file is packed, by its first bytes.
enum class Packing { None, Gzip, Zstandard, Zip };

// Throws Error if the file cannot be read, or if its name tells a packing that its bytes do not have.
Packing FindPacking(const std::string & path);

// Unpacks the file, or copies it where it is not packed. Throws Error for a damaged one and for a zip archive that
// does not hold one board.
void Unpack(const std::string & path, Packing packing, ScratchFile & to);

}  // namespace ipc2581::host

#endif
