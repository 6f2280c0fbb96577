#include "ipc2581/base/lines/AttributeScan.h"

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/lines/Word.h"
#include "ipc2581/base/platform/Afx.h"
#include "tests/support/Files.h"

namespace {

using ipc2581::Attribute;
using ipc2581::Element;
using ipc2581::Flag;
using ipc2581::Integer;
using ipc2581::Number;
using ipc2581::Pack;
using ipc2581::Reading;
using ipc2581::Text;
using ipc2581::detail::AttributeHit;
using ipc2581::detail::AttributeRow;
using ipc2581::detail::AttributeRows;
using ipc2581::detail::HoldsText;
using ipc2581::detail::LineCycle;
using ipc2581::detail::LineTokens;
using ipc2581::detail::ScanAttributes;
using ipc2581::detail::ScanAttributesTwice;
using ipc2581::detail::ScanRows;
using ipc2581::detail::ScanTokens;
using ipc2581::detail::ShortKey;
using ipc2581::detail::TableOf;
using ipc2581::detail::TokenList;
using ipc2581::detail::Word;
using ipc2581::tests::Lines;
using ipc2581::tests::Str;
using ipc2581::tests::Tokens;

struct Part {
    double x = 99;
};

// An object with fields of every kind; what a scan leaves alone keeps the value that it has here.
struct Item {
    CString name{"before"};
    CString kind{"before"};
    CString last{"before"};
    double x = 99;
    double y = 99;
    int n = 99;
    bool flag = true;
    int number = 5;
    int control = 6;
    int direction = 7;
    int corner = 8;
    int form = 9;
    Part part;
    Part * otherPart = nullptr;
};

// The table that a test is about stands beside it; these are for many.
constexpr auto NameOnly = Element<Item>("A", Text("name=", &Item::name));
constexpr auto WideName = Element<Item>("A", Text("name", &Item::name));
constexpr auto XOnly = Element<Item>("A", Number("x=", &Item::x));
constexpr auto XAndY = Element<Item>("A", Number("x=", &Item::x), Number("y=", &Item::y));

// Where the tokens come from: a line of a file, or a list that a host has made of it.
enum class Source { File, Host };

class AttributeScan : public testing::TestWithParam<Source> {
protected:
    // Hands the tokens of a line to the scan.
    template <typename Use>
    static void WithTokens(std::string_view line, Use use)
    {
        if (GetParam() == Source::Host) {
            Tokens tokens(line);
            use(TokenList(tokens.List()));
            return;
        }
        Lines file({line});
        LineCycle cycle(file.File());
        ASSERT_TRUE(cycle.Next()) << line;
        use(cycle.Tokens());
    }
    template <const auto & element>
    static void Scan(std::string_view line, Item & item)
    {
        WithTokens(line, [&item](const TokenList & tokens) { ScanAttributes<element>(tokens, item); });
    }
    template <const auto & first, const auto & second>
    static void ScanTwice(std::string_view line, Item & item)
    {
        WithTokens(line, [&item](const TokenList & tokens) { ScanAttributesTwice<first, second>(tokens, item); });
    }
    // What the element makes of a line.
    template <const auto & element>
    static Item Scanned(std::string_view line)
    {
        Item item;
        Scan<element>(line, item);
        return item;
    }
    // What the row name= makes of a line.
    static std::string Name(std::string_view line) { return Str(Scanned<NameOnly>(line).name); }
};

class AttributeScanDoubleForm : public AttributeScan {};

std::string SourceName(const testing::TestParamInfo<Source> & source)
{
    return source.param == Source::File ? "OfAFile" : "OfAHost";
}

INSTANTIATE_TEST_SUITE_P(Tokens, AttributeScan, testing::Values(Source::File, Source::Host), SourceName);
INSTANTIATE_TEST_SUITE_P(Tokens, AttributeScanDoubleForm, testing::Values(Source::File, Source::Host), SourceName);

TEST_P(AttributeScan, TakesTextFromWhereverItStands)
{
    EXPECT_EQ(Name("<A name=\"R1\" x=\"2\">"), "R1");
    EXPECT_EQ(Name("<A x=\"2\" name=\"R1\"/>"), "R1");
    EXPECT_EQ(Name("<A name=\"\" >"), "");
}

TEST_P(AttributeScan, StartsAtTheFirstToken)
{
    EXPECT_EQ(Name("name=\"R1\" x"), "R1");
}

TEST_P(AttributeScan, AnAbsentAttributeLeavesItsField)
{
    EXPECT_EQ(Name("<A x=\"1\">"), "before");
    EXPECT_EQ(Name(""), "before");
}

TEST_P(AttributeScan, ARepeatedAttributeOverwrites)
{
    EXPECT_EQ(Name("<A name=\"one\" name=\"two\" >"), "two");
}

TEST_P(AttributeScan, TheWordMayStandInsideAnother)
{
    EXPECT_EQ(Name("<A filename=\"x\" >"), "x");
    EXPECT_EQ(Scanned<WideName>("<A kind=\"name\" >").name, "name");
}

TEST_P(AttributeScan, AWordWithTheEqualSignIsNarrower)
{
    EXPECT_EQ(Name("<A name =\"x\" >"), "before");
    EXPECT_EQ(Name("<A Name=\"x\" >"), "before");
    EXPECT_EQ(Name("<A kind=\"name\" >"), "before");
}

TEST_P(AttributeScan, TheFirstRowThatIsHeldTakesTheToken)
{
    static constexpr auto aFirst = Element<Item>("A", Text("a=", &Item::name), Text("b=", &Item::kind));
    static constexpr auto bFirst = Element<Item>("A", Text("b=", &Item::kind), Text("a=", &Item::name));
    Item item;
    Scan<aFirst>("<A b=a=\"v\" >", item);
    EXPECT_EQ(item.name, "a=v");
    EXPECT_EQ(item.kind, "before");
    Scan<bFirst>("<A b=a=\"w\" >", item);
    EXPECT_EQ(item.name, "a=v");
    EXPECT_EQ(item.kind, "a=w");
}

TEST_P(AttributeScan, AValueOfSeveralTokensMovesTheScanOn)
{
    static constexpr auto table =
        Element<Item>("A", Text("name=", &Item::name), Text("kind=", &Item::kind), Text("last=", &Item::last));
    const Item item = Scanned<table>("<A name=\"two kind=x words\" last=\"z\"/>");
    EXPECT_EQ(item.name, "two x words");
    EXPECT_EQ(item.kind, "before");
    EXPECT_EQ(item.last, "z");
}

TEST_P(AttributeScan, ATokenThatNoRowTestsMayStayOpen)
{
    EXPECT_EQ(Name("<A name=\"R1\" note=\"open"), "R1");
}

TEST_P(AttributeScan, AValueThatIsCutOffThrows)
{
    for (const std::string_view line : {"<A name=\"open", "<A name=", "<A name=plain", "<A name=\"open and on"}) {
        EXPECT_THROW(Name(line), CInvalidArgException) << line;
    }
}

TEST_P(AttributeScan, WhatWasStoredBeforeACutValueStays)
{
    static constexpr auto table = Element<Item>("A", Text("name=", &Item::name), Number("x=", &Item::x));
    Item item;
    EXPECT_THROW(Scan<table>("<A name=\"R1\" x=\"2", item), CInvalidArgException);
    EXPECT_EQ(item.name, "R1");
    EXPECT_EQ(item.x, 99);
}

TEST_P(AttributeScan, NumberReadsTheLongestPrefix)
{
    const std::vector<std::pair<std::string_view, double>> rows = {
        {"x=\"1.5\"", 1.5}, {"x=\"-2e3\"/", -2000}, {"x=\"7mm\"", 7}, {"x=\"mm\"", 0}, {"x=\"\"", 0}, {"x=\"1,5\"", 1},
    };
    for (const auto & [token, value] : rows) {
        EXPECT_EQ(Scanned<XOnly>("<A " + std::string(token) + " >").x, value) << token;
    }
}

TEST_P(AttributeScan, IntegerDropsWhatStandsBehind)
{
    static constexpr auto table = Element<Item>("A", Integer("n=", &Item::n));
    const std::vector<std::pair<std::string_view, int>> rows = {
        {"n=\"12\"", 12}, {"n=\"-3.9\"/", -3}, {"n=\"+4x\"", 4}, {"n=\"x4\"", 0}, {"n=\"\"", 0}, {"n=\"1e3\"", 1},
    };
    for (const auto & [token, value] : rows) {
        EXPECT_EQ(Scanned<table>("<A " + std::string(token) + " >").n, value) << token;
    }
}

TEST_P(AttributeScan, FlagIsTrueForTheWordInUpperCaseAlone)
{
    static constexpr auto flagTable = Element<Item>("A", Flag("f=", &Item::flag));
    static constexpr auto numberTable = Element<Item>("A", Flag("f=", &Item::number));
    const std::vector<std::pair<std::string_view, bool>> rows = {
        {"TRUE", true},  {"xTRUEx", true}, {"FALSE", false}, {"true", false},
        {"True", false}, {"1", false},     {"", false},      {"TR/UE", true},
    };
    for (const auto & [value, expected] : rows) {
        for (const bool before : {false, true}) {
            Item item;
            item.flag = before;
            item.number = before ? 1 : 0;
            const std::string line = "<A f=\"" + std::string(value) + "\" >";
            Scan<flagTable>(line, item);
            Scan<numberTable>(line, item);
            EXPECT_EQ(item.flag, expected) << value;
            EXPECT_EQ(item.number, expected ? 1 : 0) << value;
        }
    }
}

TEST_P(AttributeScan, AbsentFlagsStay)
{
    static constexpr auto table = Element<Item>("A", Flag("f=", &Item::flag), Flag("n=", &Item::number),
                                                Attribute{"c=", Reading::ControlFlag, Pack{&Item::control}},
                                                Attribute{"d=", Reading::Direction, Pack{&Item::direction}});
    const Item item = Scanned<table>("<A b=\"FALSE\">");
    EXPECT_TRUE(item.flag);
    EXPECT_EQ(item.number, 5);
    EXPECT_EQ(item.control, 6);
    EXPECT_EQ(item.direction, 7);
}

TEST_P(AttributeScan, ControlFlagIsSetByOneControlCharacterAlone)
{
    static constexpr auto table = Element<Item>("A", Attribute{"mirror=", Reading::ControlFlag, Pack{&Item::control}});
    const std::vector<std::pair<std::string_view, int>> rows = {
        {"\x01", 1}, {"1", 0}, {"TRUE", 0}, {"true", 0}, {"", 0}, {"\x01\x01", 0}, {"\x02", 0}, {"/\x01", 1},
    };
    for (const auto & [value, expected] : rows) {
        EXPECT_EQ(Scanned<table>("<A mirror=\"" + std::string(value) + "\" >").control, expected) << value;
    }
}

TEST_P(AttributeScan, NoRowsChangeNothing)
{
    WithTokens("<A name=\"open", [](const TokenList & tokens) {
        Item item;
        ScanRows(tokens, AttributeRows(), nullptr, &item);
        EXPECT_EQ(item.name, "before");
    });
    EXPECT_EQ(Name("<A>"), "before");
}

TEST(AttributeScanOfAHost, TakesTheListAsItStands)
{
    Item item;
    Tokens tokens("<A name=\"two words\" >");
    ScanAttributes<NameOnly>(tokens.List(), item);
    EXPECT_EQ(item.name, "two words");
    EXPECT_EQ(tokens->GetSize(), 4);

    CArray<CString, CString> raw;
    raw.Add("a b");
    raw.Add("name=\"<x y>\"");
    ScanAttributes<NameOnly>(raw, item);
    EXPECT_EQ(item.name, "<x y>");
}

TEST_P(AttributeScan, ALineWithoutABlankIsOneToken)
{
    EXPECT_EQ(Name("<name=\"x\">"), "x>");
    EXPECT_EQ(Name("name=\"x\"y=\"z\""), "xy=z");
}

TEST_P(AttributeScan, ARowMayTakeItsValueTwice)
{
    using Values = std::vector<std::string>;
    static constexpr auto takeTwice = [](AttributeHit & hit, void * object) {
        Values values = {HoldsText(hit.Token(), "FAL") ? "FAL" : ""};
        values.emplace_back(hit.Take());
        values.emplace_back(hit.Take());
        *static_cast<Values *>(object) = values;
    };
    static constexpr std::array<AttributeRow, 1> rows = {
        AttributeRow{Word("clock"), Reading::Text, takeTwice, ShortKey("clock", '"')}};
    const auto scan = [](std::string_view line) {
        Values values;
        WithTokens(line,
                   [&values](const TokenList & tokens) { ScanRows(tokens, AttributeRows(rows), nullptr, &values); });
        return values;
    };
    EXPECT_EQ(scan("<A clock=\"FALSE\" x>"), (Values{"FAL", "FALSE", "FALSE"}));
    EXPECT_EQ(scan("<A clock=\"one two\" y=\"3\" >"), (Values{"", "one two", "two 3"}));
}

TEST_P(AttributeScan, CornerFlagIsSetByItsOwnWordAndNeverCleared)
{
    static constexpr auto table = Element<Item>("A", Attribute{"upperLeft", Reading::CornerFlag, Pack{&Item::corner}});
    const std::vector<std::pair<std::string_view, int>> rows = {
        {"TURE", 1}, {"xTUREx", 1}, {"TRUE", 8}, {"true", 8}, {"FALSE", 8}, {"", 8}, {"TU/RE", 1},
    };
    for (const auto & [value, expected] : rows) {
        EXPECT_EQ(Scanned<table>("<A upperLeft=\"" + std::string(value) + "\" >").corner, expected) << value;
    }
}

TEST_P(AttributeScan, DirectionIsTurnedRound)
{
    static constexpr auto table =
        Element<Item>("A", Attribute{"clockwise=", Reading::Direction, Pack{&Item::direction}});
    const std::vector<std::pair<std::string_view, int>> rows = {
        {"FALSE", 1}, {"false", 1}, {"xFALSEx", 1}, {"FAL/SE", 1},  {"False", 0},
        {"TRUE", 0},  {"true", 0},  {"", 0},        {"a FALSE", 1}, {"false a", 0},
    };
    for (const auto & [value, expected] : rows) {
        EXPECT_EQ(Scanned<table>("<A clockwise=\"" + std::string(value) + "\" x=\"\" >").direction, expected) << value;
    }
}

TEST_P(AttributeScan, FormIsLookedForInTheTokenAsItStands)
{
    static constexpr auto four =
        Element<Item>("A", Attribute{"shape", Reading::OuterForm, Pack{&Item::form}}, Number("x=", &Item::x));
    static constexpr auto two =
        Element<Item>("A", Attribute{"shape", Reading::RoundOrSquare, Pack{&Item::form}}, Number("x=", &Item::x));
    struct Row {
        std::string_view token;
        int ofFour;
        int ofTwo;
    };
    const std::vector<Row> rows = {
        {"shape=\"ROUND\"", 0, 0},           {"shape=\"SQUARE\"", 1, 1}, {"shape=\"HEXAGON\"", 2, 9},
        {"shape=\"OCTAGON\"", 3, 9},         {"shape=\"round\"", 9, 9},  {"shape=\"\"", 9, 9},
        {"shape=\"xSQUAREROUND\"", 0, 0},    {"SQUAREshape=", 1, 1},     {"shape=\"two ROUND\"", 9, 9},
        {"reshaped=\"OCTAGON SQUARE", 3, 9}, {"Shape=\"ROUND\"", 9, 9},  {"shape", 9, 9},
    };
    for (const auto & [token, ofFour, ofTwo] : rows) {
        const std::string line = "<A " + std::string(token) + " x=\"2\" >";
        EXPECT_EQ(Scanned<four>(line).form, ofFour) << token;
        EXPECT_EQ(Scanned<two>(line).form, ofTwo) << token;
        EXPECT_EQ(Scanned<four>(line).x, 2) << token;
    }
}

TEST_P(AttributeScan, FollowsTheStepsToAMemberOfAPart)
{
    static constexpr auto part = Element<Item>("A", Number("x=", &Item::part, &Part::x));
    static constexpr auto otherPart = Element<Item>("A", Number("x=", &Item::otherPart, &Part::x));
    Part other;
    Item item;
    item.otherPart = &other;
    Scan<part>("<A x=\"1\" >", item);
    Scan<otherPart>("<A x=\"2\" >", item);
    EXPECT_EQ(item.part.x, 1);
    EXPECT_EQ(other.x, 2);
    EXPECT_EQ(item.x, 99);
}

TEST_P(AttributeScan, AnElementOfAnotherNameTakesTheSame)
{
    static constexpr auto renamed = XAndY.Of("B");
    static_assert(renamed.name == "B");
    const Item item = Scanned<renamed>("<A y=\"2\" x=\"1\"/>");
    EXPECT_EQ(item.x, 1);
    EXPECT_EQ(item.y, 2);
}

// Words that end in one another: the row that stands first takes the longer key too.
constexpr auto ShortFirst = Element<Item>("A", Text("Ref=", &Item::name), Text("layerRef=", &Item::kind),
                                          Text("Layer=", &Item::last), Number("x=", &Item::x));
constexpr auto LongFirst = Element<Item>("A", Text("layerRef=", &Item::kind), Text("Ref=", &Item::name),
                                         Text("Layer=", &Item::last), Number("x=", &Item::x));

TEST(AttributeTables, KnowWhetherTheirWordsAreApart)
{
    static constexpr auto twice = Element<Item>("A", Text("a", &Item::name), Text("a", &Item::kind));
    static constexpr auto inside = Element<Item>("A", Text("layerRef=", &Item::name), Text("layer", &Item::kind));
    static_assert(TableOf<XAndY>.areApart && TableOf<XAndY>.areAttributes);
    static_assert(AttributeRows().areApart && AttributeRows().areAttributes);
    static_assert(!TableOf<ShortFirst>.areApart && TableOf<ShortFirst>.areAttributes);
    static_assert(!TableOf<LongFirst>.areApart && TableOf<LongFirst>.areAttributes);
    static_assert(!TableOf<twice>.areApart && !TableOf<twice>.areAttributes);
    static_assert(TableOf<inside>.areApart && !TableOf<inside>.areAttributes);
    static_assert(TableOf<XAndY>.rows[1].word.Text() == "y=" && TableOf<XAndY>.rows[1].reading == Reading::Number);
    EXPECT_EQ(TableOf<ShortFirst>.rows.size(), 4U);
}

TEST_P(AttributeScan, TheFirstOfTwoWordsThatEndInOneAnotherTakesTheKey)
{
    for (const std::string_view line :
         {"<A layerRef=\"l\" Ref=\"r\" x=\"1\"/>", "<A Ref=\"r\" x=\"1\" layerRef=\"l\"/>",
          "<A x=\"1\" layerRef=\"l\" Ref=\"r\" >"}) {
        const Item item = Scanned<LongFirst>(line);
        EXPECT_EQ(item.kind, "l") << line;
        EXPECT_EQ(item.name, "r") << line;
        EXPECT_EQ(item.x, 1) << line;
    }
    // Also where the row of the longer word stands next behind the one that was hit last.
    for (const std::string_view line : {"<A Ref=\"r\" layerRef=\"l\"/>", "<A x=\"1\" Ref=\"r\" layerRef=\"l\" >",
                                        "<A Ref=\"q\" Ref=\"r\" layerRef=\"l\" Layer=\"m\"/>"}) {
        const Item item = Scanned<ShortFirst>(line);
        EXPECT_EQ(item.kind, "before") << line;
        EXPECT_EQ(item.name, "l") << line;
    }
}

TEST_P(AttributeScan, OneWordTwiceGivesToTheFirstRowAlone)
{
    static constexpr auto table =
        Element<Item>("A", Text("a=", &Item::name), Text("a=", &Item::kind), Text("b=", &Item::last));
    const Item item = Scanned<table>("<A a=\"1\" a=\"2\" b=\"3\" a=\"4\"/>");
    EXPECT_EQ(item.name, "4");
    EXPECT_EQ(item.kind, "before");
    EXPECT_EQ(item.last, "3");
}

// Each row that comes next in the table, every other one, and the same one again.
constexpr auto Ordered =
    Element<Item>("A", Text("name=", &Item::name), Text("kind=", &Item::kind), Text("last=", &Item::last),
                  Number("x=", &Item::x), Number("y=", &Item::y), Integer("n=", &Item::n));

TEST_P(AttributeScan, TheOrderOfTheAttributesSaysNothing)
{
    const std::vector<std::string_view> lines = {
        "<A name=\"N\" kind=\"K\" last=\"L\" x=\"1\" y=\"2\" n=\"3\"/>",
        "<A n=\"3\" y=\"2\" x=\"1\" last=\"L\" kind=\"K\" name=\"N\"/>",
        "<A kind=\"K\" x=\"1\" n=\"3\" name=\"N\" last=\"L\" y=\"2\" >",
        "<A u=\"0\" name=\"N\" v=\"0\" kind=\"K\" w=\"0\" last=\"L\" x=\"1\" u=\"\" y=\"2\" v=\"0\" n=\"3\" w=\"0\"/>",
        "<A n=\"3\" n=\"3\" name=\"N\" name=\"N\" kind=\"K\" last=\"L\" last=\"L\" y=\"2\" x=\"1\" y=\"2\"/>",
        "<A name=\"M\" kind=\"J\" name=\"N\" kind=\"K\" last=\"L\" x=\"9\" y=\"9\" x=\"1\" y=\"2\" n=\"3\"/>",
        "<A wholename=\"N\" mykind=\"K\" atlast=\"L\" maxx=\"1\" dy=\"2\" in=\"3\"/>",
    };
    for (const std::string_view line : lines) {
        const Item item = Scanned<Ordered>(line);
        EXPECT_EQ(item.name, "N") << line;
        EXPECT_EQ(item.kind, "K") << line;
        EXPECT_EQ(item.last, "L") << line;
        EXPECT_EQ(item.x, 1) << line;
        EXPECT_EQ(item.y, 2) << line;
        EXPECT_EQ(item.n, 3) << line;
    }
}

TEST_P(AttributeScan, GapsInTheOrderLeaveTheirFields)
{
    const Item item = Scanned<Ordered>("<A name=\"N\" last=\"L\" y=\"2\" u=\"kind\"/>");
    EXPECT_EQ(item.name, "N");
    EXPECT_EQ(item.last, "L");
    EXPECT_EQ(item.y, 2);
    EXPECT_EQ(item.kind, "before");
    EXPECT_EQ(item.x, 99);
    EXPECT_EQ(item.n, 99);
    const Item next = Scanned<Ordered>("<A kind=\"K\" x=\"1\" n=\"3\" >");
    EXPECT_EQ(next.kind, "K");
    EXPECT_EQ(next.x, 1);
    EXPECT_EQ(next.n, 3);
    EXPECT_EQ(next.name, "before");
    EXPECT_EQ(next.last, "before");
    EXPECT_EQ(next.y, 99);
}

TEST_P(AttributeScanDoubleForm, TestsEachTokenAgainstBothRows)
{
    Item item;
    ScanTwice<NameOnly, XAndY>("<Hole name=\"H1\" x=\"1.5\" y=\"2.5\"/>", item);
    EXPECT_EQ(item.name, "H1");
    EXPECT_EQ(item.x, 1.5);
    EXPECT_EQ(item.y, 2.5);
}

TEST_P(AttributeScanDoubleForm, ATokenThatTheFirstRowsTookIsTestedAgain)
{
    static constexpr auto max = Element<Item>("A", Text("max=", &Item::name));
    Item item;
    ScanTwice<max, XOnly>("<A max=\"5\" >", item);
    EXPECT_EQ(item.name, "5");
    EXPECT_EQ(item.x, 5);
}

TEST_P(AttributeScanDoubleForm, TheSecondRowsTestTheTokenOnWhichTheFirstEnded)
{
    Item item;
    ScanTwice<NameOnly, XAndY>("<A name=\"x=3 x=1\" y=\"2\" >", item);
    EXPECT_EQ(item.name, "x=3 1");
    EXPECT_EQ(item.x, 1);
    EXPECT_EQ(item.y, 99);
}

TEST_P(AttributeScanDoubleForm, TheTokenOnWhichTheFirstBeganIsNotTestedAgain)
{
    Item item;
    ScanTwice<NameOnly, XOnly>("<A name=\"x=3 end\" >", item);
    EXPECT_EQ(item.name, "x=3 end");
    EXPECT_EQ(item.x, 99);
}

TEST_P(AttributeScanDoubleForm, TheSecondRowsAreAChainToo)
{
    Item item;
    ScanTwice<NameOnly, XAndY>("<A y=x=\"5\" >", item);
    EXPECT_EQ(item.x, 0);
    EXPECT_EQ(item.y, 99);
    EXPECT_EQ(item.name, "before");
}

TEST_P(AttributeScanDoubleForm, AValueCutOffInEitherRowsThrows)
{
    Item item;
    EXPECT_THROW((ScanTwice<NameOnly, XOnly>("<A name=\"a", item)), CInvalidArgException);
    EXPECT_THROW((ScanTwice<NameOnly, XOnly>("<A x=\"1", item)), CInvalidArgException);
}

TEST_P(AttributeScanDoubleForm, TheTwoTablesExpectRowsOfTheirOwn)
{
    static constexpr auto texts = Element<Item>("A", Text("name=", &Item::name), Text("last=", &Item::last));
    Item item;
    ScanTwice<texts, XAndY>("<A name=\"n\" x=\"1\" last=\"l\" y=\"2\" >", item);
    EXPECT_EQ(item.name, "n");
    EXPECT_EQ(item.last, "l");
    EXPECT_EQ(item.x, 1);
    EXPECT_EQ(item.y, 2);
    ScanTwice<texts, XAndY>("<A y=\"3\" last=\"k\" x=\"4\" name=\"m\"/>", item);
    EXPECT_EQ(item.name, "m");
    EXPECT_EQ(item.last, "k");
    EXPECT_EQ(item.x, 4);
    EXPECT_EQ(item.y, 3);
}

// What a scan leaves in its fields, and whether it threw.
struct Result {
    bool isThrown = false;
    std::string text = "before";
    std::string other = "before";
    double x = 99;
    double y = 99;
    bool operator==(const Result &) const = default;
};

std::vector<std::string> TextsOf(const TokenList & tokens)
{
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(tokens.Size()));
    for (int i = 0; i < tokens.Size(); ++i) {
        texts.emplace_back(tokens[i]);
    }
    return texts;
}

