#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"

namespace {

using namespace ipc2581::tests;

// What a damaged byte becomes: what begins and ends things, what is no text, and what is one.
constexpr std::string_view Damages("\0 \"</>\n\x80"
                                   "9",
                                   9);

std::vector<std::string> LinesOf(std::string_view bytes)
{
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t length = bytes.find('\n') + 1;
        lines.emplace_back(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return lines;
}

std::string Joined(const std::vector<std::string> & lines)
{
    std::string bytes;
    for (const std::string & line : lines) {
        bytes += line;
    }
    return bytes;
}

class DamagedBoard : public testing::Test {
protected:
    // Reads the file, and writes what came of it. True unless the value of a line was cut off.
    bool Read(std::string_view bytes)
    {
        CString path(m_folder.Save("board.cvg", bytes));
        CIPC2581_Parser root;
        try {
            EXPECT_EQ(CIPC2581_XmlLiteReader().OpenPath(path, root), 1);
        }
        catch (const CInvalidArgException &) {
            return false;
        }
        CString to(m_folder.Path("written.cvg"));
        EXPECT_EQ(CIPC2581_XmlLiteReader().WriteFilePath(to, root), 1);
        CIPC2581_DataPrint().DataPrint(to, root);
        return true;
    }

private:
    TempFolder m_folder;
};

TEST_F(DamagedBoard, IsReadWithAnyByteAsAnother)
{
    std::string bytes = WholeBoardBytes();
    std::size_t whole = 0;
    std::size_t turn = 0;
    for (char & byte : bytes) {
        const char own = byte;
        for (int i = 0; i < 2; ++i) {
            byte = Damages[turn++ % Damages.size()];
            whole += Read(bytes) ? 1 : 0;
        }
        byte = own;
    }
    EXPECT_GT(whole, bytes.size());
}

TEST_F(DamagedBoard, IsReadWithoutAnyLine)
{
    const std::vector<std::string> lines = LinesOf(WholeBoardBytes());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::vector<std::string> left = lines;
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_TRUE(Read(Joined(left))) << lines[i];
    }
}

TEST_F(DamagedBoard, IsReadWithAnyLineTwice)
{
    const std::vector<std::string> lines = LinesOf(WholeBoardBytes());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::vector<std::string> more = lines;
        more.insert(more.begin() + static_cast<std::ptrdiff_t>(i), lines[i]);
        EXPECT_TRUE(Read(Joined(more))) << lines[i];
    }
}

TEST_F(DamagedBoard, IsReadWithAnyTwoLinesInTheOtherOrder)
{
    std::vector<std::string> lines = LinesOf(WholeBoardBytes());
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::swap(lines[i - 1], lines[i]);
        EXPECT_TRUE(Read(Joined(lines))) << lines[i];
        std::swap(lines[i - 1], lines[i]);
    }
}

}  // namespace
