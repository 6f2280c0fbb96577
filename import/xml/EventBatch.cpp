#include "import/xml/EventBatch.h"

#include <algorithm>
#include <cstring>

namespace ipc2581::detail {
namespace {

// Puts the bytes of an object, or takes them, at a place that need not be aligned for it.
template <typename Object>
char * Put(char * to, const Object & object)
{
    std::memcpy(to, &object, sizeof(object));
    return to + sizeof(object);
}
template <typename Object>
const char * Get(const char * from, Object & object)
{
    std::memcpy(&object, from, sizeof(object));
    return from + sizeof(object);
}

char * Put(char * to, std::string_view text)
{
    return std::copy(text.begin(), text.end(), to);
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
    std::size_t size = sizeof(EventHead) + attributes.size() * sizeof(AttributeHead);
    for (const XmlAttribute & attribute : attributes) {
        size += attribute.value.size();
    }
    char * to = Put(Extend(size), EventHead{line, static_cast<std::uint32_t>(attributes.size()), name, Kind::Open});
    for (const XmlAttribute & attribute : attributes) {
        const AttributeHead head = {static_cast<std::uint32_t>(attribute.value.size()), attribute.name};
        to = Put(Put(to, head), attribute.value);
    }
}

void EventBatch::AddText(std::string_view text)
{
    Put(Put(Extend(sizeof(EventHead) + text.size()), EventHead{text.size(), 0, W(""), Kind::Text}), text);
}

void EventBatch::AddClose()
{
    Put(Extend(sizeof(EventHead)), EventHead{0, 0, W(""), Kind::Close});
}

const char * EventBatch::TellOpen(const EventHead & event, const char * from, XmlListener & listener)
{
    m_told.clear();
    for (std::uint32_t i = 0; i < event.attributes; ++i) {
        AttributeHead head;
        from = Get(from, head);
        m_told.push_back({head.name, {from, head.length}});
        from += head.length;
    }
    listener.Open(event.name, event.lineOrLength, m_told);
    return from;
}

void EventBatch::TellAgain(XmlListener & listener)
{
    const char * const end = m_bytes.get() + m_size;
    for (const char * from = m_bytes.get(); from != end;) {
        EventHead event;
        from = Get(from, event);
        switch (event.kind) {
        case Kind::Open:
            from = TellOpen(event, from, listener);
            break;
        case Kind::Text:
            listener.Text({from, event.lineOrLength});
            from += event.lineOrLength;
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
