#ifndef IPC2581_BASE_LINES_LINECYCLE_H
#define IPC2581_BASE_LINES_LINECYCLE_H

#include <cstddef>
#include <memory>
#include <string_view>

#include "ipc2581/base/ReadObserver.h"
#include "ipc2581/base/lines/LineFile.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/lines/Word.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

namespace ipc2581::detail {

// Makes an object for what is read from the file, beside those that the file has already given, and counts its place in
// a list.
template <typename Object>
std::unique_ptr<Object> New(CStdioFile & file)
{
    constexpr std::size_t placeInList = 2 * sizeof(Object *);
    ObjectBlocks & blocks = file.Lines().Blocks();
    blocks.Count(placeInList);
    return std::unique_ptr<Object>(MakeFrom<Object>(blocks));
}

// How a line becomes a token list.
enum class LineForm {
    // A line with a blank is cut; one without is the one token, with its brackets.
    Plain,
    // First all in front of the first "<" goes. A line without a blank then gets its first and last character
    // overwritten with blanks and becomes the one token; an empty line throws.
    Content,
    // First the white space at both ends goes, so that a line of blanks is an empty token and harmless.
    Trimmed,
    // As Plain, but the tests look at the whole line, and a line of blanks is harmless.
    WholeLine,
};

// The loop of every reader: one turn a line, and tests on its first token.
//
//     LineCycle line(file);
//     while (line.Next()) {
//         if (line.Opens("Span")) {
//             ScanAttributes<ipc2581::Fields<Hole>::Span>(line.Tokens(), *this);
//         }
//         else if (line.Holds("/Hole")) {
//             return;
//         }
//     }
//
// A line belongs to the turn that took it: its tokens are gone once anybody reads on in the file.
class LineCycle {
public:
    explicit LineCycle(CStdioFile & file, LineForm form = LineForm::Plain);
    LineCycle(const LineCycle &) = delete;
    LineCycle & operator=(const LineCycle &) = delete;
    ~LineCycle()
    {
        if (m_observer != nullptr) {
            m_observer->LoopEnds();
        }
    }

    // Takes the next line; false at the end of the file. Throws CInvalidArgException for a line of blanks only, and
    // CFileException if the lines before have made more than the limit of the file allows.
    bool Next();
    // The tag test: the first token holds the word anywhere, so that "Bom" is found in "/BomItem" too.
    bool Holds(Word word) const
    {
        if (!word.IsIn(m_tested, m_testedSet)) {
            return false;
        }
        if (m_observer != nullptr) {
            m_observer->TestHit(word.Text());
        }
        return true;
    }
    // The opening test: the first token holds the word and no slash.
    bool Opens(Word word) const { return (m_testedSet & SetOf('/')) == 0 && Holds(word); }
    // The tag test of an element that the loop passes over, whatever tests stand behind.
    bool Skips(Word word) const
    {
        if (!word.IsIn(m_tested, m_testedSet)) {
            return false;
        }
        if (m_observer != nullptr) {
            m_observer->LineSkipped(word.Text());
        }
        return true;
    }
    // The tokens of the line.
    const TokenList & Tokens()
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
    // The tokens as a list of their own, for an operation that reads on in the file and takes one. What the list held
    // goes; it is returned.
    LineTokens & CopyTokens(LineTokens & tokens);

private:
    bool NextUnexpected();
    bool NextAside();
    bool ReadHostLine();
    void TestLine(const LineStart & look);
    void TestFormOfItsOwn();
    void TestWholeLine();
    void TestFirstToken(const LineStart & look);
    void BlankBothEnds();

    CStdioFile & m_file;
    LineFile & m_lines;
    ReadObserver * const m_observer;
    const LineForm m_form;
    const bool m_isPlainFile;
    // The heads of its lines are remembered: of plain lines of a plain file that nobody looks at.
    const bool m_isExpecting;
    std::string_view m_line;
    // What the tests look at, with its set of characters, and where the line goes on behind it.
    std::string_view m_tested;
    CharacterSet m_testedSet = 0;
    std::size_t m_restAt = 0;
    bool m_isWhole = false;
};

}  // namespace ipc2581::detail

#endif
