#ifndef IPC2581_BASE_LINES_LINEHEAD_H
#define IPC2581_BASE_LINES_LINEHEAD_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "ipc2581/base/lines/FirstToken.h"
#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/lines/Word.h"

namespace ipc2581::detail {

// A line up to the end of its first token, with what the tests of the line need to know of it.
struct LineHead {
    std::array<char, HeadSize> text = {};
    HeadBits bits;  // of the text
    CharacterSet set = 0;
    std::size_t plainRestAt = 0;  // where the line goes on, if there is no "=" in the token
    std::uint8_t size = 0;        // of the text
    std::uint8_t tested = 0;      // where the token begins, without its brackets,
    std::uint8_t testedSize = 0;  // and how long it is
    bool isIndented = false;      // blanks stand in front of it
    // The heads of the lines that came behind such a line, the one that was found last first.
    std::array<LineHead *, 4> next = {};
};

// Remembers the heads of lines and which of them came behind which, since a file repeats itself. The texts must stand
// in a buffer with ReadAhead bytes behind its last one.
class LineHeads {
public:
    LineHeads();
    LineHeads(const LineHeads &) = delete;
    LineHeads & operator=(const LineHeads &) = delete;

    // A head that came behind the last one, if the line begins with it; else null. What stands behind it may still show
    // that the token goes on.
    const LineHead * Expected(const char * line)
    {
        for (LineHead * const head : m_last->next) {
            if (head->bits.AreEqual(line, head->text.data())) {
                m_expected = head;
                return head;
            }
        }
        return nullptr;
    }
    // The expected head is that of the line.
    void TakeExpected() { m_last = m_expected; }
    // Remembers the head of a line whose first token is not dirty.
    void Remember(std::string_view head, std::size_t tokenAt, const FirstToken & token, std::size_t plainRestAt);

private:
    LineHead & FindPlace(std::string_view head);

    // The first one is for the line before the first, and for all of which nothing is known.
    std::array<LineHead, 256> m_heads;
    LineHead * m_last = nullptr;
    LineHead * m_expected = nullptr;
};

}  // namespace ipc2581::detail

#endif
