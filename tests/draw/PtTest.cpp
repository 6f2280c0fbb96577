#include "ipc2581/draw/Pt.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

CIPC2581_Pt Made(int type, double x, double y, double centerX = 0, double centerY = 0, int clockWise = 1)
{
    CIPC2581_Pt pt;
    pt.Type = type;
    pt.EndPoint.SetData(x, y);
    pt.CenterPoint.SetData(centerX, centerY);
    pt.ClockWise = clockWise;
    return pt;
}

void ExpectFields(const CIPC2581_Pt & pt, int type, double x, double y, double centerX, double centerY, int clockWise)
{
    EXPECT_EQ(pt.Type, type);
    EXPECT_EQ(pt.EndPoint.X, x);
    EXPECT_EQ(pt.EndPoint.Y, y);
    EXPECT_EQ(pt.CenterPoint.X, centerX);
    EXPECT_EQ(pt.CenterPoint.Y, centerY);
    EXPECT_EQ(pt.ClockWise, clockWise);
}

TEST(Pt, StartsAsASegmentAtZero)
{
    ExpectFields(CIPC2581_Pt(), 0, 0, 0, 0, 0, 1);
}

TEST(Pt, FieldsStandInTheirOrder)
{
    const CIPC2581_Pt pt;
    const std::vector<const void *> fields{&pt.Type, &pt.EndPoint, &pt.CenterPoint, &pt.ClockWise};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST(Pt, InitGivesTheStateOfANewOne)
{
    CIPC2581_Pt pt = Made(3, 1, 2, 4, 5, 0);
    pt.Init();
    ExpectFields(pt, 0, 0, 0, 0, 0, 1);
}

TEST(Pt, CopiesAllFields)
{
    const CIPC2581_Pt source = Made(3, 1, 2, 4, 5, 6);
    ExpectFields(CIPC2581_Pt(source), 3, 1, 2, 4, 5, 6);
    const std::unique_ptr<CIPC2581_Pt> clone(source.clone());
    ExpectFields(*clone, 3, 1, 2, 4, 5, 6);
    CIPC2581_Pt target;
    EXPECT_EQ(&(target = source), &target);
    ExpectFields(target, 3, 1, 2, 4, 5, 6);
    const CIPC2581_Pt & same = target;
    target = same;
    ExpectFields(target, 3, 1, 2, 4, 5, 6);
}

TEST(Pt, EqualByItsEndPointAlone)
{
    const CIPC2581_Pt pt = Made(0, 1, 2);
    EXPECT_EQ(pt.operator==(pt), 1);
    EXPECT_EQ(pt.operator==(Made(0, 1, 2)), 1);
    EXPECT_EQ(pt.operator==(Made(1, 1, 2, 8, 9, 0)), 1);
    EXPECT_EQ(pt.operator==(Made(0, 1, 3)), 0);
    EXPECT_EQ(pt.operator==(Made(0, 3, 2)), 0);
    EXPECT_EQ(pt.operator==(Made(0, 1, 2.0000001)), 0);
}

TEST(Pt, SameObjectIsEqualToItselfWhateverItHolds)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CIPC2581_Pt pt = Made(0, nan, nan);
    EXPECT_EQ(pt.operator==(pt), 1);
    EXPECT_EQ(pt.operator!=(pt), 0);
    EXPECT_EQ(pt.operator==(Made(0, nan, nan)), 0);
}

// Hosts rely on it that this is no negation of the equality.
TEST(Pt, UnequalOnlyWhereAllFourFieldsDiffer)
{
    const CIPC2581_Pt pt = Made(0, 1, 2, 3, 4, 1);
    EXPECT_EQ(pt.operator!=(pt), 0);
    EXPECT_EQ(pt.operator!=(Made(1, 9, 9, 9, 9, 0)), 1);
    EXPECT_EQ(pt.operator!=(Made(1, 1, 9, 3, 9, 0)), 1);
    EXPECT_EQ(pt.operator!=(Made(0, 9, 9, 9, 9, 0)), 0);
    EXPECT_EQ(pt.operator!=(Made(1, 1, 2, 9, 9, 0)), 0);
    EXPECT_EQ(pt.operator!=(Made(1, 9, 9, 3, 4, 0)), 0);
    EXPECT_EQ(pt.operator!=(Made(1, 9, 9, 9, 9, 1)), 0);
    EXPECT_EQ(pt.operator!=(Made(0, 1, 2, 3, 4, 1)), 0);
}

TEST(Pt, SameEndWithAnotherCentreIsEqualAndNotUnequal)
{
    const CIPC2581_Pt one = Made(1, 1, 2, 3, 4, 1);
    const CIPC2581_Pt other = Made(1, 1, 2, 5, 6, 1);
    EXPECT_EQ(one.operator==(other), 1);
    EXPECT_EQ(one.operator!=(other), 0);
}

