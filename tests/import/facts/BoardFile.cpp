#include "tests/import/facts/BoardFile.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>

#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

void DropPrefixes(pugi::xml_node node)
{
    for (pugi::xml_node child : node.children()) {
        const char * const colon = std::strchr(child.name(), ':');
        if (colon != nullptr) {
            child.set_name(std::string(colon + 1).c_str());
        }
        DropPrefixes(child);
    }
}

pugi::xml_node FindStep(pugi::xml_node cadData)
{
    for (const pugi::xml_node step : cadData.children("Step")) {
        if (step.child("Component")) {
            return step;
        }
    }
    return cadData.child("Step");
}

}  // namespace

std::string TextOf(pugi::xml_node node, const char * attribute)
{
    return node.attribute(attribute).value();
}

double NumberOf(pugi::xml_node node, const char * attribute)
{
    return NumberOf(std::string_view(node.attribute(attribute).value()));
}

bool FlagOf(pugi::xml_node node, const char * attribute)
{
    std::string word(Trimmed(node.attribute(attribute).value()));
    std::transform(word.begin(), word.end(), word.begin(), [](unsigned char c) { return std::tolower(c); });
    return word == "true" || word == "1";
}

Point PointOf(pugi::xml_node node, const char * x, const char * y)
{
    return {NumberOf(node, x), NumberOf(node, y)};
}

Point LocationOf(pugi::xml_node node)
{
    return PointOf(node.child("Location"));
}

Xform XformOf(pugi::xml_node node)
{
    const pugi::xml_node xform = node.child("Xform");
    return {NumberOf(xform, "rotation"), FlagOf(xform, "mirror"), NumberOf(xform, "xOffset"),
            NumberOf(xform, "yOffset"), xform.attribute("scale") ? NumberOf(xform, "scale") : 1.0};
}

std::string PinOf(pugi::xml_node pad)
{
    const pugi::xml_node pin = pad.child("PinRef");
    return pin ? PinWord(TextOf(pin, "componentRef"), TextOf(pin, "pin")) : TextOf(pad, "pin");
}

BoardFile::BoardFile(const std::string & path)
{
    const pugi::xml_parse_result result = m_document.load_file(path.c_str());
    if (!result) {
        throw std::runtime_error(path + ": " + result.description());
    }
    DropPrefixes(m_document);
    m_step = FindStep(CadData());
    for (const char * const kind : {"Standard", "User", "LineDesc", "FillDesc"}) {
        ReadDictionary(kind);
    }
}

void BoardFile::ReadDictionary(const std::string & kind)
{
    // The ranges of the parser keep pointers to the names.
    const std::string dictionaryName = "Dictionary" + kind;
    const std::string entryName = "Entry" + kind;
    for (const pugi::xml_node dictionary : Content().children(dictionaryName.c_str())) {
        const double unit = UnitFactor(TextOf(dictionary, "units"), TextOf(CadHeader(), "units"));
        for (const pugi::xml_node entry : dictionary.children(entryName.c_str())) {
            m_dictionaries[kind].try_emplace(TextOf(entry, "id"), DictionaryEntry{entry, unit});
        }
    }
}

DictionaryEntry BoardFile::Entry(const std::string & kind, const std::string & id) const
{
    const auto dictionary = m_dictionaries.find(kind);
    if (dictionary == m_dictionaries.end()) {
        return {};
    }
    const auto entry = dictionary->second.find(id);
    return entry == dictionary->second.end() ? DictionaryEntry{} : entry->second;
}

}  // namespace ipc2581::facts
