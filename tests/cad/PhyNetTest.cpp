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
using ipc2581::tests::Writing;

using Group = CIPC2581_Ecad_CadData_Step_PhyNetGroup;
using Net = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
using NetArray = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray;
using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;
using PointArray = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray;

struct PointFields {
    double x = 0;
    double y = 0;
    std::string layerRef;
    std::string netNode;
    std::string exposure;
    int via = 0;
    int test = 0;
    std::string primitive;
    bool operator==(const PointFields &) const = default;
};

PointFields FieldsOf(const Point & point)
{
    return {point.Location.GetX(),
            point.Location.GetY(),
            Str(point.LayerRef),
            Str(point.NetNode),
            Str(point.Exposure),
            point.Via,
            point.Test,
            Str(point.StandardPrimitiveRefId)};
}

void Fill(Point & point)
{
    point.Location.SetData(1.5, -2);
    point.LayerRef = "TOP";
    point.Exposure = "EXPOSED";
    point.NetNode = "MIDDLE";
    point.Via = 1;
    point.Test = 1;
    point.StandardPrimitiveRefId = "C1";
}

const PointFields Filled = {1.5, -2, "TOP", "MIDDLE", "EXPOSED", 1, 1, "C1"};

// The points of a net by the layer that each has.
Texts PointsOf(const Net & net)
{
    Texts points;
    for (std::int64_t i = 0; i < net.PhyNetPointArray.GetSize(); ++i) {
        points.push_back(Str(net.PhyNetPointArray.GetAt(i)->LayerRef));
    }
    return points;
}

// A group, a net or a point, with what its reader makes of these lines.
template <typename Model, void (Model::*Add)(CStdioFile &)>
class Read {
public:
    explicit Read(std::string_view bytes) : m_lines(bytes) { (model.*Add)(m_lines.File()); }

    Texts Rest() { return m_lines.Rest(); }

    Model model;

private:
    Lines m_lines;
};

using ReadGroup = Read<Group, &Group::PhyNetGroupAdd>;
using ReadNet = Read<Net, &Net::PhyNetAdd>;
using ReadPoint = Read<Point, &Point::PhyNetPointAdd>;

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
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Group>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Group>);
    EXPECT_EQ(Slot(&Group::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Group>::Next), 3u);
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
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Net>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Net>);
    EXPECT_EQ(Slot(&Net::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Net>::Next), 3u);
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

TEST(PhyNetPoint, HasItsDefaults)
{
    EXPECT_EQ(FieldsOf(Point()), PointFields());
}

TEST(PhyNetPoint, HoldsItsFieldsInOrder)
{
    const Point point;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(point.Location), at(point.LayerRef));
    EXPECT_LT(at(point.LayerRef), at(point.Exposure));
    EXPECT_LT(at(point.Exposure), at(point.NetNode));
    EXPECT_LT(at(point.NetNode), at(point.Via));
    EXPECT_LT(at(point.Via), at(point.Test));
    EXPECT_LT(at(point.Test), at(point.StandardPrimitiveRefId));
}

TEST(PhyNetPoint, HasItsOperationsInOrder)
{
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Point>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Point>);
    EXPECT_EQ(Slot(&Point::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Point>::Next), 3u);
}

TEST(PhyNetPoint, CopiesAllFields)
{
    Point source;
    Fill(source);
    const Point copy(source);
    Point assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    source.Location.SetX(9);
    source.NetNode = "other";
    EXPECT_EQ(FieldsOf(copy), Filled);
    EXPECT_EQ(FieldsOf(assigned), Filled);
    const Point & same = assigned;
    assigned = same;
    EXPECT_EQ(FieldsOf(assigned), Filled);
}

TEST(PhyNetPoint, ReadsItsPrimitive)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<StandardPrimitiveRef id="C1"/>)", "C1"},
        {R"(<StandardPrimitiveRef x="1" id="two words" >)", "two words"},
        {R"(<StandardPrimitiveRef grid="g" >)", "g"},
        {R"(<StandardPrimitiveRef id="a" id="b" >)", "b"},
        {R"(<StandardPrimitiveRef Id="a" id ="b" kind="id">)", "before"},
        {"<StandardPrimitiveRef>", "before"},
        {"<StandardPrimitiveRef/>", "before"},
        {R"(</StandardPrimitiveRef id="a">)", "before"},
        {R"(<StandardPrimitiveRef/x id="a">)", "before"},
        {R"(<x StandardPrimitiveRef id="a">)", "before"},
        {R"(<UserPrimitiveRef id="a">)", "before"},
        {R"(<xStandardPrimitiveRefx_id="t" >)", "t"},
        {R"(<StandardPrimitiveRef id="" >)", ""},
        {"", "before"},
    };
    for (const auto & [line, id] : rows) {
        Lines lines({line, "</PhyNetPoint>", "<Behind/>"});
        Point point;
        point.StandardPrimitiveRefId = "before";
        point.PhyNetPointAdd(lines.File());
        EXPECT_EQ(point.StandardPrimitiveRefId, id) << line;
        EXPECT_EQ(lines.Rest(), Texts{"<Behind/>"}) << line;
    }
}

