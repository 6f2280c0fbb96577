#include "tests/import/support/Layouts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "import/Import.h"
#include "tests/document/ModelText.h"
#include "tests/import/support/Boards.h"
#include "tests/import/support/Documents.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

// Beyond that an import in all layouts takes its time.
constexpr std::size_t MostBytes = 4'000'000;

// False if there are no bytes, too many, or no document.
bool LoadBoard(const std::string & bytes, pugi::xml_document & document)
{
    if (bytes.empty() || bytes.size() > MostBytes || !document.load_buffer(bytes.data(), bytes.size())) {
        return false;
    }
    DropPrefix(document);
    return true;
}

// What an import makes of a document: all members with the bits of their numbers, and the report without its lines.
std::string Made(const std::string & text)
{
    const Imported imported = ImportText(text);
    return ModelText(*imported.board) + FactsText(imported.report);
}

// The same with the counts of elements.
std::string MadeInAnyLayout(const std::string & text)
{
    const Imported imported = ImportText(text);
    return ModelText(*imported.board) + ReportText(imported.report);
}

// The first line in which two texts differ.
std::string Difference(const std::string & one, const std::string & other)
{
    const auto [first, second] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    const auto lineAt = [](const std::string & text, std::size_t at) {
        const std::size_t begin = text.rfind('\n', at == 0 ? 0 : at - 1);
        return text.substr(begin == std::string::npos ? 0 : begin + 1, 300);
    };
    const auto at = static_cast<std::size_t>(first - one.begin());
    return lineAt(one, at) + "\nagainst\n" + lineAt(other, at);
}

class Layouts : public testing::TestWithParam<fs::path> {
protected:
    bool Load()
    {
        m_bytes = UnpackedBytes(GetParam());
        return LoadBoard(m_bytes, m_document);
    }

    std::string m_bytes;
    pugi::xml_document m_document;
};

TEST_P(Layouts, GiveTheSameBoardAndTheSameFacts)
{
    if (!Load()) {
        GTEST_SKIP() << "not unpacked, or too large";
    }
    const std::string expected = MadeInAnyLayout(m_bytes);
    for (const Layout & layout : AllLayouts()) {
        const std::string made = MadeInAnyLayout(Printed(m_document, layout));
        EXPECT_TRUE(made == expected) << layout.name << ": " << Difference(made, expected);
    }
}

// Calls look with each element, and with its path of names.
template <typename Look>
void ForEachElement(pugi::xml_node node, const std::string & outer, Look look)
{
    const std::string path = outer.empty() ? node.name() : outer + "/" + node.name();
    look(node, path);
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element) {
            ForEachElement(child, path, look);
        }
    }
}

TEST_P(Layouts, CountTheElementsOfTheFile)
{
    if (!Load()) {
        GTEST_SKIP() << "not unpacked, or too large";
    }
    std::map<std::string, std::size_t> stated;
    ForEachElement(m_document.document_element(), "",
                   [&](pugi::xml_node node, const std::string & /*path*/) { ++stated[node.name()]; });
    std::map<std::string, std::size_t> counted;
    const Imported imported = ImportText(m_bytes);
    for (const auto & [name, count] : imported.report.Elements()) {
        counted[name] = count.stated;
        EXPECT_LE(count.lost, count.stated) << name;
    }
    EXPECT_EQ(counted, stated);
}

INSTANTIATE_TEST_SUITE_P(Examples, Layouts, testing::ValuesIn(ExampleFiles()), FileTestName);
INSTANTIATE_TEST_SUITE_P(Boards, Layouts, testing::ValuesIn(BoardFiles()), FileTestName);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Layouts);

TEST(LayoutsOfExamples, AreLookedAt)
{
    EXPECT_FALSE(ExampleFiles().empty());
}

// What an import says nothing of, by the end of its path, and why.
struct SilentPlace {
    std::string_view path;
    std::string_view why;
};

// Elements with all that is in them.
constexpr std::array<SilentPlace, 1> SilentElements = {
    {{"/Set/NonstandardAttribute", "remarks of sets are counted instead of listed"}}};

// Attributes, as "/Element/attribute".
constexpr std::array<SilentPlace, 1> SilentAttributes = {
    {{"/DictionaryLineDesc/units", "the widths of its entries tell it, if somebody refers to them"}}};

template <typename Places>
bool IsIn(const Places & places, const std::string & path)
{
    return std::any_of(places.begin(), places.end(),
                       [&](const SilentPlace & place) { return path.ends_with(place.path); });
}

