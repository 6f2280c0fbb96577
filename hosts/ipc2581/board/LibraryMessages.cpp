#include "hosts/ipc2581/board/LibraryMessages.h"

#include <cstddef>
#include <string_view>

namespace ipc2581::host {
namespace {

std::string g_message;

int KeepMessage(const char * text, unsigned /*type*/, unsigned /*help*/)
{
    g_message = text;
    return 1;
}

}  // namespace

std::string CauseOf(const CFileException & failure)
{
    const std::string_view text = failure.what();
    const std::size_t cause = text.rfind(": ");
    return std::string(cause == std::string_view::npos ? text : text.substr(cause + 2));
}

LibraryMessages::LibraryMessages() : m_before(AfxSetMessageBoxHandler(&KeepMessage))
{
    g_message.clear();
}

LibraryMessages::~LibraryMessages()
{
    AfxSetMessageBoxHandler(m_before);
}

const std::string & LibraryMessages::Text() const
{
    return g_message;
}

}  // namespace ipc2581::host
