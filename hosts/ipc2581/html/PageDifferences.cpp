#include "hosts/ipc2581/html/PageDifferences.h"

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/diff/BoardDifferences.h"

namespace ipc2581::host {

Table DifferenceTable(Board & before, Board & after, const std::string & unit)
{
    const Lengths lengths(before, unit);
    const Lengths otherLengths(after, unit);
    return DifferencesOf({before, lengths}, {after, otherLengths}).Rows();
}

}  // namespace ipc2581::host
