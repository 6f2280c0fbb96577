#ifndef IPC2581_HOSTS_IPC2581_BOARD_LENGTHS_H
#define IPC2581_HOSTS_IPC2581_BOARD_LENGTHS_H

#include <string>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// Units as a listing tells them: the word of a file in lower case, or nothing for one that is none.
std::string UnitsWord(const CString & units);

// The unit in which the lengths of a board are listed.
class Lengths {
public:
    // Their short names: "mm", "inch", "mil", "um".
    static std::vector<std::string> Units();

    // In the unit of this short name; if it is empty, in the units of the board. Throws Error for a board whose units
    // nobody knows, as nothing can be converted from them.
    explicit Lengths(Board & board, const std::string & unit = "");

    [[nodiscard]] double Of(double length) const { return length * m_scale; }
    // Of a text of the board; nothing for none.
    [[nodiscard]] Cell Of(const CString & text) const;
    // A column of lengths, or the name of one.
    [[nodiscard]] Column Named(const std::string & title) const;
    // The short name of the unit; empty if nobody knows it.
    [[nodiscard]] const std::string & ShortName() const { return m_unit; }
    // The unit as files say it, in lower case; empty if nobody knows it: "millimeter".
    [[nodiscard]] const std::string & Word() const { return m_word; }

private:
    double m_scale = 1.0;
    std::string m_word;
    std::string m_unit;
};

}  // namespace ipc2581::host

#endif
