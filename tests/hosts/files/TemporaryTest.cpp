#include "hosts/ipc2581/files/Temporary.h"

#include <csignal>
#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

TEST(TemporaryDeathTest, NothingIsLeftBehindASignal)
{
    const TempFolder folder;
    const TempFolder temporary;
    const std::string path = folder.Save("out.txt", "good");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto end = [&] {
            setenv("TMPDIR", temporary.Path("").c_str(), 1);
            RemoveTemporariesOnSignals();
            ScratchFile scratch;
            scratch.Write("half", 4);
            ScratchFolder scratchFolder;
            std::ofstream(scratchFolder.File("half.txt")) << "half";
            FileReplacement replacement(path);
            std::ofstream(replacement.WritePath()) << "half";
            static_cast<void>(raise(signal));
        };
        EXPECT_EXIT(end(), testing::KilledBySignal(signal), "");
    }
    EXPECT_EQ(Bytes(path), "good");
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.txt"});
    EXPECT_TRUE(Names(temporary.Path("")).empty());
}

TEST(TemporaryDeathTest, SignalThatIsIgnoredStaysIgnored)
{
    const auto end = [] {
        std::signal(SIGHUP, SIG_IGN);
        RemoveTemporariesOnSignals();
        static_cast<void>(raise(SIGHUP));
        _exit(0);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(0), "");
}

TEST(ScratchFile, CanBeOpenedThoughItHasNoName)
{
    ScratchFile scratch;
    scratch.Write("one ", 4);
    scratch.Write("two", 3);
    EXPECT_EQ(Bytes(scratch.Path()), "one two");
    CStdioFile file;
    EXPECT_EQ(file.Open(scratch.Path().c_str(), CStdioFile::modeReadWrite, nullptr), 1);
}

TEST(FileReplacement, NeedsACommit)
{
    const TempFolder folder;
    const std::string path = folder.Save("out.txt", "good");
    {
        const FileReplacement replacement(path);
        std::ofstream(replacement.WritePath()) << "new";
    }
    EXPECT_EQ(Bytes(path), "good");
    FileReplacement replacement(path);
    std::ofstream(replacement.WritePath()) << "new";
    replacement.Commit();
    EXPECT_EQ(Bytes(path), "new");
    EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.txt"});
}

}  // namespace
}  // namespace ipc2581::tests
