#include "hosts/ipc2581/files/Error.h"

#include <system_error>

#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {

Error::Error(std::string_view file, std::string_view cause)
    : std::runtime_error(OneLine(std::string(file).append(": ").append(cause)))
{
}

Error::Error(std::string_view file, std::size_t line, std::string_view cause)
    : Error(std::string(file) + ":" + std::to_string(line), cause)
{
}

std::string SystemCause(int number)
{
    return std::generic_category().message(number);
}

}  // namespace ipc2581::host
