#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"

namespace {

using namespace ipc2581::tests;

constexpr std::size_t Count = 8;
constexpr int Turns = 6;

using Root = std::unique_ptr<CIPC2581_Parser>;

// Two boards: one with every element, and one that is longer than most.
std::vector<std::string> Boards()
{
    return {WholeBoardBytes(), Bytes(IPC2581_SOURCE_FOLDER "/examples/board.cvg")};
}

Root ReadRoot(const std::string & path)
{
    auto root = std::make_unique<CIPC2581_Parser>();
    CString file(path);
    CIPC2581_XmlLiteReader reader;
    return reader.OpenPath(file, *root) == 1 ? std::move(root) : nullptr;
}

// All that a root says: its file, its report, and what its copies write.
struct Said {
    ModelSizes sizes;
    int written = 0;
    std::string file;
    std::string report;
    std::vector<Export> copies;
    bool operator==(const Said &) const = default;
};

Said SaidBy(CIPC2581_Parser & root)
{
    const TempFolder folder;
    Said said;
    said.sizes = ModelCounter(root).sizes;
    CString path(folder.Path("written.cvg"));
    said.written = CIPC2581_XmlLiteReader().WriteFilePath(path, root);
    said.file = WrittenText(static_cast<const char *>(path));
    CIPC2581_DataPrint().DataPrint(path, root);
    said.report = WrittenText(static_cast<const char *>(path));

    CIPC2581_Content content(root.m_Content);
    said.copies.push_back(Exported(content));
    content = root.m_Content;
    said.copies.push_back(Exported(content));
    CIPC2581_Content_DictionaryColor colors(*root.m_Content.DictionaryColor());
    said.copies.push_back(Exported(colors));
    CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    CIPC2581_Ecad_CadData_Step named(step);
    said.copies.push_back(Exported(named));
    const std::unique_ptr<CIPC2581_Ecad_CadData_Step_Profile> profile(step.Profile.clone());
    said.copies.push_back(Exported(*profile));
    for (std::int64_t i = 0; i < step.LayerFeatureArray.GetSize(); ++i) {
        const auto & sets = step.LayerFeatureArray.GetAt(i)->SetArray;
        for (std::int64_t j = 0; j < sets.GetSize(); j += 7) {
            CIPC2581_Ecad_CadData_Step_LayerFeature_Set set(*sets.GetAt(j));
            said.copies.push_back(Exported(set));
        }
    }
    return said;
}

// Runs the work on all threads at once, each with its number.
void OnAllThreads(const std::function<void(std::size_t thread)> & work)
{
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < Count; ++i) {
        threads.emplace_back(work, i);
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

class Threads : public testing::Test {
protected:
    Threads()
    {
        for (const std::string & board : Boards()) {
            paths.push_back(folder.Save("board" + std::to_string(paths.size()) + ".cvg", board));
            expected.push_back(SaidBy(*ReadRoot(paths.back())));
        }
    }
    std::size_t BoardOf(std::size_t thread) const { return thread % paths.size(); }

    TempFolder folder;
    std::vector<std::string> paths;
    std::vector<Said> expected;
};

TEST_F(Threads, HaveSomethingToSay)
{
    EXPECT_NE(expected[0], expected[1]);
    for (const Said & said : expected) {
        EXPECT_EQ(said.written, 1);
        EXPECT_GT(said.file.size(), 1000u);
        EXPECT_FALSE(said.report.empty());
        EXPECT_GT(said.copies.size(), 5u);
    }
}

TEST_F(Threads, WorkOnRootsOfTheirOwn)
{
    std::array<int, Count> different = {};
    OnAllThreads([this, &different](std::size_t thread) {
        for (int turn = 0; turn < Turns; ++turn) {
            const std::size_t board = BoardOf(thread + static_cast<std::size_t>(turn));
            const Root root = ReadRoot(paths[board]);
            different[thread] += SaidBy(*root) == expected[board] ? 0 : 1;
        }
    });
    EXPECT_EQ(different, (std::array<int, Count>{}));
}

TEST_F(Threads, TakeOverTheRootsOfOthers)
{
    std::array<Root, Count> roots;
    for (int turn = 0; turn < Turns; ++turn) {
        OnAllThreads([this, &roots](std::size_t thread) { roots[thread] = ReadRoot(paths[BoardOf(thread)]); });
        std::array<int, Count> different = {};
        OnAllThreads([this, &roots, &different](std::size_t thread) {
            const std::size_t other = (thread + 1) % Count;
            const Root root = std::move(roots[other]);
            different[thread] = SaidBy(*root) == expected[BoardOf(other)] ? 0 : 1;
        });
        EXPECT_EQ(different, (std::array<int, Count>{}));
    }
}

// Steps of one contour stand side by side in memory, also when they belong to two threads.
TEST_F(Threads, DeleteTheirSharesOfOneModel)
{
    for (int turn = 0; turn < Turns; ++turn) {
        std::vector<Root> roots;
        std::vector<CIPC2581_PolyStep *> steps;
        for (std::size_t i = 0; i < Count; ++i) {
            roots.push_back(ReadRoot(paths[1]));
            CIPC2581_PolyStepArray & array = *roots.back()->m_Ecad.m_CadData.m_Step.Profile.Polygon->GetPolyStepArray();
            for (std::int64_t j = 0; j < array.GetSize(); ++j) {
                steps.push_back(array.GetAt(j));
            }
            array.RemoveAll();
        }
        ASSERT_GT(steps.size(), Count);
        OnAllThreads([&steps, &roots](std::size_t thread) {
            roots[thread].reset();
            for (std::size_t i = thread; i < steps.size(); i += Count) {
                delete steps[i];
            }
        });
    }
}

TEST_F(Threads, MeetBadFilesOfTheirOwn)
{
    const std::string bad = folder.Save("bad.cvg", Bytes(paths[1]).substr(0, 40000) + "\n   \n");
    std::array<int, Count> thrown = {};
    OnAllThreads([&bad, &thrown](std::size_t thread) {
        for (int turn = 0; turn < Turns; ++turn) {
            try {
                ReadRoot(bad);
            }
            catch (const CInvalidArgException &) {
                ++thrown[thread];
            }
        }
    });
    std::array<int, Count> always;
    always.fill(Turns);
    EXPECT_EQ(thrown, always);
}

}  // namespace
