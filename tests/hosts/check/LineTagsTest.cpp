#include "hosts/ipc2581/check/LineTags.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

std::vector<std::string> TagNames(const std::string & text)
{
    const TempFolder folder;
    std::vector<std::string> names;
    host::ForEachTag(folder.Save("file.xml", text), [&](const host::Tag & tag) {
        names.push_back((tag.isClosing ? "/" : "") + std::string(tag.LocalName()));
    });
    return names;
}

TEST(LineTags, NamesTheTagsOfAFileWhateverItsLines)
{
    EXPECT_EQ(TagNames("<?xml version=\"1.0\"?>\n<!DOCTYPE a>\n<a><b/> text <c\n x=\"1\"\r\n/>\n</c ><p:d/></p:a>"),
              (std::vector<std::string>{"a", "b", "c", "/c", "d", "/a"}));
    EXPECT_EQ(TagNames(""), std::vector<std::string>{});
}

TEST(LineTags, TakesBracketsInsideOfValuesForText)
{
    EXPECT_EQ(TagNames("<Layer name=\"a>b\"/>\n<Layer name='<Layer/>'\n side=\">\"/></CadData>"),
              (std::vector<std::string>{"Layer", "Layer", "/CadData"}));
}

TEST(LineTags, PassesOverComments)
{
    EXPECT_EQ(TagNames("<!-- <a/> -- > <b> --><c/><!----><d/><!--\n<Layer name=\"a\"/>\n--><e/><!-- <f>"),
              (std::vector<std::string>{"c", "d", "e"}));
}

TEST(LineTags, ValuesStandUnderTheirWholeName)
{
    const TempFolder folder;
    int count = 0;
    const std::string path = folder.Save("file.xml", "<Pin subvia=\"no\"\nvia='a b' node=x empty=\"\" cut=\"off");
    host::ForEachTag(path, [&](const host::Tag & tag) {
        ++count;
        EXPECT_EQ(tag.Value("via"), "a b");
        EXPECT_EQ(tag.Value("subvia"), "no");
        EXPECT_EQ(tag.Value("node"), "");
        EXPECT_EQ(tag.Value("empty"), "");
        EXPECT_EQ(tag.Value("cut"), "off");
        EXPECT_EQ(tag.Value("other"), "");
    });
    EXPECT_EQ(count, 1);
}

TEST(LineTags, MissingFileHasNone)
{
    host::ForEachTag("/missing/file.xml", [](const host::Tag &) { ADD_FAILURE(); });
}

}  // namespace
}  // namespace ipc2581::tests
