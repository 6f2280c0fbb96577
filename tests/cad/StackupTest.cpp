#include "ipc2581/cad/Stackup.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/StackupGroup.h"
#include "ipc2581/cad/StackupLayer.h"
#include "tests/cad/Stackups.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Stackup = CIPC2581_Ecad_CadData_Stackup;
using Group = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
using StackLayer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;

TEST(Stackup, IsEmptyAtFirst)
{
    const Stackup stackup;
    EXPECT_EQ(FieldsOf(stackup), (Texts{"", "", "", ""}));
    EXPECT_EQ(stackup.StackupGroupArray.GetSize(), 0);
}

TEST(Stackup, HoldsItsFieldsInOrder)
{
    const Stackup stackup;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(stackup.overallThickness), at(stackup.tolPlus));
    EXPECT_LT(at(stackup.tolPlus), at(stackup.tolMinus));
    EXPECT_LT(at(stackup.tolMinus), at(stackup.whereMeasured));
    EXPECT_LT(at(stackup.whereMeasured), at(stackup.StackupGroupArray));
}

TEST(Stackup, HasItsOperationsInOrder)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Stackup>);
    EXPECT_FALSE(std::is_copy_assignable_v<Stackup>);
    ExpectExportIsItsOneOperation<Stackup>();
}

TEST(Stackup, KeepsItsAttributesAsText)
{
    const std::vector<std::pair<std::string_view, Texts>> rows = {
        {R"(<Stackup overallThickness="1.6" tolPlus="0.1" tolMinus="0.1" whereMeasured="METAL">)",
         {"1.6", "0.1", "0.1", "METAL"}},
        {R"(<Stackup whereMeasured="OTHER" tolMinus="a b" tolPlus="x" overallThickness="t"/>)",
         {"t", "x", "a b", "OTHER"}},
        {R"(<Stackup name="s" thickness="1" OverallThickness="2" tolPlus ="3">)", {"", "", "", ""}},
        {R"(<Stackup tolPlus="1" tolPlus="2">)", {"", "2", "", ""}},
        {"<Stackup>", {"", "", "", ""}},
        {R"(<Stackup_tolPlus="1" >)", {"", "1", "", ""}},
    };
    for (const auto & [line, fields] : rows) {
        EXPECT_EQ(FieldsOf(ReadStackup(line).stackup), fields) << line;
    }
}

TEST(Stackup, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"overallThickness=", "tolPlus=", "tolMinus=", "whereMeasured="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            Texts expected(4);
            expected[earlier] = words[earlier] + "v";
            EXPECT_EQ(FieldsOf(ReadStackup("<Stackup " + words[later] + words[earlier] + R"("v" >)").stackup), expected)
                << words[later];
        }
    }
}

