#ifndef IPC2581_HOSTS_IPC2581_FILES_OPENFILE_H
#define IPC2581_HOSTS_IPC2581_FILES_OPENFILE_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace ipc2581::host {

struct FileCloser {
    void operator()(std::FILE * file) const { static_cast<void>(std::fclose(file)); }
};
using OpenedFile = std::unique_ptr<std::FILE, FileCloser>;

// Opens a file to read its bytes. Throws Error.
OpenedFile OpenFile(const std::string & path);

// The next bytes, as many as there is room for; fewer at the end of the file alone. Throws Error, which names the path.
std::size_t ReadBlock(const std::string & path, std::FILE * file, std::span<char> block);

}  // namespace ipc2581::host

#endif
