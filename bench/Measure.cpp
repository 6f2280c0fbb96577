#include "bench/Measure.h"

#include <chrono>
#include <fstream>
#include <string>

#include <sys/resource.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace ipc2581::bench {

double CpuMilliseconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval & time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

double ElapsedMilliseconds()
{
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now().time_since_epoch();
    return elapsed.count();
}

double PeakMegabytes()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == "VmHWM:") {
            double kibibytes = 0;
            status >> kibibytes;
            return kibibytes * 1024 / 1e6;
        }
    }
    return 0;
}

void ResetPeak()
{
#ifdef __GLIBC__
    // Free memory that the allocator keeps would count as held.
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << '5';
}

}  // namespace ipc2581::bench
