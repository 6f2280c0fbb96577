#include "hosts/ipc2581/files/ScratchFile.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <new>

#include <fcntl.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"

// A file of a page is in its memory, where a name that is gone leads nowhere: it keeps its name as long as it lives.
namespace ipc2581::host {
namespace {

// What is packed may be made to fill all memory of the computer.
constexpr off_t Largest = off_t(1) << 30U;

}  // namespace

std::string TemporaryFolder()
{
    return "/tmp";
}

ScratchFile::ScratchFile()
{
    std::string pattern = TemporaryFolder() + "/ipc2581-XXXXXX";
    m_descriptor = mkstemp(pattern.data());
    if (m_descriptor == -1) {
        throw Error(TemporaryFolder(), "cannot create a temporary file: " + SystemCause(errno));
    }
}

ScratchFile::~ScratchFile()
{
    const std::string path = Path();
    close(m_descriptor);
    static_cast<void>(unlink(path.c_str()));
}

void ScratchFile::Write(const char * bytes, std::size_t count)
{
    if (lseek(m_descriptor, 0, SEEK_CUR) + static_cast<off_t>(count) > Largest) {
        throw std::bad_alloc();
    }
    while (count != 0) {
        const ssize_t done = write(m_descriptor, bytes, count);
        if (done < 0) {
            throw Error(TemporaryFolder(), "cannot write a temporary file: " + SystemCause(errno));
        }
        bytes += done;
        count -= static_cast<std::size_t>(done);
    }
}

std::string ScratchFile::Path() const
{
    std::array<char, 256> path = {};
    const std::string link = "/proc/self/fd/" + std::to_string(m_descriptor);
    const ssize_t size = readlink(link.c_str(), path.data(), path.size());
    return {path.data(), static_cast<std::size_t>(size < 0 ? 0 : size)};
}

}  // namespace ipc2581::host
