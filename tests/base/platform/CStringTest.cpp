#include "ipc2581/base/platform/CString.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "tests/support/Files.h"
#include "tests/support/Locales.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {
namespace {

// Texts of all lengths up to one that no object holds inside itself.
std::vector<std::string> TextsOfAllLengths()
{
    std::vector<std::string> texts;
    std::string text;
    for (int length = 0; length < 80; ++length) {
        texts.push_back(text);
        text.push_back(static_cast<char>('a' + length % 26));
    }
    texts.emplace_back(5000, 'z');
    return texts;
}

std::vector<std::string> Walk(const CString & text, const char * delims)
{
    std::vector<std::string> tokens;
    int pos = 0;
    for (CString token = text.Tokenize(delims, pos); token.Compare("") != 0; token = text.Tokenize(delims, pos)) {
        tokens.push_back(Str(token));
    }
    EXPECT_EQ(pos, -1);
    return tokens;
}

std::string Replaced(const char * text, const char * old, const char * replacement, int expectedCount)
{
    CString changed(text);
    EXPECT_EQ(changed.Replace(old, replacement), expectedCount);
    return Str(changed);
}

std::string Trimmed(std::string_view text)
{
    CString changed(text);
    changed.Trim();
    return Str(changed);
}

}  // namespace

TEST(CString, IsEmptyWhenNew)
{
    const CString text;
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_STREQ(text.GetString(), "");
    EXPECT_EQ(text, "");
    EXPECT_EQ(CString("").GetLength(), 0);
}

TEST(CString, HoldsTextOfAnyLength)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        const CString text(bytes.c_str());
        EXPECT_EQ(text.GetLength(), static_cast<int>(bytes.size()));
        EXPECT_STREQ(text.GetString(), bytes.c_str());
        EXPECT_STREQ(static_cast<const char *>(text), bytes.c_str());
        EXPECT_EQ(static_cast<std::string_view>(text), bytes);
        EXPECT_EQ(CString(std::string_view(bytes)), text);
    }
}

TEST(CString, CountsBytesAndDecodesNothing)
{
    const CString text("\xc2\xb5m \xff\x80");
    EXPECT_EQ(text.GetLength(), 6);
    EXPECT_EQ(text.Find("m", 0), 2);
    EXPECT_EQ(text[0], '\xc2');
    EXPECT_EQ(text.Right(2), "\xff\x80");
}

TEST(CString, IsAValueType)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        const CString source(bytes.c_str());
        CString copy(source);
        CString assigned("something that is longer than what an object holds inside itself");
        assigned = source;
        EXPECT_EQ(copy, source);
        EXPECT_EQ(assigned, source);
        copy += 'X';
        assigned = "Y";
        EXPECT_EQ(Str(copy), bytes + "X");
        EXPECT_EQ(Str(source), bytes);
    }
    static_assert(std::is_copy_constructible_v<CString> && std::is_copy_assignable_v<CString>);
    static_assert(std::is_convertible_v<const char *, CString>);
}

TEST(CString, KeepsItsTextOutsideWhenMoved)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        CString source(bytes.c_str());
        CString taken(std::move(source));
        EXPECT_EQ(Str(taken), bytes);
        CString assigned("before");
        assigned = std::move(taken);
        EXPECT_EQ(Str(assigned), bytes);
        source = "again";
        taken = source;
        EXPECT_EQ(taken, "again");
    }
}

TEST(CString, IsAsLargeAsAPointer)
{
    EXPECT_EQ(sizeof(CString), std::max(sizeof(void *), std::size_t(8)));
}

