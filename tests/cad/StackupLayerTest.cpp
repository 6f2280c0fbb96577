#include "ipc2581/cad/StackupLayer.h"

#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/cad/StackupGroup.h"
#include "tests/cad/Stackups.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"

namespace {

using namespace ipc2581::tests;

using Group = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
using StackLayer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;

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

}  // namespace
