#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sqlite3.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

using Json = nlohmann::json;
using Rows = std::vector<Json>;

constexpr const char * Examples = IPC2581_SOURCE_FOLDER "/examples/";

Json ValueOf(sqlite3_stmt * statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return nullptr;
    case SQLITE_INTEGER:
        return std::int64_t(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        return std::string(reinterpret_cast<const char *>(sqlite3_column_text(statement, column)));
    }
}

// The rows of an answer as objects.
Rows Asked(const std::string & path, const std::string & query)
{
    sqlite3 * database = nullptr;
    EXPECT_EQ(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK) << path;
    // A program that was killed may hold its locks for a moment.
    sqlite3_busy_timeout(database, 10000);
    sqlite3_stmt * statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << query << ": " << sqlite3_errmsg(database);
    Rows rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        Json & row = rows.emplace_back(Json::object());
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            row[sqlite3_column_name(statement, i)] = ValueOf(statement, i);
        }
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return rows;
}

// The only value of an answer.
Json One(const std::string & path, const std::string & query)
{
    const Rows rows = Asked(path, query);
    return rows.size() == 1 ? rows.front().begin().value() : Json("not one row");
}

void ExpectWhole(const std::string & path)
{
    EXPECT_EQ(One(path, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(Asked(path, "PRAGMA foreign_key_check"), Rows{});
}

bool IsSame(const Json & listed, const Json & stored)
{
    if (listed.is_number() && stored.is_number()) {
        return std::abs(listed.get<double>() - stored.get<double>()) < 1e-6;
    }
    return listed.is_boolean() ? stored == Json(listed.get<bool>() ? 1 : 0) : listed == stored;
}

// How many values of a listing are in the table too.
std::size_t ExpectListed(const Rows & listed, const Rows & stored, const std::string & table)
{
    EXPECT_EQ(listed.size(), stored.size()) << table;
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::min(listed.size(), stored.size()); ++i) {
        for (const auto & [key, value] : listed[i].items()) {
            if (stored[i].contains(key)) {
                EXPECT_TRUE(IsSame(value, stored[i][key])) << table << " " << key << " " << listed[i] << stored[i];
                ++count;
            }
        }
    }
    return count;
}

std::vector<std::string> ExampleBoards()
{
    std::vector<std::string> boards = {ExampleBoard()};
    for (const std::string & name : Names(std::string(Examples) + "import")) {
        boards.push_back(std::string(Examples) + "import/" + name);
    }
    return boards;
}

TEST(Sqlite, HasWhatTheListingsHave)
{
    struct Listing {
        std::string table;
        std::string key;
        std::vector<std::string> command;
        std::string order = "id";
    };
    const std::vector<Listing> listings = {
        {"layers", "layers", {"layers"}},
        {"stackup", "stackup", {"stackup"}},
        {"packages", "packages", {"packages"}},
        {"package_pins JOIN packages ON packages.id = package_id", "pins", {"pins"}, "package_pins.id"},
        {"components", "components", {"components"}},
        {"items", "items", {"bom"}},
        {"nets", "nets", {"nets"}},
        {"points", "points", {"nets", "--physical"}},
        {"pads", "pads", {"pads"}},
        {"holes", "holes", {"holes"}},
        {"tracks", "tracks", {"tracks"}}};
    for (const std::string & board : ExampleBoards()) {
        const TempFolder folder;
        const std::string database = folder.Path("boards.sqlite");
        ASSERT_EQ(RunProgram({"sqlite", board, "-o", database}).status, 0);
        ExpectWhole(database);
        for (const Listing & listing : listings) {
            std::vector<std::string> command = listing.command;
            command.insert(command.end(), {board, "--format", "json"});
            Rows listed = Json::parse(RunProgram(command).out)[listing.key];
            if (listing.key == "items") {
                // Where the item does not tell it, the listing has what its components tell.
                std::for_each(listed.begin(), listed.end(), [](Json & row) { row.erase("package"); });
            }
            // The pins of a package have columns of their own, such as the type, in front of those of the package.
            const std::string columns = listing.key == "pins" ? "package, package_pins.*" : "*";
            const Rows stored =
                Asked(database, "SELECT " + columns + " FROM " + listing.table + " ORDER BY " + listing.order);
            const std::size_t compared = ExpectListed(listed, stored, board + " " + listing.table);
            EXPECT_GE(compared, listed.size() * (listing.key == "nets" ? 2 : 4)) << listing.table;
        }
        const Json info = Json::parse(RunProgram({"info", "--all", board, "--format", "json"}).out);
        EXPECT_TRUE(IsSame(info["board"]["thickness"], One(database, "SELECT thickness FROM boards"))) << board;
        EXPECT_EQ(info["units"], One(database, "SELECT units FROM boards"));
        EXPECT_TRUE(IsSame(info["profile"]["right"], One(database, "SELECT max_x FROM steps WHERE is_read")));
        EXPECT_EQ(info["counts"]["logical_net_pins"], One(database, "SELECT count(*) FROM net_pins"));
        EXPECT_EQ(info["counts"]["bom_designators"], One(database, "SELECT count(*) FROM designators"));
        EXPECT_EQ(info["counts"]["bom_designators_fitted"],
                  One(database, "SELECT count(*) FROM designators WHERE fitted"));
        EXPECT_EQ(info["specs"].size(), One(database, "SELECT count(*) FROM specs"));
        EXPECT_EQ(info["warnings"].size(), One(database, "SELECT count(*) FROM notes"));
        const Json check = Json::parse(RunProgram({"check", board, "--format", "json"}).out);
        EXPECT_EQ(check["import"]["facts_without_a_place"], One(database, "SELECT count(*) FROM facts"));
        EXPECT_EQ(check["import"]["remarks_of_sets"], One(database, "SELECT remarks FROM boards"));
    }
}

TEST(Sqlite, IdsAreThoseOfTheNames)
{
    const TempFolder folder;
    const std::string database = folder.Path("boards.sqlite");
    std::vector<std::string> arguments = {"sqlite", "-o", database};
    for (const std::string & board : ExampleBoards()) {
        arguments.push_back(board);
    }
    ASSERT_EQ(RunProgram(arguments).status, 0);
    ExpectWhole(database);
    EXPECT_EQ(One(database, "SELECT count(*) FROM boards"), ExampleBoards().size());
    for (const std::string table : {"pads", "holes", "tracks", "points"}) {
        EXPECT_EQ(One(database, "SELECT count(*) FROM " + table +
                                    " AS a LEFT JOIN nets ON nets.id = a.net_id LEFT JOIN "
                                    "layers ON layers.id = a.layer_id WHERE a.net IS NOT nets.net OR a.layer IS NOT "
                                    "layers.layer OR layers.board_id <> a.board_id OR nets.board_id <> a.board_id"),
                  0)
            << table;
    }
    EXPECT_EQ(One(database, "SELECT count(*) FROM net_pins JOIN components ON components.id = component_id WHERE "
                            "net_pins.designator <> components.designator OR net_pins.board_id <> components.board_id"),
              0);
    EXPECT_EQ(One(database, "SELECT count(*) FROM net_pins WHERE component_id IS NULL"), 0);
    EXPECT_EQ(One(database,
                  "SELECT designator FROM pads JOIN components ON components.id = component_id WHERE pads.pin "
                  "= 'U1.5' AND pads.net = 'CTRL'"),
              "U1");
    EXPECT_EQ(One(database, "SELECT group_concat(name, ' ') FROM steps WHERE NOT is_read"), "panel coupon");
}

// A board of which the import reports what a database has columns for.
std::string ReportedBoard()
{
    return "<IPC-2581 revision=\"B\"><Content><FunctionMode mode=\"BOM\"/></Content><Bom name=\"b\">"
           "<BomItem OEMDesignNumberRef=\"N&amp;1\" quantity=\"1\"><RefDes name=\"R1\" populate=\"true\"/>"
           "<Characteristics category=\"ELECTRICAL\">"
           "<Textual textualCharacteristicName=\"VALUE\" textualCharacteristicValue=\"1k\"/>"
           "<Measured measuredCharacteristicName=\"R\" measuredCharacteristicValue=\"1\" "
           "engineeringUnitOfMeasure=\"KOHM\"/>"
           "<Ranged rangedCharacteristicName=\"T\" rangedCharacteristicLowerValue=\"-40\" "
           "rangedCharacteristicUpperValue=\"85\"/>"
           "<Enumerated enumeratedCharacteristicName=\"C\" enumeratedCharacteristicValue=\"X7R\"/>"
           "</Characteristics></BomItem></Bom>"
           "<Avl name=\"a\"><AvlItem OEMDesignNumber=\"N&amp;1\"><AvlVmpn><AvlMpn name=\"P1\" availability=\"false\"/>"
           "<AvlVendor enterpriseRef=\"M1\"/></AvlVmpn></AvlItem></Avl>"
           "<Ecad name=\"e\"><CadHeader units=\"INCH\"/><CadData><Step name=\"s\"/></CadData></Ecad></IPC-2581>\n";
}

TEST(Sqlite, HasWhatAnImportReports)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.xml", ReportedBoard());
    const std::string database = folder.Path("boards.sqlite");
    EXPECT_EQ(RunProgram({"sqlite", board, "-o", database}), (Result{0, "", ""}));
    EXPECT_EQ(
        Asked(database, "SELECT part_number, kind, name, characteristics.value, unit FROM characteristics JOIN "
                        "items ON items.id = item_id ORDER BY characteristics.id"),
        (Rows{{{"part_number", "N&1"}, {"kind", "Textual"}, {"name", "VALUE"}, {"value", "1k"}, {"unit", nullptr}},
              {{"part_number", "N&1"}, {"kind", "Measured"}, {"name", "R"}, {"value", "1"}, {"unit", "KOHM"}},
              {{"part_number", "N&1"}, {"kind", "Ranged"}, {"name", "T"}, {"value", "-40 85"}, {"unit", nullptr}},
              {{"part_number", "N&1"}, {"kind", "Enumerated"}, {"name", "C"}, {"value", "X7R"}, {"unit", nullptr}}}));
    EXPECT_EQ(Asked(database, "SELECT part_number, maker, part, availability FROM makers_parts WHERE item_id = (SELECT "
                              "id FROM items)"),
              (Rows{{{"part_number", "N&1"}, {"maker", "M1"}, {"part", "P1"}, {"availability", "false"}}}));
    EXPECT_EQ(One(database, "SELECT value FROM items"), "1k");
    EXPECT_EQ(One(database, "SELECT millimeters FROM boards"), 25.4);
    EXPECT_EQ(One(database, "SELECT attributes ->> 'revision' FROM facts WHERE path = 'IPC-2581' AND line = 1"), "B");
    EXPECT_EQ(One(database, "SELECT 'sha ' || content_hash FROM boards"),
              "sha " + RunShell("sha256sum < '" + board + "'").out.substr(0, 64));
}

