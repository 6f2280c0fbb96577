#include "ipc2581/cad/CadData.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Component.h"
#include "ipc2581/cad/Layer.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Progress.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// What ReadCadData makes of these lines.
class Read {
public:
    explicit Read(std::string_view bytes) : m_lines(bytes) { data.ReadCadData(m_lines.File(), &bar); }

    // The layers, the step and the stackup, each by what it is called.
    Texts Contents()
    {
        Texts contents;
        for (std::int64_t i = 0; i < data.m_arrLayer.GetSize(); ++i) {
            contents.push_back("Layer " + Str(data.m_arrLayer.GetAt(i)->name));
        }
        if (!data.m_Stackup.overallThickness.IsEmpty()) {
            contents.push_back("Stackup " + Str(data.m_Stackup.overallThickness));
        }
        if (!data.m_Step.Name.IsEmpty()) {
            contents.push_back("Step " + Str(data.m_Step.Name));
        }
        return contents;
    }
    Texts Rest() { return m_lines.Rest(); }

    Bar bar;
    CIPC2581_Ecad_CadData data;

private:
    Lines m_lines;
};

TEST(CadData, IsEmptyAtFirst)
{
    const CIPC2581_Ecad_CadData data;
    EXPECT_EQ(data.m_arrLayer.GetSize(), 0);
    EXPECT_EQ(data.m_Stackup.StackupGroupArray.GetSize(), 0);
    EXPECT_EQ(data.m_Step.Name, "");
    EXPECT_EQ(data.m_pProgressCtrl, nullptr);
}

TEST(CadData, HoldsItsFieldsInOrder)
{
    const CIPC2581_Ecad_CadData data;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(data.m_arrLayer), at(data.m_Stackup));
    EXPECT_LT(at(data.m_Stackup), at(data.m_Step));
    EXPECT_LT(at(data.m_Step), at(data.m_pProgressCtrl));
}

TEST(CadData, HasItsOperationsInOrder)
{
    ExpectExportIsItsOneOperation<CIPC2581_Ecad_CadData>();
}

