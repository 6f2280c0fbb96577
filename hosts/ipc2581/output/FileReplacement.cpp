#include "hosts/ipc2581/output/FileReplacement.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/output/SignalRemoval.h"

namespace ipc2581::host {
namespace {

namespace fs = std::filesystem;

// The signals must be blocked.
int MakeListed(std::string & pattern)
{
    const int descriptor = mkostemp(pattern.data(), O_CLOEXEC);
    if (descriptor != -1) {
        ListForRemoval(pattern);
    }
    return descriptor;
}

mode_t NewFileMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// Where a file is meant that is not there yet: symbolic links may lead to it. Throws Error for links in a circle.
fs::path MissingPlaceOf(const std::string & path)
{
    constexpr int mostLinks = 40;
    fs::path place = path;
    std::error_code ignored;
    for (int i = 0; fs::is_symlink(place, ignored); ++i) {
        if (i == mostLinks) {
            throw Error(path, SystemCause(ELOOP));
        }
        place = place.parent_path() / fs::read_symlink(place, ignored);
    }
    return place;
}

}  // namespace

FileReplacement::FileReplacement(const std::string & path) : m_told(path), m_place(path), m_writePath(path)
{
    struct stat status = {};
    const bool isThere = stat(path.c_str(), &status) == 0;
    if (isThere && S_ISDIR(status.st_mode)) {
        throw Error(path, SystemCause(EISDIR));
    }
    if (isThere && access(path.c_str(), W_OK) != 0) {
        throw Error(path, SystemCause(errno));
    }
    if (isThere && !S_ISREG(status.st_mode)) {
        m_isDone = true;
        return;
    }
    std::error_code error;
    const fs::path place = isThere ? fs::canonical(path, error) : MissingPlaceOf(path);
    if (error) {
        throw Error(path, error.message());
    }
    m_place = place.string();
    m_mode = isThere ? status.st_mode & 07777U : NewFileMode();
    // A name of its own, not one made of the other: that may be as long as names can be.
    m_writePath = (place.parent_path() / ".ipc2581-XXXXXX").string();
    const SignalsBlocked blocked;
    const int descriptor = MakeListed(m_writePath);
    if (descriptor == -1) {
        throw Error(path, "cannot be created: " + SystemCause(errno));
    }
    close(descriptor);
}

FileReplacement::~FileReplacement()
{
    if (!m_isDone) {
        RemoveListed(m_writePath);
    }
}

void FileReplacement::Commit()
{
    if (m_isDone) {
        return;
    }
    const int descriptor = open(m_writePath.c_str(), O_WRONLY | O_CLOEXEC);
    bool isGood = descriptor != -1 && fchmod(descriptor, m_mode) == 0 && fsync(descriptor) == 0;
    int cause = errno;
    if (descriptor != -1) {
        close(descriptor);
    }
    if (isGood) {
        const SignalsBlocked blocked;
        isGood = std::rename(m_writePath.c_str(), m_place.c_str()) == 0;
        cause = errno;
        m_isDone = isGood;
        if (isGood) {
            KeepFromRemoval(m_writePath);
        }
    }
    if (!isGood) {
        throw Error(m_told, "cannot be written: " + SystemCause(cause));
    }
}

}  // namespace ipc2581::host
