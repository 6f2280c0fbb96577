#include "ipc2581/base/ReadObserver.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/LineFile.h"
#include "ipc2581/fields.h"
#include "tests/document/ModelText.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"
#include "tests/support/Sanitizers.h"

namespace {

using ipc2581::AttributeInfo;
using ipc2581::ClassInfo;
using ipc2581::DescribeClasses;
using ipc2581::Reading;
using ipc2581::ReadObserver;
using ipc2581::ReadStop;
using ipc2581::tests::Bytes;
using ipc2581::tests::HasSanitizer;
using ipc2581::tests::ModelText;
using ipc2581::tests::Str;
using ipc2581::tests::TempFolder;
using ipc2581::tests::Tokens;
using ipc2581::tests::WholeBoard;
using ipc2581::tests::WholeBoardBytes;
using ipc2581::tests::WrittenText;

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

std::string StopName(ReadStop stop)
{
    switch (stop) {
    case ReadStop::BlankLine:
        return "blank line";
    case ReadStop::EmptyLine:
        return "empty line";
    case ReadStop::OpenValue:
        return "open value";
    }
    return "";
}

// Notes each call, passes over stops if it is told to, and throws from the call that begins as it is told.
class Recorder : public ReadObserver {
public:
    void LoopBegins() override
    {
        Note("begin");
        ++openLoops;
    }
    void LoopEnds() override
    {
        calls.emplace_back("end");
        --openLoops;
    }
    void LineTaken(std::string_view line) override { Note("line " + std::string(line)); }
    void TestHit(std::string_view word) override { Note("hit " + std::string(word)); }
    void LineSkipped(std::string_view word) override { Note("skip " + std::string(word)); }
    void AttributeTaken(std::string_view word, Reading reading, std::string_view token) override
    {
        readings.emplace_back(word, reading);
        Note("take " + std::string(word) + " of " + std::string(token));
    }
    bool PassOver(ReadStop stop) override
    {
        Note("stop " + StopName(stop));
        return passesOver;
    }

    Texts calls;
    std::vector<std::pair<std::string, Reading>> readings;
    int openLoops = 0;
    bool passesOver = false;
    std::string throwsAt = "nothing";

private:
    void Note(const std::string & call)
    {
        if (call.starts_with(throwsAt)) {
            throw std::runtime_error(call);
        }
        calls.push_back(call);
    }
};

// A root and a reader with an observer.
class Document {
public:
    Document() { reader.SetObserver(&observer); }

    int Read(std::string_view bytes)
    {
        CString path(m_folder.Save("board.xml", bytes));
        return reader.OpenPath(path, root);
    }

    Recorder observer;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;

private:
    TempFolder m_folder;
};

// The calls for the bytes.
Texts CallsFor(std::string_view bytes)
{
    Document document;
    EXPECT_EQ(document.Read(bytes), 1);
    EXPECT_EQ(document.observer.openLoops, 0);
    return document.observer.calls;
}

Texts CallsThatBegin(const Texts & calls, std::string_view with)
{
    Texts found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [with](const std::string & call) { return call.starts_with(with); });
    return found;
}

TEST(ReadObserver, DoesNothingByItself)
{
    ReadObserver observer;
    observer.LoopBegins();
    observer.LineTaken("<A>");
    observer.TestHit("A");
    observer.LineSkipped("A");
    observer.AttributeTaken("name=", Reading::Text, "name=\"a\"");
    observer.LoopEnds();
    for (const ReadStop stop : {ReadStop::BlankLine, ReadStop::EmptyLine, ReadStop::OpenValue}) {
        EXPECT_FALSE(observer.PassOver(stop));
    }
}

TEST(ReadObserver, IsToldOfNothingButTheLoopOfAnEmptyFile)
{
    EXPECT_EQ(CallsFor(""), (Texts{"begin", "end"}));
}

