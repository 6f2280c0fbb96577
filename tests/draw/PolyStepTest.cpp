#include "ipc2581/draw/PolyStep.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

void Set(CIPC2581_PolyStep & step, int type, double x, double y, double centerX = 0, double centerY = 0,
         int clockWise = 1)
{
    step.SetType(type);
    step.SetEndPointX(x);
    step.SetEndPointY(y);
    step.SetCenterPointX(centerX);
    step.SetCenterPointY(centerY);
    step.SetClockWise(clockWise);
}

void ExpectFields(const CIPC2581_PolyStep & step, int type, double x, double y, double centerX, double centerY,
                  int clockWise)
{
    EXPECT_EQ(step.GetType(), type);
    EXPECT_EQ(step.GetEndPoint()->GetPoint_X(), x);
    EXPECT_EQ(step.GetEndPoint()->GetPoint_Y(), y);
    EXPECT_EQ(step.GetCenterPoint()->GetPoint_X(), centerX);
    EXPECT_EQ(step.GetCenterPoint()->GetPoint_Y(), centerY);
    EXPECT_EQ(step.GetClockWise(), clockWise);
}

TEST(PolyStep, StartsAsAClockwiseSegmentAtZero)
{
    const CIPC2581_PolyStep step;
    ExpectFields(step, 0, 0, 0, 0, 0, 1);
    EXPECT_NE(step.EndPoint, step.CenterPoint);
}

TEST(PolyStep, AccessorsGiveTheFields)
{
    CIPC2581_PolyStep step;
    Set(step, 3, 1, 2, 4, 5, 6);
    EXPECT_EQ(step.Type, 3);
    EXPECT_EQ(step.ClockWise, 6);
    EXPECT_EQ(step.GetEndPoint(), step.EndPoint);
    EXPECT_EQ(step.GetCenterPoint(), step.CenterPoint);
    ExpectFields(step, 3, 1, 2, 4, 5, 6);
}

TEST(PolyStep, FieldsStandInTheirOrder)
{
    const CIPC2581_PolyStep step;
    const std::vector<const void *> fields{&step.Type, &step.EndPoint, &step.CenterPoint, &step.ClockWise};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST(PolyStep, SettersCopyPoints)
{
    CIPC2581_PolyStep step;
    const CIPC2581_Point * end = step.EndPoint;
    const CIPC2581_Point * center = step.CenterPoint;
    {
        CIPC2581_Point point;
        point.GetPoint()->SetData(1, 2);
        step.SetEndPoint(&point);
        point.GetPoint()->SetData(4, 5);
        step.SetCenterPoint(&point);
    }
    EXPECT_EQ(step.EndPoint, end);
    EXPECT_EQ(step.CenterPoint, center);
    ExpectFields(step, 0, 1, 2, 4, 5, 1);
}

TEST(PolyStep, InitResetsInPlace)
{
    CIPC2581_PolyStep step;
    Set(step, 3, 1, 2, 4, 5, 6);
    const CIPC2581_Point * end = step.EndPoint;
    const CIPC2581_Point * center = step.CenterPoint;
    step.Init();
    ExpectFields(step, 0, 0, 0, 0, 0, 1);
    EXPECT_EQ(step.EndPoint, end);
    EXPECT_EQ(step.CenterPoint, center);
}

TEST(PolyStep, InitMakesMissingPoints)
{
    CIPC2581_PolyStep step;
    delete step.EndPoint;
    delete step.CenterPoint;
    step.EndPoint = nullptr;
    step.CenterPoint = nullptr;
    step.Init();
    ASSERT_NE(step.EndPoint, nullptr);
    ASSERT_NE(step.CenterPoint, nullptr);
    ExpectFields(step, 0, 0, 0, 0, 0, 1);
}

TEST(PolyStep, DestructorToleratesMissingPoints)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    delete step->EndPoint;
    delete step->CenterPoint;
    step->EndPoint = nullptr;
    step->CenterPoint = nullptr;
    EXPECT_NO_FATAL_FAILURE(step.reset());
}

