#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "import/ForWriting.h"
#include "import/Import.h"
#include "import/ImportError.h"
#include "tests/support/memory/FailingMemory.h"

namespace ipc2581 {
namespace {

using tests::FailEachAllocation;

// What the parser takes for itself is not among the allocations that fail.
class NoMemoryForAnImport : public testing::TestWithParam<std::filesystem::path> {
protected:
    NoMemoryForAnImport()
    {
        std::ifstream in(GetParam(), std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    [[nodiscard]] Imported Board() const
    {
        ImportOptions options;
        options.inOneThread = true;
        return Import(std::as_bytes(std::span(m_bytes)), options);
    }

private:
    std::string m_bytes;
};

std::vector<std::filesystem::path> Examples()
{
    std::vector<std::filesystem::path> paths;
    for (const auto & entry : std::filesystem::directory_iterator(IPC2581_IMPORT_EXAMPLES)) {
        paths.push_back(entry.path());
    }
    return paths;
}

INSTANTIATE_TEST_SUITE_P(Examples, NoMemoryForAnImport, testing::ValuesIn(Examples()), [](const auto & own) {
    std::string name = own.param.stem().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST_P(NoMemoryForAnImport, LetsItFail)
{
    // What is made once stays.
    const Imported first = Board();
    FailEachAllocation([this] { static_cast<void>(Board()); });
    EXPECT_EQ(Board().report.LostCount(), first.report.LostCount());
}

TEST_P(NoMemoryForAnImport, LetsItsPreparationForWritingFail)
{
    FailEachAllocation([this] {
        const Imported imported = Board();
        PrepareForWriting(*imported.board);
    });
}

TEST_P(NoMemoryForAnImport, LetsAWalkOverItsReportFail)
{
    const Imported imported = Board();
    FailEachAllocation([&imported] {
        imported.report.ForEachLost([](const LostFact & /*fact*/) {});
        static_cast<void>(imported.report.LostPaths());
    });
}

// Nothing that is thrown may go through the parser, which is C.
TEST(NoMemoryForABrokenFile, LetsItsRefusalFail)
{
    const std::string entity = "<!DOCTYPE IPC-2581 [<!ENTITY e 'a text'>]><IPC-2581><Content roleRef='&e;&amp;'/>";
    for (const std::string & text : {entity, entity + "<Content roleRef='&amp;cut", entity + "</Content>"}) {
        FailEachAllocation([&text] {
            try {
                Import(std::as_bytes(std::span(text)));
                FAIL() << text;
            }
            catch (const ImportError & error) {
                EXPECT_EQ(error.Line(), 1U);
            }
        });
    }
}

}  // namespace
}  // namespace ipc2581
