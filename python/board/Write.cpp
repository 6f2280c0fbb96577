#include "python/board/Write.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include <import/ForWriting.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/OpenFile.h"
#include "hosts/ipc2581/files/Pack.h"
#include "hosts/ipc2581/files/ScratchFile.h"
#include "hosts/ipc2581/output/FileReplacement.h"
#include "python/board/LibraryLock.h"
#include "python/board/ReadProgress.h"
#include "python/model/Below.h"
#include "python/objects/Raise.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;
namespace fs = std::filesystem;

std::string PathOf(const py::object & path)
{
    return py::module_::import("os").attr("fsencode")(path).cast<std::string>();
}

// The system's own reason why a file cannot be written, as Python's open tells it.
void RequireWritable(const std::string & path, bool isToReplace)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) {
            RaiseSystem(EISDIR, path);
        }
        if (S_ISREG(status.st_mode) && !isToReplace) {
            RaiseSystem(EEXIST, path);
        }
        if (access(path.c_str(), W_OK) != 0) {
            RaiseSystem(errno, path);
        }
        return;
    }
    const std::string folder = fs::path(path).parent_path().string();
    if (access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0) {
        RaiseSystem(errno, path);
    }
}

// Runs what writes, without the global lock, and raises what goes wrong.
void RunUnlocked(const std::string & path, ReadProgress & progress, const std::function<void()> & write)
{
    try {
        const py::gil_scoped_release release;
        const std::lock_guard lock(LibraryMutex());
        write();
    }
    catch (const ReadProgress::Stopped &) {
        progress.RaiseAgain();
        RaiseWrite(path, "stopped");
    }
    catch (const host::Error & error) {
        RaiseWrite(error.File(), error.Cause());
    }
}

void Append(std::ofstream & out, const std::string & path, const char * bytes, std::size_t count)
{
    if (!out.write(bytes, static_cast<std::streamsize>(count))) {
        throw host::Error(path, "cannot be written: " + host::SystemCause(errno));
    }
}

void Pack(const std::string & path, const std::string & plainPath, const std::string & packedPath)
{
    std::ofstream out(packedPath, std::ios::binary);
    host::Packer packer(path, [&](const char * bytes, std::size_t count) { Append(out, path, bytes, count); });
    const host::OpenedFile in = host::OpenFile(plainPath);
    std::vector<char> block(std::size_t(1) << 16);
    while (const std::size_t count = host::ReadBlock("temporary file", in.get(), block)) {
        packer.Write({block.data(), count});
    }
    packer.Finish();
    out.flush();
    Append(out, path, "", 0);
}

void WriteFile(const std::string & path, host::Existing existing, CIPC2581_Parser & root, ReadProgress & progress)
{
    host::FileReplacement file(path, existing);
    if (host::IsPackedName(path)) {
        const host::ScratchFile plain;
        host::WriteModel(plain.Path(), path, root, &progress);
        Pack(path, plain.Path(), file.WritePath());
    }
    else {
        host::WriteModel(file.WritePath(), path, root, &progress);
    }
    file.Commit();
}

host::Existing Existing(bool isToReplace)
{
    return isToReplace ? host::Existing::Replace : host::Existing::Refuse;
}

}  // namespace

void Write(const BoardStore & board, const py::object & path, bool isToReplace)
{
    const std::string place = PathOf(path);
    RequireWritable(place, isToReplace);
    // The writer gets a copy: other threads may change the board meanwhile, and an import is prepared for it.
    const OwnedObject copy = DeepCopy(board.Root());
    auto & root = *static_cast<CIPC2581_Parser *>(copy.Get().object);
    ReadProgress progress{py::none()};
    RunUnlocked(place, progress, [&] {
        if (board.Own().Report() != nullptr) {
            PrepareForWriting(root);
        }
        WriteFile(place, Existing(isToReplace), root, progress);
    });
}

void WriteText(const py::object & path, const py::bytes & text, bool isToReplace)
{
    const std::string place = PathOf(path);
    RequireWritable(place, isToReplace);
    const std::string_view bytes = text;
    ReadProgress progress{py::none()};
    RunUnlocked(place, progress, [&] {
        host::FileReplacement file(place, Existing(isToReplace));
        std::ofstream out(file.WritePath(), std::ios::binary);
        Append(out, place, bytes.data(), bytes.size());
        out.flush();
        Append(out, place, "", 0);
        file.Commit();
    });
}

void PrintReport(const BoardStore & board, const std::string & name)
{
    ReadProgress progress{py::none()};
    RunUnlocked(name, progress, [&] {
        // The report is short, and the board must not change under it.
        const py::gil_scoped_acquire locked;
        host::WriteReport(name, name, board.Own().Root());
    });
}

py::dict Unwritten(const BoardStore & board)
{
    py::dict counts;
    for (const ipc2581::Unwritten & own : UnwrittenOf(board.Own().Root())) {
        counts[py::str(own.several.data(), own.several.size())] = own.count;
    }
    return counts;
}

}  // namespace ipc2581::python
