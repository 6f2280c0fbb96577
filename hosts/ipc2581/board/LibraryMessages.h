#ifndef IPC2581_HOSTS_IPC2581_BOARD_LIBRARYMESSAGES_H
#define IPC2581_HOSTS_IPC2581_BOARD_LIBRARYMESSAGES_H

#include <string>

#include <ipc2581/ipc2581.h>

namespace ipc2581::host {

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
