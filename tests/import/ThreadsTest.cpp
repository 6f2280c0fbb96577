#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "import/Import.h"
#include "ipc2581/each.h"
#include "tests/document/ModelText.h"
#include "tests/import/support/Documents.h"

namespace ipc2581::tests {
namespace {

// A file that is worth a thread of its own, with a fact that is lost of each component.
std::string LargeFile()
{
    std::string components;
    for (int i = 0; i < 20'000; ++i) {
        components += "<Component refDes=\"U" + std::to_string(i) + "\" odd=\"" + std::to_string(i) +
                      "\"><Location x=\"1\" y=\"2\"/></Component>\n";
    }
    return Document{.step = components}.Text();
}

TEST(ImportThreads, GiveTheSameAsOneThread)
{
    const std::string text = LargeFile();
    ImportOptions inOne;
    inOne.inOneThread = true;
    const Imported one = ImportText(text, inOne);
    const Imported two = ImportText(text);
    EXPECT_EQ(Count(StepOf(two).ComponentArray), 20'000U);
    EXPECT_EQ(two.report.LostCount(), 20'000U);
    EXPECT_EQ(ReportText(two.report), ReportText(one.report));
    EXPECT_TRUE(ModelText(*two.board) == ModelText(*one.board));
}

TEST(ImportThreads, EndWithTheSameErrorAsOneThread)
{
    std::string text = LargeFile();
    text.resize(text.size() - 20);
    ImportOptions inOne;
    inOne.inOneThread = true;
    const ImportError one = ErrorOf(text, inOne);
    const ImportError two = ErrorOf(text);
    EXPECT_STREQ(two.what(), one.what());
    EXPECT_GT(two.Line(), 20'000U);
}

TEST(ImportThreads, StopWhereTheHostWants)
{
    const std::string text = LargeFile();
    for (const bool isOne : {false, true}) {
        ImportOptions options;
        options.inOneThread = isOne;
        const std::thread::id own = std::this_thread::get_id();
        options.progress = [&](double part) {
            EXPECT_EQ(std::this_thread::get_id(), own);
            return part < 0.5;
        };
        EXPECT_THROW(ImportText(text, options), ImportStopped);
    }
}

TEST(ImportThreads, ImportSeveralFilesAtOnce)
{
    const std::string text = LargeFile();
    std::vector<std::thread> threads;
    std::vector<std::size_t> counts(4, 0);
    for (std::size_t & count : counts) {
        threads.emplace_back([&] { count = Count(StepOf(ImportText(text)).ComponentArray); });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counts, (std::vector<std::size_t>(4, 20'000)));
}

}  // namespace
}  // namespace ipc2581::tests
