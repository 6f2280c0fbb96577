#ifndef IPC2581_IMPORT_XML_EVENTBATCH_H
#define IPC2581_IMPORT_XML_EVENTBATCH_H

#include <cstddef>
#include <cstdint>
#include <memory>
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
    [[nodiscard]] bool IsFull() const { return m_size >= FullSize; }

    void TellAgain(XmlListener & listener);
    // Forgets all, and keeps the room but for what a very long value took.
    void Clear();

private:
    static constexpr std::size_t FullSize = std::size_t(96) * 1024;

    enum class Kind : std::uint8_t { Open, Text, Close };
    // Stands in front of each event. Behind that of an opening tag stand its attributes, each with a head of its own,
    // behind that of a text its bytes.
    struct EventHead {
        std::size_t lineOrLength;
        std::uint32_t attributes;
        Word name;
        Kind kind;
    };
    struct AttributeHead {
        std::uint32_t length;
        Word name;
    };

    const char * TellOpen(const EventHead & event, const char * from, XmlListener & listener);

    // Room for so many bytes more, at the end of what there is.
    char * Extend(std::size_t size)
    {
        if (m_size + size > m_capacity) {
            Grow(m_size + size);
        }
        char * const room = m_bytes.get() + m_size;
        m_size += size;
        return room;
    }
    void Grow(std::size_t least);

    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::vector<XmlAttribute> m_told;
};

}  // namespace ipc2581::detail

#endif
