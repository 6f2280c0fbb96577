#include "hosts/ipc2581/board/BoardFile.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/ipc2581/board/Unpack.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/OpenFile.h"

namespace ipc2581::host {
namespace {

bool IsRegular(const std::string & path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
        throw Error(path, SystemCause(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        throw Error(path, SystemCause(EISDIR));
    }
    return S_ISREG(status.st_mode);
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
    if (!IsRegular(path)) {
        TakeCopy(CopyOf(path, OpenFile(path).get()));
        return;
    }
    const Packing packing = FindPacking(path, path);
    if (packing != Packing::None || !IsWritable(path)) {
        m_copy = Unpack(path, path, packing);
        m_plainPath = m_copy->Path();
    }
}

BoardFile::BoardFile(std::string name, std::FILE * stream) : m_name(std::move(name))
{
    TakeCopy(CopyOf(m_name, stream));
}

void BoardFile::TakeCopy(std::unique_ptr<ScratchFile> copy)
{
    const Packing packing = FindPacking(m_name, copy->Path());
    m_copy = packing == Packing::None ? std::move(copy) : Unpack(m_name, copy->Path(), packing);
    m_plainPath = m_copy->Path();
}

}  // namespace ipc2581::host
