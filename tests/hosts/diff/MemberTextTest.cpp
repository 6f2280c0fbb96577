#include "hosts/ipc2581/diff/MemberText.h"

#include <memory>

#include <gtest/gtest.h>

namespace ipc2581::tests {
namespace {

using host::MemberText;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

TEST(MemberText, IsTheSameForTheSameMembers)
{
    Set one;
    Set other;
    EXPECT_EQ(MemberText(one), MemberText(other));
    one.Pad.Location.X = 1.0000001;
    other.Pad.Location.X = 1;
    EXPECT_EQ(MemberText(one), MemberText(other)) << "numbers are those that listings show";
    one.Pad.Location = {0.0000004, -0.0000004};
    one.Pad.Rotation = -0.0000004;
    other.Pad.Location = {};
    EXPECT_EQ(MemberText(one), MemberText(other));
}

TEST(MemberText, DiffersWithAnyMember)
{
    const std::string plain = MemberText(Set());
    Set set;
    set.Pad.Location.X = 1;
    EXPECT_NE(MemberText(set), plain);
    set = Set();
    set.Pad.Location.Y = -0.000001;
    EXPECT_NE(MemberText(set), plain);
    set = Set();
    set.Pad.Pin = "U1.1";
    EXPECT_NE(MemberText(set), plain);
    set = Set();
    set.Plate = 1;
    EXPECT_NE(MemberText(set), plain);
    set = Set();
    set.Hole.PlusTol = "0.1";
    EXPECT_NE(MemberText(set), plain);
    Set withShape;
    withShape.Features.DrawObjArray.Add(new CIPC2581_DicDraw_Circle());
    EXPECT_NE(MemberText(withShape), plain);
}

TEST(MemberText, CallsNetsByTheirNewNames)
{
    const host::NetRenames renames({{"A", {"U1.1"}}}, {{"B", {"U1.1"}}});
    Set old;
    old.Net = "A";
    Set now;
    now.Net = "B";
    EXPECT_EQ(MemberText(old, renames), MemberText(now));
    now.Pad.Pin = "A";
    old.Pad.Pin = "B";
    EXPECT_NE(MemberText(old, renames), MemberText(now));
}

}  // namespace
}  // namespace ipc2581::tests
