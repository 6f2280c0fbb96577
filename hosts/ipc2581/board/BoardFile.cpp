#include "hosts/ipc2581/board/BoardFile.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/ipc2581/board/Unpack.h"
#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

void CheckRegular(const std::string & path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
        throw Error(path, SystemCause(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        throw Error(path, SystemCause(EISDIR));
    }
    if (!S_ISREG(status.st_mode)) {
        throw Error(path, "is not a regular file");
    }
}

// Asks the system itself, which knows of read-only disks too.
bool IsWritable(const std::string & path)
{
    const int descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (descriptor != -1) {
        close(descriptor);
    }
    return descriptor != -1;
}

}  // namespace

BoardFile::BoardFile(const std::string & path) : m_name(path), m_plainPath(path)
{
    CheckRegular(path);
    const Packing packing = FindPacking(path);
    if (packing != Packing::None || !IsWritable(path)) {
        m_copy = Unpack(path, packing);
        m_plainPath = m_copy->Path();
    }
}

}  // namespace ipc2581::host
