#include "hosts/ipc2581/html/PageData.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "hosts/ipc2581/drawing/BoardDrawing.h"
#include "hosts/ipc2581/html/IntegerColumn.h"
#include "tests/hosts/Program.h"

using namespace ipc2581::host;
using nlohmann::json;

namespace ipc2581::tests {
namespace {

constexpr const char * ExampleBoard = IPC2581_SOURCE_FOLDER "/examples/board.cvg";

// The numbers of a column as a page reads them.
std::vector<std::int64_t> Numbers(std::string_view bytes, bool isDelta)
{
    std::vector<std::int64_t> numbers;
    std::uint64_t rest = 0;
    unsigned shift = 0;
    std::int64_t last = 0;
    for (const char byte : bytes) {
        rest |= std::uint64_t(static_cast<unsigned char>(byte) & 0x7fU) << shift;
        shift += 7;
        if ((static_cast<unsigned char>(byte) & 0x80U) != 0) {
            continue;
        }
        const auto half = static_cast<std::int64_t>(rest >> 1U);
        const std::int64_t told = (rest & 1U) != 0 ? -half - 1 : half;
        last = isDelta ? last + told : told;
        numbers.push_back(last);
        rest = 0;
        shift = 0;
    }
    return numbers;
}

struct PageData {
    json head;
    std::map<std::string, std::vector<std::int64_t>> columns;
};

PageData Decoded(const std::string & data)
{
    EXPECT_EQ(data.substr(0, 8), "IPCPAGE1");
    std::size_t length = 0;
    for (unsigned i = 0; i < 4; ++i) {
        length |= std::size_t(static_cast<unsigned char>(data[8 + i])) << (8 * i);
    }
    PageData decoded{json::parse(data.substr(12, length)), {}};
    std::size_t at = 12 + length;
    for (const json & column : decoded.head["columns"]) {
        const auto bytes = column["bytes"].get<std::size_t>();
        decoded.columns[column["name"]] = Numbers(std::string_view(data).substr(at, bytes), column["isDelta"]);
        EXPECT_EQ(decoded.columns[column["name"]].size(), column["count"].get<std::size_t>()) << column["name"];
        at += bytes;
    }
    EXPECT_EQ(at, data.size());
    return decoded;
}

PageData DecodedBoard(const std::string & path, const PageChoice & choice = {})
{
    Board board{BoardFile(path)};
    return Decoded(PageDataOf(board, choice));
}

std::string BytesOf(const std::vector<std::int64_t> & numbers, bool isDelta)
{
    IntegerColumn column("c", isDelta);
    for (const std::int64_t number : numbers) {
        column.Add(number);
    }
    return column.Bytes();
}

// The example board with one text in place of another one, wherever it stands.
std::string Changed(const TempFolder & folder, const std::string & from, const std::string & to)
{
    std::string text = Bytes(ExampleBoard);
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return folder.Save("changed.cvg", text);
}

TEST(IntegerColumn, IsReadBackAsItWasAdded)
{
    const std::vector<std::int64_t> numbers = {0, -1, 1, 63, 64, -65, 1000000, -1000000000000, 1000000000000, 5, 5};
    for (const bool isDelta : {false, true}) {
        EXPECT_EQ(Numbers(BytesOf(numbers, isDelta), isDelta), numbers);
    }
    EXPECT_EQ(BytesOf({0, -1, 1, -2}, false), std::string("\0\1\2\3", 4));
    EXPECT_EQ(BytesOf({100, 101, 102}, true).size(), 4U);
}

TEST(PageData, HasTheDrawing)
{
    Board board{BoardFile(ExampleBoard)};
    const Drawing drawing = DrawingOf(board);
    const PageData data = DecodedBoard(ExampleBoard);
    const json & head = data.head["drawing"];
    EXPECT_EQ(head["names"], json(drawing.names));
    ASSERT_EQ(head["layers"].size(), drawing.layers.size());
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        EXPECT_EQ(head["layers"][i]["name"], drawing.layers[i].name);
        EXPECT_EQ(head["layers"][i]["items"], drawing.layers[i].items.size());
    }
    ASSERT_EQ(head["holes"], drawing.holes.size());
    const std::vector<std::int64_t> & x = data.columns.at("holeX");
    for (std::size_t i = 0; i < drawing.holes.size(); ++i) {
        EXPECT_EQ(x[i], std::llround(drawing.holes[i].center.X * drawing.millimetres * 1000));
    }
    ASSERT_EQ(head["parts"], drawing.parts.size());
    for (std::size_t i = 0; i < drawing.parts.size(); ++i) {
        EXPECT_EQ(data.columns.at("partName")[i], drawing.parts[i].refDes);
        EXPECT_EQ(data.columns.at("partAngle")[i], std::llround(drawing.parts[i].placement.rotation * 1000));
    }
}

TEST(PageData, HasEachItemAndStepOnce)
{
    Board board{BoardFile(ExampleBoard)};
    const Drawing drawing = DrawingOf(board);
    const PageData data = DecodedBoard(ExampleBoard);
    std::size_t items = drawing.parts.size();
    for (const Footprint & footprint : drawing.footprints) {
        items += footprint.pads.size() + footprint.body.size();
    }
    for (const DrawnLayer & layer : drawing.layers) {
        items += layer.items.size();
    }
    EXPECT_EQ(data.columns.at("itemKind").size(), items);
    EXPECT_EQ(data.columns.at("itemNet").size(), items);
    std::size_t steps = 0;
    for (const std::int64_t count : data.columns.at("pathSteps")) {
        steps += static_cast<std::size_t>(count);
    }
    EXPECT_EQ(data.columns.at("stepKind").size(), steps);
}

TEST(PageData, HasTheListings)
{
    const PageData data = DecodedBoard(ExampleBoard, {.unit = "inch"});
    const json & tables = data.head["tables"];
    for (const auto & [command, key, name] :
         {std::tuple{"bom", "items", "items"}, {"components", "components", "components"}, {"nets", "nets", "nets"}}) {
        std::vector<std::string> arguments = {command, ExampleBoard, "--sort", "--format", "json"};
        if (std::string_view(command) == "components") {
            arguments.insert(arguments.end(), {"--units", "inch"});
        }
        const json listed = json::parse(RunProgram(arguments).out)[key];
        const json & table = tables[name];
        ASSERT_EQ(table["rows"].size(), listed.size()) << command;
        for (std::size_t row = 0; row < listed.size(); ++row) {
            for (std::size_t i = 0; i < table["columns"].size(); ++i) {
                EXPECT_EQ(table["rows"][row][i], listed[row][table["columns"][i]["key"].get<std::string>()]);
            }
        }
    }
    EXPECT_EQ(data.head["units"], "inch");
}

TEST(PageData, KnowsTheBoardByItsContent)
{
    const TempFolder folder;
    const std::string copy = folder.Save("copy.cvg", Bytes(ExampleBoard));
    const json head = DecodedBoard(ExampleBoard).head;
    EXPECT_EQ(DecodedBoard(copy).head["hash"], head["hash"]);
    EXPECT_NE(DecodedBoard(Changed(folder, "RES-47K", "RES-48K")).head["hash"], head["hash"]);
    EXPECT_EQ(DecodedBoard(copy).head["file"], "copy.cvg");
}

TEST(PageData, TellsWhatDiffersBetweenTwoBoards)
{
    const TempFolder folder;
    const std::string moved =
        Changed(folder, "<Location x=\"17.300000\" y=\"15.635000\"", "<Location x=\"17.400000\" y=\"15.635000\"");
    Board before{BoardFile(ExampleBoard)};
    Board after{BoardFile(moved)};
    const PageData data = Decoded(PageDataOf(before, after, {}));
    const json & comparison = data.head["comparison"];
    EXPECT_EQ(data.head["file"], "changed.cvg");
    EXPECT_EQ(comparison["file"], "board.cvg");
    EXPECT_EQ(comparison["added"], 1);
    ASSERT_EQ(comparison["addedLayers"].size(), 1U);
    const std::size_t layer = comparison["addedLayers"][0];
    EXPECT_EQ(data.head["drawing"]["layers"][layer]["name"], "TOP");
    EXPECT_EQ(comparison["removed"][layer], 1);
    EXPECT_EQ(comparison["differences"]["rows"].size(), 3U);
}

// What a page tells of the example board and a changed one.
PageData Compared(const std::string & before, const std::string & after, const PageChoice & choice = {})
{
    Board old{BoardFile(before)};
    Board now{BoardFile(after)};
    return Decoded(PageDataOf(old, now, choice));
}

// Without what stands between two texts, which goes with them.
std::string Without(const TempFolder & folder, const std::string & from, const std::string & to)
{
    std::string text = Bytes(ExampleBoard);
    const std::size_t begin = text.find(from);
    text.erase(begin, text.find(to, begin) + to.size() - begin);
    return folder.Save("less.cvg", text);
}

json RowsOf(const PageData & data, const std::string & kind)
{
    json rows = json::array();
    for (const json & row : data.head["comparison"]["differences"]["rows"]) {
        if (row[0] == kind) {
            rows.push_back(row);
        }
    }
    return rows;
}

json HolesOf(const PageData & data)
{
    return data.head["comparison"]["holes"];
}

TEST(PageData, TellsAHoleWithAnotherDiameter)
{
    const TempFolder folder;
    const std::string wide = Changed(folder, "diameter=\"2.0\"", "diameter=\"2.5\"");
    const PageData data = Compared(ExampleBoard, wide);
    EXPECT_EQ(HolesOf(data), json::parse(R"([{"state": "changed", "x": 29.0, "y": 5.5, "diameter": 2.5,
                                              "isOnFront": true, "isOnBack": true}])"));
    EXPECT_EQ(RowsOf(data, "hole"), json::parse(R"([["hole", "at 29,5.5", "changed", "diameter", 2, 2.5]])"));
    EXPECT_EQ(RowsOf(Compared(wide, ExampleBoard, {.unit = "um"}), "hole"),
              json::parse(R"([["hole", "at 29000,5500", "changed", "diameter", 2500, 2000]])"));
}

