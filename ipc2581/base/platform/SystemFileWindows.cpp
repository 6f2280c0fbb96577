#include "ipc2581/base/platform/SystemFile.h"

#if defined(_WIN32)

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>

#include <windows.h>

namespace ipc2581::detail {
namespace {

// From UTF-8; empty if the text is none.
std::wstring Widened(std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), length);
    return wide;
}

// The path from its drive on, without "." and "..".
std::wstring FullPath(const std::wstring & path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

// A long path is only taken in full and with a mark in front of it, which those of devices have already.
std::wstring SystemPath(std::string_view path)
{
    std::wstring wide = Widened(path);
    const std::wstring full = FullPath(wide);
    if (full.size() < MAX_PATH || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) {
        return wide;
    }
    const bool isOfServer = full.starts_with(L"\\\\");
    return isOfServer ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

}  // namespace

std::FILE * OpenFile(const char * path, const char * mode)
{
    return _wfopen(SystemPath(path).c_str(), Widened(mode).c_str());
}

int SeekFile(std::FILE * file, std::int64_t offset)
{
    return _fseeki64(file, offset, SEEK_CUR);
}

bool HasReadFailed(std::FILE * file, std::size_t count)
{
    if (std::ferror(file) != 0) {
        return true;
    }
    // The C library does not tell that a file is only written: then it is not at its end either.
    if (count != 0 || std::feof(file) != 0) {
        return false;
    }
    errno = EBADF;
    return true;
}

// All of them stand in one folder, which nothing else does.
bool IsNamedPipe(const char * path)
{
    const std::wstring folder = FullPath(Widened(path)).substr(0, 9);
    return CompareStringOrdinal(folder.c_str(), -1, L"\\\\.\\pipe\\", -1, TRUE) == CSTR_EQUAL;
}

}  // namespace ipc2581::detail

#endif
