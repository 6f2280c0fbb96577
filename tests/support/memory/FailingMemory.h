#ifndef IPC2581_TESTS_SUPPORT_MEMORY_FAILINGMEMORY_H
#define IPC2581_TESTS_SUPPORT_MEMORY_FAILINGMEMORY_H

#include <cstdint>
#include <functional>

namespace ipc2581::tests {

// Does the work again and again, with its first allocation failing, then its second, until none is left to fail; once
// that one alone, and once all behind it. Nothing but std::bad_alloc may come out of it, and nothing may stay behind.
void FailEachAllocation(const std::function<void()> & work);

// How often memory was mapped so far.
std::int64_t MappedCount();

}  // namespace ipc2581::tests

#endif
