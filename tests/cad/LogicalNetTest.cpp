#include "ipc2581/cad/LogicalNet.h"

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/LogicalNetPin.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Net = CIPC2581_Ecad_CadData_Step_LogicalNet;
using NetArray = CIPC2581_Ecad_CadData_Step_LogicalNetArray;
using Pin = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;
using PinArray = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray;

Pin * NewPin(const char * pin, const char * component)
{
    auto * made = new Pin;
    made->Pin = pin;
    made->ComponentRef = component;
    return made;
}

// What LogicalNetAdd makes of these lines.
class Read {
public:
    explicit Read(std::string_view bytes) : m_lines(bytes) { net.LogicalNetAdd(m_lines.File()); }

    // The pins as component.pin.
    Texts Pins()
    {
        Texts pins;
        for (std::int64_t i = 0; i < net.LogicalNetPinArray->GetSize(); ++i) {
            const Pin & pin = *net.LogicalNetPinArray->GetAt(i);
            EXPECT_EQ(pin.Title, "");
            pins.push_back(Str(pin.ComponentRef) + "." + Str(pin.Pin));
        }
        return pins;
    }
    Texts Rest() { return m_lines.Rest(); }

    Net net;

private:
    Lines m_lines;
};

TEST(LogicalNet, IsEmptyAtFirst)
{
    const Net net;
    EXPECT_EQ(net.Name, "");
    EXPECT_EQ(net.NetClass, 0);
    ASSERT_NE(net.LogicalNetPinArray, nullptr);
    EXPECT_EQ(net.LogicalNetPinArray->GetSize(), 0);
}

TEST(LogicalNet, HoldsItsFieldsInOrder)
{
    const Net net;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(net.Name), at(net.NetClass));
    EXPECT_LT(at(net.NetClass), at(net.LogicalNetPinArray));
}

TEST(LogicalNet, HasItsOperationsInOrder)
{
    ExpectExportIsItsOneOperation<Net>();
}

TEST(LogicalNet, ItsAccessorsReachItsFields)
{
    Net net;
    net.SetName("n");
    net.SetNetClass(4);
    EXPECT_EQ(net.Name, "n");
    EXPECT_EQ(net.GetName(), "n");
    EXPECT_EQ(net.NetClass, 4);
    EXPECT_EQ(net.GetNetClass(), 4);
    EXPECT_EQ(net.GetLogicalNetPinArray(), net.LogicalNetPinArray);
}

TEST(LogicalNet, SetLogicalNetPinArrayDropsWhatItReplaces)
{
    Net net;
    const std::unique_ptr<PinArray> former(net.LogicalNetPinArray);
    former->Add(NewPin("1", "R1"));
    auto * const pins = new PinArray;
    net.SetLogicalNetPinArray(pins);
    EXPECT_EQ(net.LogicalNetPinArray, pins);
    EXPECT_EQ(former->GetSize(), 1);
}

TEST(LogicalNet, InitTakesANewListAndLeavesTheRest)
{
    Net net;
    net.Name = "n";
    net.NetClass = 4;
    const std::unique_ptr<PinArray> former(net.LogicalNetPinArray);
    former->Add(NewPin("1", "R1"));
    net.Init();
    EXPECT_NE(net.LogicalNetPinArray, former.get());
    EXPECT_EQ(net.LogicalNetPinArray->GetSize(), 0);
    EXPECT_EQ(former->GetAt(0)->Pin, "1");
    EXPECT_EQ(net.Name, "n");
    EXPECT_EQ(net.NetClass, 4);
}

TEST(LogicalNet, ACopySharesThePins)
{
    Net source;
    source.Name = "n";
    source.NetClass = 4;
    Net copy(source);
    EXPECT_EQ(copy.Name, "n");
    EXPECT_EQ(copy.NetClass, 4);
    EXPECT_EQ(copy.LogicalNetPinArray, source.LogicalNetPinArray);
    copy.LogicalNetPinArray = nullptr;
}

