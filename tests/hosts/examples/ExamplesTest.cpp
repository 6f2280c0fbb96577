#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ipc2581/ipc2581.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

// Runs one of the programs in examples/.
Result RunExample(const std::string & name, const std::vector<std::string> & arguments)
{
    return RunProgram(arguments, {.program = IPC2581_EXAMPLES_FOLDER "/" + name});
}

// Each shows something of a board; its output is looked at, and wrong usage ends with 2.
TEST(Examples, EachPrintsWhatItShows)
{
    for (const char * const name : {"list_components", "list_nets", "list_parts", "list_shapes", "draw_outline"}) {
        const Result shown = RunExample(name, {ExampleBoard()});
        EXPECT_EQ(shown, (Result{0, Golden(std::string(name) + ".txt", shown.out), ""})) << name;
        EXPECT_EQ(RunExample(name, {}).status, 2) << name;
    }
}

TEST(Examples, UseTextsFormatsCutsAndTakesMessages)
{
    EXPECT_EQ(RunExample("use_texts", {}),
              (Result{0,
                      "[R1         2.500] has 16 bytes\nR1\n2.500\nthere is no third word\n"
                      "message: file read error!\n",
                      ""}));
}

TEST(Examples, ChangeBoardTurnsAComponentAndAddsALayer)
{
    const TempFolder folder;
    const std::string out = folder.Path("out.cvg");
    EXPECT_EQ(RunExample("change_board", {ExampleBoard(), out, "U1"}), (Result{0, "", ""}));
    CString before(ExampleBoard().c_str());
    CString after(out.c_str());
    CIPC2581_Parser old;
    CIPC2581_Parser changed;
    CIPC2581_XmlLiteReader().OpenPath(before, old);
    CIPC2581_XmlLiteReader().OpenPath(after, changed);
    const auto rotation = [](const CIPC2581_Parser & root) {
        return root.m_Ecad.m_CadData.m_Step.ComponentArray.pGetIPCComponentWithName("U1")->Xform->Rotation;
    };
    EXPECT_EQ(rotation(changed), rotation(old) + 90.0);
    EXPECT_EQ(Count(changed.m_Ecad.m_CadData.m_arrLayer), Count(old.m_Ecad.m_CadData.m_arrLayer) + 1);
    EXPECT_EQ(RunExample("change_board", {ExampleBoard(), out, "U9"}), (Result{1, "", "no component U9\n"}));
    EXPECT_EQ(RunExample("change_board", {}).status, 2);
}

TEST(Examples, WriteReportWritesBesideTheBoard)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.cvg", Bytes(ExampleBoard()));
    const std::string report = folder.Path("board.txt");
    EXPECT_EQ(RunExample("write_report", {board}), (Result{0, report + "\n", ""}));
    EXPECT_NE(Bytes(report), "");
    EXPECT_EQ(RunExample("write_report", {}).status, 2);
}

TEST(Examples, ImportBoardTellsWhatIsLost)
{
    const std::string board = IPC2581_SOURCE_FOLDER "/examples/import/first-board.xml";
    const Result shown = RunExample("import_board", {board});
    EXPECT_EQ(shown, (Result{0, Golden("import_board.txt", shown.out), ""}));
    const TempFolder folder;
    const std::string broken = folder.Save("broken.xml", "<IPC-2581>");
    const Result failed = RunExample("import_board", {broken});
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.err.starts_with(broken + ":1:")) << failed.err;
    EXPECT_EQ(RunExample("import_board", {}).status, 2);
}

TEST(Examples, DumpBoardPrintsTheModel)
{
    const Result dump = RunExample("dump_board", {ExampleBoard()});
    EXPECT_EQ(dump.status, 0);
    EXPECT_EQ(dump.err, "");
    EXPECT_TRUE(dump.out.starts_with("m_Content\n  FunctionMode = ")) << dump.out.substr(0, 200);
    CString path(ExampleBoard().c_str());
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    for (const auto * const component : Each(root.m_Ecad.m_CadData.m_Step.ComponentArray)) {
        const std::string lines = "      ComponentArray\n        RefDes = " + Str(component->RefDes) + "\n";
        EXPECT_NE(dump.out.find(lines), std::string::npos) << lines;
    }
    EXPECT_EQ(RunExample("dump_board", {}).status, 2);
}

TEST(Examples, BoardHasEveryShapeOfTheDictionary)
{
    CString path(ExampleBoard().c_str());
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    std::set<int> found;
    const auto & entries = *root.m_Content.DictionaryStandard->EntryArray;
    for (std::int64_t i = 0; i < entries.GetSize(); ++i) {
        ASSERT_EQ(entries.GetAt(i)->DrawArray->GetSize(), 1);
        found.insert(entries.GetAt(i)->DrawArray->GetAt(0)->DrawType);
    }
    std::set<int> all;
    for (int drawType = 1; drawType <= 16; ++drawType) {
        all.insert(drawType);
    }
    EXPECT_EQ(found, all);
}

TEST(Examples, BoardRefersToWhatItHas)
{
    CString path(ExampleBoard().c_str());
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    const auto & entries = *root.m_Content.DictionaryStandard->EntryArray;
    for (std::int64_t i = 0; i < step.ComponentArray.GetSize(); ++i) {
        const auto * const package = step.PackageArray.pGetIPCPackageWithName(step.ComponentArray.GetAt(i)->PackageRef);
        ASSERT_NE(package, nullptr) << i;
        for (std::int64_t pin = 0; pin < package->PinArray.GetSize(); ++pin) {
            EXPECT_NE(entries.pGetEntryStandardWithName(package->PinArray.GetAt(pin)->StandardPrimitiveRef), nullptr);
        }
    }
    for (std::int64_t i = 0; i < root.m_Bom.m_arrBomItem.GetSize(); ++i) {
        const auto & refDes = root.m_Bom.m_arrBomItem.GetAt(i)->m_arrRefDes;
        for (std::int64_t j = 0; j < refDes.GetSize(); ++j) {
            EXPECT_NE(step.ComponentArray.pGetIPCComponentWithName(refDes.GetAt(j)->name), nullptr);
        }
    }
}

}  // namespace
}  // namespace ipc2581::tests
