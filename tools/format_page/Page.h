#ifndef IPC2581_TOOLS_FORMAT_PAGE_PAGE_H
#define IPC2581_TOOLS_FORMAT_PAGE_PAGE_H

#include <ostream>

namespace ipc2581::format_page {

// The page of the format, as GitHub shows it.
void WritePage(std::ostream & out);

}  // namespace ipc2581::format_page

#endif
