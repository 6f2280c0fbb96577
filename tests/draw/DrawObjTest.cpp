#include "ipc2581/draw/DrawObj.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/Arc.h"
#include "ipc2581/draw/Cutout.h"
#include "ipc2581/draw/Line.h"
#include "ipc2581/draw/Outline.h"
#include "ipc2581/draw/PolyLine.h"
#include "ipc2581/draw/Polygon.h"
#include "ipc2581/draw/Text.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using TokenList = CArray<CString, CString>;

bool IsPlain(const CIPC2581_DrawObj & shape)
{
    return typeid(shape) == typeid(CIPC2581_DrawObj);
}

TEST(DrawObj, HasType17)
{
    const CIPC2581_DrawObj shape;
    EXPECT_EQ(shape.DrawType, 17);
    EXPECT_EQ(shape.GetDrawType(), 17);
}

TEST(DrawObj, TypeIsSet)
{
    CIPC2581_DrawObj shape;
    shape.SetDrawType(21);
    EXPECT_EQ(shape.DrawType, 21);
    EXPECT_EQ(shape.GetDrawType(), 21);
}

TEST(DrawObj, InitGivesType17)
{
    CIPC2581_DrawObj shape;
    shape.SetDrawType(3);
    shape.Init();
    EXPECT_EQ(shape.GetDrawType(), 17);
}

TEST(DrawObj, CopiesItsType)
{
    CIPC2581_DrawObj source;
    source.SetDrawType(3);
    EXPECT_EQ(CIPC2581_DrawObj(source).GetDrawType(), 3);
    const std::unique_ptr<CIPC2581_DrawObj> clone(source.clone());
    EXPECT_EQ(clone->GetDrawType(), 3);
    CIPC2581_DrawObj target;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.GetDrawType(), 3);
}

TEST(DrawObj, AssignmentToItselfKeepsTheType)
{
    CIPC2581_DrawObj shape;
    shape.SetDrawType(3);
    const CIPC2581_DrawObj & same = shape;
    shape = same;
    EXPECT_EQ(shape.GetDrawType(), 3);
}

TEST(DrawObj, ReadsNothingAndTellsIt)
{
    CIPC2581_DrawObj shape;
    Tokens tokens(R"(<Circle diameter="1"/>)");
    EXPECT_EQ(shape.Import(tokens.List()), 0);
    EXPECT_EQ(tokens->GetSize(), 2);
    Lines file{"one", "two"};
    EXPECT_EQ(shape.Import(file.File()), 0);
    EXPECT_EQ(file.Rest(), (Texts{"one", "two"}));
    EXPECT_EQ(shape.GetDrawType(), 17);
}

TEST(DrawObj, WritesNothingAndTellsIt)
{
    CIPC2581_DrawObj shape;
    const auto written = Exported(shape, 2);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, "");
}

TEST(DrawObj, OrderOfVirtualOperations)
{
    using Shape = CIPC2581_DrawObj;
    EXPECT_TRUE(std::has_virtual_destructor_v<Shape>);
    EXPECT_EQ(Slot(&Shape::clone), 2U);
    EXPECT_EQ(Slot(&Shape::operator=), 3U);
    EXPECT_EQ(Slot(static_cast<int (Shape::*)(TokenList &)>(&Shape::Import)), 4U);
    EXPECT_EQ(Slot(static_cast<int (Shape::*)(CStdioFile &)>(&Shape::Import)), 5U);
    EXPECT_EQ(Slot(&Shape::Export), 6U);
}

TEST(DrawObj, OtherOperationsAreNotVirtual)
{
    EXPECT_FALSE(IsVirtual(&CIPC2581_DrawObj::Init));
    EXPECT_FALSE(IsVirtual(&CIPC2581_DrawObj::Distance));
    EXPECT_FALSE(IsVirtual(&CIPC2581_DrawObj::GetDrawType));
    EXPECT_FALSE(IsVirtual(&CIPC2581_DrawObj::SetDrawType));
}

TEST(DrawObj, Distance)
{
    CIPC2581_DrawObj shape;
    EXPECT_EQ(shape.Distance(0, 0, 3, 4), 5.0);
    EXPECT_EQ(shape.Distance(3, 4, 0, 0), 5.0);
    EXPECT_EQ(shape.Distance(-2, 1, 4, -7), 10.0);
    EXPECT_EQ(shape.Distance(1.5, 2.5, 1.5, 2.5), 0.0);
    EXPECT_EQ(shape.Distance(0, 0, 1, 1), std::sqrt(2.0));
}

