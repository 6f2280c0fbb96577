#include "hosts/ipc2581/board/Unpack.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <vector>

#include <zip.h>
#include <zlib.h>
#include <zstd.h>

#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

constexpr std::size_t BlockSize = std::size_t(1) << 17;

struct PackingRow {
    Packing packing;
    std::string_view ending;
    std::string_view magic;
};

constexpr std::array<PackingRow, 3> Packings = {{
    {Packing::Gzip, ".gz", "\x1f\x8b"},
    {Packing::Zstandard, ".zst", "\x28\xb5\x2f\xfd"},
    {Packing::Zip, ".zip", "PK\x03\x04"},
}};

template <auto Close>
struct Closer {
    template <typename Handle>
    void operator()(Handle * handle) const
    {
        static_cast<void>(Close(handle));
    }
};

using File = std::unique_ptr<std::FILE, Closer<&std::fclose>>;

File OpenFile(const std::string & path)
{
    File file(std::fopen(path.c_str(), "rbe"));
    if (file == nullptr) {
        throw Error(path, SystemCause(errno));
    }
    return file;
}

std::size_t ReadBlock(const std::string & path, std::FILE * file, std::vector<char> & block)
{
    const std::size_t count = std::fread(block.data(), 1, block.size(), file);
    if (count == 0 && std::ferror(file) != 0) {
        throw Error(path, "cannot be read: " + SystemCause(errno));
    }
    return count;
}

void Copy(const std::string & path, ScratchFile & to)
{
    const File file = OpenFile(path);
    std::vector<char> block(BlockSize);
    while (const std::size_t count = ReadBlock(path, file.get(), block)) {
        to.Write(block.data(), count);
    }
}

void UnpackGzip(const std::string & path, ScratchFile & to)
{
    const std::unique_ptr<gzFile_s, Closer<&gzclose_r>> file(gzopen(path.c_str(), "rbe"));
    if (file == nullptr) {
        throw Error(path, SystemCause(errno));
    }
    std::vector<char> block(BlockSize);
    int count = 0;
    while ((count = gzread(file.get(), block.data(), static_cast<unsigned>(block.size()))) > 0) {
        to.Write(block.data(), static_cast<std::size_t>(count));
    }
    int status = Z_OK;
    gzerror(file.get(), &status);
    if (status == Z_ERRNO) {
        throw Error(path, "cannot be read: " + SystemCause(errno));
    }
    // A file that ends early is told as a buffer that is short.
    if (status != Z_OK) {
        throw Error(path, status == Z_BUF_ERROR ? "the gzip data end early" : "the gzip data are damaged");
    }
}

void UnpackZstandard(const std::string & path, ScratchFile & to)
{
    const File file = OpenFile(path);
    const std::unique_ptr<ZSTD_DStream, Closer<&ZSTD_freeDStream>> stream(ZSTD_createDStream());
    std::vector<char> block(BlockSize);
    std::vector<char> unpacked(ZSTD_DStreamOutSize());
    std::size_t wanted = 0;
    while (const std::size_t count = ReadBlock(path, file.get(), block)) {
        ZSTD_inBuffer in = {block.data(), count, 0};
        bool isFlushing = true;
        while (in.pos < in.size || isFlushing) {
            ZSTD_outBuffer out = {unpacked.data(), unpacked.size(), 0};
            wanted = ZSTD_decompressStream(stream.get(), &out, &in);
            if (ZSTD_isError(wanted) != 0) {
                throw Error(path, "the zstd data are damaged");
            }
            to.Write(unpacked.data(), out.pos);
            // A full buffer may leave more behind in the stream.
            isFlushing = out.pos == out.size;
        }
    }
    if (wanted != 0) {
        throw Error(path, "the zstd data end early");
    }
}

bool IsBoardName(std::string_view name)
{
    return name.ends_with(".cvg") || name.ends_with(".xml");
}

// The one file in the archive, or the one of several that has the name of a board.
zip_uint64_t FindBoard(const std::string & path, zip_t * archive)
{
    std::vector<zip_uint64_t> files;
    std::vector<zip_uint64_t> boards;
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        const char * const told = zip_get_name(archive, i, ZIP_FL_ENC_RAW);
        const std::string_view name = told == nullptr ? "" : told;
        if (name.ends_with('/')) {
            continue;
        }
        files.push_back(i);
        if (IsBoardName(name)) {
            boards.push_back(i);
        }
    }
    const std::vector<zip_uint64_t> & found = files.size() == 1 ? files : boards;
    if (found.size() != 1) {
        throw Error(path, "the archive holds " + std::to_string(found.size()) + " boards where it must hold one");
    }
    return found.front();
}

void UnpackZip(const std::string & path, ScratchFile & to)
{
    int code = 0;
    const std::unique_ptr<zip_t, Closer<&zip_discard>> archive(zip_open(path.c_str(), ZIP_RDONLY, &code));
    if (archive == nullptr) {
        throw Error(path, "the zip archive is damaged");
    }
    const zip_uint64_t board = FindBoard(path, archive.get());
    const std::unique_ptr<zip_file_t, Closer<&zip_fclose>> file(zip_fopen_index(archive.get(), board, 0));
    if (file == nullptr) {
        throw Error(path, std::string("the board in the archive cannot be unpacked: ") + zip_strerror(archive.get()));
    }
    std::vector<char> block(BlockSize);
    zip_int64_t count = 0;
    while ((count = zip_fread(file.get(), block.data(), block.size())) > 0) {
        to.Write(block.data(), static_cast<std::size_t>(count));
    }
    if (count < 0) {
        throw Error(path, "the zip archive is damaged");
    }
}

}  // namespace

Packing FindPacking(const std::string & path)
{
    std::vector<char> start(4);
    const File file = OpenFile(path);
    start.resize(ReadBlock(path, file.get(), start));
    const std::string_view bytes(start.data(), start.size());
    for (const PackingRow & row : Packings) {
        if (bytes.starts_with(row.magic)) {
            return row.packing;
        }
        if (path.ends_with(row.ending)) {
            throw Error(path, "is not packed as the end of its name tells");
        }
    }
    return Packing::None;
}

void Unpack(const std::string & path, Packing packing, ScratchFile & to)
{
    switch (packing) {
    case Packing::None:
        Copy(path, to);
        break;
    case Packing::Gzip:
        UnpackGzip(path, to);
        break;
    case Packing::Zstandard:
        UnpackZstandard(path, to);
        break;
    case Packing::Zip:
        UnpackZip(path, to);
        break;
    }
}

}  // namespace ipc2581::host
