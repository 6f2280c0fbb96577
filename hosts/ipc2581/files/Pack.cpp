#include "hosts/ipc2581/files/Pack.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include <archive.h>
#include <archive_entry.h>

#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

struct PackedEnding {
    std::string_view ending;
    int (*addFilter)(archive * writer);
};

constexpr std::array<PackedEnding, 4> PackedEndings = {{{".gz", &archive_write_add_filter_gzip},
                                                        {".zst", &archive_write_add_filter_zstd},
                                                        {".xz", &archive_write_add_filter_xz},
                                                        {".bz2", &archive_write_add_filter_bzip2}}};

constexpr std::array<std::string_view, 3> ArchiveEndings = {".zip", ".7z", ".tar"};

const PackedEnding * EndingOf(std::string_view name)
{
    const auto * const found = std::find_if(PackedEndings.begin(), PackedEndings.end(),
                                            [&](const PackedEnding & one) { return name.ends_with(one.ending); });
    return found == PackedEndings.end() ? nullptr : found;
}

}  // namespace

bool IsPackedName(const std::string & name)
{
    const PackedEnding * const packed = EndingOf(name);
    const std::string_view inner = std::string_view(name).substr(0, name.size() - (packed ? packed->ending.size() : 0));
    for (const std::string_view ending : ArchiveEndings) {
        if (inner.ends_with(ending)) {
            throw Error(name, "archives are not written; use .gz, .zst, .xz or .bz2");
        }
    }
    return packed != nullptr;
}

Packer::Packer(std::string name, Sink sink)
    : m_name(std::move(name)), m_sink(std::move(sink)), m_writer(archive_write_new())
{
    if (m_writer == nullptr) {
        throw std::bad_alloc();
    }
    const PackedEnding * const packed = EndingOf(m_name);
    if (packed != nullptr) {
        packed->addFilter(m_writer);
    }
    // The same bytes each time, whatever the time is.
    archive_write_set_options(m_writer, "gzip:!timestamp");
    archive_write_set_format_raw(m_writer);
    // The last block as long as it is, not filled up with zero bytes.
    archive_write_set_bytes_in_last_block(m_writer, 1);
    Check(archive_write_open(m_writer, this, nullptr, &Packer::HandOn, nullptr));
    archive_entry * const entry = archive_entry_new();
    archive_entry_set_filetype(entry, AE_IFREG);
    const int status = archive_write_header(m_writer, entry);
    archive_entry_free(entry);
    Check(status);
}

Packer::~Packer()
{
    // To free it would hand on what is left, of something that nobody wants any more.
    m_sink = [](const char *, std::size_t) {};
    archive_write_free(m_writer);
}

std::ptrdiff_t Packer::HandOn(archive * /*writer*/, void * packer, const void * bytes, std::size_t count)
{
    auto & self = *static_cast<Packer *>(packer);
    // No exception may pass through the writer, which is C.
    try {
        self.m_sink(static_cast<const char *>(bytes), count);
    }
    catch (...) {
        self.m_thrown = std::current_exception();
        return -1;
    }
    return static_cast<std::ptrdiff_t>(count);
}

void Packer::Check(int status)
{
    if (m_thrown != nullptr) {
        std::rethrow_exception(std::exchange(m_thrown, nullptr));
    }
    if (status < ARCHIVE_WARN) {
        const char * const cause = archive_error_string(m_writer);
        throw Error(m_name, "cannot be packed: " + std::string(cause == nullptr ? "unknown cause" : cause));
    }
}

void Packer::Write(std::string_view bytes)
{
    const la_ssize_t done = archive_write_data(m_writer, bytes.data(), bytes.size());
    Check(done < 0 ? ARCHIVE_FATAL : ARCHIVE_OK);
}

void Packer::Finish()
{
    Check(archive_write_close(m_writer));
}

}  // namespace ipc2581::host