TEST(Sqlite, ReplacesABoardThatIsReadAgain)
{
    const TempFolder folder;
    folder.Save("a.cvg", Bytes(ExampleBoard()));
    folder.Save("b.cvg", Bytes(ExampleBoard()));
    const std::string database = folder.Path("boards.sqlite");
    const auto run = [&](const std::vector<std::string> & boards) {
        std::vector<std::string> arguments = {"sqlite", "-o", "boards.sqlite"};
        arguments.insert(arguments.end(), boards.begin(), boards.end());
        return RunProgram(arguments, {.folder = folder.Path("")});
    };
    const std::string counts = "SELECT count(*) AS n, count(DISTINCT board_id) AS b FROM components";
    EXPECT_EQ(run({"a.cvg", "b.cvg"}), (Result{0, "", ""}));
    EXPECT_EQ(Asked(database, counts), (Rows{{{"n", 34}, {"b", 2}}}));
    Asked(database, "CREATE TABLE own AS SELECT 7 AS kept");
    const std::string board = Bytes(ExampleBoard());
    folder.Save("a.cvg", Bytes(std::string(Examples) + "import/smallest-board.xml"));
    EXPECT_EQ(run({"a.cvg"}), (Result{0, "", ""}));
    EXPECT_EQ(Asked(database, counts), (Rows{{{"n", 18}, {"b", 2}}}));
    EXPECT_EQ(One(database, "SELECT id FROM boards WHERE file = 'a.cvg' AND step = 'board'"), 1);
    EXPECT_EQ(One(database, "SELECT kept FROM own"), 7);
    ExpectWhole(database);
    // The same file under another name is another board; so is one that comes packed, of the same content.
    EXPECT_EQ(run({"./b.cvg"}), (Result{0, "", ""}));
    EXPECT_EQ(RunShell("gzip < b.cvg > c.gz && ipc2581 sqlite c.gz -o boards.sqlite", folder.Path("")),
              (Result{0, "", ""}));
    EXPECT_EQ(One(database, "SELECT count(*) FROM boards GROUP BY content_hash HAVING count(*) > 1"), 3);
}

