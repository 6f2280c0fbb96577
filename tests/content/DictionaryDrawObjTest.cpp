#include "ipc2581/content/DictionaryDrawObj.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw_Cutout.h"
#include "ipc2581/content/DicDraw_Polygon.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Pt.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Base = CIPC2581_DictionaryDrawObj;
using Array = CIPC2581_DictionaryDrawObjArray;
using Polygon = CIPC2581_DicDraw_Polygon;
using Cutout = CIPC2581_DicDraw_Cutout;

CIPC2581_Pt * NewPt(int type, double x, double y)
{
    auto point = std::make_unique<CIPC2581_Pt>();
    point->Type = type;
    point->EndPoint.SetData(x, y);
    return point.release();
}

// A step of which nothing can be written.
class UnwritablePt : public CIPC2581_Pt {
public:
    int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }
};

static_assert(!std::is_base_of_v<CIPC2581_DrawObj, Base>);
static_assert(!std::is_base_of_v<CIPC2581_DrawObj, Polygon> && std::is_base_of_v<Base, Polygon>);
static_assert(!std::is_base_of_v<CIPC2581_DrawObj, Cutout> && std::is_base_of_v<Base, Cutout>);

TEST(DictionaryDrawObj, HasADrawTypeOfItsOwnNumbering)
{
    EXPECT_EQ(Base().DrawType, 0);
    EXPECT_EQ(Polygon().DrawType, 1);
    EXPECT_EQ(Cutout().DrawType, 2);
}

TEST(DictionaryDrawObj, HoldsItsOperationsInOrder)
{
    EXPECT_EQ(Slot(&Base::clone), 2U);
    EXPECT_EQ(Slot(static_cast<Base & (Base::*)(const Base &)>(&Base::operator=)), 3U);
    EXPECT_EQ(Slot(&Base::Export), 4U);
}

TEST(DictionaryDrawObj, WritesNothing)
{
    Base object;
    EXPECT_EQ(Exported(object), (Export{1, ""}));
}

TEST(DictionaryDrawObj, CopiesHoldTheDrawType)
{
    Base object;
    object.DrawType = 9;
    EXPECT_EQ(Base(object).DrawType, 9);
    EXPECT_EQ(std::unique_ptr<Base>(object.clone())->DrawType, 9);
    Base assigned;
    assigned = object;
    EXPECT_EQ(assigned.DrawType, 9);
    const Base & same = object;
    object = same;
    EXPECT_EQ(object.DrawType, 9);
}

// What the polygon and the cutout of this family have in common.
struct PolygonCase {
    using Class = Polygon;
    static constexpr int code = 1;
    static constexpr const char * tag = "Polygon";
};

struct CutoutCase {
    using Class = Cutout;
    static constexpr int code = 2;
    static constexpr const char * tag = "Cutout";
};

template <typename Case>
class DictionaryContour : public testing::Test {
protected:
    static auto With(std::initializer_list<CIPC2581_Pt *> points)
    {
        auto shape = std::make_unique<typename Case::Class>();
        for (CIPC2581_Pt * point : points) {
            shape->PtArray->Add(point);
        }
        return shape;
    }
    static std::string Opening(const std::string & indent) { return indent + "<" + Case::tag + ">\n"; }
    static std::string Closing(const std::string & indent) { return indent + "</" + Case::tag + ">\n"; }
};

class CaseNames {
public:
    template <typename Case>
    static std::string GetName(int /*index*/)
    {
        return Case::tag;
    }
};

using Cases = testing::Types<PolygonCase, CutoutCase>;
TYPED_TEST_SUITE(DictionaryContour, Cases, CaseNames);

TYPED_TEST(DictionaryContour, StartsEmpty)
{
    typename TypeParam::Class shape;
    ASSERT_NE(shape.PtArray, nullptr);
    EXPECT_TRUE(shape.PtArray->IsEmpty());
    EXPECT_EQ(shape.GetPtArray(), shape.PtArray);
}

TYPED_TEST(DictionaryContour, HoldsItsOwnOperationsBehindThoseOfTheBase)
{
    using Class = typename TypeParam::Class;
    EXPECT_EQ(Slot(&Class::Export), 4U);
    EXPECT_EQ(Slot(static_cast<Class * (Class::*)()>(&Class::clone)), 5U);
    EXPECT_EQ(Slot(static_cast<Class & (Class::*)(const Class &)>(&Class::operator=)), 6U);
}