constexpr auto NameAndA = Element<Item>("A", Text("name=", &Item::name), Text("a=", &Item::kind));

template <typename Scan>
Result ResultOf(Scan scan)
{
    Result result;
    Item item;
    try {
        scan(item);
    }
    catch (const CInvalidArgException &) {
        result.isThrown = true;
    }
    result.text = Str(item.name);
    result.other = Str(item.kind);
    result.x = item.x;
    result.y = item.y;
    return result;
}

TEST(AttributeScanOfAFile, AgreesWithTheScanOfTokensOnEveryLine)
{
    const std::vector<std::string_view> pieces = {
        " ",         "  ", "\"",         "=",    "/",          "<",        ">",        "\t",
        "name=",     "x=", "a=",         "y=",   "name=\"n\"", " x=\"1\"", " y=\"2\"", " a=\"b\"",
        " name=\"c", "d",  " max=\"3\"", "\"/>", "\" />",      "<Hole ",   "y=x=",     "\xC3\xA9"};
    std::mt19937 random(2581);
    std::string bytes;
    for (int i = 0; i < 20000; ++i) {
        std::string line = "<A";
        for (std::size_t count = random() % 9; count > 0; --count) {
            line += pieces[random() % pieces.size()];
        }
        bytes += line + "\n";
    }
    Lines file{std::string_view(bytes)};
    LineCycle cycle(file.File());
    while (cycle.Next()) {
        const Result expected = ResultOf([&cycle](Item & item) {
            LineTokens tokens;
            ScanTokens(cycle.CopyTokens(tokens), TableOf<NameAndA>, &TableOf<XAndY>, &item);
        });
        const Result result =
            ResultOf([&cycle](Item & item) { ScanAttributesTwice<NameAndA, XAndY>(cycle.Tokens(), item); });
        ASSERT_TRUE(result == expected) << testing::PrintToString(TextsOf(cycle.Tokens()));
    }
}

}  // namespace
