#include "hosts/ipc2581/files/Sha256.h"

#include <algorithm>
#include <bit>
#include <vector>

#include "hosts/ipc2581/files/OpenFile.h"

namespace ipc2581::host {
namespace {

constexpr std::array<std::uint32_t, 64> Constants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

constexpr std::size_t LengthSize = 8;

std::array<std::uint32_t, 64> WordsOf(const std::array<unsigned char, 64> & block)
{
    std::array<std::uint32_t, 64> words{};
    for (std::size_t i = 0; i < block.size(); ++i) {
        words[i / 4] = (words[i / 4] << 8U) | block[i];
    }
    for (std::size_t i = 16; i < words.size(); ++i) {
        const std::uint32_t near = words[i - 2];
        const std::uint32_t far = words[i - 15];
        words[i] = words[i - 16] + words[i - 7] + (std::rotr(far, 7) ^ std::rotr(far, 18) ^ (far >> 3U)) +
                   (std::rotr(near, 17) ^ std::rotr(near, 19) ^ (near >> 10U));
    }
    return words;
}

}  // namespace

void Sha256::AddBlock()
{
    const std::array<std::uint32_t, 64> words = WordsOf(m_block);
    auto [a, b, c, d, e, f, g, h] = m_state;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::uint32_t one = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + ((e & f) ^ (~e & g)) +
                                  Constants[i] + words[i];
        const std::uint32_t two =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + one;
        d = c;
        c = b;
        b = a;
        a = one + two;
    }
    const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < added.size(); ++i) {
        m_state[i] += added[i];
    }
}

void Sha256::Add(std::span<const char> bytes)
{
    while (!bytes.empty()) {
        const std::size_t begin = m_size % m_block.size();
        const std::size_t count = std::min(bytes.size(), m_block.size() - begin);
        std::copy_n(bytes.begin(), count, m_block.begin() + static_cast<std::ptrdiff_t>(begin));
        m_size += count;
        bytes = bytes.subspan(count);
        if (m_size % m_block.size() == 0) {
            AddBlock();
        }
    }
}

std::string Sha256::Finish()
{
    const std::uint64_t bits = m_size * 8;
    const std::array<char, 1> mark = {static_cast<char>(0x80)};
    const std::array<char, 1> nothing = {0};
    Add(mark);
    while (m_size % m_block.size() != m_block.size() - LengthSize) {
        Add(nothing);
    }
    std::array<char, LengthSize> length{};
    for (std::size_t i = 0; i < LengthSize; ++i) {
        length[i] = static_cast<char>((bits >> (8 * (LengthSize - 1 - i))) & 0xffU);
    }
    Add(length);
    std::string digits;
    for (const std::uint32_t word : m_state) {
        for (unsigned shift = 32; shift != 0; shift -= 4) {
            digits.append(1, "0123456789abcdef"[(word >> (shift - 4)) & 0xfU]);
        }
    }
    return digits;
}

std::string Sha256OfFile(const std::string & path)
{
    const OpenedFile file = OpenFile(path);
    Sha256 hash;
    std::vector<char> block(std::size_t(1) << 16);
    while (const std::size_t count = ReadBlock(path, file.get(), block)) {
        hash.Add(std::span(block).first(count));
    }
    return hash.Finish();
}

}  // namespace ipc2581::host
