#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOARDFILE_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOARDFILE_H

#include <memory>
#include <string>

#include "hosts/ipc2581/files/ScratchFile.h"

namespace ipc2581::host {

// The file that the user named, as plain lines: itself, or an unpacked or writable copy that is gone with the object.
// The library opens what it reads for writing too, so a file that must not be written is copied.
class BoardFile {
public:
    // Throws Error if there is no such regular file, or if it cannot be read or unpacked.
    explicit BoardFile(const std::string & path);

    // As the user named it, for messages.
    [[nodiscard]] const std::string & Name() const { return m_name; }
    // The plain file, to be opened again and again. Whoever opens it must not write to it.
    [[nodiscard]] const std::string & PlainPath() const { return m_plainPath; }

private:
    std::string m_name;
    std::string m_plainPath;
    std::unique_ptr<ScratchFile> m_copy;
};

}  // namespace ipc2581::host

#endif
