#include "ipc2581/document/DataPrint.h"

#include <filesystem>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/document/Parser.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace {

namespace fs = std::filesystem;

using namespace ipc2581::tests;

const std::string Empty = " \n\nDictionaryStandard Units: \n";

// The working folder of the process while it lives.
class WorkingFolder {
public:
    explicit WorkingFolder(const fs::path & folder) : m_before(fs::current_path()) { fs::current_path(folder); }
    ~WorkingFolder() { fs::current_path(m_before); }
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder & operator=(const WorkingFolder &) = delete;

private:
    fs::path m_before;
};

// The name that the report of a design file gets.
std::string Print(const std::string & name, CIPC2581_Parser & root)
{
    CString path(name);
    CIPC2581_DataPrint().DataPrint(path, root);
    return Str(path);
}

void Append(CStringArray & list, const char * text)
{
    list.SetAtGrow(list.GetSize(), text);
}

static_assert(std::has_virtual_destructor_v<CIPC2581_DataPrint>);
static_assert(sizeof(CIPC2581_DataPrint) == sizeof(void *));

TEST(DataPrint, PutsTheReportBesideTheDesignFile)
{
    const TempFolder folder;
    CIPC2581_Parser root;
    for (const char * name : {"board.cvg", "board.cvg.bak", "board.cvg.cvg", "board.cvgx"}) {
        fs::remove(folder.Path("board.txt"));
        EXPECT_EQ(Print(folder.Path(name), root), folder.Path("board.txt")) << name;
        EXPECT_EQ(WrittenText(folder.Path("board.txt")), Empty) << name;
    }
}

TEST(DataPrint, CutsAtTheFirstEndingAlsoInAFolder)
{
    const TempFolder folder;
    CIPC2581_Parser root;
    EXPECT_EQ(Print(folder.Path("my.cvg.d/board.cvg"), root), folder.Path("my.txt"));
    EXPECT_EQ(WrittenText(folder.Path("my.txt")), Empty);
}

TEST(DataPrint, NamesTheReportByItsEndingAloneWithoutTheEndingOfADesignFile)
{
    const TempFolder folder;
    const WorkingFolder working(folder.Path(""));
    CIPC2581_Parser root;
    for (const char * name : {"board.CVG", "board.xml", "board", "board.cv", "", ".cvg", ".cvgboard"}) {
        fs::remove(".txt");
        EXPECT_EQ(Print(name, root), ".txt") << name;
        EXPECT_EQ(WrittenText(".txt"), Empty) << name;
    }
}

TEST(DataPrint, TellsModeReferencesAndUnit)
{
    const TempFolder folder;
    CIPC2581_Parser root;
    CIPC2581_Content & content = root.m_Content;
    content.FunctionMode = "SOMEMODE";
    content.FunctionModeLevel = "2";
    content.DictionaryStandard->Unit = "INCH";
    content.DictionaryUser->Unit = "MM";
    Append(content.StepRef, "board");
    Append(content.LayerRef, "TOP");
    const std::string path = Print(folder.Path("board.cvg"), root);
    EXPECT_EQ(WrittenText(path), "SOMEMODE 2\n"
                                 "\n"
                                 "SetpRef: board\n"
                                 "LayerRef: TOP\n"
                                 "DictionaryStandard Units: INCH\n");
}

TEST(DataPrint, TellsTheListsInOrderAndTheTextsAsTheyStand)
{
    const TempFolder folder;
    CIPC2581_Parser root;
    CIPC2581_Content & content = root.m_Content;
    content.FunctionMode = "%s %d";
    content.FunctionModeLevel = "1 &amp; 2";
    content.FunctionModeComment = "a comment";
    Append(content.BomRef, "b1");
    Append(content.BomRef, "");
    Append(content.StepRef, "s2");
    Append(content.StepRef, "s1");
    Append(content.LayerRef, "l1%f");
    Append(content.LayerRef, "l2");
    Append(content.SpareRef, "spare");
    const std::string path = Print(folder.Path("board.cvg"), root);
    EXPECT_EQ(WrittenText(path), "%s %d 1 &amp; 2\n"
                                 "a comment\n"
                                 "SetpRef: s2\n"
                                 "SetpRef: s1\n"
                                 "LayerRef: l1%f\n"
                                 "LayerRef: l2\n"
                                 "BomRef: b1\n"
                                 "BomRef: \n"
                                 "DictionaryStandard Units: \n");
}

TEST(DataPrint, RewritesAnEarlierReport)
{
    const TempFolder folder;
    CIPC2581_Parser root;
    folder.Save("board.txt", std::string(1000, 'x'));
    EXPECT_EQ(WrittenText(Print(folder.Path("board.cvg"), root)), Empty);
}

TEST(DataPrint, PrintsOneDocumentAfterAnother)
{
    const TempFolder folder;
    CIPC2581_DataPrint report;
    for (const char * mode : {"A", "B"}) {
        CIPC2581_Parser root;
        root.m_Content.FunctionMode = mode;
        CString path(folder.Path("board.cvg"));
        report.DataPrint(path, root);
        EXPECT_EQ(WrittenText(Str(path)), mode + Empty);
    }
    CIPC2581_DataPrint other;
    EXPECT_EQ(&(other = report), &other);
}

TEST(DataPrint, ShowsAMessageWhenTheReportCannotBeMade)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("folder.txt"));
    CIPC2581_Parser root;
    root.m_Content.FunctionMode = "A";
    Append(root.m_Content.StepRef, "board");
    for (const char * name : {"missing/board", "folder"}) {
        const MessageBoxes boxes;
        EXPECT_EQ(Print(folder.Path(name) + ".cvg", root), folder.Path(name) + ".txt");
        EXPECT_EQ(MessageBoxes::Texts(), Texts({"Print file open error!"})) << name;
    }
    EXPECT_FALSE(fs::exists(folder.Path("missing")));
    EXPECT_EQ(root.m_Content.FunctionMode, "A");
    EXPECT_EQ(root.m_Content.StepRef.GetSize(), 1);
}

TEST(DataPrint, ShowsNoMessageOtherwise)
{
    const TempFolder folder;
    CIPC2581_Parser root;
    const MessageBoxes boxes;
    Print(folder.Path("board.cvg"), root);
    EXPECT_EQ(MessageBoxes::Texts(), Texts());
}

TEST(DataPrint, ThrowsOnAFullDisk)
{
    const TempFolder folder;
    std::error_code error;
    fs::create_symlink(FullDevice, folder.Path("board.txt"), error);
    if (error || !HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CIPC2581_Parser root;
    const MessageBoxes boxes;
    CString path(folder.Path("board.cvg"));
    EXPECT_THROW(CIPC2581_DataPrint().DataPrint(path, root), CFileException);
    EXPECT_EQ(path, folder.Path("board.txt"));
    EXPECT_EQ(MessageBoxes::Texts(), Texts());

    for (int i = 0; i < 100000; ++i) {
        Append(root.m_Content.StepRef, "a name that fills every buffer");
    }
    path = folder.Path("board.cvg").c_str();
    EXPECT_THROW(CIPC2581_DataPrint().DataPrint(path, root), CFileException);
}

}  // namespace
