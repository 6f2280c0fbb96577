#include "hosts/ipc2581/text/Text.h"

#include <gtest/gtest.h>

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

TEST(Text, BecomesOneLine)
{
    EXPECT_EQ(OneLine("a\nb\tc\x7f \xc3\xa9"), "a?b?c? \xc3\xa9");
}

TEST(Text, BecomesLowerCaseWhereItIsAscii)
{
    EXPECT_EQ(LowerCase("Windows-1252 AZ[@ \xc3\x89"), "windows-1252 az[@ \xc3\x89");
}

TEST(Text, WidthIsThatOfATerminal)
{
    EXPECT_EQ(Width(""), 0);
    EXPECT_EQ(Width("R1"), 2);
    EXPECT_EQ(Width("10 \xc2\xb5"
                    "F"),
              5);
    // Two characters of Chinese, two of Korean, and a half-wide one of Japanese.
    EXPECT_EQ(Width("\xe9\x9b\xbb\xe9\x98\xbb"), 4);
    EXPECT_EQ(Width("\xec\xa0\x80\xed\x95\xad"), 4);
    EXPECT_EQ(Width("\xef\xbd\xb1"), 1);
    // A letter with an accent behind it.
    EXPECT_EQ(Width("e\xcc\x81"), 1);
    // Bytes of another encoding, and a character that is cut off.
    EXPECT_EQ(Width("\xb5"
                    "F"),
              2);
    EXPECT_EQ(Width("\xe9\x9b"), 2);
}

}  // namespace
}  // namespace ipc2581::tests
