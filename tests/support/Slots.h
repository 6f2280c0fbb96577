#ifndef IPC2581_TESTS_SUPPORT_SLOTS_H
#define IPC2581_TESTS_SUPPORT_SLOTS_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ipc2581::tests {

// The place of a virtual operation in the table of its class, counted in entries from 0. A virtual destructor
// takes two entries. Hosts built against an earlier library find operations by this place.
template <typename Operation>
std::size_t Slot(Operation operation)
{
    std::uintptr_t raw = 0;
    static_assert(sizeof(operation) >= sizeof(raw));
    std::memcpy(&raw, &operation, sizeof(raw));
    return static_cast<std::size_t>((raw - 1) / sizeof(void *));
}

}  // namespace ipc2581::tests

#endif
