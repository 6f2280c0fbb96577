#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_FILEREPLACEMENT_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_FILEREPLACEMENT_H

#include <string>

namespace ipc2581::host {

// A file that takes the place of another one all at once, or not at all: it is written under a temporary name beside
// its place. Anything but a regular file, such as /dev/stdout, has no such place and is written directly.
class FileReplacement {
public:
    // Throws Error if there is no such folder, or if the file must not be written.
    explicit FileReplacement(const std::string & path);
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement & operator=(const FileReplacement &) = delete;
    // Removes what was written, unless Commit has put it in its place.
    ~FileReplacement();

    // Where to write. The file exists and is empty.
    [[nodiscard]] const std::string & WritePath() const { return m_writePath; }
    // Flushes what was written to the disk and puts it in its place.
    void Commit();

private:
    std::string m_told;
    std::string m_place;
    std::string m_writePath;
    unsigned m_mode = 0;
    bool m_isDone = false;
};

}  // namespace ipc2581::host

#endif
