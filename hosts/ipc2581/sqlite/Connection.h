#ifndef IPC2581_HOSTS_IPC2581_SQLITE_CONNECTION_H
#define IPC2581_HOSTS_IPC2581_SQLITE_CONNECTION_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/ipc2581/files/Error.h"

struct sqlite3;
struct sqlite3_stmt;

// SQLite as far as a database of boards needs it.
namespace ipc2581::host {

// What a database has not done. No other board will fare better.
class DatabaseError : public Error {
public:
    using Error::Error;
};

class Connection {
public:
    // Creates the database if it is not there. Throws DatabaseError.
    explicit Connection(const std::string & path);
    Connection(const Connection &) = delete;
    Connection & operator=(const Connection &) = delete;
    ~Connection();

    // Statements without a result. Throws DatabaseError.
    void Run(const std::string & statements);
    // The number that a statement gives; nothing if it gives none. Throws DatabaseError.
    std::optional<std::int64_t> Number(const std::string & statement);
    [[nodiscard]] std::int64_t LastId() const;
    [[nodiscard]] sqlite3 * Handle() const { return m_handle; }
    // Throws DatabaseError with what SQLite says, unless the status is one of success.
    void Check(int status) const;

private:
    std::string m_path;
    sqlite3 * m_handle = nullptr;
};

// What was changed in a database since, all at once or not at all.
class Transaction {
public:
    // Waits for others that write. Throws DatabaseError.
    explicit Transaction(Connection & connection);
    Transaction(const Transaction &) = delete;
    Transaction & operator=(const Transaction &) = delete;
    // Takes back what is not committed.
    ~Transaction();

    void Commit();

private:
    Connection & m_connection;
    bool m_isDone = false;
};

// A statement that is run again and again. The connection must outlive it.
class Statement {
public:
    Statement(Connection & connection, const std::string & text);
    Statement(const Statement &) = delete;
    Statement & operator=(const Statement &) = delete;
    ~Statement();

    // Runs it with these values in their order; an empty text is null. Throws DatabaseError.
    template <typename... Values>
    void Run(const Values &... values)
    {
        m_place = 0;
        (Bind(values), ...);
        Step();
    }
    // The same of one that gives a row with a number; nothing if it gives none.
    std::optional<std::int64_t> Number(std::string_view text);

private:
    void Bind(std::string_view text);
    void Bind(const std::string & text) { Bind(std::string_view(text)); }
    void Bind(const char * text) { Bind(std::string_view(text)); }
    void Bind(std::int64_t number);
    void Bind(std::size_t number) { Bind(static_cast<std::int64_t>(number)); }
    void Bind(double number);
    void Bind(bool flag) { Bind(static_cast<std::int64_t>(flag)); }
    template <typename Value>
    void Bind(const std::optional<Value> & value)
    {
        value.has_value() ? Bind(*value) : BindNull();
    }
    void BindNull();
    bool Step();

    Connection & m_connection;
    sqlite3_stmt * m_statement = nullptr;
    int m_place = 0;
};

}  // namespace ipc2581::host

#endif
