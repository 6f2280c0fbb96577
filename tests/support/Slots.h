#ifndef IPC2581_TESTS_SUPPORT_SLOTS_H
#define IPC2581_TESTS_SUPPORT_SLOTS_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ipc2581::tests {

template <typename Operation>
std::uintptr_t RawPointer(Operation operation)
{
    std::uintptr_t raw = 0;
    static_assert(sizeof(operation) >= sizeof(raw));
    std::memcpy(&raw, &operation, sizeof(raw));
    return raw;
}

// The place of a virtual operation in the table of its class, counted in entries from 0. A virtual destructor
// takes two entries. Hosts built against an earlier library find operations by this place.
template <typename Operation>
std::size_t Slot(Operation operation)
{
    return static_cast<std::size_t>((RawPointer(operation) - 1) / sizeof(void *));
}

// On this binary interface a pointer to a virtual member function is odd.
template <typename Operation>
bool IsVirtual(Operation operation)
{
    return (RawPointer(operation) & 1U) != 0;
}

}  // namespace ipc2581::tests

#endif
