#include "hosts/ipc2581/diff/NetRenames.h"

#include <gtest/gtest.h>

namespace ipc2581::tests {
namespace {

using host::NetRenames;
using Names = std::map<std::string, std::string, std::less<>>;

TEST(NetRenames, KnowsANetByItsPinsInAnyOrder)
{
    const NetRenames renames({{"A", {"U1.1", "U1.2"}}, {"B", {"U1.3"}}}, {{"C", {"U1.2", "U1.1"}}, {"B", {"U1.3"}}});
    EXPECT_EQ(renames.All(), (Names{{"A", "C"}}));
    EXPECT_EQ(renames.NewName("A"), "C");
    EXPECT_EQ(renames.NewName("B"), "B");
    EXPECT_EQ(renames.NewName("X"), "X");
}

TEST(NetRenames, KnowsNetsThatHaveChangedTheirNames)
{
    const NetRenames renames({{"A", {"1"}}, {"B", {"2"}}}, {{"A", {"2"}}, {"B", {"1"}}});
    EXPECT_EQ(renames.All(), (Names{{"A", "B"}, {"B", "A"}}));
}

TEST(NetRenames, LeavesWhatIsNotSure)
{
    EXPECT_EQ(NetRenames({{"A", {}}}, {{"B", {}}}).All(), Names());
    EXPECT_EQ(NetRenames({{"A", {"1"}}}, {{"B", {"1", "2"}}}).All(), Names());
    EXPECT_EQ(NetRenames({{"A", {"1"}}}, {{"B", {"1"}}, {"C", {"1"}}}).All(), Names());
    EXPECT_EQ(NetRenames({{"A", {"1"}}, {"B", {"1"}}}, {{"C", {"1"}}}).All(), Names());
    EXPECT_EQ(NetRenames({{"A", {"1"}}}, {{"A", {"1"}}, {"B", {"1"}}}).All(), Names());
}

}  // namespace
}  // namespace ipc2581::tests
