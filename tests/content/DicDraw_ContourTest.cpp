#include "ipc2581/content/DicDraw_Contour.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/draw/Cutout.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Polygon.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Contour = CIPC2581_DicDraw_Contour;
using Shape = CIPC2581_DrawObj;
using List = CArray<CString, CString>;

// The draw types of the shapes in the list.
std::vector<int> Types(const CIPC2581_DrawObjArray & shapes)
{
    std::vector<int> types;
    for (std::int64_t i = 0; i < shapes.GetSize(); ++i) {
        types.push_back(shapes.GetAt(i)->GetDrawType());
    }
    return types;
}

std::vector<int> Types(const Contour & contour)
{
    return Types(*contour.DicDrawObjArray);
}

// What a new contour holds after it has read these lines.
std::vector<int> Read(std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    Contour contour;
    EXPECT_EQ(contour.Import(file), 1);
    return Types(contour);
}

// A contour with a circle, which a copied list keeps.
std::unique_ptr<Contour> WithCircle(double diameter)
{
    auto contour = std::make_unique<Contour>();
    auto circle = std::make_unique<CIPC2581_DicDraw_Circle>();
    circle->Diameter = diameter;
    contour->DicDrawObjArray->Add(circle.release());
    return contour;
}

// A contour with a polygon and a cutout.
std::unique_ptr<Contour> WithPolygonAndCutout()
{
    auto contour = std::make_unique<Contour>();
    Lines lines({"<Polygon>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>",
                 "<Cutout>", R"(<PolyBegin x="5" y="6"/>)",
                 R"(<PolyStepCurve x="1" y="2" centerX="3" centerY="4" clockwise="TRUE"/>)", "</Cutout>",
                 "</Contour>"});
    EXPECT_EQ(contour->Import(lines), 1);
    return contour;
}

TEST(DicDraw_Contour, StartsWithItsDrawTypeAndAnEmptyList)
{
    const Contour contour;
    EXPECT_EQ(contour.DrawType, 3);
    ASSERT_NE(contour.DicDrawObjArray, nullptr);
    EXPECT_TRUE(contour.DicDrawObjArray->IsEmpty());
    EXPECT_EQ(contour.GetDicDrawObjArray(), contour.DicDrawObjArray);
}

TEST(DicDraw_Contour, IsADrawingObjectFirstAndThenAReader)
{
    const Contour contour;
    EXPECT_EQ(static_cast<const void *>(static_cast<const Shape *>(&contour)), &contour);
    EXPECT_GT(static_cast<const void *>(static_cast<const CIPC2581_XmlDataAdd_Function *>(&contour)), &contour);
}

TEST(DicDraw_Contour, ItsAssignmentFollowsTheOperationsOfEveryShape)
{
    EXPECT_EQ(Slot(&Shape::clone), 2U);
    EXPECT_EQ(Slot(static_cast<Shape & (Shape::*)(const Shape &)>(&Shape::operator=)), 3U);
    EXPECT_EQ(Slot(static_cast<int (Shape::*)(List &)>(&Shape::Import)), 4U);
    EXPECT_EQ(Slot(static_cast<int (Shape::*)(CStdioFile &)>(&Shape::Import)), 5U);
    EXPECT_EQ(Slot(&Shape::Export), 6U);
    EXPECT_EQ(Slot(static_cast<Contour & (Contour::*)(const Contour &)>(&Contour::operator=)), 7U);
}

TEST(DicDraw_Contour, ReadsPolygonsAndCutoutsInFileOrder)
{
    Lines lines({"<Cutout>", "</Cutout>", R"(  <Polygon a="1">)", "</Polygon>", "<Cutout>", "</Cutout>", "</Contour>",
                 "<Next/>"});
    Contour contour;
    EXPECT_EQ(static_cast<Shape &>(contour).Import(lines), 1);
    EXPECT_EQ(Types(contour), (std::vector<int>{23, 22, 23}));
    EXPECT_NE(dynamic_cast<CIPC2581_Cutout *>(contour.DicDrawObjArray->GetAt(0)), nullptr);
    EXPECT_NE(dynamic_cast<CIPC2581_Polygon *>(contour.DicDrawObjArray->GetAt(1)), nullptr);
    EXPECT_EQ(lines.Rest(), Texts({"<Next/>"}));
}

