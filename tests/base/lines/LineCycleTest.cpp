#include "ipc2581/base/lines/LineCycle.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/LineFile.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"

namespace {

using ipc2581::detail::LineCycle;
using ipc2581::detail::LineForm;
using ipc2581::detail::LineTokens;
using ipc2581::detail::TokenList;
using ipc2581::tests::Lines;

using Texts = std::vector<std::string>;

Texts TokensOf(const TokenList & list)
{
    Texts tokens;
    tokens.reserve(static_cast<std::size_t>(list.Size()));
    for (int i = 0; i < list.Size(); ++i) {
        tokens.emplace_back(list[i]);
    }
    return tokens;
}

Texts TokensOf(std::string_view line, LineForm form)
{
    Lines file({line});
    LineCycle cycle(file.File(), form);
    EXPECT_TRUE(cycle.Next()) << line;
    return TokensOf(cycle.Tokens());
}

struct Cut {
    std::string_view line;
    Texts tokens;
};

void ExpectCuts(LineForm form, const std::vector<Cut> & cuts)
{
    for (const Cut & cut : cuts) {
        EXPECT_EQ(TokensOf(cut.line, form), cut.tokens) << '"' << cut.line << '"';
    }
}

void ExpectThrow(std::string_view line, LineForm form)
{
    Lines file({line});
    LineCycle cycle(file.File(), form);
    EXPECT_THROW(cycle.Next(), CInvalidArgException) << '"' << line << '"';
}

constexpr LineForm AllForms[] = {LineForm::Plain, LineForm::Content, LineForm::Trimmed, LineForm::WholeLine};

// A host's file that hands out lines of its own.
class HostFile : public CStdioFile {
public:
    explicit HostFile(std::vector<std::string> lines) : m_lines(std::move(lines)) {}
    int ReadString(CString & line) override
    {
        if (m_next == m_lines.size()) {
            line = "";
            return 0;
        }
        line = std::string_view(m_lines[m_next++]);
        return 1;
    }

private:
    std::vector<std::string> m_lines;
    std::size_t m_next = 0;
};

TEST(LineCycle, CutsALineThatHoldsABlank)
{
    ExpectCuts(LineForm::Plain, {
                                    {"<Pad x=\"1.0\" y=\"2.0\"/>", {"Pad", "x=\"1.0\"", "y=\"2.0\"/"}},
                                    {" <Bom>", {"Bom"}},
                                    {"<Bom> ", {"Bom"}},
                                    {"   </Pad>  ", {"/Pad"}},
                                    {"<A   b=\"c\"  />", {"A", "b=\"c\"", "/"}},
                                    {"<Pad x=\"1.0\" >", {"Pad", "x=\"1.0\"", ""}},
                                    {"< Pad", {"", "Pad"}},
                                    {"<A x=\"1\"/><B y=\"2\"/>", {"A", "x=\"1\"/B", "y=\"2\"/"}},
                                    {"\t<A b=\"c\">", {"\tA", "b=\"c\""}},
                                    {"> a<b>c", {"", "abc"}},
                                });
}

TEST(LineCycle, KeepsALineWithoutABlankWhole)
{
    ExpectCuts(LineForm::Plain, {
                                    {"<Bom>", {"<Bom>"}},
                                    {"</Bom>", {"</Bom>"}},
                                    {"<Step/>", {"<Step/>"}},
                                    {"\t<A>\t", {"\t<A>\t"}},
                                    {"<", {"<"}},
                                    {"", {""}},
                                });
}

TEST(LineCycle, ALineOfBlanksThrowsWhereItIsCut)
{
    for (const std::string_view blanks : {" ", "   "}) {
        ExpectThrow(blanks, LineForm::Plain);
        ExpectThrow(blanks, LineForm::Content);
    }
}

TEST(LineCycle, AnEmptyLineIsOneEmptyToken)
{
    Lines file({"", "<Bom>"});
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    EXPECT_FALSE(cycle.Holds("Bom"));
    EXPECT_FALSE(cycle.Opens("Bom"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("Bom"));
}

TEST(LineCycle, EndsWithTheFile)
{
    for (const LineForm form : AllForms) {
        Lines file({"<A>"});
        LineCycle cycle(file.File(), form);
        EXPECT_TRUE(cycle.Next());
        EXPECT_FALSE(cycle.Next());
        EXPECT_FALSE(cycle.Next());
    }
}

TEST(LineCycle, AnEmptyFileHasNoTurn)
{
    for (const LineForm form : AllForms) {
        Lines file(std::string_view(""));
        LineCycle cycle(file.File(), form);
        EXPECT_FALSE(cycle.Next());
    }
}

TEST(LineCycle, AFileThatIsNotOpenHasNoTurn)
{
    for (const LineForm form : AllForms) {
        CStdioFile file;
        LineCycle cycle(file, form);
        EXPECT_FALSE(cycle.Next());
    }
}

TEST(LineCycle, ALastLineNeedsNoLineEnd)
{
    Lines file(std::string_view("<A>\n<B c=\"d\"/>"));
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    ASSERT_TRUE(cycle.Next());
    EXPECT_EQ(TokensOf(cycle.Tokens()), (Texts{"B", "c=\"d\"/"}));
    EXPECT_FALSE(cycle.Next());
}

TEST(LineCycle, ACarriageReturnBelongsToTheLineEnd)
{
    for (const LineForm form : {LineForm::Plain, LineForm::Trimmed, LineForm::WholeLine}) {
        Lines file(std::string_view("<A>\r\n\r\n<B c=\"d\"/>\r\n"));
        LineCycle cycle(file.File(), form);
        ASSERT_TRUE(cycle.Next());
        EXPECT_EQ(TokensOf(cycle.Tokens()), Texts{"<A>"});
        ASSERT_TRUE(cycle.Next());
        EXPECT_EQ(TokensOf(cycle.Tokens()), Texts{""});
        ASSERT_TRUE(cycle.Next());
        EXPECT_EQ(TokensOf(cycle.Tokens()), (Texts{"B", "c=\"d\"/"}));
    }
}

TEST(LineCycle, HoldsFindsAWordAnywhereInTheFirstToken)
{
    Lines file({"</BomItem x=\"1\">"});
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("Bom"));
    EXPECT_TRUE(cycle.Holds("/Bom"));
    EXPECT_TRUE(cycle.Holds("BomItem"));
    EXPECT_TRUE(cycle.Holds("Item"));
    EXPECT_TRUE(cycle.Holds("/BomItem"));
    EXPECT_FALSE(cycle.Holds("bom"));
    EXPECT_FALSE(cycle.Holds("BOM"));
    EXPECT_FALSE(cycle.Holds("x="));
    EXPECT_FALSE(cycle.Holds("</Bom"));
    EXPECT_FALSE(cycle.Holds("BomItemX"));
    EXPECT_FALSE(cycle.Holds("moB"));
    EXPECT_FALSE(cycle.Holds("Bom/"));
}

TEST(LineCycle, SkipsTestsAsHoldsDoes)
{
    Lines file({"</Xform x=\"Location\">", "<Features Xform>"});
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Skips("Xform"));
    EXPECT_TRUE(cycle.Skips("/Xf"));
    EXPECT_FALSE(cycle.Skips("Location"));
    EXPECT_FALSE(cycle.Skips("xform"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_FALSE(cycle.Skips("Xform"));
}

TEST(LineCycle, HoldsLooksAtTheFirstTokenOnly)
{
    Lines file({"<X name=\"Bom\" Ecad>", "< Bom>"});
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    EXPECT_FALSE(cycle.Holds("Bom"));
    EXPECT_FALSE(cycle.Holds("Ecad"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_FALSE(cycle.Holds("Bom"));
}

TEST(LineCycle, OpensTurnsAwayASlashInTheFirstToken)
{
    const std::vector<std::pair<std::string_view, bool>> rows = {
        {"<Step>", true},
        {"<Step />", true},
        {"<Step name=\"a/b\"/>", true},
        {"<StepRef>", true},
        {"<Step/>", false},
        {"</Step>", false},
        {"</Step >", false},
        {"<Step/x name=\"a\">", false},
        {"<step>", false},
        {"<Ste p>", false},
        {"", false},
    };
    for (const auto & [line, opens] : rows) {
        Lines file({line});
        LineCycle cycle(file.File());
        ASSERT_TRUE(cycle.Next());
        EXPECT_EQ(cycle.Opens("Step"), opens) << line;
    }
}

TEST(LineCycle, ContentCutsWhatStandsInFrontOfTheFirstBracket)
{
    ExpectCuts(LineForm::Content, {
                                      {"   <A b=\"c\">", {"A", "b=\"c\""}},
                                      {"one two <A b=\"c\">", {"A", "b=\"c\""}},
                                      {"x<A b=\"<d>\">", {"A", "b=\"d\""}},
                                      {"a b", {"a", "b"}},
                                      {"   a>", {"a"}},
                                  });
}

TEST(LineCycle, ContentBlanksBothEndsOfALineWithoutABlank)
{
    ExpectCuts(LineForm::Content, {
                                      {"<StepRef>Top</StepRef>", {" StepRef>Top</StepRef "}},
                                      {"   <StepRef>Top</StepRef>", {" StepRef>Top</StepRef "}},
                                      {"</Content>", {" /Content "}},
                                      {"abc", {" b "}},
                                      {"ab", {"  "}},
                                      {"<", {" "}},
                                      {"   <", {" "}},
                                  });
}

TEST(LineCycle, ContentThrowsOnAnEmptyLine)
{
    ExpectThrow("", LineForm::Content);
}

TEST(LineCycle, ContentTestsTheBlankedToken)
{
    Lines file({"</Content", "</Content>"});
    LineCycle cycle(file.File(), LineForm::Content);
    ASSERT_TRUE(cycle.Next());
    EXPECT_FALSE(cycle.Holds("/Content"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("/Content"));
}

TEST(LineCycle, TrimmedDropsWhiteSpaceAtBothEnds)
{
    ExpectCuts(LineForm::Trimmed, {
                                      {"   <A>  ", {"<A>"}},
                                      {"\t<A>\t", {"<A>"}},
                                      {"  <A b=\"c\"/> ", {"A", "b=\"c\"/"}},
                                      {"\t <A b=\"c\"/>\t", {"A", "b=\"c\"/"}},
                                      {"<A\tb>", {"<A\tb>"}},
                                      {"", {""}},
                                      {"   ", {""}},
                                      {" \t ", {""}},
                                  });
}

TEST(LineCycle, TrimmedTestsTheFirstToken)
{
    Lines file({"  <X name=\"Bom\">  ", "  </Bom>  "});
    LineCycle cycle(file.File(), LineForm::Trimmed);
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Opens("X"));
    EXPECT_FALSE(cycle.Holds("Bom"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("/Bom"));
    EXPECT_FALSE(cycle.Opens("Bom"));
}

TEST(LineCycle, WholeLineCutsLikeAPlainLine)
{
    ExpectCuts(LineForm::WholeLine, {
                                        {"  <Circle diameter=\"1\"/>", {"Circle", "diameter=\"1\"/"}},
                                        {"</EntryStandard>", {"</EntryStandard>"}},
                                        {"", {""}},
                                    });
}

TEST(LineCycle, WholeLineTestsAllOfTheLine)
{
    Lines file({"<X kind=\"Circle\" to=\"a/b\">", "  <X kind=\"Circle\">", "</Circle>"});
    LineCycle cycle(file.File(), LineForm::WholeLine);
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("Circle"));
    EXPECT_TRUE(cycle.Holds("<X kind=\""));
    EXPECT_FALSE(cycle.Opens("Circle"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Opens("Circle"));
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("Circle"));
    EXPECT_FALSE(cycle.Opens("Circle"));
}

TEST(LineCycle, WholeLineTakesALineOfBlanks)
{
    Lines file({"   ", "<A>"});
    LineCycle cycle(file.File(), LineForm::WholeLine);
    ASSERT_TRUE(cycle.Next());
    EXPECT_FALSE(cycle.Holds("A"));
    EXPECT_EQ(TokensOf(cycle.Tokens()), Texts{});
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("A"));
}

TEST(LineCycle, EachTurnHasTokensOfItsOwn)
{
    Lines file({"<A b=\"c\" d=\"e\">", "<F g=\"h\">"});
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    EXPECT_EQ(cycle.Tokens().Size(), 3);
    ASSERT_TRUE(cycle.Next());
    EXPECT_EQ(TokensOf(cycle.Tokens()), (Texts{"F", "g=\"h\""}));
}

TEST(LineCycle, ReadsOnBehindAnInnerCycle)
{
    Lines file({"<Outer>", "<Inner x=\"1\">", "</Inner>", "<Behind y=\"2\">", "</Outer>"});
    LineCycle outer(file.File());
    ASSERT_TRUE(outer.Next());
    {
        LineCycle inner(file.File());
        ASSERT_TRUE(inner.Next());
        EXPECT_EQ(TokensOf(inner.Tokens()), (Texts{"Inner", "x=\"1\""}));
        ASSERT_TRUE(inner.Next());
    }
    ASSERT_TRUE(outer.Next());
    EXPECT_EQ(TokensOf(outer.Tokens()), (Texts{"Behind", "y=\"2\""}));
    EXPECT_EQ(file.Rest(), Texts{"</Outer>"});
}

TEST(LineCycle, CopiesItsTokens)
{
    Lines file({"<A b=\"c\" d=\"e\">", "<F>", "</A>"});
    LineCycle cycle(file.File());
    LineTokens tokens;
    tokens.Add("before");
    ASSERT_TRUE(cycle.Next());
    EXPECT_EQ(&cycle.CopyTokens(tokens), &tokens);
    EXPECT_EQ(tokens.reader.blocks, &file.File().Lines().Blocks());
    EXPECT_EQ(tokens.reader.observer, nullptr);
    LineCycle inner(file.File());
    ASSERT_TRUE(inner.Next());
    ASSERT_EQ(tokens.GetSize(), 3);
    EXPECT_EQ(tokens[0], "A");
    EXPECT_EQ(tokens[1], "b=\"c\"");
    EXPECT_EQ(tokens[2], "d=\"e\"");
    EXPECT_EQ(inner.CopyTokens(tokens).GetSize(), 1);
    EXPECT_EQ(tokens[0], "<F>");
}

TEST(LineCycle, TakesOneLineATurn)
{
    for (const LineForm form : AllForms) {
        Lines file({"<A>", "<B>", "<C>"});
        LineCycle cycle(file.File(), form);
        ASSERT_TRUE(cycle.Next());
        EXPECT_TRUE(cycle.Holds("A"));
        EXPECT_EQ(file.Rest(), (Texts{"<B>", "<C>"}));
    }
}

TEST(LineCycle, TakesALineOfAnyLength)
{
    const std::string name(200000, 'n');
    Lines file({"<A name=\"" + name + "\">", "</A>"});
    LineCycle cycle(file.File());
    ASSERT_TRUE(cycle.Next());
    EXPECT_EQ(cycle.Tokens()[1], "name=\"" + name + "\"");
    ASSERT_TRUE(cycle.Next());
    EXPECT_TRUE(cycle.Holds("/A"));
}

TEST(LineCycle, ReadsAHostsFileThroughItsReadString)
{
    const std::vector<std::pair<LineForm, Texts>> forms = {{LineForm::Plain, {"<C>"}},
                                                           {LineForm::Content, {" C "}},
                                                           {LineForm::Trimmed, {"<C>"}},
                                                           {LineForm::WholeLine, {"<C>"}}};
    for (const auto & [form, whole] : forms) {
        HostFile file({"<A b=\"c\">", "<C>"});
        LineCycle cycle(file, form);
        ASSERT_TRUE(cycle.Next());
        EXPECT_TRUE(cycle.Holds("A"));
        EXPECT_EQ(TokensOf(cycle.Tokens()), (Texts{"A", "b=\"c\""}));
        ASSERT_TRUE(cycle.Next());
        EXPECT_EQ(TokensOf(cycle.Tokens()), whole);
        EXPECT_FALSE(cycle.Next());
    }
}

}  // namespace
