#include "hosts/ipc2581/output/FileReplacement.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

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
