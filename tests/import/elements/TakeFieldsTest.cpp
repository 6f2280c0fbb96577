#include "import/elements/TakeFields.h"

#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "ipc2581/base/Codes.h"
#include "ipc2581/ipc2581.h"
#include "tests/import/support/Documents.h"
#include "tests/support/Files.h"

namespace ipc2581::detail {
namespace {

using tests::Texts;

std::string Taken(std::string_view value)
{
    ObjectBlocks blocks;
    CString text;
    TakeText(value, text, blocks);
    return tests::Str(text);
}

TEST(TakeText, WritesFourCharactersAsEntities)
{
    EXPECT_EQ(Taken("plain"), "plain");
    EXPECT_EQ(Taken(""), "");
    EXPECT_EQ(Taken("a&b<c>d\"e'f"), "a&amp;b&lt;c&gt;d&quot;e'f");
    EXPECT_EQ(Taken("&amp;"), "&amp;amp;");
    EXPECT_EQ(Taken("\u00E4\u20AC\n\t"), "\u00E4\u20AC\n\t");
}

TEST(TakeText, WritesOverWhatWasThere)
{
    ObjectBlocks blocks;
    CString text = "before";
    TakeText("", text, blocks);
    EXPECT_EQ(tests::Str(text), "");
}

struct NumberCase {
    const char * value;
    double number;
    bool isNumber = true;
};

class TakeNumberOfText : public testing::TestWithParam<NumberCase> {};

// The parser of numbers looks ahead of a value, so each stands in a text of its own.
TEST_P(TakeNumberOfText, ReadsNumbersOfXml)
{
    const std::string text = "        " + std::string(GetParam().value) + "        ";
    double number = 99;
    EXPECT_EQ(TakeNumber(std::string_view(text).substr(8, text.size() - 16), number), GetParam().isNumber);
    EXPECT_EQ(number, GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Values, TakeNumberOfText,
    testing::Values(NumberCase{"0", 0}, NumberCase{"1.5", 1.5}, NumberCase{"-1.5", -1.5}, NumberCase{"+1.5", 1.5},
                    NumberCase{".5", 0.5}, NumberCase{"5.", 5}, NumberCase{"1e3", 1000}, NumberCase{"1.5E-3", 0.0015},
                    NumberCase{"1e+2", 100}, NumberCase{" 1.5 ", 1.5}, NumberCase{"\t1\n", 1}, NumberCase{"-0", 0},
                    NumberCase{"0.1234567890123456789", 0.1234567890123456789},
                    NumberCase{"123456789012345", 123456789012345}, NumberCase{"", 0, false}, NumberCase{" ", 0, false},
                    NumberCase{"x", 0, false}, NumberCase{"1x", 1, false}, NumberCase{"1,5", 1, false},
                    NumberCase{"1 2", 1, false}, NumberCase{"1.2.3", 1.2, false}, NumberCase{"--1", 0, false},
                    NumberCase{"1e", 1, false}, NumberCase{"e1", 0, false}, NumberCase{".", 0, false},
                    NumberCase{"-", 0, false}, NumberCase{"1e308", 1e308}, NumberCase{"1e999", HUGE_VAL, false},
                    NumberCase{"-1e999", -HUGE_VAL, false}));

TEST(TakeNumber, RefusesTheNamedNumbersOfXml)
{
    double number = 0;
    for (const std::string_view value : {"NaN", "INF", "-INF", "0x10"}) {
        EXPECT_FALSE(TakeNumber(std::string("        ").append(value), number) &&
                     TakeNumber(std::string("        ").append(value).substr(8), number))
            << value;
    }
}

// The value with bytes in front of it, which may be read.
bool ReadsInteger(const std::string & value, int & number)
{
    const std::string text = "        " + value;
    return TakeInteger(std::string_view(text).substr(8), number);
}

TEST(TakeInteger, ReadsWholeNumbers)
{
    int number = 99;
    EXPECT_TRUE(ReadsInteger("12", number));
    EXPECT_EQ(number, 12);
    EXPECT_TRUE(ReadsInteger(" -3 ", number));
    EXPECT_EQ(number, -3);
    EXPECT_TRUE(ReadsInteger("+7", number));
    EXPECT_EQ(number, 7);
    EXPECT_FALSE(ReadsInteger("", number));
    EXPECT_FALSE(ReadsInteger("twelve", number));
    EXPECT_FALSE(ReadsInteger("12th", number));
    EXPECT_EQ(number, 12);
    EXPECT_TRUE(ReadsInteger("4.0", number));
    EXPECT_EQ(number, 4);
    EXPECT_TRUE(ReadsInteger("1e3", number));
    EXPECT_EQ(number, 1000);
    EXPECT_TRUE(ReadsInteger("-2147483648", number));
    EXPECT_EQ(number, -2147483647 - 1);
}

TEST(TakeInteger, LeavesNumbersThatAnIntegerCannotHold)
{
    int number = 99;
    EXPECT_FALSE(ReadsInteger("3.7", number));
    EXPECT_EQ(number, 3);
    EXPECT_FALSE(ReadsInteger("99999999999", number));
    EXPECT_FALSE(ReadsInteger("2147483648", number));
    EXPECT_FALSE(ReadsInteger("1e999", number));
}

TEST(TakeTruth, ReadsTheTruthValuesOfXml)
{
    bool isTrue = false;
    for (const char * const value : {"true", "1", "TRUE", "True", " true "}) {
        isTrue = false;
        EXPECT_TRUE(TakeTruth(value, isTrue)) << value;
        EXPECT_TRUE(isTrue) << value;
        EXPECT_TRUE(IsTrue(value)) << value;
    }
    for (const char * const value : {"false", "0", "FALSE", "False", "\tfalse\n"}) {
        isTrue = true;
        EXPECT_TRUE(TakeTruth(value, isTrue)) << value;
        EXPECT_FALSE(isTrue) << value;
        EXPECT_FALSE(IsTrue(value)) << value;
    }
    for (const char * const value : {"", "yes", "2", "01", "truely", "t", "TURE"}) {
        EXPECT_FALSE(TakeTruth(value, isTrue)) << value;
        EXPECT_FALSE(IsTrue(value)) << value;
    }
}

TEST(TakeForm, ReadsTheWordsOfOuterForms)
{
    int form = OuterForms::Unknown;
    EXPECT_TRUE(TakeForm("ROUND", form));
    EXPECT_EQ(form, OuterForms::Round);
    EXPECT_TRUE(TakeForm(" OCTAGON ", form));
    EXPECT_EQ(form, OuterForms::Octagon);
    EXPECT_FALSE(TakeForm("round", form));
    EXPECT_FALSE(TakeForm("STAR", form));
    EXPECT_FALSE(TakeForm("", form));
    EXPECT_EQ(form, OuterForms::Octagon);
}

// An element with these attributes in a tree of its own.
class OneElement {
public:
    explicit OneElement(std::span<const XmlAttribute> attributes)
    {
        m_tree.Open(W("Component"), 1, attributes);
        m_tree.Close();
    }

    XmlElement Element() { return m_tree.Root(); }
    Texts Losses()
    {
        LossRecorder losses;
        m_tree.ReportLost(losses, losses.PathOf(0, W("IPC-2581")), 0);
        return tests::Losses(losses.Take(WordTable()));
    }

private:
    Tree m_tree;
};

TEST(TakeFields, TakesWhatTheTableKnows)
{
    const std::array<XmlAttribute, 4> attributes = {
        {{W("refDes"), "U<1>"}, {W("height"), "1.5"}, {W("side"), "TOP"}, {W("part"), "P"}}};
    OneElement element(attributes);
    ObjectBlocks blocks;
    CIPC2581_Ecad_CadData_Step_Component component;
    TakeFields<Fields<CIPC2581_Ecad_CadData_Step_Component>::Component>(element.Element(), component, blocks);
    EXPECT_EQ(tests::Str(component.RefDes), "U&lt;1&gt;");
    EXPECT_EQ(component.Height, 1.5);
    EXPECT_EQ(tests::Str(component.Part), "P");
    EXPECT_EQ(element.Losses(), (Texts{"Component side=TOP"}));
}

TEST(TakeFields, TakesNamesWhollyAndNotByTheirEnds)
{
    const std::array<XmlAttribute, 2> attributes = {{{W("outerDiameter"), "3"}, {W("diameter"), "2"}}};
    OneElement element(attributes);
    ObjectBlocks blocks;
    CIPC2581_DicDraw_Circle circle;
    TakeFields<Fields<CIPC2581_DicDraw_Circle>::Circle>(element.Element(), circle, blocks);
    EXPECT_EQ(circle.Diameter, 2);
    EXPECT_EQ(element.Losses(), (Texts{"Component outerDiameter=3"}));
}

TEST(TakeFields, LeavesAValueThatCannotBeReadForTheReport)
{
    const std::array<XmlAttribute, 1> attributes = {{{W("height"), "tall"}}};
    OneElement element(attributes);
    ObjectBlocks blocks;
    CIPC2581_Ecad_CadData_Step_Component component;
    TakeFields<Fields<CIPC2581_Ecad_CadData_Step_Component>::Component>(element.Element(), component, blocks);
    EXPECT_EQ(component.Height, 0);
    EXPECT_EQ(element.Losses(), (Texts{"Component height=tall"}));
}

TEST(TakeFields, ReachesMembersOfParts)
{
    const std::array<XmlAttribute, 4> attributes = {
        {{W("startX"), "1"}, {W("startY"), "2"}, {W("endX"), "3"}, {W("endY"), "4"}}};
    OneElement element(attributes);
    ObjectBlocks blocks;
    CIPC2581_Line line;
    TakeFields<Fields<CIPC2581_Line>::Line>(element.Element(), line, blocks);
    EXPECT_EQ(*line.StartPoint->Point, CPointD(1, 2));
    EXPECT_EQ(*line.EndPoint->Point, CPointD(3, 4));
    EXPECT_EQ(element.Losses(), Texts());
}

TEST(TakeFields, TurnsADirectionRound)
{
    for (const auto & [value, clockWise] : {std::pair("true", 0), std::pair("0", 1), std::pair("FALSE", 1)}) {
        const std::array<XmlAttribute, 1> attributes = {{{W("clockwise"), value}}};
        OneElement element(attributes);
        ObjectBlocks blocks;
        CIPC2581_PolyStep step;
        TakeFields<Fields<CIPC2581_PolyStep>::PolyStepCurve>(element.Element(), step, blocks);
        EXPECT_EQ(step.ClockWise, clockWise) << value;
    }
}

TEST(TakeFields, TakesOneTextOrNumberAlone)
{
    const std::array<XmlAttribute, 3> attributes = {{{W("name"), "a&b"}, {W("x"), "2"}, {W("y"), "two"}}};
    OneElement element(attributes);
    ObjectBlocks blocks;
    CString text = "before";
    double number = 99;
    TakeTextOf(element.Element(), W("side"), text, blocks);
    TakeNumberOf(element.Element(), W("width"), number);
    EXPECT_EQ(tests::Str(text), "before");
    EXPECT_EQ(number, 99);
    TakeTextOf(element.Element(), W("name"), text, blocks);
    TakeNumberOf(element.Element(), W("x"), number);
    EXPECT_EQ(tests::Str(text), "a&amp;b");
    EXPECT_EQ(number, 2);
    TakeNumberOf(element.Element(), W("y"), number);
    EXPECT_EQ(element.Losses(), (Texts{"Component y=two"}));
}

TEST(TakeXform, TakesAllThatATransformSays)
{
    const std::array<XmlAttribute, 6> attributes = {{{W("xOffset"), "1"},
                                                     {W("yOffset"), "2"},
                                                     {W("rotation"), "90"},
                                                     {W("mirror"), "true"},
                                                     {W("scale"), "3"},
                                                     {W("name"), "n"}}};
    OneElement element(attributes);
    CIPC2581_Xform xform;
    TakeXform(element.Element(), xform);
    EXPECT_EQ(xform.XOffset, 1);
    EXPECT_EQ(xform.YOffset, 2);
    EXPECT_EQ(xform.Rotation, 90);
    EXPECT_EQ(xform.Mirror, 1);
    EXPECT_EQ(xform.Scale, 3);
    EXPECT_EQ(element.Losses(), (Texts{"Component name=n"}));
}

TEST(TakeXform, LeavesWhatIsNotThere)
{
    OneElement element({});
    CIPC2581_Xform xform;
    TakeXform(element.Element(), xform);
    EXPECT_EQ(xform.Mirror, 0);
    EXPECT_EQ(xform.Scale, 0);
    EXPECT_EQ(element.Losses(), Texts());
}

TEST(TakeXform, ReportsAMirrorThatIsNoTruthValue)
{
    const std::array<XmlAttribute, 1> attributes = {{{W("mirror"), "maybe"}}};
    OneElement element(attributes);
    CIPC2581_Xform xform;
    TakeXform(element.Element(), xform);
    EXPECT_EQ(xform.Mirror, 0);
    EXPECT_EQ(element.Losses(), (Texts{"Component mirror=maybe"}));
}

}  // namespace
}  // namespace ipc2581::detail
