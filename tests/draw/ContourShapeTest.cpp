#include "ipc2581/draw/ContourShape.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/draw/Cutout.h"
#include "ipc2581/draw/PolyLine.h"
#include "ipc2581/draw/Polygon.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"

namespace {

using namespace ipc2581::tests;

struct Step {
    int type = 0;
    double x = 0;
    double y = 0;
    double centerX = 0;
    double centerY = 0;
    int clockWise = 1;
    bool operator==(const Step &) const = default;
};

void PrintTo(const Step & step, std::ostream * out)
{
    *out << "type " << step.type << " to " << step.x << ", " << step.y << " around " << step.centerX << ", "
         << step.centerY << " clockwise " << step.clockWise;
}

using Steps = std::vector<Step>;

Steps StepsOf(const CIPC2581_PolyStepArray & array)
{
    Steps steps;
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        const CIPC2581_PolyStep & step = *array.GetAt(i);
        steps.push_back({step.GetType(), step.GetEndPoint()->GetPoint_X(), step.GetEndPoint()->GetPoint_Y(),
                         step.GetCenterPoint()->GetPoint_X(), step.GetCenterPoint()->GetPoint_Y(),
                         step.GetClockWise()});
    }
    return steps;
}

struct Begin {
    double x;
    double y;
    bool operator==(const Begin &) const = default;
};

void PrintTo(const Begin & begin, std::ostream * out)
{
    *out << begin.x << ", " << begin.y;
}

Begin BeginOf(const CIPC2581_Point & point)
{
    return {point.GetPoint_X(), point.GetPoint_Y()};
}

void Reset(CIPC2581_Polygon & shape)
{
    shape.InIt();
}
void Reset(CIPC2581_PolyLine & shape)
{
    shape.Init();
}
void Reset(CIPC2581_Cutout & shape)
{
    shape.Init();
}

template <typename Shape>
class ContourShape : public testing::Test {
public:
    // From 1, 2 straight to 3, 4, and by a curve around 7, 8 to 5, 6.
    static void Fill(Shape & target)
    {
        Tokens begin(R"(<PolyBegin x="1" y="2" />)");
        target.PolyBeginAdd(begin);
        Tokens segment(R"(<PolyStepSegment x="3" y="4" />)");
        target.SegmentAdd(segment);
        Tokens curve(R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="TRUE" />)");
        target.CurveAdd(curve);
    }

    static void ExpectFilled(const Shape & made)
    {
        EXPECT_EQ(BeginOf(*made.PolyBegin), (Begin{1, 2}));
        EXPECT_EQ(StepsOf(*made.PolyStepArray), (Steps{{0, 3, 4}, {1, 5, 6, 7, 8, 0}}));
    }

    Shape shape;
};

using Contours = testing::Types<CIPC2581_Polygon, CIPC2581_PolyLine, CIPC2581_Cutout>;
TYPED_TEST_SUITE(ContourShape, Contours);

TYPED_TEST(ContourShape, StartsAtZeroWithoutSteps)
{
    ASSERT_NE(this->shape.PolyBegin, nullptr);
    ASSERT_NE(this->shape.PolyStepArray, nullptr);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{0, 0}));
    EXPECT_EQ(this->shape.PolyStepArray->GetSize(), 0);
}

TYPED_TEST(ContourShape, FieldsFollowTheType)
{
    EXPECT_LT(static_cast<const void *>(&this->shape.DrawType), static_cast<const void *>(&this->shape.PolyBegin));
    EXPECT_LT(static_cast<const void *>(&this->shape.PolyBegin), static_cast<const void *>(&this->shape.PolyStepArray));
}

TYPED_TEST(ContourShape, GettersGiveTheOwnedObjects)
{
    EXPECT_EQ(this->shape.GetPolyBegin(), this->shape.PolyBegin);
    EXPECT_EQ(this->shape.GetPolyStepArray(), this->shape.PolyStepArray);
}

