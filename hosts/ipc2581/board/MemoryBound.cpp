#include "hosts/ipc2581/board/MemoryBound.h"

#include <algorithm>
#include <fstream>

#include <sys/resource.h>
#include <unistd.h>

namespace ipc2581::host {
namespace {

std::uint64_t OfMachine()
{
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    return pages < 1 || pageSize < 1 ? UINT64_MAX
                                     : static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize);
}

// What a container was given, where there is one.
std::uint64_t OfContainer()
{
    std::ifstream file("/sys/fs/cgroup/memory.max");
    std::uint64_t bytes = 0;
    return file >> bytes ? bytes : UINT64_MAX;
}

std::uint64_t OfProcess()
{
    rlimit limit = {};
    const bool isSet = getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    return isSet ? limit.rlim_cur : UINT64_MAX;
}

}  // namespace

std::uint64_t MemoryForABoard()
{
    return std::min({OfMachine(), OfContainer(), OfProcess()}) / 3;
}

std::launch ReadingAtOnce()
{
    constexpr std::uint64_t little = 1'000'000'000;
    return MemoryForABoard() < little ? std::launch::deferred : WorkingAtOnce();
}

std::launch WorkingAtOnce()
{
    return std::launch::async | std::launch::deferred;
}

}  // namespace ipc2581::host
