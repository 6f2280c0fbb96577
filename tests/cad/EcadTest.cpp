#include "ipc2581/cad/Ecad.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Component.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Progress.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// A document that is one Ecad section, read with a bar.
class Document {
public:
    Document() { reader.m_pProgressCtrl = &bar; }

    int Open(std::string_view bytes)
    {
        CString path(folder.Save("board.xml", bytes));
        return reader.OpenPath(path, root);
    }
    // How often a section of the file was begun.
    std::int64_t Sections() { return reader.m_arrSectionLog.GetSize() / 2; }

    TempFolder folder;
    Bar bar;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    CIPC2581_Ecad & ecad = root.m_Ecad;
};

std::string StepLines(const std::string & indent)
{
    std::string lines;
    for (const std::string_view line :
         {R"(<Step name="">)", R"(   <Datum x="0.000000" y="0.000000" />)", "   <Profile>", "      <Polygon>",
          R"(         <PolyBegin x="0.000000" y="0.000000" />)", "      </Polygon>", "   </Profile>",
          R"(   <PhyNetGroup name="">)", "   </PhyNetGroup>", "</Step>"}) {
        lines.append(indent).append(line).append("\n");
    }
    return lines;
}

TEST(Ecad, IsEmptyAtFirst)
{
    const CIPC2581_Ecad ecad;
    EXPECT_EQ(ecad.name, "");
    EXPECT_EQ(ecad.m_CadHeader.units, "");
    EXPECT_EQ(ecad.m_CadData.m_arrLayer.GetSize(), 0);
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(ecad.name), at(ecad.m_CadHeader));
    EXPECT_LT(at(ecad.m_CadHeader), at(ecad.m_CadData));
}

TEST(Ecad, HasItsOperationsInOrder)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CIPC2581_Ecad>);
    EXPECT_FALSE(std::is_copy_assignable_v<CIPC2581_Ecad>);
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Ecad>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Ecad>);
    EXPECT_EQ(Slot(&CIPC2581_Ecad::Export), 2u);
    EXPECT_EQ(Slot(&CIPC2581_Ecad::Export_CadHeader), 3u);
    EXPECT_EQ(Slot(&CIPC2581_Ecad::Export_CadData), 4u);
    EXPECT_EQ(Slot(&Behind<CIPC2581_Ecad>::Next), 5u);
}

TEST(Ecad, TakesItsNameFromItsLine)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<Ecad name="Design">)", "Design"},
        {R"(<Ecad name="two  words">)", "two words"},
        {R"(<Ecad filename="f" >)", "f"},
        {R"(<Ecad name="a" name="b">)", "b"},
        {R"(<Ecad name ="a">)", ""},
        {"<Ecad>", ""},
        {R"(<Ecad Name="a">)", ""},
        {R"(<Ecad_name="t" >)", "t"},
    };
    for (const auto & [line, name] : rows) {
        Document document;
        EXPECT_EQ(document.Open(std::string(line) + "\n</Ecad>\n"), 1);
        EXPECT_EQ(document.ecad.name, name) << line;
    }
}

TEST(Ecad, ALineWithoutANameKeepsTheFormer)
{
    Document document;
    document.Open(Below(R"(
<Ecad name="a">
</Ecad>
<Ecad x="1">
</Ecad>
)"));
    EXPECT_EQ(document.ecad.name, "a");
}

TEST(Ecad, ReadsTheUnits)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<CadHeader units="MILLIMETER">)", "MILLIMETER"},
        {R"(<CadHeader units="INCH"/>)", "INCH"},
        {"<CadHeader>", ""},
        {R"(<CadHeader Units="INCH">)", ""},
        {R"(<CadHeader units ="INCH">)", ""},
        {R"(<CadHeader units="a" units="b">)", "b"},
        {R"(<xCadHeaderx subunits="c" >)", "c"},
        {R"(<CadHeader_units="t" >)", "t"},
    };
    for (const auto & [line, units] : rows) {
        Document document;
        document.Open("<Ecad>\n" + std::string(line) + "\n</CadHeader>\n</Ecad>\n");
        EXPECT_EQ(document.ecad.m_CadHeader.units, units) << line;
        EXPECT_EQ(document.bar.positions, (std::vector<int>{8, 10})) << line;
    }
}

TEST(Ecad, ASlashInTheFirstTokenIsNoHeader)
{
    for (const std::string_view line : {"<CadHeader/>", R"(</CadHeader units="INCH">)", "</CadHeader>"}) {
        Document document;
        document.Open("<Ecad>\n" + std::string(line) + "\n</Ecad>\n");
        EXPECT_EQ(document.ecad.m_CadHeader.units, "") << line;
        EXPECT_EQ(document.bar.positions, std::vector<int>{8}) << line;
        EXPECT_EQ(document.Sections(), 1) << line;
    }
}

