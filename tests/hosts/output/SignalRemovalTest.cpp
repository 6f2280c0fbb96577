#include "hosts/ipc2581/output/SignalRemoval.h"

#include <csignal>
#include <string>

#include <gtest/gtest.h>

#include "hosts/ipc2581/files/ScratchFile.h"
#include "hosts/ipc2581/output/FileReplacement.h"
#include "hosts/ipc2581/output/ScratchFolder.h"
#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

TEST(SignalRemovalDeathTest, NothingIsLeftBehindASignal)
{
    const TempFolder folder;
    const TempFolder temporary;
    const std::string path = folder.Save("out.txt", "good");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto end = [&] {
            setenv("TMPDIR", temporary.Path("").c_str(), 1);
            // Whoever runs the tests may ignore it, as nohup does.
            std::signal(signal, SIG_DFL);
            RemoveListedOnSignals();
            ScratchFile scratch;
            scratch.Write("half", 4);
            ScratchFolder scratchFolder;
            std::ofstream(scratchFolder.File("half.txt")) << "half";
            FileReplacement replacement(path, Existing::Replace, Keeping::HiddenName);
            std::ofstream(replacement.WritePath()) << "half";
            static_cast<void>(raise(signal));
        };
        EXPECT_EXIT(end(), testing::KilledBySignal(signal), "");
    }
    EXPECT_EQ(Bytes(path), "good");
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.txt"});
    EXPECT_TRUE(Names(temporary.Path("")).empty());
}

TEST(SignalRemovalDeathTest, NothingIsLeftBehindTheSignalThatNobodyCanTake)
{
    const TempFolder folder;
    const TempFolder temporary;
    const std::string path = folder.Save("out.txt", "good");
    const auto end = [&] {
        setenv("TMPDIR", temporary.Path("").c_str(), 1);
        ScratchFile scratch;
        scratch.Write("half", 4);
        FileReplacement replacement(path);
        std::ofstream(replacement.WritePath()) << "half";
        FileReplacement other(folder.Path("new.txt"));
        std::ofstream(other.WritePath()) << "half";
        static_cast<void>(raise(SIGKILL));
    };
    EXPECT_EXIT(end(), testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(Bytes(path), "good");
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.txt"});
    EXPECT_TRUE(Names(temporary.Path("")).empty());
}

TEST(SignalRemovalDeathTest, SignalThatIsIgnoredStaysIgnored)
{
    const auto end = [] {
        std::signal(SIGHUP, SIG_IGN);
        RemoveListedOnSignals();
        static_cast<void>(raise(SIGHUP));
        _exit(0);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace ipc2581::tests