TYPED_TEST(ContourShape, SettersCopyDeeply)
{
    const CIPC2581_Point * begin = this->shape.PolyBegin;
    const CIPC2581_PolyStepArray * steps = this->shape.PolyStepArray;
    {
        TypeParam other;
        this->Fill(other);
        this->shape.SetPolyBegin(other.PolyBegin);
        this->shape.SetPolyStepArray(other.PolyStepArray);
    }
    EXPECT_EQ(this->shape.PolyBegin, begin);
    EXPECT_EQ(this->shape.PolyStepArray, steps);
    this->ExpectFilled(this->shape);
}

TYPED_TEST(ContourShape, ReadingOperationsAreNotVirtual)
{
    EXPECT_FALSE(IsVirtual(&TypeParam::PolyBeginAdd));
    EXPECT_FALSE(IsVirtual(&TypeParam::SegmentAdd));
    EXPECT_FALSE(IsVirtual(&TypeParam::CurveAdd));
}

TYPED_TEST(ContourShape, EmptyTokenListLeavesTheBeginAndAppendsStepsAtZero)
{
    this->shape.PolyBegin->GetPoint()->SetData(1, 2);
    CArray<CString, CString> none;
    this->shape.PolyBeginAdd(none);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{1, 2}));
    this->shape.SegmentAdd(none);
    this->shape.CurveAdd(none);
    EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), (Steps{{0, 0, 0}, {1, 0, 0}}));
}

// The rows for x and y, which begin points, segments and curves share; 8, 9 stands for a value that is kept.
const struct {
    const char * attributes;
    Begin before;
    Begin after;
} g_coordinates[] = {
    {R"(x="1.5" y="-2" />)", {8, 9}, {1.5, -2}},
    {R"(y="-2" x="1.5"/>)", {8, 9}, {1.5, -2}},
    {R"(x="1" >)", {8, 9}, {1, 9}},
    {R"(y="1" >)", {8, 9}, {8, 1}},
    {">", {8, 9}, {8, 9}},
    {R"(X="1" Y="2" />)", {8, 9}, {8, 9}},
    {R"(x = "1" y = "2" />)", {8, 9}, {8, 9}},
    {R"(x="1" x="3" />)", {8, 9}, {3, 9}},
    {R"(x="1"y="2" />)", {8, 9}, {1, 9}},
    {R"(y="2"x="1" />)", {8, 9}, {2, 9}},
    {R"(maxx="4" by="5" />)", {8, 9}, {4, 5}},
    {R"(x="1" kind="x=" />)", {8, 9}, {0, 9}},
    {R"(x="" y="two" />)", {8, 9}, {0, 0}},
    {R"(x="1.5mm" y="1e2" />)", {8, 9}, {1.5, 100}},
    {R"(x="1/2" y="/3" />)", {8, 9}, {12, 3}},
    {R"(x="1 2" y="3" />)", {8, 9}, {1, 3}},
    {R"(x="  5" y="6 " />)", {8, 9}, {5, 6}},
    {R"(x=1 y="2" />)", {8, 9}, {1, 9}},
    {R"(x='1' y='2" />)", {8, 9}, {0, 9}},
};

TYPED_TEST(ContourShape, BeginPointTakesItsCoordinates)
{
    for (const auto & row : g_coordinates) {
        SCOPED_TRACE(row.attributes);
        this->shape.PolyBegin->GetPoint()->SetData(row.before.x, row.before.y);
        Tokens tokens(std::string("<PolyBegin ") + row.attributes);
        this->shape.PolyBeginAdd(tokens);
        EXPECT_EQ(BeginOf(*this->shape.PolyBegin), row.after);
    }
    EXPECT_EQ(this->shape.PolyStepArray->GetSize(), 0);
}

TYPED_TEST(ContourShape, BeginPointTakesNothingElse)
{
    this->shape.PolyBegin->GetPoint()->SetData(8, 9);
    Tokens tokens(R"(<PolyBegin centerX="1" centerY="2" clockwise="FALSE" />)");
    this->shape.PolyBeginAdd(tokens);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{8, 9}));
}

