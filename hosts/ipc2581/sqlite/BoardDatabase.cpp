#include "hosts/ipc2581/sqlite/BoardDatabase.h"

#include <import/shapes/Units.h>

#include "hosts/ipc2581/board/BoardSize.h"
#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/files/Sha256.h"
#include "hosts/ipc2581/sqlite/Schema.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

void MakeTables(Connection & connection)
{
    connection.Run(Schema());
    // A board is replaced by its rows, which stand together: an index on them costs little.
    for (const std::string table : TablesOfABoard) {
        std::string index = "CREATE INDEX ";
        index.append(table).append("_of_board ON ").append(table).append(" (board_id)");
        connection.Run(index);
    }
    connection.Run(std::string("PRAGMA application_id = ").append(std::to_string(SchemaId)));
    connection.Run(std::string("PRAGMA user_version = ").append(std::to_string(SchemaVersion)));
}

}  // namespace

BoardDatabase::BoardDatabase(const std::string & path) : m_connection(path)
{
    Prepare(path);
    m_rows.emplace(m_connection);
}

void BoardDatabase::Prepare(const std::string & path)
{
    // What belongs to a board goes all at once, in whatever order. In memory, a board of usual size fits.
    m_connection.Run("PRAGMA foreign_keys = OFF; PRAGMA cache_size = -65536");
    Transaction transaction(m_connection);
    if (m_connection.Number("SELECT count(*) FROM sqlite_master") == 0) {
        MakeTables(m_connection);
    }
    else if (m_connection.Number("PRAGMA application_id") != SchemaId) {
        throw DatabaseError(path, "is a database of something else than boards");
    }
    else if (m_connection.Number("PRAGMA user_version") != SchemaVersion) {
        throw DatabaseError(path, "is a database of another version; read its boards into a new one");
    }
    transaction.Commit();
}

void BoardDatabase::Put(Board & board)
{
    // Takes its time, in which others may write.
    const std::string hash = Sha256OfFile(board.File().PlainPath());
    Transaction transaction(m_connection);
    const std::int64_t id = PutBoard(board, hash);
    m_rows->Remove(id);
    m_rows->Add(board, id);
    transaction.Commit();
}

std::int64_t BoardDatabase::PutBoard(Board & board, const std::string & hash)
{
    const std::string & file = board.File().Name();
    const auto known = Statement(m_connection, "SELECT id FROM boards WHERE file = ?").Number(file);
    if (!known.has_value()) {
        Statement(m_connection, "INSERT INTO boards (file, content_hash) VALUES (?, '')").Run(file);
    }
    const std::int64_t id = known.has_value() ? *known : m_connection.LastId();
    const Lengths lengths(board);
    const double millimeters = MillimetresOf(std::string_view(board.Root().m_Ecad.m_CadHeader.units));
    Statement(m_connection,
              "UPDATE boards SET content_hash = ?, name = ?, step = ?, units = ?, millimeters = ?, thickness = ?, "
              "assembly = ?, remarks = ? WHERE id = ?")
        .Run(hash, Shown(board.Root().m_Ecad.name), Shown(board.Step().Name), lengths.Word(),
             millimeters == 0.0 ? std::nullopt : std::optional(millimeters),
             NumberOf(ThicknessOf(board.CadData().m_Stackup, lengths).Text()), Shown(board.Root().m_Bom.assembly),
             board.Report() == nullptr ? std::nullopt : std::optional(board.Report()->RemarkCount()), id);
    return id;
}

}  // namespace ipc2581::host