TEST(DicDraw_Contour, AddsToWhatItHolds)
{
    const std::unique_ptr<Contour> contour = WithCircle(1);
    Lines lines({"<Polygon>", "</Polygon>", "</Contour>"});
    EXPECT_EQ(contour->Import(lines), 1);
    EXPECT_EQ(Types(*contour), (std::vector<int>{2, 22}));
}

TEST(DicDraw_Contour, LetsItsShapesReadTheirOwnLines)
{
    const std::unique_ptr<Contour> contour = WithPolygonAndCutout();
    ASSERT_EQ(Types(*contour), (std::vector<int>{22, 23}));
    auto & polygon = dynamic_cast<CIPC2581_Polygon &>(*contour->DicDrawObjArray->GetAt(0));
    EXPECT_EQ(polygon.PolyBegin->GetPoint_X(), 1);
    EXPECT_EQ(polygon.PolyStepArray->GetSize(), 1);
    auto & cutout = dynamic_cast<CIPC2581_Cutout &>(*contour->DicDrawObjArray->GetAt(1));
    EXPECT_EQ(cutout.PolyBegin->GetPoint_Y(), 6);
    EXPECT_EQ(cutout.PolyStepArray->GetSize(), 1);
}

TEST(DicDraw_Contour, TakesAPolygonForATokenThatHoldsBothNames)
{
    EXPECT_EQ(Read({"<CutoutPolygon>", "</Polygon>", "</Contour>"}), std::vector<int>{22});
    EXPECT_EQ(Read({"<PolygonCutout >", "</Polygon>", "</Contour>"}), std::vector<int>{22});
}

TEST(DicDraw_Contour, PassesOverWhatHoldsASlash)
{
    EXPECT_EQ(Read({"</Polygon>", "</Cutout>", "<Polygon/>", "<Cutout/>", "</Contour>"}), std::vector<int>{});
    EXPECT_EQ(Read({"</Polygon >", "<Cutout/ >", "<Polygon>", "</Polygon>", "</Contour>"}), std::vector<int>{22});
}

TEST(DicDraw_Contour, TakesASlashBehindTheFirstTokenForAnOpeningAllTheSame)
{
    EXPECT_EQ(Read({"<Polygon />", "<Cutout>", "</Cutout>", "</Polygon>", "</Contour>"}), std::vector<int>{22});
    EXPECT_EQ(Read({"<Cutout />", "<Polygon>", "</Cutout>", "</Contour>"}), std::vector<int>{23});
}

TEST(DicDraw_Contour, EndsAtAnyTokenThatHoldsItsClosingTag)
{
    for (const char * end :
         {"</Contour>", "  </Contour >", "</ContourPolygon>", "</Cutout></Contour>", "</Contours>"}) {
        Lines lines({end, "<Polygon>"});
        Contour contour;
        EXPECT_EQ(contour.Import(lines), 1);
        EXPECT_EQ(Types(contour), std::vector<int>{}) << end;
        EXPECT_EQ(lines.Rest(), Texts({"<Polygon>"})) << end;
    }
}

TEST(DicDraw_Contour, PassesOverEveryOtherLine)
{
    EXPECT_EQ(Read({"", "<Contour>", R"(<LineDesc lineWidth="1"/>)", R"(<Circle a="Polygon"/>)", "<x Cutout>",
                    "<x /Contour>", "<polygon>", "<CUTOUT>", "<Cutout>", "</Cutout>", "</Contour>"}),
              std::vector<int>{23});
}

TEST(DicDraw_Contour, KeepsWhatTheEndOfTheFileCutShort)
{
    EXPECT_EQ(Read({}), std::vector<int>{});
    EXPECT_EQ(Read({"<Polygon>", "</Polygon>", "<Cutout>"}), (std::vector<int>{22, 23}));
    EXPECT_EQ(Read({"<Polygon>", R"(<PolyBegin x="1" y="2"/>)"}), std::vector<int>{22});
}

