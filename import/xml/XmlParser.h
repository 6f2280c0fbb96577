#ifndef IPC2581_IMPORT_XML_XMLPARSER_H
#define IPC2581_IMPORT_XML_XMLPARSER_H

#include <cstddef>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "import/xml/ByteSource.h"
#include "import/xml/Words.h"

namespace ipc2581::detail {

// An attribute as it stands in an opening tag, with its entities resolved, in UTF-8.
struct XmlAttribute {
    Word name;
    std::string_view value;
};

// What listens to a document. What it is given is gone when it returns; what it throws ends the parse and comes out of
// ParseXml.
class XmlListener {
public:
    XmlListener() = default;
    XmlListener(const XmlListener &) = delete;
    XmlListener & operator=(const XmlListener &) = delete;
    virtual ~XmlListener() = default;

    // An opening tag, with the line on which it begins. Attributes of foreign namespaces go by prefix and name.
    virtual void Open(Word name, std::size_t line, std::span<const XmlAttribute> attributes) = 0;
    // What stands between two tags, if it is more than blanks.
    virtual void Text(std::string_view text) = 0;
    virtual void Close() = 0;
};

// Why a document was not parsed to its end.
struct XmlFault : std::runtime_error {
    XmlFault(const std::string & cause, std::size_t lineOfFault, std::size_t columnOfFault)
        : std::runtime_error(cause), line(lineOfFault), column(columnOfFault)
    {
    }

    std::size_t line;
    std::size_t column;
};

// Parses a document as a stream and names it by the words of the table. It reads nothing but the source: no external
// entity, no grammar, no network. Depth, the length of a value and what entities may grow to are bounded. Throws
// XmlFault for a document that is not well-formed, and whatever the source throws.
void ParseXml(ByteReader & source, WordTable & words, XmlListener & listener);

}  // namespace ipc2581::detail

#endif