TEST(PhyNetPoint, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line :
         {"</PhyNetPoint>", R"(</PhyNetPointStandardPrimitiveRef id="a">)", "<x/PhyNetPoint>", "  </PhyNetPoint>"}) {
        ReadPoint read(Joined({line, R"(<StandardPrimitiveRef id="b"/>)"}));
        EXPECT_EQ(read.model.StandardPrimitiveRefId, "") << line;
        EXPECT_EQ(read.Rest().size(), 1u) << line;
    }
}

TEST(PhyNetPoint, RunsOnOverTheLinesOfOthers)
{
    ReadPoint read(Below(R"(
<PhyNetPoint layerRef="2">
</PhyNet>
</PhyNetGroup>
</Step>
<StandardPrimitiveRef id="a"/>
</PhyNetPoint>
<Behind/>
)"));
    EXPECT_EQ(read.model.LayerRef, "");
    EXPECT_EQ(read.model.StandardPrimitiveRefId, "a");
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(PhyNetPoint, ASelfClosingPointLosesThoseBehindIt)
{
    ReadNet read(Below(R"(
<PhyNetPoint layerRef="1"/>
<PhyNetPoint layerRef="2">
<StandardPrimitiveRef id="a"/>
</PhyNetPoint>
<PhyNetPoint layerRef="3">
</PhyNetPoint>
</PhyNet>
)"));
    EXPECT_EQ(PointsOf(read.model), (Texts{"1", "3"}));
    EXPECT_EQ(read.model.PhyNetPointArray.GetAt(0)->StandardPrimitiveRefId, "a");
}

TEST(PhyNetPoint, TheEndOfTheFileEndsIt)
{
    EXPECT_EQ(ReadPoint(R"(<StandardPrimitiveRef id="a"/>)").model.StandardPrimitiveRefId, "a");
    EXPECT_EQ(ReadPoint("").model.StandardPrimitiveRefId, "");
}

TEST(PhyNetPoint, ALineOfBlanksAndACutValueThrow)
{
    for (const std::string_view bad : {"  ", R"(<StandardPrimitiveRef id="b)", "<StandardPrimitiveRef id="}) {
        Lines lines({R"(<StandardPrimitiveRef id="a"/>)", bad});
        Point point;
        EXPECT_THROW(point.PhyNetPointAdd(lines.File()), CInvalidArgException) << bad;
        EXPECT_EQ(point.StandardPrimitiveRefId, "a") << bad;
    }
}

TEST(PhyNetPoint, WritesItsLines)
{
    Point point;
    Fill(point);
    EXPECT_EQ(Exported(point, 0), (Export{1, Below(R"(
   <PhyNetPoint x="1.500000" y="-2.000000" layerRef="TOP" netNode="MIDDLE" exposure="EXPOSED" via="TRUE">
      <StandardPrimitiveRef id="C1"/>
   </PhyNetPoint>
)")}));
    point.Via = 0;
    EXPECT_EQ(Exported(point, 2), (Export{1, Below(R"(
         <PhyNetPoint x="1.500000" y="-2.000000" layerRef="TOP" netNode="MIDDLE" exposure="EXPOSED">
            <StandardPrimitiveRef id="C1"/>
         </PhyNetPoint>
)")}));
}

TEST(PhyNetPoint, EveryViaOtherThanZeroIsWritten)
{
    for (const int via : {-1, 1, 2}) {
        Point point;
        point.Via = via;
        EXPECT_EQ(Exported(point, 0).text, Below(R"(
   <PhyNetPoint x="0.000000" y="0.000000" layerRef="" netNode="" exposure="" via="TRUE">
      <StandardPrimitiveRef id=""/>
   </PhyNetPoint>
)")) << via;
    }
}

TEST(PhyNetPoint, TheTestFlagIsNeverWritten)
{
    Point point;
    const std::string without = Exported(point, 0).text;
    point.Test = 1;
    EXPECT_EQ(Exported(point, 0).text, without);
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
