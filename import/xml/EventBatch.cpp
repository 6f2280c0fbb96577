#include "import/xml/EventBatch.h"

#include <algorithm>
#include <cstring>

namespace ipc2581::detail {
namespace {

// A number takes seven bits a byte, the lowest first, and the highest bit of all but the last: lengths and counts are
// mostly small, and a batch holds the more events.
constexpr unsigned bitsPerByte = 7;
constexpr unsigned moreFollow = 1U << bitsPerByte;
constexpr std::size_t longestNumber = sizeof(std::size_t) * 8 / bitsPerByte + 1;

char * PutNumber(char * to, std::size_t number)
{
    for (; number >= moreFollow; number >>= bitsPerByte) {
        *to++ = static_cast<char>(number | moreFollow);
    }
    *to++ = static_cast<char>(number);
    return to;
}

const char * GetNumber(const char * from, std::size_t & number)
{
    number = 0;
    for (unsigned shift = 0;; shift += bitsPerByte) {
        const auto byte = static_cast<unsigned char>(*from++);
        number |= std::size_t(byte & (moreFollow - 1)) << shift;
        if (byte < moreFollow) {
            return from;
        }
    }
}

char * PutWord(char * to, Word word)
{
    std::memcpy(to, &word, sizeof(word));
    return to + sizeof(word);
}

const char * GetWord(const char * from, Word & word)
{
    std::memcpy(&word, from, sizeof(word));
    return from + sizeof(word);
}

char * PutText(char * to, std::string_view text)
{
    to = PutNumber(to, text.size());
    return to + text.copy(to, text.size());
}

const char * GetText(const char * from, std::string_view & text)
{
    std::size_t length = 0;
    from = GetNumber(from, length);
    text = {from, length};
    return from + length;
}

}  // namespace

EventBatch::EventBatch()
{
    Clear();
}

void EventBatch::Grow(std::size_t least)
{
    const std::size_t capacity = std::max(least, m_capacity * 2);
    std::unique_ptr<char[]> bytes(new char[capacity]);
    std::copy_n(m_bytes.get(), m_size, bytes.get());
    m_bytes = std::move(bytes);
    m_capacity = capacity;
}

void EventBatch::AddOpen(Word name, std::size_t line, std::span<const XmlAttribute> attributes)
{
    std::size_t most = sizeof(Kind) + 2 * longestNumber + sizeof(Word);
    for (const XmlAttribute & attribute : attributes) {
        most += sizeof(Word) + longestNumber + attribute.value.size();
    }
    char * to = RoomFor(most);
    *to++ = static_cast<char>(Kind::Open);
    to = PutNumber(to, line);
    to = PutWord(to, name);
    to = PutNumber(to, attributes.size());
    for (const XmlAttribute & attribute : attributes) {
        to = PutText(PutWord(to, attribute.name), attribute.value);
    }
    EndAt(to);
}

void EventBatch::AddText(std::string_view text)
{
    char * const to = RoomFor(sizeof(Kind) + longestNumber + text.size());
    *to = static_cast<char>(Kind::Text);
    EndAt(PutText(to + 1, text));
}

const char * EventBatch::TellOpen(const char * from, XmlListener & listener)
{
    std::size_t line = 0;
    Word name = W("");
    std::size_t count = 0;
    from = GetNumber(GetWord(GetNumber(from, line), name), count);
    m_told.resize(count);
    for (XmlAttribute & attribute : m_told) {
        from = GetText(GetWord(from, attribute.name), attribute.value);
    }
    listener.Open(name, line, m_told);
    return from;
}

void EventBatch::TellAgain(XmlListener & listener)
{
    const char * const end = m_bytes.get() + m_size;
    for (const char * from = m_bytes.get(); from != end;) {
        std::string_view text;
        switch (static_cast<Kind>(*from++)) {
        case Kind::Open:
            from = TellOpen(from, listener);
            break;
        case Kind::Text:
            from = GetText(from, text);
            listener.Text(text);
            break;
        case Kind::Close:
            listener.Close();
            break;
        }
    }
}

void EventBatch::Clear()
{
    constexpr std::size_t usual = FullSize + FullSize / 16;
    if (m_capacity != usual) {
        m_bytes.reset(new char[usual]);
        m_capacity = usual;
    }
    m_size = 0;
}

}  // namespace ipc2581::detail