TEST(Pt, SegmentIsWrittenWithItsEnd)
{
    CIPC2581_Pt pt = Made(0, 1.5, -2, 3, 4, 0);
    EXPECT_EQ(Exported(pt).result, 1);
    EXPECT_EQ(Written(pt, 0), Joined({R"(   <PolyStepSegment x="1.500000" y="-2.000000" />)"}));
    EXPECT_EQ(Written(pt, 2), Joined({R"(         <PolyStepSegment x="1.500000" y="-2.000000" />)"}));
    EXPECT_EQ(Written(pt, -1), Joined({R"(<PolyStepSegment x="1.500000" y="-2.000000" />)"}));
}

TEST(Pt, CurveIsWrittenWithItsCentreAndDirection)
{
    CIPC2581_Pt pt = Made(1, 1.5, -2, 3, 4.25, 1);
    EXPECT_EQ(Exported(pt).result, 1);
    const std::string line = Below(R"(
<PolyStepCurve x="1.500000" y="-2.000000" centerX="3.000000" centerY="4.250000" clockwise="TRUE" />
)");
    EXPECT_EQ(Written(pt, 0), "   " + line);
    EXPECT_EQ(Written(pt, 2), "         " + line);
}

TEST(Pt, AnyDirectionButOneIsWrittenAsFalse)
{
    for (const int clockWise : {0, 2, -1}) {
        CIPC2581_Pt pt = Made(1, 0, 0, 0, 0, clockWise);
        EXPECT_EQ(Written(pt), Below(R"(
   <PolyStepCurve x="0.000000" y="0.000000" centerX="0.000000" centerY="0.000000" clockwise="FALSE" />
)"));
    }
}

TEST(Pt, AnyOtherTypeIsNotWritten)
{
    for (const int type : {2, -1}) {
        CIPC2581_Pt pt = Made(type, 1, 2);
        const auto written = Exported(pt);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, "");
    }
}

TEST(Pt, OrderOfVirtualOperations)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Pt>);
    EXPECT_EQ(Slot(&CIPC2581_Pt::clone), 2U);
    EXPECT_EQ(Slot(&CIPC2581_Pt::operator=), 3U);
    EXPECT_EQ(Slot(&CIPC2581_Pt::operator==), 4U);
    EXPECT_EQ(Slot(&CIPC2581_Pt::operator!=), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Pt::Export), 6U);
}

// Tells of its end, is cloned as itself, and its writing fails.
class Refusing : public CIPC2581_Pt {
public:
    explicit Refusing(int & deleted) : m_deleted(&deleted) {}
    ~Refusing() override { ++*m_deleted; }
    CIPC2581_Pt * clone() const override { return new Refusing(*m_deleted); }
    int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }

private:
    int * m_deleted;
};

// Points whose end is told by the letter: a capital is a segment, a small letter a curve, a digit has type 2.
void Fill(CIPC2581_PtArray & array, const std::string & letters)
{
    for (const char letter : letters) {
        const int type = std::isdigit(letter) != 0 ? 2 : std::islower(letter) != 0 ? 1 : 0;
        const int end = type == 2 ? letter - '1' + 'A' : std::toupper(letter);
        array.Add(new CIPC2581_Pt(Made(type, end, -end)));
    }
}

std::string Letters(const CIPC2581_PtArray & array)
{
    std::string letters;
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        const CIPC2581_Pt & pt = *array.GetAt(i);
        const char letter = static_cast<char>(pt.EndPoint.X);
        letters += static_cast<char>(pt.Type == 0 ? letter : pt.Type == 1 ? std::tolower(letter) : letter - 'A' + '1');
    }
    return letters;
}

TEST(PtArray, EmptyWritesNothing)
{
    CIPC2581_PtArray array;
    const auto written = Exported(array);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "");
}

TEST(PtArray, FirstIsWrittenAsBeginPointWhateverItsType)
{
    for (const char * letters : {"A", "a", "1"}) {
        CIPC2581_PtArray array;
        Fill(array, letters);
        const auto written = Exported(array);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, Joined({R"(   <PolyBegin x="65.000000" y="-65.000000" />)"})) << letters;
    }
}

TEST(PtArray, OthersWriteThemselvesAtItsOwnLevel)
{
    CIPC2581_PtArray array;
    Fill(array, "aB2c");
    EXPECT_EQ(Exported(array).result, 1);
    for (const int level : {0, 2}) {
        const std::string indent = level == 0 ? "   " : "         ";
        EXPECT_EQ(Written(array, level), indent + Joined({R"(<PolyBegin x="65.000000" y="-65.000000" />)"}) + indent +
                                             Joined({R"(<PolyStepSegment x="66.000000" y="-66.000000" />)"}) + indent +
                                             Below(R"(
<PolyStepCurve x="67.000000" y="-67.000000" centerX="0.000000" centerY="0.000000" clockwise="TRUE" />
)"));
    }
}

TEST(PtArray, WritingOfTheFirstElementIsNeverAsked)
{
    int deleted = 0;
    CIPC2581_PtArray array;
    array.Add(new Refusing(deleted));
    Fill(array, "B");
    const auto written = Exported(array);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, Joined({R"(   <PolyBegin x="0.000000" y="0.000000" />)",
                                    R"(   <PolyStepSegment x="66.000000" y="-66.000000" />)"}));
}

