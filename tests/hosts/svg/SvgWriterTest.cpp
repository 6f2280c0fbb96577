#include "hosts/ipc2581/svg/SvgWriter.h"

#include <gtest/gtest.h>

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

TEST(SvgText, IsGoodXml)
{
    EXPECT_EQ(SvgText("A<B>C"), "A&lt;B&gt;C");
    EXPECT_EQ(SvgText("A&B&amp;C&nbsp;"), "A&amp;B&amp;C&amp;nbsp;");
    EXPECT_EQ(SvgText("\xc2\xb5 \xe2\x82\xac \xf0\x9f\x98\x80"), "\xc2\xb5 \xe2\x82\xac \xf0\x9f\x98\x80");
    EXPECT_EQ(SvgText("a\x01\xff\xc0\x80z"), "a\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbdz");
    EXPECT_EQ(SvgText("\xed\xa0\x80\xc3"), "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");
}

TEST(SvgUnit, IsThatOfTheFile)
{
    EXPECT_STREQ(SvgUnitOf("MILLIMETER").suffix, "mm");
    EXPECT_STREQ(SvgUnitOf("INCH").suffix, "in");
    EXPECT_EQ(SvgUnitOf("MICRON").factor, 0.001);
    EXPECT_STREQ(SvgUnitOf("").suffix, "");
}

}  // namespace
}  // namespace ipc2581::tests
