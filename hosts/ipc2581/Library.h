#ifndef IPC2581_HOSTS_IPC2581_LIBRARY_H
#define IPC2581_HOSTS_IPC2581_LIBRARY_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include <ipc2581/ipc2581.h>

// Small things between the library's types and the standard ones.
namespace ipc2581::host {

inline std::string Str(const CString & text)
{
    return std::string(static_cast<std::string_view>(text));
}

// The elements of one of the library's lists, for a loop over them.
template <typename Element>
std::span<Element * const> Each(const CExPtrArray<Element *, Element *> & list)
{
    return {list.GetData(), static_cast<std::size_t>(list.GetSize())};
}

template <typename Element>
std::size_t Count(const CExPtrArray<Element *, Element *> & list)
{
    return static_cast<std::size_t>(list.GetSize());
}

// What failed, without the name of a file that the user never gave.
std::string CauseOf(const CFileException & failure);

// Catches the library's message boxes while it lives.
class LibraryMessages {
public:
    LibraryMessages();
    LibraryMessages(const LibraryMessages &) = delete;
    LibraryMessages & operator=(const LibraryMessages &) = delete;
    ~LibraryMessages();

    // The last message; empty if there was none.
    [[nodiscard]] const std::string & Text() const;

private:
    AfxMessageBoxHandler m_before;
};

}  // namespace ipc2581::host

#endif
