#include "ipc2581/each.h"

#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/CStringArray.h"
#include "ipc2581/cad/LogicalNet.h"

namespace ipc2581::tests {
namespace {

using Pin = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;

TEST(Each, GivesTheObjectsOfAListInTheirOrder)
{
    CIPC2581_Ecad_CadData_Step_LogicalNetArray nets;
    for (const char * const name : {"GND", "VCC"}) {
        nets.Add(new CIPC2581_Ecad_CadData_Step_LogicalNet);
        nets.GetLastElement()->Name = name;
    }
    std::vector<std::string> names;
    for (const auto * const net : Each(nets)) {
        names.push_back(Str(net->Name));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"GND", "VCC"}));
    EXPECT_EQ(Count(nets), 2U);
}

TEST(Each, LetsTheObjectsBeChanged)
{
    CIPC2581_Ecad_CadData_Step_LogicalNetArray nets;
    nets.Add(new CIPC2581_Ecad_CadData_Step_LogicalNet);
    for (auto * const net : Each(nets)) {
        net->Name = "OUT";
    }
    EXPECT_EQ(Str(nets.GetAt(0)->Name), "OUT");
}

TEST(Each, TakesAListByPointer)
{
    CIPC2581_Ecad_CadData_Step_LogicalNet net;
    net.LogicalNetPinArray->Add(new Pin);
    net.LogicalNetPinArray->GetAt(0)->Pin = "7";
    ASSERT_EQ(Count(net.LogicalNetPinArray), 1U);
    EXPECT_EQ(Each(net.LogicalNetPinArray).front(), net.LogicalNetPinArray->GetAt(0));
    const CIPC2581_Ecad_CadData_Step_LogicalNetArray * const none = nullptr;
    EXPECT_TRUE(Each(none).empty());
    EXPECT_EQ(Count(none), 0U);
}

TEST(Each, OfAnEmptyListIsNothing)
{
    const CIPC2581_Ecad_CadData_Step_LogicalNetArray nets;
    EXPECT_TRUE(Each(nets).empty());
    EXPECT_EQ(Count(nets), 0U);
}

TEST(Each, GivesTextsAndNumbersWhereTheyStand)
{
    CStringArray texts;
    texts.SetAtGrow(0, "TOP");
    texts.SetAtGrow(1, "BOTTOM");
    EXPECT_EQ(Each(texts).data(), texts.GetData());
    EXPECT_EQ(Str(Each(texts)[1]), "BOTTOM");
    CArray<int, int> numbers;
    numbers.Add(5);
    static_assert(std::is_same_v<decltype(Each(numbers)), std::span<const int>>);
    EXPECT_EQ(Each(numbers).front(), 5);
}

TEST(Str, IsACopyOfTheWholeText)
{
    CString text("net");
    const std::string copy = Str(text);
    text = "";
    EXPECT_EQ(copy, "net");
    EXPECT_EQ(Str(text), "");
    const std::string_view withZero("a\0b", 3);
    EXPECT_EQ(Str(CString(withZero)), withZero);
}

}  // namespace
}  // namespace ipc2581::tests
