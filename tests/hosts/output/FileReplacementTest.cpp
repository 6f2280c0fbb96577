#include "hosts/ipc2581/output/FileReplacement.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "hosts/ipc2581/files/Error.h"
#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

constexpr Keeping BothKeepings[] = {Keeping::Nameless, Keeping::HiddenName};

TEST(FileReplacement, NeedsACommit)
{
    for (const Keeping keeping : BothKeepings) {
        const TempFolder folder;
        const std::string path = folder.Save("out.txt", "good");
        fs::permissions(path, fs::perms(0640));
        {
            const FileReplacement replacement(path, Existing::Replace, keeping);
            std::ofstream(replacement.WritePath()) << "new";
        }
        EXPECT_EQ(Bytes(path), "good");
        FileReplacement replacement(path, Existing::Replace, keeping);
        std::ofstream(replacement.WritePath()) << "new";
        replacement.Commit();
        EXPECT_EQ(Bytes(path), "new");
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
        EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.txt"});
    }
}

TEST(FileReplacement, RefusesWhatIsThere)
{
    for (const Keeping keeping : BothKeepings) {
        const TempFolder folder;
        const std::string path = folder.Path("out.txt");
        {
            FileReplacement first(path, Existing::Refuse, keeping);
            FileReplacement second(path, Existing::Refuse, keeping);
            std::ofstream(first.WritePath()) << "first";
            std::ofstream(second.WritePath()) << "second";
            first.Commit();
            // It has come while this one was written.
            EXPECT_THROW(second.Commit(), Error);
        }
        EXPECT_EQ(Bytes(path), "first");
        EXPECT_THROW(FileReplacement(path, Existing::Refuse, keeping), Error);
        EXPECT_EQ(Names(folder.Path("")), std::set<std::string>{"out.txt"});
    }
}

TEST(FileReplacement, HasNoNameUntilItIsWhole)
{
    const TempFolder folder;
    FileReplacement replacement(folder.Path("out.txt"));
    EXPECT_TRUE(Names(folder.Path("")).empty());
    const FileReplacement hidden(folder.Path("other.txt"), Existing::Refuse, Keeping::HiddenName);
    EXPECT_EQ(Names(folder.Path("")).size(), 1U);
}

TEST(FileReplacement, FollowsALinkToAFileThatIsNotThere)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("there"));
    fs::create_symlink("there/next", folder.Path("link"));
    fs::create_symlink("out.txt", folder.Path("there/next"));
    FileReplacement replacement(folder.Path("link"));
    std::ofstream(replacement.WritePath()) << "new";
    replacement.Commit();
    EXPECT_EQ(Bytes(folder.Path("there/out.txt")), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_TRUE(fs::is_symlink(folder.Path("there/next")));
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"link", "there"}));
    EXPECT_EQ(Names(folder.Path("there")), (std::set<std::string>{"next", "out.txt"}));
}

TEST(FileReplacement, FollowsALinkToAFile)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("there"));
    const std::string path = folder.Save("there/out.txt", "good");
    fs::create_symlink("there/out.txt", folder.Path("link"));
    FileReplacement replacement(folder.Path("link"));
    std::ofstream(replacement.WritePath()) << "new";
    replacement.Commit();
    EXPECT_EQ(Bytes(path), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
}

TEST(FileReplacement, FailsForLinksInACircle)
{
    const TempFolder folder;
    fs::create_symlink("two", folder.Path("one"));
    fs::create_symlink("one", folder.Path("two"));
    EXPECT_THROW(FileReplacement(folder.Path("one")), Error);
    EXPECT_EQ(Names(folder.Path("")), (std::set<std::string>{"one", "two"}));
}

}  // namespace
}  // namespace ipc2581::tests
