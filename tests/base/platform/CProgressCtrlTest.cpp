#include "ipc2581/base/platform/CProgressCtrl.h"

#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

class Recorder : public CProgressCtrl {
public:
    int SetPos(int position) override
    {
        positions.push_back(position);
        return CProgressCtrl::SetPos(position);
    }

    std::vector<int> positions;
};

TEST(CProgressCtrl, IsConcrete)
{
    EXPECT_FALSE(std::is_abstract_v<CProgressCtrl>);
}

TEST(CProgressCtrl, StartsAtZero)
{
    EXPECT_EQ(CProgressCtrl().GetPos(), 0);
}

TEST(CProgressCtrl, SetPosStoresAndGivesThePositionBefore)
{
    CProgressCtrl bar;
    EXPECT_EQ(bar.SetPos(30), 0);
    EXPECT_EQ(bar.SetPos(50), 30);
    const CProgressCtrl & seen = bar;
    EXPECT_EQ(seen.GetPos(), 50);
}

TEST(CProgressCtrl, BarMayMoveBackwards)
{
    CProgressCtrl bar;
    bar.SetPos(100);
    EXPECT_EQ(bar.SetPos(10), 100);
    EXPECT_EQ(bar.GetPos(), 10);
}

TEST(CProgressCtrl, PositionMessageSetsTheBar)
{
    CProgressCtrl bar;
    SendMessageA(&bar, 1026, 20, 0);
    EXPECT_EQ(bar.GetPos(), 20);
}

TEST(CProgressCtrl, PositionMessageEndsInTheHostsSetPos)
{
    Recorder bar;
    CProgressCtrl * control = &bar;
    SendMessageA(control, 1026, 20, 0);
    SendMessageA(control, 1026, 30, 0);
    EXPECT_EQ(bar.positions, (std::vector<int>{20, 30}));
    EXPECT_EQ(bar.GetPos(), 30);
}

TEST(CProgressCtrl, OtherMessagesAndNoBarDoNothing)
{
    Recorder bar;
    EXPECT_EQ(SendMessageA(&bar, 1025, 40, 0), 0);
    EXPECT_EQ(SendMessageA(nullptr, 1026, 40, 0), 0);
    EXPECT_TRUE(bar.positions.empty());
}

}  // namespace
