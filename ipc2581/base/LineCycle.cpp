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
    if (m_form == LineForm::Trimmed) {
        m_line = Trimmed(m_line);
    }
    else if (m_form == LineForm::Content) {
        m_line = FromFirstBracket(m_line);
    }
    m_isTokenised = false;
    m_isWhole = m_line.find(' ') == std::string_view::npos;
    if (m_form == LineForm::WholeLine) {
        m_tested = m_line;
        return true;
    }
    if (m_form == LineForm::Content && m_isWhole) {
        BlankBothEnds();
    }
    m_tested = m_isWhole ? m_line : FirstToken();
    return true;
}

const TokenList & LineCycle::Tokens()
{
    TokenList & tokens = m_lines.Tokens();
    if (!m_isTokenised) {
        if (m_isWhole) {
            tokens.SetWhole(m_line);
        }
        else {
            tokens.Cut(m_line);
        }
        m_isTokenised = true;
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

// The first token without the cost of a token list, which a line that no test hits never needs.
std::string_view LineCycle::FirstToken()
{
    const std::size_t start = m_line.find_first_not_of(' ');
    if (start == std::string_view::npos) {
        AfxThrowInvalidArgException();
    }
    const std::size_t end = std::min(m_line.find(' ', start), m_line.size());
    std::string_view token = m_line.substr(start, end - start);
    if (token.front() == '<') {
        token.remove_prefix(1);
    }
    if (!token.empty() && token.back() == '>') {
        token.remove_suffix(1);
    }
    return token.find_first_of("<>") == std::string_view::npos ? token : Tokens()[0];
}

}  // namespace ipc2581::detail
