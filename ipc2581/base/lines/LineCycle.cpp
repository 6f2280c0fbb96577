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

// A line that is empty may stand nowhere.
LineStart LookAt(std::string_view line)
{
    return line.empty() ? LineStart() : LineStart(line.data());
}

}  // namespace

// A file class of the host's own is read through its operations; the lines of a plain one need no copy.
LineCycle::LineCycle(CStdioFile & file, LineForm form)
    : m_file(file),
      m_lines(file.Lines()),
      m_observer(m_lines.Observer()),
      m_form(form),
      m_isPlainFile(IsPlainFile(file)),
      m_isExpecting(m_isPlainFile && m_observer == nullptr && form == LineForm::Plain)
{
    if (m_observer != nullptr) {
        m_observer->LoopBegins();
    }
}

bool LineCycle::Next()
{
    m_lines.CheckModelLimit();
    if (m_isExpecting) {
        if (const LineHead * const head = m_lines.NextExpectedLine(m_line)) {
            m_isWhole = false;
            m_tested = {m_line.data() + head->tested, head->testedSize};
            m_testedSet = head->set;
            m_restAt = head->plainRestAt;
            return true;
        }
    }
    return NextUnexpected();
}

[[gnu::noinline]] bool LineCycle::NextUnexpected()
{
    if (m_observer != nullptr || !m_isPlainFile) {
        return NextAside();
    }
    LineStart look;
    if (!m_lines.NextLine(m_line, look)) {
        return false;
    }
    TestLine(look);
    return true;
}

LineTokens & LineCycle::CopyTokens(LineTokens & tokens)
{
    tokens.RemoveAll();
    tokens.reader = Tokens().Reader();
    Tokens().AppendTo(tokens);
    return tokens;
}

// As Next, for a file class of the host's own and for a file that somebody looks at.
bool LineCycle::NextAside()
{
    while (m_isPlainFile ? m_lines.NextLine(m_line) : ReadHostLine()) {
        if (m_observer == nullptr) {
            TestLine(LookAt(m_line));
            return true;
        }
        m_observer->LineTaken(m_line);
        const ReadStop stop = m_line.empty() ? ReadStop::EmptyLine : ReadStop::BlankLine;
        try {
            TestLine(LookAt(m_line));
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

void LineCycle::TestLine(const LineStart & look)
{
    if (m_form == LineForm::Plain) {
        TestFirstToken(look);
    }
    else {
        TestFormOfItsOwn();
    }
}

// Brings a line that is not plain into its form.
void LineCycle::TestFormOfItsOwn()
{
    switch (m_form) {
    case LineForm::Plain:
        break;
    case LineForm::Content:
        m_line = FromFirstBracket(m_line);
        if (m_line.find(' ') != std::string_view::npos) {
            break;
        }
        BlankBothEnds();
        TestWholeLine();
        return;
    case LineForm::Trimmed:
        m_line = Trimmed(m_line);
        break;
    case LineForm::WholeLine:
        TestWholeLine();
        m_isWhole = m_line.find(' ') == std::string_view::npos;
        return;
    }
    TestFirstToken(LookAt(m_line));
}

void LineCycle::TestWholeLine()
{
    m_isWhole = true;
    m_restAt = TokenList::NoPlainRest;
    m_tested = m_line;
    m_testedSet = SetOf(m_line);
}

// Finds the first token without a token list, which a line that no test hits never needs.
void LineCycle::TestFirstToken(const LineStart & look)
{
    const char * const begin = m_line.data();
    const char * const end = begin + m_line.size();
    const auto [start, tokenEnd] = look.FirstToken(begin, end);
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
    m_restAt = found.mayHavePlainRest ? static_cast<std::size_t>(tokenEnd - begin) : TokenList::NoPlainRest;
    m_tested = {token.data() + found.front, token.size() - found.front - found.back};
    if (m_isExpecting) {
        const std::size_t tokenAt = static_cast<std::size_t>(start - begin);
        m_lines.Heads().Remember({begin, tokenAt + token.size()}, tokenAt, found, m_restAt);
    }
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
