#include "ipc2581/cad/PhyNetPoint.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/PhyNet.h"
#include "tests/cad/PhyNets.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Net = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;
using ReadNet = ReadPart<Net, &Net::PhyNetAdd>;
using ReadPoint = ReadPart<Point, &Point::PhyNetPointAdd>;

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
    ExpectExportIsItsOneOperation<Point>();
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

}  // namespace