TEST(PolyStep, CopiesHavePointsOfTheirOwn)
{
    CIPC2581_PolyStep source;
    Set(source, 3, 1, 2, 4, 5, 6);
    const CIPC2581_PolyStep copy(source);
    const std::unique_ptr<CIPC2581_PolyStep> clone(source.clone());
    CIPC2581_PolyStep target;
    const CIPC2581_Point * end = target.EndPoint;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.EndPoint, end);
    source.Init();
    ExpectFields(copy, 3, 1, 2, 4, 5, 6);
    ExpectFields(*clone, 3, 1, 2, 4, 5, 6);
    ExpectFields(target, 3, 1, 2, 4, 5, 6);
}

TEST(PolyStep, AssignmentToItselfDoesNothing)
{
    CIPC2581_PolyStep step;
    Set(step, 3, 1, 2, 4, 5, 6);
    const CIPC2581_PolyStep & same = step;
    step = same;
    ExpectFields(step, 3, 1, 2, 4, 5, 6);
}

TEST(PolyStep, EqualToItselfAndToNoOtherThatWasMadeApart)
{
    CIPC2581_PolyStep step;
    const CIPC2581_PolyStep copy(step);
    EXPECT_EQ(step.operator==(step), 1);
    EXPECT_EQ(step.operator==(copy), 0);
    EXPECT_EQ(copy.operator==(step), 0);
}

// The addresses of the points count, not the coordinates.
TEST(PolyStep, EqualWhereTypeAndBothPointObjectsAreTheSame)
{
    const CIPC2581_PolyStep step;
    CIPC2581_PolyStep other;
    CIPC2581_Point * const end = other.EndPoint;
    CIPC2581_Point * const center = other.CenterPoint;
    other.EndPoint = step.EndPoint;
    EXPECT_EQ(step.operator==(other), 0);
    other.CenterPoint = step.CenterPoint;
    other.ClockWise = 0;
    EXPECT_EQ(step.operator==(other), 1);
    other.Type = 1;
    EXPECT_EQ(step.operator==(other), 0);
    other.Type = 0;
    other.EndPoint = end;
    EXPECT_EQ(step.operator==(other), 0);
    other.CenterPoint = center;
}

TEST(PolyStep, NeverUnequal)
{
    const CIPC2581_PolyStep step;
    CIPC2581_PolyStep other;
    Set(other, 1, 1, 2, 4, 5, 0);
    EXPECT_EQ(step.operator!=(step), 0);
    EXPECT_EQ(step.operator!=(other), 0);
    EXPECT_EQ(other.operator!=(step), 0);
}

TEST(PolyStep, SegmentIsWrittenWithItsEnd)
{
    CIPC2581_PolyStep step;
    Set(step, 0, 1.5, -2, 4, 5, 0);
    EXPECT_EQ(Exported(step).result, 1);
    EXPECT_EQ(Written(step, 0), Joined({R"(   <PolyStepSegment x="1.500000" y="-2.000000" />)"}));
    EXPECT_EQ(Written(step, 2), Joined({R"(         <PolyStepSegment x="1.500000" y="-2.000000" />)"}));
    EXPECT_EQ(Written(step, -1), Joined({R"(<PolyStepSegment x="1.500000" y="-2.000000" />)"}));
}

TEST(PolyStep, AnyOtherTypeIsWrittenAsACurve)
{
    const std::string line = Below(R"(
<PolyStepCurve x="1.500000" y="-2.000000" centerX="4.000000" centerY="5.250000" clockwise="TRUE" />
)");
    for (const int type : {1, 2, -1}) {
        CIPC2581_PolyStep step;
        Set(step, type, 1.5, -2, 4, 5.25, 1);
        EXPECT_EQ(Exported(step).result, 1);
        EXPECT_EQ(Written(step, 0), "   " + line) << type;
        EXPECT_EQ(Written(step, 2), "         " + line) << type;
    }
}

