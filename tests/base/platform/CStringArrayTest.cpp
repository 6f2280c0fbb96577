#include "ipc2581/base/platform/CStringArray.h"

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CObject.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {
namespace {

Texts All(const CStringArray & list)
{
    Texts texts;
    for (std::int64_t i = 0; i < list.GetSize(); ++i) {
        texts.push_back(Str(list[i]));
    }
    return texts;
}

}  // namespace

TEST(CStringArray, IsEmptyWhenNew)
{
    const CStringArray list;
    EXPECT_EQ(list.GetSize(), 0);
    static_assert(std::is_base_of_v<CObject, CStringArray>);
}

TEST(CStringArray, TakesTextsOfBothForms)
{
    CStringArray list;
    const CString text("Content");
    const char * const plain = "Ecad";
    list.SetAtGrow(0, text);
    list.SetAtGrow(1, plain);
    list.SetAtGrow(2, "Bom");
    EXPECT_EQ(All(list), (Texts{"Content", "Ecad", "Bom"}));
    EXPECT_EQ(text, "Content");
}

TEST(CStringArray, AppendsAtItsSize)
{
    CStringArray list;
    Texts expected;
    for (int i = 0; i < 300; ++i) {
        const std::string text(static_cast<std::size_t>(i), 'x');
        list.SetAtGrow(list.GetSize(), text.c_str());
        expected.push_back(text);
    }
    EXPECT_EQ(list.GetSize(), 300);
    EXPECT_EQ(All(list), expected);
}

TEST(CStringArray, FillsTheGapWithEmptyTexts)
{
    CStringArray list;
    list.SetAtGrow(3, "a");
    EXPECT_EQ(All(list), (Texts{"", "", "", "a"}));
}

TEST(CStringArray, OverwritesWhatIsThere)
{
    CStringArray list;
    list.SetAtGrow(0, "a");
    list.SetAtGrow(1, "b");
    list.SetAtGrow(0, CString("a longer text than an object holds"));
    EXPECT_EQ(All(list), (Texts{"a longer text than an object holds", "b"}));
}

TEST(CStringArray, TakesTextsOfItsOwn)
{
    CStringArray list;
    list.SetAtGrow(0, "first");
    list.SetAtGrow(1, "second text, too long for an object to hold");
    for (int i = 0; i < 40; ++i) {
        list.SetAtGrow(list.GetSize(), list[i]);
        list.SetAtGrow(list.GetSize(), list[i + 1].GetString());
    }
    EXPECT_EQ(list.GetSize(), 82);
    EXPECT_EQ(list[80], list[39]);
    EXPECT_EQ(list[81], list[40]);
    EXPECT_EQ(list[2], "first");
    EXPECT_EQ(list[3], "second text, too long for an object to hold");
}

TEST(CStringArray, RaisesForAnIndexOutOfRange)
{
    CStringArray list;
    const CStringArray & constant = list;
    for (int size = 0; size < 3; ++size) {
        for (const std::int64_t index : {std::int64_t(-1), std::int64_t(size), std::numeric_limits<std::int64_t>::max(),
                                         std::numeric_limits<std::int64_t>::min()}) {
            EXPECT_THROW(static_cast<void>(list[index]), CInvalidArgException);
            EXPECT_THROW(static_cast<void>(constant[index]), CInvalidArgException);
            EXPECT_THROW(static_cast<void>(list.GetAt(index)), CInvalidArgException);
        }
        list.SetAtGrow(list.GetSize(), "text");
    }
}

TEST(CStringArray, RaisesForANegativeIndexToSet)
{
    CStringArray list;
    EXPECT_THROW(list.SetAtGrow(-1, "a"), CInvalidArgException);
    EXPECT_THROW(list.SetAtGrow(-1, CString("a")), CInvalidArgException);
    EXPECT_EQ(list.GetSize(), 0);
}

}  // namespace ipc2581::tests
