#ifndef IPC2581_HOSTS_IPC2581_FILES_ERROR_H
#define IPC2581_HOSTS_IPC2581_FILES_ERROR_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ipc2581::host {

// What could not be done, as the one line that the program ends with: "FILE: cause" or "FILE:LINE: cause".
class Error : public std::runtime_error {
public:
    Error(std::string_view file, std::string_view cause);
    Error(std::string_view file, std::size_t line, std::string_view cause);
};

// The system's words for an errno.
std::string SystemCause(int number);

}  // namespace ipc2581::host

#endif
