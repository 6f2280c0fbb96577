#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_SCRATCHFOLDER_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_SCRATCHFOLDER_H

#include <string>

namespace ipc2581::host {

// A temporary folder, removed together with the file in it that File has named.
class ScratchFolder {
public:
    // Throws Error if it cannot be created.
    ScratchFolder();
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder & operator=(const ScratchFolder &) = delete;
    ~ScratchFolder();

    // The path of a file that is about to be created in the folder.
    std::string File(const std::string & name);

private:
    std::string m_path;
    std::string m_file;
};

}  // namespace ipc2581::host

#endif
