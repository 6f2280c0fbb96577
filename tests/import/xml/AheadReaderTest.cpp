#include "import/xml/AheadReader.h"

#include <cerrno>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "tests/import/xml/XmlEvents.h"

namespace ipc2581::detail {
namespace {

using tests::PiecesSource;

// Several blocks of bytes that tell where they stand.
std::string LongText()
{
    std::string text;
    for (int i = 0; i < 150'000; ++i) {
        text += std::to_string(i) + " ";
    }
    return text;
}

std::string AllOf(ByteReader & reader, std::size_t size)
{
    std::string all;
    std::string room(size, '\0');
    for (std::size_t count = reader.Read(room); count != 0; count = reader.Read(room)) {
        all.append(room, 0, count);
    }
    return all;
}

TEST(AheadReader, GivesAllBytesInTheirOrder)
{
    const std::string text = LongText();
    ASSERT_GT(text.size(), 3 * (std::size_t(1) << 18));
    for (const std::size_t piece : {std::size_t(999), std::size_t(1) << 18, text.size()}) {
        for (const std::size_t room : {std::size_t(4'000), std::size_t(1) << 18, text.size()}) {
            PiecesSource source(text, piece);
            AheadReader reader(source);
            EXPECT_TRUE(AllOf(reader, room) == text) << piece << " " << room;
        }
    }
}

TEST(AheadReader, GivesNoneAtTheEndHoweverOftenItIsAsked)
{
    PiecesSource source("abc", 2);
    AheadReader reader(source);
    EXPECT_EQ(AllOf(reader, 10), "abc");
    EXPECT_EQ(AllOf(reader, 10), "");
    PiecesSource nothing("", 2);
    AheadReader ofNothing(nothing);
    EXPECT_EQ(AllOf(ofNothing, 10), "");
}

// Fails behind its bytes.
class FailingReader final : public ByteReader {
public:
    explicit FailingReader(std::string_view bytes) : m_bytes(bytes, 1'000) {}

    std::size_t Read(std::span<char> room) override
    {
        const std::size_t count = m_bytes.Read(room);
        return count != 0 ? count : throw std::system_error(EIO, std::generic_category());
    }

private:
    PiecesSource m_bytes;
};

TEST(AheadReader, ThrowsBehindTheBytesInFrontOfAFailure)
{
    const std::string text = LongText();
    FailingReader failing(text);
    AheadReader reader(failing);
    std::string read(text.size(), '\0');
    for (std::size_t place = 0; place != text.size();) {
        place += reader.Read(std::span(read).subspan(place));
    }
    EXPECT_TRUE(read == text);
    std::string room(10, '\0');
    EXPECT_THROW(reader.Read(room), std::system_error);
    EXPECT_THROW(reader.Read(room), std::system_error);
}

TEST(AheadReader, MayGoBeforeAllIsRead)
{
    const std::string text = LongText();
    for (const std::size_t asked : {0U, 1U, 600'000U}) {
        PiecesSource source(text, 4'000);
        {
            AheadReader reader(source);
            std::string room(asked, '\0');
            if (asked != 0) {
                EXPECT_GT(reader.Read(room), 0U);
            }
        }
        EXPECT_GT(source.Left(), text.size() / 3) << asked;
    }
}

}  // namespace
}  // namespace ipc2581::detail