TEST(PolyStep, AnyDirectionButOneIsWrittenAsFalse)
{
    for (const int clockWise : {0, 2, -1}) {
        CIPC2581_PolyStep step;
        Set(step, 1, 0, 0, 0, 0, clockWise);
        EXPECT_EQ(Written(step), Below(R"(
   <PolyStepCurve x="0.000000" y="0.000000" centerX="0.000000" centerY="0.000000" clockwise="FALSE" />
)"));
    }
}

TEST(PolyStep, OrderOfVirtualOperations)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_PolyStep>);
    EXPECT_EQ(Slot(&CIPC2581_PolyStep::operator==), 2U);
    EXPECT_EQ(Slot(&CIPC2581_PolyStep::operator!=), 3U);
    EXPECT_EQ(Slot(&CIPC2581_PolyStep::Export), 4U);
}

TEST(PolyStep, CopyingAndInitAreNotVirtual)
{
    EXPECT_FALSE(IsVirtual(&CIPC2581_PolyStep::clone));
    EXPECT_FALSE(IsVirtual(&CIPC2581_PolyStep::operator=));
    EXPECT_FALSE(IsVirtual(&CIPC2581_PolyStep::Init));
}

// Counts its end, and its writing fails.
class Refusing : public CIPC2581_PolyStep {
public:
    explicit Refusing(int & deleted) : m_deleted(&deleted) {}
    ~Refusing() override { ++*m_deleted; }
    int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }

private:
    int * m_deleted;
};

// Segments with these end points.
void Fill(CIPC2581_PolyStepArray & array, std::initializer_list<double> ends)
{
    for (const double end : ends) {
        auto * step = new CIPC2581_PolyStep;
        Set(*step, 0, end, -end);
        array.Add(step);
    }
}

std::vector<double> Ends(const CIPC2581_PolyStepArray & array)
{
    std::vector<double> ends;
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        ends.push_back(array.GetAt(i)->GetEndPoint()->GetPoint_X());
    }
    return ends;
}

using Numbers = std::vector<double>;

TEST(PolyStepArray, EmptyWritesNothing)
{
    CIPC2581_PolyStepArray array;
    const auto written = Exported(array);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "");
}

TEST(PolyStepArray, WritesItsStepsInOrderAtItsOwnLevel)
{
    CIPC2581_PolyStepArray array;
    Fill(array, {1, 2});
    EXPECT_EQ(Exported(array).result, 1);
    EXPECT_EQ(Written(array, 0), Joined({R"(   <PolyStepSegment x="1.000000" y="-1.000000" />)",
                                         R"(   <PolyStepSegment x="2.000000" y="-2.000000" />)"}));
    EXPECT_EQ(Written(array, 2), Joined({R"(         <PolyStepSegment x="1.000000" y="-1.000000" />)",
                                         R"(         <PolyStepSegment x="2.000000" y="-2.000000" />)"}));
}

TEST(PolyStepArray, WritingStopsAtTheFirstThatFails)
{
    int deleted = 0;
    CIPC2581_PolyStepArray array;
    Fill(array, {1});
    array.Add(new Refusing(deleted));
    Fill(array, {2});
    const auto written = Exported(array);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, Joined({R"(   <PolyStepSegment x="1.000000" y="-1.000000" />)"}));
}

TEST(PolyStepArray, OwnsItsSteps)
{
    int deleted = 0;
    {
        CIPC2581_PolyStepArray array;
        array.Add(new Refusing(deleted));
        array.Add(new Refusing(deleted));
    }
    EXPECT_EQ(deleted, 2);
}

