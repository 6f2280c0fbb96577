#include "hosts/ipc2581/files/ScratchFile.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

int OpenNameless(const std::string & folder)
{
    const int descriptor = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor != -1) {
        return descriptor;
    }
    // Not every file system makes a file without a name at once.
    std::string pattern = folder + "/ipc2581-XXXXXX";
    const int named = mkostemp(pattern.data(), O_CLOEXEC);
    if (named != -1) {
        static_cast<void>(unlink(pattern.c_str()));
    }
    return named;
}

}  // namespace

std::string TemporaryFolder()
{
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    return error ? "/tmp" : folder.string();
}

ScratchFile::ScratchFile() : m_descriptor(OpenNameless(TemporaryFolder()))
{
    if (m_descriptor == -1) {
        throw Error(TemporaryFolder(), "cannot create a temporary file: " + SystemCause(errno));
    }
}

ScratchFile::~ScratchFile()
{
    close(m_descriptor);
}

void ScratchFile::Write(const char * bytes, std::size_t count)
{
    while (count != 0) {
        const ssize_t done = write(m_descriptor, bytes, count);
        if (done >= 0) {
            bytes += done;
            count -= static_cast<std::size_t>(done);
        }
        else if (errno != EINTR) {
            throw Error(TemporaryFolder(), "cannot write a temporary file: " + SystemCause(errno));
        }
    }
}

std::string ScratchFile::Path() const
{
    return "/proc/self/fd/" + std::to_string(m_descriptor);
}

}  // namespace ipc2581::host
