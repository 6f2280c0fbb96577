#include "ipc2581/cad/StackupGroup.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Stackup.h"
#include "tests/cad/Stackups.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Stackup = CIPC2581_Ecad_CadData_Stackup;
using Group = CIPC2581_Ecad_CadData_Stackup_StackupGroup;

TEST(StackupGroup, IsEmptyAtFirst)
{
    const Group group;
    EXPECT_EQ(FieldsOf(group), (GroupFields{"", 0, 0, 0}));
    EXPECT_EQ(group.StackupLayerArray.GetSize(), 0);
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(group.name), at(group.thickness));
    EXPECT_LT(at(group.thickness), at(group.tolPlus));
    EXPECT_LT(at(group.tolPlus), at(group.tolMinus));
    EXPECT_LT(at(group.tolMinus), at(group.StackupLayerArray));
}

TEST(StackupGroup, HasItsOperationsInOrder)
{
    ExpectExportIsItsOneOperation<Group>();
}

TEST(StackupGroup, ReadsItsAttributesAsNumbers)
{
    const std::vector<std::pair<std::string_view, GroupFields>> rows = {
        {R"(<StackupGroup name="g" thickness="1.5" tolPlus="0.1" tolMinus="0.2">)", {"g", 1.5, 0.1, 0.2}},
        {R"(<StackupGroup tolMinus="-2e1" tolPlus="3mm" thickness="x" name="a b"/>)", {"a b", 0, 3, -20}},
        {R"(<StackupGroup overallThickness="1" Name="a" thickness ="1">)", {"", 0, 0, 0}},
        {R"(<StackupGroup filename="f" subthickness="2" >)", {"f", 2, 0, 0}},
        {R"(<StackupGroup thickness="1" thickness="2">)", {"", 2, 0, 0}},
        {"<StackupGroup>", {"", 0, 0, 0}},
        {"<StackupGroup />", {"", 0, 0, 0}},
        {R"(<xStackupGroup_name="t" >)", {"t", 0, 0, 0}},
    };
    for (const auto & [line, fields] : rows) {
        ReadStackup read("<Stackup>", std::string(line) + "\n");
        ASSERT_EQ(read.stackup.StackupGroupArray.GetSize(), 1) << line;
        EXPECT_EQ(FieldsOf(read.GroupAt(0)), fields) << line;
    }
}

TEST(StackupGroup, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"name=", "thickness=", "tolPlus=", "tolMinus="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            ReadStackup read("<Stackup>", R"(<StackupGroup thickness="7" tolPlus="7" tolMinus="7" )" + words[later] +
                                              words[earlier] + Joined({R"("5" >)"}));
            const auto number = [earlier](std::size_t row) { return row == earlier ? 0.0 : 7.0; };
            EXPECT_EQ(FieldsOf(read.GroupAt(0)),
                      (GroupFields{earlier == 0 ? "name=5" : "", number(1), number(2), number(3)}))
                << words[later] << words[earlier];
        }
    }
}

TEST(StackupGroup, ReadsOnlyItsLayers)
{
    Lines lines({"", R"(<StackupGroup name="x">)", R"(<StackupLayer layerOrGroupRef="1">)", R"(<Layer name="l"/>)",
                 "</StackupLayer>", "</Stackup>", "<x StackupLayer>", "<stackupLayer>", "<StackupLayer/>",
                 R"(</StackupLayer layerOrGroupRef="2">)", "</StackupGroup>", "<Behind/>"});
    Group group;
    group.StackUpGroupAdd(lines.File());
    EXPECT_EQ(group.name, "");
    ASSERT_EQ(group.StackupLayerArray.GetSize(), 1);
    EXPECT_EQ(group.StackupLayerArray.GetAt(0)->layerOrGroupRef, "1");
    EXPECT_EQ(lines.Rest(), Texts{"<Behind/>"});
}

TEST(StackupGroup, EndsAtItsClosingWordWhateverElseThatHolds)
{
    for (const std::string_view line : {"</StackupGroup>", "</StackupGroupStackupLayer x>", "<x/StackupGroupx>"}) {
        Lines lines({line, "<StackupLayer>"});
        Group group;
        group.StackUpGroupAdd(lines.File());
        EXPECT_EQ(group.StackupLayerArray.GetSize(), 0) << line;
        EXPECT_EQ(lines.Rest(), Texts{"<StackupLayer>"}) << line;
    }
}

TEST(StackupGroup, ALayerTestComesFirst)
{
    Lines lines({R"(<StackupGroupStackupLayer layerOrGroupRef="1">)"});
    Group group;
    group.StackUpGroupAdd(lines.File());
    EXPECT_EQ(group.StackupLayerArray.GetSize(), 1);
}

TEST(StackupGroup, ASelfClosingGroupTakesTheLinesOfTheNext)
{
    ReadStackup read("<Stackup>", Below(R"(
<StackupGroup name="a"/>
<StackupGroup name="b">
<StackupLayer layerOrGroupRef="1"/>
</StackupGroup>
</Stackup>
)"));
    EXPECT_EQ(read.Groups(), Texts{"a: 1"});
}

TEST(StackupGroup, ALineOfBlanksThrows)
{
    Lines lines({"<StackupLayer>", "   "});
    Group group;
    EXPECT_THROW(group.StackUpGroupAdd(lines.File()), CInvalidArgException);
    EXPECT_EQ(group.StackupLayerArray.GetSize(), 1);
}

}  // namespace
