#include "hosts/ipc2581/files/Error.h"

#include <algorithm>
#include <system_error>

namespace ipc2581::host {
namespace {

// A file name may hold a line feed; the error is one line all the same.
std::string OneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char ch) { return ch < ' ' || ch == 0x7f; }, '?');
    return text;
}

}  // namespace

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
