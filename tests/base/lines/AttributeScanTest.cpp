#include "ipc2581/base/lines/AttributeScan.h"

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/platform/Afx.h"
#include "tests/support/Files.h"

namespace {

using ipc2581::detail::Attribute;
using ipc2581::detail::AttributeHit;
using ipc2581::detail::Attributes;
using ipc2581::detail::ControlFlag;
using ipc2581::detail::Flag;
using ipc2581::detail::Integer;
using ipc2581::detail::LineCycle;
using ipc2581::detail::Number;
using ipc2581::detail::ScanAttributes;
using ipc2581::detail::ScanTokens;
using ipc2581::detail::Text;
using ipc2581::detail::TokenList;
using ipc2581::tests::Lines;
using ipc2581::tests::Str;
using ipc2581::tests::Tokens;

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
    static void Scan(std::string_view line, Attributes rows)
    {
        WithTokens(line, [rows](const TokenList & tokens) { ScanAttributes(tokens, rows); });
    }
    static void Scan(std::string_view line, Attributes first, Attributes second)
    {
        WithTokens(line, [first, second](const TokenList & tokens) { ScanAttributes(tokens, first, second); });
    }
    // What the row name= makes of a line.
    static std::string Name(std::string_view line)
    {
        CString name("before");
        Scan(line, {Text("name=", name)});
        return Str(name);
    }
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
    CString name;
    Scan("<A kind=\"name\" >", {Text("name", name)});
    EXPECT_EQ(name, "name");
}

TEST_P(AttributeScan, AWordWithTheEqualSignIsNarrower)
{
    EXPECT_EQ(Name("<A name =\"x\" >"), "before");
    EXPECT_EQ(Name("<A Name=\"x\" >"), "before");
    EXPECT_EQ(Name("<A kind=\"name\" >"), "before");
}

TEST_P(AttributeScan, TheFirstRowThatIsHeldTakesTheToken)
{
    CString first("before");
    CString second("before");
    Scan("<A b=a=\"v\" >", {Text("a=", first), Text("b=", second)});
    EXPECT_EQ(first, "a=v");
    EXPECT_EQ(second, "before");
    Scan("<A b=a=\"w\" >", {Text("b=", second), Text("a=", first)});
    EXPECT_EQ(first, "a=v");
    EXPECT_EQ(second, "a=w");
}

TEST_P(AttributeScan, AValueOfSeveralTokensMovesTheScanOn)
{
    CString name;
    CString kind("before");
    CString last;
    Scan("<A name=\"two kind=x words\" last=\"z\"/>", {Text("name=", name), Text("kind=", kind), Text("last=", last)});
    EXPECT_EQ(name, "two x words");
    EXPECT_EQ(kind, "before");
    EXPECT_EQ(last, "z");
}

TEST_P(AttributeScan, ATokenThatNoRowTestsMayStayOpen)
{
    EXPECT_EQ(Name("<A name=\"R1\" note=\"open"), "R1");
}

TEST_P(AttributeScan, AValueThatIsCutOffThrows)
{
    for (const std::string_view line : {"<A name=\"open", "<A name=", "<A name=plain", "<A name=\"open and on"}) {
        CString name;
        EXPECT_THROW(Scan(line, {Text("name=", name)}), CInvalidArgException) << line;
    }
}

TEST_P(AttributeScan, WhatWasStoredBeforeACutValueStays)
{
    CString name;
    double x = 1;
    EXPECT_THROW(Scan("<A name=\"R1\" x=\"2", {Text("name=", name), Number("x=", x)}), CInvalidArgException);
    EXPECT_EQ(name, "R1");
    EXPECT_EQ(x, 1);
}

