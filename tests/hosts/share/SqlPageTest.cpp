#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include "hosts/ipc2581/sqlite/Schema.h"
#include "hosts/ipc2581/table/Table.h"
#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Page = IPC2581_SOURCE_FOLDER "/docs/sql.md";
constexpr const char * Fence = "```";

// The page in parts that are alternately text and a fenced block.
std::vector<std::string> PartsOf(const std::string & page)
{
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (std::size_t at = page.find(Fence); at != std::string::npos; at = page.find(Fence, begin)) {
        parts.push_back(page.substr(begin, at - begin));
        begin = at + std::string(Fence).size();
    }
    parts.push_back(page.substr(begin));
    return parts;
}

host::Cell CellOf(sqlite3_stmt * statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return std::int64_t(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        return std::string(reinterpret_cast<const char *>(sqlite3_column_text(statement, column)));
    }
}

std::string AnswerOf(sqlite3 * database, const std::string & query)
{
    sqlite3_stmt * statement = nullptr;
    if (sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        return sqlite3_errmsg(database);
    }
    std::vector<host::Column> columns;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        columns.emplace_back(sqlite3_column_name(statement, i));
    }
    host::Table table("rows", columns);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        host::Row row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            row.push_back(CellOf(statement, i));
        }
        table.Add(std::move(row));
    }
    sqlite3_finalize(statement);
    std::ostringstream out;
    table.Print(out, host::Format::Table, {});
    return out.str();
}

// Those of the examples, as the page says.
std::string Database(const TempFolder & folder)
{
    const std::string path = folder.Path("boards.sqlite");
    RunShell("cd '" IPC2581_SOURCE_FOLDER "/examples' && ipc2581 sqlite board.cvg import/*.xml -o '" + path + "'");
    return path;
}

TEST(SqlPage, ShowsWhatTheQueriesGiveAndTheTables)
{
    const TempFolder folder;
    sqlite3 * database = nullptr;
    ASSERT_EQ(sqlite3_open(Database(folder).c_str(), &database), SQLITE_OK);
    const std::string page = Bytes(Page);
    std::vector<std::string> parts = PartsOf(page);
    ASSERT_EQ(parts.size() % 2, 1U);
    std::size_t queries = 0;
    for (std::size_t i = 1; i + 2 < parts.size(); i += 4) {
        ASSERT_TRUE(parts[i].starts_with("sql\n")) << parts[i];
        ASSERT_EQ(parts[i + 1], "\n\n");
        parts[i + 2] = "\n" + AnswerOf(database, parts[i].substr(4));
        ++queries;
    }
    sqlite3_close(database);
    parts[parts.size() - 2] = std::string("sql\n") + host::Schema();
    EXPECT_GE(queries, 10U);

    std::string made = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        made += Fence + parts[i];
    }
    if (std::getenv("IPC2581_UPDATE_GOLDEN") != nullptr) {
        std::ofstream(Page, std::ios::binary) << made;
    }
    EXPECT_EQ(Bytes(Page), made);
}

TEST(SqlPage, EachAnswerHasRows)
{
    const std::vector<std::string> parts = PartsOf(Bytes(Page));
    for (std::size_t i = 3; i < parts.size(); i += 4) {
        EXPECT_GE(std::count(parts[i].begin(), parts[i].end(), '\n'), 3) << parts[i - 2];
    }
}

}  // namespace
}  // namespace ipc2581::tests
