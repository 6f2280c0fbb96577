#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_NATURALORDER_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_NATURALORDER_H

#include <string_view>

namespace ipc2581::host {

// The order in which people look things up: R2 before R10. Texts that differ only in zeros in front of their numbers
// are in plain order.
bool NaturalLess(std::string_view left, std::string_view right);

}  // namespace ipc2581::host

#endif
