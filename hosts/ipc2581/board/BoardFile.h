#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOARDFILE_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOARDFILE_H

#include <cstdio>
#include <memory>
#include <string>

#include "hosts/ipc2581/files/ScratchFile.h"

namespace ipc2581::host {

// The file that the user named, as plain lines: itself, or an unpacked or writable copy that is gone with the object.
// The library opens what it reads for writing too, and again and again, so what must not be written, and what can be
// read only once, such as a pipe, is copied.
class BoardFile {
public:
    // Throws Error if there is no such file, or if it cannot be read or unpacked.
    explicit BoardFile(const std::string & path);
    // The same of what is left of an open file, under this name.
    BoardFile(std::string name, std::FILE * stream);

    // As the user named it, for messages.
    [[nodiscard]] const std::string & Name() const { return m_name; }
    // The plain file, to be opened again and again. Whoever opens it must not write to it.
    [[nodiscard]] const std::string & PlainPath() const { return m_plainPath; }

private:
    void TakeCopy(std::unique_ptr<ScratchFile> copy);

    std::string m_name;
    std::string m_plainPath;
    std::unique_ptr<ScratchFile> m_copy;
};

}  // namespace ipc2581::host

#endif