TEST(DicDraw_Contour, ThrowsForALineOfBlanks)
{
    Contour contour;
    Lines lines({"<Polygon>", "</Polygon>", "  ", "<Cutout>"});
    EXPECT_THROW(contour.Import(lines), CInvalidArgException);
    EXPECT_EQ(Types(contour), std::vector<int>{22});
    EXPECT_EQ(lines.Rest(), Texts({"<Cutout>"}));
}

TEST(DicDraw_Contour, LosesTheShapeInWhichAnExceptionPasses)
{
    for (const char * line : {" ", R"(<PolyBegin x="1)", R"(<PolyStepSegment x="1)"}) {
        Contour contour;
        Lines lines({"<Cutout>", "</Cutout>", "<Polygon>", line});
        EXPECT_THROW(contour.Import(lines), CInvalidArgException);
        EXPECT_EQ(Types(contour), std::vector<int>{23}) << line;
    }
}

TEST(DicDraw_Contour, ReadsNothingFromATokenList)
{
    Contour contour;
    EXPECT_EQ(static_cast<Shape &>(contour).Import(Tokens(R"(<Polygon x="1">)")), 1);
    EXPECT_TRUE(contour.DicDrawObjArray->IsEmpty());
    EXPECT_EQ(contour.DrawType, 3);
}

TEST(DicDraw_Contour, WritesItsShapesOneLevelDeeper)
{
    const std::unique_ptr<Contour> contour = WithPolygonAndCutout();
    const std::string text = Below(R"(
   <Contour>
      <Polygon>
         <PolyBegin x="1.000000" y="2.000000" />
         <PolyStepSegment x="3.000000" y="4.000000" />
      </Polygon>
      <Cutout>
         <PolyBegin x="5.000000" y="6.000000" />
         <PolyStepCurve x="1.000000" y="2.000000" centerX="3.000000" centerY="4.000000" clockwise="FALSE" />
      </Cutout>
   </Contour>
)");
    EXPECT_EQ(Exported(*contour), (Export{1, text}));
}

TEST(DicDraw_Contour, WritesTwoLinesForAnEmptyList)
{
    Contour contour;
    EXPECT_EQ(Exported(contour), (Export{1, "   <Contour>\n   </Contour>\n"}));
    EXPECT_EQ(Exported(contour, 2), (Export{1, "         <Contour>\n         </Contour>\n"}));
}

TEST(DicDraw_Contour, StopsAtAShapeThatCannotBeWritten)
{
    const std::unique_ptr<Contour> contour = WithCircle(1);
    contour->DicDrawObjArray->Add(new Shape);
    contour->DicDrawObjArray->Add(new CIPC2581_DicDraw_Circle);
    EXPECT_EQ(Exported(*contour), (Export{0, Joined({"   <Contour>", R"(      <Circle diameter="1.000000" />)"})}));
}

TEST(DicDraw_Contour, CopiesLoseTheirPolygonsAndCannotBeWritten)
{
    const std::unique_ptr<Contour> source = WithPolygonAndCutout();
    const std::string before = Written(*source);
    Contour constructed(*source);
    Contour assigned;
    assigned = *source;
    const std::unique_ptr<Shape> cloned(std::as_const(*source).clone());
    for (const Contour * copy : {&constructed, &assigned, dynamic_cast<Contour *>(cloned.get())}) {
        EXPECT_EQ(Types(*copy), (std::vector<int>{22, 23}));
        const Shape & first = *copy->DicDrawObjArray->GetAt(0);
        EXPECT_EQ(typeid(first), typeid(Shape));
    }
    EXPECT_EQ(Exported(constructed), (Export{0, "   <Contour>\n"}));
    EXPECT_EQ(Exported(assigned), (Export{0, "   <Contour>\n"}));
    EXPECT_EQ(Exported(*cloned, 1), (Export{0, "      <Contour>\n"}));
    EXPECT_EQ(Written(*source), before);
}

