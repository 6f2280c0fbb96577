#ifndef IPC2581_HOSTS_IPC2581_FILES_SHA256_H
#define IPC2581_HOSTS_IPC2581_FILES_SHA256_H

#include <string>

namespace ipc2581::host {

// The SHA-256 of a file, by which two files are known to be the same, as 64 digits. Throws Error.
std::string Sha256OfFile(const std::string & path);

}  // namespace ipc2581::host

#endif