TEST(Sqlite, GoesOnPastBrokenBoards)
{
    const TempFolder folder;
    folder.Save("a.cvg", Bytes(ExampleBoard()));
    folder.Save("b.cvg", Bytes(ExampleBoard()));
    const Setting setting = {.folder = folder.Path("")};
    ASSERT_EQ(RunProgram({"sqlite", "a.cvg", "-o", "boards.sqlite"}, setting), (Result{0, "", ""}));
    folder.Save("a.cvg", "<IPC-2581>\n<Content>\n");
    const Result result = RunProgram({"sqlite", "a.cvg", "missing.cvg", "b.cvg", "-o", "boards.sqlite"}, setting);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 2) << result.err;
    EXPECT_NE(result.err.find("ipc2581: a.cvg:3: "), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("ipc2581: missing.cvg: No such file or directory\n"), std::string::npos) << result.err;
    EXPECT_EQ(Asked(folder.Path("boards.sqlite"),
                    "SELECT file, count(*) AS n FROM boards JOIN components ON board_id = "
                    "boards.id GROUP BY file"),
              (Rows{{{"file", "a.cvg"}, {"n", 17}}, {{"file", "b.cvg"}, {"n", 17}}}));
}

TEST(Sqlite, RefusesWhatIsNoDatabaseOfBoards)
{
    const TempFolder folder;
    const std::string text = folder.Save("text", std::string(5000, 'x'));
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", text}), Failure(text + ": file is not a database"));
    EXPECT_EQ(Bytes(text), std::string(5000, 'x'));
    const std::string other = folder.Save("other.sqlite", "");
    Asked(other, "CREATE TABLE own (kept)");
    const std::string before = Bytes(other);
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", other}),
              Failure(other + ": is a database of something else than boards"));
    EXPECT_EQ(Bytes(other), before);
    const std::string later = folder.Path("later.sqlite");
    ASSERT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", later}).status, 0);
    Asked(later, "PRAGMA user_version = 2");
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", later}),
              Failure(later + ": is a database of another version; read its boards into a new one"));
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", ExampleBoard()}).status, 1);
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", "-"}),
              Failure("-: is no file that a database can be written to"));
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", ""}),
              Failure("\"\": is no file that a database can be written to"));
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", "boards.gz"}),
              Failure("boards.gz: is the name of a packed file, and a database is not packed"));
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", folder.Path("no/boards")}),
              Failure(folder.Path("no/boards") + ": unable to open database file"));
    EXPECT_EQ(RunProgram({"sqlite", ExampleBoard()}), WrongUsage("--output is required"));
}

