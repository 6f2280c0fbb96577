#include "ipc2581/cad/SilkScreenTarget.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "tests/cad/PackageParts.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using SilkScreenTargetArray = CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray;

// A contour with one polygon, as a target of the silk screen reads it.
const LineList kContourTarget = {R"(<Location x="1" y="2"/>)",
                                 "<Contour>",
                                 "<Polygon>",
                                 R"(<PolyStepSegment x="3" y="4"/>)",
                                 "</Polygon>",
                                 "</Contour>",
                                 "</Target>"};

const CIPC2581_DicDraw_Contour & ContourAt(const SilkScreenTarget & target, std::int64_t index)
{
    return dynamic_cast<const CIPC2581_DicDraw_Contour &>(*target.DrawObjArray.GetAt(index));
}

TEST(SilkScreenTarget, StartsEmpty)
{
    const SilkScreenTarget target;
    EXPECT_EQ(target.Location.GetX(), 0.0);
    EXPECT_EQ(target.Location.GetY(), 0.0);
    EXPECT_TRUE(target.DrawObjArray.IsEmpty());
}

TEST(SilkScreenTarget, HasAVirtualDestructorAndCannotBeWritten)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<SilkScreenTarget>);
    EXPECT_FALSE(HasExport<SilkScreenTarget>);
    EXPECT_FALSE(IsVirtual(&SilkScreenTarget::TargetAdd));
}

TEST(SilkScreenTarget, ReadsContoursWithTheDrawTypeFive)
{
    SilkScreenTarget target;
    EXPECT_EQ(Read(target, {"<Contour>", "<Polygon>", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", "<Cutout>",
                            "</Cutout>", "</Contour>", R"(<Location x="1" y="2"/>)", "<Contour>", "</Contour>",
                            "</Target>", "left"}),
              Texts{"left"});
    EXPECT_EQ(target.Location.GetX(), 1.0);
    EXPECT_EQ(target.Location.GetY(), 2.0);
    ASSERT_EQ(target.DrawObjArray.GetSize(), 2);
    EXPECT_EQ(ContourAt(target, 0).DrawType, 5);
    EXPECT_EQ(ContourAt(target, 0).DicDrawObjArray->GetSize(), 2);
    EXPECT_EQ(ContourAt(target, 1).DrawType, 5);
    EXPECT_EQ(ContourAt(target, 1).DicDrawObjArray->GetSize(), 0);
    EXPECT_EQ(CIPC2581_DicDraw_Contour().DrawType, 3);
}

TEST(SilkScreenTarget, TestsForTheContourBeforeTheLocation)
{
    SilkScreenTarget target;
    Read(target, {R"(<LocationContour x="1" y="2">)", "</Contour>", "</Target>"});
    EXPECT_EQ(target.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(target.Location.GetX(), 0.0);
}

TEST(SilkScreenTarget, ASlashTurnsContourAndLocationAway)
{
    for (const char * const closing : {"</TargetContour>", R"(</TargetLocation x="1">)"}) {
        SCOPED_TRACE(closing);
        SilkScreenTarget target;
        EXPECT_EQ(
            Read(target, {"<Contour/>", "</Contour>", R"(<Location/ x="1">)", R"(</Location y="1">)", closing, "left"}),
            Texts{"left"});
        EXPECT_TRUE(target.DrawObjArray.IsEmpty());
        EXPECT_EQ(target.Location.GetX(), 0.0);
        EXPECT_EQ(target.Location.GetY(), 0.0);
    }
}

TEST(SilkScreenTarget, IgnoresPolylinesAndOtherLines)
{
    SilkScreenTarget target;
    Read(target, {"", "<Polyline>", R"(<PolyBegin x="1"/>)", "</Polyline>", R"(<Circle diameter="1"/>)",
                  R"(<Xform rotation="1"/>)", "</Target>"});
    EXPECT_TRUE(target.DrawObjArray.IsEmpty());
}

TEST(SilkScreenTarget, ScansItsLocationForXBeforeY)
{
    SilkScreenTarget target;
    Read(target, {R"(<Locationy="4" x="3">)", R"(<Location y="9"x="8">)", R"(<Location X="5" xs="6">)", "</Target>"});
    EXPECT_EQ(target.Location.GetX(), 9.0);
    EXPECT_EQ(target.Location.GetY(), 4.0);
}

TEST(SilkScreenTarget, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile({"<Contour>", "<Polygon>", "</Polygon>", "</Contour>", R"(<Location x="1"/>)", "</Target>"},
                     [](CStdioFile & file, std::size_t lines) {
                         SilkScreenTarget target;
                         target.TargetAdd(file);
                         EXPECT_EQ(target.DrawObjArray.GetSize(), lines > 0 ? 1 : 0);
                         EXPECT_EQ(target.Location.GetX(), lines > 4 ? 1.0 : 0.0);
                     });
}

TEST(SilkScreenTarget, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows({"<Contour>", "<Polygon>", "</Polygon>", "</Contour>", "</Target>"},
                             [](CStdioFile & file) { SilkScreenTarget().TargetAdd(file); });
}

TEST(SilkScreenTarget, CopiesItsShapesThroughTheirClones)
{
    SilkScreenTarget source;
    Read(source, kContourTarget);
    source.DrawObjArray.Add(new CIPC2581_DicDraw_Circle);
    const SilkScreenTarget copy(source);
    SilkScreenTarget target;
    target.DrawObjArray.Add(new CIPC2581_DrawObj);
    EXPECT_EQ(&(target = source), &target);
    for (const SilkScreenTarget * const one : {&copy, static_cast<const SilkScreenTarget *>(&target)}) {
        EXPECT_EQ(one->Location.GetX(), 1.0);
        EXPECT_EQ(one->Location.GetY(), 2.0);
        ASSERT_EQ(one->DrawObjArray.GetSize(), 2);
        EXPECT_NE(one->DrawObjArray.GetAt(0), source.DrawObjArray.GetAt(0));
        EXPECT_EQ(ContourAt(*one, 0).DrawType, 5);
        // What a contour holds becomes a plain shape in its clone.
        EXPECT_TRUE(IsA<CIPC2581_DrawObj>(ContourAt(*one, 0).DicDrawObjArray->GetAt(0)));
        EXPECT_TRUE(IsA<CIPC2581_DicDraw_Circle>(one->DrawObjArray.GetAt(1)));
    }
}

TEST(SilkScreenTarget, AssignmentToItselfKeepsItsShapes)
{
    SilkScreenTarget target;
    Read(target, kContourTarget);
    const SilkScreenTarget & same = target;
    target = same;
    ASSERT_EQ(target.DrawObjArray.GetSize(), 1);
    EXPECT_EQ(ContourAt(target, 0).DrawType, 5);
    EXPECT_EQ(target.Location.GetX(), 1.0);
}

TEST(SilkScreenTargetArray, OwnsItsElementsAndCannotBeWritten)
{
    ExpectOwnsItsElements<SilkScreenTargetArray, SilkScreenTarget>();
    EXPECT_FALSE(HasExport<SilkScreenTargetArray>);
}

}  // namespace
