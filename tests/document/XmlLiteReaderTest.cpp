#include "ipc2581/document/XmlLiteReader.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CProgressCtrl.h"
#include "ipc2581/document/Parser.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Progress.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

Texts TextsOf(const CStringArray & list)
{
    Texts texts;
    for (std::int64_t i = 0; i < list.GetSize(); ++i) {
        texts.push_back(Str(list[i]));
    }
    return texts;
}

// A root, a reader with a bar, and the files that they read.
class Document {
public:
    Document() { reader.m_pProgressCtrl = &bar; }

    int Open(std::string_view bytes)
    {
        CString path(folder.Save("board.xml", bytes));
        return reader.OpenPath(path, root);
    }
    // The section log without its brackets and line ends.
    Texts Log()
    {
        Texts log;
        for (const std::string & line : TextsOf(reader.m_arrSectionLog)) {
            EXPECT_EQ(line.front(), '[');
            EXPECT_EQ(line.back(), '\n');
            std::string name = line.substr(1, line.size() - 2);
            log.push_back(name.erase(name.find(']'), 1));
        }
        return log;
    }

    TempFolder folder;
    Bar bar;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
};

constexpr std::string_view Board = R"(<?xml version="1.0" encoding="UTF-8"?>
<IPC-2581 revision="B" xmlns="http://webstds.ipc.org/2581">
   <Content roleRef="Owner">
      <FunctionMode mode="ASSEMBLY" level="1"/>
   </Content>
   <LogisticHeader>
      <Role id="Owner" roleFunction="SENDER"/>
      <Person name="Ann Lee" enterpriseRef="E1" roleRef="Owner"/>
   </LogisticHeader>
   <HistoryRecord number="2" origination="today" software="x" lastChange="now"/>
   <Bom name="Rev A">
      <BomItem quantity="1" internalPartNumber="P">
      </BomItem>
   </Bom>
   <Ecad name="Design">
      <CadHeader units="MILLIMETER">
      </CadHeader>
      <CadData>
         <Layer name="TOP" layerFunction="SIGNAL" side="TOP" polarity="POSITIVE"/>
         <Layer name="BOTTOM" layerFunction="SIGNAL" side="BOTTOM" polarity="POSITIVE"/>
         <Stackup overallThickness="1.6">
         </Stackup>
         <Step name="board">
         </Step>
      </CadData>
   </Ecad>
</IPC-2581>
)";

TEST(Parser, HoldsItsSectionsInOrder)
{
    const CIPC2581_Parser root;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(root.m_Content), at(root.m_LogisticHeader));
    EXPECT_LT(at(root.m_LogisticHeader), at(root.m_HistoryRecord));
    EXPECT_LT(at(root.m_HistoryRecord), at(root.m_Bom));
    EXPECT_LT(at(root.m_Bom), at(root.m_Ecad));
}

TEST(Parser, HasAVirtualDestructorAndNoBase)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CIPC2581_Parser>);
    EXPECT_FALSE(std::is_copy_assignable_v<CIPC2581_Parser>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Parser>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Parser>));
    EXPECT_EQ(Slot(&Behind<CIPC2581_Parser>::Next), 2u);
}

TEST(Parser, IsEmptyAtFirst)
{
    const CIPC2581_Parser root;
    EXPECT_EQ(root.m_LogisticHeader.m_strRoleName, "");
    EXPECT_EQ(root.m_HistoryRecord.number, 0);
    EXPECT_EQ(root.m_Bom.m_arrBomItem.GetSize(), 0);
    EXPECT_EQ(root.m_Ecad.name, "");
    EXPECT_EQ(root.m_Ecad.m_CadData.m_arrLayer.GetSize(), 0);
}

TEST(XmlLiteReader, DerivesFromTheTokeniser)
{
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_XmlLiteReader>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_XmlLiteReader>);
    EXPECT_EQ(Slot(&Behind<CIPC2581_XmlLiteReader>::Next), 2u);
}

TEST(XmlLiteReader, HoldsItsMembersInOrder)
{
    const CIPC2581_XmlLiteReader reader;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(reader.m_File), at(reader.m_arrMessage));
    EXPECT_LT(at(reader.m_arrMessage), at(reader.m_pProgressCtrl));
    EXPECT_LT(at(reader.m_pProgressCtrl), at(reader.m_arrSectionLog));
}

