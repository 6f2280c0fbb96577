#ifndef IPC2581_TESTS_IMPORT_FACTS_BOARDFILE_H
#define IPC2581_TESTS_IMPORT_FACTS_BOARDFILE_H

#include <map>
#include <string>

#include <pugixml.hpp>

#include "tests/import/facts/Geometry.h"

namespace ipc2581::facts {

// The values of an element, as XML has them. An attribute that is absent is an empty text, 0 and false.
std::string TextOf(pugi::xml_node node, const char * attribute);
double NumberOf(pugi::xml_node node, const char * attribute);
// true and 1, in capitals too: revision A has them so.
bool FlagOf(pugi::xml_node node, const char * attribute);

Point PointOf(pugi::xml_node node, const char * x = "x", const char * y = "y");
// The Location in an element; 0, 0 if it has none.
Point LocationOf(pugi::xml_node node);
// The Xform in an element.
Xform XformOf(pugi::xml_node node);

// The pin of a pad, with its component where it is known.
std::string PinOf(pugi::xml_node pad);

// A dictionary entry, and what one of its lengths is in the unit of the board.
struct DictionaryEntry {
    pugi::xml_node node;
    double unit = 1.0;
};

// A file as the tree that an XML parser makes of it, with the names of its elements without their prefixes.
class BoardFile {
public:
    // Throws std::runtime_error for a file that is not there or not well-formed.
    explicit BoardFile(const std::string & path);
    BoardFile(const BoardFile &) = delete;
    BoardFile & operator=(const BoardFile &) = delete;

    [[nodiscard]] pugi::xml_node Root() const { return m_document.document_element(); }
    [[nodiscard]] pugi::xml_node Content() const { return Root().child("Content"); }
    [[nodiscard]] pugi::xml_node CadHeader() const { return Root().child("Ecad").child("CadHeader"); }
    [[nodiscard]] pugi::xml_node CadData() const { return Root().child("Ecad").child("CadData"); }
    // The step of the board itself: the first that has components, else the first.
    [[nodiscard]] pugi::xml_node Step() const { return m_step; }

    // The entry of a dictionary by the name of its kind: "Standard", "User", "LineDesc", "FillDesc". One that is not
    // there has an empty node.
    [[nodiscard]] DictionaryEntry Entry(const std::string & kind, const std::string & id) const;

private:
    void ReadDictionary(const std::string & kind);

    pugi::xml_document m_document;
    pugi::xml_node m_step;
    std::map<std::string, std::map<std::string, DictionaryEntry>> m_dictionaries;
};

}  // namespace ipc2581::facts

#endif
