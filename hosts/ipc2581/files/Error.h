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
    // The column is for programs that ask for it.
    Error(std::string_view file, std::size_t line, std::string_view cause, std::size_t column = 0);

    [[nodiscard]] const std::string & File() const { return m_file; }
    // Counted from 1; 0 where the cause has no place in the file.
    [[nodiscard]] std::size_t Line() const { return m_line; }
    [[nodiscard]] std::size_t Column() const { return m_column; }
    [[nodiscard]] const std::string & Cause() const { return m_cause; }

private:
    std::string m_file;
    std::size_t m_line = 0;
    std::size_t m_column = 0;
    std::string m_cause;
};

// The system's words for an errno.
std::string SystemCause(int number);

}  // namespace ipc2581::host

#endif
