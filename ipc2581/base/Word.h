#ifndef IPC2581_BASE_WORD_H
#define IPC2581_BASE_WORD_H

#include <array>
#include <cstddef>
#include <cstdint>
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
    consteval Word(const char (&text)[Size])
        : m_text(text, Size - 1), m_set(SetOf(m_text)), m_isAttribute(m_text.find('=') == m_text.size() - 1)
    {
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

private:
    std::string_view m_text;
    CharacterSet m_set;
    bool m_isAttribute;
};

}  // namespace ipc2581::detail

#endif
