#ifndef IPC2581_HOSTS_IPC2581_FILES_TEMPORARY_H
#define IPC2581_HOSTS_IPC2581_FILES_TEMPORARY_H

#include <string>

namespace ipc2581::host {

// Makes SIGINT, SIGTERM and SIGHUP remove the named temporary files before they end the program, and a file that
// grows beyond its limit a failed write. To be called once, first of all.
void RemoveTemporariesOnSignals();

// A temporary file without a name: it is gone with its last user, whatever ends the program.
class ScratchFile {
public:
    // Throws Error if the folder for temporary files takes none.
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

// A temporary folder, removed with the files in it that were named to it.
class ScratchFolder {
public:
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

// A file that takes the place of another one all at once, or not at all: it is written under a temporary name beside
// its place. What is no regular file, /dev/stdout for one, has no such place and is written as it is.
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
    // Brings what was written to the disk and puts it in its place.
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