TYPED_TEST(ContourShape, FirstTokenIsScannedToo)
{
    Tokens begin(R"(<PolyBeginx="3"/>)");
    this->shape.PolyBeginAdd(begin);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{3, 0}));
    Tokens segment(R"(<PolyStepSegmenty="4" x="5"/>)");
    this->shape.SegmentAdd(segment);
    Tokens curve(R"(<PolyStepCurvecenterX="6"/>)");
    this->shape.CurveAdd(curve);
    EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), (Steps{{0, 5, 4}, {1, 0, 0, 6}}));
}

// What is kept is 0 in a new step.
TYPED_TEST(ContourShape, StepsTakeTheirCoordinates)
{
    for (const auto & row : g_coordinates) {
        SCOPED_TRACE(row.attributes);
        Reset(this->shape);
        Tokens segment(std::string("<PolyStepSegment ") + row.attributes);
        this->shape.SegmentAdd(segment);
        Tokens curve(std::string("<PolyStepCurve ") + row.attributes);
        this->shape.CurveAdd(curve);
        const double x = row.after.x == row.before.x ? 0 : row.after.x;
        const double y = row.after.y == row.before.y ? 0 : row.after.y;
        EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), (Steps{{0, x, y}, {1, x, y}}));
    }
}

TYPED_TEST(ContourShape, SegmentTakesNothingElse)
{
    Tokens tokens(R"(<PolyStepSegment centerX="1" centerY="2" clockwise="TRUE" />)");
    this->shape.SegmentAdd(tokens);
    EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), (Steps{{0, 0, 0}}));
}

TYPED_TEST(ContourShape, CurveTakesItsCentre)
{
    const struct {
        const char * line;
        Step step;
    } cases[] = {
        {R"(<PolyStepCurve centerX="3" centerY="4" />)", {1, 0, 0, 3, 4}},
        {R"(<PolyStepCurve centerY="4"/>)", {1, 0, 0, 0, 4}},
        {R"(<PolyStepCurve centerX="-3.5"/>)", {1, 0, 0, -3.5, 0}},
        {R"(<PolyStepCurve epicenterX="3" centery="4" />)", {1, 0, 4, 3, 0}},
        {R"(<PolyStepCurve centerX="three" centerY="4 5" />)", {1, 0, 0, 0, 4}},
        {R"(<PolyStepCurve centerX=3 centerY="4" />)", {1, 0, 0, 3, 0}},
    };
    for (const auto & row : cases) {
        Reset(this->shape);
        Tokens tokens(row.line);
        this->shape.CurveAdd(tokens);
        EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), Steps{row.step}) << row.line;
    }
}

// The first attribute in the order of the tests takes a token that holds two of them.
TYPED_TEST(ContourShape, CurveTestsItsAttributesInTheirOrder)
{
    const struct {
        const char * line;
        Step step;
    } cases[] = {
        {R"(<PolyStepCurve y="6"x="5" />)", {1, 6, 0}},
        {R"(<PolyStepCurve centerX="6"x="5" />)", {1, 6, 0}},
        {R"(<PolyStepCurve centerX="6"y="5" />)", {1, 0, 6}},
        {R"(<PolyStepCurve centerY="6"centerX="5" />)", {1, 0, 0, 6, 0}},
        {R"(<PolyStepCurve clockwise="6"centerY="5" />)", {1, 0, 0, 0, 6}},
        {R"(<PolyStepCurve clockwise="6"x="5" />)", {1, 6, 0}},
    };
    for (const auto & row : cases) {
        Reset(this->shape);
        Tokens tokens(row.line);
        this->shape.CurveAdd(tokens);
        EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), Steps{row.step}) << row.line;
    }
}