TEST(Ecad, ASecondHeaderOverwritesTheUnits)
{
    Document document;
    document.Open(Below(R"(
<Ecad>
<CadHeader units="INCH">
</CadHeader>
<CadHeader units="MICRON">
</CadHeader>
<CadHeader>
</CadHeader>
</Ecad>
)"));
    EXPECT_EQ(document.ecad.m_CadHeader.units, "MICRON");
    EXPECT_EQ(document.bar.positions, (std::vector<int>{8, 10, 10, 10}));
}

TEST(Ecad, WhatAHeaderHoldsIsDropped)
{
    Document document;
    document.Open(Below(R"(
<Ecad name="e">
<CadHeader units="INCH">
<Note name="s" units="x">
<Layer name="l"/>
</Note>
</CadHeader>
</Ecad>
)"));
    EXPECT_EQ(document.ecad.name, "e");
    EXPECT_EQ(document.ecad.m_CadHeader.units, "INCH");
    EXPECT_EQ(document.ecad.m_CadData.m_arrLayer.GetSize(), 0);
}

TEST(Ecad, ReadsTheData)
{
    Document document;
    document.Open(Below(R"(
<Ecad>
<CadData>
<Layer name="L"/>
</CadData>
</Ecad>
)"));
    EXPECT_EQ(document.ecad.m_CadData.m_arrLayer.GetSize(), 1);
    EXPECT_EQ(document.ecad.m_CadData.m_pProgressCtrl, &document.bar);
    EXPECT_EQ(document.bar.positions, (std::vector<int>{8, 20, 22}));
}

TEST(Ecad, ReadsTheDataWithoutABar)
{
    Document document;
    document.reader.m_pProgressCtrl = nullptr;
    document.Open(Below(R"(
<Ecad>
<CadHeader units="INCH">
<CadData>
<Layer name="L"/>
</CadData>
</Ecad>
)"));
    EXPECT_EQ(document.ecad.m_CadHeader.units, "INCH");
    EXPECT_EQ(document.ecad.m_CadData.m_arrLayer.GetSize(), 1);
    EXPECT_EQ(document.ecad.m_CadData.m_pProgressCtrl, nullptr);
    EXPECT_EQ(document.bar.positions, std::vector<int>{});
}

TEST(Ecad, ASlashInTheFirstTokenIsNoData)
{
    for (const std::string_view line : {"<CadData/>", "</CadData>", "</CadData >"}) {
        Document document;
        document.Open("<Ecad>\n" + std::string(line) + Below(R"(

<Layer name="L"/>
</Ecad>
)"));
        EXPECT_EQ(document.ecad.m_CadData.m_arrLayer.GetSize(), 0) << line;
        EXPECT_EQ(document.bar.positions, std::vector<int>{8}) << line;
    }
}

TEST(Ecad, Position10ComesBehindTheUnitsAnd20InFrontOfTheData)
{
    Document document;
    document.bar.look = [&ecad = document.ecad] {
        return Str(ecad.m_CadHeader.units) + (ecad.m_CadData.m_pProgressCtrl == nullptr ? "-" : "+");
    };
    document.Open(Below(R"(
<Ecad>
<CadHeader units="INCH">
</CadHeader>
<CadData>
<Layer/>
<Layer>
</CadData>
</Ecad>
)"));
    EXPECT_EQ(document.bar.positions, (std::vector<int>{8, 10, 20, 22}));
    EXPECT_EQ(document.bar.seen, (Texts{"-", "INCH-", "INCH-", "INCH+"}));
}

TEST(Ecad, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    Document document;
    document.Open(Below(R"(
<Ecad>
<CadDataCadHeader units="INCH">
<Layer name="L"/>
</Ecad>
)"));
    EXPECT_EQ(document.ecad.m_CadHeader.units, "INCH");
    EXPECT_EQ(document.bar.positions, (std::vector<int>{8, 10}));
}

TEST(Ecad, EndsAtItsClosingLineWhateverElseThatHolds)
{
    for (const std::string_view line : {"</Ecad>", "</Ecadx y>", "<x/Ecad>", "</EcadCadHeader>", "</EcadCadData x>"}) {
        Document document;
        document.Open(Joined({"<Ecad>", line, R"(<HistoryRecord number="4"/>)"}));
        EXPECT_EQ(document.root.m_HistoryRecord.number, 4) << line;
    }
}

TEST(Ecad, IgnoresOtherLines)
{
    Document document;
    document.Open(Below(R"(
<Ecad name="e">

<Ecad name="f">
<HistoryRecord number="4"/>
<x CadData CadHeader>
<cadData>
</Ecad>
)"));
    EXPECT_EQ(document.ecad.name, "e");
    EXPECT_EQ(document.root.m_HistoryRecord.number, 0);
    EXPECT_EQ(document.bar.positions, std::vector<int>{8});
}

TEST(Ecad, TheEndOfTheFileEndsIt)
{
    Document document;
    EXPECT_EQ(document.Open(Below(R"(
<Ecad name="e">
<CadHeader units="INCH">
<CadData>
<Layer name="L"/>
)")),
              1);
    EXPECT_EQ(document.ecad.name, "e");
    EXPECT_EQ(document.ecad.m_CadData.m_arrLayer.GetSize(), 1);
}

TEST(Ecad, ALineOfBlanksThrows)
{
    Document document;
    EXPECT_THROW(document.Open(Joined({R"(<Ecad name="e">)", R"(<CadHeader units="INCH">)", "  ", "</Ecad>"})),
                 CInvalidArgException);
    EXPECT_EQ(document.ecad.m_CadHeader.units, "INCH");
    Document inside;
    EXPECT_THROW(inside.Open("<Ecad>\n<CadData>\n<Layer>\n  \n</CadData>\n</Ecad>\n"), CInvalidArgException);
    EXPECT_EQ(inside.ecad.m_CadData.m_arrLayer.GetSize(), 1);
}

TEST(Ecad, ACutValueThrows)
{
    Document document;
    EXPECT_THROW(document.Open(Joined({R"(<Ecad name="open)", "</Ecad>"})), CInvalidArgException);
    EXPECT_THROW(document.Open(Below(R"(
<Ecad>
<CadHeader units="open
</Ecad>
)")),
                 CInvalidArgException);
}

TEST(Ecad, ReadCadHeaderTakesTheUnits)
{
    CIPC2581_Ecad ecad;
    Tokens tokens(R"(<CadHeader units="INCH">)");
    ecad.ReadCadHeader(tokens);
    EXPECT_EQ(ecad.m_CadHeader.units, "INCH");
    Tokens other(R"(<CadHeader x="1">)");
    ecad.ReadCadHeader(other);
    EXPECT_EQ(ecad.m_CadHeader.units, "INCH");
}

TEST(Ecad, WritesItsLines)
{
    CIPC2581_Ecad ecad;
    ecad.name = "Design & <x>";
    ecad.m_CadHeader.units = "INCH";
    EXPECT_EQ(Exported(ecad, 0), (Export{1, Below(R"(
   <Ecad name="Design & <x>">
      <CadHeader units="INCH">
      </CadHeader>
      <CadData>
)") + StepLines("         ") +
                                                "      </CadData>\n"
                                                "   </Ecad>\n"}));
}

TEST(Ecad, WritesItsLinesWhereEverythingIsEmpty)
{
    CIPC2581_Ecad ecad;
    EXPECT_EQ(Exported(ecad, 1), (Export{1, Below(R"(
      <Ecad name="">
         <CadHeader units="">
         </CadHeader>
         <CadData>
)") + StepLines("            ") +
                                                "         </CadData>\n"
                                                "      </Ecad>\n"}));
}

TEST(Ecad, WritesItsHeaderAlone)
{
    CIPC2581_Ecad ecad;
    ecad.m_CadHeader.units = "INCH";
    const TempFolder folder;
    CStdioFile file;
    file.Open(folder.Path("x").c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr);
    EXPECT_EQ(ecad.Export_CadHeader(file, 0), 1);
    EXPECT_EQ(ecad.Export_CadHeader(file, 2), 1);
    file.Close();
    EXPECT_EQ(ipc2581::tests::WrittenText(folder.Path("x")), Below(R"(
   <CadHeader units="INCH">
   </CadHeader>
         <CadHeader units="INCH">
         </CadHeader>
)"));
}

TEST(Ecad, WritesItsDataAtTheGivenLevel)
{
    CIPC2581_Ecad ecad;
    const TempFolder folder;
    CStdioFile file;
    file.Open(folder.Path("x").c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr);
    EXPECT_EQ(ecad.Export_CadData(file, 0), 1);
    file.Close();
    EXPECT_EQ(ipc2581::tests::WrittenText(folder.Path("x")),
              "   <CadData>\n" + StepLines("      ") + "   </CadData>\n");
}

// A host's section that says what it was asked for.
class HostEcad : public CIPC2581_Ecad {
public:
    int Export_CadHeader(CStdioFile & file, int level) override
    {
        file.WriteString(("header " + std::to_string(level) + "\n").c_str());
        return header;
    }
    int Export_CadData(CStdioFile & file, int level) override
    {
        file.WriteString(("data " + std::to_string(level) + "\n").c_str());
        return data;
    }

    int header = 1;
    int data = 1;
};

TEST(Ecad, WritesItsPartsThroughTheirVirtualOperations)
{
    HostEcad ecad;
    EXPECT_EQ(Exported(ecad, 3), (Export{1, Below(R"(
            <Ecad name="">
header 4
data 4
            </Ecad>
)")}));
}

TEST(Ecad, StopsAtAPartThatRefuses)
{
    HostEcad ecad;
    ecad.data = 0;
    EXPECT_EQ(Exported(ecad, 0), (Export{0, Below(R"(
   <Ecad name="">
header 1
data 1
)")}));
    ecad.header = 0;
    EXPECT_EQ(Exported(ecad, 0), (Export{0, Joined({R"(   <Ecad name="">)", "header 1"})}));
}

TEST(Ecad, StopsAtDataThatRefuses)
{
    CIPC2581_Ecad ecad;
    ecad.m_CadData.m_Step.ComponentArray.Add(new Refusing<CIPC2581_Ecad_CadData_Step_Component>);
    const Export exported = Exported(ecad, 0);
    EXPECT_EQ(exported.result, 0);
    EXPECT_EQ(exported.text.find("</Step>"), std::string::npos);
    EXPECT_EQ(exported.text.find("</Ecad>"), std::string::npos);
}

}  // namespace
