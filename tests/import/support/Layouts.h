#ifndef IPC2581_TESTS_IMPORT_SUPPORT_LAYOUTS_H
#define IPC2581_TESTS_IMPORT_SUPPORT_LAYOUTS_H

#include <string>
#include <vector>

#include <pugixml.hpp>

namespace ipc2581::tests {

// One of the ways in which the same document may be written.
struct Layout {
    std::string name = {};
    // In front of each tag.
    std::string betweenElements = "\n";
    std::string betweenAttributes = " ";
    char quote = '"';
    // Of all elements, for the namespace of the root.
    std::string prefix = {};
    // Each character of a text as a reference to its number.
    bool hasReferences = false;
    // In front of all.
    std::string head = {};
    enum class Encoding { Utf8, Utf16Little, Utf16Big };
    Encoding encoding = Encoding::Utf8;
};

const std::vector<Layout> & AllLayouts();

// One thing that is otherwise than in the document.
struct Change {
    enum class Kind { None, WithoutAttribute, OtherValue, StrangeAttribute, StrangeText, StrangeElement };
    Kind kind = Kind::None;
    pugi::xml_attribute attribute = {};
    pugi::xml_node node = {};
};

// What a change puts in.
inline constexpr const char * StrangeWord = "stranger";

// Takes the prefix of the root off all elements that have it; the namespace stays.
void DropPrefix(pugi::xml_document & document);

// The document in the layout, without its comments, instructions and declarations.
std::string Printed(const pugi::xml_document & document, const Layout & layout, const Change & change = {});

}  // namespace ipc2581::tests

#endif
