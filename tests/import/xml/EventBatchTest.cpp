#include "import/xml/EventBatch.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

TEST(EventBatch, KeepsNumbersOfAnySize)
{
    for (const std::size_t number :
         {std::size_t(0), std::size_t(127), std::size_t(128), std::size_t(16'383), std::size_t(16'384), SIZE_MAX}) {
        EventBatch batch;
        batch.AddOpen(W("Layer"), number, {});
        batch.AddClose();
        EXPECT_EQ(EventsOf(batch), (Texts{std::to_string(number) + " <Layer", ">"}));
    }
    for (const std::size_t length : {1U, 127U, 128U, 16'383U, 16'384U, 200'000U}) {
        EventBatch batch;
        const std::string value(length, 'v');
        const std::vector<XmlAttribute> attributes(3, {W("name"), value});
        batch.AddOpen(W("Layer"), 1, attributes);
        batch.AddText(value);
        const std::string attribute = " name=" + value;
        EXPECT_EQ(EventsOf(batch), (Texts{"1 <Layer" + attribute + attribute + attribute, "'" + value}));
    }
}

TEST(EventBatch, KeepsAnyNumberOfAttributes)
{
    for (const std::size_t count : {1U, 127U, 128U, 20'000U}) {
        EventBatch batch;
        const std::vector<XmlAttribute> attributes(count, {W("x"), "1"});
        batch.AddOpen(W("Layer"), 1, attributes);
        batch.AddClose();
        std::string told = "1 <Layer";
        for (std::size_t i = 0; i < count; ++i) {
            told += " x=1";
        }
        EXPECT_EQ(EventsOf(batch), (Texts{told, ">"}));
    }
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
        Fill(batch);
    }
    EXPECT_LT(events, 100'000);
    EXPECT_GT(events, 100);
}

}  // namespace
}  // namespace ipc2581::detail
