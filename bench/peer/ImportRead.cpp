#include <cstdio>
#include <filesystem>

#include <import/Import.h>

#include "bench/Measure.h"

int main(int count, char ** arguments)
{
    using namespace ipc2581::bench;
    if (count != 2) {
        std::fputs("usage: import_read FILE\n", stderr);
        return 2;
    }
    try {
        const double start = CpuMilliseconds();
        const double begin = ElapsedMilliseconds();
        ipc2581::Imported imported = ipc2581::Import(std::filesystem::path(arguments[1]));
        const double elapsed = ElapsedMilliseconds() - begin;
        const double end = CpuMilliseconds();
        std::printf("read %.3f ms %.3f MB\n", end - start, PeakMegabytes());
        std::printf("process %.3f ms\n", end);
        std::printf("elapsed %.3f ms\n", elapsed);
        // Left to the system, so that a profile of the program does not count what was not asked for.
        static_cast<void>(imported.board.release());
        return 0;
    }
    catch (const ipc2581::ImportError & error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