TEST(ReadObserver, IsToldOfLoopsLinesTestsAndAttributesInOrder)
{
    EXPECT_EQ(CallsFor("<?xml version=\"1.0\"?>\r\n"
                       "<IPC-2581 revision=\"B\">\n"
                       "   <LogisticHeader>\n"
                       "      <Role id=\"r\" name=\"Owner\"/>\n"
                       "\n"
                       "      <Enterprise name=\"E\"/>\n"
                       "   </LogisticHeader>\n"
                       "   <Ecad name=\"Design\" >\n"
                       "      <CadHeader units=\"two words\"/>\n"
                       "      <CadData>\n"
                       "         <Layer side=\"TOP\" name=\"A\" name=\"B\"/>\n"
                       "         <Step/>\n"
                       "      </CadData>\n"
                       "   </Ecad>\n"
                       "</IPC-2581>"),
              (Texts{"begin",
                     "line <?xml version=\"1.0\"?>",
                     "line <IPC-2581 revision=\"B\">",
                     "line    <LogisticHeader>",
                     "hit LogisticHeader",
                     "begin",
                     "line       <Role id=\"r\" name=\"Owner\"/>",
                     "hit Role",
                     "take name of name=\"Owner\"/",
                     "line ",
                     "line       <Enterprise name=\"E\"/>",
                     "line    </LogisticHeader>",
                     "hit /LogisticHeader",
                     "end",
                     "line    <Ecad name=\"Design\" >",
                     "hit Ecad",
                     "take name= of name=\"Design\"",
                     "begin",
                     "line       <CadHeader units=\"two words\"/>",
                     "hit CadHeader",
                     "take units= of units=\"two",
                     "line       <CadData>",
                     "hit CadData",
                     "begin",
                     "line          <Layer side=\"TOP\" name=\"A\" name=\"B\"/>",
                     "hit Layer",
                     "take side= of side=\"TOP\"",
                     "take name= of name=\"A\"",
                     "take name= of name=\"B\"/",
                     "line          <Step/>",
                     "line       </CadData>",
                     "hit /CadData",
                     "end",
                     "line    </Ecad>",
                     "hit /Ecad",
                     "end",
                     "line </IPC-2581>",
                     "hit /IPC-2581",
                     "end"}));
}

TEST(ReadObserver, IsToldThatALoopEndsWithTheFile)
{
    EXPECT_EQ(CallsFor("<Bom name=\"b\">\n<BomItem quantity=\"1\">\n"),
              (Texts{"begin", "line <Bom name=\"b\">", "hit Bom", "take name= of name=\"b\"", "begin",
                     "line <BomItem quantity=\"1\">", "hit BomItem", "take quantity of quantity=\"1\"", "begin", "end",
                     "end", "end"}));
}

TEST(ReadObserver, IsToldOfTheLinesThatAreSkipped)
{
    Texts calls =
        CallsFor("<Ecad >\n<CadData >\n<Step >\n<LayerFeature layerRef=\"L\">\n<Xform rotation=\"1\"/>\n"
                 "<Set >\n<Xform rotation=\"1\"/>\n<Features >\n<Xform rotation=\"1\"/>\n<Location x=\"1\"/>\n"
                 "</Features>\n</Set>\n</LayerFeature>\n");
    EXPECT_EQ(CallsThatBegin(calls, "skip"), (Texts{"skip Xform", "skip Xform", "skip Xform"}));
    EXPECT_EQ(CallsThatBegin(calls, "take"), (Texts{"take layerRef= of layerRef=\"L\"", "take x= of x=\"1\"/"}));
    EXPECT_EQ(CallsThatBegin(calls, "hit"),
              (Texts{"hit Ecad", "hit CadData", "hit Step", "hit LayerFeature", "hit Set", "hit Features",
                     "hit Location", "hit /Features", "hit /Set", "hit /LayerFeature"}));
}

// The value of the last x runs on over the y behind it.
TEST(ReadObserver, IsToldOfATokenThatBothTablesOfAHoleTake)
{
    const Texts calls = CallsFor("<Ecad >\n<CadData >\n<Step >\n<PadStack net=\"N\">\n"
                                 "<LayerHole name=\"x=3 end\" diameter=\"y=1\" x=\"1\" plusTol=\"a x=2\" y=\"2\"/>\n");
    EXPECT_EQ(CallsThatBegin(calls, "take"),
              (Texts{"take net= of net=\"N\"", "take name= of name=\"x=3", "take diameter= of diameter=\"y=1\"",
                     "take y= of diameter=\"y=1\"", "take x= of x=\"1\"", "take plusTol= of plusTol=\"a",
                     "take x= of x=2\""}));
}

