#ifndef IPC2581_BASE_PLATFORM_SYSTEMFILE_H
#define IPC2581_BASE_PLATFORM_SYSTEMFILE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

// What systems do in different ways with files. All of it stands here and in the sources of this name.
namespace ipc2581::detail {

// Whether a line that is written ends in a carriage return and a line feed, and not in a line feed alone.
#if defined(_WIN32)
inline constexpr bool WritesReturns = true;
#else
inline constexpr bool WritesReturns = false;
#endif

// As fopen with a mode of bytes, for a path in UTF-8. On Windows it may be of any length.
std::FILE * OpenFile(const char * path, const char * mode);

// As fseek from the current place, in a file of any size.
int SeekFile(std::FILE * file, std::int64_t offset);

// Whether an fread that gave count bytes has failed, which errno then has the cause of.
bool HasReadFailed(std::FILE * file, std::size_t count);

// True for a pipe with a name.
bool IsNamedPipe(const char * path);

}  // namespace ipc2581::detail

#endif