TEST(PageData, TellsHolesThatOnlyOneBoardHas)
{
    const TempFolder folder;
    const std::string less = Without(folder, "<Hole name=\"TOOL\"", "/>");
    const json there = json::parse(R"([{"state": "removed", "x": 29.0, "y": 5.5, "diameter": 2.0,
                                        "isOnFront": true, "isOnBack": true}])");
    EXPECT_EQ(HolesOf(Compared(ExampleBoard, less)), there);
    EXPECT_EQ(RowsOf(Compared(ExampleBoard, less), "hole"),
              json::parse(R"([["hole", "at 29,5.5", "removed", "diameter", 2, null]])"));
    json added = there;
    added[0]["state"] = "added";
    EXPECT_EQ(HolesOf(Compared(less, ExampleBoard)), added);
    EXPECT_EQ(RowsOf(Compared(less, ExampleBoard), "hole"),
              json::parse(R"([["hole", "at 29,5.5", "added", "diameter", null, 2]])"));
}

// A via is a hole of a pad stack and one of a layer, and goes from the upper layer to the lower.
TEST(PageData, TellsAHoleThroughOtherLayers)
{
    const TempFolder folder;
    std::string text = Bytes(ExampleBoard);
    const std::string span = "<Span fromLayer=\"TOP\" toLayer=\"BOTTOM\" />";
    text.replace(text.find(span), span.size(), "<Span fromLayer=\"TOP\" toLayer=\"CORE\" />");
    const PageData data = Compared(ExampleBoard, folder.Save("blind.cvg", text));
    EXPECT_EQ(HolesOf(data), json::parse(R"([{"state": "changed", "x": 27.0, "y": 11.3, "diameter": 0.4,
                                              "isOnFront": true, "isOnBack": false}])"));
    EXPECT_EQ(RowsOf(data, "hole"),
              json::parse(R"([["hole", "at 27,11.3", "changed", "layers", "TOP to BOTTOM", "TOP to CORE"]])"));
}

