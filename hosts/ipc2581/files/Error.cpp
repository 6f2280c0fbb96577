#include "hosts/ipc2581/files/Error.h"

#include <system_error>

#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {

Error::Error(std::string_view file, std::string_view cause)
    : std::runtime_error(OneLine(std::string(file).append(": ").append(cause))), m_file(file), m_cause(cause)
{
}

Error::Error(std::string_view file, std::size_t line, std::string_view cause, std::size_t column)
    : std::runtime_error(
          OneLine(std::string(file).append(":").append(std::to_string(line)).append(": ").append(cause))),
      m_file(file),
      m_line(line),
      m_column(column),
      m_cause(cause)
{
}

std::string SystemCause(int number)
{
    return std::generic_category().message(number);
}

}  // namespace ipc2581::host
