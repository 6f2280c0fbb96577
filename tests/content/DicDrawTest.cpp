#include "ipc2581/content/DicDraw.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/draw/DrawObj.h"
#include "tests/content/DicDraws.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Butterfly = CIPC2581_DicDraw_Butterfly;
using Circle = CIPC2581_DicDraw_Circle;
using Diamond = CIPC2581_DicDraw_Diamond;
using Donut = CIPC2581_DicDraw_Donut;
using Ellipse = CIPC2581_DicDraw_Ellipse;
using Hexagon = CIPC2581_DicDraw_Hexagon;
using Moire = CIPC2581_DicDraw_Moire;
using Octagon = CIPC2581_DicDraw_Octagon;
using Oval = CIPC2581_DicDraw_Oval;
using RectCenter = CIPC2581_DicDraw_RectCenter;
using RectCham = CIPC2581_DicDraw_RectCham;
using RectCorner = CIPC2581_DicDraw_RectCorner;
using RectRound = CIPC2581_DicDraw_RectRound;
using Thermal = CIPC2581_DicDraw_Thermal;
using Triangle = CIPC2581_DicDraw_Triangle;
using Shape = CIPC2581_DrawObj;
using List = CArray<CString, CString>;
using Values = std::vector<double>;

// How the reader makes a field out of its attribute.
enum class Kind { Number, Whole, Flag, Word };

struct Field {
    Texts keys;
    Kind kind;
    bool isCopied = true;
    std::function<double(const Shape &)> get;
    std::function<void(Shape &, double)> set;
    std::function<std::ptrdiff_t(const Shape &)> place;

    [[nodiscard]] double Default() const { return kind == Kind::Word ? -1 : 0; }
    // A value to read, and what it becomes.
    [[nodiscard]] std::string Sample() const
    {
        return kind == Kind::Flag ? "TURE" : kind == Kind::Word ? "SQUARE" : "7.75";
    }
    [[nodiscard]] double Read() const { return kind == Kind::Number ? 7.75 : kind == Kind::Whole ? 7 : 1; }
};

template <typename T, typename Owner, typename Type>
Field Of(Type Owner::*member, Texts keys, Kind kind = std::is_same_v<Type, int> ? Kind::Whole : Kind::Number)
{
    Field field;
    field.keys = std::move(keys);
    field.kind = kind;
    field.get = [member](const Shape & shape) { return static_cast<double>(static_cast<const T &>(shape).*member); };
    field.set = [member](Shape & shape, double value) { static_cast<T &>(shape).*member = static_cast<Type>(value); };
    field.place = [member](const Shape & shape) {
        return reinterpret_cast<const char *>(&(static_cast<const T &>(shape).*member)) -
               reinterpret_cast<const char *>(&shape);
    };
    return field;
}

Field NotCopied(Field field)
{
    field.isCopied = false;
    return field;
}

// What the reader of a one-line element was given.
struct Given {
    int result = -1;
    std::vector<Texts> lines;
    bool operator==(const Given &) const = default;
};

template <typename T>
class Listener : public T {
public:
    using T::Import;
    int Import(List & tokens) override
    {
        Texts texts;
        for (std::int64_t i = 0; i < tokens.GetSize(); ++i) {
            texts.push_back(Str(tokens[i]));
        }
        given.lines.push_back(texts);
        return 0;
    }
    Given given;
};

template <typename T>
concept CanInit = requires(T shape)
{
    {
        &T::Init
        } -> std::same_as<void (T::*)()>;
};

struct Primitive {
    std::string name;
    int code;
    std::vector<Field> fields;  // in declared order, which is the order of the chain
    std::string line;           // what is written for the values of Fill
    const std::type_info * type;
    std::size_t assignSlot;
    bool isXmlDataAdd;
    std::function<std::unique_ptr<Shape>()> make;
    std::function<std::unique_ptr<Shape>(const Shape &)> copy;
    std::function<void(Shape &, const Shape &)> assign;
    std::function<void(Shape &)> init;  // empty where the class has none
    std::function<Given(CStdioFile &)> listen;
};

