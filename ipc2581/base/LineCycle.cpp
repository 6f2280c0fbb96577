#include "ipc2581/base/LineCycle.h"

#include <algorithm>
#include <typeinfo>

#include "ipc2581/base/platform/Afx.h"

namespace ipc2581::detail {
namespace {

std::string_view Trimmed(std::string_view line)
{
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    const std::size_t first = std::min(line.find_first_not_of(whiteSpace), line.size());
    return line.substr(first, line.find_last_not_of(whiteSpace) + 1 - first);
}

std::string_view FromFirstBracket(std::string_view line)
{
    const std::size_t bracket = line.find('<');
    return bracket == std::string_view::npos ? line : line.substr(bracket);
}

}  // namespace

// A file class of the host's own is read through its operations; the lines of a plain one need no copy.
LineCycle::LineCycle(CStdioFile & file, LineForm form)
    : m_file(file), m_lines(file.Lines()), m_form(form), m_isPlainFile(typeid(file) == typeid(CStdioFile))
{
}

bool LineCycle::Next()
{
    if (!ReadLine()) {
        return false;
    }
    switch (m_form) {
    case LineForm::Plain:
        TestFirstToken();
        break;
    case LineForm::Content:
        m_line = FromFirstBracket(m_line);
        if (m_line.find(' ') == std::string_view::npos) {
            BlankBothEnds();
            TestWholeLine();
        }
        else {
            TestFirstToken();
        }
        break;
    case LineForm::Trimmed:
        m_line = Trimmed(m_line);
        TestFirstToken();
        break;
    case LineForm::WholeLine:
        TestWholeLine();
        m_isWhole = m_line.find(' ') == std::string_view::npos;
        break;
    }
    return true;
}

const TokenList & LineCycle::Tokens()
{
    TokenList & tokens = m_lines.Tokens();
    if (m_isWhole) {
        tokens.SetWhole(m_line);
    }
    else {
        tokens.SetLine(m_line, m_restAt);
    }
    return tokens;
}

CArray<CString, CString> & LineCycle::CopyTokens(CArray<CString, CString> & tokens)
{
    tokens.RemoveAll();
    Tokens().AppendTo(tokens);
    return tokens;
}

bool LineCycle::ReadLine()
{
    if (m_isPlainFile) {
        return m_lines.NextLine(m_line);
    }
    const bool isRead = m_file.ReadString(m_hostLine) != 0;
    m_line = m_hostLine;
    return isRead;
}

void LineCycle::TestWholeLine()
{
    m_isWhole = true;
    m_restAt = TokenList::NoPlainRest;
    m_tested = m_line;
    m_testedSet = SetOf(m_line);
}

// Finds the first token without a token list, which a line that no test hits never needs.
void LineCycle::TestFirstToken()
{
    const char * const begin = m_line.data();
    const char * const end = begin + m_line.size();
    const char * start = begin;
    while (start != end && *start == ' ') {
        ++start;
    }
    if (start == end && start != begin) {
        AfxThrowInvalidArgException();
    }
    const char * tokenEnd = start;
    CharacterSet set = 0;
    for (; tokenEnd != end && *tokenEnd != ' '; ++tokenEnd) {
        set |= SetOf(*tokenEnd);
    }
    m_isWhole = start == begin && tokenEnd == end;
    m_tested = {start, static_cast<std::size_t>(tokenEnd - start)};
    m_testedSet = set;
    m_restAt = (set & SetOf('=')) == 0 ? static_cast<std::size_t>(tokenEnd - begin) : TokenList::NoPlainRest;
    if (!m_isWhole && (set & SetOf('<')) != 0) {
        TakeBracketsOut();
    }
}

// In a cut line the brackets go. Nearly always there is one at either end; any others change the text between them.
void LineCycle::TakeBracketsOut()
{
    std::string_view inner = m_tested;
    if (IsBracket(inner.front())) {
        inner.remove_prefix(1);
    }
    if (!inner.empty() && IsBracket(inner.back())) {
        inner.remove_suffix(1);
    }
    if (std::none_of(inner.begin(), inner.end(), IsBracket)) {
        m_tested = inner;
        return;
    }
    m_restAt = TokenList::NoPlainRest;
    m_tested = Tokens()[0];
}

void LineCycle::BlankBothEnds()
{
    if (m_line.empty()) {
        AfxThrowInvalidArgException();
    }
    std::string & text = m_lines.Scratch();
    text = m_line;
    text.front() = ' ';
    text.back() = ' ';
    m_line = text;
}

}  // namespace ipc2581::detail
