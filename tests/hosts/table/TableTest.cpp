#include "hosts/ipc2581/table/Table.h"

#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

template <typename Printable>
std::string Printed(const Printable & printable, Format format)
{
    std::ostringstream out;
    printable.Print(out, format);
    return out.str();
}

Table Parts()
{
    Table table({"name", "x", "fitted", "nets"});
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
    EXPECT_EQ(Printed(Parts(), Format::Json), "[\n"
                                              "  {\"name\":\"R1\",\"x\":1.5,\"fitted\":true,\"nets\":[\"A\",\"B\"]},\n"
                                              "  {\"name\":\"C100\",\"x\":-10,\"fitted\":false,\"nets\":[]},\n"
                                              "  {\"name\":\"D1\",\"x\":null,\"fitted\":true,\"nets\":[\"C\"]}\n"
                                              "]\n");
}

TEST(Table, TellsHowManyNumbersAreLeftOutOnlyToReaders)
{
    Table table({"lines"});
    table.Add({FirstNumbers{{3, 7}, 9}});
    table.Add({FirstNumbers{{4}, 1}});
    table.Add({FirstNumbers{}});
    EXPECT_EQ(Printed(table, Format::Table), "lines\n3 7 and 7 more\n4\n\n");
    EXPECT_EQ(Printed(table, Format::Csv), "lines\n3 7\n4\n\n");
    EXPECT_EQ(Printed(table, Format::Json), "[\n  {\"lines\":[3,7]},\n  {\"lines\":[4]},\n  {\"lines\":[]}\n]\n");
}

TEST(Table, WithoutRowsIsItsHeading)
{
    const Table table({"a", "b"});
    EXPECT_EQ(Printed(table, Format::Table), "a  b\n");
    EXPECT_EQ(Printed(table, Format::Csv), "a,b\n");
    EXPECT_EQ(Printed(table, Format::Json), "[]\n");
}

TEST(Table, QuotesCsvWhereItMust)
{
    Table table({"text"});
    for (const char * const text : {"a,b", "say \"x\"", "two\nlines", " blank", "plain"}) {
        table.Add({text});
    }
    EXPECT_EQ(Printed(table, Format::Csv), "text\n\"a,b\"\n\"say \"\"x\"\"\"\n\"two\nlines\"\n\" blank\"\nplain\n");
}

TEST(Table, CountsCharactersAndShowsNoControls)
{
    Table table({"text", "next"});
    table.Add({"\xc2\xb5"
               "F",
               "a"});
    table.Add({"a\tb\x1b", "b"});
    EXPECT_EQ(Printed(table, Format::Table), "text  next\n\xc2\xb5"
                                             "F    a\na?b?  b\n");
}

TEST(Table, GivesJsonOfAnyBytes)
{
    Table table({"t"});
    table.Add({"\xff\"\n"});
    EXPECT_EQ(Printed(table, Format::Json), "[\n  {\"t\":\"\xef\xbf\xbd\\\"\\n\"}\n]\n");
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

Listing BoardListing()
{
    Listing listing;
    Table & record = listing.AddRecord("board");
    record.Add({"name", "b"});
    record.Add({"layers", 2});
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
                                                    "board,layers,value,2\n"
                                                    "layers,TOP,side,TOP\n");
}

TEST(Listing, AsJsonIsOneObject)
{
    EXPECT_EQ(Printed(BoardListing(), Format::Json), "{\n"
                                                     "  \"board\": {\n    \"name\": \"b\",\n    \"layers\": 2\n  },\n"
                                                     "  \"layers\": [\n    {\"layer\":\"TOP\",\"side\":\"TOP\"}\n  ],\n"
                                                     "  \"none\": []\n"
                                                     "}\n");
}

}  // namespace
}  // namespace ipc2581::tests