void PrintTo(const Primitive & primitive, std::ostream * out)
{
    *out << primitive.name;
}

template <typename T>
Primitive Describe(std::string name, int code, std::vector<Field> fields, std::string line)
{
    Primitive made;
    made.name = std::move(name);
    made.code = code;
    made.fields = std::move(fields);
    made.line = std::move(line);
    made.type = &typeid(T);
    made.assignSlot = Slot(static_cast<T & (T::*)(const T &)>(&T::operator=));
    made.isXmlDataAdd = std::is_base_of_v<CIPC2581_XmlDataAdd_Function, T>;
    made.make = [] { return std::make_unique<T>(); };
    made.copy = [](const Shape & source) { return std::make_unique<T>(static_cast<const T &>(source)); };
    made.assign = [](Shape & to, const Shape & from) { static_cast<T &>(to) = static_cast<const T &>(from); };
    if constexpr (CanInit<T>) {
        made.init = [](Shape & shape) { static_cast<T &>(shape).Init(); };
    }
    made.listen = [](CStdioFile & file) {
        Listener<T> listener;
        listener.given.result = static_cast<Shape &>(listener).Import(file);
        return listener.given;
    };
    return made;
}

const std::vector<Primitive> & Primitives()
{
    static const std::vector<Primitive> primitives = {
        Describe<Butterfly>("Butterfly", 1,
                            {Of<Butterfly>(&Butterfly::Shape, {"shape"}, Kind::Word),
                             Of<Butterfly>(&Butterfly::Size, {"diameter", "side"})},
                            R"(<Butterfly Shape="SQUARE" side="2.500000" />)"),
        Describe<Circle>("Circle", 2,
                         {Of<Circle>(&Circle::Diameter, {"diameter"}), NotCopied(Of<Circle>(&Circle::OffsetX, {})),
                          NotCopied(Of<Circle>(&Circle::OffsetY, {}))},
                         R"(<Circle diameter="1.500000" />)"),
        Describe<Diamond>("Diamond", 4,
                          {Of<Diamond>(&Diamond::Width, {"width"}), Of<Diamond>(&Diamond::Height, {"height"})},
                          R"(<Diamond width="1.500000" height="2.500000" />)"),
        Describe<Donut>("Donut", 5,
                        {Of<Donut>(&Donut::Shape, {"shape"}, Kind::Word),
                         Of<Donut>(&Donut::OuterDiameter, {"outerDiameter"}),
                         Of<Donut>(&Donut::InnerDiameter, {"innerDiameter"})},
                        R"(<Diamond Shape="SQUARE" outerDiameter="2.500000" innerDiameter="3.500000" />)"),
        Describe<Ellipse>("Ellipse", 6,
                          {Of<Ellipse>(&Ellipse::Width, {"width"}), Of<Ellipse>(&Ellipse::Height, {"height"})},
                          R"(<Ellipse width="1.500000" height="2.500000" />)"),
        Describe<Hexagon>("Hexagon", 7, {Of<Hexagon>(&Hexagon::Length, {"length"})},
                          R"(<Hexagon length="1.500000" />)"),
        Describe<Moire>("Moire", 8,
                        {Of<Moire>(&Moire::Diameter, {"diameter"}), Of<Moire>(&Moire::RingWidth, {"ringWidth"}),
                         Of<Moire>(&Moire::RingGap, {"ringGap"}), Of<Moire>(&Moire::RingNumber, {"ringNumber"}),
                         Of<Moire>(&Moire::LineWidth, {"lineWidth"}), Of<Moire>(&Moire::LineLength, {"lineLength"}),
                         Of<Moire>(&Moire::LineAngle, {"lineAngle"})},
                        R"(<Moire diameter="6.500000" ringWidth="0.000000" ringGap="0.000000" ringNumber="0" )"
                        R"(lineWidth="0.000000" lineLength="0.000000" lineAngle="0.000000" />)"),
        Describe<Octagon>("Octagon", 9, {Of<Octagon>(&Octagon::Length, {"length"})},
                          R"(<Octagon length="1.500000" />)"),
        Describe<Oval>("Oval", 10, {Of<Oval>(&Oval::Width, {"width"}), Of<Oval>(&Oval::Height, {"height"})},
                       R"(<Oval width="1.500000" height="2.500000" />)"),
        Describe<RectCenter>(
            "RectCenter", 11,
            {Of<RectCenter>(&RectCenter::Width, {"width"}), Of<RectCenter>(&RectCenter::Height, {"height"})},
            R"(<RectCenter width="1.500000" height="2.500000" />)"),
        Describe<RectCham>("RectCham", 12,
                           {Of<RectCham>(&RectCham::Width, {"width"}), Of<RectCham>(&RectCham::Height, {"height"}),
                            Of<RectCham>(&RectCham::Chamfer, {"chamfer"}),
                            Of<RectCham>(&RectCham::UpperRight, {"upperRight"}, Kind::Flag),
                            Of<RectCham>(&RectCham::UpperLeft, {"upperLeft"}, Kind::Flag),
                            Of<RectCham>(&RectCham::LowerLeft, {"lowerLeft"}, Kind::Flag),
                            Of<RectCham>(&RectCham::LowerRight, {"lowerRight"}, Kind::Flag)},
                           R"(<RectCham width="1.500000" height="2.500000" chamfer="3.500000" )"
                           R"(upperRight="TRUE"upperLeft="TRUE"lowerLeft="TRUE"lowerRight="TRUE" />)"),
        Describe<RectCorner>("RectCorner", 13,
                             {Of<RectCorner>(&RectCorner::Lower_LeftX, {"lowerLeftX"}),
                              Of<RectCorner>(&RectCorner::Lower_LeftY, {"lowerLeftY"}),
                              Of<RectCorner>(&RectCorner::Upper_RightX, {"upperRightX"}),
                              Of<RectCorner>(&RectCorner::Upper_RightY, {"upperRightY"})},
                             R"(<RectCorner lowerLeftX="1.500000" lowerLeftY="2.500000" )"
                             R"(upperRightX="3.500000" upperRightY="4.500000" />)"),
        Describe<RectRound>("RectRound", 14,
                            {Of<RectRound>(&RectRound::Width, {"width"}), Of<RectRound>(&RectRound::Height, {"height"}),
                             Of<RectRound>(&RectRound::Radius, {"radius"}),
                             Of<RectRound>(&RectRound::UpperRight, {"upperRight"}, Kind::Flag),
                             Of<RectRound>(&RectRound::UpperLeft, {"upperLeft"}, Kind::Flag),
                             Of<RectRound>(&RectRound::LowerLeft, {"lowerLeft"}, Kind::Flag),
                             Of<RectRound>(&RectRound::LowerRight, {"lowerRight"}, Kind::Flag)},
                            R"(<RectRound width="1.500000" height="2.500000" radius="3.500000" )"
                            R"(upperRight="TRUE"upperLeft="TRUE"lowerLeft="TRUE"lowerRight="TRUE" />)"),
        Describe<Thermal>("Thermal", 15,
                          {Of<Thermal>(&Thermal::Shape, {"shape"}, Kind::Word),
                           Of<Thermal>(&Thermal::OuterDiameter, {"outerDiameter"}),
                           Of<Thermal>(&Thermal::InnerDiameter, {"innerDiameter"}),
                           Of<Thermal>(&Thermal::SpokeCount, {"spokeCount"}), Of<Thermal>(&Thermal::Gap, {"gap"}),
                           Of<Thermal>(&Thermal::SpokeStartAngle, {"spokeStartAngle"})},
                          R"(<Thermal shape="SQUARE" outerDiameter="2.500000" innerDiameter="3.500000" )"
                          R"(spokeCount="4" gap="5.500000" spokeStartAngle="6.500000" />)"),
        Describe<Triangle>("Triangle", 16,
                           {Of<Triangle>(&Triangle::Base, {"base"}), Of<Triangle>(&Triangle::Height, {"height"})},
                           R"(<Triangle base="1.500000" height="2.500000" />)"),
    };
    return primitives;
}