TEST(CString, TakesATextOfAnyLengthIntoBlocks)
{
    std::vector<CString> texts(3000);
    {
        ipc2581::detail::ObjectBlocks blocks;
        for (std::size_t size = 0; size < texts.size(); ++size) {
            texts[size].Assign(std::string(size * 17, 'x'), &blocks);
            texts[size].Assign(std::string(size, 'a'), &blocks);
        }
    }
    // The texts outlive the blocks that they were taken from, and change, move and go like all others.
    for (std::size_t size = 0; size < texts.size(); ++size) {
        CString copy(texts[size]);
        copy += 'b';
        texts[size] += 'b';
        const CString moved(std::move(texts[size]));
        ASSERT_EQ(moved, std::string(size, 'a') + 'b');
        ASSERT_EQ(copy, moved);
        ASSERT_EQ(std::strlen(moved), size + 1);
        ASSERT_TRUE(texts[size].IsEmpty());
        texts[size] = moved;
    }
    ASSERT_EQ(texts[2999].GetLength(), 3000);
}

TEST(CString, MayBeTakenIntoBlocksFromAPieceOfItself)
{
    ipc2581::detail::ObjectBlocks blocks;
    CString text("a text that is longer than a few bytes");
    text.Assign(std::string_view(text).substr(7), &blocks);
    EXPECT_EQ(text, "that is longer than a few bytes");
    text.Assign(std::string_view(text).substr(8, 4), &blocks);
    EXPECT_EQ(text, "long");
    text.Assign(text, nullptr);
    EXPECT_EQ(text, "long");
}

TEST(CString, MayBeAssignedFromItselfAndFromAPieceOfItself)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        CString text(bytes.c_str());
        const CString & same = text;
        text = same;
        EXPECT_EQ(Str(text), bytes);
        text = text.GetString();
        EXPECT_EQ(Str(text), bytes);
        text = text.GetString() + bytes.size() / 3;
        EXPECT_EQ(Str(text), bytes.substr(bytes.size() / 3));
    }
}

TEST(CString, GrowsByTextAndByOneCharacter)
{
    CString text;
    std::string bytes;
    for (int i = 0; i < 600; ++i) {
        text += static_cast<char>('a' + i % 26);
        bytes += static_cast<char>('a' + i % 26);
        ASSERT_EQ(Str(text), bytes);
        ASSERT_EQ(text.GetString()[text.GetLength()], '\0');
    }
    text += CString("tail");
    text += CString();
    EXPECT_EQ(Str(text), bytes + "tail");
}

TEST(CString, MayBeAppendedToItself)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        CString text(bytes.c_str());
        text += text;
        EXPECT_EQ(Str(text), bytes + bytes);
    }
}

TEST(CString, IsJoinedIntoANewOne)
{
    const CString left("left");
    const CString right("right");
    EXPECT_EQ(left + right, "leftright");
    EXPECT_EQ(left + "-" + right, "left-right");
    EXPECT_EQ(left + '-' + right, "left-right");
    EXPECT_EQ('<' + left, "<left");
    EXPECT_EQ("<" + left, "<left");
    EXPECT_EQ(left + CString(), left);
    EXPECT_EQ(left, "left");
    EXPECT_EQ(right, "right");
    static_assert(std::is_same_v<decltype(left + right), CString>);
}

TEST(CString, ComparesCaseSensitively)
{
    const CString text("Layer");
    EXPECT_EQ(text.Compare("Layer"), 0);
    EXPECT_NE(text.Compare("layer"), 0);
    EXPECT_NE(text.Compare("Laye"), 0);
    EXPECT_NE(text.Compare("Layers"), 0);
    EXPECT_NE(text.Compare(""), 0);
    EXPECT_EQ(CString().Compare(""), 0);
    EXPECT_NE(CString().Compare("a"), 0);
    EXPECT_EQ(text.Compare(CString("Layer")), 0);
    EXPECT_NE(CString("\xff").Compare("\x7f"), 0);
}

TEST(CString, IsEqualToTheSameBytes)
{
    const CString text("Layer");
    EXPECT_TRUE(text == CString("Layer"));
    EXPECT_TRUE(text == "Layer");
    EXPECT_TRUE(text == std::string_view("Layer"));
    EXPECT_FALSE(text == CString("layer"));
    EXPECT_FALSE(text == "layer");
    EXPECT_FALSE(text == std::string_view("Laye"));
    EXPECT_TRUE(text != "layer");
    EXPECT_TRUE(text != CString("Layers"));
}

