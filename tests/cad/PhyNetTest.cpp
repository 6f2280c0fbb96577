#include "ipc2581/cad/PhyNet.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/PhyNetGroup.h"
#include "ipc2581/cad/PhyNetPoint.h"
#include "tests/cad/PhyNets.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Group = CIPC2581_Ecad_CadData_Step_PhyNetGroup;
using Net = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
using NetArray = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray;
using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;
using PointArray = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray;
using ReadNet = ReadPart<Net, &Net::PhyNetAdd>;

TEST(PhyNet, IsEmptyAtFirst)
{
    const Net net;
    EXPECT_EQ(net.Name, "");
    EXPECT_EQ(net.PhyNetPointArray.GetSize(), 0);
    EXPECT_LT(static_cast<const void *>(&net.Name), static_cast<const void *>(&net.PhyNetPointArray));
}

TEST(PhyNet, HasItsOperationsInOrder)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Net>);
    EXPECT_FALSE(std::is_copy_assignable_v<Net>);
    ExpectExportIsItsOneOperation<Net>();
}

TEST(PhyNet, ReadsItsPoints)
{
    ReadNet read(Below(R"(
<PhyNetPoint layerRef="1">
<StandardPrimitiveRef id="C"/>
</PhyNetPoint>
<PhyNetPoint layerRef="2">
</PhyNetPoint>
</PhyNet>
<Behind/>
)"));
    EXPECT_EQ(PointsOf(read.model), (Texts{"1", "2"}));
    EXPECT_EQ(read.model.PhyNetPointArray.GetAt(0)->StandardPrimitiveRefId, "C");
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(PhyNet, APointIsWhatItsLineSays)
{
    const std::vector<std::pair<std::string_view, PointFields>> rows = {
        {R"(<PhyNetPoint x="1.5" y="-2" layerRef="TOP" netNode="END" exposure="COVERED" via="TRUE" test="TRUE">)",
         {1.5, -2, "TOP", "END", "COVERED", 1, 1, ""}},
        {R"(<PhyNetPoint test="TRUE" via="TRUE" exposure="e f" netNode="n o" layerRef="l m" y="1e1" x="2mm"/>)",
         {2, 10, "l m", "n o", "e f", 1, 1, ""}},
        {R"(<PhyNetPoint via="FALSE" test="FALSE" >)", {}},
        {R"(<PhyNetPoint via="1" test="true" >)", {}},
        {R"(<PhyNetPoint via="xTRUEx" via="TRUE" test="TRUE" test="no" >)", {0, 0, "", "", "", 1, 0, ""}},
        {R"(<PhyNetPoint x="z" y="" id="C1" >)", {}},
        {R"(<PhyNetPoint X="1" y ="2" LayerRef="l" netnode="n" Via="TRUE">)", {}},
        {R"(<PhyNetPoint max="1" xlayerRef="l" latest="TRUE" >)", {1, 0, "l", "", "", 0, 1, ""}},
        {"<PhyNetPoint>", {}},
        {R"(<PhyNetPoint_x="1" >)", {1, 0, "", "", "", 0, 0, ""}},
    };
    for (const auto & [line, fields] : rows) {
        ReadNet read(std::string(line) + "\n");
        ASSERT_EQ(read.model.PhyNetPointArray.GetSize(), 1) << line;
        EXPECT_EQ(FieldsOf(*read.model.PhyNetPointArray.GetAt(0)), fields) << line;
    }
}

TEST(PhyNet, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"x=", "y=", "layerRef=", "netNode=", "exposure=", "via=", "test="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            ReadNet read(R"(<PhyNetPoint x="7" y="7" layerRef="-" netNode="-" exposure="-" via="TRUE" test="TRUE" )" +
                         words[later] + words[earlier] + Joined({R"("v" >)"}));
            PointFields expected = {7, 7, "-", "-", "-", 1, 1, ""};
            double * const numbers[] = {&expected.x, &expected.y};
            std::string * const texts[] = {&expected.layerRef, &expected.netNode, &expected.exposure};
            if (earlier < 2) {
                *numbers[earlier] = 0;
            }
            else if (earlier < 5) {
                *texts[earlier - 2] = words[earlier] + "v";
            }
            else {
                expected.via = 0;
            }
            EXPECT_EQ(FieldsOf(*read.model.PhyNetPointArray.GetAt(0)), expected) << words[later] << words[earlier];
        }
    }
}