// The element that a line opens.
std::string_view TagOf(std::string_view line)
{
    line.remove_prefix(1);
    return line.substr(0, line.find_first_of(" />"));
}

// The words of the tables for the element that tokens of the line hold.
std::set<std::string> WordsIn(const std::vector<ClassInfo> & classes, const std::string & line)
{
    std::set<std::string> words;
    for (const ClassInfo & info : classes) {
        for (const AttributeInfo & attribute : info.attributes) {
            const std::string word = std::string(attribute.word) + (attribute.IsWide() ? "=" : "");
            if (attribute.element == TagOf(line) && line.find(" " + word) != std::string::npos) {
                words.emplace(attribute.word);
            }
        }
    }
    return words;
}

// Also where the tokens are handed on as a list: in Content, in the headers and for the primitives.
TEST(ReadObserver, IsToldOfEachAttributeOfAWholeBoard)
{
    Document document;
    document.Read(WholeBoardBytes());
    const std::vector<ClassInfo> classes = DescribeClasses();
    std::string line = "<none>";
    std::set<std::string> words;
    int attributes = 0;
    document.observer.calls.emplace_back("line <none>");
    for (const std::string & call : document.observer.calls) {
        if (call.starts_with("take ")) {
            const std::string word = call.substr(5, call.find(" of ") - 5);
            EXPECT_TRUE(words.insert(word).second) << line << " " << word;
            ++attributes;
        }
        if (call.starts_with("line ")) {
            EXPECT_EQ(words, WordsIn(classes, line)) << line;
            line = call.substr(5);
            words.clear();
        }
    }
    EXPECT_GT(attributes, 200);
    const auto lines = CallsThatBegin(document.observer.calls, "line");
    EXPECT_EQ(lines.size(), WholeBoard.size() + 1);
}

TEST(ReadObserver, IsToldOfTheReadingOfTheTable)
{
    Document document;
    document.Read(WholeBoardBytes());
    std::set<std::pair<std::string, Reading>> known;
    for (const ClassInfo & info : DescribeClasses()) {
        for (const AttributeInfo & attribute : info.attributes) {
            known.emplace(attribute.word, attribute.reading);
        }
    }
    std::set<Reading> told;
    for (const auto & row : document.observer.readings) {
        EXPECT_TRUE(known.contains(row)) << row.first;
        told.insert(row.second);
    }
    EXPECT_EQ(told.size(), 9U);
}

TEST(ReadObserver, SeesPrimitivesAndContentAsTheyStand)
{
    const Texts calls = CallsFor("<Content roleRef=\"Owner\">\n"
                                 "x <FunctionMode mode=\"ASSEMBLY\" level=\"1\"/>\n"
                                 "<StepRef>board</StepRef>\n"
                                 "<DictionaryStandard units=\"MM\">\n"
                                 "   <EntryStandard id=\"S 1\">\n"
                                 "<Donut shape=\"ROUND\" outerDiameter=\"2\"/>\n"
                                 "</EntryStandard>\n"
                                 "</DictionaryStandard>\n"
                                 "</Content>\n");
    EXPECT_EQ(calls, (Texts{"begin",
                            "line <Content roleRef=\"Owner\">",
                            "hit Content",
                            "begin",
                            "line x <FunctionMode mode=\"ASSEMBLY\" level=\"1\"/>",
                            "hit FunctionMode",
                            "take mode of mode=\"ASSEMBLY\"",
                            "take level of level=\"1\"/",
                            "line <StepRef>board</StepRef>",
                            "hit StepRef",
                            "line <DictionaryStandard units=\"MM\">",
                            "hit DictionaryStandard",
                            "take units of units=\"MM\"",
                            "begin",
                            "line    <EntryStandard id=\"S 1\">",
                            "hit EntryStandard",
                            "take id of id=\"S",
                            "begin",
                            "line <Donut shape=\"ROUND\" outerDiameter=\"2\"/>",
                            "hit Donut",
                            "take shape of shape=\"ROUND\"",
                            "take outerDiameter of outerDiameter=\"2\"/",
                            "line </EntryStandard>",
                            "hit /EntryStandard",
                            "end",
                            "line </DictionaryStandard>",
                            "hit /DictionaryStandard",
                            "end",
                            "line </Content>",
                            "hit /Content",
                            "end",
                            "end"}));
}

