#include "import/ImportError.h"

#include <utility>

namespace ipc2581 {
namespace {

std::string Message(const std::string & file, std::size_t line, std::size_t column, const std::string & cause)
{
    std::string message = file;
    if (line != 0) {
        message.append(message.empty() ? "line " : ":").append(std::to_string(line));
    }
    if (column != 0) {
        message.append(":").append(std::to_string(column));
    }
    return message.append(message.empty() ? "" : ": ").append(cause);
}

}  // namespace

ImportError::ImportError(std::string file, std::size_t line, std::size_t column, std::string cause)
    : std::runtime_error(Message(file, line, column, cause)),
      m_file(std::move(file)),
      m_line(line),
      m_column(column),
      m_cause(std::move(cause))
{
}

ImportStopped::ImportStopped(std::string file) : ImportError(std::move(file), 0, 0, "stopped") {}

}  // namespace ipc2581
