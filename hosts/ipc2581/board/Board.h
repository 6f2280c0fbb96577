#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOARD_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOARD_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <import/Import.h>
#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/BoardFile.h"

namespace ipc2581::host {

// How a board is read.
struct Reading {
    // By the reader of the core, which takes one element a line; otherwise by the import.
    bool isExact = false;
    // The step to import; if it is empty, the import chooses.
    std::string step = {};
    // Whether whoever reads it takes any loss for a failure. Reading does not depend on it.
    bool isStrict = false;
    // Whether another thread has as much to do at the same time, so that the import does with the one that it is called
    // in. What is read does not depend on it.
    bool isBesideAnother = false;
    // How many bytes the model may take; 0 for the bound of memory for a board.
    std::uint64_t memoryLimit = 0;
};

// A board that was read. The file is never changed.
class Board {
public:
    // The progress may be null, and is not used after the call. Throws Error for a file that cannot be read, and for
    // one that the reader does not take: a file that is not whole, and by the reader of the core one with a line that
    // stops it, or without anything that it knows.
    explicit Board(BoardFile file, const Reading & reading = {}, CProgressCtrl * progress = nullptr);
    Board(const Board &) = delete;
    Board & operator=(const Board &) = delete;

    [[nodiscard]] const BoardFile & File() const { return m_file; }
    [[nodiscard]] const Reading & HowRead() const { return m_reading; }
    // What the import has found no member for; null for a board that the reader of the core has read.
    [[nodiscard]] const ImportReport * Report() const { return m_report.has_value() ? &*m_report : nullptr; }
    CIPC2581_Parser & Root() { return *m_root; }
    CIPC2581_Content & Content() { return m_root->m_Content; }
    CIPC2581_Ecad_CadData & CadData() { return m_root->m_Ecad.m_CadData; }
    CIPC2581_Ecad_CadData_Step & Step() { return m_root->m_Ecad.m_CadData.m_Step; }

    // Leaves the model and the report to the end of the process, which has done with them sooner than it takes to take
    // them apart. Nothing of this board but its file is used any more.
    void LeaveToProcess();

private:
    void ReadExactly(CProgressCtrl * progress);
    void ReadByImport(CProgressCtrl * progress);

    BoardFile m_file;
    Reading m_reading;
    std::unique_ptr<CIPC2581_Parser> m_root;
    std::optional<ImportReport> m_report;
};

}  // namespace ipc2581::host

#endif