TEST(Stackup, ReadsItsGroups)
{
    ReadStackup read("<Stackup>", Below(R"(
<StackupGroup name="a">
<StackupLayer layerOrGroupRef="1">
</StackupLayer>
<StackupLayer layerOrGroupRef="2"/>
</StackupGroup>
<StackupGroup name="b">
</StackupGroup>
</Stackup>
<Behind/>
)"));
    EXPECT_EQ(read.Groups(), (Texts{"a: 1 2", "b:"}));
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(Stackup, ASlashInTheFirstTokenIsNoGroup)
{
    ReadStackup read("<Stackup>", Below(R"(
<xStackupGroup/>
<StackupGroup name="a">
</StackupGroup>
</Stackup>
)"));
    EXPECT_EQ(read.Groups(), Texts{"a:"});
}

TEST(Stackup, AStrayClosingGroupLineEndsIt)
{
    ReadStackup read("<Stackup>", Joined({"</StackupGroup>", R"(<StackupGroup name="a">)"}));
    EXPECT_EQ(read.Groups(), Texts{});
    EXPECT_EQ(read.Rest(), Texts{R"(<StackupGroup name="a">)"});
}

TEST(Stackup, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line : {"</Stackup>", "</Stackupx y>", "<x/Stackup>", "   </Stackup>"}) {
        ReadStackup read("<Stackup>", Joined({line, R"(<StackupGroup name="a">)"}));
        EXPECT_EQ(read.Groups(), Texts{}) << line;
    }
}

TEST(Stackup, IgnoresOtherLines)
{
    ReadStackup read("<Stackup>", Below(R"(

<Stackup tolPlus="1">
<StackupLayer layerOrGroupRef="1"/>
<x StackupGroup>
</CadData>
<stackupGroup>
<StackupGroup>
</StackupGroup>
</Stackup>
)"));
    EXPECT_EQ(FieldsOf(read.stackup), (Texts{"", "", "", ""}));
    EXPECT_EQ(read.Groups(), Texts{":"});
}

TEST(Stackup, DoesNotTrimItsLines)
{
    Lines lines({"\t<StackupGroup>\t", "</StackupGroup>", "   "});
    Stackup stackup;
    Tokens tokens("<Stackup>");
    EXPECT_THROW(stackup.ReadStackUp(tokens, lines.File()), CInvalidArgException);
    EXPECT_EQ(stackup.StackupGroupArray.GetSize(), 1);
}

TEST(Stackup, ASecondStackupAddsToTheFirst)
{
    ReadStackup read(R"(<Stackup tolPlus="1" tolMinus="2">)", Below(R"(
<StackupGroup name="a">
</StackupGroup>
</Stackup>
)"));
    Lines lines({R"(<StackupGroup name="b">)", "</StackupGroup>", "</Stackup>"});
    Tokens tokens(R"(<Stackup tolPlus="3">)");
    read.stackup.ReadStackUp(tokens, lines.File());
    EXPECT_EQ(FieldsOf(read.stackup), (Texts{"", "3", "2", ""}));
    EXPECT_EQ(read.Groups(), (Texts{"a:", "b:"}));
}

TEST(Stackup, TheEndOfTheFileKeepsWhatWasRead)
{
    EXPECT_EQ(ReadStackup("<Stackup>", Joined({R"(<StackupGroup name="a">)", R"(<StackupLayer layerOrGroupRef="1">)"}))
                  .Groups(),
              Texts{"a: 1"});
    EXPECT_EQ(ReadStackup("<Stackup>", Joined({R"(<StackupGroup name="a">)"})).Groups(), Texts{"a:"});
    EXPECT_EQ(ReadStackup(R"(<Stackup tolPlus="1">)").stackup.tolPlus, "1");
}

TEST(Stackup, ACutValueOfItsOwnThrows)
{
    Lines lines({"<StackupGroup>"});
    Stackup stackup;
    Tokens tokens(R"(<Stackup tolPlus="1" tolMinus="open)");
    EXPECT_THROW(stackup.ReadStackUp(tokens, lines.File()), CInvalidArgException);
    EXPECT_EQ(stackup.tolPlus, "1");
    EXPECT_EQ(lines.Rest(), Texts{"<StackupGroup>"});
}

TEST(Stackup, AGroupWithACutValueIsLost)
{
    Lines lines({R"(<StackupGroup name="a">)", "</StackupGroup>", R"(<StackupGroup name="b" tolPlus="open)"});
    Stackup stackup;
    Tokens tokens("<Stackup>");
    EXPECT_THROW(stackup.ReadStackUp(tokens, lines.File()), CInvalidArgException);
    EXPECT_EQ(stackup.StackupGroupArray.GetSize(), 1);
}

TEST(Stackup, AGroupThatFailsInItsLinesIsKept)
{
    for (const std::string_view bad : {"   ", R"(<StackupLayer layerOrGroupRef="open)"}) {
        Lines lines({R"(<StackupGroup name="a">)", R"(<StackupLayer layerOrGroupRef="1"/>)", bad});
        Stackup stackup;
        Tokens tokens("<Stackup>");
        EXPECT_THROW(stackup.ReadStackUp(tokens, lines.File()), CInvalidArgException);
        ASSERT_EQ(stackup.StackupGroupArray.GetSize(), 1);
        EXPECT_EQ(stackup.StackupGroupArray.GetAt(0)->StackupLayerArray.GetSize(), 1) << bad;
    }
}

TEST(Stackup, IsNeverWritten)
{
    ReadStackup read(R"(<Stackup tolPlus="1">)", Below(R"(
<StackupGroup name="a">
<StackupLayer layerOrGroupRef="1"/>
</StackupGroup>
</Stackup>
)"));
    EXPECT_EQ(Exported(read.stackup, 0), (Export{1, ""}));
    EXPECT_EQ(Exported(read.stackup.StackupGroupArray, 0), (Export{1, ""}));
    EXPECT_EQ(Exported(*read.stackup.StackupGroupArray.GetAt(0), 0), (Export{1, ""}));
    Stackup empty;
    EXPECT_EQ(Exported(empty, 3), (Export{1, ""}));
}

class HostGroup : public Group {
public:
    explicit HostGroup(int result) : m_result(result) {}
    int Export(CStdioFile & file, int level) override
    {
        file.WriteString(("group " + std::to_string(level) + "\n").c_str());
        return m_result;
    }

private:
    int m_result;
};

TEST(Stackup, AsksItsGroupsAndStopsAtTheFirstThatRefuses)
{
    Stackup stackup;
    stackup.StackupGroupArray.Add(new HostGroup(1));
    EXPECT_EQ(Exported(stackup, 2), (Export{1, "group 2\n"}));
    stackup.StackupGroupArray.Add(new HostGroup(0));
    stackup.StackupGroupArray.Add(new HostGroup(1));
    EXPECT_EQ(Exported(stackup, 2), (Export{0, "group 2\ngroup 2\n"}));
    EXPECT_EQ(Exported(stackup.StackupGroupArray, 5), (Export{0, "group 5\ngroup 5\n"}));
}

TEST(Stackup, AGroupExportOtherThanZeroGivesOne)
{
    Stackup stackup;
    stackup.StackupGroupArray.Add(new HostGroup(7));
    EXPECT_EQ(Exported(stackup, 0), (Export{1, "group 0\n"}));
}

TEST(StackupArrays, OwnTheirElements)
{
    using LayerArray = CIPC2581_StackupLayerArray;
    using GroupArray = CIPC2581_StackupGroupArray;
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Group *, Group *>, GroupArray>));
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<StackLayer *, StackLayer *>, LayerArray>));
    EXPECT_EQ(Slot(&GroupArray::Export), 8u);
    EXPECT_EQ(Slot(&Behind<GroupArray>::Next), 9u);
    EXPECT_EQ(Slot(&Behind<LayerArray>::Next), 8u);
}

TEST(StackupArrays, DeleteTheirElements)
{
    int groups = 0;
    int layers = 0;
    {
        Stackup stackup;
        auto * group = new Counted<Group>(groups);
        stackup.StackupGroupArray.Add(group);
        group->StackupLayerArray.Add(new Counted<StackLayer>(layers));
        group->StackupLayerArray.Add(new Counted<StackLayer>(layers));
    }
    EXPECT_EQ(groups, 1);
    EXPECT_EQ(layers, 2);
}

}  // namespace
