#include "hosts/ipc2581/board/Unpack.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <clocale>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include <archive.h>
#include <archive_entry.h>
#include <zlib.h>

#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/OpenFile.h"

namespace ipc2581::host {
namespace {

constexpr std::size_t BlockSize = std::size_t(1) << 17;

struct PackingRow {
    Packing packing;
    std::string_view ending;
    std::string_view magic;
    std::size_t magicAt;
    const char * name;
};

using namespace std::string_view_literals;

constexpr std::array<PackingRow, 7> Packings = {{
    {Packing::Gzip, ".gz", "\x1f\x8b", 0, "gzip"},
    {Packing::Zstandard, ".zst", "\x28\xb5\x2f\xfd", 0, "zstd"},
    {Packing::Xz, ".xz", "\xfd\x37zXZ\0"sv, 0, "xz"},
    {Packing::Bzip2, ".bz2", "BZh", 0, "bzip2"},
    {Packing::Zip, ".zip", "PK\x03\x04", 0, "zip"},
    {Packing::SevenZip, ".7z", "7z\xbc\xaf\x27\x1c", 0, "7z"},
    {Packing::Tar, ".tar", "ustar", 257, "tar"},
}};

std::string NameOf(Packing packing)
{
    const auto * const row =
        std::find_if(Packings.begin(), Packings.end(), [&](const PackingRow & one) { return one.packing == packing; });
    return row->name;
}

template <auto Close>
struct Closer {
    template <typename Handle>
    void operator()(Handle * handle) const
    {
        static_cast<void>(Close(handle));
    }
};

// The reader of archives knows this packing too, but never compares the sum of the unpacked bytes.
void UnpackGzip(const std::string & told, const std::string & path, ScratchFile & to)
{
    const std::unique_ptr<gzFile_s, Closer<&gzclose_r>> file(gzopen(path.c_str(), "rbe"));
    if (file == nullptr) {
        throw Error(told, SystemCause(errno));
    }
    std::vector<char> block(BlockSize);
    int count = 0;
    while ((count = gzread(file.get(), block.data(), static_cast<unsigned>(block.size()))) > 0) {
        to.Write(block.data(), static_cast<std::size_t>(count));
    }
    int status = Z_OK;
    gzerror(file.get(), &status);
    if (status == Z_ERRNO) {
        throw Error(told, "cannot be read: " + SystemCause(errno));
    }
    // A file that ends early is told as a buffer that is short.
    if (status != Z_OK) {
        throw Error(told, status == Z_BUF_ERROR ? "the gzip data end early" : "the gzip data are damaged");
    }
}

using Archive = std::unique_ptr<archive, Closer<&archive_read_free>>;

void Allow(archive * reader, Packing packing)
{
    switch (packing) {
    case Packing::Zstandard:
        archive_read_support_filter_zstd(reader);
        archive_read_support_format_raw(reader);
        break;
    case Packing::Xz:
        archive_read_support_filter_xz(reader);
        archive_read_support_format_raw(reader);
        break;
    case Packing::Bzip2:
        archive_read_support_filter_bzip2(reader);
        archive_read_support_format_raw(reader);
        break;
    case Packing::Zip:
        // By its directory alone: an archive without one is damaged.
        archive_read_support_format_zip_seekable(reader);
        break;
    case Packing::SevenZip:
        archive_read_support_format_7zip(reader);
        break;
    case Packing::Tar:
        archive_read_support_format_tar(reader);
        break;
    case Packing::None:
    case Packing::Gzip:
        break;
    }
}

// Names of any language while it lives, in this thread alone: without, the reader of archives gives none for those that
// are not of the language of the process.
class NamesInUtf8 {
public:
    NamesInUtf8() : m_names(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr))
    {
        if (m_names != nullptr) {
            m_before = uselocale(m_names);
        }
    }
    NamesInUtf8(const NamesInUtf8 &) = delete;
    NamesInUtf8 & operator=(const NamesInUtf8 &) = delete;
    ~NamesInUtf8()
    {
        if (m_names != nullptr) {
            uselocale(m_before);
            freelocale(m_names);
        }
    }

private:
    locale_t m_names;
    locale_t m_before = nullptr;
};

// A packed file that is being unpacked.
class PackedFile {
public:
    // Messages tell the name for the path.
    PackedFile(std::string told, const std::string & path, Packing packing)
        : m_told(std::move(told)), m_packing(packing), m_archive(archive_read_new())
    {
        if (m_archive == nullptr) {
            throw std::bad_alloc();
        }
        Allow(m_archive.get(), packing);
        Check(archive_read_open_filename(m_archive.get(), path.c_str(), BlockSize));
    }

    // The next entry; null behind the last one.
    archive_entry * Next()
    {
        archive_entry * entry = nullptr;
        const int status = archive_read_next_header(m_archive.get(), &entry);
        // A name in another code is no harm.
        if (status != ARCHIVE_WARN) {
            Check(status);
        }
        // What is not known as packed at all is handed out as it is.
        if (IsCompressed() && archive_filter_count(m_archive.get()) < 2) {
            Fail();
        }
        return status == ARCHIVE_EOF ? nullptr : entry;
    }

    // Writes the data of the entry that was given last.
    void WriteTo(ScratchFile & to)
    {
        std::vector<char> block(BlockSize);
        la_ssize_t count = 0;
        while ((count = archive_read_data(m_archive.get(), block.data(), block.size())) > 0) {
            to.Write(block.data(), static_cast<std::size_t>(count));
        }
        Check(static_cast<int>(count));
    }

private:
    [[nodiscard]] bool IsCompressed() const
    {
        return m_packing == Packing::Zstandard || m_packing == Packing::Xz || m_packing == Packing::Bzip2;
    }

