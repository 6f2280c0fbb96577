#ifndef IPC2581_BASE_PLATFORM_CARCHIVE_H
#define IPC2581_BASE_PLATFORM_CARCHIVE_H

#include <cstddef>

#include "ipc2581/base/Export.h"

class CStdioFile;

// Raw bytes to or from a file, for Serialize of the containers. The bytes are those of this machine.
class IPC2581_API CArchive {
public:
    // Which way the bytes go.
    enum Mode : unsigned { store = 0, load = 1 };

    // The file is open in a mode that fits, stays the caller's and must outlive the archive.
    CArchive(CStdioFile * file, unsigned mode);

    // True if the bytes come from the file.
    bool IsLoading() const { return m_mode == load; }
    // True if the bytes go to the file.
    bool IsStoring() const { return m_mode != load; }
    // Throws CFileException if the file cannot be written.
    void Write(const void * bytes, std::size_t count);
    // Throws CArchiveException if fewer bytes are left.
    void Read(void * bytes, std::size_t count);

private:
    CStdioFile * m_file;
    unsigned m_mode;
};

#endif
