#ifndef IPC2581_HOSTS_IPC2581_HTML_PAGEPARTS_H
#define IPC2581_HOSTS_IPC2581_HTML_PAGEPARTS_H

#include <string_view>

// The files of page/dist/, which the build puts into the program.
namespace ipc2581::host {

std::string_view PageFrame();
std::string_view PageStyle();
std::string_view PageScript();

}  // namespace ipc2581::host

#endif
