#include "hosts/ipc2581/files/Sha256.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

std::string HashOf(const std::string & text)
{
    const TempFolder folder;
    return host::Sha256OfFile(folder.Save("file", text));
}

TEST(Sha256, IsThatOfTheStandard)
{
    EXPECT_EQ(HashOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(HashOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(HashOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(HashOf(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, IsThatOfTheSystemForFilesOfEachLength)
{
    const TempFolder folder;
    for (std::size_t size = 0; size < 130; ++size) {
        const std::string path = folder.Save("file", std::string(size, 'x'));
        const std::string told = RunShell("sha256sum < '" + path + "'").out;
        EXPECT_EQ(host::Sha256OfFile(path), told.substr(0, told.find(' '))) << size;
    }
}

}  // namespace
}  // namespace ipc2581::tests
