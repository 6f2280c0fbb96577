#include "import/FactValues.h"

#include <string>

#include <gtest/gtest.h>

namespace ipc2581::detail {
namespace {

TEST(FactValues, ComeBackAsTheyWereWritten)
{
    std::string text;
    AppendFactValue(text, {7, false, "TOP"});
    AppendFactValue(text, {65'535, true, ""});
    for (const std::size_t length : {126U, 127U, 128U, 100'000U}) {
        AppendFactValue(text, {1, true, std::string(length, 'x')});
        AppendFactValue(text, {2, false, std::string(length, 'y')});
    }
    std::string_view left = text;
    const FactValue first = TakeFactValue(left);
    EXPECT_EQ(first.name, 7U);
    EXPECT_FALSE(first.isHeld);
    EXPECT_EQ(first.value, "TOP");
    const FactValue second = TakeFactValue(left);
    EXPECT_EQ(second.name, 65'535U);
    EXPECT_TRUE(second.isHeld);
    EXPECT_EQ(second.value, "");
    for (const std::size_t length : {126U, 127U, 128U, 100'000U}) {
        const FactValue held = TakeFactValue(left);
        EXPECT_TRUE(held.isHeld);
        EXPECT_EQ(held.value, std::string(length, 'x'));
        const FactValue own = TakeFactValue(left);
        EXPECT_FALSE(own.isHeld);
        EXPECT_EQ(own.value, std::string(length, 'y'));
    }
    EXPECT_TRUE(left.empty());
}

}  // namespace
}  // namespace ipc2581::detail
