#ifndef IPC2581_HOSTS_IPC2581_FILES_SHA256_H
#define IPC2581_HOSTS_IPC2581_FILES_SHA256_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace ipc2581::host {

// The SHA-256 of FIPS 180-4, by which two files are known to be the same.
class Sha256 {
public:
    void Add(std::span<const char> bytes);
    // Of all that was added, as 64 digits; nothing can be added then.
    std::string Finish();

private:
    void AddBlock();

    std::array<std::uint32_t, 8> m_state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                            0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, 64> m_block = {};
    std::uint64_t m_size = 0;
};

// That of a file. Throws Error.
std::string Sha256OfFile(const std::string & path);

}  // namespace ipc2581::host

#endif