constexpr std::string_view OpenComponents = "<Ecad name=\"e\">\n<CadData >\n<Step name=\"s\">\n"
                                            "<Component refDes=\"R1\" height=\"2\" part=\"open packageRef=x\n"
                                            "<Location x=\"1\" y=\"2\"/>\n</Component>\n"
                                            "<Component refDes=\"R2\" part=\"p\">\n</Component>\n"
                                            "</Step>\n</CadData>\n</Ecad>\n";

TEST(ReadObserver, LetsAReadPassOverAValueThatItsLineDoesNotClose)
{
    Document document;
    document.observer.passesOver = true;
    EXPECT_EQ(document.Read(OpenComponents), 1);
    EXPECT_EQ(CallsThatBegin(document.observer.calls, "stop"), Texts{"stop open value"});
    EXPECT_EQ(document.observer.openLoops, 0);
    const auto & components = document.root.m_Ecad.m_CadData.m_Step.ComponentArray;
    ASSERT_EQ(components.GetSize(), 2);
    EXPECT_EQ(components.GetAt(0)->RefDes, "R1");
    EXPECT_EQ(components.GetAt(0)->Height, 2);
    EXPECT_EQ(components.GetAt(0)->Part, "");
    EXPECT_EQ(components.GetAt(0)->PackageRef, "");
    EXPECT_EQ(components.GetAt(0)->Location.X, 1);
    EXPECT_EQ(components.GetAt(1)->RefDes, "R2");
    EXPECT_EQ(components.GetAt(1)->Part, "p");
}

// The value of the second table, one in a list that is handed on, and one that no table takes.
TEST(ReadObserver, LetsAReadPassOverOpenValuesWhereverTheyStand)
{
    Document document;
    document.observer.passesOver = true;
    EXPECT_EQ(document.Read("<Content >\n<FunctionMode mode=\"ASSEMBLY\" level=\"1\n<DictionaryUser units=\"M\n"
                            "</DictionaryUser>\n<DictionaryStandard units=\"MM\">\n<EntryStandard id=\"S\">\n"
                            "<Circle diameter=\"1\n<Oval width=\"1\" height=\"2\"/>\n</EntryStandard>\n"
                            "</DictionaryStandard>\n</Content>\n"
                            "<Ecad name=\"e\">\n<CadData >\n<Step name=\"s\">\n<PadStack net=\"N\">\n"
                            "<LayerHole name=\"h\" x=\"1\n</LayerHole>\n</PadStack>\n<Datum x=\"5\"/>\n</Step>\n"),
              1);
    EXPECT_EQ(CallsThatBegin(document.observer.calls, "stop"), Texts(4, "stop open value"));
    EXPECT_EQ(document.root.m_Content.FunctionMode, "ASSEMBLY");
    EXPECT_EQ(document.root.m_Content.FunctionModeLevel, "");
    EXPECT_EQ(document.root.m_Content.DictionaryUser->Unit, "");
    const auto & entries = *document.root.m_Content.DictionaryStandard->EntryArray;
    ASSERT_EQ(entries.GetSize(), 1);
    EXPECT_EQ(entries.GetAt(0)->DrawArray->GetSize(), 2);
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_Step.PadStackArray.GetSize(), 1);
    EXPECT_EQ(document.root.m_Ecad.m_CadData.m_Step.Datum.X, 5);
}

