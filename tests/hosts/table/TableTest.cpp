#include "hosts/ipc2581/table/Table.h"

#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

// What stands above a listing in JSON.
constexpr const char * Head = "{\n  \"file\": \"b\",\n  \"step\": null,\n  \"units\": null,\n  \"warnings\": []";

template <typename Printable>
std::string Printed(const Printable & printable, Format format)
{
    std::ostringstream out;
    printable.Print(out, format, {.file = "b"});
    return out.str();
}

Table Parts()
{
    Table table("parts", {"name", "x", "fitted", "nets"});
    table.Add({"R1", 1.5, true, std::vector<std::string>{"A", "B"}});
    table.Add({"C100", -10, false, std::vector<std::string>{}});
    table.Add({"D1", Cell(), true, std::vector<std::string>{"C"}});
    return table;
}

TEST(Table, AlignsItsColumns)
{
    EXPECT_EQ(Printed(Parts(), Format::Table), "name    x  fitted  nets\n"
                                               "R1    1.5  yes     A B\n"
                                               "C100  -10  no\n"
                                               "D1         yes     C\n");
}

TEST(Table, GivesCsv)
{
    EXPECT_EQ(Printed(Parts(), Format::Csv), "name,x,fitted,nets\nR1,1.5,yes,A B\nC100,-10,no,\nD1,,yes,C\n");
}

TEST(Table, GivesJsonWithItsTypes)
{
    EXPECT_EQ(Printed(Parts(), Format::Json),
              std::string(Head) + ",\n  \"parts\": [\n"
                                  "    {\"name\":\"R1\",\"x\":1.5,\"fitted\":true,\"nets\":[\"A\",\"B\"]},\n"
                                  "    {\"name\":\"C100\",\"x\":-10,\"fitted\":false,\"nets\":[]},\n"
                                  "    {\"name\":\"D1\",\"x\":null,\"fitted\":true,\"nets\":[\"C\"]}\n"
                                  "  ]\n}\n");
}

TEST(Table, TellsHowManyNumbersAreLeftOutOnlyToReaders)
{
    Table table("places", {"lines"});
    table.Add({FirstNumbers{{3, 7}, 9}});
    table.Add({FirstNumbers{{4}, 1}});
    table.Add({FirstNumbers{}});
    EXPECT_EQ(Printed(table, Format::Table), "lines\n3 7 and 7 more\n4\n\n");
    EXPECT_EQ(Printed(table, Format::Csv), "lines\n3 7\n4\n\n");
    EXPECT_EQ(Printed(table, Format::Json), std::string(Head) +
                                                ",\n  \"places\": [\n    {\"lines\":[3,7]},\n    {\"lines\":[4]},\n    "
                                                "{\"lines\":[]}\n  ]\n}\n");
}

TEST(Table, WithoutRowsIsItsHeading)
{
    const Table table("none", {"a", "b"});
    EXPECT_EQ(Printed(table, Format::Table), "a  b\n");
    EXPECT_EQ(Printed(table, Format::Csv), "a,b\n");
    EXPECT_EQ(Printed(table, Format::Json), std::string(Head) + ",\n  \"none\": []\n}\n");
}

TEST(Table, QuotesCsvWhereItMust)
{
    Table table("texts", {"text"});
    for (const char * const text : {"a,b", "say \"x\"", "two\nlines", " blank", "plain"}) {
        table.Add({text});
    }
    EXPECT_EQ(Printed(table, Format::Csv), "text\n\"a,b\"\n\"say \"\"x\"\"\"\n\"two\nlines\"\n\" blank\"\nplain\n");
}

TEST(Table, CountsCharactersAndShowsNoControls)
{
    Table table("texts", {"text", "next"});
    table.Add({"\xc2\xb5"
               "F",
               "a"});
    table.Add({"a\tb\x1b", "b"});
    EXPECT_EQ(Printed(table, Format::Table), "text  next\n\xc2\xb5"
                                             "F    a\na?b?  b\n");
}

TEST(Table, AlignsWideCharactersAndAccents)
{
    Table table("texts", {"text", "next"});
    table.Add({"\xe9\x9b\xbb\xe9\x98\xbb", "a"});
    table.Add({"e\xcc\x81", "b"});
    EXPECT_EQ(Printed(table, Format::Table), "text  next\n\xe9\x9b\xbb\xe9\x98\xbb  a\ne\xcc\x81     b\n");
}

TEST(Table, GivesJsonOfAnyBytes)
{
    Table table("texts", {"t"});
    table.Add({"\xff\"\n"});
    EXPECT_EQ(Printed(table, Format::Json),
              std::string(Head) + ",\n  \"texts\": [\n    {\"t\":\"\xef\xbf\xbd\\\"\\n\"}\n  ]\n}\n");
}

TEST(Table, NumbersHaveSixDecimalsAtMost)
{
    EXPECT_EQ(Cell(0.1 + 0.2).Text(), "0.3");
    EXPECT_EQ(Cell(-0.0000001).Text(), "0");
    EXPECT_EQ(Cell(40.0).Text(), "40");
    EXPECT_EQ(Cell(1234567.125).Text(), "1234567.125");
    EXPECT_EQ(Cell(1e15).Text(), "1000000000000000");
    EXPECT_EQ(Cell(std::numeric_limits<double>::infinity()).Text(), "inf");
}

