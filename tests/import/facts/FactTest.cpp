#include "tests/import/facts/Fact.h"

#include <gtest/gtest.h>

namespace ipc2581::facts {
namespace {

Fact At(double x, double y = 0.0)
{
    return MakeFact("pad", {{"net", "A"}}, {{"x", x}, {"y", y}});
}

KindComparison CompareOne(const Facts & file, const Facts & model)
{
    const auto comparisons = Compare(file, model);
    EXPECT_EQ(comparisons.size(), 1U);
    return comparisons.front();
}

TEST(Fact, IsDescribedByWordsAndNumbers)
{
    EXPECT_EQ(Describe(At(1.5, -1e-12)), R"(pad net="A" x=1.5 y=0)");
}

TEST(Compare, TakesEachFactOnce)
{
    const auto comparison = CompareOne({At(1), At(1), At(2)}, {At(1), At(2), At(2)});
    EXPECT_EQ(comparison.stated, 3U);
    EXPECT_EQ(comparison.right, 2U);
    ASSERT_EQ(comparison.missing.size(), 1U);
    EXPECT_EQ(Describe(comparison.missing.front()), Describe(At(1)));
    ASSERT_EQ(comparison.notStated.size(), 1U);
    EXPECT_EQ(Describe(comparison.notStated.front()), Describe(At(2)));
}

// No grid: two numbers as near as that are never on two sides of a border.
TEST(Compare, ToleratesRoundingAnywhere)
{
    for (const double x : {0.0, 0.0000005, 0.1234565, 12.3456785, 2540.0000005}) {
        EXPECT_TRUE(CompareOne({At(x)}, {At(x + 1.5e-6)}).IsRight()) << x;
        EXPECT_TRUE(CompareOne({At(x)}, {At(x - 1.5e-6)}).IsRight()) << x;
    }
    EXPECT_FALSE(CompareOne({At(1)}, {At(1.00001)}).IsRight());
}

TEST(Compare, FindsTheRightOneOfManyInOneColumn)
{
    EXPECT_TRUE(CompareOne({At(1, 1), At(1, 2), At(1.000001, 3)}, {At(1.000001, 2), At(1, 3), At(1, 1)}).IsRight());
}

TEST(Compare, KeepsWordsApart)
{
    const auto comparison = CompareOne({At(1)}, {MakeFact("pad", {{"net", "B"}}, {{"x", 1}, {"y", 0}})});
    EXPECT_EQ(comparison.right, 0U);
    EXPECT_EQ(comparison.missing.size(), 1U);
    EXPECT_EQ(comparison.notStated.size(), 1U);
}

TEST(Compare, LetsAModelHaveEntriesOfItsOwn)
{
    const Fact stated = MakeFact(DictionaryEntryKind, {{"id", "ROUND"}}, {{"area", 1}});
    const Fact own = MakeFact(DictionaryEntryKind, {{"id", "TURNED"}}, {{"area", 1}});
    const Fact changed = MakeFact(DictionaryEntryKind, {{"id", "ROUND"}}, {{"area", 2}});
    EXPECT_TRUE(CompareOne({stated}, {stated, own}).IsRight());
    EXPECT_FALSE(CompareOne({stated}, {own}).IsRight());
    EXPECT_FALSE(CompareOne({stated}, {changed}).IsRight());
}

TEST(Compare, TabulatesKindsAndExamples)
{
    const std::string table = Table(Compare({At(1), At(2)}, {At(1), At(3)}), 1);
    EXPECT_EQ(table, "kind                   stated    right  missing not stated\n"
                     "pad                         2        1        1          1\n"
                     "missing     pad net=\"A\" x=2 y=0\n"
                     "not stated  pad net=\"A\" x=3 y=0\n");
}

}  // namespace
}  // namespace ipc2581::facts
