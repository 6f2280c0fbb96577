#include "ipc2581/cad/Target.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/PointD.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/PolyLine.h"
#include "ipc2581/draw/Xform.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Target = CIPC2581_Ecad_CadData_Step_Target;
using TargetArray = CIPC2581_Ecad_CadData_Step_TargetArray;

// Reads the lines under a Target line and gives those that are left.
Texts Read(Target & target, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    target.TargetAdd(file);
    return file.Rest();
}

std::vector<int> DrawTypes(const Target & target)
{
    std::vector<int> types;
    for (std::int64_t i = 0; i < target.DrawObjArray->GetSize(); ++i) {
        types.push_back(target.DrawObjArray->GetAt(i)->GetDrawType());
    }
    return types;
}

void ExpectAt(const Target & target, double x, double y)
{
    EXPECT_EQ(target.Location.GetX(), x);
    EXPECT_EQ(target.Location.GetY(), y);
}

TEST(Target, StartsEmpty)
{
    const Target target;
    ASSERT_NE(target.Xform, nullptr);
    EXPECT_EQ(target.Xform->Rotation, 0.0);
    EXPECT_EQ(target.Xform->Mirror, 0);
    ExpectAt(target, 0.0, 0.0);
    EXPECT_EQ(target.ID, "NONE");
    ASSERT_NE(target.DrawObjArray, nullptr);
    EXPECT_TRUE(target.DrawObjArray->IsEmpty());
}

TEST(Target, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Target>);
    EXPECT_TRUE(IsVirtual(&Target::Export));
    EXPECT_EQ(Slot(&Target::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Target::TargetAdd));
}

TEST(Target, StoresThePointersThatItIsGivenAndDeletesNothing)
{
    int transforms = 0;
    int lists = 0;
    Target target;
    const std::unique_ptr<CIPC2581_Xform> oldTransform(
        Replace(target.Xform, std::make_unique<Counted<CIPC2581_Xform>>(transforms)));
    const std::unique_ptr<CIPC2581_DrawObjArray> oldShapes(
        Replace(target.DrawObjArray, std::make_unique<Counted<CIPC2581_DrawObjArray>>(lists)));
    auto * const transform = new CIPC2581_Xform;
    auto * const shapes = new CIPC2581_DrawObjArray;
    target.SetXForm(transform);
    target.SetDrawObjArray(shapes);
    EXPECT_EQ(transforms, 0);
    EXPECT_EQ(lists, 0);
    EXPECT_EQ(target.Xform, transform);
    EXPECT_EQ(target.GetXform(), transform);
    EXPECT_EQ(target.DrawObjArray, shapes);
    EXPECT_EQ(target.GetDrawObjArray(), shapes);
}

TEST(Target, TakesLocationAndIdByValue)
{
    Target target;
    target.SetLocation(CPointD(1.5, -2.0));
    target.SetID("T1");
    ExpectAt(target, 1.5, -2.0);
    EXPECT_EQ(target.GetLocation().GetX(), 1.5);
    EXPECT_EQ(target.GetLocation().GetY(), -2.0);
    EXPECT_EQ(target.ID, "T1");
    CString id = target.GetID();
    EXPECT_EQ(id, "T1");
    id = "T2";
    EXPECT_EQ(target.GetID(), "T1");
}

class NotedTransform : public CIPC2581_Xform {
public:
    explicit NotedTransform(Texts & notes) : m_notes(notes) {}
    ~NotedTransform() override { m_notes.emplace_back("transform"); }

private:
    Texts & m_notes;
};

class NotedShapes : public CIPC2581_DrawObjArray {
public:
    explicit NotedShapes(Texts & notes) : m_notes(notes) {}
    ~NotedShapes() override { m_notes.emplace_back("shapes"); }

private:
    Texts & m_notes;
};

TEST(Target, DeletesItsTransformBeforeItsShapes)
{
    Texts notes;
    {
        Target target;
        Replace(target.Xform, std::make_unique<NotedTransform>(notes));
        Replace(target.DrawObjArray, std::make_unique<NotedShapes>(notes));
    }
    EXPECT_EQ(notes, (Texts{"transform", "shapes"}));
}