TEST(ReadObserver, LetsAReadPassOverBlankAndEmptyLines)
{
    Document document;
    document.observer.passesOver = true;
    EXPECT_EQ(document.Read("   \n\n<Content >\n\n  \n<FunctionMode mode=\"ASSEMBLY\"/>\n</Content>\n"
                            "<Ecad name=\"e\">\n \n<CadHeader units=\"MM\"/>\n</Ecad>\n"),
              1);
    EXPECT_EQ(CallsThatBegin(document.observer.calls, "stop"),
              (Texts{"stop blank line", "stop empty line", "stop blank line", "stop blank line"}));
    EXPECT_EQ(CallsThatBegin(document.observer.calls, "line").size(), 11U);
    EXPECT_EQ(document.root.m_Content.FunctionMode, "ASSEMBLY");
    EXPECT_EQ(document.root.m_Ecad.m_CadHeader.units, "MM");
    EXPECT_EQ(document.observer.openLoops, 0);
}

// Where a line of blanks or an empty one is harmless, nothing is about to stop.
TEST(ReadObserver, IsNotAskedAboutHarmlessLines)
{
    const Texts calls =
        CallsFor("\n<Content >\n<DictionaryStandard units=\"MM\">\n   \n\n<EntryStandard id=\"S\">\n   \n\n"
                 "</EntryStandard>\n</DictionaryStandard>\n<DictionaryUser units=\"MM\">\n  \n\n"
                 "</DictionaryUser>\n</Content>\n<LogisticHeader>\n\n</LogisticHeader>\n");
    EXPECT_EQ(CallsThatBegin(calls, "stop"), Texts{});
}

TEST(ReadObserver, LeavesEachStopThatItDoesNotPassOver)
{
    const std::vector<std::pair<std::string_view, std::string>> stops = {
        {OpenComponents, "stop open value"},
        {"<Ecad name=\"e\">\n<CadData >\n   \n</CadData>\n", "stop blank line"},
        {"<Content >\n<DictionaryColor units=\"MM\">\n<EntryColor id=\"c\">\n   \n", "stop blank line"},
        {"<Content >\n\n</Content>\n", "stop empty line"},
        {"<Content >\n<FunctionMode mode=\"A\" level=\"1\n", "stop open value"},
        {"<Content >\n<DictionaryUser units=\"M\n", "stop open value"},
    };
    for (const auto & [bytes, stop] : stops) {
        Document document;
        EXPECT_THROW(document.Read(bytes), CInvalidArgException) << bytes;
        EXPECT_EQ(CallsThatBegin(document.observer.calls, "stop"), Texts{stop}) << bytes;
        EXPECT_EQ(document.observer.openLoops, 0) << bytes;
        EXPECT_EQ(document.observer.calls.back(), "end") << bytes;

        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader reader;
        const TempFolder folder;
        CString path(folder.Save("board.xml", bytes));
        EXPECT_THROW(reader.OpenPath(path, root), CInvalidArgException) << bytes;
    }
}

TEST(ReadObserver, EndsAReadByAnExceptionOfItsOwn)
{
    for (const char * call : {"begin", "line", "hit", "hit Component", "take", "take part=", "stop"}) {
        Document document;
        document.observer.passesOver = true;
        document.observer.throwsAt = call;
        EXPECT_THROW(document.Read(OpenComponents), std::runtime_error) << call;
        EXPECT_EQ(document.observer.openLoops, 0) << call;

        document.observer.throwsAt = "nothing";
        EXPECT_EQ(document.Read(OpenComponents), 1) << call;
        EXPECT_EQ(document.observer.openLoops, 0) << call;
        EXPECT_GE(document.root.m_Ecad.m_CadData.m_Step.ComponentArray.GetSize(), 2) << call;
    }
    Document document;
    document.observer.throwsAt = "skip";
    EXPECT_THROW(document.Read("<Ecad >\n<CadData >\n<Step >\n<LayerFeature >\n<Xform >\n"), std::runtime_error);
    EXPECT_EQ(document.observer.openLoops, 0);
}

TEST(ReadObserver, LooksOnAtItsOwnReaderAlone)
{
    Document observed;
    Document other;
    other.reader.SetObserver(nullptr);
    EXPECT_EQ(other.Read(WholeBoardBytes()), 1);
    EXPECT_TRUE(observed.observer.calls.empty());
    EXPECT_TRUE(other.observer.calls.empty());
    EXPECT_EQ(observed.Read("<A >\n"), 1);
    EXPECT_EQ(observed.observer.calls, (Texts{"begin", "line <A >", "end"}));
    EXPECT_TRUE(other.observer.calls.empty());
}

