#include "ipc2581/base/XmlDataAdd_Function.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Function = CIPC2581_XmlDataAdd_Function;
using List = CArray<CString, CString>;

Texts All(const List & tokens)
{
    Texts texts;
    for (std::int64_t i = 0; i < tokens.GetSize(); ++i) {
        texts.push_back(Str(tokens[i]));
    }
    return texts;
}

Texts Cut(std::string_view line)
{
    CString text(line);
    List tokens;
    Function().Tokenize(text, &tokens);
    EXPECT_EQ(text, line);
    return All(tokens);
}

struct Value {
    std::string text;
    int index = 0;
    bool operator==(const Value &) const = default;
};

void PrintTo(const Value & value, std::ostream * out)
{
    *out << '"' << value.text << R"(" at )" << value.index;
}

Value ValueOf(const Texts & texts, int index = 0)
{
    List tokens;
    for (const std::string & text : texts) {
        tokens.Add(CString(text.c_str()));
    }
    Value value;
    value.text = Str(Function().RightValueDataUse(tokens, index));
    value.index = index;
    EXPECT_EQ(All(tokens), texts);
    return value;
}

std::string Body(std::string_view text)
{
    CString line(text);
    return Str(Function().MidDataUse(line));
}

bool IsTrue(std::string_view text)
{
    CString value(text);
    const bool result = Function().RightValueBoolTypeUse(value);
    EXPECT_EQ(value, text);
    return result;
}

TEST(XmlDataAddFunction, HasNoDataAndAVirtualDestructor)
{
    EXPECT_EQ(sizeof(Function), sizeof(void *));
    EXPECT_TRUE(std::has_virtual_destructor_v<Function>);
    EXPECT_TRUE(std::is_default_constructible_v<Function>);
    EXPECT_TRUE(std::is_copy_constructible_v<Function>);
    EXPECT_TRUE(std::is_copy_assignable_v<Function>);
}

TEST(XmlDataAddFunction, OperationsAreNotVirtual)
{
    EXPECT_FALSE(IsVirtual(&Function::Tokenize));
    EXPECT_FALSE(IsVirtual(&Function::RightValueDataUse));
    EXPECT_FALSE(IsVirtual(&Function::RightDataUse));
    EXPECT_FALSE(IsVirtual(&Function::MidDataUse));
    EXPECT_FALSE(IsVirtual(&Function::RightValueBoolTypeUse));
}

TEST(XmlDataAddFunction, CopyingLeavesADerivedClassAlone)
{
    struct Derived : Function {
        int value = 1;
    };
    Derived source;
    source.value = 5;
    Derived target;
    static_cast<Function &>(target) = source;
    EXPECT_EQ(target.value, 1);
    EXPECT_EQ(Derived(source).value, 5);
}

TEST(XmlDataAddFunction, CutsALineOnBlanks)
{
    EXPECT_EQ(Cut(R"(<Pad x="1.0" y="2.0"/>)"), (Texts{"Pad", R"(x="1.0")", R"(y="2.0"/)"}));
    EXPECT_EQ(Cut("one two"), (Texts{"one", "two"}));
}

TEST(XmlDataAddFunction, RunOfBlanksIsOneSeparator)
{
    EXPECT_EQ(Cut("   one    two  "), (Texts{"one", "two"}));
}

TEST(XmlDataAddFunction, LineOfBlanksHasNoToken)
{
    EXPECT_EQ(Cut(" "), Texts{});
    EXPECT_EQ(Cut("      "), Texts{});
    EXPECT_EQ(Cut(""), Texts{});
}

TEST(XmlDataAddFunction, BlankAloneSeparates)
{
    EXPECT_EQ(Cut("\tone\ttwo three\r\v\f"), (Texts{"\tone\ttwo", "three\r\v\f"}));
    EXPECT_EQ(Cut("\t \t"), (Texts{"\t", "\t"}));
}

