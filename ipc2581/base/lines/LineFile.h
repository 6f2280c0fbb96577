#ifndef IPC2581_BASE_LINES_LINEFILE_H
#define IPC2581_BASE_LINES_LINEFILE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>

#include "ipc2581/base/lines/FirstToken.h"
#include "ipc2581/base/lines/LineHead.h"
#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/base/platform/SystemFile.h"

namespace ipc2581::detail {

// The buffer behind a CStdioFile. Lines are handed out as views into it, and written lines are formed in it.
class LineFile {
public:
    LineFile() = default;
    ~LineFile();
    LineFile(const LineFile &) = delete;
    LineFile & operator=(const LineFile &) = delete;

    bool Open(const char * path, const char * mode);
    bool IsOpen() const { return m_file != nullptr; }
    void Close();
    void Flush();

    // The next line without its line end; false and an empty line at the end of the file. The line stays valid until
    // the next call on this object, with ReadAhead bytes in front of its first and behind its last one.
    // The look at its start is for who goes on with it.
    bool NextLine(std::string_view & line, LineStart & look)
    {
        const char * const start = m_buffer + m_begin;
        const char * const end = m_buffer + m_end;
        if (start != end && !m_isWriting) {
            look = LineStart(start);
            const char * const found = look.LineFeed(start, end);
            if (found != end) {
                TakeLine(found, line);
                return true;
            }
        }
        const bool isRead = NextLineFromFile(line);
        look = line.empty() ? LineStart() : LineStart(line.data());
        return isRead;
    }
    // The next line, if it stands in the buffer and begins as one did behind a line like the last; else null, and no
    // line is taken.
    const LineHead * NextExpectedLine(std::string_view & line)
    {
        const char * const start = m_buffer + m_begin;
        const char * const end = m_buffer + m_end;
        const LineHead * const head = start == end || m_isWriting ? nullptr : m_heads.Expected(start);
        if (head == nullptr) {
            return nullptr;
        }
        const char * lineFeed = start + head->size;
        // What stands behind the end is left from an earlier read.
        if (lineFeed >= end) {
            return nullptr;
        }
        if (*lineFeed == ' ') {
            lineFeed = FindLineFeed(lineFeed, end);
        }
        else {
            lineFeed += *lineFeed == '\r' ? 1 : 0;
            // A line without a blank is not cut: its token is all of it, with its brackets.
            lineFeed = *lineFeed == '\n' && head->isIndented ? lineFeed : end;
        }
        if (lineFeed >= end) {
            return nullptr;
        }
        m_heads.TakeExpected();
        TakeLine(lineFeed, line);
        return head;
    }
    bool NextLine(std::string_view & line)
    {
        LineStart look;
        return NextLine(line, look);
    }
    std::size_t Read(char * bytes, std::size_t count);

    // Room for count bytes at the end of what is written; Commit tells how far they were used. A line feed in them is a
    // line end, to be written as that of the system.
    char * Reserve(std::size_t count)
    {
        return m_isWriting && m_size - m_end >= count ? m_buffer + m_end : ReserveElsewhere(count);
    }
    void Commit(const char * end)
    {
        if constexpr (WritesReturns) {
            CommitWithReturns(end);
        }
        else {
            m_end = static_cast<std::size_t>(end - m_buffer);
        }
    }
    void Write(const char * text, std::size_t count);
    // As they stand.
    void WriteBytes(const char * bytes, std::size_t count);

    // What a model that is read from the file may take. A line may be a sixteenth of that long, or as long as the
    // buffer.
    void SetModelLimit(std::uint64_t bytes) { m_modelLimit = bytes; }
    // From now on what is made counts as another model.
    void BeginModel() { m_blocks.SetBudget(m_modelLimit); }
    // Throws CFileException if the model has passed the limit.
    void CheckModelLimit()
    {
        if (m_blocks.IsSpent()) {
            FailForLimit();
        }
    }

    // Who looks on while lines are read; null, as at first, for nobody.
    void SetObserver(ReadObserver * observer) { m_tokens.SetObserver(observer); }
    ReadObserver * Observer() const { return m_tokens.Observer(); }

    // What the reader of the current line works with: kept here, so that no line needs fresh storage.
    TokenList & Tokens() { return m_tokens; }
    ObjectBlocks & Blocks() { return m_blocks; }
    FirstTokenMemory & FirstTokens() { return m_firstTokens; }
    LineHeads & Heads() { return m_heads; }
    std::string & Scratch() { return m_scratch; }
    std::string & HostLine() { return m_hostLine; }

private:
    bool NextLineFromFile(std::string_view & line);
    void CheckLineLimit(std::size_t length);
    // Takes the line that ends in the line feed at the place.
    void TakeLine(const char * lineFeed, std::string_view & line)
    {
        const char * const start = m_buffer + m_begin;
        m_begin = static_cast<std::size_t>(lineFeed + 1 - m_buffer);
        const bool hasReturn = lineFeed != start && lineFeed[-1] == '\r';
        line = {start, static_cast<std::size_t>(lineFeed - start) - (hasReturn ? 1 : 0)};
    }

    // Reads one more block behind what is held; false at the end of the file.
    bool Fill();
    std::size_t ReadBlock();
    void BeginReading();
    void BeginWriting();
    char * ReserveElsewhere(std::size_t count);
    void CommitWithReturns(const char * end);
    void GrowBuffer(std::size_t size);
    void WriteOut();
    void Seek(std::int64_t offset);
    [[noreturn]] void Fail(const char * what, int cause);
    [[noreturn]] void FailForLimit();

    struct Freer {
        void operator()(char * bytes) const { std::free(bytes); }
    };
    using Bytes = std::unique_ptr<char[], Freer>;

    std::FILE * m_file = nullptr;
    std::string m_path;
    // While reading, begin to end is what has been read and not yet handed out; while writing, 0 to end is what
    // has not yet been written.
    Bytes m_storage;
    char * m_buffer = nullptr;
    std::size_t m_size = 0;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_isWriting = false;
    bool m_hasRead = false;  // since it was opened or last written to
    bool m_isLarge = false;  // the last read has filled the buffer
    ObjectBlocks m_blocks;
    std::uint64_t m_modelLimit = UINT64_MAX;
    TokenList m_tokens{m_blocks};
    FirstTokenMemory m_firstTokens;
    LineHeads m_heads;
    std::string m_scratch;
    std::string m_hostLine;
};

// False for a file class of the host's own, which is read and written through its operations. Where a class goes by two
// descriptions, a plain file is taken for such a one and nothing is lost but time.
inline bool IsPlainFile(const CStdioFile & file)
{
    return &typeid(file) == &typeid(CStdioFile);
}

}  // namespace ipc2581::detail

#endif
