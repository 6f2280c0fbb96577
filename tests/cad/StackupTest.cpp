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
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using ipc2581::tests::Behind;
using ipc2581::tests::Below;
using ipc2581::tests::Counted;
using ipc2581::tests::Export;
using ipc2581::tests::Exported;
using ipc2581::tests::Joined;
using ipc2581::tests::Lines;
using ipc2581::tests::Slot;
using ipc2581::tests::Str;
using ipc2581::tests::Texts;
using ipc2581::tests::Tokens;

using Stackup = CIPC2581_Ecad_CadData_Stackup;
using Group = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
using StackLayer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;

Texts FieldsOf(const Stackup & stackup)
{
    return {Str(stackup.overallThickness), Str(stackup.tolPlus), Str(stackup.tolMinus), Str(stackup.whereMeasured)};
}

struct GroupFields {
    std::string name;
    double thickness;
    double tolPlus;
    double tolMinus;
    bool operator==(const GroupFields &) const = default;
};

struct LayerFields {
    std::string layerOrGroupRef;
    std::string materialType;
    double thickness;
    bool operator==(const LayerFields &) const = default;
};

GroupFields FieldsOf(const Group & group)
{
    return {Str(group.name), group.thickness, group.tolPlus, group.tolMinus};
}

LayerFields FieldsOf(const StackLayer & layer)
{
    return {Str(layer.layerOrGroupRef), Str(layer.materialType), layer.thickness};
}

// What ReadStackUp makes of the Stackup line and of the lines behind it.
class Read {
public:
    explicit Read(std::string_view opening, std::string_view behind = "") : m_lines(behind)
    {
        Tokens tokens(opening);
        stackup.ReadStackUp(tokens, m_lines.File());
    }

    const Group & GroupAt(std::int64_t index) { return *stackup.StackupGroupArray.GetAt(index); }
    // The names of the groups, each with the references of its layers.
    Texts Groups()
    {
        Texts groups;
        for (std::int64_t i = 0; i < stackup.StackupGroupArray.GetSize(); ++i) {
            std::string text = Str(GroupAt(i).name) + ":";
            for (std::int64_t j = 0; j < GroupAt(i).StackupLayerArray.GetSize(); ++j) {
                text += " " + Str(GroupAt(i).StackupLayerArray.GetAt(j)->layerOrGroupRef);
            }
            groups.push_back(text);
        }
        return groups;
    }
    Texts Rest() { return m_lines.Rest(); }

    Stackup stackup;

private:
    Lines m_lines;
};

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
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Stackup>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Stackup>);
    EXPECT_EQ(Slot(&Stackup::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Stackup>::Next), 3u);
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
        EXPECT_EQ(FieldsOf(Read(line).stackup), fields) << line;
    }
}

TEST(Stackup, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"overallThickness=", "tolPlus=", "tolMinus=", "whereMeasured="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            Texts expected(4);
            expected[earlier] = words[earlier] + "v";
            EXPECT_EQ(FieldsOf(Read("<Stackup " + words[later] + words[earlier] + R"("v" >)").stackup), expected)
                << words[later];
        }
    }
}

