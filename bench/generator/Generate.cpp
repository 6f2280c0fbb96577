#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string_view>

#include "bench/generator/GenerateBoard.h"

namespace {

template <typename Number>
bool Parse(std::string_view text, Number & number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

}  // namespace

int main(int count, char ** arguments)
{
    double megabytes = 0;
    std::uint64_t seed = 0;
    const bool isComplete = count == 4 && Parse(arguments[1], megabytes) && Parse(arguments[2], seed);
    if (!isComplete || !(megabytes >= 0 && megabytes <= 100000)) {
        std::fputs("usage: ipc2581_generate SIZE_MB SEED OUT\n", stderr);
        return 2;
    }
    std::ofstream out(arguments[3], std::ios::binary);
    ipc2581::bench::GenerateBoard(static_cast<std::uint64_t>(megabytes * 1e6), seed, out);
    out.close();
    if (!out) {
        std::fprintf(stderr, "%s cannot be written\n", arguments[3]);
        return 1;
    }
    return 0;
}