TEST(XmlDataAddFunction, BracketsAreDroppedWhereverTheyStand)
{
    EXPECT_EQ(Cut("</Pad>"), Texts{"/Pad"});
    EXPECT_EQ(Cut(R"(<<a>>b<c> d="x<y>z"/>)"), (Texts{"abc", R"(d="xyz"/)"}));
    EXPECT_EQ(Cut("<a>text</a> <b/>"), (Texts{"atext/a", "b/"}));
    EXPECT_EQ(Cut("><a"), Texts{"a"});
}

TEST(XmlDataAddFunction, SlashesQuotesAndEntitiesStay)
{
    EXPECT_EQ(Cut(R"(a/b="/" 'c' &lt;d&gt; <!--e-->)"), (Texts{R"(a/b="/")", "'c'", "&lt;d&gt;", "!--e--"}));
}

TEST(XmlDataAddFunction, TokenOfBracketsAloneIsEmptyAndKept)
{
    EXPECT_EQ(Cut(R"(<Pad x="1.0" >)"), (Texts{"Pad", R"(x="1.0")", ""}));
    EXPECT_EQ(Cut("< Pad"), (Texts{"", "Pad"}));
    EXPECT_EQ(Cut("a <> >> b"), (Texts{"a", "", "", "b"}));
}

TEST(XmlDataAddFunction, TokensGrowAtTheEndOfTheList)
{
    List tokens;
    tokens.Add(CString("<old>"));
    CString line("<new> x");
    Function().Tokenize(line, &tokens);
    EXPECT_EQ(All(tokens), (Texts{"<old>", "new", "x"}));
    CString blanks("   ");
    Function().Tokenize(blanks, &tokens);
    EXPECT_EQ(All(tokens), (Texts{"<old>", "new", "x"}));
}