TEST(CString, GivesTheCharacterAtAPosition)
{
    const std::string bytes = "0123456789abcdefghijklmnop";
    const CString text(bytes.c_str());
    for (int i = 0; i < text.GetLength(); ++i) {
        EXPECT_EQ(text[i], bytes[static_cast<std::size_t>(i)]);
    }
}

TEST(CString, RaisesForAPositionOutsideIt)
{
    const CString text("abc");
    for (const int position : {-1, 3, 4, INT_MAX, INT_MIN}) {
        EXPECT_THROW(static_cast<void>(text[position]), CInvalidArgException) << position;
    }
    EXPECT_THROW(static_cast<void>(CString()[0]), CInvalidArgException);
}

TEST(CString, OverwritesOneCharacterOfItself)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        if (bytes.empty()) {
            continue;
        }
        CString text(bytes.c_str());
        const CString copy(text);
        text.SetAt(0, ' ');
        text.SetAt(text.GetLength() - 1, '!');
        std::string expected = bytes;
        expected.front() = ' ';
        expected.back() = '!';
        EXPECT_EQ(Str(text), expected);
        EXPECT_EQ(Str(copy), bytes);
    }
}

TEST(CString, HasNoPositionToOverwriteOutsideIt)
{
    CString text("abc");
    for (const int position : {-1, 3, 4, INT_MAX, INT_MIN}) {
        EXPECT_THROW(text.SetAt(position, 'x'), CInvalidArgException) << position;
    }
    EXPECT_EQ(text, "abc");
    CString empty;
    EXPECT_THROW(empty.SetAt(0, 'x'), CInvalidArgException);
    EXPECT_THROW(empty.SetAt(-1, 'x'), CInvalidArgException);
    EXPECT_EQ(empty, "");
}

