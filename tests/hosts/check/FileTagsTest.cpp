#include "hosts/ipc2581/check/FileTags.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

std::vector<std::string> TagNames(const std::string & text)
{
    const TempFolder folder;
    host::FileTags tags(folder.Save("file.xml", text));
    std::vector<std::string> names;
    while (tags.Next()) {
        names.emplace_back(tags.Name());
    }
    return names;
}

TEST(FileTags, NamesWhateverTheLines)
{
    EXPECT_EQ(TagNames("<?xml version=\"1.0\"?>\n<!DOCTYPE a>\n<a><b/> text <c\n x=\"1\"\r\n/>\n</c ><p:d/></a>"),
              (std::vector<std::string>{"a", "b", "c", "/c", "d", "/a"}));
    EXPECT_EQ(TagNames(""), std::vector<std::string>{});
}

TEST(FileTags, PassesOverComments)
{
    EXPECT_EQ(TagNames("<!-- <a/> -- > <b> --><c/><!----><d/><!-- <e>"), (std::vector<std::string>{"c", "d"}));
}

TEST(FileTags, ValuesStandUnderTheirWholeName)
{
    const TempFolder folder;
    host::FileTags tags(folder.Save("file.xml", "<Pin subvia=\"no\"\nvia='a b' node=x empty=\"\" cut=\"off"));
    ASSERT_TRUE(tags.Next());
    EXPECT_EQ(tags.Value("via"), "a b");
    EXPECT_EQ(tags.Value("subvia"), "no");
    EXPECT_EQ(tags.Value("node"), "");
    EXPECT_EQ(tags.Value("empty"), "");
    EXPECT_EQ(tags.Value("cut"), "off");
    EXPECT_EQ(tags.Value("other"), "");
}

TEST(FileTags, MissingFileHasNone)
{
    host::FileTags tags("/missing/file.xml");
    EXPECT_FALSE(tags.Next());
}

}  // namespace
}  // namespace ipc2581::tests
