#include "hosts/ipc2581/files/Sha256.h"

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include <openssl/evp.h>

#include "hosts/ipc2581/files/OpenFile.h"

namespace ipc2581::host {
namespace {

struct FreeContext {
    void operator()(EVP_MD_CTX * context) const { EVP_MD_CTX_free(context); }
};

// The library fails only for want of memory.
void Check(int result)
{
    if (result != 1) {
        throw std::bad_alloc();
    }
}

}  // namespace

std::string Sha256OfFile(const std::string & path)
{
    const OpenedFile file = OpenFile(path);
    const std::unique_ptr<EVP_MD_CTX, FreeContext> context(EVP_MD_CTX_new());
    Check(context == nullptr ? 0 : EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr));
    std::vector<char> block(std::size_t(1) << 16);
    while (const std::size_t count = ReadBlock(path, file.get(), block)) {
        Check(EVP_DigestUpdate(context.get(), block.data(), count));
    }
    std::array<unsigned char, EVP_MAX_MD_SIZE> hash{};
    unsigned size = 0;
    Check(EVP_DigestFinal_ex(context.get(), hash.data(), &size));
    std::string digits;
    for (const unsigned char byte : std::span(hash).first(size)) {
        digits.append(1, "0123456789abcdef"[byte >> 4U]).append(1, "0123456789abcdef"[byte & 0xfU]);
    }
    return digits;
}

}  // namespace ipc2581::host
