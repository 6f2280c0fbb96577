#include "import/xml/EventBatch.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "tests/import/xml/XmlEvents.h"

namespace ipc2581::detail {
namespace {

using tests::Texts;
using tests::Writer;

Texts EventsOf(EventBatch & batch)
{
    const WordTable words;
    Writer writer(words);
    batch.TellAgain(writer);
    return writer.events;
}

void Fill(EventBatch & batch)
{
    const std::array<XmlAttribute, 2> attributes = {{{W("name"), "TOP"}, {W("side"), ""}}};
    batch.AddOpen(W("Layer"), 7, attributes);
    batch.AddText("text");
    batch.AddOpen(W("Span"), 8, {});
    batch.AddClose();
    batch.AddClose();
}

const Texts Filled = {"7 <Layer name=TOP side=", "'text", "8 <Span", ">", ">"};

TEST(EventBatch, TellsAgainWhatItWasTold)
{
    EventBatch batch;
    EXPECT_EQ(EventsOf(batch), Texts());
    Fill(batch);
    EXPECT_EQ(EventsOf(batch), Filled);
    EXPECT_EQ(EventsOf(batch), Filled);
}

TEST(EventBatch, ForgetsAllWhenItIsCleared)
{
    EventBatch batch;
    Fill(batch);
    batch.Clear();
    EXPECT_EQ(EventsOf(batch), Texts());
    Fill(batch);
    EXPECT_EQ(EventsOf(batch), Filled);
}

TEST(EventBatch, IsFullByWhatItTakes)
{
    EventBatch batch;
    Fill(batch);
    EXPECT_FALSE(batch.IsFull());
    const std::string longText(1'000'000, 'x');
    batch.AddText(longText);
    EXPECT_TRUE(batch.IsFull());
    EXPECT_EQ(EventsOf(batch).back(), "'" + longText);
    batch.Clear();
    EXPECT_FALSE(batch.IsFull());
    int events = 0;
    for (; !batch.IsFull() && events < 1'000'000; ++events) {
        batch.AddClose();
    }
    EXPECT_LT(events, 100'000);
    EXPECT_GT(events, 100);
}

}  // namespace
}  // namespace ipc2581::detail
