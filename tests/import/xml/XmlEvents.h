#ifndef IPC2581_TESTS_IMPORT_XML_XMLEVENTS_H
#define IPC2581_TESTS_IMPORT_XML_XMLEVENTS_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "import/xml/ByteSource.h"
#include "import/xml/Words.h"
#include "import/xml/XmlParser.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

// Gives the bytes in pieces of one size.
class PiecesSource final : public detail::ByteSource {
public:
    PiecesSource(std::string_view bytes, std::size_t size, bool isWorthReadingAhead = false)
        : m_left(bytes), m_piece(size), m_isWorthReadingAhead(isWorthReadingAhead)
    {
    }

    std::size_t Read(std::span<char> room) override
    {
        const std::size_t count = std::min({room.size(), m_left.size(), m_piece});
        std::memcpy(room.data(), m_left.data(), count);
        m_left.remove_prefix(count);
        return count;
    }
    void Rewind() override {}
    [[nodiscard]] std::size_t Size() const override { return 0; }
    [[nodiscard]] bool IsWorthReadingAhead() const override { return m_isWorthReadingAhead; }

    // What nobody has read.
    [[nodiscard]] std::size_t Left() const { return m_left.size(); }

private:
    std::string_view m_left;
    std::size_t m_piece;
    bool m_isWorthReadingAhead;
};

// Writes down what it is told: "2 <Layer name=TOP", "text" and ">". A name of a foreign namespace has a "?".
class Writer final : public detail::XmlListener {
public:
    explicit Writer(const detail::WordTable & words) : m_words(words) {}

    void Open(detail::Word name, std::size_t line, std::span<const detail::XmlAttribute> attributes) override
    {
        std::string text = std::to_string(line) + " <" + NameOf(name);
        for (const detail::XmlAttribute & attribute : attributes) {
            text.append(" ").append(NameOf(attribute.name)).append("=").append(attribute.value);
        }
        events.push_back(text);
    }
    void Text(std::string_view text) override { events.emplace_back("'").append(text); }
    void Close() override { events.emplace_back(">"); }

    Texts events;

private:
    [[nodiscard]] std::string NameOf(detail::Word name) const
    {
        const std::string & text = m_words.Names()[name];
        const bool isKnown =
            std::find(detail::KnownWords.begin(), detail::KnownWords.end(), text) != detail::KnownWords.end();
        return text + (isKnown && name >= detail::KnownWords.size() ? "?" : "");
    }

    const detail::WordTable & m_words;
};

}  // namespace ipc2581::tests

#endif
