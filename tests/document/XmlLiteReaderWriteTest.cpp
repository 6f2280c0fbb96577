#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Component.h"
#include "ipc2581/cad/Layer.h"
#include "ipc2581/content/EntryStandard.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Progress.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

constexpr std::string_view Declaration = Below(R"(
<?xml version="1.0" encoding="UTF-8"?>
<IPC-2581 xmlns="http://webstds.ipc.org/2581" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema">
)");

constexpr std::string_view EmptyContent = Below(R"(
   <Content>
      <FunctionMode mode="" level=""/>
      <DictionaryColor>
      </DictionaryColor>
   </Content>
)");

constexpr std::string_view EmptyEcad = Below(R"(
   <Ecad name="">
      <CadHeader units="">
      </CadHeader>
      <CadData>
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
   </Ecad>
)");

std::string Concatenated(std::initializer_list<std::string_view> pieces)
{
    std::string text;
    for (const std::string_view piece : pieces) {
        text.append(piece);
    }
    return text;
}

class Document {
public:
    Document() { reader.m_pProgressCtrl = &bar; }

    int Open(std::string_view bytes)
    {
        CString path(folder.Save("read.xml", bytes));
        return reader.OpenPath(path, root);
    }
    int Write(const std::string & to)
    {
        CString path(to);
        return reader.WriteFilePath(path, root);
    }
    // The text of the written document.
    std::string Written()
    {
        EXPECT_EQ(Write(folder.Path("written.xml")), 1);
        return WrittenText(folder.Path("written.xml"));
    }

    TempFolder folder;
    Bar bar;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
};

void MakeContentFail(CIPC2581_Parser & root)
{
    auto * entry = new CIPC2581_Content_DictionaryStandard_EntryStandard;
    entry->GetDrawArray()->Add(new CIPC2581_DrawObj);
    root.m_Content.GetDictionaryStandard()->SetEntry(entry);
}

void MakeEcadFail(CIPC2581_Parser & root)
{
    root.m_Ecad.m_CadData.m_Step.ComponentArray.Add(new Refusing<CIPC2581_Ecad_CadData_Step_Component>);
}

TEST(XmlLiteReaderWrite, WritesAnEmptyRoot)
{
    Document document;
    EXPECT_EQ(document.Written(), Concatenated({Declaration, EmptyContent, EmptyEcad, "</IPC-2581>\n"}));
}

TEST(XmlLiteReaderWrite, ClosesTheFileAtTheEnd)
{
    Document document;
    document.Written();
    EXPECT_FALSE(document.reader.m_File.IsOpen());
}

TEST(XmlLiteReaderWrite, SendsTwoPositions)
{
    Document document;
    document.Written();
    EXPECT_EQ(document.bar.positions, (std::vector<int>{10, 100}));
}

TEST(XmlLiteReaderWrite, WritesTheSameWithoutABar)
{
    Document document;
    const std::string with = document.Written();
    document.reader.m_pProgressCtrl = nullptr;
    EXPECT_EQ(document.Written(), with);
    EXPECT_EQ(document.bar.positions.size(), 2u);
}

TEST(XmlLiteReaderWrite, LogsNothing)
{
    Document document;
    document.Written();
    EXPECT_EQ(document.reader.m_arrSectionLog.GetSize(), 0);
}

TEST(XmlLiteReaderWrite, EmptiesAnOlderFile)
{
    Document document;
    const std::string path = document.folder.Save("old.xml", std::string(100000, 'x'));
    EXPECT_EQ(document.Write(path), 1);
    EXPECT_EQ(WrittenText(path), Concatenated({Declaration, EmptyContent, EmptyEcad, "</IPC-2581>\n"}));
}

TEST(XmlLiteReaderWrite, AFolderThatDoesNotExistShowsAMessageAndGivesZero)
{
    const MessageBoxes boxes;
    Document document;
    EXPECT_EQ(document.Write(document.folder.Path("none/board.xml")), 0);
    EXPECT_EQ(MessageBoxes::Texts(), std::vector<std::string>{"file read error!"});
    EXPECT_EQ(document.bar.positions, std::vector<int>{});
    EXPECT_FALSE(document.reader.m_File.IsOpen());
    EXPECT_FALSE(std::filesystem::exists(document.folder.Path("none")));
}

