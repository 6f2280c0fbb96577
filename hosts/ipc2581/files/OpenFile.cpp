#include "hosts/ipc2581/files/OpenFile.h"

#include <cerrno>

#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {

OpenedFile OpenFile(const std::string & path)
{
    OpenedFile file(std::fopen(path.c_str(), "rbe"));
    if (file == nullptr) {
        throw Error(path, SystemCause(errno));
    }
    return file;
}

std::size_t ReadBlock(const std::string & path, std::FILE * file, std::span<char> block)
{
    const std::size_t count = std::fread(block.data(), 1, block.size(), file);
    if (count < block.size() && std::ferror(file) != 0) {
        throw Error(path, "cannot be read: " + SystemCause(errno));
    }
    return count;
}

}  // namespace ipc2581::host
