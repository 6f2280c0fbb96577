#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_FILEREPLACEMENT_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_FILEREPLACEMENT_H

#include <string>

namespace ipc2581::host {

// What becomes of a file that is there already.
enum class Existing { Replace, Refuse };

// How a file is kept until it is whole. One without a name is gone with the program, whatever ends it; where the file
// system has none, it has a hidden name.
enum class Keeping { Nameless, HiddenName };

// A file that takes the place of another one all at once, or not at all: it is written beside its place, without a
// name. Anything but a regular file, such as a pipe, has no such place and is written directly.
class FileReplacement {
public:
    // Throws Error if there is no such folder, or if the file must not be written.
    explicit FileReplacement(const std::string & path, Existing existing = Existing::Replace,
                             Keeping keeping = Keeping::Nameless);
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement & operator=(const FileReplacement &) = delete;
    // Removes what was written, unless Commit has put it in its place.
    ~FileReplacement();

    // Where to write. The file exists and is empty.
    [[nodiscard]] const std::string & WritePath() const { return m_writePath; }
    // Flushes what was written to the disk and puts it in its place.
    void Commit();

private:
    bool OpenNameless();
    void OpenHidden();
    [[nodiscard]] int PutNamelessInPlace() const;
    [[nodiscard]] int PutHiddenInPlace() const;

    std::string m_told;
    std::string m_place;
    std::string m_folder;
    std::string m_writePath;
    std::string m_hidden;
    Existing m_existing;
    unsigned m_mode = 0;
    int m_descriptor = -1;
    bool m_isDone = false;
};

// Throws Error if there is a regular file under this path.
void RefuseExisting(const std::string & path);

}  // namespace ipc2581::host

#endif
