#ifndef IPC2581_HOSTS_IPC2581_SQLITE_BOARDROWS_H
#define IPC2581_HOSTS_IPC2581_SQLITE_BOARDROWS_H

#include <cstdint>
#include <memory>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/sqlite/Connection.h"

namespace ipc2581::host {

// Writes what belongs to a board into the tables of a database. The connection must outlive it.
class BoardRows {
public:
    explicit BoardRows(Connection & connection);
    BoardRows(const BoardRows &) = delete;
    BoardRows & operator=(const BoardRows &) = delete;
    ~BoardRows();

    // Takes all rows of the board away.
    void Remove(std::int64_t boardId);
    // Throws DatabaseError.
    void Add(Board & board, std::int64_t boardId);

private:
    class Tables;

    std::unique_ptr<Tables> m_tables;
};

}  // namespace ipc2581::host

#endif
