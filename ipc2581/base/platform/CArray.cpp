#include "ipc2581/base/platform/CArray.h"

#include <algorithm>
#include <string>

void ipc2581::detail::CheckLoadedCount(std::int64_t count)
{
    if (count < 0) {
        throw CArchiveException("the archive is damaged");
    }
}

void ipc2581::detail::SerializeElement(CArchive & archive, CString & element)
{
    std::int64_t length = element.GetLength();
    SerializeElement(archive, length);
    if (archive.IsStoring()) {
        archive.Write(element.GetString(), static_cast<std::size_t>(length));
        return;
    }
    CheckLoadedCount(length);
    // Read in pieces: a damaged length ends in a short read and not in a huge allocation.
    constexpr std::int64_t piece = 65536;
    std::string text;
    for (std::int64_t left = length; left > 0; left -= piece) {
        const std::size_t count = static_cast<std::size_t>(std::min(left, piece));
        text.resize(text.size() + count);
        archive.Read(text.data() + text.size() - count, count);
    }
    element = std::string_view(text);
}