TEST(CadData, ReadsLayersStackupAndStep)
{
    Read read(Below(R"(
<Layer name="L1"/>
<Layer name="L2">
</Layer>
<Stackup overallThickness="1.6">
</Stackup>
<Step name="board">
</Step>
</CadData>
<Behind/>
)"));
    EXPECT_EQ(read.Contents(), (Texts{"Layer L1", "Layer L2", "Stackup 1.6", "Step board"}));
    EXPECT_EQ(read.bar.positions, (std::vector<int>{22, 22, 25, 30}));
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(CadData, GoesOnBehindItsChildren)
{
    Read read(Below(R"(
<Step name="s">
</Step>
<Stackup overallThickness="1">
</Stackup>
<Layer name="L"/>
)"));
    EXPECT_EQ(read.Contents(), (Texts{"Layer L", "Stackup 1", "Step s"}));
    EXPECT_EQ(read.bar.positions, (std::vector<int>{30, 25, 22}));
}

TEST(CadData, KeepsTheBar)
{
    Read read("</CadData>\n");
    EXPECT_EQ(read.data.m_pProgressCtrl, &read.bar);
    read.data.SetProgress(33);
    EXPECT_EQ(read.bar.positions, std::vector<int>{33});
}

TEST(CadData, KeepsTheBarOfTheLastRead)
{
    Read read("<Layer>\n");
    Lines lines({"<Layer>"});
    read.data.ReadCadData(lines.File(), nullptr);
    EXPECT_EQ(read.data.m_pProgressCtrl, nullptr);
    EXPECT_EQ(read.data.m_arrLayer.GetSize(), 2);
    EXPECT_EQ(read.bar.positions, std::vector<int>{22});
    read.data.SetProgress(33);
    EXPECT_EQ(read.bar.positions, std::vector<int>{22});
}

TEST(CadData, HandsTheBarToTheStep)
{
    Read read(Below(R"(
<Step>
<Component refDes="R1">
</Component>
</Step>
)"));
    EXPECT_EQ(read.data.m_Step.Progress, &read.bar);
    EXPECT_EQ(read.bar.positions, (std::vector<int>{30, 50}));
}

TEST(CadData, SendsPositionsBehindLayerAndStackupAndInFrontOfTheStep)
{
    Lines lines({R"(<Layer name="L"/>)", R"(<Stackup overallThickness="1">)", R"(<StackupGroup name="g">)",
                 "</StackupGroup>", "</Stackup>", R"(<Step name="s">)", "</Step>"});
    Bar bar;
    CIPC2581_Ecad_CadData data;
    bar.look = [&data] {
        return std::to_string(data.m_arrLayer.GetSize()) + Str(data.m_arrLayer.GetAt(0)->name) +
               std::to_string(data.m_Stackup.StackupGroupArray.GetSize()) + Str(data.m_Step.Name);
    };
    data.ReadCadData(lines.File(), &bar);
    EXPECT_EQ(bar.positions, (std::vector<int>{22, 25, 30}));
    EXPECT_EQ(bar.seen, (Texts{"1L0", "1L1", "1L1"}));
}

TEST(CadData, TwoStepsFillOneObject)
{
    Read read(Below(R"(
<Step name="a">
<Component refDes="R1">
</Component>
</Step>
<Step name="b">
<Component refDes="R2">
</Component>
</Step>
</CadData>
)"));
    EXPECT_EQ(read.bar.positions, (std::vector<int>{30, 50, 30, 50}));
    EXPECT_EQ(read.data.m_Step.Name, "b");
    EXPECT_EQ(read.data.m_Step.ComponentArray.GetSize(), 2);
}

TEST(CadData, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    EXPECT_EQ(Read(Joined({R"(<StackupLayer name="a" overallThickness="1">)"})).Contents(), Texts{"Layer a"});
    EXPECT_EQ(Read(Joined({R"(<StepLayer name="a">)"})).Contents(), Texts{"Layer a"});
    EXPECT_EQ(Read(Joined({R"(<StepStackup name="a" overallThickness="1">)"})).Contents(), Texts{"Stackup 1"});
}

TEST(CadData, AWordAnywhereInTheFirstTokenCounts)
{
    EXPECT_EQ(Read(Below(R"(
<LayerFeature name="a">
<xLayer name="b">
<StepRef name="c">
)"))
                  .Contents(),
              (Texts{"Layer a", "Layer b", "Step c"}));
    EXPECT_EQ(Read(Below(R"(
<x name="Layer">
<layer name="b">
<x Step name="s">
< Layer name="c">
)"))
                  .Contents(),
              Texts{});
}

TEST(CadData, ASlashInTheFirstTokenOpensNothing)
{
    Read read(Below(R"(
<Layer/>
</Layer>
</Layer name="a">
<Stackup/>
</Stackup overallThickness="1">
<Step/>
</Step name="s">
<Layer name="L"/>
)"));
    EXPECT_EQ(read.Contents(), Texts{"Layer L"});
    EXPECT_EQ(read.bar.positions, std::vector<int>{22});
}

TEST(CadData, ASelfClosingLineWithABlankOpens)
{
    Read read(Below(R"(
<Layer />
<Stackup overallThickness="1"/>
<Step name="s"/>
</Stackup>
<Step />
)"));
    EXPECT_EQ(read.Contents(), (Texts{"Layer ", "Stackup 1"}));
    EXPECT_EQ(read.bar.positions, (std::vector<int>{22, 25, 30}));
}

TEST(CadData, EndsAtItsClosingLineWhateverElseThatHolds)
{
    for (const std::string_view line : {"</CadData>", "</CadDataLayer>", "<Step/CadData x>", "</CadDataStackup>"}) {
        Read read(Joined({line, R"(<Layer name="late">)"}));
        EXPECT_EQ(read.Contents(), Texts{}) << line;
        EXPECT_EQ(read.Rest(), Texts{R"(<Layer name="late">)"}) << line;
    }
}

TEST(CadData, IgnoresOtherLines)
{
    Read read(Below(R"(

<CadData>
</Ecad>
<Component refDes="R1">
text
<Layer name="L"/>
<Span fromLayer="a"/>
)"));
    EXPECT_EQ(read.Contents(), Texts{"Layer L"});
    EXPECT_EQ(read.data.m_Step.ComponentArray.GetSize(), 0);
}

TEST(CadData, ALineOfBlanksThrows)
{
    Lines lines({R"(<Layer name="L"/>)", "   ", "<Layer/>"});
    CIPC2581_Ecad_CadData data;
    EXPECT_THROW(data.ReadCadData(lines.File(), nullptr), CInvalidArgException);
    EXPECT_EQ(data.m_arrLayer.GetSize(), 1);
}

TEST(CadData, ALayerWithACutValueIsNotKept)
{
    Lines lines({R"(<Layer name="L"/>)", R"(<Layer name="M" side="open)"});
    CIPC2581_Ecad_CadData data;
    EXPECT_THROW(data.ReadCadData(lines.File(), nullptr), CInvalidArgException);
    EXPECT_EQ(data.m_arrLayer.GetSize(), 1);
}

TEST(CadData, TheEndOfTheFileEndsItAtEveryDepth)
{
    EXPECT_EQ(Read(Joined({R"(<Layer name="L"/>)"})).Contents(), Texts{"Layer L"});
    EXPECT_EQ(Read(Joined({R"(<Stackup overallThickness="1">)", "<StackupGroup>"})).Contents(), Texts{"Stackup 1"});
    EXPECT_EQ(Read(Joined({R"(<Step name="s">)", "<Component>"})).Contents(), Texts{"Step s"});
    EXPECT_EQ(Read("").Contents(), Texts{});
}

TEST(CadData, WritesLayersAndStepButNoStackup)
{
    CIPC2581_Ecad_CadData data;
    data.m_Stackup.overallThickness = "1.6";
    data.m_Stackup.StackupGroupArray.Add(new CIPC2581_Ecad_CadData_Stackup_StackupGroup);
    for (const char * name : {"TOP", "BOTTOM"}) {
        auto * layer = new CIPC2581_Ecad_CadData_Layer;
        layer->name = name;
        data.m_arrLayer.Add(layer);
    }
    EXPECT_EQ(Exported(data, 0), (Export{1, Below(R"(
   <CadData>
      <Layer name="TOP" layerFunction="" side="" polarity="POSITIVE">
      </Layer>
      <Layer name="BOTTOM" layerFunction="" side="" polarity="POSITIVE">
      </Layer>
      <Step name="">
         <Datum x="0.000000" y="0.000000" />
         <Profile>
            <Polygon>
               <PolyBegin x="0.000000" y="0.000000" />
            </Polygon>
         </Profile>
         <PhyNetGroup name="">
         </PhyNetGroup>
      </Step>
   </CadData>
)")}));
}

TEST(CadData, WritesAtTheNextLevel)
{
    CIPC2581_Ecad_CadData data;
    const std::string text = Exported(data, 1).text;
    EXPECT_EQ(text.substr(0, text.find("Datum")), Below(R"(
      <CadData>
         <Step name="">
            <)"));
    EXPECT_EQ(text.substr(text.find("</Step>")), "</Step>\n      </CadData>\n");
}

class RefusingLayer : public CIPC2581_Ecad_CadData_Layer {
public:
    int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }
};

TEST(CadData, StopsAtALayerThatRefuses)
{
    CIPC2581_Ecad_CadData data;
    data.m_arrLayer.Add(new CIPC2581_Ecad_CadData_Layer);
    data.m_arrLayer.Add(new RefusingLayer);
    data.m_arrLayer.Add(new CIPC2581_Ecad_CadData_Layer);
    EXPECT_EQ(Exported(data, 0), (Export{0, Below(R"(
   <CadData>
      <Layer name="" layerFunction="" side="" polarity="POSITIVE">
      </Layer>
)")}));
}

TEST(CadData, StopsAtAStepThatRefuses)
{
    CIPC2581_Ecad_CadData data;
    data.m_Step.ComponentArray.Add(new Refusing<CIPC2581_Ecad_CadData_Step_Component>);
    const Export exported = Exported(data, 0);
    EXPECT_EQ(exported.result, 0);
    EXPECT_EQ(exported.text.find("</CadData>"), std::string::npos);
}

}  // namespace