// The sense is the reverse of the written one.
TYPED_TEST(ContourShape, CurveTurnsItsDirectionRound)
{
    const struct {
        const char * attribute;
        int clockWise;
    } cases[] = {
        {"", 1},
        {R"(Clockwise="TRUE")", 1},
        {R"(clockwise="FALSE")", 1},
        {R"(clockwise="false")", 1},
        {R"(clockwise="TRUE")", 0},
        {R"(clockwise="true")", 0},
        {R"(clockwise="False")", 0},
        {R"(clockwise="FALSe")", 0},
        {R"(clockwise="")", 0},
        {R"(clockwise="0")", 0},
        {R"(clockwise="1")", 0},
        {R"(clockwise="notFALSEatall")", 1},
        {R"(clockwise="notfalseatall")", 1},
        {R"(clockwise="FAL/SE")", 1},
        {R"(anticlockwise="TRUE")", 0},
        {R"(clockwise="TRUE" clockwise="FALSE")", 1},
        {R"(clockwise="FALSE" clockwise="TRUE")", 0},
    };
    for (const auto & row : cases) {
        Reset(this->shape);
        Tokens tokens(std::string("<PolyStepCurve ") + row.attribute + " />");
        this->shape.CurveAdd(tokens);
        EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), (Steps{{1, 0, 0, 0, 0, row.clockWise}})) << row.attribute;
    }
}

// A value without "FALSE" is taken a second time, from the token on which the first taking ended; where the value
// runs over several tokens, the second one swallows what follows.
TYPED_TEST(ContourShape, DirectionIsTakenTwiceUnlessItIsFalse)
{
    const struct {
        const char * attributes;
        Step step;
    } cases[] = {
        {R"(clockwise="a FALSE" x="5" y="6")", {1, 5, 6, 0, 0, 1}},
        {R"(clockwise="FALSE a" x="5" y="6")", {1, 5, 6, 0, 0, 1}},
        {R"(clockwise="a b" x="5" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise="a b c" x="5" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise="a b" any x="5" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise="a false" x="5" y="6")", {1, 0, 6, 0, 0, 1}},
        {R"(clockwise="false a" x="5" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise="a b" kind="false" y="6")", {1, 0, 6, 0, 0, 1}},
        {R"(clockwise="a b" kind="FALSE" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise=TRUE x="5" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise=false x="5" y="6")", {1, 0, 6, 0, 0, 0}},
        {R"(clockwise=FALSE x="5" y="6")", {1, 0, 6, 0, 0, 1}},
        {R"(clockwise=TRUE kind="false" y="6")", {1, 0, 6, 0, 0, 1}},
    };
    for (const auto & row : cases) {
        Reset(this->shape);
        Tokens tokens(std::string("<PolyStepCurve ") + row.attributes + " />");
        this->shape.CurveAdd(tokens);
        EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), Steps{row.step}) << row.attributes;
    }
}

TYPED_TEST(ContourShape, DirectionOfTwoWordsAtTheEndRaisesInTheSecondTaking)
{
    for (const char * line : {R"(<PolyStepCurve clockwise="a b")", R"(<PolyStepCurve clockwise="a b" />)",
                              R"(<PolyStepCurve clockwise="a false">)"}) {
        Tokens tokens(line);
        EXPECT_THROW(this->shape.CurveAdd(tokens), CInvalidArgException) << line;
    }
    Tokens closed(R"(<PolyStepCurve clockwise="a FALSE" />)");
    this->shape.CurveAdd(closed);
    EXPECT_EQ(StepsOf(*this->shape.PolyStepArray), (Steps{{1, 0, 0}}));
}

TYPED_TEST(ContourShape, ValueThatIsNotClosedRaisesAndAppendsNothing)
{
    this->Fill(this->shape);
    for (const char * attributes : {R"(x="open)", R"(x="3" y="open />)", "y=4 />", "y=4"}) {
        Tokens tokens(std::string("<PolyStepCurve ") + attributes);
        EXPECT_THROW(this->shape.SegmentAdd(tokens), CInvalidArgException) << attributes;
        EXPECT_THROW(this->shape.CurveAdd(tokens), CInvalidArgException) << attributes;
    }
    for (const char * attributes : {R"(centerX="open)", "centerY=4 />", "clockwise=TRUE", R"(clockwise="FALSE />)"}) {
        Tokens tokens(std::string("<PolyStepCurve ") + attributes);
        EXPECT_THROW(this->shape.CurveAdd(tokens), CInvalidArgException) << attributes;
    }
    this->ExpectFilled(this->shape);
}

