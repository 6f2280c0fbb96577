#ifndef IPC2581_IMPORT_XML_EVENTBATCH_H
#define IPC2581_IMPORT_XML_EVENTBATCH_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "import/xml/Words.h"
#include "import/xml/XmlParser.h"

namespace ipc2581::detail {

// What a parser has told of a piece of a document, kept to be told again.
class EventBatch {
public:
    EventBatch();

    void AddOpen(Word name, std::size_t line, std::span<const XmlAttribute> attributes);
    void AddText(std::string_view text);
    void AddClose();
    // So much that it is worth to be handed on.
    [[nodiscard]] bool IsFull() const { return m_bytes.size() >= FullBytes || m_events.size() >= FullEvents; }

    void TellAgain(XmlListener & listener);
    // Forgets all, and keeps the room but for what a very long value took.
    void Clear();

private:
    static constexpr std::size_t FullBytes = std::size_t(64) * 1024;
    static constexpr std::size_t FullEvents = 2048;

    enum class Kind : std::uint8_t { Open, Text, Close };
    // The values of an event stand behind those of the events in front of it.
    struct Event {
        Kind kind;
        Word name;
        std::uint32_t values;
        std::size_t line;
    };
    struct Value {
        Word name;
        std::size_t length;
    };

    void AddValue(Word name, std::string_view value);

    std::vector<Event> m_events;
    std::vector<Value> m_values;
    std::vector<char> m_bytes;
    std::vector<XmlAttribute> m_told;
};

}  // namespace ipc2581::detail

#endif