TEST(Target, GoesWithoutItsParts)
{
    Texts notes;
    {
        Target target;
        Replace(target.Xform, std::make_unique<NotedTransform>(notes));
        delete target.DrawObjArray;
        target.DrawObjArray = nullptr;
    }
    {
        Target target;
        Replace(target.DrawObjArray, std::make_unique<NotedShapes>(notes));
        delete target.Xform;
        target.Xform = nullptr;
    }
    EXPECT_EQ(notes, (Texts{"transform", "shapes"}));
}

TEST(Target, ACopySharesTransformAndShapes)
{
    Target source;
    source.Location.SetData(1.0, 2.0);
    source.ID = "T1";
    Target copy(source);
    ExpectAt(copy, 1.0, 2.0);
    EXPECT_EQ(copy.ID, "T1");
    EXPECT_EQ(copy.Xform, source.Xform);
    EXPECT_EQ(copy.DrawObjArray, source.DrawObjArray);
    copy.Xform = nullptr;
    copy.DrawObjArray = nullptr;
}

TEST(Target, AssignmentSharesTransformAndShapes)
{
    Target source;
    source.Location.SetData(1.0, 2.0);
    source.ID = "T1";
    Target target;
    const std::unique_ptr<CIPC2581_Xform> transform(target.Xform);
    const std::unique_ptr<CIPC2581_DrawObjArray> shapes(target.DrawObjArray);
    EXPECT_EQ(&(target = source), &target);
    ExpectAt(target, 1.0, 2.0);
    EXPECT_EQ(target.ID, "T1");
    EXPECT_EQ(target.Xform, source.Xform);
    EXPECT_EQ(target.DrawObjArray, source.DrawObjArray);
    target.Xform = nullptr;
    target.DrawObjArray = nullptr;
}

TEST(Target, ReadsItsLocationAndItsTwoShapes)
{
    Target target;
    EXPECT_EQ(Read(target, {"<Polyline>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)",
                            R"(<LineDesc lineEnd="SQUARE" lineWidth="0.5"/>)", "</Polyline>",
                            R"(<Location x="5" y="6"/>)", "<Contour>", "<Polygon>", R"(<PolyBegin x="7" y="8"/>)",
                            "</Polygon>", "</Contour>", "</Target>", "left"}),
              Texts{"left"});
    ASSERT_EQ(DrawTypes(target), (std::vector<int>{20, 3}));
    EXPECT_NE(dynamic_cast<CIPC2581_PolyLine *>(target.DrawObjArray->GetAt(0)), nullptr);
    EXPECT_NE(dynamic_cast<CIPC2581_DicDraw_Contour *>(target.DrawObjArray->GetAt(1)), nullptr);
    EXPECT_EQ(target.ID, "NONE");
    ExpectExport(target, Below(R"(
   <Target>
      <Location x="5.000000" y="6.000000" />
      <Polyline>
         <PolyBegin x="1.000000" y="2.000000" />
         <PolyStepSegment x="3.000000" y="4.000000" />
         <LineDesc lineEnd="SQUARE" lineWidth="0.500000" />
      </Polyline>
      <Contour>
         <Polygon>
            <PolyBegin x="7.000000" y="8.000000" />
         </Polygon>
      </Contour>
   </Target>
)"));
}

TEST(Target, IgnoresLinesCirclesAndTransforms)
{
    Target target;
    EXPECT_EQ(
        Read(target, {"", R"(<Circle diameter="1"/>)", R"(<Line startX="1">)", R"(<LineDesc lineWidth="1"/>)",
                      "</Line>", R"(<Xform rotation="90" mirror="TRUE"/>)", R"(<Target ID="T1" id="T2">)", "<PolyLine>",
                      "</PolyLine>", "<contour>", "< Contour>", "</SilkScreen>", "</target>", "</Target>", "left"}),
        Texts{"left"});
    EXPECT_TRUE(target.DrawObjArray->IsEmpty());
    EXPECT_EQ(target.Xform->Rotation, 0.0);
    EXPECT_EQ(target.Xform->Mirror, 0);
    EXPECT_EQ(target.ID, "NONE");
    ExpectAt(target, 0.0, 0.0);
}

TEST(Target, TestsForTheContourFirst)
{
    Target target;
    Read(target,
         {R"(<LocationContour x="1">)", "</Contour>", "<PolylineContour>", "</Polyline>", "</Contour>", "</Target>"});
    EXPECT_EQ(DrawTypes(target), (std::vector<int>{3, 3}));
    ExpectAt(target, 0.0, 0.0);
}

TEST(Target, TestsForTheLocationBeforeThePolyline)
{
    Target target;
    EXPECT_EQ(Read(target, {R"(<PolylineLocation x="1">)", "</Target>", "left"}), Texts{"left"});
    EXPECT_TRUE(target.DrawObjArray->IsEmpty());
    ExpectAt(target, 1.0, 0.0);
}

TEST(Target, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const closing : {"</TargetContour>", R"(</TargetLocation x="1">)", "</TargetPolyline>"}) {
        Target target;
        EXPECT_EQ(Read(target, {"<Contour/>", "</Contour>", R"(<Location/ x="1">)", R"(</Location x="1">)",
                                "<Polyline/>", "</Polyline>", closing, "left"}),
                  Texts{"left"})
            << closing;
        EXPECT_TRUE(target.DrawObjArray->IsEmpty());
        ExpectAt(target, 0.0, 0.0);
    }
}

