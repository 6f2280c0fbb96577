#include "ipc2581/base/lines/LineFile.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>
#include <system_error>
#include <utility>

#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/platform/Afx.h"

namespace ipc2581::detail {
namespace {

// A file that is larger than the first block gets the large one.
constexpr std::size_t FirstBlockSize = std::size_t(1) << 14;
constexpr std::size_t BlockSize = std::size_t(1) << 17;

}  // namespace

LineFile::~LineFile()
{
    try {
        Close();
    }
    catch (const CFileException &) {
        // Told in the interface: who needs to know flushes first.
        m_file = nullptr;
    }
}

bool LineFile::Open(const char * path, const char * mode)
{
    m_file = OpenFile(path, mode);
    if (m_file == nullptr) {
        return false;
    }
    // The blocks read and written here are large: a second buffer would only copy them.
    static_cast<void>(std::setvbuf(m_file, nullptr, _IONBF, 0));
    m_path = path;
    m_begin = 0;
    m_end = 0;
    m_isWriting = false;
    m_hasRead = false;
    m_isLarge = false;
    return true;
}

void LineFile::Close()
{
    if (!IsOpen()) {
        return;
    }
    struct Closer {
        LineFile & lines;
        int Now()
        {
            lines.m_isWriting = false;
            return lines.m_file == nullptr ? 0 : std::fclose(std::exchange(lines.m_file, nullptr));
        }
        ~Closer() { static_cast<void>(Now()); }
    } closer{*this};
    Flush();
    m_begin = 0;
    m_end = 0;
    if (closer.Now() != 0) {
        Fail("close", errno);
    }
}

void LineFile::Flush()
{
    if (IsOpen() && m_isWriting) {
        WriteOut();
    }
}

bool LineFile::NextLineFromFile(std::string_view & line)
{
    line = {};
    if (!IsOpen()) {
        return false;
    }
    BeginReading();
    for (std::size_t searched = 0;;) {
        const char * const end = m_buffer + m_end;
        const char * const found = FindLineFeed(m_buffer + m_begin + searched, end);
        if (found != end) {
            TakeLine(found, line);
            CheckLineLimit(line.size());
            return true;
        }
        searched = m_end - m_begin;
        CheckLineLimit(searched);
        if (!Fill()) {
            line = {m_buffer + m_begin, m_end - m_begin};
            m_begin = m_end;
            return !line.empty();
        }
    }
}

std::size_t LineFile::Read(char * bytes, std::size_t count)
{
    if (!IsOpen()) {
        return 0;
    }
    BeginReading();
    std::size_t done = 0;
    while (done < count && (m_begin != m_end || Fill())) {
        const std::size_t piece = std::min(count - done, m_end - m_begin);
        std::memcpy(bytes + done, m_buffer + m_begin, piece);
        m_begin += piece;
        done += piece;
    }
    return done;
}

char * LineFile::ReserveElsewhere(std::size_t count)
{
    BeginWriting();
    if (m_size - m_end < count && m_size < BlockSize) {
        GrowBuffer(BlockSize);
    }
    if (m_size - m_end < count) {
        WriteOut();
        if (m_size < count) {
            GrowBuffer(count);
        }
    }
    return m_buffer + m_end;
}

// The text moves back by its line ends, beyond the room that was reserved for it.
void LineFile::CommitWithReturns(const char * end)
{
    const std::string_view text(m_buffer + m_end, static_cast<std::size_t>(end - m_buffer) - m_end);
    std::string written;
    for (const char ch : text) {
        written += ch == '\n' ? std::string_view("\r\n") : std::string_view(&ch, 1);
    }
    WriteBytes(written.data(), written.size());
}

void LineFile::Write(const char * text, std::size_t count)
{
    char * const out = Reserve(count);
    if (count != 0) {
        std::memcpy(out, text, count);
    }
    Commit(out + count);
}

void LineFile::WriteBytes(const char * bytes, std::size_t count)
{
    char * const out = Reserve(count);
    if (count != 0) {
        std::memcpy(out, bytes, count);
    }
    m_end += count;
}

bool LineFile::Fill()
{
    if (m_begin != 0) {
        std::memmove(m_buffer, m_buffer + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    if (m_end == m_size && m_size >= INT_MAX) {
        Fail("read", EFBIG);
    }
    if (m_isLarge && m_size < BlockSize) {
        GrowBuffer(BlockSize);
    }
    else if (m_end == m_size) {
        GrowBuffer(m_size * 2);
    }
    const std::size_t count = ReadBlock();
    m_end += count;
    m_isLarge = m_end == m_size;
    return count != 0;
}

// Reads into the rest of the buffer. A signal that comes in between is no failure, and bytes that came before one are
// handed out first.
std::size_t LineFile::ReadBlock()
{
    for (;;) {
        errno = 0;
        const std::size_t count = std::fread(m_buffer + m_end, 1, m_size - m_end, m_file);
        if (!HasReadFailed(m_file, count)) {
            return count;
        }
        const int cause = errno;
        std::clearerr(m_file);
        if (count != 0) {
            return count;
        }
        if (cause != EINTR) {
            Fail("read", cause);
        }
    }
}

void LineFile::BeginReading()
{
    if (m_buffer == nullptr) {
        GrowBuffer(FirstBlockSize);
    }
    if (m_isWriting) {
        WriteOut();
        Seek(0);
        m_isWriting = false;
    }
    m_hasRead = true;
}

void LineFile::BeginWriting()
{
    if (!IsOpen()) {
        throw CFileException("cannot write: the file is not open");
    }
    if (m_buffer == nullptr) {
        GrowBuffer(FirstBlockSize);
    }
    if (!m_isWriting) {
        if (m_hasRead) {
            // What was read ahead has not been read yet as far as the caller knows.
            Seek(-static_cast<std::int64_t>(m_end - m_begin));
        }
        m_hasRead = false;
        m_begin = 0;
        m_end = 0;
        m_isWriting = true;
    }
}

void LineFile::GrowBuffer(std::size_t size)
{
    // Zeros, so that what is read ahead of a line has always been written.
    Bytes larger(static_cast<char *>(std::calloc(ReadAhead + size + ReadAhead, 1)));
    if (larger == nullptr) {
        throw std::bad_alloc();
    }
    if (m_buffer != nullptr && m_end != 0) {
        std::memcpy(larger.get() + ReadAhead, m_buffer, m_end);
    }
    m_storage = std::move(larger);
    m_buffer = m_storage.get() + ReadAhead;
    m_size = size;
}

void LineFile::WriteOut()
{
    // Dropped before the attempt: bytes that could not be written once are not tried again by the destructor.
    const std::size_t count = std::exchange(m_end, 0);
    for (std::size_t done = 0; done < count;) {
        errno = 0;
        done += std::fwrite(m_buffer + done, 1, count - done, m_file);
        if (done < count && errno != EINTR) {
            Fail("write", errno);
        }
    }
}

// What lies between reading and writing one file in turn, and cannot be done in every file.
void LineFile::Seek(std::int64_t offset)
{
    if (SeekFile(m_file, offset) != 0) {
        Fail("change between reading and writing", errno);
    }
}

void LineFile::Fail(const char * what, int cause)
{
    throw CFileException("cannot " + std::string(what) + " " + m_path + ": " +
                         std::error_code(cause, std::generic_category()).message());
}

// Cut into tokens a line takes up to eight times its length, and a list of them for a host again half of that.
void LineFile::CheckLineLimit(std::size_t length)
{
    constexpr std::uint64_t shareOfLine = 16;
    if (length > BlockSize && length > m_modelLimit / shareOfLine) {
        FailForLimit();
    }
}

void LineFile::FailForLimit()
{
    throw CFileException("cannot read " + m_path + ": its model takes more than the " + std::to_string(m_modelLimit) +
                         " bytes that it may");
}

}  // namespace ipc2581::detail