    void Check(int status) const
    {
        if (status != ARCHIVE_OK && status != ARCHIVE_EOF) {
            Fail();
        }
    }

    [[noreturn]] void Fail() const
    {
        const char * const text = archive_error_string(m_archive.get());
        const std::string_view cause = text == nullptr ? "" : text;
        if (cause.starts_with("Error reading")) {
            throw Error(m_told, "cannot be read: " + SystemCause(archive_errno(m_archive.get())));
        }
        if (cause.starts_with("Unsupported") && !IsCompressed()) {
            throw Error(m_told, "the board in the archive cannot be unpacked: Compression method not supported");
        }
        if (!IsCompressed()) {
            throw Error(m_told, "the " + NameOf(m_packing) + " archive is damaged");
        }
        const bool isShort = cause.starts_with("truncated") || cause.starts_with("Truncated") ||
                             cause.ends_with("No progress is possible");
        throw Error(m_told, "the " + NameOf(m_packing) + (isShort ? " data end early" : " data are damaged"));
    }

    NamesInUtf8 m_names;
    std::string m_told;
    Packing m_packing;
    Archive m_archive;
};

void UnpackCompressed(const std::string & told, const std::string & path, Packing packing, ScratchFile & to)
{
    PackedFile file(told, path, packing);
    if (file.Next() != nullptr) {
        file.WriteTo(to);
    }
}

bool IsBoardName(std::string_view name)
{
    return name.ends_with(".cvg") || name.ends_with(".xml");
}

std::string_view EntryName(archive_entry * entry)
{
    const char * const name = archive_entry_pathname(entry);
    return name == nullptr ? std::string_view() : name;
}

// The place of the one file in the archive, or of the one of several that has the name of a board.
std::size_t FindBoard(const std::string & told, const std::string & path, Packing packing)
{
    std::vector<std::size_t> files;
    std::vector<std::size_t> boards;
    PackedFile archive(told, path, packing);
    std::size_t place = 0;
    while (archive_entry * const entry = archive.Next()) {
        const std::string_view name = EntryName(entry);
        if (archive_entry_filetype(entry) == AE_IFREG && !name.ends_with('/')) {
            files.push_back(place);
            if (IsBoardName(name)) {
                boards.push_back(place);
            }
        }
        ++place;
    }
    const std::vector<std::size_t> & found = files.size() == 1 ? files : boards;
    if (found.size() != 1) {
        throw Error(told, "the archive contains " + std::to_string(found.size()) + " boards instead of one");
    }
    return found.front();
}

void UnpackArchive(const std::string & told, const std::string & path, Packing packing, ScratchFile & to)
{
    const std::size_t board = FindBoard(told, path, packing);
    PackedFile archive(told, path, packing);
    for (std::size_t i = 0; i < board; ++i) {
        archive.Next();
    }
    archive_entry * const entry = archive.Next();
    if (entry == nullptr) {
        throw Error(told, "the " + NameOf(packing) + " archive is damaged");
    }
    if (archive_entry_is_data_encrypted(entry) != 0) {
        throw Error(told, "the board in the archive cannot be unpacked: No password provided");
    }
    archive.WriteTo(to);
}

bool HasMagic(std::string_view bytes, const PackingRow & row)
{
    return bytes.size() > row.magicAt && bytes.substr(row.magicAt).starts_with(row.magic);
}

std::string FirstBytes(const std::string & told, const std::string & path)
{
    std::vector<char> start(512);
    const OpenedFile file = OpenFile(path);
    return {start.data(), ReadBlock(told, file.get(), start)};
}

}  // namespace

Packing FindPacking(const std::string & told, const std::string & path)
{
    const std::string bytes = FirstBytes(told, path);
    for (const PackingRow & row : Packings) {
        if (HasMagic(bytes, row)) {
            return row.packing;
        }
    }
    for (const PackingRow & row : Packings) {
        if (told.ends_with(row.ending)) {
            throw Error(told, "is not packed as its name says");
        }
    }
    return Packing::None;
}

std::unique_ptr<ScratchFile> CopyOf(const std::string & told, std::FILE * file)
{
    auto copy = std::make_unique<ScratchFile>();
    std::vector<char> block(BlockSize);
    while (const std::size_t count = ReadBlock(told, file, block)) {
        copy->Write(block.data(), count);
    }
    return copy;
}

std::unique_ptr<ScratchFile> Unpack(const std::string & told, const std::string & path, Packing packing)
{
    auto unpacked = std::make_unique<ScratchFile>();
    switch (packing) {
    case Packing::None:
        return CopyOf(told, OpenFile(path).get());
    case Packing::Zip:
    case Packing::SevenZip:
    case Packing::Tar:
        UnpackArchive(told, path, packing, *unpacked);
        return unpacked;
    case Packing::Gzip:
        UnpackGzip(told, path, *unpacked);
        break;
    case Packing::Zstandard:
    case Packing::Xz:
    case Packing::Bzip2:
        UnpackCompressed(told, path, packing, *unpacked);
        break;
    }
    if (!HasMagic(FirstBytes(told, unpacked->Path()), Packings.back())) {
        return unpacked;
    }
    // All of it is there by now, and so the sums at its end have been compared.
    auto board = std::make_unique<ScratchFile>();
    UnpackArchive(told, unpacked->Path(), Packing::Tar, *board);
    return board;
}

}  // namespace ipc2581::host