class DicDraw : public testing::TestWithParam<Primitive> {
protected:
    [[nodiscard]] const std::vector<Field> & Fields() const { return GetParam().fields; }
    [[nodiscard]] std::unique_ptr<Shape> Make() const { return GetParam().make(); }
    // Every number is its place and a half, every int its place, counted from 1.
    [[nodiscard]] std::unique_ptr<Shape> Fill() const
    {
        std::unique_ptr<Shape> shape = Make();
        for (std::size_t i = 0; i < Fields().size(); ++i) {
            Fields()[i].set(*shape, static_cast<double>(i) + 1.5);
        }
        return shape;
    }
    // Every field holds what no reader gives.
    [[nodiscard]] std::unique_ptr<Shape> Mark() const
    {
        std::unique_ptr<Shape> shape = Make();
        for (const Field & field : Fields()) {
            field.set(*shape, Marked);
        }
        return shape;
    }
    [[nodiscard]] Values Of(const Shape & shape) const
    {
        Values values;
        for (const Field & field : Fields()) {
            values.push_back(field.get(shape));
        }
        return values;
    }
    [[nodiscard]] Values AllMarked() const { return Values(Fields().size(), Marked); }
    // The marked values with one changed.
    [[nodiscard]] Values MarkedBut(std::size_t index, double value) const
    {
        Values values = AllMarked();
        values[index] = value;
        return values;
    }
    [[nodiscard]] Values Defaults() const
    {
        Values values;
        for (const Field & field : Fields()) {
            values.push_back(field.Default());
        }
        return values;
    }
    // What a marked shape holds after it has read a line with this behind the tag.
    [[nodiscard]] Values AfterReading(const std::string & attributes) const
    {
        const std::unique_ptr<Shape> shape = Mark();
        Tokens tokens("<" + GetParam().name + " " + attributes);
        EXPECT_EQ(shape->Import(tokens), 1);
        return Of(*shape);
    }
    // Runs the test for each key of each field that the reader fills.
    void ForEachKey(const std::function<void(std::size_t index, const Field & field, const std::string & key)> & test)
    {
        for (std::size_t i = 0; i < Fields().size(); ++i) {
            for (const std::string & key : Fields()[i].keys) {
                SCOPED_TRACE(key);
                test(i, Fields()[i], key);
            }
        }
    }

