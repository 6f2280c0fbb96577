#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "import/ForWriting.h"
#include "import/Import.h"
#include "import/ImportError.h"
#include "tests/support/Files.h"

namespace ipc2581 {
namespace {

using tests::Bytes;
using tests::TempFolder;

class DamagedImport : public testing::Test {
protected:
    // Imports the file, and what is written of it. False if the file is refused.
    bool Take(std::string_view bytes)
    {
        std::string path = m_folder.Path("written.cvg");
        try {
            const Imported imported = Import(std::as_bytes(std::span(bytes)));
            PrepareForWriting(*imported.board);
            CString to(path);
            EXPECT_EQ(CIPC2581_XmlLiteReader().WriteFilePath(to, *imported.board), 1);
        }
        catch (const ImportError & error) {
            EXPECT_GT(error.Line(), 0U) << error.what();
            return false;
        }
        EXPECT_NO_THROW(Import(std::filesystem::path(path))) << bytes;
        return true;
    }

    std::string m_bytes = Bytes(IPC2581_IMPORT_EXAMPLES "/smallest-board.xml");

private:
    TempFolder m_folder;
};

TEST_F(DamagedImport, IsRefusedWhereverItIsCut)
{
    const std::size_t end = m_bytes.rfind('>');
    for (std::size_t i = 0; i < end; ++i) {
        EXPECT_FALSE(Take(std::string_view(m_bytes).substr(0, i + 1))) << i;
    }
    EXPECT_TRUE(Take(m_bytes));
}

TEST_F(DamagedImport, IsTakenOrRefusedWithAnyByteAsAnother)
{
    // What begins and ends things, what is no text, and what is one.
    constexpr std::string_view damages("\0 \"</>\n\x80&9", 10);
    std::size_t taken = 0;
    std::size_t turn = 0;
    for (char & byte : m_bytes) {
        const char own = byte;
        for (int i = 0; i < 2; ++i) {
            byte = damages[turn++ % damages.size()];
            taken += Take(m_bytes) ? 1 : 0;
        }
        byte = own;
    }
    EXPECT_GT(taken, m_bytes.size() / 4);
    EXPECT_LT(taken, m_bytes.size() * 2);
}

TEST_F(DamagedImport, IsTakenOrRefusedWithoutAnyLine)
{
    std::size_t taken = 0;
    for (std::size_t at = 0; at < m_bytes.size();) {
        const std::size_t next = m_bytes.find('\n', at) + 1;
        std::string left = m_bytes;
        left.erase(at, next - at);
        taken += Take(left) ? 1 : 0;
        at = next;
    }
    EXPECT_GT(taken, 10U);
}

}  // namespace
}  // namespace ipc2581
