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

// A name in the folder that nobody has yet, by the way that takes one and gives 0 for done.
template <typename Take>
int TakeNewName(const std::string & folder, std::string & name, Take take)
{
    constexpr int mostTries = 100;
    for (int i = 0; i < mostTries; ++i) {
        // A name of its own, not one made of the other: that may be as long as names can be.
        name = (fs::path(folder) / (".ipc2581-" + std::to_string(getpid()) + "-" + std::to_string(i))).string();
        if (take(name) == 0) {
            return 0;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return errno;
}

[[noreturn]] void ThrowExisting(const std::string & path)
{
    throw Error(path, "is there already; --force replaces it");
}

}  // namespace

void RefuseExisting(const std::string & path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
        ThrowExisting(path);
    }
}

FileReplacement::FileReplacement(const std::string & path, Existing existing, Keeping keeping)
    : m_told(path), m_place(path), m_writePath(path), m_existing(existing)
{
    struct stat status = {};
    const bool isThere = stat(path.c_str(), &status) == 0;
    if (isThere && S_ISDIR(status.st_mode)) {
        throw Error(path, SystemCause(EISDIR));
    }
    if (isThere && S_ISREG(status.st_mode) && existing == Existing::Refuse) {
        ThrowExisting(path);
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
    m_folder = place.has_parent_path() ? place.parent_path().string() : ".";
    m_mode = isThere ? status.st_mode & 07777U : NewFileMode();
    if (keeping == Keeping::HiddenName || !OpenNameless()) {
        OpenHidden();
    }
}

bool FileReplacement::OpenNameless()
{
    m_descriptor = open(m_folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    m_writePath = "/proc/self/fd/" + std::to_string(m_descriptor);
    return m_descriptor != -1;
}

void FileReplacement::OpenHidden()
{
    const SignalsBlocked blocked;
    const int cause = TakeNewName(m_folder, m_hidden, [&](const std::string & name) {
        m_descriptor = open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
        return m_descriptor == -1 ? -1 : 0;
    });
    if (m_descriptor == -1) {
        throw Error(m_told, "cannot be created: " + SystemCause(cause));
    }
    ListForRemoval(m_hidden);
    m_writePath = m_hidden;
}

FileReplacement::~FileReplacement()
{
    if (m_descriptor != -1) {
        close(m_descriptor);
    }
    if (!m_hidden.empty() && !m_isDone) {
        RemoveListed(m_hidden);
    }
}

// A file cannot be given the name of another one, so it replaces that one under a name of its own, which it has for no
// longer than that.
int FileReplacement::PutNamelessInPlace() const
{
    const auto link = [&](const std::string & name) {
        return linkat(AT_FDCWD, m_writePath.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW);
    };
    if (link(m_place) == 0) {
        return 0;
    }
    if (errno != EEXIST || m_existing == Existing::Refuse) {
        return errno;
    }
    std::string name;
    const int failure = TakeNewName(m_folder, name, link);
    if (failure != 0) {
        return failure;
    }
    if (std::rename(name.c_str(), m_place.c_str()) != 0) {
        const int cause = errno;
        unlink(name.c_str());
        return cause;
    }
    return 0;
}

int FileReplacement::PutHiddenInPlace() const
{
    if (m_existing == Existing::Replace) {
        return std::rename(m_hidden.c_str(), m_place.c_str()) == 0 ? 0 : errno;
    }
    if (link(m_hidden.c_str(), m_place.c_str()) != 0) {
        return errno;
    }
    unlink(m_hidden.c_str());
    return 0;
}

void FileReplacement::Commit()
{
    if (m_isDone) {
        return;
    }
    int cause = fchmod(m_descriptor, m_mode) == 0 && fsync(m_descriptor) == 0 ? 0 : errno;
    if (cause == 0) {
        const SignalsBlocked blocked;
        cause = m_hidden.empty() ? PutNamelessInPlace() : PutHiddenInPlace();
        m_isDone = cause == 0;
        if (m_isDone && !m_hidden.empty()) {
            KeepFromRemoval(m_hidden);
        }
    }
    if (cause == EEXIST) {
        ThrowExisting(m_told);
    }
    if (cause != 0) {
        throw Error(m_told, "cannot be written: " + SystemCause(cause));
    }
}

}  // namespace ipc2581::host
