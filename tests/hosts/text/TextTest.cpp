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

}  // namespace
}  // namespace ipc2581::tests
