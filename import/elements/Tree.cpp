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
        m_attributes.push_back({attribute.name, State::Untaken, static_cast<std::uint32_t>(attribute.value.size()),
                                Keep(attribute.value)});
    }
    m_open.push_back(static_cast<std::uint32_t>(m_nodes.size()));
    m_nodes.push_back({name, State::Untaken, static_cast<std::uint32_t>(line), 0, first,
                       static_cast<std::uint32_t>(m_attributes.size())});
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
    const std::vector<TextPiece> pieces = m_untaken == 0 ? std::vector<TextPiece>() : UntakenPieces();
    std::span<const TextPiece> piecesLeft = pieces;
    std::size_t left = m_untaken;
    for (std::uint32_t i = 0; left != 0; ++i) {
        while (!levels.empty() && m_nodes[levels.back()].end <= i) {
            levels.pop_back();
        }
        levels.push_back(i);
        const Left own = LeftOf(i, piecesLeft);
        piecesLeft = piecesLeft.subspan(own.pieces.size());
        if (own.count == 0) {
            continue;
        }
        LossRecorder::Path path = parent;
        for (const std::uint32_t level : levels) {
            path = losses.PathOf(path, m_nodes[level].name);
        }
        losses.BeginFact(path, m_nodes[i].line, owner);
        ReportNode(i, own, losses);
        left -= own.count;
    }
}

std::vector<Tree::TextPiece> Tree::UntakenPieces() const
{
    std::vector<TextPiece> pieces;
    std::copy_if(m_pieces.begin(), m_pieces.end(), std::back_inserter(pieces),
                 [](const TextPiece & piece) { return !piece.isTaken; });
    std::stable_sort(pieces.begin(), pieces.end(),
                     [](const TextPiece & one, const TextPiece & other) { return one.node < other.node; });
    return pieces;
}

Tree::Left Tree::LeftOf(std::uint32_t node, std::span<const TextPiece> pieces) const
{
    const Node & own = m_nodes[node];
    Left left;
    const auto add = [&](State state) {
        left.count += state == State::Taken ? 0 : 1;
        left.isHeld = left.isHeld || state == State::Held;
    };
    add(own.state);
    for (std::uint32_t i = own.firstAttribute; i < own.attributesEnd; ++i) {
        add(m_attributes[i].state);
    }
    const auto behind =
        std::find_if(pieces.begin(), pieces.end(), [&](const TextPiece & piece) { return piece.node != node; });
    left.pieces = {pieces.begin(), behind};
    left.count += left.pieces.size();
    return left;
}

void Tree::ReportNode(std::uint32_t node, const Left & left, LossRecorder & losses) const
{
    const Node & own = m_nodes[node];
    if (left.isHeld) {
        losses.HoldFact(m_hold, own.state == State::Held);
    }
    for (std::uint32_t i = own.firstAttribute; i < own.attributesEnd; ++i) {
        const Attribute & attribute = m_attributes[i];
        if (attribute.state != State::Taken) {
            losses.AddAttribute(attribute.name, ValueOf(attribute.value, attribute.length),
                                attribute.state == State::Held);
        }
    }
    for (const TextPiece & piece : left.pieces) {
        losses.AddText(ValueOf(piece.value, piece.length));
    }
}

void Tree::Clear()
{
    // Few elements are large, such as the net of the ground; what they took is not kept.
    constexpr std::size_t usual = 4096;
    if (m_attributes.capacity() > usual) {
        *this = Tree();
        return;
    }
    m_nodes.clear();
    m_attributes.clear();
    m_pieces.clear();
    m_text.assign(BytesInFront, ' ');
    m_open.clear();
    m_untaken = 0;
}

void XmlElement::Hold(LossRecorder::Hold hold, std::initializer_list<Word> names) const
{
    m_tree->m_hold = hold;
    Own().state = Own().state == Tree::State::Untaken ? Tree::State::Held : Own().state;
    for (std::uint32_t i = Own().firstAttribute; i < Own().attributesEnd; ++i) {
        Tree::Attribute & attribute = m_tree->m_attributes[i];
        const bool isNamed = std::find(names.begin(), names.end(), attribute.name) != names.end();
        if (isNamed && attribute.state == Tree::State::Untaken) {
            attribute.state = Tree::State::Held;
        }
    }
}

std::vector<Word> XmlElement::Untaken() const
{
    std::vector<Word> names;
    for (std::uint32_t i = Own().firstAttribute; i < Own().attributesEnd; ++i) {
        if (m_tree->m_attributes[i].state == Tree::State::Untaken) {
            names.push_back(m_tree->m_attributes[i].name);
        }
    }
    return names;
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