    static constexpr double Marked = -5;
};

INSTANTIATE_TEST_SUITE_P(All, DicDraw, testing::ValuesIn(Primitives()),
                         [](const auto & param) { return param.param.name; });

TEST_P(DicDraw, HasItsDrawTypeAndItsDefaults)
{
    const std::unique_ptr<Shape> shape = Make();
    EXPECT_EQ(shape->DrawType, GetParam().code);
    EXPECT_EQ(shape->GetDrawType(), GetParam().code);
    EXPECT_EQ(Of(*shape), Defaults());
}

TEST_P(DicDraw, HoldsItsFieldsInOrderBehindTheDrawType)
{
    const std::unique_ptr<Shape> shape = Make();
    std::ptrdiff_t before = reinterpret_cast<const char *>(&shape->DrawType) - reinterpret_cast<char *>(shape.get());
    for (const Field & field : Fields()) {
        EXPECT_GT(field.place(*shape), before);
        before = field.place(*shape);
    }
}

TEST_P(DicDraw, IsADrawingObjectFirstAndThenAReader)
{
    const std::unique_ptr<Shape> shape = Make();
    EXPECT_EQ(dynamic_cast<const void *>(shape.get()), shape.get());
    const auto * const reader = dynamic_cast<const CIPC2581_XmlDataAdd_Function *>(shape.get());
    EXPECT_TRUE(GetParam().isXmlDataAdd);
    EXPECT_GT(static_cast<const void *>(reader), static_cast<const void *>(shape.get()));
}