TYPED_TEST(DictionaryContour, WritesTwoLinesWithoutPoints)
{
    typename TypeParam::Class shape;
    EXPECT_EQ(Exported(shape), (Export{1, this->Opening("   ") + this->Closing("   ")}));
}

TYPED_TEST(DictionaryContour, WritesTheFirstPointAsTheBegin)
{
    const auto shape = this->With({NewPt(1, 1, 2)});
    EXPECT_EQ(Exported(static_cast<Base &>(*shape)),
              (Export{1, this->Opening("   ") + Joined({R"(      <PolyBegin x="1.000000" y="2.000000" />)"}) +
                             this->Closing("   ")}));
}

TYPED_TEST(DictionaryContour, WritesTheOtherPointsAsSteps)
{
    const auto shape = this->With({NewPt(0, 1, 2), NewPt(0, 3, 4), NewPt(1, 5, 6)});
    shape->PtArray->GetAt(2)->CenterPoint.SetData(7, 8);
    EXPECT_EQ(Exported(*shape, 2), (Export{1, this->Opening("         ") + Below(R"(
            <PolyBegin x="1.000000" y="2.000000" />
            <PolyStepSegment x="3.000000" y="4.000000" />
            <PolyStepCurve x="5.000000" y="6.000000" centerX="7.000000" centerY="8.000000" clockwise="TRUE" />
)") + this->Closing("         ")}));
}

TYPED_TEST(DictionaryContour, StopsAtAPointThatCannotBeWritten)
{
    const auto shape = this->With({NewPt(0, 1, 2), new UnwritablePt, NewPt(0, 3, 4)});
    EXPECT_EQ(Exported(*shape),
              (Export{0, this->Opening("   ") + Joined({R"(      <PolyBegin x="1.000000" y="2.000000" />)"})}));
}

TYPED_TEST(DictionaryContour, CopiesHavePointsOfTheirOwn)
{
    using Class = typename TypeParam::Class;
    const auto shape = this->With({NewPt(0, 1, 2), NewPt(0, 3, 4)});
    shape->DrawType = 9;
    Class constructed(*shape);
    const auto assigned = this->With({NewPt(0, 5, 6)});
    *assigned = *shape;
    const std::unique_ptr<Class> cloned(shape->clone());
    const Class & clone = *cloned;
    EXPECT_EQ(typeid(clone), typeid(Class));
    for (Class * copy : {&constructed, assigned.get(), cloned.get()}) {
        EXPECT_EQ(Written(*copy), Written(*shape));
        EXPECT_EQ(copy->DrawType, 9);
        EXPECT_NE(copy->PtArray, shape->PtArray);
        EXPECT_NE(copy->PtArray->GetAt(0), shape->PtArray->GetAt(0));
    }
}

TYPED_TEST(DictionaryContour, AssigningItselfKeepsThePoints)
{
    const auto shape = this->With({NewPt(0, 1, 2)});
    const std::string before = Written(*shape);
    const typename TypeParam::Class & same = *shape;
    *shape = same;
    EXPECT_EQ(Written(*shape), before);
}

TYPED_TEST(DictionaryContour, CloneOfTheBaseGivesAPlainObject)
{
    const auto shape = this->With({NewPt(0, 1, 2)});
    const Base & base = *shape;
    const std::unique_ptr<Base> cloned(base.clone());
    const Base & clone = *cloned;
    EXPECT_EQ(typeid(clone), typeid(Base));
    EXPECT_EQ(clone.DrawType, TypeParam::code);
    EXPECT_EQ(Exported(*cloned), (Export{1, ""}));
    const std::unique_ptr<Base> fromConst(std::as_const(*shape).clone());
    const Base & plain = *fromConst;
    EXPECT_EQ(typeid(plain), typeid(Base));
}

TYPED_TEST(DictionaryContour, AssignmentThroughTheBaseCopiesTheDrawTypeAlone)
{
    const auto source = this->With({NewPt(0, 1, 2)});
    source->DrawType = 9;
    typename TypeParam::Class target;
    static_cast<Base &>(target) = *source;
    EXPECT_EQ(target.DrawType, 9);
    EXPECT_TRUE(target.PtArray->IsEmpty());
}

TYPED_TEST(DictionaryContour, AssigningReachesADerivedClass)
{
    using Class = typename TypeParam::Class;
    class Derived : public Class {
    public:
        using Class::operator=;
        Class & operator=(const Class & /*other*/) override
        {
            wasAssigned = true;
            return *this;
        }
        bool wasAssigned = false;
    };
    Derived derived;
    static_cast<Class &>(derived) = Class();
    EXPECT_TRUE(derived.wasAssigned);
}

TYPED_TEST(DictionaryContour, InitTakesANewListAndLeavesTheOldOneAlive)
{
    const auto shape = this->With({NewPt(0, 1, 2)});
    shape->DrawType = 9;
    const std::unique_ptr<CIPC2581_PtArray> abandoned(shape->PtArray);
    shape->Init();
    EXPECT_EQ(shape->DrawType, TypeParam::code);
    EXPECT_NE(shape->PtArray, abandoned.get());
    EXPECT_TRUE(shape->PtArray->IsEmpty());
    EXPECT_EQ(abandoned->GetAt(0)->EndPoint.X, 1);
}

TYPED_TEST(DictionaryContour, SettingTheListCopiesIt)
{
    const auto shape = this->With({NewPt(0, 1, 2)});
    CIPC2581_PtArray * const list = shape->PtArray;
    const auto other = this->With({NewPt(0, 3, 4), NewPt(0, 5, 6)});
    shape->SetPtArray(other->GetPtArray());
    EXPECT_EQ(shape->PtArray, list);
    EXPECT_EQ(Written(*shape), Written(*other));
    EXPECT_NE(list->GetAt(0), other->PtArray->GetAt(0));
    EXPECT_EQ(other->PtArray->GetSize(), 2);
}

static_assert(std::is_base_of_v<CExPtrArray<Base *, Base *>, Array>);

TEST(DictionaryDrawObjArray, AddsOneOperation)
{
    EXPECT_EQ(Slot(&Array::Export), 8U);
}

TEST(DictionaryDrawObjArray, OwnsItsElements)
{
    static int alive = 0;
    class Counted : public Base {
    public:
        Counted() { ++alive; }
        Counted(const Counted &) = delete;
        Counted & operator=(const Counted &) = delete;
        ~Counted() override { --alive; }
    };
    {
        Array array;
        array.Add(new Counted);
        array.Add(new Counted);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST(DictionaryDrawObjArray, WritesItsElementsAtItsOwnLevel)
{
    Array array;
    EXPECT_EQ(Exported(array), (Export{1, ""}));
    array.Add(new Cutout);
    array.Add(new Base);
    array.Add(new Polygon);
    EXPECT_EQ(Exported(array, 1), (Export{1, "      <Cutout>\n      </Cutout>\n      <Polygon>\n      </Polygon>\n"}));
}

TEST(DictionaryDrawObjArray, StopsAtTheFirstElementThatCannotBeWritten)
{
    Array array;
    array.Add(new Polygon);
    array.Add(new Unwritable<Base>);
    array.Add(new Cutout);
    EXPECT_EQ(Exported(array), (Export{0, "   <Polygon>\n   </Polygon>\nunwritable\n"}));
}

TEST(DictionaryDrawObjArray, CopiesArePlainObjectsThatWriteNothing)
{
    Array source;
    source.Add(new Cutout);
    source.Add(new Polygon);
    Array assigned;
    assigned.Add(new Base);
    assigned = source;
    Array constructed(source);
    for (Array * copy : {&assigned, &constructed}) {
        ASSERT_EQ(copy->GetSize(), 2);
        EXPECT_EQ(copy->GetAt(0)->DrawType, 2);
        EXPECT_EQ(copy->GetAt(1)->DrawType, 1);
        for (std::int64_t i = 0; i < 2; ++i) {
            const Base & element = *copy->GetAt(i);
            EXPECT_EQ(typeid(element), typeid(Base));
        }
        EXPECT_EQ(Exported(*copy), (Export{1, ""}));
    }
    EXPECT_EQ(source.GetSize(), 2);
}

TEST(DictionaryDrawObjArray, ClonesItsElementsThroughTheirOwnOperation)
{
    class Derived : public Base {
    public:
        Derived * clone() const override { return new Derived; }
        int Export(CStdioFile & file, int /*level*/) override
        {
            file.WriteString("derived\n");
            return 1;
        }
    };
    Array source;
    source.Add(new Derived);
    Array copy(source);
    EXPECT_EQ(Written(copy), "derived\n");
}

TEST(DictionaryDrawObjArray, AssigningItselfKeepsTheElements)
{
    Array array;
    array.Add(new Cutout);
    const Base * const element = array.GetAt(0);
    const Array & same = array;
    array = same;
    ASSERT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.GetAt(0), element);
}

}  // namespace