TEST_P(AttributeScan, NumberReadsTheLongestPrefix)
{
    const std::vector<std::pair<std::string_view, double>> rows = {
        {"x=\"1.5\"", 1.5}, {"x=\"-2e3\"/", -2000}, {"x=\"7mm\"", 7}, {"x=\"mm\"", 0}, {"x=\"\"", 0}, {"x=\"1,5\"", 1},
    };
    for (const auto & [token, value] : rows) {
        double x = 99;
        Scan("<A " + std::string(token) + " >", {Number("x=", x)});
        EXPECT_EQ(x, value) << token;
    }
}

TEST_P(AttributeScan, IntegerDropsWhatStandsBehind)
{
    const std::vector<std::pair<std::string_view, int>> rows = {
        {"n=\"12\"", 12}, {"n=\"-3.9\"/", -3}, {"n=\"+4x\"", 4}, {"n=\"x4\"", 0}, {"n=\"\"", 0}, {"n=\"1e3\"", 1},
    };
    for (const auto & [token, value] : rows) {
        int n = 99;
        Scan("<A " + std::string(token) + " >", {Integer("n=", n)});
        EXPECT_EQ(n, value) << token;
    }
}

TEST_P(AttributeScan, FlagIsTrueForTheWordInUpperCaseAlone)
{
    const std::vector<std::pair<std::string_view, bool>> rows = {
        {"TRUE", true},  {"xTRUEx", true}, {"FALSE", false}, {"true", false},
        {"True", false}, {"1", false},     {"", false},      {"TR/UE", true},
    };
    for (const auto & [value, expected] : rows) {
        for (const bool before : {false, true}) {
            bool flag = before;
            int number = before ? 1 : 0;
            const std::string line = "<A f=\"" + std::string(value) + "\" >";
            Scan(line, {Flag("f=", flag)});
            Scan(line, {Flag("f=", number)});
            EXPECT_EQ(flag, expected) << value;
            EXPECT_EQ(number, expected ? 1 : 0) << value;
        }
    }
}

TEST_P(AttributeScan, AbsentFlagsStay)
{
    bool flag = true;
    int number = 5;
    int control = 6;
    Scan("<A b=\"FALSE\">", {Flag("f=", flag), Flag("n=", number), ControlFlag("c=", control)});
    EXPECT_TRUE(flag);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(control, 6);
}

TEST_P(AttributeScan, ControlFlagIsSetByOneControlCharacterAlone)
{
    const std::vector<std::pair<std::string_view, int>> rows = {
        {"\x01", 1}, {"1", 0}, {"TRUE", 0}, {"true", 0}, {"", 0}, {"\x01\x01", 0}, {"\x02", 0}, {"/\x01", 1},
    };
    for (const auto & [value, expected] : rows) {
        int flag = 7;
        Scan("<A mirror=\"" + std::string(value) + "\" >", {ControlFlag("mirror=", flag)});
        EXPECT_EQ(flag, expected) << value;
    }
}

TEST_P(AttributeScan, NoRowsChangeNothing)
{
    Scan("<A name=\"open", {});
    EXPECT_EQ(Name("<A>"), "before");
}

TEST(AttributeScanOfAHost, TakesTheListAsItStands)
{
    CString name;
    Tokens tokens("<A name=\"two words\" >");
    ScanAttributes(tokens.List(), {Text("name=", name)});
    EXPECT_EQ(name, "two words");
    EXPECT_EQ(tokens->GetSize(), 4);

    CArray<CString, CString> raw;
    raw.Add("a b");
    raw.Add("name=\"<x y>\"");
    ScanAttributes(raw, {Text("name=", name)});
    EXPECT_EQ(name, "<x y>");
}

TEST_P(AttributeScan, ALineWithoutABlankIsOneToken)
{
    EXPECT_EQ(Name("<name=\"x\">"), "x>");
    EXPECT_EQ(Name("name=\"x\"y=\"z\""), "xy=z");
}