TEST_P(DicDraw, ItsAssignmentFollowsTheOperationsOfEveryShape)
{
    EXPECT_EQ(Slot(&Shape::clone), 2U);
    EXPECT_EQ(Slot(static_cast<Shape & (Shape::*)(const Shape &)>(&Shape::operator=)), 3U);
    EXPECT_EQ(Slot(static_cast<int (Shape::*)(List &)>(&Shape::Import)), 4U);
    EXPECT_EQ(Slot(static_cast<int (Shape::*)(CStdioFile &)>(&Shape::Import)), 5U);
    EXPECT_EQ(Slot(&Shape::Export), 6U);
    EXPECT_EQ(GetParam().assignSlot, 7U);
}

TEST_P(DicDraw, ReadsEachAttributeIntoItsField)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        EXPECT_EQ(AfterReading(key + R"(=")" + field.Sample() + R"("/>)"), MarkedBut(i, field.Read()));
        EXPECT_EQ(AfterReading(R"(x="1" )" + key + R"(=")" + field.Sample() + R"(" />)"), MarkedBut(i, field.Read()));
    });
}

TEST_P(DicDraw, ReadsAllAttributesOfALineInAnyOrder)
{
    std::string forward;
    std::string backward;
    Values all = AllMarked();
    ForEachKey([&](std::size_t i, const Field & field, const std::string & key) {
        const std::string attribute = key + R"(=")" + field.Sample() + R"(" )";
        forward += attribute;
        backward.insert(0, attribute);
        all[i] = field.Read();
    });
    EXPECT_EQ(AfterReading(forward + "/>"), all);
    EXPECT_EQ(AfterReading(backward + "/>"), all);
}

TEST_P(DicDraw, TheLaterOfTwoAttributesWins)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        if (field.kind == Kind::Number || field.kind == Kind::Whole) {
            EXPECT_EQ(AfterReading(key + R"(="7.75" )" + key + R"(="8"/>)"), MarkedBut(i, 8));
        }
        else if (field.kind == Kind::Word) {
            EXPECT_EQ(AfterReading(key + R"(="SQUARE" )" + key + R"(="ROUND"/>)"), MarkedBut(i, 0));
        }
    });
}

TEST_P(DicDraw, TheEarlierKeyOfTheChainDecidesATokenThatHoldsTwo)
{
    ForEachKey([this](std::size_t i, const Field & first, const std::string & firstKey) {
        ForEachKey([&](std::size_t j, const Field & /*second*/, const std::string & secondKey) {
            if (i < j) {
                const std::string value = R"(=")" + first.Sample() + R"("/>)";
                EXPECT_EQ(AfterReading(secondKey + "-" + firstKey + value), MarkedBut(i, first.Read()));
                EXPECT_EQ(AfterReading(firstKey + "-" + secondKey + value), MarkedBut(i, first.Read()));
            }
        });
    });
}

TEST_P(DicDraw, FindsAKeyAnywhereInAToken)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        EXPECT_EQ(AfterReading("my" + key + R"(s=")" + field.Sample() + R"("/>)"), MarkedBut(i, field.Read()));
        const bool isNumber = field.kind == Kind::Number || field.kind == Kind::Whole;
        EXPECT_EQ(AfterReading(R"(note=")" + key + field.Sample() + R"("/>)"), MarkedBut(i, isNumber ? 0 : 1));
    });
}

TEST_P(DicDraw, TellsCapitalsInKeysApart)
{
    ForEachKey([this](std::size_t /*i*/, const Field & field, const std::string & key) {
        std::string other = key;
        other[0] = static_cast<char>(other[0] - 'a' + 'A');
        EXPECT_EQ(AfterReading(other + R"(=")" + field.Sample() + R"("/>)"), AllMarked());
    });
}

