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

// A fact of the root with an attribute for each name, of which the last is held.
void AddHeldFact(LossRecorder & losses, LossRecorder::Hold hold, bool isElementHeld, const Texts & names)
{
    losses.BeginFact(losses.PathOf(0, W("IPC-2581")), 1, 0);
    losses.HoldFact(hold, isElementHeld);
    for (std::size_t i = 0; i < names.size(); ++i) {
        losses.AddAttribute(i == 0 ? W("name") : W("part"), names[i], i + 1 == names.size());
    }
}

TEST(LossRecorder, LosesWhatIsHeldIfNobodyRefersToIt)
{
    LossRecorder losses;
    const LossRecorder::Hold hold = losses.NewHold();
    AddHeldFact(losses, hold, true, {"lost", "held"});
    EXPECT_EQ(Losses(losses.Take(WordTable())), (Texts{"IPC-2581 name=lost part=held"}));
}

TEST(LossRecorder, LosesWhatIsNotHeldEvenIfSomebodyRefersToTheRest)
{
    LossRecorder losses;
    const LossRecorder::Hold other = losses.NewHold();
    const LossRecorder::Hold hold = losses.NewHold();
    AddHeldFact(losses, hold, true, {"lost", "held"});
    AddHeldFact(losses, other, true, {"kept", "too"});
    losses.Refer(hold);
    EXPECT_EQ(Losses(losses.Take(WordTable())), (Texts{"IPC-2581 name=lost", "IPC-2581 name=kept part=too"}));
}

TEST(LossRecorder, LosesNoFactOfWhichAllHasArrived)
{
    LossRecorder losses;
    const LossRecorder::Hold hold = losses.NewHold();
    AddHeldFact(losses, hold, true, {"held"});
    AddHeldFact(losses, hold, false, {"held"});
    AddHeldFact(losses, hold, true, {});
    losses.Refer(hold);
    const ImportReport report = losses.Take(WordTable());
    EXPECT_EQ(Losses(report), (Texts{"IPC-2581"}));
    EXPECT_EQ(report.Elements().at("IPC-2581").lost, 1U);
}

TEST(LossRecorder, PutsLateFactsWhereTheFileHasThem)
{
    LossRecorder losses;
    const LossRecorder::Path root = losses.PathOf(0, W("IPC-2581"));
    const auto add = [&](std::string_view value) {
        losses.BeginFact(root, 1, 0);
        losses.AddAttribute(W("name"), value);
    };
    const auto addLate = [&](std::size_t place, std::string_view value) {
        losses.BeginLate(place);
        add(value);
        losses.EndLate();
    };
    const std::size_t front = losses.PlaceHere();
    const LossRecorder::Hold hold = losses.NewHold();
    AddHeldFact(losses, hold, true, {"gone"});
    add("one");
    const std::size_t middle = losses.PlaceHere();
    add("two");
    const std::size_t end = losses.PlaceHere();
    addLate(end, "end");
    addLate(middle, "middle");
    addLate(front, "front");
    addLate(middle, "behind it");
    losses.Refer(hold);
    EXPECT_EQ(Losses(losses.Take(WordTable())),
              (Texts{"IPC-2581 name=front", "IPC-2581 name=one", "IPC-2581 name=middle", "IPC-2581 name=behind it",
                     "IPC-2581 name=two", "IPC-2581 name=end"}));
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
