#ifndef IPC2581_BASE_LINES_TOKENLIST_H
#define IPC2581_BASE_LINES_TOKENLIST_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

namespace ipc2581 {

class ReadObserver;

}  // namespace ipc2581

namespace ipc2581::detail {

constexpr bool IsBracket(char ch)
{
    return ch == '<' || ch == '>';
}

// What the tokens of a file know of their reader: where it takes room for long texts, and who looks on; null if there
// is none.
struct TokenReader {
    ObjectBlocks * blocks = nullptr;
    ReadObserver * observer = nullptr;
};

// The tokens of a line as a list of their own, for an operation that takes such a list, with their reader.
class LineTokens final : public CArray<CString, CString> {
public:
    TokenReader reader;
};

// The tokens of one line, as views into it. The line must stay while the list is used; the storage is used again
// for the next line.
class TokenList {
public:
    TokenList() = default;
    // The tokens of a file.
    explicit TokenList(ObjectBlocks & blocks) : m_reader{&blocks, nullptr} {}
    // The tokens of a list, which must stay as well. Every scan takes a list as it is.
    TokenList(const CArray<CString, CString> & tokens);

    // A line that is cut on runs of blanks, once somebody asks for its tokens. Every "<" and ">" goes, wherever it
    // stands; a tab is no blank and a "/" stays. A token may be empty: a bracket that stands alone. Its first token,
    // which has no "=", ends at restAt; NoPlainRest if it has one or nobody knows.
    void SetLine(std::string_view line, std::size_t restAt)
    {
        m_line = line;
        m_restAt = restAt;
        m_isCut = false;
    }
    static constexpr std::size_t NoPlainRest = std::string_view::npos;
    // The whole line becomes the one token, with its brackets.
    void SetWhole(std::string_view line);

    // The line behind its first token, for a scan that may do without a token list; false if there must be one.
    bool HasRest(std::string_view & rest) const
    {
        if (m_restAt == NoPlainRest) {
            return false;
        }
        rest = {m_line.data() + m_restAt, m_line.size() - m_restAt};
        return true;
    }

    int Size() const
    {
        Cut();
        return static_cast<int>(m_tokens.size());
    }
    std::string_view operator[](int index) const
    {
        Cut();
        return m_tokens[static_cast<std::size_t>(index)];
    }

    // The attribute value that begins at token index, which is left on the last token that the value used. A value
    // without a closing quote in its token runs on to the next token with a quote; runs of blanks in it come back as
    // one blank. All quotes and slashes are lost. Throws CInvalidArgException if the line ends first. The value stays
    // valid until the next call.
    std::string_view Value(int & index) const;

    // Where the texts of the tokens' owner go; null if it has no blocks.
    ObjectBlocks * Blocks() const { return m_reader.blocks; }
    const TokenReader & Reader() const { return m_reader; }
    // Who looks on while they are read; null for nobody.
    ReadObserver * Observer() const { return m_reader.observer; }
    void SetObserver(ReadObserver * observer) { m_reader.observer = observer; }

    // Adds the tokens to a list of their own.
    void AppendTo(CArray<CString, CString> & tokens) const;

private:
    void Cut() const
    {
        if (!m_isCut) {
            CutLine();
        }
    }
    void CutLine() const;
    std::string_view RightPart(std::string_view token) const;
    std::string_view WithoutBrackets(std::string_view token) const;

    TokenReader m_reader;
    std::string_view m_line;
    std::size_t m_restAt = NoPlainRest;
    mutable bool m_isCut = true;
    mutable std::vector<std::string_view> m_tokens;
    // Tokens that brackets were taken out of, and the value last taken.
    mutable std::string m_cleaned;
    mutable std::string m_part;
    mutable std::string m_value;
};

}  // namespace ipc2581::detail

#endif