TEST(CString, FindsTheFirstOccurrenceOfAText)
{
    const CString text(R"(<Layer name="Layer">)");
    EXPECT_EQ(text.Find("Layer", 0), 1);
    EXPECT_EQ(text.Find("Layer"), 1);
    EXPECT_EQ(text.Find("Layer", 1), 1);
    EXPECT_EQ(text.Find("Layer", 2), 13);
    EXPECT_EQ(text.Find("Layer", 14), -1);
    EXPECT_EQ(text.Find("layer", 0), -1);
    EXPECT_EQ(text.Find("<", 0), 0);
    EXPECT_EQ(text.Find(R"(">)", 0), 18);
    EXPECT_EQ(text.Find(R"(<Layer name="Layer"> )", 0), -1);
    EXPECT_EQ(CString("aab").Find("ab", 0), 1);
}

TEST(CString, FindsTheFirstOccurrenceOfACharacter)
{
    const CString text("a.b.c");
    EXPECT_EQ(text.Find('.', 0), 1);
    EXPECT_EQ(text.Find('.'), 1);
    EXPECT_EQ(text.Find('.', 1), 1);
    EXPECT_EQ(text.Find('.', 2), 3);
    EXPECT_EQ(text.Find('.', 4), -1);
    EXPECT_EQ(text.Find('C', 0), -1);
    EXPECT_EQ(text.Find('a', 0), 0);
    EXPECT_EQ(text.Find('c', 0), 4);
}

TEST(CString, FindsNothingBehindItsEnd)
{
    const CString text("abc");
    EXPECT_EQ(text.Find("c", 3), -1);
    EXPECT_EQ(text.Find("c", 4), -1);
    EXPECT_EQ(text.Find("c", INT_MAX), -1);
    EXPECT_EQ(text.Find('c', 3), -1);
    EXPECT_EQ(text.Find('c', 4), -1);
    EXPECT_EQ(text.Find('c', INT_MAX), -1);
}

TEST(CString, FindsNothingInTheEmptyText)
{
    const CString text;
    EXPECT_EQ(text.Find("a", 0), -1);
    EXPECT_EQ(text.Find("", 0), -1);
    EXPECT_EQ(text.Find('a', 0), -1);
    EXPECT_EQ(text.ReverseFind('a'), -1);
}

TEST(CString, FindsTheLastOccurrenceOfACharacter)
{
    EXPECT_EQ(CString("a.b.c").ReverseFind('.'), 3);
    EXPECT_EQ(CString("a.b.c").ReverseFind('a'), 0);
    EXPECT_EQ(CString("a.b.c").ReverseFind('c'), 4);
    EXPECT_EQ(CString("a.b.c").ReverseFind('x'), -1);
}

TEST(CString, IsCutIntoTokens)
{
    using List = std::vector<std::string>;
    const struct {
        const char * text;
        const char * delims;
        List tokens;
    } table[] = {
        {"one two three", " ", {"one", "two", "three"}},
        {"  one   two  ", " ", {"one", "two"}},
        {"one\ttwo three", " ", {"one\ttwo", "three"}},
        {"one\ttwo three", " \t", {"one", "two", "three"}},
        {"a,b;c,;d", ",;", {"a", "b", "c", "d"}},
        {"one", " ", {"one"}},
        {"one", "", {"one"}},
        {"", " ", {}},
        {"   ", " ", {}},
        {"a ", " ", {"a"}},
        {"a long token that stays on the heap", "#", {"a long token that stays on the heap"}},
    };
    for (const auto & row : table) {
        const CString text(row.text);
        EXPECT_EQ(Walk(text, row.delims), row.tokens) << row.text;
        EXPECT_EQ(text, row.text);
    }
}

TEST(CString, SetsThePositionOnePastTheDelimiterOfAToken)
{
    const CString text("  ab  cd ");
    int pos = 0;
    EXPECT_EQ(text.Tokenize(" ", pos), "ab");
    EXPECT_EQ(pos, 5);
    EXPECT_EQ(text.Tokenize(" ", pos), "cd");
    EXPECT_EQ(pos, 9);
    EXPECT_EQ(text.Tokenize(" ", pos), "");
    EXPECT_EQ(pos, -1);
}

TEST(CString, IsCutFromTheGivenPositionOn)
{
    const CString text("abc def");
    int pos = 1;
    EXPECT_EQ(text.Tokenize(" ", pos), "bc");
    EXPECT_EQ(pos, 4);
    pos = 3;
    EXPECT_EQ(text.Tokenize(" ", pos), "def");
    pos = 7;
    EXPECT_EQ(text.Tokenize(" ", pos), "");
    EXPECT_EQ(pos, -1);
}

TEST(CString, WithNoMoreTokensAlwaysGivesTheEmptyText)
{
    const CString text("a ");
    int pos = 0;
    EXPECT_EQ(text.Tokenize(" ", pos), "a");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(text.Tokenize(" ", pos), "");
        EXPECT_EQ(pos, -1);
    }
    int blanks = 0;
    EXPECT_EQ(CString("   ").Tokenize(" ", blanks), "");
    EXPECT_EQ(blanks, -1);
}

TEST(CString, ReplacesEveryOccurrenceFromLeftToRight)
{
    EXPECT_EQ(Replaced("a<b<c", "<", "", 2), "abc");
    EXPECT_EQ(Replaced(R"("quoted")", R"(")", "", 2), "quoted");
    EXPECT_EQ(Replaced("abcabc", "bc", "X", 2), "aXaX");
    EXPECT_EQ(Replaced("aaaaa", "aa", "b", 2), "bba");
    EXPECT_EQ(Replaced("aXa", "X", "long replacement", 1), "along replacementa");
    EXPECT_EQ(Replaced("abc", "B", "x", 0), "abc");
    EXPECT_EQ(Replaced("<<<", "<", "", 3), "");
    EXPECT_EQ(Replaced("", "a", "b", 0), "");
    EXPECT_EQ(Replaced("design.cvg", ".cvg", ".txt", 1), "design.txt");
}

TEST(CString, ReplacesNothingInWhatItHasPutIn)
{
    EXPECT_EQ(Replaced("aab", "ab", "b", 1), "ab");
    EXPECT_EQ(Replaced("xx", "x", "xx", 2), "xxxx");
    EXPECT_EQ(Replaced("a//b", "//", "/", 1), "a/b");
}

TEST(CString, ReplacesByAPieceOfItself)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        CString text((bytes + "-" + bytes + "-").c_str());
        EXPECT_EQ(text.Replace("-", text.GetString()), 2);
        const std::string whole = bytes + "-" + bytes + "-";
        EXPECT_EQ(Str(text), bytes + whole + bytes + whole);
    }
}