// The squares are really formed.
TEST(DrawObj, DistanceOverflowsWithItsSquares)
{
    CIPC2581_DrawObj shape;
    EXPECT_TRUE(std::isinf(shape.Distance(1e200, 0, 0, 0)));
    EXPECT_EQ(shape.Distance(1e-200, 0, 0, 0), 0.0);
}

TEST(DrawObj, TextOfAShapeType)
{
    const char * const texts[] = {"ROUND", "SQUARE", "HEXAGON", "OCTAGON"};
    for (int code = 0; code < 4; ++code) {
        EXPECT_EQ(CIPC2581_DrawObj::GetShapeType(code), texts[code]);
        EXPECT_EQ(CIPC2581_DrawObj::GetShapeType(CString(texts[code])), code);
    }
}

TEST(DrawObj, UnknownShapeTypeIsRound)
{
    for (const int code : {-1, 4, 17, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(CIPC2581_DrawObj::GetShapeType(code), "ROUND") << code;
    }
}

TEST(DrawObj, ShapeTypeIsFoundByItsExactText)
{
    for (const char * text :
         {"", "round", "Square", "hexagon", "octagon", "NONE", " ROUND", "ROUND ", "ROUNDED", "ROUN"}) {
        EXPECT_EQ(CIPC2581_DrawObj::GetShapeType(CString(text)), -1) << text;
    }
}

// What the shapes with children have in common.
template <typename Shape>
struct Facts;
template <>
struct Facts<CIPC2581_Line> {
    static constexpr int Type = 18;
    static constexpr const char * End = "/Line";
};
template <>
struct Facts<CIPC2581_Arc> {
    static constexpr int Type = 17;
    static constexpr const char * End = "/Line";
};
template <>
struct Facts<CIPC2581_Outline> {
    static constexpr int Type = 19;
    static constexpr const char * End = "/Outline";
};
template <>
struct Facts<CIPC2581_PolyLine> {
    static constexpr int Type = 20;
    static constexpr const char * End = "/Polyline";
};
template <>
struct Facts<CIPC2581_Polygon> {
    static constexpr int Type = 22;
    static constexpr const char * End = "/Polygon";
};
template <>
struct Facts<CIPC2581_Cutout> {
    static constexpr int Type = 23;
    static constexpr const char * End = "/Cutout";
};
template <>
struct Facts<CIPC2581_CutoutArray> {
    static constexpr int Type = 24;
};

template <typename Shape>
class DrawObjGeometry : public testing::Test {
public:
    Shape shape;
};

using GeometryShapes = testing::Types<CIPC2581_Line, CIPC2581_Arc, CIPC2581_Outline, CIPC2581_PolyLine,
                                      CIPC2581_Polygon, CIPC2581_Cutout, CIPC2581_CutoutArray>;
TYPED_TEST_SUITE(DrawObjGeometry, GeometryShapes);

TYPED_TEST(DrawObjGeometry, HasItsType)
{
    EXPECT_EQ(this->shape.GetDrawType(), Facts<TypeParam>::Type);
    EXPECT_EQ(static_cast<CIPC2581_DrawObj &>(this->shape).DrawType, Facts<TypeParam>::Type);
}

TYPED_TEST(DrawObjGeometry, StartsWithTheDrawingObject)
{
    static_assert(std::is_base_of_v<CIPC2581_DrawObj, TypeParam>);
    EXPECT_EQ(static_cast<void *>(static_cast<CIPC2581_DrawObj *>(&this->shape)), static_cast<void *>(&this->shape));
}

TYPED_TEST(DrawObjGeometry, TokenListIsReadByNobody)
{
    CIPC2581_DrawObj & base = this->shape;
    Tokens tokens(R"(<LineDesc lineEnd="SQUARE" x="1"/>)");
    EXPECT_EQ(base.Import(tokens.List()), 0);
    EXPECT_EQ(tokens->GetSize(), 3);
}

TYPED_TEST(DrawObjGeometry, OwnCloneAndAssignmentFollowTheOperationsOfTheBase)
{
    using Shape = TypeParam;
    using Base = CIPC2581_DrawObj;
    EXPECT_EQ(Slot(static_cast<Base * (Base::*)() const>(&Shape::clone)), 2U);
    EXPECT_EQ(Slot(static_cast<Base & (Base::*)(const Base &)>(&Shape::operator=)), 3U);
    EXPECT_EQ(Slot(static_cast<Shape * (Shape::*)()>(&Shape::clone)), 7U);
    EXPECT_EQ(Slot(static_cast<Shape & (Shape::*)(const Shape &)>(&Shape::operator=)), 8U);
}

TYPED_TEST(DrawObjGeometry, ConstantCloneIsAPlainObjectWithTheType)
{
    this->shape.SetDrawType(5);
    const std::unique_ptr<CIPC2581_DrawObj> copy(std::as_const(this->shape).clone());
    EXPECT_TRUE(IsPlain(*copy));
    EXPECT_EQ(copy->GetDrawType(), 5);
}

TYPED_TEST(DrawObjGeometry, OwnCloneIsOfTheClass)
{
    const std::unique_ptr<CIPC2581_DrawObj> copy(this->shape.clone());
    const CIPC2581_DrawObj & made = *copy;
    EXPECT_TRUE(typeid(made) == typeid(TypeParam));
}

TYPED_TEST(DrawObjGeometry, AssignmentThroughTheBaseCopiesTheTypeAlone)
{
    TypeParam source;
    source.SetDrawType(5);
    CIPC2581_DrawObj & target = this->shape;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.GetDrawType(), 5);
}