TEST(XmlLiteReader, BeginsClosedAndWithoutABar)
{
    const CIPC2581_XmlLiteReader reader;
    EXPECT_FALSE(reader.m_File.IsOpen());
    EXPECT_EQ(reader.m_pProgressCtrl, nullptr);
    EXPECT_EQ(reader.m_arrMessage.GetSize(), 0);
    EXPECT_EQ(reader.m_arrSectionLog.GetSize(), 0);
}

TEST(XmlLiteReader, ReadsEverySection)
{
    Document document;
    EXPECT_EQ(document.Open(Board), 1);
    EXPECT_EQ(document.root.m_Content.FunctionMode, "ASSEMBLY");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strPersonName, "Ann Lee");
    EXPECT_EQ(document.root.m_HistoryRecord.number, 2);
    EXPECT_EQ(document.root.m_Bom.name, "Rev A");
    EXPECT_EQ(document.root.m_Bom.m_arrBomItem.GetSize(), 1);
    EXPECT_EQ(document.root.m_Ecad.name, "Design");
    EXPECT_EQ(document.root.m_Ecad.m_CadHeader.units, "MILLIMETER");
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_arrLayer.GetSize(), 2);
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_Stackup.overallThickness, "1.6");
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_Step.Name, "board");
}

TEST(XmlLiteReader, LogsEverySection)
{
    Document document;
    document.Open(Board);
    EXPECT_EQ(TextsOf(document.reader.m_arrSectionLog),
              (Texts{"[Content]_Start\n", "[Content]_End\n", "[LogisticHeader]_Start\n", "[LogisticHeader]_End\n",
                     "[HistoryRecord]_Start\n", "[HistoryRecord]_End\n", "[Bom]_Start\n", "[Bom]_End\n",
                     "[Ecad]_Start\n", "[Ecad]_End\n"}));
}

TEST(XmlLiteReader, SendsAPositionForEverySection)
{
    Document document;
    document.Open(Board);
    EXPECT_EQ(document.bar.positions, (std::vector<int>{1, 2, 4, 8, 10, 20, 22, 22, 25, 30, 100}));
    EXPECT_EQ(document.bar.GetPos(), 100);
}

TEST(XmlLiteReader, NothingFillsItsMessageList)
{
    Document document;
    document.Open(Board);
    CString path(document.folder.Path("written.xml"));
    document.reader.WriteFilePath(path, document.root);
    EXPECT_EQ(document.reader.m_arrMessage.GetSize(), 0);
}

TEST(XmlLiteReader, ReadsTheSameWithoutABar)
{
    Document document;
    document.reader.m_pProgressCtrl = nullptr;
    EXPECT_EQ(document.Open(Board), 1);
    EXPECT_EQ(document.bar.positions, std::vector<int>{});
    EXPECT_EQ(document.Log().size(), 10u);
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_arrLayer.GetSize(), 2);
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_Step.Name, "board");
}

TEST(XmlLiteReader, SendsPositionsBetweenTheLogsOfTheSection)
{
    Document document;
    document.bar.look = [&document] {
        const Texts log = document.Log();
        return log.empty() ? "" : log.back();
    };
    document.Open("<LogisticHeader>\n</LogisticHeader>\n<HistoryRecord/>\n<Bom>\n</Bom>\n<Ecad>\n</Ecad>\n"
                  "</IPC-2581>\n");
    EXPECT_EQ(document.bar.positions, (std::vector<int>{1, 2, 4, 8, 100}));
    EXPECT_EQ(document.bar.seen,
              (Texts{"LogisticHeader_Start", "HistoryRecord_Start", "Bom_Start", "Ecad_Start", "Ecad_End"}));
}