TEST(DicDraw_Contour, CopiesKeepTheirPrimitivesAndTheDrawType)
{
    const std::unique_ptr<Contour> source = WithCircle(2);
    source->DrawType = 99;
    const std::string text = Below(R"(
   <Contour>
      <Circle diameter="2.000000" />
   </Contour>
)");
    Contour constructed(*source);
    const std::unique_ptr<Contour> assigned = WithCircle(5);
    *assigned = *source;
    const std::unique_ptr<Shape> cloned(std::as_const(*source).clone());
    const Shape & clone = *cloned;
    EXPECT_EQ(typeid(clone), typeid(Contour));
    for (Shape * copy : {static_cast<Shape *>(&constructed), static_cast<Shape *>(assigned.get()), cloned.get()}) {
        EXPECT_EQ(Exported(*copy), (Export{1, text}));
        EXPECT_EQ(copy->DrawType, 99);
    }
    EXPECT_NE(constructed.DicDrawObjArray, source->DicDrawObjArray);
    EXPECT_NE(assigned->DicDrawObjArray->GetAt(0), source->DicDrawObjArray->GetAt(0));
}

TEST(DicDraw_Contour, AssigningItselfKeepsItsShapes)
{
    const std::unique_ptr<Contour> contour = WithPolygonAndCutout();
    const std::string before = Written(*contour);
    const Contour & same = *contour;
    *contour = same;
    EXPECT_EQ(Exported(*contour), (Export{1, before}));
}

TEST(DicDraw_Contour, AssignmentThroughTheBaseCopiesTheDrawTypeAlone)
{
    const std::unique_ptr<Contour> source = WithCircle(2);
    source->DrawType = 99;
    Contour target;
    static_cast<Shape &>(target) = *source;
    EXPECT_EQ(target.DrawType, 99);
    EXPECT_TRUE(target.DicDrawObjArray->IsEmpty());
}

TEST(DicDraw_Contour, AssigningReachesADerivedClass)
{
    class Derived : public Contour {
    public:
        using Contour::operator=;
        Contour & operator=(const Contour & /*other*/) override
        {
            wasAssigned = true;
            return *this;
        }
        bool wasAssigned = false;
    };
    Derived derived;
    static_cast<Contour &>(derived) = Contour();
    EXPECT_TRUE(derived.wasAssigned);
}

TEST(DicDraw_Contour, InitEmptiesTheListThatItHas)
{
    const std::unique_ptr<Contour> contour = WithPolygonAndCutout();
    CIPC2581_DrawObjArray * const list = contour->DicDrawObjArray;
    contour->DrawType = 99;
    contour->Init();
    EXPECT_EQ(contour->DicDrawObjArray, list);
    EXPECT_TRUE(list->IsEmpty());
    EXPECT_EQ(contour->DrawType, 3);
}

TEST(DicDraw_Contour, InitMakesAMissingList)
{
    Contour contour;
    const std::unique_ptr<CIPC2581_DrawObjArray> list(contour.DicDrawObjArray);
    contour.DicDrawObjArray = nullptr;
    contour.Init();
    ASSERT_NE(contour.DicDrawObjArray, nullptr);
    EXPECT_TRUE(contour.DicDrawObjArray->IsEmpty());
}

TEST(DicDraw_Contour, SettingTheListCopiesItsShapes)
{
    const std::unique_ptr<Contour> contour = WithCircle(1);
    CIPC2581_DrawObjArray * const list = contour->DicDrawObjArray;
    const std::unique_ptr<Contour> other = WithCircle(2);
    contour->SetDicDrawObjArray(other->GetDicDrawObjArray());
    EXPECT_EQ(contour->DicDrawObjArray, list);
    EXPECT_EQ(Written(*contour), Written(*other));
    EXPECT_NE(list->GetAt(0), other->DicDrawObjArray->GetAt(0));
    EXPECT_EQ(other->DicDrawObjArray->GetSize(), 1);
}

}  // namespace
