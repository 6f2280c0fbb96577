#include "hosts/ipc2581/files/ScratchFile.h"

#include <gtest/gtest.h>

#include <ipc2581/ipc2581.h>

#include "tests/support/Files.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

TEST(ScratchFile, CanBeOpenedThoughItHasNoName)
{
    ScratchFile scratch;
    scratch.Write("one ", 4);
    scratch.Write("two", 3);
    EXPECT_EQ(Bytes(scratch.Path()), "one two");
    CStdioFile file;
    EXPECT_EQ(file.Open(scratch.Path().c_str(), CStdioFile::modeReadWrite, nullptr), 1);
}

}  // namespace
}  // namespace ipc2581::tests