TEST(Table, NumbersAreReadAsXmlWritesThem)
{
    EXPECT_EQ(NumberOf("+0.3"), 0.3);
    EXPECT_EQ(NumberOf(" -.5\n"), -0.5);
    EXPECT_EQ(NumberOf("1E-3"), 0.001);
    for (const std::string text : {"", " ", "+", "+-1", "++1", "1 2", "0x1", "0.3mm", "nan", "inf", "1e400"}) {
        EXPECT_EQ(NumberOf(text), std::nullopt) << text;
    }
}

Listing BoardListing()
{
    Listing listing;
    Values & board = listing.AddValues("board");
    board.Add("name", "b");
    board.Add("maker", "");
    board.Add("layers", 2);
    listing.AddTable("layers", {"layer", "side"}).Add({"TOP", "TOP"});
    listing.AddTable("none", {"layer"});
    return listing;
}

TEST(Listing, HasATitleOverEachTable)
{
    EXPECT_EQ(Printed(BoardListing(), Format::Table), "board\n  name    b\n  layers  2\n\n"
                                                      "layers\n  layer  side\n  TOP    TOP\n\n"
                                                      "none\n  layer\n");
}

TEST(Listing, AsCsvIsOneTableOfValues)
{
    EXPECT_EQ(Printed(BoardListing(), Format::Csv), "section,item,property,value\n"
                                                    "board,name,value,b\n"
                                                    "board,maker,value,\n"
                                                    "board,layers,value,2\n"
                                                    "layers,TOP,side,TOP\n");
}

TEST(Listing, AsJsonIsOneObject)
{
    EXPECT_EQ(Printed(BoardListing(), Format::Json),
              std::string(Head) + ",\n  \"board\": {\n    \"name\": \"b\",\n    \"maker\": null,\n    \"layers\": "
                                  "2\n  },\n"
                                  "  \"layers\": [\n    {\"layer\":\"TOP\",\"side\":\"TOP\"}\n  ],\n"
                                  "  \"none\": []\n"
                                  "}\n");
}

TEST(Listing, AsLinesOfJsonTellsTheSectionOfEachRow)
{
    Listing listing = BoardListing();
    listing.AddTable("all elements", {"element", "file", "section"}).Add({"Pad", 3, "Step"});
    const std::string head = "{\"file\":\"b\",\"step\":null,\"units\":null,\"section\":";
    EXPECT_EQ(Printed(listing, Format::JsonLines),
              head + "\"board\",\"name\":\"b\",\"maker\":null,\"layers\":2}\n" + head +
                  "\"layers\",\"layer\":\"TOP\",\"side\":\"TOP\"}\n" + head +
                  "\"all_elements\",\"element\":\"Pad\",\"all_elements_file\":3,\"all_elements_section\":\"Step\"}\n");
}

TEST(Listing, TellsTheUnitsOfItsLengths)
{
    Column width("width");
    width.isLength = true;
    width.unit = "mm";
    Listing listing;
    Values & board = listing.AddValues("board");
    board.Add(width, 2.5);
    board.Add("layers", 2);
    listing.AddTable("holes", {"name", width}).Add({"H", 1.5});
    EXPECT_EQ(Printed(listing, Format::Table), "board\n  width (mm)  2.5\n  layers        2\n\n"
                                               "holes\n  name  width (mm)\n  H            1.5\n");
    std::ostringstream csv;
    listing.Print(csv, Format::Csv, {.file = "b", .units = "millimeter"});
    EXPECT_EQ(csv.str(), "section,item,property,value,units\nboard,width,value,2.5,millimeter\nboard,layers,value,2,\n"
                         "holes,H,width,1.5,millimeter\n");
}

Column Lengths()
{
    Column x("x");
    x.isLength = true;
    x.unit = "inch";
    return x;
}

TEST(Table, TellsTheUnitsOfItsLengths)
{
    Table table("points", {"net", Lengths()});
    table.Add({"A", 0.5});
    const Source source{.file = "b", .step = "s", .units = "inch"};
    const auto printed = [&](Format format, const Source * other) {
        std::ostringstream out;
        table.Print(out, format, source, other);
        return out.str();
    };
    EXPECT_EQ(printed(Format::Table, nullptr), "net  x (inch)\nA         0.5\n");
    EXPECT_EQ(printed(Format::Csv, nullptr), "net,x,units\nA,0.5,inch\n");
    const Source other{.file = "c", .units = "mil"};
    EXPECT_EQ(printed(Format::Csv, &source), "net,x,units\nA,0.5,inch\n");
    EXPECT_EQ(printed(Format::Csv, &other), "net,x,units\nA,0.5,inch mil\n");
    table.LeaveUnitsOutOfCsv();
    EXPECT_EQ(printed(Format::Csv, nullptr), "net,x\nA,0.5\n");
    EXPECT_EQ(printed(Format::Json, &other),
              "{\n  \"file\": \"b\",\n  \"step\": \"s\",\n  \"units\": \"inch\",\n  \"warnings\": [],\n"
              "  \"other\": {\n    \"file\": \"c\",\n    \"step\": null,\n    \"units\": \"mil\",\n    "
              "\"warnings\": []\n  },\n"
              "  \"points\": [\n    {\"net\":\"A\",\"x\":0.5}\n  ]\n}\n");
}

