#include "ipc2581/cad/PhyNetGroup.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/PhyNet.h"
#include "ipc2581/cad/PhyNetPoint.h"
#include "tests/cad/PhyNets.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Group = CIPC2581_Ecad_CadData_Step_PhyNetGroup;
using Net = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;
using ReadGroup = ReadPart<Group, &Group::PhyNetGroupAdd>;

// The nets of a group, each with the layers of its points.
Texts NetsOf(const Group & group)
{
    Texts nets;
    for (std::int64_t i = 0; i < group.PhyNetArray.GetSize(); ++i) {
        const Net & net = *group.PhyNetArray.GetAt(i);
        std::string text = Str(net.Name) + ":";
        for (const std::string & point : PointsOf(net)) {
            text += " " + point;
        }
        nets.push_back(text);
    }
    return nets;
}

TEST(PhyNetGroup, IsEmptyAtFirst)
{
    const Group group;
    EXPECT_EQ(group.Name, "");
    EXPECT_EQ(group.PhyNetArray.GetSize(), 0);
    EXPECT_LT(static_cast<const void *>(&group.Name), static_cast<const void *>(&group.PhyNetArray));
}

TEST(PhyNetGroup, HasItsOperationsInOrder)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Group>);
    EXPECT_FALSE(std::is_copy_assignable_v<Group>);
    ExpectExportIsItsOneOperation<Group>();
}

TEST(PhyNetGroup, ReadsItsNets)
{
    ReadGroup read(Below(R"(
<PhyNet name="a">
<PhyNetPoint layerRef="1">
</PhyNetPoint>
<PhyNetPoint layerRef="2">
</PhyNetPoint>
</PhyNet>
<PhyNet name="b">
</PhyNet>
</PhyNetGroup>
<Behind/>
)"));
    EXPECT_EQ(NetsOf(read.model), (Texts{"a: 1 2", "b:"}));
    EXPECT_EQ(read.model.Name, "");
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(PhyNetGroup, TakesTheNameOfANet)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<PhyNet name="GND">)", "GND:"},      {R"(<PhyNet x="1" name="two words">)", "two words:"},
        {R"(<PhyNet filename="f" >)", "f:"},     {R"(<PhyNet name="a" name="b" >)", "b:"},
        {R"(<PhyNet Name="a" name ="b">)", ":"}, {"<PhyNet>", ":"},
        {R"(<PhyNetGroup name="g">)", "g:"},     {R"(<PhyNetPoint name="p">)", "p:"},
        {R"(<PhyNet_name="t" >)", "t:"},         {R"(<PhyNet name="a/b"/>)", "ab:"},
    };
    for (const auto & [line, net] : rows) {
        EXPECT_EQ(NetsOf(ReadGroup(std::string(line) + "\n").model), Texts{std::string(net)}) << line;
    }
}

TEST(PhyNetGroup, IgnoresOtherLines)
{
    ReadGroup read(Below(R"(

</PhyNet>
<PhyNet/>
</PhyNetPoint>
</Step>
<x PhyNet name="a">
<phynet>
</PhyNetGroup>
<Behind/>
)"));
    EXPECT_EQ(NetsOf(read.model), Texts{});
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(PhyNetGroup, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line : {"</PhyNetGroup>", "</PhyNetGroupX y>", "<x/PhyNetGroup>", "  </PhyNetGroup>"}) {
        ReadGroup read(std::string(line) + "\n<PhyNet>\n");
        EXPECT_EQ(NetsOf(read.model), Texts{}) << line;
        EXPECT_EQ(read.Rest(), Texts{"<PhyNet>"}) << line;
    }
}

TEST(PhyNetGroup, ANetWithoutAClosingLineIsEndedByTheGroups)
{
    ReadGroup read(Below(R"(
<PhyNet name="a">
</PhyNetGroup>
<PhyNet name="b">
</PhyNet>
</PhyNetGroup>
<Behind/>
)"));
    EXPECT_EQ(NetsOf(read.model), (Texts{"a:", "b:"}));
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(PhyNetGroup, TheEndOfTheFileStoresTheNet)
{
    EXPECT_EQ(NetsOf(ReadGroup(Joined({R"(<PhyNet name="a">)", R"(<PhyNetPoint layerRef="1">)"})).model),
              Texts{"a: 1"});
    EXPECT_EQ(NetsOf(ReadGroup(R"(<PhyNet name="a">)").model), Texts{"a:"});
    EXPECT_EQ(NetsOf(ReadGroup("").model), Texts{});
}

TEST(PhyNetGroup, AnExceptionLosesTheNetInHand)
{
    for (const std::string_view bad : {"  ", R"(<PhyNet name="open)", "<PhyNet name=\"b\">\n  ",
                                       "<PhyNet name=\"b\">\n<PhyNetPoint x=\"1", "<PhyNet>\n<PhyNetPoint>\n  "}) {
        Lines lines(Joined({R"(<PhyNet name="a">)", "</PhyNet>"}) + std::string(bad) + "\n");
        Group group;
        EXPECT_THROW(group.PhyNetGroupAdd(lines.File()), CInvalidArgException) << bad;
        EXPECT_EQ(NetsOf(group), Texts{"a:"}) << bad;
    }
}

TEST(PhyNetGroup, WritesItsLines)
{
    Group group;
    group.Name = "g";
    auto * net = new Net;
    net->Name = "GND";
    net->PhyNetPointArray.Add(new Point);
    group.PhyNetArray.Add(net);
    group.PhyNetArray.Add(new Net);
    EXPECT_EQ(Exported(group, 1), (Export{1, Below(R"(
      <PhyNetGroup name="g">
         <PhyNet name="GND">
            <PhyNetPoint x="0.000000" y="0.000000" layerRef="" netNode="" exposure="">
               <StandardPrimitiveRef id=""/>
            </PhyNetPoint>
         </PhyNet>
         <PhyNet name="">
         </PhyNet>
      </PhyNetGroup>
)")}));
    Group empty;
    EXPECT_EQ(Exported(empty, 0), (Export{1, Joined({R"(   <PhyNetGroup name="">)", "   </PhyNetGroup>"})}));
}

TEST(PhyNetGroup, StopsAtANetThatRefuses)
{
    Group group;
    group.PhyNetArray.Add(new Writing<Net>("mark", 1));
    group.PhyNetArray.Add(new Writing<Net>("mark", 0));
    group.PhyNetArray.Add(new Writing<Net>("mark", 1));
    EXPECT_EQ(Exported(group, 0), (Export{0, Below(R"(
   <PhyNetGroup name="">
mark 1
mark 1
)")}));
}

}  // namespace
