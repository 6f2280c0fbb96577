#include "import/elements/LossRecorder.h"

#include <gtest/gtest.h>

#include "tests/import/support/Documents.h"

namespace ipc2581::detail {
namespace {

using tests::Losses;
using tests::Texts;

TEST(LossRecorder, TellsFactsWithTheirAttributes)
{
    LossRecorder losses;
    const LossRecorder::Path root = losses.PathOf(0, W("IPC-2581"));
    const LossRecorder::Path layer = losses.PathOf(losses.PathOf(root, W("Content")), W("Layer"));
    losses.BeginFact(layer, 7, 3);
    losses.AddAttribute(W("name"), "TOP");
    losses.AddAttribute(W("side"), "");
    losses.AddText("text");
    losses.BeginFact(root, 1, 0);
    const ImportReport report = losses.Take(WordTable());
    EXPECT_EQ(Losses(report), (Texts{"Content/Layer name=TOP side= =text", "IPC-2581"}));
    EXPECT_EQ(report.Lost(0).line, 7U);
    EXPECT_EQ(report.Lost(0).owner, 3U);
}

TEST(LossRecorder, KnowsAPathAgain)
{
    LossRecorder losses;
    const LossRecorder::Path root = losses.PathOf(0, W("IPC-2581"));
    const LossRecorder::Path content = losses.PathOf(root, W("Content"));
    const LossRecorder::Path ecad = losses.PathOf(root, W("Ecad"));
    EXPECT_NE(content, ecad);
    EXPECT_NE(content, root);
    EXPECT_EQ(losses.PathOf(root, W("Content")), content);
    EXPECT_NE(losses.PathOf(ecad, W("Content")), content);
}

TEST(LossRecorder, KeepsValuesWithAnyBytes)
{
    LossRecorder losses;
    const std::string value("a\0b\xFF\n", 5);
    losses.BeginFact(losses.PathOf(0, W("IPC-2581")), 1, 0);
    losses.AddAttribute(W("name"), value);
    losses.AddAttribute(W("part"), "x");
    const ImportReport report = losses.Take(WordTable());
    EXPECT_EQ(report.Lost(0).Value("name"), value);
    EXPECT_EQ(report.Lost(0).Value("part"), "x");
}

TEST(LossRecorder, CountsStatedAndLostElements)
{
    LossRecorder losses;
    losses.CountStated(W("Layer"));
    losses.CountStated(W("Layer"));
    losses.CountStated(W("Pad"));
    losses.BeginFact(losses.PathOf(losses.PathOf(0, W("IPC-2581")), W("Layer")), 1, 0);
    const ImportReport report = losses.Take(WordTable());
    ASSERT_EQ(report.Elements().size(), 2U);
    EXPECT_EQ(report.Elements().at("Layer").stated, 2U);
    EXPECT_EQ(report.Elements().at("Layer").lost, 1U);
    EXPECT_EQ(report.Elements().at("Pad").stated, 1U);
    EXPECT_EQ(report.Elements().at("Pad").lost, 0U);
}

TEST(LossRecorder, ForgetsWhatLiesBetweenTwoMarks)
{
    LossRecorder losses;
    const LossRecorder::Path root = losses.PathOf(0, W("IPC-2581"));
    const auto add = [&](std::string_view value) {
        losses.BeginFact(root, 1, 0);
        losses.AddAttribute(W("name"), value);
        losses.AddNote(NoteKind::Merged, 1, std::string(value));
        losses.AddRemark();
    };
    add("first");
    const LossRecorder::Mark begin = losses.MarkHere();
    add("second");
    add("third");
    const LossRecorder::Mark end = losses.MarkHere();
    add("fourth");
    losses.Forget(begin, end);
    const ImportReport report = losses.Take(WordTable());
    EXPECT_EQ(Losses(report), (Texts{"IPC-2581 name=first", "IPC-2581 name=fourth"}));
    EXPECT_EQ(tests::Notes(report), (Texts{"Merged: first", "Merged: fourth"}));
    EXPECT_EQ(report.RemarkCount(), 2U);
}

TEST(LossRecorder, ForgetsNothingBetweenEqualMarks)
{
    LossRecorder losses;
    losses.BeginFact(losses.PathOf(0, W("IPC-2581")), 1, 0);
    losses.Forget(losses.MarkHere(), losses.MarkHere());
    EXPECT_EQ(losses.Take(WordTable()).LostCount(), 1U);
}

TEST(LossRecorder, NamesTheWordsOfTheDocument)
{
    WordTable words;
    const std::string name = "other";
    LossRecorder losses;
    losses.BeginFact(losses.PathOf(losses.PathOf(0, W("IPC-2581")), words.Of(name.c_str(), false)), 1, 0);
    EXPECT_EQ(Losses(losses.Take(words)), (Texts{"other"}));
}

}  // namespace
}  // namespace ipc2581::detail