TYPED_TEST(ContourShape, BeginPointKeepsWhatStandsBeforeACutValue)
{
    Tokens tokens(R"(<PolyBegin x="3" y="open />)");
    EXPECT_THROW(this->shape.PolyBeginAdd(tokens), CInvalidArgException);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{3, 0}));
}

TYPED_TEST(ContourShape, StepsOfTheSameLineAreNotEqual)
{
    Tokens tokens(R"(<PolyStepSegment x="3" y="4" />)");
    this->shape.SegmentAdd(tokens);
    this->shape.SegmentAdd(tokens);
    const CIPC2581_PolyStepArray & steps = *this->shape.PolyStepArray;
    ASSERT_EQ(steps.GetSize(), 2);
    EXPECT_EQ(steps.GetAt(0)->operator==(*steps.GetAt(1)), 0);
}

TYPED_TEST(ContourShape, CopiesAreDeep)
{
    this->Fill(this->shape);
    const TypeParam copy(this->shape);
    const std::unique_ptr<TypeParam> clone(this->shape.clone());
    TypeParam target;
    Tokens tokens(R"(<PolyStepSegment x="9" />)");
    target.SegmentAdd(tokens);
    const CIPC2581_Point * begin = target.PolyBegin;
    const CIPC2581_PolyStepArray * steps = target.PolyStepArray;
    EXPECT_EQ(&(target = this->shape), &target);
    EXPECT_EQ(target.PolyBegin, begin);
    EXPECT_EQ(target.PolyStepArray, steps);
    this->shape.PolyBegin->SetPoint_X(9);
    this->shape.PolyStepArray->GetAt(0)->SetEndPointX(9);
    this->shape.PolyStepArray->DeleteLastElement();
    this->ExpectFilled(copy);
    this->ExpectFilled(*clone);
    this->ExpectFilled(target);
}

TYPED_TEST(ContourShape, AssignmentToItselfDoesNothing)
{
    this->Fill(this->shape);
    const CIPC2581_PolyStep * first = this->shape.PolyStepArray->GetAt(0);
    const TypeParam & same = this->shape;
    this->shape = same;
    this->ExpectFilled(this->shape);
    EXPECT_EQ(this->shape.PolyStepArray->GetAt(0), first);
}

TYPED_TEST(ContourShape, AssignmentThroughTheBaseLeavesTheParts)
{
    this->Fill(this->shape);
    TypeParam source;
    source.SetDrawType(5);
    CIPC2581_DrawObj & base = this->shape;
    base = source;
    EXPECT_EQ(this->shape.GetDrawType(), 5);
    this->ExpectFilled(this->shape);
}

TYPED_TEST(ContourShape, ResetGivesTheStateOfANewOne)
{
    this->Fill(this->shape);
    const int type = this->shape.GetDrawType();
    this->shape.SetDrawType(5);
    Reset(this->shape);
    EXPECT_EQ(this->shape.GetDrawType(), type);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{0, 0}));
    EXPECT_EQ(this->shape.PolyStepArray->GetSize(), 0);
}

TYPED_TEST(ContourShape, ResetMakesMissingParts)
{
    delete this->shape.PolyBegin;
    delete this->shape.PolyStepArray;
    this->shape.PolyBegin = nullptr;
    this->shape.PolyStepArray = nullptr;
    Reset(this->shape);
    ASSERT_NE(this->shape.PolyBegin, nullptr);
    ASSERT_NE(this->shape.PolyStepArray, nullptr);
    EXPECT_EQ(BeginOf(*this->shape.PolyBegin), (Begin{0, 0}));
    EXPECT_EQ(this->shape.PolyStepArray->GetSize(), 0);
}

TYPED_TEST(ContourShape, DestructorToleratesMissingParts)
{
    auto made = std::make_unique<TypeParam>();
    delete made->PolyBegin;
    delete made->PolyStepArray;
    made->PolyBegin = nullptr;
    made->PolyStepArray = nullptr;
    EXPECT_NO_FATAL_FAILURE(made.reset());
}

}  // namespace
