#ifndef IPC2581_HOSTS_IPC2581_SQLITE_BOARDDATABASE_H
#define IPC2581_HOSTS_IPC2581_SQLITE_BOARDDATABASE_H

#include <cstdint>
#include <optional>
#include <string>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/sqlite/BoardRows.h"
#include "hosts/ipc2581/sqlite/Connection.h"

namespace ipc2581::host {

// Many boards in one SQLite file, to be asked in SQL.
class BoardDatabase {
public:
    // Creates it if it is not there. What others have put into it stays. Throws DatabaseError for a file that is no
    // database of boards.
    explicit BoardDatabase(const std::string & path);

    // Puts the board there, in place of one that was read from a file of the same name: all of it, or nothing if
    // something fails. Throws DatabaseError.
    void Put(Board & board);

private:
    void Prepare(const std::string & path);
    std::int64_t PutBoard(Board & board, const std::string & hash);

    Connection m_connection;
    std::optional<BoardRows> m_rows;
};

}  // namespace ipc2581::host

#endif
