#ifndef IPC2581_TESTS_SUPPORT_SLOTS_H
#define IPC2581_TESTS_SUPPORT_SLOTS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ipc2581::tests {

// What a pointer to a virtual member function holds: where the operation stands in the table of its class, in bytes,
// and what to add to the address of the object. The lowest bit of one of them tells it from a function: of the first
// one mostly, of the second one on ARM.
template <typename Operation>
std::array<std::uintptr_t, 2> RawPointer(Operation operation)
{
    std::array<std::uintptr_t, 2> raw = {};
    static_assert(sizeof(operation) == sizeof(raw));
    std::memcpy(raw.data(), &operation, sizeof(raw));
    return raw;
}

#if defined(__arm__) || defined(__aarch64__)
inline constexpr std::size_t PlaceOfMark = 1;
#else
inline constexpr std::size_t PlaceOfMark = 0;
#endif

// The place of a virtual operation in the table of its class, counted in entries from 0. A virtual destructor
// takes two entries. Hosts built against an earlier library find operations by this place.
template <typename Operation>
std::size_t Slot(Operation operation)
{
    return static_cast<std::size_t>(RawPointer(operation)[0] / sizeof(void *));
}

template <typename Operation>
bool IsVirtual(Operation operation)
{
    return (RawPointer(operation)[PlaceOfMark] & 1U) != 0;
}

}  // namespace ipc2581::tests

#endif
