#include "ipc2581/cad/LogicalNetPin.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Pin = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;
using PinArray = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray;

TEST(LogicalNetPin, IsEmptyAtFirst)
{
    const Pin pin;
    EXPECT_EQ(pin.ComponentRef, "");
    EXPECT_EQ(pin.Pin, "");
    EXPECT_EQ(pin.Title, "");
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(pin.ComponentRef), at(pin.Pin));
    EXPECT_LT(at(pin.Pin), at(pin.Title));
}

TEST(LogicalNetPin, HasItsOperationsInOrderAndNoBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Pin>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Pin>));
    EXPECT_EQ(Slot(&Pin::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Pin>::Next), 3u);
}

TEST(LogicalNetPin, ItsAccessorsReachItsFields)
{
    Pin pin;
    pin.SetComponentRef("c");
    pin.SetPin("p");
    pin.SetTitle("t");
    EXPECT_EQ(pin.ComponentRef, "c");
    EXPECT_EQ(pin.Pin, "p");
    EXPECT_EQ(pin.Title, "t");
    EXPECT_EQ(pin.GetComponentRef(), "c");
    EXPECT_EQ(pin.GetPin(), "p");
    EXPECT_EQ(pin.GetTitle(), "t");
}

TEST(LogicalNetPin, CopiesAndResetsItsTexts)
{
    Pin source;
    source.SetComponentRef("c");
    source.SetPin("p");
    source.SetTitle("t");
    const Pin copy(source);
    Pin assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    source.Init();
    for (const Pin * pin : {&copy, static_cast<const Pin *>(&assigned)}) {
        EXPECT_EQ(pin->ComponentRef, "c");
        EXPECT_EQ(pin->Pin, "p");
        EXPECT_EQ(pin->Title, "t");
    }
    EXPECT_EQ(source.ComponentRef, "");
    EXPECT_EQ(source.Pin, "");
    EXPECT_EQ(source.Title, "");
}

TEST(LogicalNetPin, WritesOneLine)
{
    Pin pin;
    EXPECT_EQ(Exported(pin, 0), (Export{1, Joined({R"(   <LogicalNetPin pin="" componentRef="" />)"})}));
    pin.Pin = "1";
    pin.ComponentRef = "U1";
    pin.Title = "t";
    EXPECT_EQ(Exported(pin, 2), (Export{1, Joined({R"(         <LogicalNetPin pin="1" componentRef="U1" />)"})}));
}

TEST(LogicalNetPinArray, IsAnOwningArrayWithAnExport)
{
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Pin *, Pin *>, PinArray>));
    EXPECT_EQ(Slot(&PinArray::Export), 8u);
    EXPECT_EQ(Slot(&Behind<PinArray>::Next), 9u);
    PinArray pins;
    EXPECT_EQ(Exported(pins, 3), (Export{1, ""}));
    pins.Add(new Writing<Pin>("mark", 0));
    pins.Add(new Writing<Pin>("mark", 1));
    EXPECT_EQ(Exported(pins, 3), (Export{0, "mark 3\n"}));
}

}  // namespace
