#include "python/board/Read.h"

#include <cerrno>
#include <cstdio>
#include <functional>
#include <mutex>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/OpenFile.h"
#include "python/board/LibraryLock.h"
#include "python/board/ReadProgress.h"
#include "python/objects/Raise.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

using FileMaker = std::function<host::BoardFile()>;

// The system's own reason why a file cannot be read, as Python's open tells it.
void RequireReadable(const std::string & path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor == -1) {
        RaiseSystem(errno, path);
    }
    struct stat status = {};
    const bool isFolder = fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    close(descriptor);
    if (isFolder) {
        RaiseSystem(EISDIR, path);
    }
}

std::unique_ptr<host::Board> ReadUnlocked(const FileMaker & makeFile, const host::Reading & reading,
                                          ReadProgress & progress)
{
    const py::gil_scoped_release release;
    // The reader of the core tells its messages to the whole process.
    std::unique_lock lock(LibraryMutex(), std::defer_lock);
    if (reading.isExact) {
        lock.lock();
    }
    return std::make_unique<host::Board>(makeFile(), reading, &progress);
}

std::shared_ptr<BoardStore> ReadFile(const std::string & name, const FileMaker & makeFile, const ReadOptions & options)
{
    host::Reading reading;
    reading.isExact = options.isExact;
    reading.step = options.step.value_or("");
    reading.memoryLimit = options.memoryLimit.value_or(0);
    ReadProgress progress(options.progress);
    try {
        return std::make_shared<BoardStore>(ReadUnlocked(makeFile, reading, progress));
    }
    catch (const ReadProgress::Stopped &) {
        progress.RaiseAgain();
        RaiseStopped(name);
    }
    catch (const host::Error & error) {
        RaiseRead(error.File(), error.Line(), error.Column(), error.Cause());
    }
}

host::BoardFile FileOfBytes(std::string_view bytes)
{
    static const std::string name = "bytes";
    char nothing = '\0';
    void * const begin = bytes.empty() ? &nothing : const_cast<char *>(bytes.data());
    const host::OpenedFile stream(fmemopen(begin, bytes.size(), "r"));
    if (stream == nullptr) {
        throw host::Error(name, host::SystemCause(errno));
    }
    return {name, stream.get()};
}

std::string PathOf(const py::object & source)
{
    const py::object path = py::module_::import("os").attr("fsencode")(source);
    return path.cast<std::string>();
}

}  // namespace

std::shared_ptr<BoardStore> Read(const py::object & source, const ReadOptions & options)
{
    if (options.isExact && options.step.has_value()) {
        RaiseValue("the exact reader reads all steps into one, so that none can be chosen");
    }
    if (py::isinstance<py::bytes>(source)) {
        const std::string_view bytes = source.cast<std::string_view>();
        return ReadFile(
            "bytes", [&] { return FileOfBytes(bytes); }, options);
    }
    const std::string path = PathOf(source);
    RequireReadable(path);
    return ReadFile(
        path, [&] { return host::BoardFile(path); }, options);
}

}  // namespace ipc2581::python