TEST(Sqlite, KnowsTheOptionsOfReading)
{
    const TempFolder folder;
    const std::string panel = std::string(Examples) + "import/panel.xml";
    const std::string database = folder.Path("boards.sqlite");
    EXPECT_EQ(RunProgram({"sqlite", "--strict", panel, "-o", database}).status, 3);
    EXPECT_EQ(One(database, "SELECT step FROM boards"), "board");
    EXPECT_EQ(RunProgram({"sqlite", "--step", "coupon", panel, "-o", database}).status, 0);
    EXPECT_EQ(One(database, "SELECT step FROM boards"), "coupon");
    EXPECT_EQ(RunProgram({"sqlite", "--exact", ExampleBoard(), "-o", database}).status, 0);
    EXPECT_EQ(One(database, "SELECT count(*) FROM boards WHERE remarks IS NULL"), 1);
    EXPECT_EQ(One(database, "SELECT count(*) FROM tracks JOIN boards ON boards.id = board_id WHERE remarks IS NULL"),
              Json::parse(RunProgram({"tracks", "--exact", ExampleBoard(), "-f", "json"}).out)["tracks"].size());
    const Setting piped = {.input = ExampleBoard()};
    EXPECT_EQ(RunProgram({"sqlite", "-", "-o", database}, piped), (Result{0, "", ""}));
    EXPECT_EQ(One(database, "SELECT count(*) FROM boards WHERE file = 'standard input'"), 1);
}

