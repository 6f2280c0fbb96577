#include "ipc2581/logistics/HistoryRecord.h"

#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

struct Record {
    int number;
    std::string origination;
    std::string toolRef;
    std::string lastChange;
    bool operator==(const Record &) const = default;
};

std::ostream & operator<<(std::ostream & out, const Record & record)
{
    return out << record.number << '|' << record.origination << '|' << record.toolRef << '|' << record.lastChange;
}

Record Of(const CIPC2581_HistoryRecord & record)
{
    using ipc2581::tests::Str;
    return {record.number, Str(record.origination), Str(record.toolRef), Str(record.lastChange)};
}

CIPC2581_HistoryRecord Filled()
{
    CIPC2581_HistoryRecord record;
    record.number = 3;
    record.origination = "o";
    record.toolRef = "t";
    record.lastChange = "l";
    return record;
}

// What a line makes of a record that is filled.
Record Read(std::string_view line)
{
    CIPC2581_Parser root;
    root.m_HistoryRecord = Filled();
    CIPC2581_XmlLiteReader reader;
    Tokens tokens(line);
    reader.HistoryRecordProcess(tokens, root);
    return Of(root.m_HistoryRecord);
}

TEST(HistoryRecord, IsEmptyAtFirst)
{
    EXPECT_EQ(Of(CIPC2581_HistoryRecord()), (Record{0, "", "", ""}));
}

TEST(HistoryRecord, HoldsItsFieldsInOrder)
{
    const CIPC2581_HistoryRecord record;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(record.number), at(record.origination));
    EXPECT_LT(at(record.origination), at(record.toolRef));
    EXPECT_LT(at(record.toolRef), at(record.lastChange));
}

TEST(HistoryRecord, HasAVirtualDestructorOnlyAndNoBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_HistoryRecord>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_HistoryRecord>));
    EXPECT_EQ(Slot(&Behind<CIPC2581_HistoryRecord>::Next), 2u);
}

TEST(HistoryRecord, ACopyHasAllFourFields)
{
    CIPC2581_HistoryRecord source = Filled();
    const CIPC2581_HistoryRecord copy(source);
    source.number = 9;
    source.lastChange = "other";
    EXPECT_EQ(Of(copy), (Record{3, "o", "t", "l"}));
}

TEST(HistoryRecord, AnAssignmentCopiesAllFourFields)
{
    CIPC2581_HistoryRecord source = Filled();
    CIPC2581_HistoryRecord target;
    EXPECT_EQ(&(target = source), &target);
    source.number = 9;
    source.toolRef = "other";
    EXPECT_EQ(Of(target), (Record{3, "o", "t", "l"}));
}

TEST(HistoryRecord, ReadsFourAttributes)
{
    EXPECT_EQ(Read(R"(<HistoryRecord number="12" origination="a" toolRef="b" lastChange="c"/>)"),
              (Record{12, "a", "b", "c"}));
    EXPECT_EQ(Read(R"(<HistoryRecord lastChange="c" toolRef="b" origination="a" number="12" >)"),
              (Record{12, "a", "b", "c"}));
}

TEST(HistoryRecord, ReadsWhatTheLineSays)
{
    const std::vector<std::pair<std::string_view, Record>> rows = {
        {R"(<HistoryRecord number="2" lastChange="2020-01-02T03:04:05"/>)", {2, "o", "t", "2020-01-02T03:04:05"}},
        {R"(<HistoryRecord number="x"/>)", {0, "o", "t", "l"}},
        {R"(<HistoryRecord number="-4.7"/>)", {-4, "o", "t", "l"}},
        {R"(<HistoryRecord number=""/>)", {0, "o", "t", "l"}},
        {R"(<HistoryRecord origination="2020/01/02"/>)", {3, "20200102", "t", "l"}},
        {R"(<HistoryRecord toolRef="two words" lastChange="c"/>)", {3, "o", "two words", "c"}},
        {R"(<HistoryRecord toolRef="a" toolRef="b"/>)", {3, "o", "b", "l"}},
        {R"(<HistoryRecord Number="1" ToolRef="a" lastchange="b"/>)", {3, "o", "t", "l"}},
        {R"(<HistoryRecord number ="1" toolRef ="a"/>)", {3, "o", "t", "l"}},
        {R"(<HistoryRecord software="x" note="number"/>)", {3, "o", "t", "l"}},
        {R"(<HistoryRecord serialnumber="5"/>)", {5, "o", "t", "l"}},
        {R"(<HistoryRecord toolRef="" origination=""/>)", {3, "", "", "l"}},
        {R"(<number="8" >)", {8, "o", "t", "l"}},
        {"</HistoryRecord>", {3, "o", "t", "l"}},
        {"<HistoryRecord/>", {3, "o", "t", "l"}},
    };
    for (const auto & [line, record] : rows) {
        EXPECT_EQ(Read(line), record) << line;
    }
}

TEST(HistoryRecord, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    EXPECT_EQ(Read(R"(<HistoryRecord origination=number="1"/>)"), (Record{0, "o", "t", "l"}));
    EXPECT_EQ(Read(R"(<HistoryRecord toolRef=number="1"/>)"), (Record{0, "o", "t", "l"}));
    EXPECT_EQ(Read(R"(<HistoryRecord lastChange=number="1"/>)"), (Record{0, "o", "t", "l"}));
    EXPECT_EQ(Read(R"(<HistoryRecord toolRef=origination="1"/>)"), (Record{3, "origination=1", "t", "l"}));
    EXPECT_EQ(Read(R"(<HistoryRecord lastChange=origination="1"/>)"), (Record{3, "origination=1", "t", "l"}));
    EXPECT_EQ(Read(R"(<HistoryRecord lastChange=toolRef="1"/>)"), (Record{3, "o", "toolRef=1", "l"}));
}

TEST(HistoryRecord, AValueThatIsCutOffThrows)
{
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    Tokens tokens(R"(<HistoryRecord number="1" toolRef="open and on)");
    EXPECT_THROW(reader.HistoryRecordProcess(tokens, root), CInvalidArgException);
    EXPECT_EQ(root.m_HistoryRecord.number, 1);
}

TEST(HistoryRecord, ReadsNoLine)
{
    const ipc2581::tests::TempFolder folder;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    const std::string path = folder.Save("lines.xml", "<Next/>\n");
    ASSERT_NE(reader.m_File.Open(path.c_str(), CStdioFile::modeRead, nullptr), 0);
    Tokens tokens(R"(<HistoryRecord number="1">)");
    reader.HistoryRecordProcess(tokens, root);
    CString line;
    EXPECT_NE(reader.m_File.ReadString(line), 0);
    EXPECT_EQ(line, "<Next/>");
}

TEST(HistoryRecord, KeepsTheLastValueOfEachAttribute)
{
    const ipc2581::tests::TempFolder folder;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    CString path(folder.Save("lines.xml", Below(R"(
<HistoryRecord number="1" toolRef="a"/>
<HistoryRecord number="2" lastChange="b">
</HistoryRecord>
)")));
    EXPECT_EQ(reader.OpenPath(path, root), 1);
    EXPECT_EQ(Of(root.m_HistoryRecord), (Record{2, "", "a", "b"}));
}

}  // namespace