TEST(CString, GivesItsLastCharacters)
{
    const CString text("abcdef");
    EXPECT_EQ(text.Right(2), "ef");
    EXPECT_EQ(text.Right(5), "bcdef");
    EXPECT_EQ(text.Right(6), "abcdef");
    EXPECT_EQ(text.Right(7), "abcdef");
    EXPECT_EQ(text.Right(INT_MAX), "abcdef");
    EXPECT_EQ(text.Right(0), "");
    EXPECT_EQ(text.Right(-1), "");
    EXPECT_EQ(text.Right(INT_MIN), "");
    EXPECT_EQ(CString().Right(1), "");
    EXPECT_EQ(text, "abcdef");
}

TEST(CString, GivesItsFirstCharacters)
{
    const CString text("abcdef");
    EXPECT_EQ(text.Left(2), "ab");
    EXPECT_EQ(text.Left(5), "abcde");
    EXPECT_EQ(text.Left(6), "abcdef");
    EXPECT_EQ(text.Left(7), "abcdef");
    EXPECT_EQ(text.Left(INT_MAX), "abcdef");
    EXPECT_EQ(text.Left(0), "");
    EXPECT_EQ(text.Left(-1), "");
    EXPECT_EQ(text.Left(INT_MIN), "");
    EXPECT_EQ(CString().Left(1), "");
    EXPECT_EQ(text, "abcdef");
}

TEST(CString, GivesAPieceOfItsMiddle)
{
    const CString text("abcdef");
    EXPECT_EQ(text.Mid(1, 3), "bcd");
    EXPECT_EQ(text.Mid(0, 6), "abcdef");
    EXPECT_EQ(text.Mid(5, 1), "f");
    EXPECT_EQ(text.Mid(2, 100), "cdef");
    EXPECT_EQ(text.Mid(2, INT_MAX), "cdef");
    EXPECT_EQ(text.Mid(2, 0), "");
    EXPECT_EQ(text.Mid(2, -1), "");
    EXPECT_EQ(text.Mid(-4, 2), "ab");
    EXPECT_EQ(text.Mid(INT_MIN, INT_MAX), "abcdef");
    EXPECT_EQ(text.Mid(-1, -1), "");
    EXPECT_EQ(text.Mid(6, 1), "");
    EXPECT_EQ(text.Mid(7, 1), "");
    EXPECT_EQ(text.Mid(INT_MAX, INT_MAX), "");
    EXPECT_EQ(CString().Mid(0, 1), "");
    EXPECT_EQ(text, "abcdef");
}

TEST(CString, LosesWhiteSpaceAtBothEnds)
{
    EXPECT_EQ(Trimmed("  a b  "), "a b");
    EXPECT_EQ(Trimmed("\t\n\v\f\r a\t\n\v\f\r "), "a");
    EXPECT_EQ(Trimmed("a"), "a");
    EXPECT_EQ(Trimmed(" a"), "a");
    EXPECT_EQ(Trimmed("a "), "a");
    EXPECT_EQ(Trimmed(""), "");
    EXPECT_EQ(Trimmed(" "), "");
    EXPECT_EQ(Trimmed(" \t\r\n "), "");
    EXPECT_EQ(Trimmed("\xa0"
                      "a\x85"),
              "\xa0"
              "a\x85");
    for (const std::string & bytes : TextsOfAllLengths()) {
        EXPECT_EQ(Trimmed(bytes), bytes);
        EXPECT_EQ(Trimmed("  " + bytes + " "), bytes);
        EXPECT_EQ(Trimmed(std::string(40, ' ') + bytes + std::string(40, '\t')), bytes);
    }
}