TEST(XmlLiteReader, SendsPositionsBehindTheSectionAndForEcadInFrontOfIt)
{
    Document document;
    document.bar.look = [&root = document.root] {
        return Str(root.m_LogisticHeader.m_strRoleName + CString("|") + root.m_HistoryRecord.toolRef + CString("|") +
                   root.m_Bom.assembly + CString("|") + root.m_Ecad.name);
    };
    document.Open(Below(R"(
<LogisticHeader>
<Role name="r"/>
</LogisticHeader>
<HistoryRecord toolRef="t"/>
<Bom>
<BomHeader assembly="a"/>
</Bom>
<Ecad name="e">
</Ecad>
</IPC-2581>
)"));
    EXPECT_EQ(document.bar.seen, (Texts{"r|||", "r|t||", "r|t|a|", "r|t|a|", "r|t|a|e"}));
}

TEST(XmlLiteReader, AnEmptyFileGivesNothing)
{
    Document document;
    EXPECT_EQ(document.Open(""), 1);
    EXPECT_EQ(document.Log(), Texts{});
    EXPECT_EQ(document.bar.positions, std::vector<int>{});
    EXPECT_EQ(document.root.m_Content.FunctionMode, "");
    EXPECT_EQ(document.root.m_Ecad.name, "");
}

TEST(XmlLiteReader, TheClosingRootTagAloneGivesPosition100)
{
    Document document;
    EXPECT_EQ(document.Open("</IPC-2581>\n"), 1);
    EXPECT_EQ(document.bar.positions, std::vector<int>{100});
    EXPECT_EQ(document.Log(), Texts{});
}

TEST(XmlLiteReader, TheClosingRootTagDoesNotStopTheRead)
{
    Document document;
    EXPECT_EQ(document.Open(Below(R"(
</IPC-2581>
<Bom name="late">
</Bom>
</IPC-2581>
)")),
              1);
    EXPECT_EQ(document.root.m_Bom.name, "late");
    EXPECT_EQ(document.bar.positions, (std::vector<int>{100, 4, 100}));
}

TEST(XmlLiteReader, NoClosingRootTagNoPosition100)
{
    Document document;
    EXPECT_EQ(document.Open("<IPC-2581>\n<Bom>\n</Bom>\n"), 1);
    EXPECT_EQ(document.bar.positions, std::vector<int>{4});
}

TEST(XmlLiteReader, TheRootTagIsNeverLookedFor)
{
    Document document;
    EXPECT_EQ(document.Open(Joined({R"(<Bom name="b">)", "</Bom>"})), 1);
    EXPECT_EQ(document.root.m_Bom.name, "b");
}

TEST(XmlLiteReader, TheOrderOfTheSectionsIsFree)
{
    Document document;
    EXPECT_EQ(document.Open(Below(R"(
<Ecad name="e">
</Ecad>
<Content>
<FunctionMode mode="m" level="1"/>
</Content>
<LogisticHeader>
</LogisticHeader>
)")),
              1);
    EXPECT_EQ(document.Log(), (Texts{"Ecad_Start", "Ecad_End", "Content_Start", "Content_End", "LogisticHeader_Start",
                                     "LogisticHeader_End"}));
    EXPECT_EQ(document.bar.positions, (std::vector<int>{8, 1}));
    EXPECT_EQ(document.root.m_Content.FunctionMode, "m");
}

TEST(XmlLiteReader, ASecondBomAddsToTheFirst)
{
    Document document;
    document.Open(Below(R"(
<Bom name="one">
<BomItem>
</BomItem>
</Bom>
<Bom name="two">
<BomItem>
</BomItem>
</Bom>
)"));
    EXPECT_EQ(document.root.m_Bom.name, "two");
    EXPECT_EQ(document.root.m_Bom.m_arrBomItem.GetSize(), 2);
    EXPECT_EQ(document.bar.positions, (std::vector<int>{4, 4}));
}

TEST(XmlLiteReader, AnEmptyLineBetweenSectionsIsHarmless)
{
    Document document;
    EXPECT_EQ(document.Open(Below(R"(

<Bom>
</Bom>

<Ecad name="e">
</Ecad>

)")),
              1);
    EXPECT_EQ(document.Log(), (Texts{"Bom_Start", "Bom_End", "Ecad_Start", "Ecad_End"}));
}

TEST(XmlLiteReader, ALineOfBlanksBetweenSectionsThrows)
{
    Document document;
    EXPECT_THROW(document.Open(Joined({R"(<Bom name="b">)", "</Bom>", "   ", R"(<Ecad name="e">)", "</Ecad>"})),
                 CInvalidArgException);
    EXPECT_EQ(document.root.m_Bom.name, "b");
    EXPECT_EQ(document.root.m_Ecad.name, "");
    EXPECT_EQ(document.Log(), (Texts{"Bom_Start", "Bom_End"}));
}

TEST(XmlLiteReader, AnExceptionLeavesTheLogInAStartAndTheFileOpen)
{
    const std::vector<std::pair<std::string_view, std::string>> rows = {
        {"<Content>\n \n", "Content_Start"},
        {"<Content>\n\n", "Content_Start"},
        {"<LogisticHeader>\n \n", "LogisticHeader_Start"},
        {Below(R"(
<LogisticHeader>
<Role name="open
)"),
         "LogisticHeader_Start"},
        {"<HistoryRecord number=\"1\n", "HistoryRecord_Start"},
        {"<Bom name=\"open\n", "Bom_Start"},
        {"<Bom>\n \n", "Bom_Start"},
        {"<Ecad>\n \n", "Ecad_Start"},
        {"<Ecad>\n<CadData>\n<Step>\n<Component>\n \n", "Ecad_Start"},
    };
    for (const auto & [bytes, start] : rows) {
        Document document;
        EXPECT_THROW(document.Open(bytes), CInvalidArgException) << bytes;
        EXPECT_EQ(document.Log(), Texts{start}) << bytes;
        EXPECT_TRUE(document.reader.m_File.IsOpen()) << bytes;
    }
}

TEST(XmlLiteReader, AnExceptionShowsNoMessage)
{
    const MessageBoxes boxes;
    Document document;
    EXPECT_THROW(document.Open("   \n"), CInvalidArgException);
    EXPECT_EQ(MessageBoxes::Texts(), Texts{});
}

TEST(XmlLiteReader, TheEndOfTheFileInsideASectionIsNoError)
{
    const MessageBoxes boxes;
    const std::vector<std::pair<std::string_view, std::string>> rows = {
        {Below(R"(
<Content>
<DictionaryStandard units="MM">
<EntryStandard id="a">
)"),
         "Content"},
        {"<LogisticHeader>\n<Role id=\"a\">", "LogisticHeader"},
        {Below(R"(
<Bom>
<BomItem>
<RefDes name="a">
)"),
         "Bom"},
        {"<Ecad>\n<CadData>\n<Step>\n<LayerFeature>\n<Set>\n<Features>\n<Line>\n", "Ecad"},
    };
    for (const auto & [bytes, section] : rows) {
        Document document;
        EXPECT_EQ(document.Open(bytes), 1) << bytes;
        EXPECT_EQ(document.Log(), (Texts{section + "_Start", section + "_End"})) << bytes;
    }
    EXPECT_EQ(MessageBoxes::Texts(), Texts{});
}

TEST(XmlLiteReader, AWordAnywhereInTheFirstTokenOpensItsSection)
{
    const std::vector<std::pair<std::string_view, std::string>> rows = {
        {"Content", "Content"},
        {"LogisticHeader", "LogisticHeader"},
        {"HistoryRecord", "HistoryRecord"},
        {"Bom", "Bom"},
        {"Ecad", "Ecad"},
    };
    for (const auto & [word, section] : rows) {
        for (const std::string & line :
             {"<" + std::string(word) + ">", "</" + std::string(word) + ">", "<x" + std::string(word) + "X>",
              "<x" + std::string(word) + R"(X a="1"/>)", "<!--" + std::string(word) + "-->", std::string(word),
              "  " + std::string(word) + "/  "}) {
            Document document;
            EXPECT_EQ(document.Open(line), 1) << line;
            EXPECT_EQ(document.Log(), (Texts{section + "_Start", section + "_End"})) << line;
        }
    }
}

TEST(XmlLiteReader, OtherLinesAreIgnored)
{
    for (const std::string_view line :
         {"<content>", "<CONTENT>", "<Logisticheader>", "<History>", "<bom>", "<ECAD>", R"(<x name="Bom">)", "< Ecad>",
          "<!-- Content -->", "<IPC-2581>", "<x></IPC-2582>", "text", "<x Bom Ecad Content>", "<?xml?>"}) {
        Document document;
        EXPECT_EQ(document.Open(line), 1) << line;
        EXPECT_EQ(document.Log(), Texts{}) << line;
        EXPECT_EQ(document.bar.positions, std::vector<int>{}) << line;
    }
}

TEST(XmlLiteReader, TheClosingRootTagIsFoundAnywhereInTheFirstToken)
{
    for (const std::string_view line : {"</IPC-2581>", "</IPC-2581X>", R"(<x/IPC-2581 a="b">)", "   </IPC-2581>"}) {
        Document document;
        document.Open(line);
        EXPECT_EQ(document.bar.positions, std::vector<int>{100}) << line;
    }
}

TEST(XmlLiteReader, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"Content", "LogisticHeader", "HistoryRecord", "Bom", "Ecad", "/IPC-2581"};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            Document document;
            document.Open("<" + words[later] + words[earlier] + ">");
            EXPECT_EQ(document.Log(), (Texts{words[earlier] + "_Start", words[earlier] + "_End"})) << words[later];
        }
    }
}

TEST(XmlLiteReader, ALongerWordOpensAndRunsToTheClosingLine)
{
    Document document;
    document.Open(Below(R"(
<ContentX>
<FunctionMode mode="m" level="1"/>
</X>
<Bom name="b">
</Content>
)"));
    EXPECT_EQ(document.Log(), (Texts{"Content_Start", "Content_End"}));
    EXPECT_EQ(document.root.m_Content.FunctionMode, "m");
    EXPECT_EQ(document.root.m_Bom.name, "");
}

TEST(XmlLiteReader, APairedHistoryRecordIsMetTwice)
{
    Document document;
    document.Open(Below(R"(
<HistoryRecord number="7" lastChange="c">
<FileRevision fileRevisionId="1">
</FileRevision>
</HistoryRecord>
)"));
    EXPECT_EQ(document.Log(),
              (Texts{"HistoryRecord_Start", "HistoryRecord_End", "HistoryRecord_Start", "HistoryRecord_End"}));
    EXPECT_EQ(document.bar.positions, (std::vector<int>{2, 2}));
    EXPECT_EQ(document.root.m_HistoryRecord.number, 7);
    EXPECT_EQ(document.root.m_HistoryRecord.lastChange, "c");
}

TEST(XmlLiteReader, LinesInsideAHistoryRecordAreTestedAtTopLevel)
{
    Document document;
    document.Open(Below(R"(
<HistoryRecord number="7">
<Unknown number="9">
<Bom name="inside">
</Bom>
</HistoryRecord>
)"));
    EXPECT_EQ(document.root.m_HistoryRecord.number, 7);
    EXPECT_EQ(document.root.m_Bom.name, "inside");
}

TEST(XmlLiteReader, AnAttributeOfASecondElementOnTheLineCountsForTheFirst)
{
    Document document;
    document.Open(Joined({R"(<HistoryRecord number="1"/><Other toolRef="t"/>)"}));
    EXPECT_EQ(document.root.m_HistoryRecord.number, 1);
    EXPECT_EQ(document.root.m_HistoryRecord.toolRef, "t");
    EXPECT_EQ(document.Log(), (Texts{"HistoryRecord_Start", "HistoryRecord_End"}));
}

TEST(XmlLiteReader, ASecondSectionOnTheLineIsNotSeen)
{
    Document document;
    document.Open(Joined({R"(<HistoryRecord number="1" /><Bom name="b">)"}));
    EXPECT_EQ(document.Log(), (Texts{"HistoryRecord_Start", "HistoryRecord_End"}));
    EXPECT_EQ(document.root.m_Bom.name, "");
}

TEST(XmlLiteReader, AClosingTagOnTheLineOfItsOpeningIsNotSeen)
{
    Document document;
    document.Open(Below(R"(
<Bom name="b"></Bom>
<Ecad name="e">
</Ecad>
</Bom>
<Ecad name="f">
</Ecad>
)"));
    EXPECT_EQ(document.root.m_Bom.name, "bBom");
    EXPECT_EQ(document.root.m_Ecad.name, "f");
    EXPECT_EQ(document.Log(), (Texts{"Bom_Start", "Bom_End", "Ecad_Start", "Ecad_End"}));
}

TEST(XmlLiteReader, AnElementOverSeveralLinesIsReadAsFarAsItsFirst)
{
    Document document;
    document.Open(Below(R"(
<HistoryRecord number="3"
   toolRef="t"
   lastChange="c"/>
)"));
    EXPECT_EQ(document.root.m_HistoryRecord.number, 3);
    EXPECT_EQ(document.root.m_HistoryRecord.toolRef, "");
    EXPECT_EQ(document.root.m_HistoryRecord.lastChange, "");
}

TEST(XmlLiteReader, ASelfClosingSectionLeavesItsScanRunning)
{
    Document document;
    document.Open(Below(R"(
<LogisticHeader/>
<Bom name="b">
</Bom>
<Role name="r"/>
</LogisticHeader>
)"));
    EXPECT_EQ(document.Log(), (Texts{"LogisticHeader_Start", "LogisticHeader_End"}));
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
    EXPECT_EQ(document.root.m_Bom.name, "");
}

TEST(XmlLiteReader, DecodesNothing)
{
    Document document;
    document.Open("<Bom name=\"a&amp;b 'c' \xC3\xA9\">\n</Bom>\n");
    EXPECT_EQ(document.root.m_Bom.name, "a&amp;b 'c' \xC3\xA9");
}

TEST(XmlLiteReader, NestsByItsReadersAlone)
{
    Document document;
    document.Open(Below(R"(
<Bom name="outer">
<Bom name="inner">
</Bom>
</Bom>
)"));
    EXPECT_EQ(document.root.m_Bom.name, "outer");
    EXPECT_EQ(document.Log(), (Texts{"Bom_Start", "Bom_End", "Bom_Start", "Bom_End"}));
}

TEST(XmlLiteReader, AFileThatIsNotThereShowsAMessageAndGivesOne)
{
    const MessageBoxes boxes;
    Document document;
    CString path(document.folder.Path("none.xml"));
    EXPECT_EQ(document.reader.OpenPath(path, document.root), 1);
    EXPECT_EQ(MessageBoxes::Texts(), Texts{"file read error!"});
    EXPECT_EQ(document.Log(), Texts{});
    EXPECT_EQ(document.bar.positions, std::vector<int>{});
    EXPECT_FALSE(document.reader.m_File.IsOpen());
}

TEST(XmlLiteReader, AFileThatCannotBeWrittenIsNotRead)
{
    const std::string program = ipc2581::tests::RunningProgram();
    if (ipc2581::tests::MayBeWritten(program)) {
        GTEST_SKIP() << "this system lets a running program be written";
    }
    const MessageBoxes boxes;
    Document document;
    CString path(program);
    EXPECT_EQ(document.reader.OpenPath(path, document.root), 1);
    EXPECT_EQ(MessageBoxes::Texts(), Texts{"file read error!"});
    EXPECT_FALSE(document.reader.m_File.IsOpen());
}

unsigned g_type = 9;
unsigned g_help = 9;

int KeepArguments(const char * /*text*/, unsigned type, unsigned help)
{
    g_type = type;
    g_help = help;
    return 0;
}

TEST(XmlLiteReader, TheMessageHasOneButtonAndNoHelp)
{
    const AfxMessageBoxHandler before = AfxSetMessageBoxHandler(&KeepArguments);
    Document document;
    CString path(document.folder.Path("none.xml"));
    document.reader.OpenPath(path, document.root);
    AfxSetMessageBoxHandler(before);
    EXPECT_EQ(g_type, 0u);
    EXPECT_EQ(g_help, 0u);
}

TEST(XmlLiteReader, TheFileStaysOpen)
{
    Document document;
    document.Open(Board);
    EXPECT_TRUE(document.reader.m_File.IsOpen());
}

TEST(XmlLiteReader, DoesNotChangeTheFile)
{
    Document document;
    document.Open(Board);
    EXPECT_EQ(ipc2581::tests::Bytes(document.folder.Path("board.xml")), Board);
}

TEST(XmlLiteReader, DoesNotChangeThePath)
{
    Document document;
    const std::string name = document.folder.Save("board.xml", Board);
    CString path(name);
    document.reader.OpenPath(path, document.root);
    EXPECT_EQ(path, name);
}

TEST(XmlLiteReader, ASecondReadAddsToTheRootAndTheLog)
{
    Document document;
    document.Open(Board);
    EXPECT_EQ(document.Open(Below(R"(
<HistoryRecord toolRef="t"/>
<Ecad name="Other">
<CadData>
<Layer name="X"/>
</CadData>
</Ecad>
)")),
              1);
    EXPECT_EQ(document.root.m_HistoryRecord.number, 2);
    EXPECT_EQ(document.root.m_HistoryRecord.toolRef, "t");
    EXPECT_EQ(document.root.m_Ecad.name, "Other");
    EXPECT_EQ(document.root.m_Ecad.m_CadHeader.units, "MILLIMETER");
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_arrLayer.GetSize(), 3);
    EXPECT_EQ(document.Log().size(), 14u);
}

TEST(XmlLiteReader, AReaderServesSeveralRoots)
{
    Document document;
    document.Open(Board);
    CIPC2581_Parser other;
    CString path(document.folder.Save("other.xml", Joined({R"(<Bom name="other">)", "</Bom>"})));
    EXPECT_EQ(document.reader.OpenPath(path, other), 1);
    EXPECT_EQ(other.m_Bom.name, "other");
    EXPECT_EQ(document.root.m_Bom.name, "Rev A");
}

TEST(XmlLiteReader, ARootOutlivesItsReader)
{
    CIPC2581_Parser root;
    const TempFolder folder;
    {
        CIPC2581_XmlLiteReader reader;
        CString path(folder.Save("board.xml", Board));
        reader.OpenPath(path, root);
    }
    EXPECT_EQ(root.m_Ecad.m_CadData.m_arrLayer.GetAt(1)->name, "BOTTOM");
}

TEST(XmlLiteReader, ReadsCarriageReturnsAsLineEnds)
{
    Document document;
    EXPECT_EQ(document.Open("<Bom name=\"b\">\r\n\r\n</Bom>\r\n<Ecad name=\"e\">\r\n</Ecad>\r\n"), 1);
    EXPECT_EQ(document.root.m_Bom.name, "b");
    EXPECT_EQ(document.root.m_Ecad.name, "e");
    EXPECT_EQ(document.Log().size(), 4u);
}

TEST(XmlLiteReader, SetProgressSendsThePosition)
{
    Document document;
    document.reader.SetProgress(42);
    document.reader.SetProgress(7);
    EXPECT_EQ(document.bar.positions, (std::vector<int>{42, 7}));
    document.reader.m_pProgressCtrl = nullptr;
    document.reader.SetProgress(50);
    EXPECT_EQ(document.bar.GetPos(), 7);
}

TEST(XmlLiteReader, ItsSectionReadersMayBeCalledAlone)
{
    Document document;
    document.Open("");
    const std::string path = document.folder.Save("sections.xml", Below(R"(
<Role name="r"/>
</LogisticHeader>
<BomHeader assembly="a"/>
</Bom>
<CadHeader units="MM">
</Ecad>
<FunctionMode mode="m" level="2"/>
</Content>
<Left/>
)"));
    ASSERT_NE(document.reader.m_File.Open(path.c_str(), CStdioFile::modeRead, nullptr), 0);
    Tokens history(R"(<HistoryRecord number="5"/>)");
    Tokens bom(R"(<Bom name="b">)");
    Tokens ecad(R"(<Ecad name="e">)");
    document.reader.LogisticHeaderProcess(document.root);
    document.reader.HistoryRecordProcess(history, document.root);
    document.reader.BomProcess(bom, document.root);
    document.reader.EcadProcess(ecad, document.root);
    document.reader.ContentProcess(document.root);
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
    EXPECT_EQ(document.root.m_HistoryRecord.number, 5);
    EXPECT_EQ(document.root.m_Bom.name, "b");
    EXPECT_EQ(document.root.m_Bom.assembly, "a");
    EXPECT_EQ(document.root.m_Ecad.name, "e");
    EXPECT_EQ(document.root.m_Ecad.m_CadHeader.units, "MM");
    EXPECT_EQ(document.root.m_Content.FunctionModeLevel, "2");
    CString left;
    EXPECT_NE(document.reader.m_File.ReadString(left), 0);
    EXPECT_EQ(left, "<Left/>");
    EXPECT_EQ(document.Log(), Texts{});
    EXPECT_EQ(document.bar.positions, std::vector<int>{10});
}

}  // namespace