TEST(Target, ScansItsLocationForXBeforeY)
{
    Target target;
    Read(target, {R"(<Locationy="4" x="3">)", R"(<Location y="9"x="8">)", R"(<Location X="5" yy ="6"/>)", "</Target>"});
    ExpectAt(target, 9.0, 4.0);
    Read(target, {R"(<Location y="bad"/>)", "</Target>"});
    ExpectAt(target, 9.0, 0.0);
}

const Texts kTargetLines = {"<Contour>",  "<Polygon>",   "</Polygon>",  "</Contour>", R"(<Location x="1"/>)",
                            "<Polyline>", "<LineDesc/>", "</Polyline>", "</Target>"};

TEST(Target, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kTargetLines, [](CStdioFile & file, std::size_t lines) {
        Target target;
        target.TargetAdd(file);
        EXPECT_EQ(target.DrawObjArray->GetSize(), lines > 5 ? 2 : static_cast<int>(lines > 0));
        EXPECT_EQ(target.Location.GetX(), lines > 4 ? 1.0 : 0.0);
    });
}

TEST(Target, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kTargetLines, [](CStdioFile & file) { Target().TargetAdd(file); });
}

TEST(Target, LosesTheShapeInHandWithAnException)
{
    for (const char * const line : {"<Contour>", "<Polyline>", R"(<Location x="1>)"}) {
        Target target;
        EXPECT_THROW(Read(target, {"<Contour>", "</Contour>", line, "  ", "</Target>"}), CInvalidArgException) << line;
        EXPECT_EQ(DrawTypes(target), std::vector<int>{3});
    }
}

TEST(Target, WritesItsLocationAndNeitherIdNorTransform)
{
    Target target;
    target.ID = "T1";
    target.Xform->Rotation = 90.0;
    ExpectExport(target, Below(R"(
   <Target>
      <Location x="0.000000" y="0.000000" />
   </Target>
)"));
}

TEST(Target, StopsAtTheFirstShapeThatGivesZero)
{
    Target target;
    target.DrawObjArray->Add(new Writing<CIPC2581_DrawObj>("first"));
    target.DrawObjArray->Add(new Writing<CIPC2581_DrawObj>("second", 0));
    target.DrawObjArray->Add(new CIPC2581_DicDraw_Circle);
    EXPECT_EQ(Exported(target), (Export{0, Below(R"(
   <Target>
      <Location x="0.000000" y="0.000000" />
first 1
second 1
)")}));
}

TEST(TargetArray, OwnsItsTargets)
{
    ExpectOwnsItsElements<TargetArray, Target>();
}

TEST(TargetArray, WritesItsTargets)
{
    ExpectWritesItsElements<TargetArray, Target>();
}

}  // namespace
