#include <cstdio>

#include <pugixml.hpp>

#include "bench/Measure.h"

int main(int count, char ** arguments)
{
    using namespace ipc2581::bench;
    if (count != 2) {
        std::fputs("usage: pugixml_load FILE\n", stderr);
        return 2;
    }
    pugi::xml_document document;
    const double start = CpuMilliseconds();
    const pugi::xml_parse_result result = document.load_file(arguments[1]);
    const double used = CpuMilliseconds() - start;
    if (!result) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], result.description());
        return 1;
    }
    std::printf("load %.3f ms %.3f MB\n", used, PeakMegabytes());
    return 0;
}