TEST(PageData, HasTheProfileOfTheOlderBoardWhereItIsAnotherOne)
{
    const TempFolder folder;
    const std::string longer = Changed(folder, "x=\"40.000000\"", "x=\"45.000000\"");
    const PageData data = Compared(longer, ExampleBoard);
    EXPECT_EQ(data.head["comparison"]["hasOtherProfile"], true);
    const std::vector<std::int64_t> & x = data.columns.at("stepX");
    EXPECT_EQ(std::count(x.end() - 20, x.end(), 45000), 2);
    EXPECT_EQ(RowsOf(data, "board"), json::parse(R"([["board", null, "changed", "profile", null, null]])"));

    const PageData same = Compared(ExampleBoard, Changed(folder, "RES-47K", "RES-48K"));
    EXPECT_EQ(same.head["comparison"]["hasOtherProfile"], false);
    EXPECT_EQ(HolesOf(same), json::array());
}

TEST(PageData, HasTheLayersThatOnlyTheOlderBoardHas)
{
    const TempFolder folder;
    const std::string renamed = Changed(folder, "\"SILK_BOTTOM\"", "\"LEGEND_BOTTOM\"");
    const PageData data = Compared(ExampleBoard, renamed);
    const json & layers = data.head["comparison"]["removedLayers"];
    ASSERT_EQ(layers.size(), 1U);
    EXPECT_EQ(layers[0]["name"], "SILK_BOTTOM");
    EXPECT_EQ(layers[0]["side"], "bottom");
    EXPECT_GT(layers[0]["items"], 0);
    EXPECT_EQ(data.head["comparison"]["added"], layers[0]["items"]);
    // Each item of the board, the added ones, and those of the layer.
    std::size_t items = layers[0]["items"];
    items += DecodedBoard(renamed).columns.at("itemKind").size() + data.head["comparison"]["added"].get<std::size_t>();
    EXPECT_EQ(data.columns.at("itemKind").size(), items);
}

