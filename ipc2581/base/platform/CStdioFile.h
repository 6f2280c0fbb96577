#ifndef IPC2581_BASE_PLATFORM_CSTDIOFILE_H
#define IPC2581_BASE_PLATFORM_CSTDIOFILE_H

#include <cstddef>
#include <memory>

#include "ipc2581/base/Export.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"

namespace ipc2581::detail {
class LineFile;
}  // namespace ipc2581::detail

// A text file, read and written line by line through a buffer of its own. Not open at first; destroying an open file
// closes it. A failed read, write, flush or close throws CFileException, whose text names the file and the cause. The
// destructor cannot throw: call Flush before it closes a file that was written.
class IPC2581_API CStdioFile {
public:
    // How a file is opened; modeCreate goes with one of the others.
    enum OpenFlags : unsigned { modeRead = 0, modeWrite = 1, modeReadWrite = 2, modeCreate = 0x1000 };

    CStdioFile();
    CStdioFile(const CStdioFile &) = delete;
    CStdioFile & operator=(const CStdioFile &) = delete;

    // Opens the file and returns 1, or 0 if that fails, with nothing thrown. modeCreate makes the file or empties it;
    // without it the file must exist and allow what the mode asks for. A named pipe is not opened for reading. A file
    // that was open is closed first. On Windows the path is in UTF-8.
    virtual int Open(const char * path, unsigned flags, CFileException * error);
    // Reads the next line, of any length, without its line end; a carriage return in front of the line feed belongs
    // to the line end. Returns 1 if anything was read, and 0 with the empty text at the end of the file and on a file
    // that is not open. A last line without a line end counts.
    virtual int ReadString(CString & line);
    // Writes the text as it stands, up to its zero byte, and adds no line end. On Windows each line feed in it is
    // written as a carriage return and a line feed.
    virtual void WriteString(const char * text);
    // Writes what is buffered and closes the file. It is closed even if that throws.
    virtual void Close();
    virtual ~CStdioFile();

    // True from a successful Open to the next Close.
    bool IsOpen() const;
    // Hands what is buffered to the system.
    void Flush();
    // Reads up to count bytes, with line ends as they stand, and returns how many there were.
    std::size_t Read(void * bytes, std::size_t count);
    // Writes the bytes as they stand on every system, zero bytes too.
    void Write(const void * bytes, std::size_t count);

    // The buffer, for the reading and writing vocabulary of the library alone.
    ipc2581::detail::LineFile & Lines() { return *m_lines; }

private:
    std::unique_ptr<ipc2581::detail::LineFile> m_lines;
};

#endif