TEST(CStringFormat, ReplacesTheTextByPlainText)
{
    CString text("before");
    text.Format("<Content>\n");
    EXPECT_EQ(text, "<Content>\n");
    text.Format("");
    EXPECT_EQ(text, "");
}

TEST(CStringFormat, WritesTexts)
{
    CString text;
    const CString name("TOP");
    const char * const part = "R1";
    text.Format(R"(a="%s" b="%s")", name, part);
    EXPECT_EQ(text, R"(a="TOP" b="R1")");
    text.Format("[%s][%s]", CString(), "");
    EXPECT_EQ(text, "[][]");
    text.Format("%s", name.GetString());
    EXPECT_EQ(text, "TOP");
    text.Format("%s", "100%s%d%%");
    EXPECT_EQ(text, "100%s%d%%");
    for (const std::string & bytes : TextsOfAllLengths()) {
        text.Format("<%s|%s>", CString(bytes.c_str()), bytes.c_str());
        EXPECT_EQ(Str(text), "<" + bytes + "|" + bytes + ">");
    }
}

TEST(CStringFormat, WritesIntegers)
{
    CString text;
    text.Format("%d,%d,%d", 0, 42, -7);
    EXPECT_EQ(text, "0,42,-7");
    text.Format("%d", INT_MAX);
    EXPECT_EQ(text, "2147483647");
    text.Format("%d", INT_MIN);
    EXPECT_EQ(text, "-2147483648");
}

TEST(CStringFormat, WritesNumbersWithSixDecimals)
{
    CString text;
    text.Format("%f %f %f", 1.0, -0.5, 0.1234567);
    EXPECT_EQ(text, "1.000000 -0.500000 0.123457");
    text.Format("%f", -0.0);
    EXPECT_EQ(text, "-0.000000");
    text.Format("%f", std::numeric_limits<double>::infinity());
    EXPECT_EQ(text, "inf");
    text.Format("%f%f", std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest());
    const PlainLocale plain;
    char expected[700];
    std::snprintf(expected, sizeof(expected), "%f%f", std::numeric_limits<double>::max(),
                  std::numeric_limits<double>::lowest());
    EXPECT_EQ(text, expected);
}

TEST(CStringFormat, WritesPercentSigns)
{
    CString text;
    text.Format("100%%");
    EXPECT_EQ(text, "100%");
    text.Format("%%%d%%%s%%", 5, "x");
    EXPECT_EQ(text, "%5%x%");
    text.Format("%%s%%d%%f");
    EXPECT_EQ(text, "%s%d%f");
}

TEST(CStringFormat, WritesConversionsSideBySide)
{
    CString text;
    text.Format("%s%d%f%s", "a", 1, 2.0, CString("b"));
    EXPECT_EQ(text, "a12.000000b");
    const double x = 1.5;
    const int n = 3;
    text.Format(Joined({R"(   <Pad x="%f" n="%d" />)"}), x, n);
    EXPECT_EQ(text, Joined({R"(   <Pad x="1.500000" n="3" />)"}));
}

TEST(CStringFormat, MayWriteATextIntoItself)
{
    for (const std::string & bytes : TextsOfAllLengths()) {
        CString text(bytes.c_str());
        text.Format("%s-%s", text, text);
        EXPECT_EQ(Str(text), bytes + "-" + bytes);
        text.Format("(%s)", text.GetString());
        EXPECT_EQ(Str(text), "(" + bytes + "-" + bytes + ")");
        text.Format("%s", text);
        EXPECT_EQ(Str(text), "(" + bytes + "-" + bytes + ")");
    }
}

}  // namespace ipc2581::tests
