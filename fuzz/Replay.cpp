// Gives each file of the command line to the fuzzed function once: to see a finding again, and for fuzzers that start a
// program for each file.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size);

int main(int count, char ** arguments)
{
    if (count < 2) {
        std::fputs("usage: fuzz_replay FILE...\n", stderr);
        return 2;
    }
    for (int i = 1; i < count; ++i) {
        std::ifstream file(arguments[i], std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        if (!file.good() && !file.eof()) {
            std::fprintf(stderr, "%s: cannot be read\n", arguments[i]);
            return 1;
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
        std::printf("%s: %zu bytes\n", arguments[i], bytes.size());
    }
    return 0;
}