TYPED_TEST(DrawObjGeometry, CopiedListHoldsAPlainObjectAndCannotBeWritten)
{
    CIPC2581_DrawObjArray list;
    list.Add(new CIPC2581_Text);
    list.Add(new TypeParam);
    CIPC2581_DrawObjArray copy(list);
    ASSERT_EQ(copy.GetSize(), 2);
    EXPECT_TRUE(IsPlain(*copy.GetAt(1)));
    EXPECT_EQ(copy.GetAt(1)->GetDrawType(), Facts<TypeParam>::Type);
    const auto written = Exported(copy);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, "");
}

template <typename Shape>
class DrawObjReader : public testing::Test {
public:
    int Read(Lines & file) { return static_cast<CIPC2581_DrawObj &>(shape).Import(file.File()); }

    Shape shape;
    const std::string end = Facts<Shape>::End;
};

using ReadingShapes =
    testing::Types<CIPC2581_Line, CIPC2581_Arc, CIPC2581_Outline, CIPC2581_PolyLine, CIPC2581_Polygon, CIPC2581_Cutout>;
TYPED_TEST_SUITE(DrawObjReader, ReadingShapes);

TYPED_TEST(DrawObjReader, HelpersAreTheSecondBase)
{
    static_assert(std::is_base_of_v<CIPC2581_XmlDataAdd_Function, TypeParam>);
    EXPECT_EQ(static_cast<char *>(static_cast<void *>(static_cast<CIPC2581_XmlDataAdd_Function *>(&this->shape))),
              static_cast<char *>(static_cast<void *>(&this->shape)) + sizeof(CIPC2581_DrawObj));
}

TYPED_TEST(DrawObjReader, StopsBehindItsEnd)
{
    const std::string ends[] = {"<" + this->end + ">",     "   <" + this->end + ">",  "<" + this->end + " >",
                                "<a>b<" + this->end + ">", "<" + this->end + "More>", this->end};
    for (const std::string & line : ends) {
        Lines file{"<Any>", line, "behind"};
        EXPECT_EQ(this->Read(file), 1) << line;
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << line;
    }
}

TYPED_TEST(DrawObjReader, OtherLinesArePassedOver)
{
    std::string lower = this->end;
    for (char & letter : lower) {
        letter = static_cast<char>(std::tolower(letter));
    }
    const std::string others[] = {"",
                                  "\t",
                                  "> ",
                                  "<any>",
                                  R"(<Any x="1" y="open>)",
                                  "<Any <" + this->end + ">",
                                  "< " + this->end,
                                  "<" + this->end.substr(1) + ">",
                                  "<" + lower + ">",
                                  "   <" + lower + ">"};
    for (const std::string & other : others) {
        Lines file{other, "<" + this->end + ">", "behind"};
        EXPECT_EQ(this->Read(file), 1) << other;
        EXPECT_EQ(file.Rest(), Texts{"behind"}) << other;
    }
}

