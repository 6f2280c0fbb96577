#include "import/elements/Tree.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ipc2581::detail {
namespace {

// A number may be read with the eight bytes in front of its end, wherever it stands.
constexpr std::size_t BytesInFront = 8;
constexpr std::size_t MostNodes = std::numeric_limits<std::uint32_t>::max() / 2;

}  // namespace

Tree::Tree()
{
    Clear();
}

void Tree::Open(Word name, std::size_t line, std::span<const XmlAttribute> attributes)
{
    if (m_nodes.size() >= MostNodes || m_attributes.size() >= MostNodes) {
        throw std::length_error("an element with more in it than can be kept");
    }
    const auto first = static_cast<std::uint32_t>(m_attributes.size());
    for (const XmlAttribute & attribute : attributes) {
        m_attributes.push_back(
            {attribute.name, false, static_cast<std::uint32_t>(attribute.value.size()), Keep(attribute.value)});
    }
    m_open.push_back(static_cast<std::uint32_t>(m_nodes.size()));
    m_nodes.push_back(
        {name, false, static_cast<std::uint32_t>(line), 0, first, static_cast<std::uint32_t>(m_attributes.size())});
    m_untaken += 1 + attributes.size();
}

void Tree::Text(std::string_view text)
{
    m_pieces.push_back({m_open.back(), false, static_cast<std::uint32_t>(text.size()), Keep(text)});
    ++m_untaken;
}

void Tree::Close()
{
    m_nodes[m_open.back()].end = static_cast<std::uint32_t>(m_nodes.size());
    m_open.pop_back();
}

std::size_t Tree::Keep(std::string_view value)
{
    const std::size_t place = m_text.size();
    m_text.insert(m_text.end(), value.begin(), value.end());
    return place;
}

void Tree::ReportLost(LossRecorder & losses, LossRecorder::Path parent, std::size_t owner) const
{
    // The nodes that the one in hand stands in, the outermost first.
    std::vector<std::uint32_t> levels;
    std::size_t left = m_untaken;
    for (std::uint32_t i = 0; left != 0; ++i) {
        while (!levels.empty() && m_nodes[levels.back()].end <= i) {
            levels.pop_back();
        }
        levels.push_back(i);
        const std::size_t lost = CountLost(i);
        if (lost == 0) {
            continue;
        }
        LossRecorder::Path path = parent;
        for (const std::uint32_t level : levels) {
            path = losses.PathOf(path, m_nodes[level].name);
        }
        ReportNode(i, losses, path, owner);
        left -= lost;
    }
}

// How many of the node itself, its attributes and its texts nobody has taken.
std::size_t Tree::CountLost(std::uint32_t node) const
{
    const Node & own = m_nodes[node];
    std::size_t lost = own.isTaken ? 0 : 1;
    for (std::uint32_t i = own.firstAttribute; i < own.attributesEnd; ++i) {
        lost += m_attributes[i].isTaken ? 0U : 1U;
    }
    return lost +
           static_cast<std::size_t>(std::count_if(m_pieces.begin(), m_pieces.end(), [&](const TextPiece & piece) {
               return piece.node == node && !piece.isTaken;
           }));
}

void Tree::ReportNode(std::uint32_t node, LossRecorder & losses, LossRecorder::Path path, std::size_t owner) const
{
    const Node & own = m_nodes[node];
    losses.BeginFact(path, own.line, owner);
    for (std::uint32_t i = own.firstAttribute; i < own.attributesEnd; ++i) {
        if (!m_attributes[i].isTaken) {
            losses.AddAttribute(m_attributes[i].name, ValueOf(m_attributes[i].value, m_attributes[i].length));
        }
    }
    for (const TextPiece & piece : m_pieces) {
        if (piece.node == node && !piece.isTaken) {
            losses.AddText(ValueOf(piece.value, piece.length));
        }
    }
}

void Tree::Clear()
{
    m_nodes.clear();
    m_attributes.clear();
    m_pieces.clear();
    m_text.assign(BytesInFront, ' ');
    m_open.clear();
    m_untaken = 0;
}

void XmlElement::TakeWhole() const
{
    Take();
    TakeAttributes([](Word /*name*/, std::string_view /*value*/) { return true; });
}

std::string_view XmlElement::TakeValue(Word name) const
{
    std::string_view taken;
    TakeAttributes([&](Word own, std::string_view value) {
        taken = own == name ? value : taken;
        return own == name;
    });
    return taken;
}

std::string XmlElement::TakeContent() const
{
    std::string content;
    for (Tree::TextPiece & piece : m_tree->m_pieces) {
        if (piece.node == m_node) {
            content.append(m_tree->ValueOf(piece.value, piece.length));
            m_tree->m_untaken -= piece.isTaken ? 0 : 1;
            piece.isTaken = true;
        }
    }
    return content;
}

std::string_view XmlElement::Value(Word name) const
{
    std::string_view found;
    ForEachAttribute([&](Word own, std::string_view value) { found = own == name ? value : found; });
    return found;
}

bool XmlElement::Has(Word name) const
{
    bool isThere = false;
    ForEachAttribute([&](Word own, std::string_view /*value*/) { isThere = isThere || own == name; });
    return isThere;
}

}  // namespace ipc2581::detail
