#include "import/xml/WatchedParse.h"

#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/import/xml/XmlEvents.h"

namespace ipc2581::detail {
namespace {

using tests::PiecesSource;
using tests::Texts;
using tests::Writer;

// Much longer than what is handed over at once.
std::string LongDocument()
{
    std::string text = "<a>\n";
    for (int i = 0; i < 20'000; ++i) {
        text += "<b n='" + std::to_string(i) + "'>text</b>\n";
    }
    return text + "</a>\n";
}

struct Way {
    const char * name;
    Threads threads;
    bool isReadAhead;
};

class WatchedParse : public testing::TestWithParam<Way> {
protected:
    // What a listener is told of a document, and by what it ends.
    Texts EventsOf(std::string_view text)
    {
        PiecesSource source(text, 10'000, GetParam().isReadAhead);
        WordTable words;
        Writer writer(words);
        try {
            ParseWatched(
                source, words, writer, [](std::size_t) {}, GetParam().threads);
        }
        catch (const XmlFault & fault) {
            writer.events.push_back("fault in line " + std::to_string(fault.line) + ": " + fault.what());
        }
        return writer.events;
    }
};

INSTANTIATE_TEST_SUITE_P(Threads, WatchedParse,
                         testing::Values(Way{"One", Threads::One, false}, Way{"Two", Threads::Two, false},
                                         Way{"TwoAndTheSourceAhead", Threads::Two, true}),
                         [](const auto & own) { return own.param.name; });

TEST_P(WatchedParse, TellsAllOfADocument)
{
    const Texts events = EventsOf(LongDocument());
    ASSERT_EQ(events.size(), 60'002U);
    EXPECT_EQ(events[0], "1 <a");
    EXPECT_EQ(events[3 * 12'345 + 1], "12347 <b n=12345");
    EXPECT_EQ(events[3 * 12'345 + 2], "'text");
    EXPECT_EQ(events.back(), ">");
    EXPECT_EQ(EventsOf("<a/>"), (Texts{"1 <a", ">"}));
}

TEST_P(WatchedParse, TellsAllThatStandsInFrontOfAFault)
{
    std::string text = LongDocument();
    text.resize(text.size() - 5);
    const Texts events = EventsOf(text);
    ASSERT_EQ(events.size(), 60'002U);
    EXPECT_EQ(events[60'000], ">");
    EXPECT_TRUE(events.back().starts_with("fault in line 20002: ")) << events.back();
    EXPECT_EQ(EventsOf("").size(), 1U);
}

TEST_P(WatchedParse, TellsHowMuchHasBeenRead)
{
    const std::string text = LongDocument();
    PiecesSource source(text, 10'000, GetParam().isReadAhead);
    WordTable words;
    Writer writer(words);
    std::vector<std::size_t> watched;
    const std::thread::id own = std::this_thread::get_id();
    const auto watch = [&](std::size_t bytes) {
        EXPECT_EQ(std::this_thread::get_id(), own);
        watched.push_back(bytes);
    };
    ParseWatched(source, words, writer, watch, GetParam().threads);
    EXPECT_GT(watched.size(), 3U);
    EXPECT_TRUE(std::is_sorted(watched.begin(), watched.end()));
    EXPECT_EQ(watched.back(), text.size());
}

TEST_P(WatchedParse, TellsHowMuchHasBeenReadWhereThereIsNothingToTell)
{
    const std::string text = "<a><!--" + std::string(20'000'000, 'x') + "--></a>";
    PiecesSource source(text, 100'000, GetParam().isReadAhead);
    WordTable words;
    Writer writer(words);
    std::size_t calls = 0;
    ParseWatched(
        source, words, writer, [&](std::size_t /*bytes*/) { ++calls; }, GetParam().threads);
    EXPECT_GT(calls, 10U);
    EXPECT_EQ(writer.events, (Texts{"1 <a", ">"}));
}

// Throws at its turn.
class Thrower final : public XmlListener {
public:
    struct Thrown {};

    explicit Thrower(int turn) : m_left(turn) {}

    void Open(Word /*name*/, std::size_t /*line*/, std::span<const XmlAttribute> /*attributes*/) override { Turn(); }
    void Text(std::string_view /*text*/) override { Turn(); }
    void Close() override { Turn(); }

    bool hasThrown = false;

private:
    void Turn()
    {
        EXPECT_FALSE(hasThrown);
        if (m_left-- == 0) {
            hasThrown = true;
            throw Thrown();
        }
    }

    int m_left;
};

TEST_P(WatchedParse, EndsWithWhatTheListenerThrows)
{
    const std::string text = LongDocument();
    for (const int turn : {0, 1, 5'000, 60'001}) {
        PiecesSource source(text, 1'000, GetParam().isReadAhead);
        WordTable words;
        Thrower thrower(turn);
        EXPECT_THROW(ParseWatched(
                         source, words, thrower, [](std::size_t) {}, GetParam().threads),
                     Thrower::Thrown)
            << turn;
    }
}

// It has not read much further than what it has told of.
TEST_P(WatchedParse, ReadsNoMoreOnceTheListenerHasThrown)
{
    std::string text = "<a>";
    for (int i = 0; i < 1'000'000; ++i) {
        text += "<b/>";
    }
    PiecesSource source(text, 1'000, GetParam().isReadAhead);
    WordTable words;
    Thrower thrower(10);
    EXPECT_THROW(ParseWatched(
                     source, words, thrower, [](std::size_t) {}, GetParam().threads),
                 Thrower::Thrown);
    EXPECT_GT(source.Left(), text.size() / 2);
}

TEST_P(WatchedParse, EndsWithWhatTheWatchThrows)
{
    const std::string text = LongDocument();
    PiecesSource source(text, 1'000, GetParam().isReadAhead);
    WordTable words;
    Writer writer(words);
    const auto watch = [](std::size_t bytes) {
        if (bytes > 100'000) {
            throw std::runtime_error("enough");
        }
    };
    EXPECT_THROW(ParseWatched(source, words, writer, watch, GetParam().threads), std::runtime_error);
    EXPECT_LT(writer.events.size(), 40'000U);
}

class BrokenSource final : public ByteSource {
public:
    BrokenSource(std::string_view text, bool isWorthReadingAhead) : m_text(text, 1'000, isWorthReadingAhead) {}

    std::size_t Read(std::span<char> room) override
    {
        const std::size_t count = m_text.Read(room);
        return count != 0 ? count : throw std::system_error(EIO, std::generic_category());
    }
    void Rewind() override {}
    [[nodiscard]] std::size_t Size() const override { return 0; }
    [[nodiscard]] bool IsWorthReadingAhead() const override { return m_text.IsWorthReadingAhead(); }

private:
    PiecesSource m_text;
};

TEST_P(WatchedParse, EndsWithWhatTheSourceThrows)
{
    const std::string text = LongDocument();
    BrokenSource source(std::string_view(text).substr(0, text.size() / 2), GetParam().isReadAhead);
    WordTable words;
    Writer writer(words);
    EXPECT_THROW(ParseWatched(
                     source, words, writer, [](std::size_t) {}, GetParam().threads),
                 std::system_error);
    EXPECT_GT(writer.events.size(), 20'000U);
}

}  // namespace
}  // namespace ipc2581::detail
