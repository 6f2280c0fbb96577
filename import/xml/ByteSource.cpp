#include "import/xml/ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace ipc2581::detail {
namespace {

// The parser asks for a few kilobytes at a time.
constexpr std::size_t FileBufferSize = std::size_t(64) * 1024;

[[noreturn]] void ThrowErrno()
{
    throw std::system_error(errno, std::generic_category());
}

}  // namespace

FileSource::FileSource(const std::filesystem::path & path)
{
    if (std::filesystem::is_directory(path)) {
        errno = EISDIR;
        ThrowErrno();
    }
    m_file.reset(std::fopen(path.string().c_str(), "rb"));
    if (m_file == nullptr) {
        ThrowErrno();
    }
    // The buffer is given, since some libraries take no notice of a size alone.
    m_buffer.reset(new char[FileBufferSize]);
    std::setvbuf(m_file.get(), m_buffer.get(), _IOFBF, FileBufferSize);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    m_size = error ? 0 : static_cast<std::size_t>(size);
    m_isPipe = std::fseek(m_file.get(), 0, SEEK_SET) != 0;
}

std::size_t FileSource::Read(std::span<char> room)
{
    if (m_place < m_kept.size()) {
        const std::size_t again = std::min(room.size(), m_kept.size() - m_place);
        std::memcpy(room.data(), m_kept.data() + m_place, again);
        m_place += again;
        return again;
    }
    const std::size_t count = std::fread(room.data(), 1, room.size(), m_file.get());
    if (count == 0 && std::ferror(m_file.get()) != 0) {
        ThrowErrno();
    }
    if (m_isPipe) {
        m_kept.insert(m_kept.end(), room.data(), room.data() + count);
        m_place = m_kept.size();
    }
    return count;
}

void FileSource::Rewind()
{
    m_place = 0;
    if (!m_isPipe && std::fseek(m_file.get(), 0, SEEK_SET) != 0) {
        ThrowErrno();
    }
}

std::size_t MemorySource::Read(std::span<char> room)
{
    const std::size_t count = std::min(room.size(), m_left.size());
    if (count != 0) {
        std::memcpy(room.data(), m_left.data(), count);
        m_left = m_left.subspan(count);
    }
    return count;
}

}  // namespace ipc2581::detail
