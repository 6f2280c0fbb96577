#include "import/xml/EventBatch.h"

namespace ipc2581::detail {
namespace {

// A number may be read with the eight bytes in front of its end, wherever it stands.
constexpr std::size_t BytesInFront = 8;

}  // namespace

EventBatch::EventBatch()
{
    m_events.reserve(FullEvents);
    m_values.reserve(FullEvents);
    Clear();
}

void EventBatch::AddValue(Word name, std::string_view value)
{
    m_values.push_back({name, value.size()});
    m_bytes.insert(m_bytes.end(), value.begin(), value.end());
}

void EventBatch::AddOpen(Word name, std::size_t line, std::span<const XmlAttribute> attributes)
{
    m_events.push_back({Kind::Open, name, static_cast<std::uint32_t>(attributes.size()), line});
    for (const XmlAttribute & attribute : attributes) {
        AddValue(attribute.name, attribute.value);
    }
}

void EventBatch::AddText(std::string_view text)
{
    m_events.push_back({Kind::Text, W(""), 1, 0});
    AddValue(W(""), text);
}

void EventBatch::AddClose()
{
    m_events.push_back({Kind::Close, W(""), 0, 0});
}

void EventBatch::TellAgain(XmlListener & listener)
{
    std::size_t value = 0;
    const char * bytes = m_bytes.data() + BytesInFront;
    for (const Event & event : m_events) {
        m_told.clear();
        for (std::uint32_t i = 0; i < event.values; ++i, ++value) {
            m_told.push_back({m_values[value].name, {bytes, m_values[value].length}});
            bytes += m_values[value].length;
        }
        switch (event.kind) {
        case Kind::Open:
            listener.Open(event.name, event.line, m_told);
            break;
        case Kind::Text:
            listener.Text(m_told.front().value);
            break;
        case Kind::Close:
            listener.Close();
            break;
        }
    }
}

void EventBatch::Clear()
{
    m_events.clear();
    m_values.clear();
    if (m_bytes.capacity() > 2 * FullBytes) {
        m_bytes = {};
        m_bytes.reserve(FullBytes + FullBytes / 2);
    }
    m_bytes.assign(BytesInFront, ' ');
}

}  // namespace ipc2581::detail
