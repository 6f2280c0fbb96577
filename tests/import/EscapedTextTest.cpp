#include <gtest/gtest.h>

#include <import/EscapedText.h>

namespace ipc2581 {
namespace {

TEST(EscapedText, HasEntitiesForFourCharactersAlone)
{
    EXPECT_EQ(EscapedText(""), "");
    EXPECT_EQ(EscapedText("R1 '\u00B5' /"), "R1 '\u00B5' /");
    EXPECT_EQ(EscapedText("<a & \"b\">"), "&lt;a &amp; &quot;b&quot;&gt;");
    // What is an entity already is a text like any other.
    EXPECT_EQ(EscapedText("&amp;"), "&amp;amp;");
}

}  // namespace
}  // namespace ipc2581
