#include "tests/import/support/Layouts.h"

#include <cstdint>
#include <cstring>
#include <string_view>

namespace ipc2581::tests {
namespace {

// The first character of a text in UTF-8, which is taken off.
char32_t TakeCharacter(std::string_view & text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        character = (character << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

bool HasName(char32_t character)
{
    // Blanks that an XML parser would make other blanks of are among them.
    return character == '&' || character == '<' || character == '>' || character == '"' || character == '\'' ||
           character == '\n' || character == '\r' || character == '\t';
}

std::string Escaped(std::string_view text, bool hasReferences)
{
    std::string escaped;
    while (!text.empty()) {
        const std::string_view before = text;
        const char32_t character = TakeCharacter(text);
        if (hasReferences || HasName(character)) {
            escaped.append("&#").append(std::to_string(static_cast<std::uint32_t>(character))).append(";");
        }
        else {
            escaped.append(before.substr(0, before.size() - text.size()));
        }
    }
    return escaped;
}

std::string InUtf16(std::string_view text, bool isBigEndian)
{
    std::string bytes;
    const auto add = [&](std::uint32_t unit) {
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8U);
        bytes.push_back(isBigEndian ? high : low);
        bytes.push_back(isBigEndian ? low : high);
    };
    add(0xFEFF);
    while (!text.empty()) {
        const std::uint32_t character = TakeCharacter(text);
        if (character < 0x10000) {
            add(character);
        }
        else {
            add(0xD800 + ((character - 0x10000) >> 10U));
            add(0xDC00 + ((character - 0x10000) & 0x3FFU));
        }
    }
    return bytes;
}

class Printer {
public:
    Printer(const Layout & layout, const Change & change) : m_layout(layout), m_change(change) {}

    std::string Print(const pugi::xml_document & document)
    {
        m_text = m_layout.head;
        PrintElement(document.document_element());
        m_text += m_layout.betweenElements;
        return std::move(m_text);
    }

private:
    void PrintElement(pugi::xml_node node)
    {
        const std::string name = NameOf(node);
        m_text += m_layout.betweenElements + "<" + name;
        for (const pugi::xml_attribute attribute : node.attributes()) {
            PrintAttribute(attribute);
        }
        const bool isChanged = node == m_change.node;
        if (isChanged && m_change.kind == Change::Kind::StrangeAttribute) {
            AddAttribute(StrangeWord, "1");
        }
        if (node.parent().type() == pugi::node_document && !m_layout.prefix.empty() && !node.attribute("xmlns")) {
            AddAttribute("xmlns:" + m_layout.prefix, "urn:none");
        }
        m_text += ">";
        if (isChanged && m_change.kind == Change::Kind::StrangeText) {
            m_text += StrangeWord;
        }
        bool hasText = false;
        for (const pugi::xml_node child : node.children()) {
            if (child.type() == pugi::node_element) {
                PrintElement(child);
            }
            else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
                m_text += Escaped(child.value(), m_layout.hasReferences);
                hasText = true;
            }
        }
        if (isChanged && m_change.kind == Change::Kind::StrangeElement) {
            m_text += "<" + (m_layout.prefix.empty() ? "" : m_layout.prefix + ":") + StrangeWord + "/>";
        }
        m_text += (hasText ? "" : m_layout.betweenElements) + "</" + name + ">";
    }

    void PrintAttribute(pugi::xml_attribute attribute)
    {
        const bool isChanged = attribute == m_change.attribute;
        if (isChanged && m_change.kind == Change::Kind::WithoutAttribute) {
            return;
        }
        const bool isNamespace = std::strcmp(attribute.name(), "xmlns") == 0;
        const std::string name =
            isNamespace && !m_layout.prefix.empty() ? "xmlns:" + m_layout.prefix : attribute.name();
        AddAttribute(name, isChanged && m_change.kind == Change::Kind::OtherValue ? StrangeWord : attribute.value());
    }

    void AddAttribute(const std::string & name, const char * value)
    {
        const bool isNamespace = name.starts_with("xmlns");
        m_text += m_layout.betweenAttributes + name + "=" + m_layout.quote;
        m_text += Escaped(value, m_layout.hasReferences && !isNamespace) + m_layout.quote;
    }

    [[nodiscard]] std::string NameOf(pugi::xml_node node) const
    {
        const std::string name = node.name();
        return m_layout.prefix.empty() || name.find(':') != std::string::npos ? name : m_layout.prefix + ":" + name;
    }

    const Layout & m_layout;
    const Change & m_change;
    std::string m_text;
};

void DropPrefixOf(pugi::xml_node node, const std::string & prefix)
{
    const std::string name = node.name();
    if (name.starts_with(prefix)) {
        node.set_name(name.substr(prefix.size()).c_str());
    }
    for (const pugi::xml_node child : node.children()) {
        DropPrefixOf(child, prefix);
    }
}

}  // namespace

void DropPrefix(pugi::xml_document & document)
{
    const pugi::xml_node root = document.document_element();
    const std::string name = root.name();
    const std::size_t colon = name.find(':');
    if (colon != std::string::npos) {
        root.attribute(("xmlns:" + name.substr(0, colon)).c_str()).set_name("xmlns");
        DropPrefixOf(root, name.substr(0, colon + 1));
    }
}

const std::vector<Layout> & AllLayouts()
{
    static const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    static const std::vector<Layout> layouts = {
        {.name = "OnOneLine", .betweenElements = "", .head = declaration},
        {.name = "AttributesOverLines", .betweenAttributes = "\n      ", .head = declaration},
        {.name = "SingleQuotes", .quote = '\''},
        {.name = "Prefix", .prefix = "ipc"},
        {.name = "Tabs", .betweenElements = "\n\t\t", .betweenAttributes = "\t", .head = declaration + "\t"},
        {.name = "MarkAndCarriageReturns",
         .betweenElements = "\r\n   ",
         .betweenAttributes = "\r\n ",
         .head = "\xEF\xBB\xBF" + declaration},
        {.name = "BlankLinesAndComments",
         .betweenElements = "\n\n<!-- <Layer name=\"none\"/> & more -->\n \n<?tool do=\"nothing\" ?>\n\n",
         .head = declaration},
        {.name = "References", .hasReferences = true},
        {.name = "Utf16",
         .head = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>",
         .encoding = Layout::Encoding::Utf16Little},
        {.name = "Utf16Big", .betweenElements = "\r\n", .encoding = Layout::Encoding::Utf16Big}};
    return layouts;
}

std::string Printed(const pugi::xml_document & document, const Layout & layout, const Change & change)
{
    std::string text = Printer(layout, change).Print(document);
    return layout.encoding == Layout::Encoding::Utf8 ? text
                                                     : InUtf16(text, layout.encoding == Layout::Encoding::Utf16Big);
}

}  // namespace ipc2581::tests