TEST(Stackup, ReadsItsGroups)
{
    Read read("<Stackup>", Below(R"(
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
    Read read("<Stackup>", Below(R"(
<xStackupGroup/>
<StackupGroup name="a">
</StackupGroup>
</Stackup>
)"));
    EXPECT_EQ(read.Groups(), Texts{"a:"});
}

TEST(Stackup, AStrayClosingGroupLineEndsIt)
{
    Read read("<Stackup>", Joined({"</StackupGroup>", R"(<StackupGroup name="a">)"}));
    EXPECT_EQ(read.Groups(), Texts{});
    EXPECT_EQ(read.Rest(), Texts{R"(<StackupGroup name="a">)"});
}

TEST(Stackup, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line : {"</Stackup>", "</Stackupx y>", "<x/Stackup>", "   </Stackup>"}) {
        Read read("<Stackup>", Joined({line, R"(<StackupGroup name="a">)"}));
        EXPECT_EQ(read.Groups(), Texts{}) << line;
    }
}

TEST(Stackup, IgnoresOtherLines)
{
    Read read("<Stackup>", Below(R"(

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
    Read read(R"(<Stackup tolPlus="1" tolMinus="2">)", Below(R"(
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
    EXPECT_EQ(
        Read("<Stackup>", Joined({R"(<StackupGroup name="a">)", R"(<StackupLayer layerOrGroupRef="1">)"})).Groups(),
        Texts{"a: 1"});
    EXPECT_EQ(Read("<Stackup>", Joined({R"(<StackupGroup name="a">)"})).Groups(), Texts{"a:"});
    EXPECT_EQ(Read(R"(<Stackup tolPlus="1">)").stackup.tolPlus, "1");
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
    Read read(R"(<Stackup tolPlus="1">)", Below(R"(
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
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Group>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Group>);
    EXPECT_EQ(Slot(&Group::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Group>::Next), 3u);
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
        Read read("<Stackup>", std::string(line) + "\n");
        ASSERT_EQ(read.stackup.StackupGroupArray.GetSize(), 1) << line;
        EXPECT_EQ(FieldsOf(read.GroupAt(0)), fields) << line;
    }
}

TEST(StackupGroup, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"name=", "thickness=", "tolPlus=", "tolMinus="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            Read read("<Stackup>", R"(<StackupGroup thickness="7" tolPlus="7" tolMinus="7" )" + words[later] +
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
    Read read("<Stackup>", Below(R"(
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

TEST(StackupLayer, IsEmptyAtFirst)
{
    const StackLayer layer;
    EXPECT_EQ(FieldsOf(layer), (LayerFields{"", "", 0}));
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(layer.layerOrGroupRef), at(layer.materialType));
    EXPECT_LT(at(layer.materialType), at(layer.thickness));
}

TEST(StackupLayer, HasAVirtualDestructorOnlyAndNoBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<StackLayer>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, StackLayer>));
    EXPECT_EQ(Slot(&Behind<StackLayer>::Next), 2u);
}

TEST(StackupLayer, CopiesAllFields)
{
    StackLayer source;
    source.layerOrGroupRef = "l";
    source.materialType = "m";
    source.thickness = 2;
    const StackLayer copy(source);
    StackLayer assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    source.materialType = "other";
    EXPECT_EQ(FieldsOf(copy), (LayerFields{"l", "m", 2}));
    EXPECT_EQ(FieldsOf(assigned), (LayerFields{"l", "m", 2}));
}

LayerFields ReadLayer(std::string_view line)
{
    Lines lines({line});
    Group group;
    group.StackUpGroupAdd(lines.File());
    EXPECT_EQ(group.StackupLayerArray.GetSize(), 1) << line;
    return FieldsOf(*group.StackupLayerArray.GetAt(0));
}

TEST(StackupLayer, ReadsItsAttributes)
{
    const std::vector<std::pair<std::string_view, LayerFields>> rows = {
        {R"(<StackupLayer layerOrGroupRef="L1" materialType="COPPER" thickness="0.035">)", {"L1", "COPPER", 0.035}},
        {R"(<StackupLayer thickness="x" materialType="FR 4" layerOrGroupRef="L1" />)", {"L1", "FR 4", 0}},
        {R"(<StackupLayer tolPlus="1" tolMinus="2" sequence="3" overallThickness="4">)", {"", "", 0}},
        {R"(<StackupLayer layerOrGroupRef ="a" Thickness="1" kind="materialType" >)", {"", "", 0}},
        {R"(<StackupLayer materialType="a" materialType="b">)", {"", "b", 0}},
        {"<StackupLayer>", {"", "", 0}},
        {R"(<xStackupLayer_thickness="3" >)", {"", "", 3}},
    };
    for (const auto & [line, fields] : rows) {
        EXPECT_EQ(ReadLayer(line), fields) << line;
    }
}

TEST(StackupLayer, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    EXPECT_EQ(ReadLayer(R"(<StackupLayer materialType=layerOrGroupRef="v" >)"),
              (LayerFields{"layerOrGroupRef=v", "", 0}));
    EXPECT_EQ(ReadLayer(R"(<StackupLayer thickness=layerOrGroupRef="v" >)"), (LayerFields{"layerOrGroupRef=v", "", 0}));
    EXPECT_EQ(ReadLayer(R"(<StackupLayer thickness="7" thickness=materialType="v" >)"),
              (LayerFields{"", "materialType=v", 7}));
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