TEST(PageData, ComparesBoardsInUnitsOfTheirOwn)
{
    const TempFolder folder;
    const std::string inch = Changed(folder, "units=\"MILLIMETER\"", "units=\"INCH\"");
    const json holes = HolesOf(Compared(ExampleBoard, inch));
    ASSERT_FALSE(holes.empty());
    const auto hole = std::find_if(holes.begin(), holes.end(), [](const json & one) {
        return one["state"] == "removed" && std::abs(one["diameter"].get<double>() - 2.0) < 1e-9;
    });
    ASSERT_NE(hole, holes.end());
    EXPECT_NEAR((*hole)["x"], 29.0, 1e-9);
}

// A click on a row goes to its place, which is read in the unit of the page.
TEST(PageData, TellsPlacesOfBothBoardsInTheUnitOfTheNewerOne)
{
    const TempFolder folder;
    const std::string inch = Changed(folder, "units=\"MILLIMETER\"", "units=\"INCH\"");
    const json rows = RowsOf(Compared(inch, ExampleBoard), "hole");
    const auto has = [&](const char * place, const char * state) {
        return std::any_of(rows.begin(), rows.end(),
                           [&](const json & row) { return row[1] == place && row[2] == state; });
    };
    EXPECT_TRUE(has("at 29,5.5", "added"));
    EXPECT_TRUE(has("at 736.6,139.7", "removed"));
    EXPECT_FALSE(has("at 29,5.5", "removed"));
}

TEST(PageData, TellsPartsThatWereAddedMovedAndChanged)
{
    const TempFolder folder;
    const auto partsOf = [](const std::string & path) {
        Board before{BoardFile(ExampleBoard)};
        Board after{BoardFile(path)};
        std::map<std::string, std::string> states;
        const PageData data = Decoded(PageDataOf(before, after, {}));
        for (const json & part : data.head["comparison"]["parts"]) {
            states[part["name"]] = part["state"];
        }
        return states;
    };
    EXPECT_EQ(partsOf(Changed(folder, "\"R3\"", "\"R9\"")),
              (std::map<std::string, std::string>{{"R3", "removed"}, {"R9", "added"}}));
    EXPECT_EQ(partsOf(Changed(folder, "RES-47K", "RES-100K")), (std::map<std::string, std::string>{{"R2", "changed"}}));
    EXPECT_EQ(partsOf(ExampleBoard), (std::map<std::string, std::string>{}));
}

}  // namespace
}  // namespace ipc2581::tests
