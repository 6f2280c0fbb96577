#ifndef IPC2581_IMPORT_IMPORTERROR_H
#define IPC2581_IMPORT_IMPORTERROR_H

#include <cstddef>
#include <stdexcept>
#include <string>

#include "ipc2581/base/Export.h"

namespace ipc2581 {

// Why a file was not imported: it cannot be read, is not well-formed, is no IPC-2581 document, asks for what an import
// never does, or takes more memory than it may. what() is "FILE:LINE:COLUMN: CAUSE", without what is not known.
class IPC2581_API ImportError : public std::runtime_error {
public:
    // With what the four operations below give.
    ImportError(std::string file, std::size_t line, std::size_t column, std::string cause);

    // Empty for bytes in memory.
    [[nodiscard]] const std::string & File() const { return m_file; }
    // Counted from 1; 0 where the cause has no place in the file.
    [[nodiscard]] std::size_t Line() const { return m_line; }
    [[nodiscard]] std::size_t Column() const { return m_column; }
    [[nodiscard]] const std::string & Cause() const { return m_cause; }

private:
    std::string m_file;
    std::size_t m_line;
    std::size_t m_column;
    std::string m_cause;
};

// The host has stopped the import.
class IPC2581_API ImportStopped : public ImportError {
public:
    // With the file that was being read.
    explicit ImportStopped(std::string file);
};

}  // namespace ipc2581

#endif