TEST(PhyNet, IgnoresOtherLines)
{
    ReadNet read(Below(R"(

<PhyNet name="x">
<PhyNetPoint/>
</Step>
<x PhyNetPoint x="1">
<phyNetPoint>
<StandardPrimitiveRef id="a"/>
<PhyNetGroup name="y">
</PhyNet>
)"));
    EXPECT_EQ(PointsOf(read.model), Texts{});
    EXPECT_EQ(read.model.Name, "");
}

TEST(PhyNet, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line :
         {"</PhyNet>", "</PhyNetGroup>", "</PhyNetPoint>", R"(</PhyNetPoint x="1">)", "<x/PhyNetx>", "  </PhyNet>"}) {
        ReadNet read(std::string(line) + "\n<PhyNetPoint>\n");
        EXPECT_EQ(PointsOf(read.model), Texts{}) << line;
        EXPECT_EQ(read.Rest(), Texts{"<PhyNetPoint>"}) << line;
    }
}

TEST(PhyNet, APointTestComesFirst)
{
    EXPECT_EQ(PointsOf(ReadNet(Joined({R"(<PhyNetPhyNetPoint layerRef="1">)"})).model), Texts{"1"});
}

TEST(PhyNet, TheEndOfTheFileStoresThePoint)
{
    EXPECT_EQ(PointsOf(ReadNet(Joined({R"(<PhyNetPoint layerRef="1">)"})).model), Texts{"1"});
    EXPECT_EQ(PointsOf(ReadNet("").model), Texts{});
}

TEST(PhyNet, AnExceptionLosesThePointInHand)
{
    for (const std::string_view bad :
         {"  ", R"(<PhyNetPoint x="1)", "<PhyNetPoint>\n  ", "<PhyNetPoint>\n<StandardPrimitiveRef id=\"open"}) {
        Lines lines(Joined({R"(<PhyNetPoint layerRef="1">)", "</PhyNetPoint>"}) + std::string(bad) + "\n");
        Net net;
        EXPECT_THROW(net.PhyNetAdd(lines.File()), CInvalidArgException) << bad;
        EXPECT_EQ(PointsOf(net), Texts{"1"}) << bad;
    }
}

TEST(PhyNet, WritesItsLines)
{
    Net net;
    net.Name = "a & b";
    EXPECT_EQ(Exported(net, 0), (Export{1, Joined({R"(   <PhyNet name="a & b">)", "   </PhyNet>"})}));
    net.PhyNetPointArray.Add(new Point);
    EXPECT_EQ(Exported(net, 1), (Export{1, Below(R"(
      <PhyNet name="a & b">
         <PhyNetPoint x="0.000000" y="0.000000" layerRef="" netNode="" exposure="">
            <StandardPrimitiveRef id=""/>
         </PhyNetPoint>
      </PhyNet>
)")}));
}

TEST(PhyNet, StopsAtAPointThatRefuses)
{
    Net net;
    net.PhyNetPointArray.Add(new Writing<Point>("mark", 1));
    net.PhyNetPointArray.Add(new Writing<Point>("mark", 0));
    net.PhyNetPointArray.Add(new Writing<Point>("mark", 1));
    EXPECT_EQ(Exported(net, 0), (Export{0, Below(R"(
   <PhyNet name="">
mark 1
mark 1
)")}));
}

TEST(PhyNetArrays, AreOwningArraysWithAnExport)
{
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Net *, Net *>, NetArray>));
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Point *, Point *>, PointArray>));
    EXPECT_EQ(Slot(&NetArray::Export), 8u);
    EXPECT_EQ(Slot(&PointArray::Export), 8u);
    EXPECT_EQ(Slot(&Behind<NetArray>::Next), 9u);
    EXPECT_EQ(Slot(&Behind<PointArray>::Next), 9u);
}

TEST(PhyNetArrays, DeleteTheirElements)
{
    int nets = 0;
    int points = 0;
    {
        Group group;
        auto * net = new Counted<Net>(nets);
        group.PhyNetArray.Add(net);
        net->PhyNetPointArray.Add(new Counted<Point>(points));
        net->PhyNetPointArray.Add(new Counted<Point>(points));
    }
    EXPECT_EQ(nets, 1);
    EXPECT_EQ(points, 2);
}

TEST(PhyNetArrays, WriteAtTheirOwnLevelUpToTheFirstThatRefuses)
{
    NetArray nets;
    EXPECT_EQ(Exported(nets, 3), (Export{1, ""}));
    nets.Add(new Writing<Net>("mark", 1));
    EXPECT_EQ(Exported(nets, 3), (Export{1, "mark 3\n"}));
    nets.Add(new Writing<Net>("mark", 0));
    nets.Add(new Writing<Net>("mark", 1));
    EXPECT_EQ(Exported(nets, 3), (Export{0, "mark 3\nmark 3\n"}));
    PointArray points;
    EXPECT_EQ(Exported(points, 3), (Export{1, ""}));
    points.Add(new Writing<Point>("mark", 0));
    points.Add(new Writing<Point>("mark", 1));
    EXPECT_EQ(Exported(points, 4), (Export{0, "mark 4\n"}));
}

}  // namespace