TEST(Table, GivesALineOfJsonForEachRow)
{
    EXPECT_EQ(Printed(Parts(), Format::JsonLines),
              "{\"file\":\"b\",\"step\":null,\"units\":null,\"name\":\"R1\",\"x\":1.5,\"fitted\":true,"
              "\"nets\":[\"A\",\"B\"]}\n"
              "{\"file\":\"b\",\"step\":null,\"units\":null,\"name\":\"C100\",\"x\":-10,\"fitted\":false,\"nets\":[]}\n"
              "{\"file\":\"b\",\"step\":null,\"units\":null,\"name\":\"D1\",\"x\":null,\"fitted\":true,"
              "\"nets\":[\"C\"]}\n");
    EXPECT_EQ(Printed(Table("none", {"a"}), Format::JsonLines), "");
}

TEST(Table, TellsInEachLineWhatItWasComparedWith)
{
    Table table("differences", {"name"});
    table.Add({"two\nlines"});
    const Source other{.file = "c", .step = "t", .units = "mil", .warnings = {{"merged", 7, "two"}}};
    std::ostringstream out;
    table.Print(out, Format::JsonLines, {.file = "b", .step = "s", .units = "inch"}, &other);
    EXPECT_EQ(out.str(), "{\"file\":\"b\",\"step\":\"s\",\"units\":\"inch\",\"other\":{\"file\":\"c\",\"step\":\"t\","
                         "\"units\":\"mil\"},\"name\":\"two\\nlines\"}\n");
}

TEST(Table, TellsItsWarningsInJson)
{
    std::ostringstream out;
    Table("none", {"a"})
        .Print(out, Format::Json, {.file = "b", .warnings = {{"merged", 7, "two"}, {"not_read", 0, "\"x\""}}});
    EXPECT_NE(out.str().find("  \"warnings\": [\n    {\"kind\":\"merged\",\"line\":7,\"text\":\"two\"},\n"
                             "    {\"kind\":\"not_read\",\"line\":null,\"text\":\"\\\"x\\\"\"}\n  ],\n"),
              std::string::npos)
        << out.str();
}

TEST(Table, MakesItsRowsOnceForEachWriting)
{
    int count = 0;
    const Table table("numbers", {"number"}, [&](const RowSink & sink) {
        ++count;
        sink({1});
        sink({100});
    });
    EXPECT_EQ(Printed(table, Format::Table), "number\n     1\n   100\n");
    EXPECT_EQ(count, 1);
    EXPECT_EQ(Printed(table, Format::Csv), "number\n1\n100\n");
    EXPECT_EQ(count, 2);
}

TEST(Table, WritesLongOnesWhole)
{
    const Table table("numbers", {"number"}, [](const RowSink & sink) {
        for (int i = 0; i < 100000; ++i) {
            sink({i});
        }
    });
    std::string expected = "number\n";
    for (int i = 0; i < 100000; ++i) {
        expected.append(std::to_string(i)).append("\n");
    }
    EXPECT_EQ(Printed(table, Format::Csv), expected);
}

TEST(Table, KeysAreMadeOfTitles)
{
    EXPECT_EQ(KeyOf("x"), "x");
    EXPECT_EQ(KeyOf("part number"), "part_number");
    EXPECT_EQ(KeyOf("makers' parts"), "makers_parts");
    EXPECT_EQ(KeyOf("well-formed XML"), "well_formed_xml");
    EXPECT_EQ(KeyOf("BOM  items 2"), "bom_items_2");
}

TEST(Cell, NumbersAreTakenFromTextsAsTheyStand)
{
    const auto json = [](const std::string & text) {
        std::string written;
        CountOf(text).AppendJson(written);
        return CountOf(text).Text() + " " + written;
    };
    EXPECT_EQ(json("4"), "4 4");
    EXPECT_EQ(json("04"), "04 4");
    EXPECT_EQ(json("4.0"), "4.0 4");
    EXPECT_EQ(json("2.5"), "2.5 2.5");
    EXPECT_EQ(json("four"), "four null");
    EXPECT_EQ(json(""), " null");
    EXPECT_TRUE(CountOf("4").IsNumber());
    EXPECT_FALSE(CountOf("04").IsNumber());
}

TEST(Cell, WhatIsNoNumberIsNoneInJson)
{
    std::string written;
    Cell(std::numeric_limits<double>::infinity()).AppendJson(written);
    Cell(std::string()).AppendJson(written);
    Cell(0.25).AppendJson(written);
    EXPECT_EQ(written, "nullnull0.25");
}

}  // namespace
}  // namespace ipc2581::tests