TYPED_TEST(DrawObjReader, EndOfFileIsNoError)
{
    Lines empty{};
    EXPECT_EQ(this->Read(empty), 1);
    Lines open{"<Any>", "<Other >"};
    EXPECT_EQ(this->Read(open), 1);
    CStdioFile closed;
    EXPECT_EQ(this->shape.Import(closed), 1);
}

TYPED_TEST(DrawObjReader, LineOfBlanksRaises)
{
    for (const char * blanks : {" ", "      "}) {
        Lines file{"<Any>", blanks, "behind"};
        EXPECT_THROW(this->Read(file), CInvalidArgException);
        EXPECT_EQ(file.Rest(), Texts{"behind"});
    }
}

TYPED_TEST(DrawObjReader, CarriageReturnBelongsToTheLineEnd)
{
    Lines file("<Any>\r\n\r\n<" + this->end + ">\r\nbehind\r\n");
    EXPECT_EQ(this->Read(file), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
}

// Tells in a log what happens to it.
class Noted : public CIPC2581_DrawObj {
public:
    Noted(std::string & log, char name, int result = 1) : m_log(&log), m_name(name), m_result(result) {}
    ~Noted() override { Note('~'); }
    CIPC2581_DrawObj * clone() const override
    {
        Note('c');
        return new Noted(*m_log, static_cast<char>(std::tolower(m_name)));
    }
    using CIPC2581_DrawObj::Import;
    int Import(CStdioFile & file) override
    {
        CString line;
        file.ReadString(line);
        Note('i');
        return m_result;
    }
    int Export(CStdioFile & file, int level) override
    {
        CString line;
        line.Format("%s%d\n", CString(std::string_view(&m_name, 1)), level);
        file.WriteString(line);
        return m_result;
    }
    [[nodiscard]] char Name() const { return m_name; }

private:
    void Note(char what) const
    {
        *m_log += what;
        *m_log += m_name;
    }

    std::string * m_log;
    char m_name;
    int m_result;
};

std::string Names(const CIPC2581_DrawObjArray & list)
{
    std::string names;
    for (std::int64_t i = 0; i < list.GetSize(); ++i) {
        names += dynamic_cast<const Noted &>(*list.GetAt(i)).Name();
    }
    return names;
}

TEST(DrawObjArray, OrderOfVirtualOperations)
{
    EXPECT_EQ(Slot(&CIPC2581_DrawObjArray::RemoveDuplicatedElements), 7U);
    EXPECT_EQ(Slot(&CIPC2581_DrawObjArray::clone), 8U);
    EXPECT_EQ(Slot(&CIPC2581_DrawObjArray::Import), 9U);
    EXPECT_EQ(Slot(&CIPC2581_DrawObjArray::Export), 10U);
    EXPECT_FALSE(IsVirtual(&CIPC2581_DrawObjArray::operator=));
}

TEST(DrawObjArray, HasNoFieldsOfItsOwn)
{
    EXPECT_EQ(sizeof(CIPC2581_DrawObjArray), sizeof(CExPtrArray<CIPC2581_DrawObj *, CIPC2581_DrawObj *>));
}

TEST(DrawObjArray, OwnsItsElements)
{
    std::string log;
    {
        CIPC2581_DrawObjArray list;
        list.Add(new Noted(log, 'A'));
        list.Add(new Noted(log, 'B'));
    }
    EXPECT_EQ(log, "~A~B");
}

TEST(DrawObjArray, EmptyListReadsAndWritesNothing)
{
    CIPC2581_DrawObjArray list;
    const auto written = Exported(list);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "");
    Lines file{"one"};
    EXPECT_EQ(list.Import(file), 1);
    EXPECT_EQ(file.Rest(), Texts{"one"});
    EXPECT_EQ(list.GetSize(), 0);
}

TEST(DrawObjArray, WritesItsElementsInOrderAtItsOwnLevel)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    list.Add(new Noted(log, 'B'));
    for (const int level : {0, 2}) {
        const auto written = Exported(list, level);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, level == 0 ? "A0\nB0\n" : "A2\nB2\n");
    }
}

TEST(DrawObjArray, WritingStopsAtTheFirstThatFails)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    list.Add(new Noted(log, 'B', 0));
    list.Add(new Noted(log, 'C'));
    const auto written = Exported(list);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, "A0\nB0\n");
}

