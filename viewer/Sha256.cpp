#include "hosts/ipc2581/files/Sha256.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <sha2.h>

#include "hosts/ipc2581/files/OpenFile.h"

// By a library that is a hundredth of the one that the program has it from.
namespace ipc2581::host {

std::string Sha256OfFile(const std::string & path)
{
    const OpenedFile file = OpenFile(path);
    SHA2_CTX context = {};
    SHA256Init(&context);
    std::vector<char> block(std::size_t(1) << 16);
    while (const std::size_t count = ReadBlock(path, file.get(), block)) {
        SHA256Update(&context, reinterpret_cast<const std::uint8_t *>(block.data()), count);
    }
    std::array<std::uint8_t, SHA256_DIGEST_LENGTH> hash{};
    SHA256Final(hash.data(), &context);
    std::string digits;
    for (const std::uint8_t byte : hash) {
        digits.append(1, "0123456789abcdef"[byte >> 4U]).append(1, "0123456789abcdef"[byte & 0xfU]);
    }
    return digits;
}

}  // namespace ipc2581::host
