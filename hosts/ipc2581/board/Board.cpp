#include "hosts/ipc2581/board/Board.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

constexpr std::string_view NoSection = "contains no section of an IPC-2581 document";

std::size_t CountLines(CStdioFile & file)
{
    std::size_t count = 0;
    CString line;
    while (file.ReadString(line) != 0) {
        ++count;
    }
    return count;
}

std::string_view StopCause(std::string_view line)
{
    if (line.empty()) {
        return "an empty line inside the Content section stops the read";
    }
    if (line.find_first_not_of(' ') == std::string_view::npos) {
        return "a line of blanks stops the read";
    }
    return "a value that is cut off at the end of its line stops the read";
}

// The reader stops at the last line that it has taken, and its file stays open behind that line.
Error StopError(const BoardFile & board, CStdioFile & stopped)
{
    const std::size_t behind = CountLines(stopped);
    CStdioFile file;
    file.Open(board.PlainPath().c_str(), CStdioFile::modeRead, nullptr);
    const std::size_t number = CountLines(file) - behind;
    file.Open(board.PlainPath().c_str(), CStdioFile::modeRead, nullptr);
    CString line;
    for (std::size_t i = 0; i < number; ++i) {
        file.ReadString(line);
    }
    return {board.Name(), number, StopCause(line)};
}

}  // namespace

Board::Board(BoardFile file, const Reading & reading, CProgressCtrl * progress) : m_file(std::move(file))
{
    reading.isExact ? ReadExactly(progress) : ReadByImport(reading.step, progress);
}

void Board::ReadByImport(const std::string & step, CProgressCtrl * progress)
{
    Imported imported = ImportModel(m_file, step, progress);
    m_root = std::move(imported.board);
    m_report = std::move(imported.report);
    if (m_report->Elements().size() <= 1) {
        throw Error(m_file.Name(), NoSection);
    }
    if (!step.empty() && Shown(Step().Name) != step) {
        throw Error(m_file.Name(), "has no step \"" + step + "\"");
    }
}

void Board::ReadExactly(CProgressCtrl * progress)
{
    m_root = std::make_unique<CIPC2581_Parser>();
    CIPC2581_XmlLiteReader reader;
    if (!ReadModel(m_file, reader, *m_root, progress)) {
        throw StopError(m_file, reader.m_File);
    }
    if (reader.m_arrSectionLog.IsEmpty()) {
        throw Error(m_file.Name(), NoSection);
    }
}

}  // namespace ipc2581::host
