#include "ipc2581/draw/LineDesc.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/draw/Arc.h"
#include "ipc2581/draw/Line.h"
#include "ipc2581/draw/Outline.h"
#include "ipc2581/draw/PolyLine.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

CIPC2581_LineDesc Made(int shape, double width, const char * end)
{
    CIPC2581_LineDesc lineDesc;
    lineDesc.SetShape(shape);
    lineDesc.SetLineWidth(width);
    lineDesc.LineEnd = end;
    return lineDesc;
}

void ExpectFields(const CIPC2581_LineDesc & lineDesc, int shape, double width, const char * end)
{
    EXPECT_EQ(lineDesc.Shape, shape);
    EXPECT_EQ(lineDesc.LineWidth, width);
    EXPECT_EQ(lineDesc.LineEnd, end);
}

TEST(LineDesc, StartsRoundWithoutWidth)
{
    ExpectFields(CIPC2581_LineDesc(), 0, 0, "ROUND");
}

TEST(LineDesc, AccessorsGiveTheFields)
{
    const CIPC2581_LineDesc lineDesc = Made(3, 0.5, "SQUARE");
    EXPECT_EQ(lineDesc.GetShape(), 3);
    EXPECT_EQ(lineDesc.GetLineWidth(), 0.5);
    ExpectFields(lineDesc, 3, 0.5, "SQUARE");
}

TEST(LineDesc, FieldsStandInTheirOrder)
{
    const CIPC2581_LineDesc lineDesc;
    const std::vector<const void *> fields{&lineDesc.Shape, &lineDesc.LineWidth, &lineDesc.LineEnd};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST(LineDesc, ShapeLeavesTheLineEndAlone)
{
    CIPC2581_LineDesc lineDesc;
    lineDesc.SetShape(1);
    EXPECT_EQ(lineDesc.LineEnd, "ROUND");
}

TEST(LineDesc, InitGivesTheStateOfANewOne)
{
    CIPC2581_LineDesc lineDesc = Made(3, 0.5, "SQUARE");
    lineDesc.Init();
    ExpectFields(lineDesc, 0, 0, "ROUND");
}

TEST(LineDesc, CopiesAllFields)
{
    CIPC2581_LineDesc source = Made(3, 0.5, "SQUARE");
    const CIPC2581_LineDesc copy(source);
    const std::unique_ptr<CIPC2581_LineDesc> clone(source.clone());
    CIPC2581_LineDesc target;
    EXPECT_EQ(&(target = source), &target);
    const CIPC2581_LineDesc & same = target;
    target = same;
    source.Init();
    ExpectFields(copy, 3, 0.5, "SQUARE");
    ExpectFields(*clone, 3, 0.5, "SQUARE");
    ExpectFields(target, 3, 0.5, "SQUARE");
}

TEST(LineDesc, IsWrittenWithEndAndWidth)
{
    CIPC2581_LineDesc lineDesc = Made(3, 0.5, "SQUARE");
    EXPECT_EQ(Exported(lineDesc).result, 1);
    EXPECT_EQ(Written(lineDesc, 0), Joined({R"(   <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />)"}));
    EXPECT_EQ(Written(lineDesc, 2), Joined({R"(         <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />)"}));
    EXPECT_EQ(Written(lineDesc, -1), Joined({R"(<LineDesc lineEnd="SQUARE" lineWidth="0.500000" />)"}));
}

TEST(LineDesc, LineEndIsWrittenWhateverItIs)
{
    CIPC2581_LineDesc lineDesc = Made(0, -1, "");
    EXPECT_EQ(Written(lineDesc), Joined({R"(   <LineDesc lineEnd="" lineWidth="-1.000000" />)"}));
    lineDesc.LineEnd = "a & <b>";
    EXPECT_EQ(Written(lineDesc), Joined({R"(   <LineDesc lineEnd="a & <b>" lineWidth="-1.000000" />)"}));
}

TEST(LineDesc, OrderOfVirtualOperations)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_LineDesc>);
    EXPECT_EQ(Slot(&CIPC2581_LineDesc::clone), 2U);
    EXPECT_EQ(Slot(&CIPC2581_LineDesc::operator=), 3U);
    EXPECT_EQ(Slot(&CIPC2581_LineDesc::Export), 4U);
}

// The line description of each shape that reads one; it starts as 4, 9, "KEPT".
template <typename Shape>
class LineDescReader : public testing::Test {
public:
    LineDescReader() { *shape.LineDesc = Made(4, 9, "KEPT"); }

    int Read(const char * line)
    {
        Lines file{line};
        return shape.Import(file.File());
    }

    Shape shape;
};

using Holders = testing::Types<CIPC2581_Line, CIPC2581_Arc, CIPC2581_PolyLine, CIPC2581_Outline>;
TYPED_TEST_SUITE(LineDescReader, Holders);

