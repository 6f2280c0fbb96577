#include "hosts/ipc2581/files/Temporary.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

namespace fs = std::filesystem;

constexpr std::array<int, 3> EndingSignals = {SIGHUP, SIGINT, SIGTERM};

// Changed only while the signals are blocked, so that their handler finds it whole.
std::vector<std::string> g_named;

class SignalsBlocked {
public:
    SignalsBlocked()
    {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : EndingSignals) {
            sigaddset(&signals, signal);
        }
        sigprocmask(SIG_BLOCK, &signals, &m_before);
    }
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked & operator=(const SignalsBlocked &) = delete;
    ~SignalsBlocked() { sigprocmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before{};
};

extern "C" void RemoveAndEnd(int signal)
{
    // A folder comes before the files in it.
    for (auto named = g_named.rbegin(); named != g_named.rend(); ++named) {
        if (unlink(named->c_str()) != 0) {
            static_cast<void>(rmdir(named->c_str()));
        }
    }
    // The handler is gone by now, so that the program ends as the signal ends any other.
    static_cast<void>(raise(signal));
}

void Remove(const std::string & path)
{
    const SignalsBlocked blocked;
    const auto named = std::find(g_named.begin(), g_named.end(), path);
    if (named != g_named.end()) {
        g_named.erase(named);
    }
    std::error_code ignored;
    fs::remove(path, ignored);
}

std::string TemporaryFolder()
{
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    return error ? "/tmp" : folder.string();
}

int MakeNamed(std::string & pattern)
{
    const int descriptor = mkostemp(pattern.data(), O_CLOEXEC);
    if (descriptor != -1) {
        g_named.push_back(pattern);
    }
    return descriptor;
}

mode_t NewFileMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

void RemoveTemporariesOnSignals()
{
    struct sigaction ending = {};
    ending.sa_handler = &RemoveAndEnd;
    ending.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : EndingSignals) {
        sigaddset(&ending.sa_mask, signal);
    }
    for (const int signal : EndingSignals) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        // What the caller ignores, as nohup does, stays ignored.
        if (before.sa_handler != SIG_IGN) {
            sigaction(signal, &ending, nullptr);
        }
    }
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}

ScratchFile::ScratchFile() : m_descriptor(-1)
{
    std::string pattern = TemporaryFolder() + "/ipc2581-XXXXXX";
    const SignalsBlocked blocked;
    m_descriptor = mkostemp(pattern.data(), O_CLOEXEC);
    if (m_descriptor == -1) {
        throw Error(TemporaryFolder(), "no temporary file can be made: " + SystemCause(errno));
    }
    static_cast<void>(unlink(pattern.c_str()));
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
            throw Error(TemporaryFolder(), "a temporary file cannot be written: " + SystemCause(errno));
        }
    }
}

std::string ScratchFile::Path() const
{
    return "/proc/self/fd/" + std::to_string(m_descriptor);
}

ScratchFolder::ScratchFolder() : m_path(TemporaryFolder() + "/ipc2581-XXXXXX")
{
    const SignalsBlocked blocked;
    if (mkdtemp(m_path.data()) == nullptr) {
        throw Error(TemporaryFolder(), "no temporary folder can be made: " + SystemCause(errno));
    }
    g_named.push_back(m_path);
}

ScratchFolder::~ScratchFolder()
{
    if (!m_file.empty()) {
        Remove(m_file);
    }
    Remove(m_path);
}

std::string ScratchFolder::File(const std::string & name)
{
    const SignalsBlocked blocked;
    m_file = m_path + "/" + name;
    g_named.push_back(m_file);
    return m_file;
}

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
    const fs::path place = isThere ? fs::canonical(path, error) : fs::path(path);
    if (error) {
        throw Error(path, error.message());
    }
    m_place = place.string();
    m_mode = isThere ? status.st_mode & 07777U : NewFileMode();
    // A name of its own, not one made of the other: that may be as long as names can be.
    m_writePath = (place.parent_path() / ".ipc2581-XXXXXX").string();
    const SignalsBlocked blocked;
    const int descriptor = MakeNamed(m_writePath);
    if (descriptor == -1) {
        throw Error(path, "cannot be made: " + SystemCause(errno));
    }
    close(descriptor);
}

FileReplacement::~FileReplacement()
{
    if (!m_isDone) {
        Remove(m_writePath);
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
            g_named.erase(std::find(g_named.begin(), g_named.end(), m_writePath));
        }
    }
    if (!isGood) {
        throw Error(m_told, "cannot be written: " + SystemCause(cause));
    }
}

}  // namespace ipc2581::host