TEST(LogicalNet, AnAssignmentSharesThePinsAndDropsItsOwn)
{
    Net source;
    source.Name = "n";
    source.NetClass = 4;
    Net target;
    const std::unique_ptr<PinArray> former(target.LogicalNetPinArray);
    former->Add(NewPin("1", "R1"));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.Name, "n");
    EXPECT_EQ(target.NetClass, 4);
    EXPECT_EQ(target.LogicalNetPinArray, source.LogicalNetPinArray);
    EXPECT_EQ(former->GetSize(), 1);
    target.LogicalNetPinArray = nullptr;
}

TEST(LogicalNet, DeletesItsPins)
{
    int arrays = 0;
    int pins = 0;
    {
        Net net;
        delete net.LogicalNetPinArray;
        net.LogicalNetPinArray = new Counted<PinArray>(arrays);
        net.LogicalNetPinArray->Add(new Counted<Pin>(pins));
        net.LogicalNetPinArray->Add(new Counted<Pin>(pins));
    }
    EXPECT_EQ(arrays, 1);
    EXPECT_EQ(pins, 2);
    Net without;
    delete without.LogicalNetPinArray;
    without.LogicalNetPinArray = nullptr;
}

TEST(LogicalNet, ReadsItsPins)
{
    Read read(Below(R"(
<LogicalNetPin componentRef="R1" pin="1"/>
<LogicalNetPin pin="A 2" componentRef="U1" />
</LogicalNet>
<Behind/>
)"));
    EXPECT_EQ(read.Pins(), (Texts{"R1.1", "U1.A 2"}));
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(LogicalNet, APinIsWhatItsLineSays)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<LogicalNetPin pin="1"/>)", ".1"},
        {R"(<LogicalNetPin componentRef="R1" >)", "R1."},
        {"<LogicalNetPin>", "."},
        {"<LogicalNetPin />", "."},
        {R"(<LogicalNetPin Pin="1" pin ="2" title="t" kind="pin" >)", "."},
        {R"(<LogicalNetPin spin="1" mycomponentRef="R" >)", "R.1"},
        {R"(<LogicalNetPin componentRef=pin="1" >)", ".pin=1"},
        {R"(<LogicalNetPin pin="1" pin="2" >)", ".2"},
        {R"(<xLogicalNetPin_pin="1" >)", ".1"},
        {R"(<LogicalNetPin pin="1/2" >)", ".12"},
    };
    for (const auto & [line, pin] : rows) {
        EXPECT_EQ(Read(std::string(line) + "\n</LogicalNet>\n").Pins(), Texts{std::string(pin)}) << line;
    }
}