TEST_P(DicDraw, LooksAtTheTagTokenToo)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        const std::unique_ptr<Shape> shape = Mark();
        Tokens whole("<" + key + R"(=")" + field.Sample() + R"(")");
        EXPECT_EQ(shape->Import(whole), 1);
        EXPECT_EQ(Of(*shape), MarkedBut(i, field.Read()));
    });
}

TEST_P(DicDraw, PassesOverOtherAttributes)
{
    EXPECT_EQ(AfterReading(R"(x="1" id="7" />)"), AllMarked());
    EXPECT_EQ(AfterReading(R"(x="1)"), AllMarked());
}

TEST_P(DicDraw, TakesAValueThatRunsOverSeveralTokens)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        if (field.kind != Kind::Word) {
            EXPECT_EQ(AfterReading(key + R"(=" )" + field.Sample() + R"( "/>)"), MarkedBut(i, field.Read()));
            EXPECT_EQ(AfterReading(key + R"(=")" + field.Sample() + " " + key + R"(=9"/>)"),
                      MarkedBut(i, field.Read()));
            EXPECT_EQ(AfterReading(key + "=" + field.Sample() + R"( x="1"/>)"), MarkedBut(i, field.Read()));
        }
    });
}

TEST_P(DicDraw, ReadsNumbersAsFarAsTheyGo)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        const auto read = [&](const std::string & text) { return AfterReading(key + R"(=")" + text + R"("/>)"); };
        if (field.kind == Kind::Number) {
            EXPECT_EQ(read("1e3"), MarkedBut(i, 1000));
            EXPECT_EQ(read("-.5mm"), MarkedBut(i, -0.5));
            EXPECT_EQ(read("x1"), MarkedBut(i, 0));
            EXPECT_EQ(read(""), MarkedBut(i, 0));
        }
        else if (field.kind == Kind::Whole) {
            EXPECT_EQ(read("1e3"), MarkedBut(i, 1));
            EXPECT_EQ(read("-6.9"), MarkedBut(i, -6));
            EXPECT_EQ(read("x1"), MarkedBut(i, 0));
            EXPECT_EQ(read(""), MarkedBut(i, 0));
        }
    });
}

TEST_P(DicDraw, SetsACornerByItsOwnWordAndClearsNone)
{
    ForEachKey([this](std::size_t i, const Field & field, const std::string & key) {
        if (field.kind == Kind::Flag) {
            const auto read = [&](const std::string & text) { return AfterReading(key + R"(=")" + text + R"("/>)"); };
            EXPECT_EQ(read("xTUREx"), MarkedBut(i, 1));
            EXPECT_EQ(read("T/URE"), MarkedBut(i, 1));
            for (const char * text : {"TRUE", "FALSE", "true", "ture", "0", ""}) {
                EXPECT_EQ(read(text), AllMarked()) << text;
            }
            EXPECT_EQ(AfterReading("TURE" + key + R"(="no"/>)"), AllMarked());
        }
    });
}

