#include "hosts/ipc2581/board/Board.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

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

bool HasEndOfDocument(std::string_view text)
{
    constexpr std::string_view end = "</IPC-2581";
    const std::size_t at = text.rfind(end);
    const std::size_t behind = at == std::string_view::npos ? at : text.find_first_not_of(' ', at + end.size());
    return behind != std::string_view::npos && text[behind] == '>';
}

// The reader takes a file that ends early for a whole one.
void RefuseCutFile(const BoardFile & board)
{
    std::ifstream file(board.PlainPath(), std::ios::binary);
    constexpr std::streamoff usual = 100;
    file.seekg(-usual, std::ios::end);
    const std::string tail{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (HasEndOfDocument(tail)) {
        return;
    }
    file.clear();
    file.seekg(0);
    std::size_t lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        if (HasEndOfDocument(line)) {
            return;
        }
    }
    throw Error(board.Name(), lines, "the file ends without </IPC-2581>, so it is not whole");
}

// Those that have not been read, which is all of them where the one that was asked for is not there.
std::string StepsOf(const ImportReport & report)
{
    std::string steps;
    for (const Note & note : report.Notes()) {
        if (note.kind == NoteKind::StepLeftOut) {
            steps.append(steps.empty() ? "; it has " : ", ").append(OneLine(note.text.substr(note.text.find('"'))));
        }
    }
    return steps;
}

}  // namespace

Board::Board(BoardFile file, const Reading & reading, CProgressCtrl * progress)
    : m_file(std::move(file)), m_reading(reading)
{
    reading.isExact ? ReadExactly(progress) : ReadByImport(progress);
}

void Board::LeaveToProcess()
{
    using Left = std::pair<std::unique_ptr<CIPC2581_Parser>, std::optional<ImportReport>>;
    // Reached for ever, so that it is no leak.
    static auto & allLeft = *new std::vector<Left>;
    allLeft.emplace_back(std::move(m_root), std::move(m_report));
}

void Board::ReadByImport(CProgressCtrl * progress)
{
    const std::string & step = m_reading.step;
    ImportOptions options;
    options.step = step;
    options.inOneThread = m_reading.isBesideAnother;
    options.memoryLimit = m_reading.memoryLimit;
    Imported imported = ImportModel(m_file, std::move(options), progress);
    m_root = std::move(imported.board);
    m_report = std::move(imported.report);
    if (!step.empty() && Shown(Step().Name) != step) {
        throw Error(m_file.Name(), "has no step \"" + step + "\"" + StepsOf(*m_report));
    }
}

void Board::ReadExactly(CProgressCtrl * progress)
{
    m_root = std::make_unique<CIPC2581_Parser>();
    CIPC2581_XmlLiteReader reader;
    if (!ReadModel(m_file, reader, *m_root, progress, m_reading.memoryLimit)) {
        throw StopError(m_file, reader.m_File);
    }
    if (reader.m_arrSectionLog.IsEmpty()) {
        throw Error(m_file.Name(), NoSection);
    }
    RefuseCutFile(m_file);
}

}  // namespace ipc2581::host
