#ifndef IPC2581_HOSTS_IPC2581_BOARD_UNPACK_H
#define IPC2581_HOSTS_IPC2581_BOARD_UNPACK_H

#include <cstdio>
#include <memory>
#include <string>

#include "hosts/ipc2581/files/ScratchFile.h"

namespace ipc2581::host {

// How a file is packed, by its first bytes.
enum class Packing { None, Gzip, Zstandard, Xz, Bzip2, Zip, SevenZip, Tar };

// Messages tell the name for the path. Throws Error if the file cannot be read, or if the ending of its name promises a
// packing and its bytes have none.
Packing FindPacking(const std::string & told, const std::string & path);

// A copy of what is left of an open file. Throws Error, which names it as told.
std::unique_ptr<ScratchFile> CopyOf(const std::string & told, std::FILE * file);

// The board of the file, unpacked, or copied where it is not packed. Of an archive, which may be compressed as a whole,
// it is the one file, or the one of several that has the name of a board. Throws Error for a damaged file and for an
// archive that does not hold one board.
std::unique_ptr<ScratchFile> Unpack(const std::string & told, const std::string & path, Packing packing);

}  // namespace ipc2581::host

#endif
