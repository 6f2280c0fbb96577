#ifndef IPC2581_BASE_LINES_WORD_H
#define IPC2581_BASE_LINES_WORD_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ipc2581::detail {

// The characters of a text as a set. A text can hold a word only if its set holds the word's, which most tests of a
// chain fail at the cost of one comparison.
using CharacterSet = std::uint64_t;

constexpr std::array<unsigned char, 256> MakeCharacterBits()
{
    std::array<unsigned char, 256> bits = {};
    bits.fill(63);
    for (unsigned char i = 0; i < 26; ++i) {
        bits[static_cast<std::size_t>('a' + i)] = i;
        bits[static_cast<std::size_t>('A' + i)] = static_cast<unsigned char>(26 + i);
    }
    bits['/'] = 52;
    bits['='] = 53;
    bits['<'] = 54;
    bits['>'] = 54;
    return bits;
}

inline constexpr std::array<unsigned char, 256> CharacterBits = MakeCharacterBits();

constexpr CharacterSet SetOf(char ch)
{
    return CharacterSet(1) << CharacterBits[static_cast<unsigned char>(ch)];
}

constexpr CharacterSet SetOf(std::string_view text)
{
    CharacterSet set = 0;
    for (const char ch : text) {
        set |= SetOf(ch);
    }
    return set;
}

// True if the text holds the word anywhere.
constexpr bool HoldsText(std::string_view text, std::string_view word)
{
    if (word.empty()) {
        return true;
    }
    for (; text.size() >= word.size(); text.remove_prefix(1)) {
        if (text.front() == word.front() && text.substr(0, word.size()) == word) {
            return true;
        }
    }
    return false;
}

// A word that readers test tokens for, with what can be known of it when the library is compiled.
class Word {
public:
    template <std::size_t Size>
    consteval Word(const char (&text)[Size]) : Word(std::string_view(text, Size - 1))
    {
    }
    consteval explicit Word(std::string_view text)
        : m_text(text), m_set(SetOf(m_text)), m_isAttribute(m_text.find('=') == m_text.size() - 1)
    {
        for (std::size_t i = 0; i < sizeof(m_tail) && i < m_text.size(); ++i) {
            const auto ch = static_cast<unsigned char>(m_text[m_text.size() - 1 - i]);
            m_tail |= static_cast<std::uint64_t>(ch) << (56 - 8 * i);
            m_tailLimit >>= 8;
        }
    }

    constexpr std::string_view Text() const { return m_text; }
    constexpr CharacterSet Set() const { return m_set; }
    // The word ends in its one "=".
    constexpr bool IsAttribute() const { return m_isAttribute; }

    constexpr bool IsIn(std::string_view text) const { return HoldsText(text, m_text); }
    constexpr bool IsIn(std::string_view text, CharacterSet setOfText) const
    {
        return (m_set & ~setOfText) == 0 && HoldsText(text, m_text);
    }

    // The last eight bytes of a text as a number, the last one in its highest place.
    static std::uint64_t Tail(const char * end)
    {
        std::uint64_t tail = 0;
        std::memcpy(&tail, end - sizeof(tail), sizeof(tail));
        return std::endian::native == std::endian::little ? tail : __builtin_bswap64(tail);
    }
    // False if a text with this tail cannot end in the word.
    bool MayEnd(std::uint64_t tail) const { return (tail ^ m_tail) <= m_tailLimit; }
    // True if the text ends in the word, which its tail says that it may.
    bool Ends(std::string_view text) const
    {
        return text.size() >= m_text.size() && (m_text.size() <= sizeof(m_tail) || text.ends_with(m_text));
    }

private:
    std::string_view m_text;
    CharacterSet m_set;
    std::uint64_t m_tail = 0;
    std::uint64_t m_tailLimit = UINT64_MAX;
    bool m_isAttribute;
};

}  // namespace ipc2581::detail

#endif