TEST(ReadObserver, LooksOnUntilItIsTakenAway)
{
    Document document;
    document.Read("<A >\n");
    document.Read("<B >\n");
    EXPECT_EQ(document.observer.calls, (Texts{"begin", "line <A >", "end", "begin", "line <B >", "end"}));
    document.reader.SetObserver(nullptr);
    document.Read("<C >\n");
    EXPECT_EQ(document.observer.calls.size(), 6U);
    EXPECT_THROW(document.Read("   \n"), CInvalidArgException);
    EXPECT_EQ(document.observer.calls.size(), 6U);
    Recorder second;
    document.reader.SetObserver(&second);
    document.Read("<D >\n");
    EXPECT_EQ(document.observer.calls.size(), 6U);
    EXPECT_EQ(second.calls, (Texts{"begin", "line <D >", "end"}));
}

// A host's file that hands out lines of its own.
class HostFile : public CStdioFile {
public:
    explicit HostFile(Texts lines) : m_lines(std::move(lines)) {}
    int ReadString(CString & line) override
    {
        line = m_next == m_lines.size() ? std::string_view() : std::string_view(m_lines[m_next]);
        return m_next++ < m_lines.size() ? 1 : 0;
    }

private:
    Texts m_lines;
    std::size_t m_next = 0;
};

TEST(ReadObserver, LooksOnAtAFileClassOfAHost)
{
    Recorder observer;
    observer.passesOver = true;
    HostFile file({"<CadHeader units=\"MM\">", "<Layer name=\"TOP\" side=\"T\"/>", "   ",
                   "<Stackup overallThickness=\"1\" tolPlus=\"2", "</Stackup>", "</CadData>", "<Layer name=\"X\"/>"});
    file.Lines().SetObserver(&observer);
    CIPC2581_Ecad_CadData data;
    data.ReadCadData(file, nullptr);
    EXPECT_EQ(observer.calls, (Texts{"begin",
                                     "line <CadHeader units=\"MM\">",
                                     "line <Layer name=\"TOP\" side=\"T\"/>",
                                     "hit Layer",
                                     "take name= of name=\"TOP\"",
                                     "take side= of side=\"T\"/",
                                     "line    ",
                                     "stop blank line",
                                     "line <Stackup overallThickness=\"1\" tolPlus=\"2",
                                     "hit Stackup",
                                     "take overallThickness= of overallThickness=\"1\"",
                                     "take tolPlus= of tolPlus=\"2",
                                     "stop open value",
                                     "begin",
                                     "line </Stackup>",
                                     "hit /Stackup",
                                     "end",
                                     "line </CadData>",
                                     "hit /CadData",
                                     "end"}));
    ASSERT_EQ(data.m_arrLayer.GetSize(), 1);
    EXPECT_EQ(data.m_Stackup.overallThickness, "1");
}

// A list of tokens that a host has made knows no reader, so nobody is told of it.
TEST(ReadObserver, IsNotToldOfATokenListOfAHost)
{
    Recorder observer;
    HostFile file({"<RefDes name=\"R1\"/>", "</BomItem>"});
    file.Lines().SetObserver(&observer);
    CIPC2581_Bom bom;
    Tokens tokens("<BomItem quantity=\"1\">");
    bom.ReadBomItem(tokens, file);
    EXPECT_EQ(observer.calls, (Texts{"begin", "line <RefDes name=\"R1\"/>", "hit RefDes", "take name= of name=\"R1\"/",
                                     "line </BomItem>", "hit /BomItem", "end"}));
    EXPECT_EQ(bom.m_arrBomItem.GetAt(0)->quantity, "1");
}

// All that comes of a read.
struct Outcome {
    std::string end;
    std::string model;
    std::string written;
    std::string report;
    bool operator==(const Outcome &) const = default;
};