TEST(PolyStepArray, CopiesAreDeep)
{
    CIPC2581_PolyStepArray source;
    Fill(source, {1, 2});
    const CIPC2581_PolyStepArray copy(source);
    const std::unique_ptr<CIPC2581_PolyStepArray> clone(source.clone());
    CIPC2581_PolyStepArray target;
    Fill(target, {7, 8, 9});
    EXPECT_EQ(&(target = source), &target);
    source.GetAt(0)->SetEndPointX(5);
    source.DeleteLastElement();
    EXPECT_EQ(Ends(copy), (Numbers{1, 2}));
    EXPECT_EQ(Ends(*clone), (Numbers{1, 2}));
    EXPECT_EQ(Ends(target), (Numbers{1, 2}));
}

TEST(PolyStepArray, AssignmentDeletesItsStepsAndMakesPlainCopies)
{
    int deleted = 0;
    int deletedInTarget = 0;
    CIPC2581_PolyStepArray source;
    source.Add(new Refusing(deleted));
    CIPC2581_PolyStepArray target;
    target.Add(new Refusing(deletedInTarget));
    target = source;
    EXPECT_EQ(deletedInTarget, 1);
    ASSERT_EQ(target.GetSize(), 1);
    const CIPC2581_PolyStep & step = *target.GetAt(0);
    EXPECT_TRUE(typeid(step) == typeid(CIPC2581_PolyStep));
}

TEST(PolyStepArray, AssignmentToItselfDoesNothing)
{
    CIPC2581_PolyStepArray array;
    Fill(array, {1, 2});
    const CIPC2581_PolyStep * first = array.GetAt(0);
    const CIPC2581_PolyStepArray & same = array;
    array = same;
    EXPECT_EQ(array.GetAt(0), first);
    EXPECT_EQ(Ends(array), (Numbers{1, 2}));
}

TEST(PolyStepArray, DeduplicationKeepsStepsThatWereMadeApart)
{
    CIPC2581_PolyStepArray array;
    array.DeduplicationCheck();
    EXPECT_EQ(Ends(array), Numbers{});
    Fill(array, {1, 1, 1, 2});
    array.DeduplicationCheck();
    EXPECT_EQ(Ends(array), (Numbers{1, 1, 1, 2}));
}

TEST(PolyStepArray, DeduplicationDestroysAStepThatStandsTwiceInARow)
{
    int deleted = 0;
    CIPC2581_PolyStepArray array;
    auto * step = new Refusing(deleted);
    array.Add(step);
    array.Add(step);
    array.DeduplicationCheck();
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(deleted, 1);
    array.RemoveAll();
}

TEST(PolyStepArray, DeduplicationKeepsACurveThatStandsTwiceInARow)
{
    CIPC2581_PolyStepArray array;
    Fill(array, {1});
    array.GetAt(0)->SetType(1);
    array.Add(array.GetAt(0));
    array.DeduplicationCheck();
    EXPECT_EQ(array.GetSize(), 2);
    array.RemoveLastElement();
}

TEST(PolyStepArray, DeduplicationKeepsAStepThatStandsTwiceApart)
{
    CIPC2581_PolyStepArray array;
    Fill(array, {1, 2});
    array.Add(array.GetAt(0));
    array.DeduplicationCheck();
    EXPECT_EQ(Ends(array), (Numbers{1, 2, 1}));
    array.RemoveLastElement();
}

TEST(PolyStepArray, OrderOfVirtualOperations)
{
    EXPECT_EQ(Slot(&CIPC2581_PolyStepArray::RemoveDuplicatedElements), 7U);
    EXPECT_EQ(Slot(&CIPC2581_PolyStepArray::clone), 8U);
    EXPECT_EQ(Slot(&CIPC2581_PolyStepArray::operator=), 9U);
    EXPECT_EQ(Slot(&CIPC2581_PolyStepArray::Export), 10U);
    EXPECT_EQ(sizeof(CIPC2581_PolyStepArray), sizeof(CExPtrArray<CIPC2581_PolyStep *, CIPC2581_PolyStep *>));
}

}  // namespace
