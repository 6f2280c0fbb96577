#include "hosts/ipc2581/sqlite/Connection.h"

#include <filesystem>

#include <sqlite3.h>

namespace ipc2581::host {
namespace {

// How long to wait for others that write, in milliseconds.
constexpr int Patience = 60000;

}  // namespace

// SQLite takes some names, such as ":memory:", for something else than a file, but no whole path.
Connection::Connection(const std::string & path) : m_path(path)
{
    const std::string whole = std::filesystem::absolute(path).string();
    const int status = sqlite3_open_v2(whole.c_str(), &m_handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (status != SQLITE_OK) {
        const std::string cause = sqlite3_errmsg(m_handle);
        sqlite3_close(m_handle);
        throw DatabaseError(path, cause);
    }
    sqlite3_busy_timeout(m_handle, Patience);
}

Connection::~Connection()
{
    sqlite3_close(m_handle);
}

void Connection::Check(int status) const
{
    if (status != SQLITE_OK && status != SQLITE_DONE && status != SQLITE_ROW) {
        throw DatabaseError(m_path, sqlite3_errmsg(m_handle));
    }
}

void Connection::Run(const std::string & statements)
{
    Check(sqlite3_exec(m_handle, statements.c_str(), nullptr, nullptr, nullptr));
}

std::optional<std::int64_t> Connection::Number(const std::string & statement)
{
    return Statement(*this, statement).Number("");
}

std::int64_t Connection::LastId() const
{
    return sqlite3_last_insert_rowid(m_handle);
}

Transaction::Transaction(Connection & connection) : m_connection(connection)
{
    m_connection.Run("BEGIN IMMEDIATE");
}

// SQLite may have taken it back by itself; what that says is of no use.
Transaction::~Transaction()
{
    if (!m_isDone) {
        sqlite3_exec(m_connection.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::Commit()
{
    m_connection.Run("COMMIT");
    m_isDone = true;
}

Statement::Statement(Connection & connection, const std::string & text) : m_connection(connection)
{
    m_connection.Check(sqlite3_prepare_v3(m_connection.Handle(), text.c_str(), static_cast<int>(text.size()),
                                          SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr));
}

Statement::~Statement()
{
    sqlite3_finalize(m_statement);
}

// The values live until the statement has run.
void Statement::Bind(std::string_view text)
{
    if (text.empty()) {
        BindNull();
        return;
    }
    m_connection.Check(
        sqlite3_bind_text(m_statement, ++m_place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC));
}

void Statement::Bind(std::int64_t number)
{
    m_connection.Check(sqlite3_bind_int64(m_statement, ++m_place, number));
}

void Statement::Bind(double number)
{
    m_connection.Check(sqlite3_bind_double(m_statement, ++m_place, number));
}

void Statement::BindNull()
{
    m_connection.Check(sqlite3_bind_null(m_statement, ++m_place));
}

bool Statement::Step()
{
    const int status = sqlite3_step(m_statement);
    m_connection.Check(status);
    const bool hasRow = status == SQLITE_ROW;
    if (!hasRow) {
        m_connection.Check(sqlite3_reset(m_statement));
    }
    return hasRow;
}

std::optional<std::int64_t> Statement::Number(std::string_view text)
{
    m_place = 0;
    if (!text.empty()) {
        Bind(text);
    }
    if (!Step()) {
        return std::nullopt;
    }
    const std::int64_t number = sqlite3_column_int64(m_statement, 0);
    const bool isNull = sqlite3_column_type(m_statement, 0) == SQLITE_NULL;
    m_connection.Check(sqlite3_reset(m_statement));
    return isNull ? std::nullopt : std::optional(number);
}

}  // namespace ipc2581::host
