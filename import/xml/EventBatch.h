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
    void AddClose()
    {
        char * const to = RoomFor(sizeof(Kind));
        *to = static_cast<char>(Kind::Close);
        EndAt(to + 1);
    }
    // So much that it is worth to be handed on.
    [[nodiscard]] bool IsFull() const { return m_size >= FullSize; }

    void TellAgain(XmlListener & listener);
    // Forgets all, and keeps the room but for what a very long value took.
    void Clear();

private:
    static constexpr std::size_t FullSize = std::size_t(96) * 1024;

    // Stands in front of each event. An opening tag goes on with its line, its name and the number of its attributes,
    // each of which has its name, its length and its bytes; a text goes on with its length and its bytes.
    enum class Kind : char { Open, Text, Close };

    const char * TellOpen(const char * from, XmlListener & listener);

    // Room for so many bytes more, at the end of what there is.
    char * RoomFor(std::size_t size)
    {
        if (m_size + size > m_capacity) {
            Grow(m_size + size);
        }
        return m_bytes.get() + m_size;
    }
    // What stands in that room up to here counts.
    void EndAt(const char * end) { m_size = static_cast<std::size_t>(end - m_bytes.get()); }
    void Grow(std::size_t least);

    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::vector<XmlAttribute> m_told;
};

}  // namespace ipc2581::detail

#endif