TEST(XmlDataAddFunction, LineMayHaveManyTokensAndLongOnes)
{
    std::string line;
    Texts expected;
    for (int i = 0; i < 5000; ++i) {
        expected.push_back(std::to_string(i));
        line += '<' + expected.back() + "> ";
    }
    expected.emplace_back(100'000, 'x');
    EXPECT_EQ(Cut(line + expected.back()), expected);
}

TEST(XmlDataAddFunction, ValueFollowsFromQuotesAndTheFirstEqualSign)
{
    struct Case {
        Texts tokens;
        Value value;
    };
    const std::vector<Case> cases = {
        {{R"(name="R1")"}, {"R1", 0}},
        {{R"(name="R1"/)"}, {"R1", 0}},
        {{R"(name="")"}, {"", 0}},
        {{R"(name="A/B")"}, {"AB", 0}},
        {{R"(name="A/")"}, {"A", 0}},
        {{R"(name="//"/)"}, {"", 0}},
        {{R"(name="a=b")"}, {"a=b", 0}},
        {{R"(name="=")"}, {"=", 0}},
        {{R"("R1")"}, {"R1", 0}},
        {{R"(R"1")"}, {"R1", 0}},
        {{R"(name="two)", R"(words")"}, {"two words", 1}},
        {{R"(name="one)", "two", R"(three"/)"}, {"one two three", 2}},
        {{R"(name="a)", R"(b=c")"}, {"a c", 1}},
        {{R"(name="a)", "b=c=d", R"(e")"}, {"a c=d e", 2}},
        {{R"(name=")", R"(")"}, {" ", 1}},
        {{R"(name=")", "a", R"(")"}, {" a ", 2}},
        {{"name=plain", R"(other="x")"}, {"plain x", 1}},
        {{"name=plain", "more", R"(other="x")", R"(y="2")"}, {"plain more x", 2}},
        {{"name=", R"("x")"}, {" x", 1}},
        {{R"(a="1"b="2")"}, {"1b=2", 0}},
        {{"plain", R"(next")"}, {"plain next", 1}},
        {{"pl/ain", "ne/xt", R"(")"}, {"plain next ", 2}},
        {{"", R"(")"}, {" ", 1}},
        {{R"(name="a)", "", R"(b")"}, {"a  b", 2}},
        {{R"(name="a)", R"(b"c"d")"}, {"a bcd", 1}},
        {{"name='R1'", R"(x="2")"}, {"'R1' 2", 1}},
        {{R"(name="&lt;&amp;")"}, {"&lt;&amp;", 0}},
        {{R"(name="'a'")"}, {"'a'", 0}},
        {{"name=\"\tx\""}, {"\tx", 0}},
        {{R"("name=x")"}, {"x", 0}},
        {{R"(name="a"b"c)"}, {"abc", 0}},
        {{R"(<Layer>name="<A>"</Layer>)"}, {"<A><Layer>", 0}},
    };
    for (const auto & [tokens, value] : cases) {
        EXPECT_EQ(ValueOf(tokens), value) << tokens.front();
    }
}

TEST(XmlDataAddFunction, ValueBeginsAtTheIndex)
{
    const Texts tokens{"Pad", R"(x="1")", R"(name="two)", R"(words")", R"(y="2"/)"};
    EXPECT_EQ(ValueOf(tokens, 1), (Value{"1", 1}));
    EXPECT_EQ(ValueOf(tokens, 2), (Value{"two words", 3}));
    EXPECT_EQ(ValueOf(tokens, 4), (Value{"2", 4}));
}

TEST(XmlDataAddFunction, IndexGrowsByTheNumberOfFurtherTokens)
{
    for (int further = 0; further < 40; ++further) {
        Texts tokens{R"(first="1")", R"(name="x)"};
        std::string expected = "x";
        for (int i = 0; i < further; ++i) {
            tokens.emplace_back("y");
            expected += " y";
        }
        tokens.back() += R"(")";
        tokens.emplace_back(R"(last="1")");
        EXPECT_EQ(ValueOf(tokens, 1), (Value{expected, 1 + further}));
    }
}

TEST(XmlDataAddFunction, BlanksInsideAValueComeBackAsOne)
{
    struct Case {
        std::string_view line;
        Value value;
    };
    for (const auto & [line, value] :
         {Case{R"(<A name="two    words"/>)", {"two words", 2}}, Case{R"(<A name="  lead">)", {" lead", 2}},
          Case{R"(<A name="trail   ">)", {"trail ", 2}}, Case{R"(<A name="    " />)", {" ", 2}},
          Case{R"(<A name="a<b> c">)", {"ab c", 2}}}) {
        EXPECT_EQ(ValueOf(Cut(line), 1), value) << line;
    }
}

TEST(XmlDataAddFunction, ValueAtAnIndexOutOfRangeRaises)
{
    for (const int index : {INT32_MIN, -1, 2, INT32_MAX}) {
        List tokens;
        tokens.Add(CString(R"(a="1")"));
        tokens.Add(CString(R"(b="2")"));
        int changed = index;
        EXPECT_THROW(Function().RightValueDataUse(tokens, changed), CInvalidArgException) << index;
        EXPECT_EQ(changed, index);
    }
    EXPECT_THROW(ValueOf({}), CInvalidArgException);
}

TEST(XmlDataAddFunction, ValueThatIsCutOffRaises)
{
    const std::vector<Texts> lists = {{"name=plain"},      {R"(name="open)"},
                                      {"plain"},           {""},
                                      {R"(name=")"},       {"name='R1'"},
                                      {R"(name="a)", "b"}, {"name=a", "b", "c"},
                                      {"name=plain/"},     {R"(name="a)", "b=c", ""}};
    for (const Texts & tokens : lists) {
        EXPECT_THROW(ValueOf(tokens), CInvalidArgException) << tokens.front();
    }
}

TEST(XmlDataAddFunction, ValueMayBeLong)
{
    const std::string text(100'000, 'x');
    EXPECT_EQ(ValueOf({R"(name=")" + text + "/", text + R"("/)"}), (Value{text + ' ' + text, 1}));
}

TEST(XmlDataAddFunction, RightDataLosesQuotesAndSlashes)
{
    const std::vector<std::pair<std::string_view, std::string_view>> cases = {
        {R"("A/B"/)", "AB"}, {R"(name="a/")", "name=a"}, {"plain", "plain"}, {"", ""},
        {R"(/"/")", ""},     {"<a='b'>", "<a='b'>"}};
    for (const auto & [before, after] : cases) {
        CString text(before);
        EXPECT_EQ(Function().RightDataUse(text), after);
        EXPECT_EQ(text, after);
    }
}

TEST(XmlDataAddFunction, RightDataIsACopy)
{
    CString text(R"("a")");
    const CString result = Function().RightDataUse(text);
    text = "other";
    EXPECT_EQ(result, "a");
}

TEST(XmlDataAddFunction, MidDataIsTheBody)
{
    EXPECT_EQ(Body("<Tag>body</Tag>"), "body");
    EXPECT_EQ(Body(R"(<Tag a="1">two words</Tag>)"), "two words");
    EXPECT_EQ(Body("<Tag></Tag>"), "");
}

TEST(XmlDataAddFunction, MidDataBlanksBothEndsOfTheText)
{
    CString line("<Tag>body</Tag>");
    Function().MidDataUse(line);
    EXPECT_EQ(line, " Tag>body</Tag ");
    CString one("x");
    EXPECT_EQ(Function().MidDataUse(one), "");
    EXPECT_EQ(one, " ");
}

TEST(XmlDataAddFunction, MidDataGoesFromTheFirstClosingToTheFirstOpeningBracket)
{
    EXPECT_EQ(Body("<A><B>x</B></A>"), "");
    EXPECT_EQ(Body("<A>b>c<d>e</A>"), "b>c");
    EXPECT_EQ(Body("xabc<dx"), " abc");
    EXPECT_EQ(Body("xa>bcx"), "");
    EXPECT_EQ(Body("plain"), "");
    EXPECT_EQ(Body("xa<b>cx"), "");
    EXPECT_EQ(Body(" <Tag>body</Tag>"), "");
    EXPECT_EQ(Body("<>"), "");
}

TEST(XmlDataAddFunction, MidDataOfAnEmptyTextRaises)
{
    CString empty;
    EXPECT_THROW(Function().MidDataUse(empty), CInvalidArgException);
    EXPECT_EQ(empty, "");
}

TEST(XmlDataAddFunction, TextThatHoldsTheWordTrueIsTrue)
{
    for (const std::string_view text : {"TRUE", R"("TRUE")", "UNTRUE", "xTRUEx", "FALSE TRUE", "TRTRUE"}) {
        EXPECT_TRUE(IsTrue(text)) << text;
    }
    for (const std::string_view text : {"", "true", "True", "tRUE", "FALSE", "TRU", "TR UE", "1", "YES"}) {
        EXPECT_FALSE(IsTrue(text)) << text;
    }
}

TEST(XmlDataAddFunction, MayCutAnElementOfTheListThatItFills)
{
    for (const char * const text : {"a b", R"(<Pad x="1" y="2"/>)"}) {
        CArray<CString, CString> tokens;
        CString line(text);
        tokens.Add(line);
        tokens.FreeExtra();
        CArray<CString, CString> expected;
        CIPC2581_XmlDataAdd_Function().Tokenize(line, &expected);
        CIPC2581_XmlDataAdd_Function().Tokenize(tokens[0], &tokens);
        ASSERT_EQ(tokens.GetSize(), expected.GetSize() + 1);
        for (std::int64_t i = 0; i < expected.GetSize(); ++i) {
            EXPECT_EQ(tokens[i + 1], expected[i]);
        }
        EXPECT_EQ(tokens[0], text);
    }
}

}  // namespace
