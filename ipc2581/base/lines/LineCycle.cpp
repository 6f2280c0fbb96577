#include "ipc2581/base/lines/LineCycle.h"

#include <algorithm>

#include "ipc2581/base/lines/FirstToken.h"
#include "ipc2581/base/lines/Scan.h"
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
    : m_file(file),
      m_lines(file.Lines()),
      m_observer(m_lines.Observer()),
      m_form(form),
      m_isPlainFile(IsPlainFile(file)),
      m_isDirect(m_isPlainFile && m_observer == nullptr)
{
    if (m_observer != nullptr) {
        m_observer->LoopBegins();
    }
}

bool LineCycle::Next()
{
    m_lines.CheckModelLimit();
    if (!m_isDirect) {
        return NextAside();
    }
    if (!m_lines.NextLine(m_line)) {
        return false;
    }
    TestLine();
    return true;
}

inline void LineCycle::TestLine()
{
    if (m_form == LineForm::Plain || !TestFormOfItsOwn()) {
        TestFirstToken();
    }
}

LineTokens & LineCycle::CopyTokens(LineTokens & tokens)
{
    tokens.RemoveAll();
    tokens.reader = Tokens().Reader();
    Tokens().AppendTo(tokens);
    return tokens;
}

// As Next, for a file of the host's own and for one that somebody looks at.
bool LineCycle::NextAside()
{
    while (m_isPlainFile ? m_lines.NextLine(m_line) : ReadHostLine()) {
        if (m_observer == nullptr) {
            TestLine();
            return true;
        }
        m_observer->LineTaken(m_line);
        const ReadStop stop = m_line.empty() ? ReadStop::EmptyLine : ReadStop::BlankLine;
        try {
            TestLine();
            // The observer is told of tokens, which the scan of plain lines does not make.
            m_restAt = TokenList::NoPlainRest;
            return true;
        }
        catch (const CInvalidArgException &) {
            if (!m_observer->PassOver(stop)) {
                throw;
            }
        }
    }
    return false;
}

bool LineCycle::ReadHostLine()
{
    CString text;
    const bool isRead = m_file.ReadString(text) != 0;
    std::string & copy = m_lines.HostLine();
    copy.assign(ReadAhead, '\0');
    copy.append(text, static_cast<std::size_t>(text.GetLength())).append(ReadAhead, '\0');
    m_line = std::string_view(copy).substr(ReadAhead, copy.size() - 2 * ReadAhead);
    return isRead;
}

// Brings a line that is not plain into the form for the test of its first token; true if it has been tested already.
bool LineCycle::TestFormOfItsOwn()
{
    switch (m_form) {
    case LineForm::Plain:
        return false;
    case LineForm::Content:
        m_line = FromFirstBracket(m_line);
        if (m_line.find(' ') != std::string_view::npos) {
            return false;
        }
        BlankBothEnds();
        TestWholeLine();
        return true;
    case LineForm::Trimmed:
        m_line = Trimmed(m_line);
        return false;
    case LineForm::WholeLine:
        TestWholeLine();
        m_isWhole = m_line.find(' ') == std::string_view::npos;
        return true;
    }
    return false;
}

void LineCycle::TestWholeLine()
{
    m_isWhole = true;
    m_restAt = TokenList::NoPlainRest;
    m_tested = m_line;
    m_testedSet = SetOf(m_line);
}

// Finds the first token without a token list, which a line that no test hits never needs.
inline void LineCycle::TestFirstToken()
{
    const char * const begin = m_line.data();
    const char * const end = begin + m_line.size();
    const auto [start, tokenEnd] = FindToken(begin, end);
    if (start == end && start != begin) {
        AfxThrowInvalidArgException();
    }
    if (start == begin && tokenEnd == end) {
        TestWholeLine();
        return;
    }
    const std::string_view token(start, static_cast<std::size_t>(tokenEnd - start));
    const FirstToken & found = m_lines.FirstTokens().Find(token);
    m_isWhole = false;
    m_testedSet = found.set;
    if (found.isDirty) {
        m_restAt = TokenList::NoPlainRest;
        m_tested = Tokens()[0];
        return;
    }
    m_restAt = (found.set & SetOf('=')) == 0 ? static_cast<std::size_t>(tokenEnd - begin) : TokenList::NoPlainRest;
    m_tested = {token.data() + found.front, token.size() - found.front - found.back};
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
