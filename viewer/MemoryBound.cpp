#include "hosts/ipc2581/board/MemoryBound.h"

// A page from a disk has one thread and no more than the addresses of 32 bits, of which its browser may give less.
namespace ipc2581::host {

std::uint64_t MemoryForABoard()
{
    constexpr std::uint64_t all = std::uint64_t(4) << 30U;
    return all / 3;
}

std::launch ReadingAtOnce()
{
    return WorkingAtOnce();
}

std::launch WorkingAtOnce()
{
    return std::launch::deferred;
}

}  // namespace ipc2581::host