TEST_P(AttributeScan, ARowMayTakeItsValueTwice)
{
    using Values = std::vector<std::string>;
    const auto takeTwice = [](AttributeHit & hit, void * field) {
        Values values = {hit.TokenHolds("FAL") ? "FAL" : ""};
        values.emplace_back(hit.Take());
        values.emplace_back(hit.Take());
        *static_cast<Values *>(field) = values;
    };
    Values values;
    Scan("<A clock=\"FALSE\" x>", {Attribute{"clock", takeTwice, &values}});
    EXPECT_EQ(values, (Values{"FAL", "FALSE", "FALSE"}));
    Scan("<A clock=\"one two\" y=\"3\" >", {Attribute{"clock", takeTwice, &values}});
    EXPECT_EQ(values, (Values{"", "one two", "two 3"}));
}

TEST_P(AttributeScanDoubleForm, TestsEachTokenAgainstBothRows)
{
    CString name;
    double x = 0;
    double y = 0;
    Scan("<Hole name=\"H1\" x=\"1.5\" y=\"2.5\"/>", {Text("name=", name)}, {Number("x=", x), Number("y=", y)});
    EXPECT_EQ(name, "H1");
    EXPECT_EQ(x, 1.5);
    EXPECT_EQ(y, 2.5);
}

TEST_P(AttributeScanDoubleForm, ATokenThatTheFirstRowsTookIsTestedAgain)
{
    CString max;
    double x = 0;
    Scan("<A max=\"5\" >", {Text("max=", max)}, {Number("x=", x)});
    EXPECT_EQ(max, "5");
    EXPECT_EQ(x, 5);
}

TEST_P(AttributeScanDoubleForm, TheSecondRowsTestTheTokenOnWhichTheFirstEnded)
{
    CString name;
    double x = 0;
    double y = 7;
    Scan("<A name=\"x=3 x=1\" y=\"2\" >", {Text("name=", name)}, {Number("x=", x), Number("y=", y)});
    EXPECT_EQ(name, "x=3 1");
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 7);
}

TEST_P(AttributeScanDoubleForm, TheTokenOnWhichTheFirstBeganIsNotTestedAgain)
{
    CString name;
    double x = 7;
    Scan("<A name=\"x=3 end\" >", {Text("name=", name)}, {Number("x=", x)});
    EXPECT_EQ(name, "x=3 end");
    EXPECT_EQ(x, 7);
}

TEST_P(AttributeScanDoubleForm, TheSecondRowsAreAChainToo)
{
    double x = 7;
    double y = 8;
    CString name("before");
    Scan("<A y=x=\"5\" >", {Text("name=", name)}, {Number("x=", x), Number("y=", y)});
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 8);
    EXPECT_EQ(name, "before");
}

TEST_P(AttributeScanDoubleForm, AValueCutOffInEitherRowsThrows)
{
    CString name;
    double x = 0;
    EXPECT_THROW(Scan("<A name=\"a", {Text("name=", name)}, {Number("x=", x)}), CInvalidArgException);
    EXPECT_THROW(Scan("<A x=\"1", {Text("name=", name)}, {Number("x=", x)}), CInvalidArgException);
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

template <typename Scan>
Result ResultOf(Scan scan)
{
    Result result;
    CString text("before");
    CString other("before");
    try {
        scan(Attributes{Text("name=", text), Text("a=", other)},
             Attributes{Number("x=", result.x), Number("y=", result.y)});
    }
    catch (const CInvalidArgException &) {
        result.isThrown = true;
    }
    result.text = Str(text);
    result.other = Str(other);
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
        const Result expected = ResultOf([&cycle](Attributes first, Attributes second) {
            CArray<CString, CString> tokens;
            ScanTokens(cycle.CopyTokens(tokens), first, second);
        });
        const Result result =
            ResultOf([&cycle](Attributes first, Attributes second) { ScanAttributes(cycle.Tokens(), first, second); });
        ASSERT_TRUE(result == expected) << testing::PrintToString(TextsOf(cycle.Tokens()));
    }
}

}  // namespace
