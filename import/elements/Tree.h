#ifndef IPC2581_IMPORT_ELEMENTS_TREE_H
#define IPC2581_IMPORT_ELEMENTS_TREE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import/elements/LossRecorder.h"
#include "import/xml/Words.h"
#include "import/xml/XmlParser.h"

namespace ipc2581::detail {

class XmlElement;

// One element of a document with all that stands in it, kept until it is read: a component, a package, a pad. It knows
// of each element and attribute if somebody has taken it; what nobody has taken is a lost fact. What has arrived only
// if somebody refers to it later is held until then.
class Tree {
public:
    Tree();

    void Open(Word name, std::size_t line, std::span<const XmlAttribute> attributes);
    void Text(std::string_view text);
    void Close();
    // False once the outermost element is closed.
    [[nodiscard]] bool IsOpen() const { return !m_open.empty(); }
    [[nodiscard]] XmlElement Root();
    // An element by its place, also in a copy of the tree.
    [[nodiscard]] XmlElement ElementAt(std::uint32_t place);

    // Tells what nobody has taken, and gives what is held into the hand of the recorder.
    void ReportLost(LossRecorder & losses, LossRecorder::Path parent, std::size_t owner) const;
    // Forgets the element, and keeps the room of one that is not large.
    void Clear();

private:
    friend class XmlElement;

    // In the order of the document: what stands in a node comes behind it, up to its end.
    enum class State : std::uint8_t { Untaken, Taken, Held };

    struct Node {
        Word name;
        State state;
        std::uint32_t line;
        std::uint32_t end;
        std::uint32_t firstAttribute;
        std::uint32_t attributesEnd;
    };
    struct Attribute {
        Word name;
        State state;
        std::uint32_t length;
        std::size_t value;
    };
    struct TextPiece {
        std::uint32_t node;
        bool isTaken;
        std::uint32_t length;
        std::size_t value;
    };

    std::size_t Keep(std::string_view value);
    [[nodiscard]] std::string_view ValueOf(std::size_t value, std::uint32_t length) const
    {
        return {m_text.data() + value, length};
    }
    // What nobody has taken of a node, its attributes and its texts, which begin with the first that is not behind it.
    struct Left {
        std::size_t count = 0;
        bool isHeld = false;
        std::span<const TextPiece> pieces;
    };
    // The texts that nobody has taken, by their nodes.
    [[nodiscard]] std::vector<TextPiece> UntakenPieces() const;
    [[nodiscard]] Left LeftOf(std::uint32_t node, std::span<const TextPiece> pieces) const;
    void ReportNode(std::uint32_t node, const Left & left, LossRecorder & losses) const;

    std::vector<Node> m_nodes;
    std::vector<Attribute> m_attributes;
    std::vector<TextPiece> m_pieces;
    std::vector<char> m_text;
    std::vector<std::uint32_t> m_open;
    // How many nodes, attributes and texts nobody has taken yet, and by what those are held that are.
    std::size_t m_untaken = 0;
    LossRecorder::Hold m_hold = 0;
};

// An element of a tree, as a reader sees it. It is as cheap to copy as a pointer, and good until the tree is cleared.
class XmlElement {
public:
    XmlElement(Tree & tree, std::uint32_t node) : m_tree(&tree), m_node(node) {}

    [[nodiscard]] Word Name() const { return Own().name; }
    [[nodiscard]] std::size_t Line() const { return Own().line; }
    [[nodiscard]] bool IsEmpty() const { return Own().end == m_node + 1; }
    [[nodiscard]] std::uint32_t Place() const { return m_node; }

    // Says that the element has arrived; its attributes and what stands in it are asked for one by one.
    void Take() const
    {
        m_tree->m_untaken -= Own().state == Tree::State::Taken ? 0 : 1;
        Own().state = Tree::State::Taken;
    }
    // Says that the element and the attributes of the names have arrived if what holds them is referred to. All that is
    // held in a tree is held by one.
    void Hold(LossRecorder::Hold hold, std::initializer_list<Word> names) const;

    // Calls take(name, value) for each attribute that nobody has taken, and takes those for which it is true.
    template <typename Function>
    void TakeAttributes(Function take) const
    {
        for (std::uint32_t i = Own().firstAttribute; i < Own().attributesEnd; ++i) {
            Tree::Attribute & attribute = m_tree->m_attributes[i];
            if (attribute.state == Tree::State::Untaken &&
                take(attribute.name, m_tree->ValueOf(attribute.value, attribute.length))) {
                attribute.state = Tree::State::Taken;
                --m_tree->m_untaken;
            }
        }
    }
    // Calls look(name, value) for each attribute.
    template <typename Function>
    void ForEachAttribute(Function look) const
    {
        for (std::uint32_t i = Own().firstAttribute; i < Own().attributesEnd; ++i) {
            const Tree::Attribute & attribute = m_tree->m_attributes[i];
            look(attribute.name, m_tree->ValueOf(attribute.value, attribute.length));
        }
    }
    // The value of an attribute, which is taken; empty if there is none.
    [[nodiscard]] std::string_view TakeValue(Word name) const;
    // The text that stands right in it, which is taken.
    [[nodiscard]] std::string TakeContent() const;
    // The value of an attribute, for who only looks at it.
    [[nodiscard]] std::string_view Value(Word name) const;
    [[nodiscard]] bool Has(Word name) const;
    // The attributes that nobody has taken.
    [[nodiscard]] std::vector<Word> Untaken() const;

    // The elements that stand right in it.
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = XmlElement;
        using difference_type = std::ptrdiff_t;
        using pointer = const XmlElement *;
        using reference = XmlElement;

        Iterator(Tree & tree, std::uint32_t node) : m_tree(&tree), m_node(node) {}
        XmlElement operator*() const { return {*m_tree, m_node}; }
        Iterator & operator++()
        {
            m_node = m_tree->m_nodes[m_node].end;
            return *this;
        }
        bool operator==(const Iterator & other) const { return m_node == other.m_node; }

    private:
        Tree * m_tree;
        std::uint32_t m_node;
    };
    [[nodiscard]] Iterator begin() const { return {*m_tree, m_node + 1}; }
    [[nodiscard]] Iterator end() const { return {*m_tree, Own().end}; }

private:
    [[nodiscard]] Tree::Node & Own() const { return m_tree->m_nodes[m_node]; }

    Tree * m_tree;
    std::uint32_t m_node;
};

// The first of the name that stands right in an element.
[[nodiscard]] inline std::optional<XmlElement> FirstOf(const XmlElement & element, Word name)
{
    for (const XmlElement child : element) {
        if (child.Name() == name) {
            return child;
        }
    }
    return std::nullopt;
}

// Calls read(child) for the first of each name that stands right in an element.
template <typename Function>
void ForFirsts(const XmlElement & element, Function read)
{
    std::vector<Word> seen;
    for (const XmlElement child : element) {
        if (std::find(seen.begin(), seen.end(), child.Name()) == seen.end()) {
            seen.push_back(child.Name());
            read(child);
        }
    }
}

inline XmlElement Tree::Root()
{
    return {*this, 0};
}

inline XmlElement Tree::ElementAt(std::uint32_t place)
{
    return {*this, place};
}

}  // namespace ipc2581::detail

#endif