Outcome OutcomeOf(const std::string & board, ReadObserver * observer)
{
    const TempFolder folder;
    Outcome outcome;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    reader.SetObserver(observer);
    CString path(board);
    try {
        outcome.end = std::to_string(reader.OpenPath(path, root));
    }
    catch (const CInvalidArgException &) {
        outcome.end = "stopped";
    }
    outcome.model = ModelText(root);
    CString written(folder.Path("written.cvg"));
    outcome.end += std::to_string(CIPC2581_XmlLiteReader().WriteFilePath(written, root));
    outcome.written = WrittenText(folder.Path("written.cvg"));
    CIPC2581_DataPrint().DataPrint(written, root);
    outcome.report = WrittenText(Str(written));
    return outcome;
}

void ExpectTheSame(const std::string & board)
{
    ReadObserver silent;
    const Outcome expected = OutcomeOf(board, nullptr);
    const Outcome outcome = OutcomeOf(board, &silent);
    EXPECT_EQ(outcome.end, expected.end) << board;
    EXPECT_TRUE(outcome == expected) << board;
}

TEST(ReadObserver, ChangesNothingOfTheExampleBoard)
{
    const TempFolder folder;
    ExpectTheSame(folder.Save("board.xml", Bytes(IPC2581_SOURCE_FOLDER "/examples/board.cvg")));
    ExpectTheSame(folder.Save("whole.xml", WholeBoardBytes()));
}

TEST(ReadObserver, ChangesNothingOfRealBoards)
{
    const fs::path boards = fs::path(IPC2581_SOURCE_FOLDER) / ".." / "shared" / "boards";
    if (!fs::is_directory(boards)) {
        GTEST_SKIP() << "no folder " << boards;
    }
    if (std::system("zstd --version > /dev/null 2>&1") != 0) {
        GTEST_SKIP() << "no zstd to unpack the boards with";
    }
    constexpr std::uintmax_t largeBoard = 200000;
    const TempFolder folder;
    for (const fs::directory_entry & entry : fs::directory_iterator(boards)) {
        if (entry.path().extension() != ".zst" || (HasSanitizer && entry.file_size() > largeBoard)) {
            continue;
        }
        const std::string path = folder.Path(entry.path().stem().string());
        ASSERT_EQ(std::system(("zstd -q -d '" + entry.path().string() + "' -o '" + path + "'").c_str()), 0);
        ASSERT_NO_FATAL_FAILURE(ExpectTheSame(path));
        fs::remove(path);
    }
}

// Lines of a whole board in their order, with some left out, doubled, moved or broken.
std::string MadeBoard(std::mt19937 & random)
{
    const auto below = [&random](std::size_t bound) { return static_cast<std::size_t>(random() % bound); };
    constexpr std::string_view pieces[] = {" ", "\"", "=", "/", "<", ">", "", "  ", "x=", "\t"};
    std::string bytes;
    for (const ipc2581::tests::BoardLine & line : WholeBoard) {
        if (below(40) == 0) {
            continue;
        }
        std::string text(below(8) == 0 ? WholeBoard[below(WholeBoard.size())].text : line.text);
        if (below(12) == 0) {
            text.insert(below(text.size() + 1), pieces[below(std::size(pieces))]);
        }
        if (below(60) == 0) {
            text.erase(below(text.size()), 1 + below(6));
        }
        bytes.append(below(3) * 3, ' ').append(text).append(below(9) == 0 ? "\r\n" : "\n");
        if (below(300) == 0) {
            bytes.append("\n");
        }
    }
    return bytes;
}

TEST(ReadObserver, ChangesNothingOfMadeBoards)
{
    std::mt19937 random(2581);
    const TempFolder folder;
    int stopped = 0;
    constexpr int Count = 300;
    for (int i = 0; i < Count; ++i) {
        const std::string bytes = MadeBoard(random);
        const std::string path = folder.Save("board.xml", bytes);
        ReadObserver silent;
        const Outcome expected = OutcomeOf(path, nullptr);
        ASSERT_TRUE(OutcomeOf(path, &silent) == expected) << bytes;
        stopped += expected.end.starts_with("stopped") ? 1 : 0;
    }
    EXPECT_GT(stopped, Count / 20);
    EXPECT_LT(stopped, Count - Count / 20);
}

}  // namespace
