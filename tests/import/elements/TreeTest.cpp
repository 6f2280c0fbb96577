#include "import/elements/Tree.h"

#include <array>

#include <gtest/gtest.h>

#include "tests/import/support/Documents.h"

namespace ipc2581::detail {
namespace {

using tests::Texts;

// A Package of the name P with two pins, the first with a Location.
void Fill(Tree & tree)
{
    const std::array<XmlAttribute, 2> ofPackage = {{{W("name"), "P"}, {W("type"), "CHIP"}}};
    const std::array<XmlAttribute, 1> ofFirst = {{{W("number"), "1"}}};
    const std::array<XmlAttribute, 2> ofPlace = {{{W("x"), "3"}, {W("y"), "4"}}};
    tree.Open(W("Package"), 10, ofPackage);
    tree.Open(W("Pin"), 11, ofFirst);
    tree.Open(W("Location"), 12, ofPlace);
    tree.Close();
    tree.Text("text");
    tree.Close();
    tree.Open(W("Pin"), 13, {});
    tree.Close();
    tree.Close();
}

// What nobody has taken of the tree.
Texts LossesOf(const Tree & tree)
{
    LossRecorder losses;
    tree.ReportLost(losses, losses.PathOf(0, W("IPC-2581")), 5);
    return tests::Losses(losses.Take(WordTable()));
}

void TakeWhole(const XmlElement & element)
{
    element.Take();
    element.TakeAttributes([](Word /*name*/, std::string_view /*value*/) { return true; });
}

const Texts AllLost = {"Package name=P type=CHIP", "Package/Pin number=1 =text", "Package/Pin/Location x=3 y=4",
                       "Package/Pin"};

TEST(Tree, IsOpenUntilItsOutermostElementIsClosed)
{
    Tree tree;
    EXPECT_FALSE(tree.IsOpen());
    tree.Open(W("Package"), 1, {});
    tree.Open(W("Pin"), 1, {});
    EXPECT_TRUE(tree.IsOpen());
    tree.Close();
    EXPECT_TRUE(tree.IsOpen());
    tree.Close();
    EXPECT_FALSE(tree.IsOpen());
}

TEST(Tree, GivesElementsWithNamesLinesAndValues)
{
    Tree tree;
    Fill(tree);
    const XmlElement package = tree.Root();
    EXPECT_EQ(package.Name(), W("Package"));
    EXPECT_EQ(package.Line(), 10U);
    EXPECT_EQ(package.Value(W("name")), "P");
    EXPECT_EQ(package.Value(W("side")), "");
    EXPECT_TRUE(package.Has(W("type")));
    EXPECT_FALSE(package.Has(W("side")));
    EXPECT_FALSE(package.IsEmpty());
    std::vector<std::size_t> lines;
    for (const XmlElement pin : package) {
        EXPECT_EQ(pin.Name(), W("Pin"));
        lines.push_back(pin.Line());
    }
    EXPECT_EQ(lines, (std::vector<std::size_t>{11, 13}));
    const XmlElement place = *(*package.begin()).begin();
    EXPECT_EQ(place.Value(W("y")), "4");
    EXPECT_TRUE(place.IsEmpty());
}

TEST(Tree, ReportsAllThatNobodyHasTaken)
{
    Tree tree;
    Fill(tree);
    EXPECT_EQ(LossesOf(tree), AllLost);
}

TEST(Tree, LooksAtValuesWithoutTakingThem)
{
    Tree tree;
    Fill(tree);
    EXPECT_EQ(tree.Root().Value(W("name")), "P");
    EXPECT_TRUE(tree.Root().Has(W("name")));
    tree.Root().ForEachAttribute([](Word /*name*/, std::string_view /*value*/) {});
    EXPECT_EQ(LossesOf(tree), AllLost);
}

TEST(Tree, ReportsNoFactOfAnElementThatIsTakenWithAllItHas)
{
    Tree tree;
    Fill(tree);
    const XmlElement package = tree.Root();
    TakeWhole(package);
    EXPECT_EQ(LossesOf(tree), (Texts{"Package/Pin number=1 =text", "Package/Pin/Location x=3 y=4", "Package/Pin"}));
    for (const XmlElement pin : package) {
        TakeWhole(pin);
        EXPECT_EQ(pin.TakeContent(), pin.Line() == 11 ? "text" : "");
    }
    EXPECT_EQ(LossesOf(tree), (Texts{"Package/Pin/Location x=3 y=4"}));
    TakeWhole(*(*package.begin()).begin());
    EXPECT_EQ(LossesOf(tree), Texts());
}

TEST(Tree, ReportsTheAttributesThatAreLeftOfATakenElement)
{
    Tree tree;
    Fill(tree);
    const XmlElement package = tree.Root();
    package.Take();
    EXPECT_EQ(package.TakeValue(W("type")), "CHIP");
    EXPECT_EQ(package.TakeValue(W("side")), "");
    EXPECT_EQ(LossesOf(tree)[0], "Package name=P");
}

TEST(Tree, ReportsAnElementThatIsNotTakenWithoutItsTakenAttributes)
{
    Tree tree;
    Fill(tree);
    EXPECT_EQ(tree.Root().TakeValue(W("type")), "CHIP");
    EXPECT_EQ(tree.Root().TakeValue(W("name")), "P");
    EXPECT_EQ(LossesOf(tree)[0], "Package");
}

TEST(Tree, CountsWhatIsTakenTwiceOnce)
{
    Tree tree;
    Fill(tree);
    const XmlElement package = tree.Root();
    package.Take();
    package.Take();
    EXPECT_EQ(package.TakeValue(W("type")), "CHIP");
    EXPECT_EQ(package.TakeValue(W("type")), "");
    TakeWhole(package);
    EXPECT_EQ(LossesOf(tree), (Texts{"Package/Pin number=1 =text", "Package/Pin/Location x=3 y=4", "Package/Pin"}));
}

TEST(Tree, OffersNoAttributeAgainThatIsTaken)
{
    Tree tree;
    Fill(tree);
    std::size_t offered = 0;
    const auto take = [&](Word name, std::string_view /*value*/) {
        ++offered;
        return name == W("name");
    };
    tree.Root().TakeAttributes(take);
    tree.Root().TakeAttributes(take);
    EXPECT_EQ(offered, 3U);
}

TEST(Tree, ReportsUnderThePathAndTheOwnerThatItIsTold)
{
    Tree tree;
    tree.Open(W("Package"), 4'000, {});
    tree.Close();
    LossRecorder losses;
    const LossRecorder::Path step = losses.PathOf(losses.PathOf(0, W("IPC-2581")), W("Step"));
    tree.ReportLost(losses, step, 5);
    const ImportReport report = losses.Take(WordTable());
    EXPECT_EQ(report.Lost(0).path, "Step/Package");
    EXPECT_EQ(report.Lost(0).owner, 5U);
    EXPECT_EQ(report.Lost(0).line, 4'000U);
}

TEST(Tree, ForgetsAllWhenItIsCleared)
{
    Tree tree;
    Fill(tree);
    tree.Clear();
    EXPECT_FALSE(tree.IsOpen());
    Fill(tree);
    EXPECT_EQ(tree.Root().Line(), 10U);
    EXPECT_EQ(LossesOf(tree), AllLost);
}

TEST(Tree, ForgetsALargeElementToo)
{
    Tree tree;
    tree.Open(W("Package"), 1, {});
    for (int i = 0; i < 10'000; ++i) {
        const std::array<XmlAttribute, 1> number = {{{W("number"), "1"}}};
        tree.Open(W("Pin"), 1, number);
        tree.Close();
    }
    tree.Close();
    tree.Clear();
    EXPECT_FALSE(tree.IsOpen());
    Fill(tree);
    EXPECT_EQ(LossesOf(tree), AllLost);
}

TEST(Tree, FindsAnElementAgainInACopy)
{
    Tree tree;
    Fill(tree);
    const XmlElement place = *(*tree.Root().begin()).begin();
    Tree copy = tree;
    tree.Clear();
    EXPECT_EQ(copy.ElementAt(place.Place()).Value(W("x")), "3");
    TakeWhole(copy.ElementAt(place.Place()));
    EXPECT_EQ(LossesOf(copy).size(), 3U);
}

TEST(Tree, TellsTextsOfAnElementBehindItsAttributesInTheirOrder)
{
    Tree tree;
    tree.Open(W("Package"), 1, {});
    tree.Text("one");
    tree.Open(W("Pin"), 1, {});
    tree.Text("inner");
    tree.Close();
    tree.Text("two");
    tree.Close();
    EXPECT_EQ(LossesOf(tree), (Texts{"Package =one =two", "Package/Pin =inner"}));
    EXPECT_EQ(tree.Root().TakeContent(), "onetwo");
    EXPECT_EQ(LossesOf(tree), (Texts{"Package", "Package/Pin =inner"}));
}

// Each text is looked at once, however many there are.
TEST(Tree, TellsAnyNumberOfTexts)
{
    constexpr std::size_t count = 300'000;
    Tree tree;
    tree.Open(W("Package"), 1, {});
    for (std::size_t i = 0; i < count; ++i) {
        tree.Open(W("Pin"), 1, {});
        tree.Text("text");
        tree.Close();
    }
    tree.Close();
    LossRecorder losses;
    tree.ReportLost(losses, losses.PathOf(0, W("IPC-2581")), 0);
    const ImportReport report = losses.Take(WordTable());
    ASSERT_EQ(report.LostCount(), count + 1);
    EXPECT_EQ(report.Lost(count).Value(""), "text");
}

// What is lost of the tree if somebody, or nobody, refers to what is held.
Texts LossesHeld(const XmlElement & held, Tree & tree, bool isReferred)
{
    LossRecorder losses;
    const LossRecorder::Hold hold = losses.NewHold();
    held.Hold(hold, {W("x"), W("number")});
    tree.ReportLost(losses, losses.PathOf(0, W("IPC-2581")), 5);
    if (isReferred) {
        losses.Refer(hold);
    }
    return tests::Losses(losses.Take(WordTable()));
}

TEST(Tree, LosesWhatIsHeldUntilSomebodyRefersToIt)
{
    for (const bool isReferred : {false, true}) {
        Tree tree;
        Fill(tree);
        TakeWhole(tree.Root());
        const XmlElement pin = *tree.Root().begin();
        EXPECT_EQ(LossesHeld(pin, tree, isReferred)[0],
                  isReferred ? "Package/Pin =text" : "Package/Pin number=1 =text");
        EXPECT_EQ(LossesHeld(*pin.begin(), tree, isReferred)[1],
                  isReferred ? "Package/Pin/Location y=4" : "Package/Pin/Location x=3 y=4");
    }
}

TEST(Tree, LosesNothingOfAnElementThatIsHeldWholeAndReferredTo)
{
    Tree tree;
    Fill(tree);
    TakeWhole(tree.Root());
    const XmlElement pin = *tree.Root().begin();
    static_cast<void>(pin.TakeContent());
    EXPECT_EQ(LossesHeld(pin, tree, true), (Texts{"Package/Pin/Location x=3 y=4", "Package/Pin"}));
}

TEST(Tree, HoldsNothingThatIsTaken)
{
    Tree tree;
    Fill(tree);
    TakeWhole(tree.Root());
    const XmlElement pin = *tree.Root().begin();
    TakeWhole(pin);
    EXPECT_EQ(LossesHeld(pin, tree, false)[0], "Package/Pin =text");
}

TEST(Tree, NamesTheAttributesThatNobodyHasTaken)
{
    Tree tree;
    Fill(tree);
    EXPECT_EQ(tree.Root().TakeValue(W("name")), "P");
    EXPECT_EQ(tree.Root().Untaken(), (std::vector<Word>{W("type")}));
}

TEST(Tree, FindsTheFirstOfAName)
{
    Tree tree;
    Fill(tree);
    EXPECT_EQ(FirstOf(tree.Root(), W("Pin"))->Line(), 11U);
    EXPECT_FALSE(FirstOf(tree.Root(), W("Location")).has_value());
    std::vector<std::size_t> lines;
    ForFirsts(tree.Root(), [&](const XmlElement & child) { lines.push_back(child.Line()); });
    EXPECT_EQ(lines, (std::vector<std::size_t>{11}));
}

}  // namespace
}  // namespace ipc2581::detail