// A namespace is no fact of the document.
bool IsNamespace(pugi::xml_attribute attribute)
{
    const std::string name = attribute.name();
    return name == "xmlns" || name.starts_with("xmlns:");
}

// Only so many elements of a name stay in each element, so that a large board becomes a small one of the same kinds.
void Prune(pugi::xml_node node)
{
    constexpr int most = 4;
    std::map<std::string, int> counts;
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (child.type() == pugi::node_element && ++counts[child.name()] > most) {
            node.remove_child(child);
        }
        else {
            Prune(child);
        }
        child = next;
    }
}

class Completeness : public testing::TestWithParam<fs::path> {
protected:
    bool Load()
    {
        const std::string bytes = UnpackedBytes(GetParam());
        if (!LoadBoard(bytes, m_document)) {
            return false;
        }
        m_isPruned = bytes.size() > 20'000;
        if (m_isPruned) {
            Prune(m_document.document_element());
        }
        m_made = Made(Printed(m_document, {}));
        const Imported imported = ImportText(Printed(m_document, {}));
        for (const Note & note : imported.report.Notes()) {
            if (note.kind == NoteKind::StepLeftOut) {
                m_leftOut.push_back(note.text);
            }
        }
        return true;
    }

    // Nothing of a step that is left out arrives but its name, and that is told.
    [[nodiscard]] bool IsLeftOut(pugi::xml_node node) const
    {
        for (; node; node = node.parent()) {
            const std::string text = "the step \"" + std::string(node.attribute("name").value()) + "\"";
            if (std::string_view(node.name()) == "Step" &&
                std::find(m_leftOut.begin(), m_leftOut.end(), text) != m_leftOut.end()) {
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] bool IsSeen(const Change & change) const { return Made(Printed(m_document, {}, change)) != m_made; }

    // Calls look with each element of the file; of a large one with the first of each path alone.
    template <typename Look>
    void ForEachKind(Look look)
    {
        std::set<std::string> looked;
        ForEachElement(m_document.document_element(), "", [&](pugi::xml_node node, const std::string & path) {
            std::string kind = path;
            for (const pugi::xml_attribute attribute : node.attributes()) {
                kind += std::string(" ") + attribute.name();
            }
            const bool isNew = looked.insert(kind).second;
            if ((isNew || !m_isPruned) && !IsLeftOut(node) && !IsIn(SilentElements, path)) {
                look(node, path);
            }
        });
    }

    pugi::xml_document m_document;
    bool m_isPruned = false;
    std::string m_made;
    Texts m_leftOut;
};

// A value that is the one of an absent attribute may be taken out, but not changed.
TEST_P(Completeness, NoAttributeVanishesInSilence)
{
    if (!Load()) {
        GTEST_SKIP() << "not unpacked, or too large";
    }
    std::size_t looked = 0;
    ForEachKind([&](pugi::xml_node node, const std::string & path) {
        for (const pugi::xml_attribute attribute : node.attributes()) {
            if (IsNamespace(attribute) || IsIn(SilentAttributes, path + "/" + attribute.name())) {
                continue;
            }
            ++looked;
            EXPECT_TRUE(IsSeen({.kind = Change::Kind::WithoutAttribute, .attribute = attribute}) ||
                        IsSeen({.kind = Change::Kind::OtherValue, .attribute = attribute}))
                << path << " " << attribute.name() << "=" << attribute.value();
        }
    });
    EXPECT_GT(looked, 50U);
}

TEST_P(Completeness, NoStrangerVanishesInSilence)
{
    if (!Load()) {
        GTEST_SKIP() << "not unpacked, or too large";
    }
    ForEachKind([&](pugi::xml_node node, const std::string & path) {
        for (const auto & [kind, name] :
             {std::pair(Change::Kind::StrangeAttribute, "attribute"), std::pair(Change::Kind::StrangeText, "text"),
              std::pair(Change::Kind::StrangeElement, "element")}) {
            EXPECT_TRUE(IsSeen({.kind = kind, .node = node})) << "a strange " << name << " in " << path;
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Examples, Completeness, testing::ValuesIn(ExampleFiles()), FileTestName);
INSTANTIATE_TEST_SUITE_P(Boards, Completeness, testing::ValuesIn(BoardFiles()), FileTestName);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Completeness);

}  // namespace
}  // namespace ipc2581::tests
