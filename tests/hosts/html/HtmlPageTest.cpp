#include "hosts/ipc2581/html/HtmlPage.h"

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zlib.h>

#include "hosts/ipc2581/html/PageParts.h"
#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

std::string Page(const std::string & title, const std::string & data)
{
    std::ostringstream out;
    WritePage(out, title, data);
    return out.str();
}

std::string Between(const std::string & text, const std::string & before, const std::string & behind)
{
    const std::size_t begin = text.find(before) + before.size();
    return text.substr(begin, text.find(behind, begin) - begin);
}

std::string FromBase64(const std::string & text)
{
    const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    unsigned count = 0;
    for (const char ch : text.substr(0, text.find('='))) {
        const std::size_t digit = digits.find(ch);
        if (digit == std::string::npos) {
            ADD_FAILURE() << "no digit: " << ch;
            return bytes;
        }
        bits = bits << 6U | static_cast<unsigned>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count & 0xffU);
        }
    }
    return bytes;
}

// Bytes that become no shorter when they are packed.
std::string Noise(std::size_t size)
{
    std::mt19937 random;
    std::string bytes(size, '\0');
    for (char & byte : bytes) {
        byte = static_cast<char>(random() & 0xffU);
    }
    return bytes;
}

TEST(HtmlPage, HoldsTheDataPacked)
{
    const std::vector<std::string> all = {"", "a", "ab", "abc", "</script><script>alert(1)</script>", Noise(7'000'001)};
    for (const std::string & data : all) {
        const std::string packed = FromBase64(Between(Page("t", data), "id=\"board-data\">", "</script>"));
        std::string unpacked(data.size() + 1, '\0');
        uLongf size = unpacked.size();
        ASSERT_EQ(uncompress(reinterpret_cast<Bytef *>(unpacked.data()), &size,
                             reinterpret_cast<const Bytef *>(packed.data()), packed.size()),
                  Z_OK);
        EXPECT_TRUE(unpacked.substr(0, size) == data) << data.size();
    }
}

TEST(HtmlPage, TakesNoTitleForMarkup)
{
    const std::string page = Page("</title><script>\"&", "");
    EXPECT_EQ(Between(page, "<title>", "</title>"), "&lt;/title&gt;&lt;script&gt;&quot;&amp;");
}

TEST(HtmlPage, ForbidsAllButItsOwnScript)
{
    const std::string page = Page("t", "");
    EXPECT_TRUE(page.starts_with(HtmlMark));
    const std::string policy = Between(page, "Content-Security-Policy\" content=\"", "\"");
    EXPECT_NE(policy.find("default-src 'none'; script-src 'sha256-"), std::string::npos) << policy;
    EXPECT_EQ(policy.find("unsafe"), std::string::npos);
    EXPECT_EQ(policy.find("http"), std::string::npos);
    EXPECT_EQ(page.find("{{"), std::string::npos);
    EXPECT_EQ(PageScript().find("</script"), std::string_view::npos);
}

}  // namespace
}  // namespace ipc2581::tests
