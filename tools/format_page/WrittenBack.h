#ifndef IPC2581_TOOLS_FORMAT_PAGE_WRITTENBACK_H
#define IPC2581_TOOLS_FORMAT_PAGE_WRITTENBACK_H

#include <string_view>
#include <vector>

namespace ipc2581::format_page {

// Names of elements from the one inside the root down: Ecad, CadData, Step.
using Path = std::vector<std::string_view>;

// What comes of an attribute of the element there in a file that is written, in a word: kept, changed, always or never.
// Whether the element itself is written or never, if the name of the attribute is empty. Empty if the library takes no
// such thing from a file.
std::string_view WrittenBack(const Path & path, std::string_view attribute);

}  // namespace ipc2581::format_page

#endif
