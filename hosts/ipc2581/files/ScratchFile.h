#ifndef IPC2581_HOSTS_IPC2581_FILES_SCRATCHFILE_H
#define IPC2581_HOSTS_IPC2581_FILES_SCRATCHFILE_H

#include <cstddef>
#include <string>

namespace ipc2581::host {

// The system's folder for temporary files.
std::string TemporaryFolder();

// A temporary file without a name: it is gone with its last user, whatever ends the program.
class ScratchFile {
public:
    // Throws Error if it cannot be created.
    ScratchFile();
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile & operator=(const ScratchFile &) = delete;
    ~ScratchFile();

    // Appends. Throws Error, which names the folder, for a full disk.
    void Write(const char * bytes, std::size_t count);
    // A path under which the file can be opened as long as the object lives.
    [[nodiscard]] std::string Path() const;

private:
    int m_descriptor;
};

}  // namespace ipc2581::host

#endif