TEST_P(DicDraw, FindsTheWordOfItsShapeInTheTokenOfTheKey)
{
    const bool isButterfly = GetParam().name == "Butterfly";
    ForEachKey([&](std::size_t i, const Field & field, const std::string & key) {
        if (field.kind == Kind::Word) {
            const auto read = [&](const std::string & text) { return AfterReading(key + R"(=")" + text + R"("/>)"); };
            EXPECT_EQ(read("ROUND"), MarkedBut(i, 0));
            EXPECT_EQ(read("SQUARE"), MarkedBut(i, 1));
            EXPECT_EQ(read("HEXAGON"), isButterfly ? AllMarked() : MarkedBut(i, 2));
            EXPECT_EQ(read("OCTAGON"), isButterfly ? AllMarked() : MarkedBut(i, 3));
            EXPECT_EQ(read("SQUARE-ROUND"), MarkedBut(i, 0));
            EXPECT_EQ(read("OCTAGON-HEXAGON-SQUARE"), MarkedBut(i, 1));
            EXPECT_EQ(read("OCTAGON-HEXAGON"), isButterfly ? AllMarked() : MarkedBut(i, 2));
            EXPECT_EQ(read("xROUNDx"), MarkedBut(i, 0));
            EXPECT_EQ(read("round"), AllMarked());
            EXPECT_EQ(read("OVAL"), AllMarked());
            EXPECT_EQ(read(" ROUND"), AllMarked());
            EXPECT_EQ(AfterReading("ROUND-" + key), MarkedBut(i, 0));
            EXPECT_EQ(AfterReading(key + R"(="ROUND)"), MarkedBut(i, 0));
        }
    });
}

TEST_P(DicDraw, ThrowsForAValueThatTheLineDoesNotClose)
{
    ForEachKey([this](std::size_t /*i*/, const Field & field, const std::string & key) {
        if (field.kind != Kind::Word) {
            for (const std::string & end : {std::string(R"(="7)"), std::string("=7")}) {
                const std::unique_ptr<Shape> shape = Mark();
                Tokens tokens("<" + GetParam().name + " " + key + end);
                EXPECT_THROW(shape->Import(tokens), CInvalidArgException);
                EXPECT_EQ(Of(*shape), AllMarked());
            }
        }
    });
}

TEST_P(DicDraw, KeepsWhatItReadInFrontOfAValueThatThrows)
{
    const std::string first = Fields()[0].keys[0] + R"(=")" + Fields()[0].Sample() + R"(")";
    ForEachKey([&](std::size_t /*i*/, const Field & field, const std::string & key) {
        if (field.kind != Kind::Word) {
            const std::unique_ptr<Shape> shape = Mark();
            Tokens tokens("<" + GetParam().name + " " + first + " " + key + R"(="9)");
            EXPECT_THROW(shape->Import(tokens), CInvalidArgException);
            EXPECT_EQ(Of(*shape), MarkedBut(0, Fields()[0].Read()));
        }
    });
}

TEST_P(DicDraw, LeavesAllFieldsForAnEmptyTokenList)
{
    const std::unique_ptr<Shape> shape = Mark();
    List none;
    EXPECT_EQ(shape->Import(none), 1);
    EXPECT_EQ(Of(*shape), AllMarked());
}

TEST_P(DicDraw, ReadsItselfFromTheNextLineOfAFile)
{
    const Field & field = Fields()[0];
    const std::string line = "  <Anything " + field.keys[0] + R"(=")" + field.Sample() + R"("/>)";
    Lines lines({line, "<Next/>"});
    const std::unique_ptr<Shape> shape = Mark();
    EXPECT_EQ(shape->Import(lines), 1);
    EXPECT_EQ(Of(*shape), MarkedBut(0, field.Read()));
    EXPECT_EQ(lines.Rest(), Texts({"<Next/>"}));
}

TEST_P(DicDraw, HandsALineOfAFileToItsReaderWhateverItHolds)
{
    Lines lines({R"(<A b="1" />)", "<A/>", "", "   "});
    EXPECT_EQ(GetParam().listen(lines), (Given{1, {{"A", R"(b="1")", "/"}}}));
    EXPECT_EQ(GetParam().listen(lines), (Given{1, {{"<A/>"}}}));
    EXPECT_EQ(GetParam().listen(lines), (Given{1, {{""}}}));
    EXPECT_EQ(GetParam().listen(lines), (Given{1, {{}}}));
    EXPECT_EQ(GetParam().listen(lines), (Given{1, {{""}}}));
}

TEST_P(DicDraw, StaysAsItIsAtTheEndOfAFile)
{
    Lines lines("");
    const std::unique_ptr<Shape> shape = Mark();
    EXPECT_EQ(shape->Import(lines), 1);
    EXPECT_EQ(Of(*shape), AllMarked());
}

TEST_P(DicDraw, WritesItsLine)
{
    const std::unique_ptr<Shape> shape = Fill();
    EXPECT_EQ(Exported(*shape), (Export{1, "   " + GetParam().line + "\n"}));
    EXPECT_EQ(Exported(*shape, 3), (Export{1, "            " + GetParam().line + "\n"}));
    EXPECT_EQ(Exported(*shape, -1), (Export{1, GetParam().line + "\n"}));
}

TEST_P(DicDraw, CopiesAreOfItsClassAndHoldItsFields)
{
    const std::unique_ptr<Shape> shape = Fill();
    shape->DrawType = 99;
    Values copied = Of(*shape);
    Values assigned = copied;
    for (std::size_t i = 0; i < copied.size(); ++i) {
        if (!Fields()[i].isCopied) {
            copied[i] = 0;
            assigned[i] = Marked;
        }
    }
    const std::unique_ptr<Shape> constructed = GetParam().copy(*shape);
    EXPECT_EQ(Of(*constructed), copied);
    EXPECT_EQ(constructed->DrawType, 99);

    const std::unique_ptr<Shape> cloned(std::as_const(*shape).clone());
    const Shape & clone = *cloned;
    ASSERT_EQ(typeid(clone), *GetParam().type);
    EXPECT_EQ(Of(clone), copied);
    EXPECT_EQ(clone.DrawType, 99);

    const std::unique_ptr<Shape> target = Mark();
    GetParam().assign(*target, *shape);
    EXPECT_EQ(Of(*target), assigned);
    EXPECT_EQ(target->DrawType, 99);
}

TEST_P(DicDraw, AssigningItselfChangesNothing)
{
    const std::unique_ptr<Shape> shape = Fill();
    const Values before = Of(*shape);
    GetParam().assign(*shape, *shape);
    EXPECT_EQ(Of(*shape), before);
    EXPECT_EQ(shape->DrawType, GetParam().code);
}

TEST_P(DicDraw, AssignmentThroughTheBaseCopiesTheDrawTypeAlone)
{
    const std::unique_ptr<Shape> shape = Fill();
    shape->DrawType = 99;
    const std::unique_ptr<Shape> target = Mark();
    *target = *shape;
    EXPECT_EQ(target->DrawType, 99);
    EXPECT_EQ(Of(*target), AllMarked());
}

TEST_P(DicDraw, InitRestoresTheDefaultsWhereTheClassHasOne)
{
    const std::set<std::string> without = {"Butterfly", "Diamond", "Ellipse", "Hexagon",
                                           "Moire",     "Octagon", "Triangle"};
    const bool hasInit = !without.contains(GetParam().name);
    ASSERT_EQ(GetParam().init != nullptr, hasInit);
    if (hasInit) {
        const std::unique_ptr<Shape> shape = Fill();
        shape->DrawType = 99;
        GetParam().init(*shape);
        EXPECT_EQ(Of(*shape), Defaults());
        EXPECT_EQ(shape->DrawType, GetParam().code);
    }
}

template <typename T>
concept HasAnAccessor = requires(T shape)
{
    shape.GetWidth();
}
|| requires(T shape)
{
    shape.GetHeight();
}
|| requires(T shape)
{
    shape.GetLength();
}
|| requires(T shape)
{
    shape.GetDiameter();
}
|| requires(T shape)
{
    shape.GetSize();
}
|| requires(T shape)
{
    shape.GetBase();
}
|| requires(T shape)
{
    shape.GetShape();
}
|| requires(T shape)
{
    shape.GetLineLength();
};

static_assert(HasAnAccessor<Oval> && HasAnAccessor<Circle> && HasAnAccessor<Thermal>);

static_assert(!HasAnAccessor<Butterfly> && !HasAnAccessor<Diamond> && !HasAnAccessor<Ellipse> &&
              !HasAnAccessor<Hexagon> && !HasAnAccessor<Moire> && !HasAnAccessor<Octagon> && !HasAnAccessor<Triangle>);

}  // namespace
