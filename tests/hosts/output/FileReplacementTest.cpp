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