TEST(XmlLiteReaderWrite, ASuccessShowsNoMessage)
{
    const MessageBoxes boxes;
    Document document;
    document.Written();
    EXPECT_EQ(MessageBoxes::Texts(), std::vector<std::string>{});
}

TEST(XmlLiteReaderWrite, AFullDiskThrows)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    Document document;
    EXPECT_THROW(document.Write(FullDevice), CFileException);
}

TEST(XmlLiteReaderWrite, AFullDiskThrowsWhileALargeModelIsWritten)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    Document document;
    for (int i = 0; i < 20000; ++i) {
        document.root.m_Ecad.m_CadData.m_arrLayer.Add(new CIPC2581_Ecad_CadData_Layer);
    }
    EXPECT_THROW(document.Write(FullDevice), CFileException);
}

TEST(XmlLiteReaderWrite, AFullDiskThrowsAlsoWhereAChildRefuses)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    Document document;
    MakeEcadFail(document.root);
    EXPECT_THROW(document.Write(FullDevice), CFileException);
}

TEST(XmlLiteReaderWrite, ContentThatRefusesStopsTheDocument)
{
    Document document;
    MakeContentFail(document.root);
    const std::string path = document.folder.Path("written.xml");
    EXPECT_EQ(document.Write(path), 0);
    EXPECT_EQ(document.bar.positions, std::vector<int>{});
    EXPECT_TRUE(document.reader.m_File.IsOpen());
    document.reader.m_File.Close();
    EXPECT_EQ(WrittenText(path), Concatenated({Declaration, Below(R"(
   <Content>
      <FunctionMode mode="" level=""/>
      <DictionaryStandard units="">
         <EntryStandard id="">
)")}));
}

TEST(XmlLiteReaderWrite, EcadThatRefusesStopsTheDocument)
{
    Document document;
    MakeEcadFail(document.root);
    const std::string path = document.folder.Path("written.xml");
    EXPECT_EQ(document.Write(path), 0);
    EXPECT_EQ(document.bar.positions, std::vector<int>{10});
    EXPECT_TRUE(document.reader.m_File.IsOpen());
    document.reader.m_File.Close();
    const std::string ecad(EmptyEcad);
    EXPECT_EQ(WrittenText(path),
              Concatenated({Declaration, EmptyContent, ecad.substr(0, ecad.find("            <PhyNetGroup"))}));
}

TEST(XmlLiteReaderWrite, ARefusalShowsNoMessage)
{
    const MessageBoxes boxes;
    Document document;
    MakeEcadFail(document.root);
    EXPECT_EQ(document.Write(document.folder.Path("written.xml")), 0);
    EXPECT_EQ(MessageBoxes::Texts(), std::vector<std::string>{});
}

TEST(XmlLiteReaderWrite, WhatWasWrittenBeforeARefusalIsInTheFile)
{
    const TempFolder folder;
    const std::string path = folder.Path("written.xml");
    {
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader reader;
        MakeEcadFail(root);
        CString text(path);
        EXPECT_EQ(reader.WriteFilePath(text, root), 0);
    }
    EXPECT_EQ(WrittenText(path).substr(0, Declaration.size()), Declaration);
    EXPECT_EQ(WrittenText(path).find("</Step>"), std::string::npos);
}

TEST(XmlLiteReaderWrite, WritesTheSectionsAtAnyLevel)
{
    Document document;
    const std::string path = document.folder.Path("sections.xml");
    ASSERT_NE(document.reader.m_File.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr), 0);
    EXPECT_EQ(document.reader.WriteIPC2581(document.root, 0), 1);
    EXPECT_EQ(document.reader.WriteIPC2581(document.root, 2), 1);
    EXPECT_TRUE(document.reader.m_File.IsOpen());
    document.reader.m_File.Close();
    EXPECT_EQ(document.bar.positions, (std::vector<int>{10, 100, 10, 100}));

    const std::string sections = Concatenated({EmptyContent, EmptyEcad});
    std::string deeper;
    for (std::size_t at = 0; at < sections.size(); at = sections.find('\n', at) + 1) {
        deeper += "      " + sections.substr(at, sections.find('\n', at) + 1 - at);
    }
    EXPECT_EQ(WrittenText(path), sections + deeper);
}

TEST(XmlLiteReaderWrite, ALevelBelowZeroHasNoIndent)
{
    Document document;
    const std::string path = document.folder.Path("sections.xml");
    ASSERT_NE(document.reader.m_File.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr), 0);
    EXPECT_EQ(document.reader.WriteIPC2581(document.root, -4), 1);
    document.reader.m_File.Close();
    const std::string text = WrittenText(path);
    EXPECT_EQ(text.substr(0, 45), Below(R"(
<Content>
<FunctionMode mode="" level=""/>
<D)"));
    EXPECT_NE(text.find(Joined({"", R"(<Datum x="0.000000" y="0.000000" />)"})), std::string::npos);
    EXPECT_NE(text.find("\n   <Polygon>\n"), std::string::npos);
}

TEST(XmlLiteReaderWrite, StopsAtARefusal)
{
    Document document;
    const std::string path = document.folder.Path("sections.xml");
    ASSERT_NE(document.reader.m_File.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr), 0);
    MakeEcadFail(document.root);
    EXPECT_EQ(document.reader.WriteIPC2581(document.root, 0), 0);
    EXPECT_EQ(document.bar.positions, std::vector<int>{10});
    MakeContentFail(document.root);
    EXPECT_EQ(document.reader.WriteIPC2581(document.root, 0), 0);
    EXPECT_EQ(document.bar.positions, std::vector<int>{10});
}

TEST(XmlLiteReaderWrite, EscapesNothing)
{
    Document document;
    document.root.m_Ecad.name = R"(a&b<c>"d" %s %d)";
    document.root.m_Ecad.m_CadHeader.units = "\xC3\xA9 'x'/";
    const std::string text = document.Written();
    EXPECT_NE(text.find("   <Ecad name=\"a&b<c>\"d\" %s %d\">\n      <CadHeader units=\"\xC3\xA9 'x'/\">\n"),
              std::string::npos);
}

TEST(XmlLiteReaderWrite, DoesNotChangeTheModel)
{
    Document document;
    document.Open(Below(R"(
<Ecad name="e">
<CadData>
<Layer name="L">
<Step name="s">
<LayerFeature layerRef="L">
<Set net="n">
<ColorRef id="c"/>
</Set>
</LayerFeature>
)"));
    const std::string once = document.Written();
    EXPECT_EQ(document.Written(), once);
}

constexpr std::string_view Board = R"(<Content>
   <FunctionMode mode="ASSEMBLY" level="1"/>
   <StepRef>board</StepRef>
   <DictionaryStandard units="MM">
      <EntryStandard id="C1">
         <Circle diameter="0.5"/>
      </EntryStandard>
   </DictionaryStandard>
   <DictionaryColor>
      <EntryColor id="red">
         <Color r="255" g="1" b="2"/>
      </EntryColor>
   </DictionaryColor>
</Content>
<LogisticHeader>
   <Role name="Owner"/>
   <Person name="Ann"/>
</LogisticHeader>
<HistoryRecord number="1" origination="o" toolRef="t" lastChange="l"/>
<Bom name="b">
   <BomHeader assembly="a"/>
   <BomItem quantity="1">
      <RefDes name="R1"/>
   </BomItem>
</Bom>
<Ecad name="e">
   <CadHeader units="MM">
   </CadHeader>
   <CadData>
      <Layer name="TOP" layerFunction="SIGNAL" side="TOP" polarity="NEGATIVE"/>
      <Stackup overallThickness="1.6">
         <StackupGroup name="G">
            <StackupLayer layerOrGroupRef="TOP"/>
         </StackupGroup>
      </Stackup>
      <Step name="board">
         <PadStack net="GND">
         </PadStack>
         <Datum x="1.5" y="-2"/>
         <Component refDes="R1" packageRef="P" layerRef="TOP" part="x y" mountType="SMT" standoff="0.1">
            <Xform rotation="90"/>
            <Location x="3" y="4"/>
         </Component>
         <LogicalNet name="GND">
            <LogicalNetPin componentRef="R1" pin="1"/>
         </LogicalNet>
         <PhyNetGroup name="g">
            <PhyNet name="GND">
               <PhyNetPoint x="1" y="2" layerRef="TOP" netNode="MIDDLE" exposure="EXPOSED" via="TRUE">
                  <StandardPrimitiveRef id="C1"/>
               </PhyNetPoint>
            </PhyNet>
         </PhyNetGroup>
      </Step>
   </CadData>
</Ecad>
)";

TEST(XmlLiteReaderWrite, LeavesOutTheSectionsThatAreOnlyRead)
{
    Document document;
    document.Open(Board);
    const std::string text = document.Written();
    for (const std::string_view word :
         {"Logistic", "Role", "Person", "History", "Bom", "RefDes ", "Stackup", "PadStack", "StepRef"}) {
        EXPECT_EQ(text.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(document.root.m_Bom.m_arrBomItem.GetSize(), 1);
}

TEST(XmlLiteReaderWrite, WhatIsWrittenReadsBackTheSame)
{
    Document first;
    first.Open(Board);
    const std::string written = first.Written();
    Document second;
    EXPECT_EQ(second.Open(written), 1);
    EXPECT_EQ(second.Written(), written);
    EXPECT_EQ(second.root.m_Content.FunctionMode, "ASSEMBLY");
    EXPECT_EQ(second.root.m_Ecad.m_CadData.m_Step.ComponentArray.GetAt(0)->Part, "x y");
    EXPECT_EQ(second.root.m_LogisticHeader.m_strPersonName, "");
    EXPECT_EQ(second.root.m_HistoryRecord.number, 0);
    EXPECT_EQ(second.root.m_Bom.name, "");
    EXPECT_EQ(second.root.m_Bom.m_arrBomItem.GetSize(), 0);
}

TEST(XmlLiteReaderWrite, WritesOverTheFileThatItRead)
{
    Document document;
    document.Open(Board);
    const std::string elsewhere = document.Written();
    EXPECT_EQ(document.Write(document.folder.Path("read.xml")), 1);
    EXPECT_EQ(WrittenText(document.folder.Path("read.xml")), elsewhere);
}

TEST(XmlLiteReaderWrite, WritesTheLinesOfABoard)
{
    Document document;
    document.Open(Board);
    EXPECT_EQ(document.Written(), Concatenated({Declaration, R"(   <Content>
      <FunctionMode mode="ASSEMBLY" level="1"/>
      <DictionaryStandard units="MM">
         <EntryStandard id="C1">
            <Circle diameter="0.500000" />
         </EntryStandard>
      </DictionaryStandard>
      <DictionaryColor>
         <EntryColor id="red">
            <Color r="255" g="1" b="2" />
         </EntryColor>
      </DictionaryColor>
   </Content>
   <Ecad name="e">
      <CadHeader units="MM">
      </CadHeader>
      <CadData>
         <Layer name="TOP" layerFunction="SIGNAL" side="TOP" polarity="NEGATIVE">
         </Layer>
         <Step name="board">
            <Datum x="1.500000" y="-2.000000" />
            <Profile>
               <Polygon>
                  <PolyBegin x="0.000000" y="0.000000" />
               </Polygon>
            </Profile>
            <Component refDes="R1" packageRef="P" layerRef="TOP" part="x y" mountType="SMT" standoff="0.1" height="0.0">
               <Xform rotation="90.000000"/>
               <Location x="3.000000" y="4.000000"/>
            </Component>
            <LogicalNet name="GND">
               <LogicalNetPin pin="1" componentRef="R1" />
            </LogicalNet>
            <PhyNetGroup name="g">
               <PhyNet name="GND">
                  <PhyNetPoint x="1.000000" y="2.000000" layerRef="TOP" netNode="MIDDLE" exposure="EXPOSED" via="TRUE">
                     <StandardPrimitiveRef id="C1"/>
                  </PhyNetPoint>
               </PhyNet>
            </PhyNetGroup>
         </Step>
      </CadData>
   </Ecad>
</IPC-2581>
)"}));
}

}  // namespace