TEST(LogicalNet, OtherLinesAreIgnored)
{
    Read read(Below(R"(

<LogicalNet name="x">
<LogicalNetPin/>
<x LogicalNetPin pin="1">
</Step>
<logicalNetPin>
<Pin number="1">
</LogicalNet>
<Behind/>
)"));
    EXPECT_EQ(read.Pins(), Texts{});
    EXPECT_EQ(read.net.Name, "");
}

TEST(LogicalNet, ALineThatIsNeitherPinNorClosingIsPassedOver)
{
    Read read(Below(R"(
<LogicalNetPin/>
<LogicalNetPin/x pin="1">
</LogicalNet>
<Behind/>
)"));
    EXPECT_EQ(read.Pins(), Texts{});
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(LogicalNet, TheClosingLineOfAPinEndsIt)
{
    Read read(Below(R"(
<LogicalNetPin pin="1" >
</LogicalNetPin>
<LogicalNetPin pin="2" >
)"));
    EXPECT_EQ(read.Pins(), Texts{".1"});
    EXPECT_EQ(read.Rest(), Texts{R"(<LogicalNetPin pin="2" >)"});
}

TEST(LogicalNet, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line :
         {"</LogicalNet>", "</LogicalNetX y>", "<x/LogicalNet>", R"(</LogicalNetPin pin="1">)", "   </LogicalNet>"}) {
        Read read(std::string(line) + "\n<LogicalNetPin>\n");
        EXPECT_EQ(read.Pins(), Texts{}) << line;
        EXPECT_EQ(read.Rest(), Texts{"<LogicalNetPin>"}) << line;
    }
}

TEST(LogicalNet, TakesThePinsOfTheNetsItRunsInto)
{
    Read read(Below(R"(
<LogicalNet name="b">
<LogicalNetPin pin="1"/>
</LogicalNet>
<Behind/>
)"));
    EXPECT_EQ(read.Pins(), Texts{".1"});
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(LogicalNet, TheEndOfTheFileEndsIt)
{
    EXPECT_EQ(Read(R"(<LogicalNetPin pin="1"/>)").Pins(), Texts{".1"});
    EXPECT_EQ(Read("").Pins(), Texts{});
}

TEST(LogicalNet, ALineOfBlanksThrows)
{
    Lines lines({"<LogicalNetPin>", "  "});
    Net net;
    EXPECT_THROW(net.LogicalNetAdd(lines.File()), CInvalidArgException);
    EXPECT_EQ(net.LogicalNetPinArray->GetSize(), 1);
}

TEST(LogicalNet, APinWithACutValueIsNotKept)
{
    Lines lines({"<LogicalNetPin>", R"(<LogicalNetPin pin="1" componentRef="open)"});
    Net net;
    EXPECT_THROW(net.LogicalNetAdd(lines.File()), CInvalidArgException);
    EXPECT_EQ(net.LogicalNetPinArray->GetSize(), 1);
}

TEST(LogicalNet, WritesItsLines)
{
    Net net;
    net.Name = "GND & co";
    net.NetClass = 7;
    net.LogicalNetPinArray->Add(NewPin("1", "R1"));
    net.LogicalNetPinArray->Add(NewPin("2", ""));
    net.LogicalNetPinArray->GetAt(0)->Title = "title";
    EXPECT_EQ(Exported(net, 0), (Export{1, Below(R"(
   <LogicalNet name="GND & co">
      <LogicalNetPin pin="1" componentRef="R1" />
      <LogicalNetPin pin="2" componentRef="" />
   </LogicalNet>
)")}));
    Net empty;
    EXPECT_EQ(Exported(empty, 1), (Export{1, Joined({R"(      <LogicalNet name="">)", "      </LogicalNet>"})}));
}

TEST(LogicalNet, StopsAtAPinThatRefuses)
{
    Net net;
    net.LogicalNetPinArray->Add(new Writing<Pin>("mark", 1));
    net.LogicalNetPinArray->Add(new Writing<Pin>("mark", 0));
    net.LogicalNetPinArray->Add(new Writing<Pin>("mark", 1));
    EXPECT_EQ(Exported(net, 0), (Export{0, Below(R"(
   <LogicalNet name="">
mark 1
mark 1
)")}));
}

TEST(LogicalNetArray, IsAnOwningArrayWithAnExport)
{
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Net *, Net *>, NetArray>));
    EXPECT_EQ(Slot(&NetArray::Export), 8u);
    EXPECT_EQ(Slot(&Behind<NetArray>::Next), 9u);
    int deleted = 0;
    {
        NetArray nets;
        nets.Add(new Counted<Net>(deleted));
    }
    EXPECT_EQ(deleted, 1);
}

TEST(LogicalNetArray, WritesAtItsOwnLevelUpToTheFirstThatRefuses)
{
    NetArray nets;
    EXPECT_EQ(Exported(nets, 3), (Export{1, ""}));
    nets.Add(new Writing<Net>("mark", 1));
    EXPECT_EQ(Exported(nets, 3), (Export{1, "mark 3\n"}));
    nets.Add(new Writing<Net>("mark", 0));
    nets.Add(new Writing<Net>("mark", 1));
    EXPECT_EQ(Exported(nets, 3), (Export{0, "mark 3\nmark 3\n"}));
}

}  // namespace