TEST(DrawObjArray, AnyResultButZeroGoesOn)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A', -1));
    list.Add(new Noted(log, 'B', 2));
    const auto written = Exported(list);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "A0\nB0\n");
    Lines file{"one", "two", "three"};
    EXPECT_EQ(list.Import(file), 1);
    EXPECT_EQ(log, "iAiB");
}

TEST(DrawObjArray, WritingStopsAtAPlainObject)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    list.Add(new CIPC2581_DrawObj);
    list.Add(new Noted(log, 'C'));
    const auto written = Exported(list);
    EXPECT_EQ(written.result, 0);
    EXPECT_EQ(written.text, "A0\n");
}

TEST(DrawObjArray, ReadsIntoTheElementsThatItHas)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    list.Add(new Noted(log, 'B'));
    Lines file{"one", "two", "three"};
    EXPECT_EQ(list.Import(file), 1);
    EXPECT_EQ(log, "iAiB");
    EXPECT_EQ(file.Rest(), Texts{"three"});
    EXPECT_EQ(list.GetSize(), 2);
}

TEST(DrawObjArray, ReadingStopsAtTheFirstThatFails)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    list.Add(new Noted(log, 'B', 0));
    list.Add(new Noted(log, 'C'));
    Lines file{"one", "two", "three"};
    EXPECT_EQ(list.Import(file), 0);
    EXPECT_EQ(log, "iAiB");
    EXPECT_EQ(file.Rest(), Texts{"three"});
}

TEST(DrawObjArray, ReadingThrowsWhatAnElementThrows)
{
    CIPC2581_DrawObjArray list;
    list.Add(new CIPC2581_Line);
    Lines file{" "};
    EXPECT_THROW(list.Import(file), CInvalidArgException);
}

// Appends to its list when it is written or read.
class Growing : public CIPC2581_DrawObj {
public:
    explicit Growing(CIPC2581_DrawObjArray & list, std::string & log) : m_list(&list), m_log(&log) {}
    using CIPC2581_DrawObj::Import;
    int Import(CStdioFile & /*file*/) override { return Grow(); }
    int Export(CStdioFile & /*file*/, int /*level*/) override { return Grow(); }

private:
    int Grow()
    {
        m_list->Add(new Noted(*m_log, 'N'));
        return 1;
    }

    CIPC2581_DrawObjArray * m_list;
    std::string * m_log;
};

TEST(DrawObjArray, WalksReadTheSizeAfterEachElement)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Growing(list, log));
    EXPECT_EQ(Written(list), "N0\n");
    Lines file{"one", "two", "three"};
    EXPECT_EQ(list.Import(file), 1);
    EXPECT_EQ(log, "iNiN");
}

TEST(DrawObjArray, AssignmentDeletesItsElementsAndClonesTheOthers)
{
    std::string log;
    CIPC2581_DrawObjArray source;
    source.Add(new Noted(log, 'A'));
    source.Add(new Noted(log, 'B'));
    CIPC2581_DrawObjArray target;
    target.Add(new Noted(log, 'X'));
    target.Add(new Noted(log, 'Y'));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(log, "~X~YcAcB");
    EXPECT_EQ(Names(target), "ab");
    EXPECT_EQ(Names(source), "AB");
}

TEST(DrawObjArray, CopiesAndClonesByCloningItsElements)
{
    std::string log;
    CIPC2581_DrawObjArray source;
    source.Add(new Noted(log, 'A'));
    source.Add(new Noted(log, 'B'));
    const CIPC2581_DrawObjArray copy(source);
    EXPECT_EQ(Names(copy), "ab");
    const std::unique_ptr<CIPC2581_DrawObjArray> clone(source.clone());
    EXPECT_EQ(Names(*clone), "ab");
    EXPECT_EQ(log, "cAcBcAcB");
}

TEST(DrawObjArray, AssignmentToItselfDoesNothing)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    const CIPC2581_DrawObj * element = list.GetAt(0);
    const CIPC2581_DrawObjArray & same = list;
    list = same;
    EXPECT_EQ(log, "");
    EXPECT_EQ(list.GetAt(0), element);
}

TEST(DrawObjArray, AssignmentOfAnEmptyListEmpties)
{
    std::string log;
    CIPC2581_DrawObjArray list;
    list.Add(new Noted(log, 'A'));
    list = CIPC2581_DrawObjArray();
    EXPECT_EQ(log, "~A");
    EXPECT_EQ(list.GetSize(), 0);
}

}  // namespace