TEST(Sqlite, AFullDiskLeavesWholeBoards)
{
    const TempFolder folder;
    const std::string database = folder.Path("boards.sqlite");
    ASSERT_EQ(RunProgram({"sqlite", ExampleBoard(), "-o", database}), (Result{0, "", ""}));
    const std::size_t size = Bytes(database).size();
    std::filesystem::copy(ExampleBoard(), folder.Path("other.cvg"));
    const Result result =
        RunProgram({"sqlite", folder.Path("other.cvg"), ExampleBoard(), "-o", database}, {.fileLimit = size});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_TRUE(result.err.starts_with("ipc2581: " + database + ": ")) << result.err;
    EXPECT_EQ(Bytes(database).size(), size);
    EXPECT_EQ(One(database, "SELECT count(*) FROM boards"), 1);
    ExpectWhole(database);
}

TEST(Sqlite, AKilledRunLeavesWholeBoards)
{
    const TempFolder folder;
    const std::string database = folder.Path("boards.sqlite");
    std::string boards;
    for (int i = 0; i < 40; ++i) {
        const std::string name = "b" + std::to_string(i) + ".cvg";
        std::filesystem::copy(ExampleBoard(), folder.Path(name));
        boards += " " + name;
    }
    std::size_t killed = 0;
    for (const std::string seconds : {"0.05", "0.09", "0.13", "0.17", "0.21", "0.25", "0.3", "0.4"}) {
        killed +=
            RunShell("timeout -s KILL " + seconds + " ipc2581 sqlite" + boards + " -o boards.sqlite", folder.Path(""))
                        .status == 137
                ? 1U
                : 0U;
        if (!std::filesystem::exists(database) || std::filesystem::file_size(database) == 0) {
            continue;
        }
        ExpectWhole(database);
        EXPECT_EQ(Asked(database, "SELECT file FROM boards LEFT JOIN components ON board_id = boards.id GROUP BY file "
                                  "HAVING count(components.id) <> 17"),
                  Rows{});
        EXPECT_EQ(Asked(database, "SELECT file FROM boards LEFT JOIN facts ON board_id = boards.id GROUP BY file "
                                  "HAVING count(facts.id) <> 12"),
                  Rows{});
    }
    EXPECT_NE(killed, 0U);
    ASSERT_EQ(RunShell("ipc2581 sqlite" + boards + " -o boards.sqlite", folder.Path("")), (Result{0, "", ""}));
    EXPECT_EQ(One(database, "SELECT count(*) FROM boards"), 40);
    ExpectWhole(database);
}

}  // namespace
}  // namespace ipc2581::tests