TEST(PtArray, WritingStopsAtTheFirstThatFails)
{
    int deleted = 0;
    CIPC2581_PtArray array;
    Fill(array, "A");
    array.Add(new Refusing(deleted));
    Fill(array, "B");
    const auto written = Exported(array);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, Joined({R"(   <PolyBegin x="65.000000" y="-65.000000" />)"}));
}

TEST(PtArray, OwnsItsElements)
{
    int deleted = 0;
    {
        CIPC2581_PtArray array;
        array.Add(new Refusing(deleted));
        array.Add(new Refusing(deleted));
    }
    EXPECT_EQ(deleted, 2);
}

TEST(PtArray, CopiesAreDeep)
{
    CIPC2581_PtArray source;
    Fill(source, "Ab3");
    const CIPC2581_PtArray copy(source);
    const std::unique_ptr<CIPC2581_PtArray> clone(source.clone());
    CIPC2581_PtArray target;
    Fill(target, "XYZXYZ");
    EXPECT_EQ(&(target = source), &target);
    source.GetAt(0)->EndPoint.X = 'Z';
    source.DeleteLastElement();
    EXPECT_EQ(Letters(copy), "Ab3");
    EXPECT_EQ(Letters(*clone), "Ab3");
    EXPECT_EQ(Letters(target), "Ab3");
}

TEST(PtArray, AssignmentDeletesItsElementsAndClonesTheOthersAsThemselves)
{
    int deleted = 0;
    int deletedInTarget = 0;
    CIPC2581_PtArray source;
    source.Add(new Refusing(deleted));
    CIPC2581_PtArray target;
    target.Add(new Refusing(deletedInTarget));
    target = source;
    EXPECT_EQ(deletedInTarget, 1);
    ASSERT_EQ(target.GetSize(), 1);
    EXPECT_NE(target.GetAt(0), source.GetAt(0));
    EXPECT_NE(dynamic_cast<Refusing *>(target.GetAt(0)), nullptr);
}

TEST(PtArray, AssignmentToItselfDoesNothing)
{
    CIPC2581_PtArray array;
    Fill(array, "AB");
    const CIPC2581_Pt * first = array.GetAt(0);
    const CIPC2581_PtArray & same = array;
    array = same;
    EXPECT_EQ(array.GetAt(0), first);
    EXPECT_EQ(Letters(array), "AB");
}

TEST(PtArray, DeduplicationKeepsTheFirstOfARunAndItsCurves)
{
    const struct {
        const char * before;
        const char * after;
    } cases[] = {
        {"", ""},        {"A", "A"},      {"AA", "A"},      {"AAA", "A"},     {"AB", "AB"},       {"Aa", "Aa"},
        {"aA", "a"},     {"aa", "aa"},    {"A1", "A"},      {"11", "1"},      {"AABBA", "ABA"},   {"AaA", "Aa"},
        {"AaAa", "Aaa"}, {"AAaAA", "Aa"}, {"ABAB", "ABAB"}, {"AAAB1", "AB1"}, {"ABBB2CC", "ABC"}, {"aAbBcC", "abc"},
    };
    for (const auto & row : cases) {
        CIPC2581_PtArray array;
        Fill(array, row.before);
        array.DeduplicationCheck();
        EXPECT_EQ(Letters(array), row.after) << row.before;
    }
}

TEST(PtArray, DeduplicationDestroysWhatItTakesOut)
{
    int deleted = 0;
    CIPC2581_PtArray array;
    for (int i = 0; i < 3; ++i) {
        array.Add(new Refusing(deleted));
    }
    const CIPC2581_Pt * first = array.GetAt(0);
    array.DeduplicationCheck();
    EXPECT_EQ(deleted, 2);
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.GetAt(0), first);
}

TEST(PtArray, OrderOfVirtualOperations)
{
    EXPECT_EQ(Slot(&CIPC2581_PtArray::RemoveDuplicatedElements), 7U);
    EXPECT_EQ(Slot(&CIPC2581_PtArray::clone), 8U);
    EXPECT_EQ(Slot(&CIPC2581_PtArray::operator=), 9U);
    EXPECT_EQ(Slot(&CIPC2581_PtArray::Export), 10U);
    EXPECT_EQ(sizeof(CIPC2581_PtArray), sizeof(CExPtrArray<CIPC2581_Pt *, CIPC2581_Pt *>));
}

}  // namespace
