#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOARD_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOARD_H

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/BoardFile.h"

namespace ipc2581::host {

// A board that was read. The file is never changed.
class Board {
public:
    // The progress may be null, and is not used after the call. Throws Error for a file that cannot be read, for a line
    // that stops the read, and for a file in which the reader finds nothing at all.
    explicit Board(BoardFile file, CProgressCtrl * progress = nullptr);
    Board(const Board &) = delete;
    Board & operator=(const Board &) = delete;

    [[nodiscard]] const BoardFile & File() const { return m_file; }
    CIPC2581_Parser & Root() { return m_root; }
    CIPC2581_Content & Content() { return m_root.m_Content; }
    CIPC2581_Ecad_CadData & CadData() { return m_root.m_Ecad.m_CadData; }
    CIPC2581_Ecad_CadData_Step & Step() { return m_root.m_Ecad.m_CadData.m_Step; }

private:
    BoardFile m_file;
    CIPC2581_Parser m_root;
};

}  // namespace ipc2581::host

#endif