TYPED_TEST(LineDescReader, TakesEndAndWidth)
{
    const struct {
        const char * line;
        double width;
        const char * end;
    } cases[] = {
        {R"(<LineDesc lineEnd="SQUARE" lineWidth="0.25" />)", 0.25, "SQUARE"},
        {R"(   <LineDesc lineWidth="0.25" lineEnd="SQUARE"/>)", 0.25, "SQUARE"},
        {R"(<LineDesc lineEnd="NO SUCH  END" lineWidth="1"/>)", 1, "NO SUCH END"},
        {R"(<LineDesc lineEnd="" lineWidth=""/>)", 0, ""},
        {R"(<LineDesc lineWidth="1"/>)", 1, "KEPT"},
        {R"(<LineDesc lineEnd="A"/>)", 9, "A"},
        {R"(<LineDesc shape="1" width="2" end="A"/>)", 9, "KEPT"},
        {R"(<LineDesc LineEnd="A" linewidth="2"/>)", 9, "KEPT"},
        {R"(<LineDesc lineEnd = "A" lineWidth = "2"/>)", 9, "KEPT"},
        {R"(<LineDesc lineEnd="A" lineEnd="B" lineWidth="1" lineWidth="2"/>)", 2, "B"},
        {R"(<LineDesc lineEnd="A"lineWidth="2">)", 9, "AlineWidth=2"},
        {R"(<LineDesc lineWidth="2"lineEnd="A">)", 9, "2lineEnd=A"},
        {R"(<LineDesc outlineEnd="B" mylineWidth="3">)", 3, "B"},
        {R"(<LineDesc lineWidth="wide">)", 0, "KEPT"},
        {R"(<LineDesc lineWidth="1e1mm">)", 10, "KEPT"},
        {R"(<LineDesc lineWidth="1/2" lineEnd="A/B">)", 12, "AB"},
        {R"(<LineDesc lineWidth=" -3">)", -3, "KEPT"},
        {R"(<LineDesc lineEnd=A lineWidth="2">)", 9, "A 2"},
        {R"(<LineDesc lineWidth=2 lineEnd="A">)", 2, "KEPT"},
        {R"(<LineDesclineEnd="A">)", 9, "A>"},
        {R"(<lineEnd="A"LineDesc lineWidth="2">)", 2, "ALineDesc"},
        {R"(<MyLineDescs lineWidth="2">)", 2, "KEPT"},
        {R"(<Linedesc lineWidth="2">)", 9, "KEPT"},
        {R"(<Any LineDesc lineWidth="2">)", 9, "KEPT"},
        {"<LineDesc>", 9, "KEPT"},
    };
    for (const auto & row : cases) {
        SCOPED_TRACE(row.line);
        *this->shape.LineDesc = Made(4, 9, "KEPT");
        EXPECT_EQ(this->Read(row.line), 1);
        ExpectFields(*this->shape.LineDesc, 4, row.width, row.end);
    }
}

TYPED_TEST(LineDescReader, ValueThatIsNotClosedRaisesBehindWhatStandsBefore)
{
    EXPECT_THROW(this->Read(R"(<LineDesc lineWidth="2" lineEnd="open />)"), CInvalidArgException);
    ExpectFields(*this->shape.LineDesc, 4, 2, "KEPT");
    EXPECT_THROW(this->Read(R"(<LineDesc lineEnd="A" lineWidth=1 />)"), CInvalidArgException);
    ExpectFields(*this->shape.LineDesc, 4, 2, "A");
}

TYPED_TEST(LineDescReader, LaterDescriptionOverwrites)
{
    Lines file{R"(<LineDesc lineEnd="A" lineWidth="1" />)", R"(<LineDesc lineWidth="2" />)"};
    EXPECT_EQ(this->shape.Import(file.File()), 1);
    ExpectFields(*this->shape.LineDesc, 4, 2, "A");
}

TYPED_TEST(LineDescReader, ClosingLineEndsNothing)
{
    Lines file{R"(<LineDesc lineEnd="A" >)", "</LineDesc>", "</LineDesc >", R"(<LineDesc lineWidth="2">)"};
    EXPECT_EQ(this->shape.Import(file.File()), 1);
    EXPECT_TRUE(file.Rest().empty());
    ExpectFields(*this->shape.LineDesc, 4, 2, "A");
}

TYPED_TEST(LineDescReader, GetterGivesTheOwnedObjectAndSetterCopies)
{
    const CIPC2581_LineDesc * owned = this->shape.LineDesc;
    {
        CIPC2581_LineDesc value = Made(3, 0.5, "SQUARE");
        this->shape.SetLineDesc(&value);
    }
    EXPECT_EQ(this->shape.GetLineDesc(), owned);
    ExpectFields(*owned, 3, 0.5, "SQUARE");
}

}  // namespace
