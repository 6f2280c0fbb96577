#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_SCRATCHFOLDER_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_SCRATCHFOLDER_H

#include <string>

namespace ipc2581::host {

// A temporary folder, removed with the file in it that was named to it.
class ScratchFolder {
public:
    // Throws Error if the folder for temporary files takes none.
    ScratchFolder();
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder & operator=(const ScratchFolder &) = delete;
    ~ScratchFolder();

    // The path of a file that somebody is going to make in the folder.
    std::string File(const std::string & name);

private:
    std::string m_path;
    std::string m_file;
};

}  // namespace ipc2581::host

#endif
