#include "ipc2581/base/platform/SystemFile.h"

#if !defined(_WIN32)

#include <filesystem>
#include <system_error>

namespace ipc2581::detail {

std::FILE * OpenFile(const char * path, const char * mode)
{
    return std::fopen(path, mode);
}

int SeekFile(std::FILE * file, std::int64_t offset)
{
    return fseeko(file, static_cast<off_t>(offset), SEEK_CUR);
}

bool HasReadFailed(std::FILE * file, std::size_t /*count*/)
{
    return std::ferror(file) != 0;
}

bool IsNamedPipe(const char * path)
{
    std::error_code ignored;
    return std::filesystem::is_fifo(path, ignored);
}

}  // namespace ipc2581::detail

#endif
