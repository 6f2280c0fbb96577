#include <set>
#include <string>

#include <gtest/gtest.h>

#include <ipc2581/ipc2581.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

TEST(Examples, ListComponentsListsTheComponents)
{
    const Result list = RunProgram({ExampleBoard()}, {.program = IPC2581_LIST_COMPONENTS_PROGRAM});
    EXPECT_EQ(list, (Result{0, Golden("list_components.txt", list.out), ""}));
    EXPECT_EQ(RunProgram({}, {.program = IPC2581_LIST_COMPONENTS_PROGRAM}).status, 2);
}

TEST(Examples, DumpBoardPrintsTheModel)
{
    const Result dump = RunProgram({ExampleBoard()}, {.program = IPC2581_DUMP_BOARD_PROGRAM});
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
    EXPECT_EQ(RunProgram({}, {.program = IPC2581_DUMP_BOARD_PROGRAM}).status, 2);
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
