#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"
#include "tests/support/memory/FailingMemory.h"

namespace {

using namespace ipc2581::tests;

class NoMemory : public testing::Test {
protected:
    TempFolder folder;
    CString path{folder.Save("board.cvg", WholeBoardBytes())};
};

TEST_F(NoMemory, LetsAReadFail)
{
    FailEachAllocation([this] {
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader().OpenPath(path, root);
    });
    CIPC2581_Parser root;
    EXPECT_EQ(CIPC2581_XmlLiteReader().OpenPath(path, root), 1);
    EXPECT_EQ(ModelCounter(root).sizes.at("shapes"), 27);
}

TEST_F(NoMemory, LetsAWriteFail)
{
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    CString to(folder.Path("written.cvg"));
    FailEachAllocation([&root, &to] { CIPC2581_XmlLiteReader().WriteFilePath(to, root); });
    const std::string written = WrittenText(static_cast<const char *>(to));
    EXPECT_EQ(CIPC2581_XmlLiteReader().WriteFilePath(to, root), 1);
    EXPECT_EQ(WrittenText(static_cast<const char *>(to)), written);
}

TEST_F(NoMemory, LetsACopyFail)
{
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    FailEachAllocation([&root] { const CIPC2581_Content copy(root.m_Content); });
    FailEachAllocation([&step] { const CIPC2581_Ecad_CadData_Step_Profile copy(step.Profile); });
    FailEachAllocation(
        [&step] { const CIPC2581_Ecad_CadData_Step_LayerFeature_Set copy(*step.LayerFeatureArray[0]->SetArray[0]); });
}

TEST_F(NoMemory, LetsAReportFail)
{
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    FailEachAllocation([&] {
        CString design(path);
        CIPC2581_DataPrint().DataPrint(design, root);
    });
}

TEST_F(NoMemory, LetsALargeReadFail)
{
    std::string sets;
    for (int i = 0; i < 20'000; ++i) {
        sets += "<Set net=\"N\">\n</Set>\n";
    }
    CString large(folder.Save("large.cvg", "<Ecad>\n<CadData>\n<Step name=\"s\">\n<LayerFeature layerRef=\"TOP\">\n" +
                                               sets + "</LayerFeature>\n</Step>\n</CadData>\n</Ecad>\n"));
    const std::int64_t before = MappedCount();
    CIPC2581_Parser whole;
    CIPC2581_XmlLiteReader().OpenPath(large, whole);
    EXPECT_EQ(whole.m_Ecad.m_CadData.m_Step.LayerFeatureArray[0]->SetArray.GetSize(), 20'000);
    if (MappedCount() == before) {
        GTEST_SKIP() << "this build maps no memory";
    }
    FailEachAllocation([&] {
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader().OpenPath(large, root);
    });
}

}  // namespace
