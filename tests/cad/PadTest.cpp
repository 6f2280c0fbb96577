#include "ipc2581/cad/Pad.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;
using PadArray = CIPC2581_Ecad_CadData_Step_PadArray;

// Reads the lines under a Pad line and gives those that are left.
Texts Read(Pad & pad, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    pad.PadAdd(file);
    return file.Rest();
}

void Fill(Pad & pad)
{
    pad.UsePinPrefix = 1;
    pad.LayerRef = "TOP";
    pad.Pin = "1";
    pad.PinPrefix = "P";
    pad.Rotation = 90.0;
    pad.Location.SetData(1.5, -2.0);
    pad.StandardPrimitiveRefId = "C1";
}

void ExpectFilled(const Pad & pad)
{
    EXPECT_EQ(pad.UsePinPrefix, 1);
    EXPECT_EQ(pad.LayerRef, "TOP");
    EXPECT_EQ(pad.Pin, "1");
    EXPECT_EQ(pad.PinPrefix, "P");
    EXPECT_EQ(pad.Rotation, 90.0);
    EXPECT_EQ(pad.Location.GetX(), 1.5);
    EXPECT_EQ(pad.Location.GetY(), -2.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "C1");
}

void ExpectDefault(const Pad & pad)
{
    EXPECT_EQ(pad.UsePinPrefix, 0);
    EXPECT_EQ(pad.LayerRef, "");
    EXPECT_EQ(pad.Pin, "");
    EXPECT_EQ(pad.PinPrefix, "");
    EXPECT_EQ(pad.Rotation, 0.0);
    EXPECT_EQ(pad.Location.GetX(), 0.0);
    EXPECT_EQ(pad.Location.GetY(), 0.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "");
}

TEST(Pad, StartsEmpty)
{
    ExpectDefault(Pad());
}

TEST(Pad, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Pad>);
    EXPECT_TRUE(IsVirtual(&Pad::Export));
    EXPECT_EQ(Slot(&Pad::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Pad::PadAdd));
}

TEST(Pad, InitGivesTheDefaults)
{
    Pad pad;
    Fill(pad);
    pad.Init();
    ExpectDefault(pad);
}

TEST(Pad, CopiesAllItsFields)
{
    Pad source;
    Fill(source);
    const Pad copy(source);
    ExpectFilled(copy);
    Pad target;
    EXPECT_EQ(&(target = source), &target);
    ExpectFilled(target);
    const Pad & same = target;
    target = same;
    ExpectFilled(target);
}

TEST(Pad, GivesItsReferenceOutByValue)
{
    Pad pad;
    pad.SetStandardPrimitiveRefId("C1");
    EXPECT_EQ(pad.StandardPrimitiveRefId, "C1");
    CString id = pad.GetStandardPrimitiveRefId();
    EXPECT_EQ(id, "C1");
    id = "C2";
    EXPECT_EQ(pad.GetStandardPrimitiveRefId(), "C1");
}

TEST(Pad, ReadsTheLinesUnderIt)
{
    Pad pad;
    EXPECT_EQ(Read(pad, {R"(<StandardPrimitiveRef id="C1"/>)", R"(<Location x="1.5" y="-2"/>)",
                         R"(<Xform rotation="90"/>)", "</Pad>", "left"}),
              Texts{"left"});
    EXPECT_EQ(pad.Rotation, 90.0);
    EXPECT_EQ(pad.Location.GetX(), 1.5);
    EXPECT_EQ(pad.Location.GetY(), -2.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "C1");
    EXPECT_EQ(pad.UsePinPrefix, 0);
    EXPECT_EQ(pad.PinPrefix, "");
}

TEST(Pad, TakesTheLastOfItsLines)
{
    Pad pad;
    Read(pad, {R"(<Xform rotation="90"/>)", R"(<Location x="1" y="2"/>)", R"(<StandardPrimitiveRef id="A"/>)",
               R"(<Xform rotation="180"/>)", R"(<Location x="3"/>)", R"(<StandardPrimitiveRef id="B"/>)", "</Pad>"});
    EXPECT_EQ(pad.Rotation, 180.0);
    EXPECT_EQ(pad.Location.GetX(), 3.0);
    EXPECT_EQ(pad.Location.GetY(), 2.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "B");
}

TEST(Pad, TestsForTheTransformFirst)
{
    Pad pad;
    Read(pad, {R"(<LocationXform rotation="90" x="1">)", "</Pad>"});
    EXPECT_EQ(pad.Rotation, 90.0);
    EXPECT_EQ(pad.Location.GetX(), 0.0);
}

TEST(Pad, TestsForTheLocationBeforeTheReference)
{
    Pad pad;
    Read(pad, {R"(<StandardPrimitiveRefLocation x="1" id="A">)", "</Pad>"});
    EXPECT_EQ(pad.Location.GetX(), 1.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "");
}

TEST(Pad, NoSlashTurnsTransformAndReferenceAway)
{
    Pad pad;
    EXPECT_EQ(
        Read(pad, {"<Xform/>", R"(<Xform/ rotation="30">)", R"(<StandardPrimitiveRef/ id="A">)", "</Pad>", "left"}),
        Texts{"left"});
    EXPECT_EQ(pad.Rotation, 30.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "A");
    EXPECT_EQ(
        Read(pad, {R"(</PadXform rotation="60">)", R"(</LayerPadStandardPrimitiveRef id="B">)", "</Pad>", "left"}),
        Texts{"left"});
    EXPECT_EQ(pad.Rotation, 60.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "B");
}

TEST(Pad, ALocationWithASlashFallsThrough)
{
    Pad pad;
    EXPECT_EQ(Read(pad, {"<Location/>", R"(<Location/ x="1">)", R"(</Location x="1">)",
                         R"(<Location/StandardPrimitiveRef id="A" x="1">)", R"(</PadLocation x="1">)", "left"}),
              Texts{"left"});
    EXPECT_EQ(pad.Location.GetX(), 0.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "A");
}

TEST(Pad, EndsAtAnyClosingTagOfItsFamily)
{
    for (const char * const closing :
         {"</Pad>", "</LayerPad>", "</PadStack>", "</PadstackDef>", R"(</LayerPadLocation x="1">)", "x/Pad"}) {
        Pad pad;
        EXPECT_EQ(Read(pad, {closing, "left"}), Texts{"left"}) << closing;
        EXPECT_EQ(pad.Location.GetX(), 0.0);
    }
}

TEST(Pad, IgnoresEmptyAndUnknownLines)
{
    Pad pad;
    EXPECT_EQ(Read(pad, {"", R"(<Special rotation="90" x="1">)", R"(< Xform rotation="90">)", R"(<location x="1">)",
                         R"(<Pad pin="1">)", "</Special>", "</pad>", "</Pad>", "left"}),
              Texts{"left"});
    ExpectDefault(pad);
}

TEST(Pad, ScansFromTheFirstTokenForWordsWithAnEqualSign)
{
    Pad pad;
    Read(pad, {R"(<Xformrotation="90" rotations="1" Rotation="2">)", R"(<Locationx="3" y="4" X="5" ys="6">)",
               R"(<StandardPrimitiveRefid="A" ids="B">)", "</Pad>"});
    EXPECT_EQ(pad.Rotation, 90.0);
    EXPECT_EQ(pad.Location.GetX(), 3.0);
    EXPECT_EQ(pad.Location.GetY(), 4.0);
    EXPECT_EQ(pad.StandardPrimitiveRefId, "A");
}

TEST(Pad, ScansItsLocationForXBeforeY)
{
    Pad pad;
    Read(pad, {R"(<Location y="9"x="8">)", "</Pad>"});
    EXPECT_EQ(pad.Location.GetX(), 9.0);
    EXPECT_EQ(pad.Location.GetY(), 0.0);
}

TEST(Pad, ReadsABadNumberAsZero)
{
    Pad pad;
    Fill(pad);
    Read(pad, {R"(<Xform rotation="left"/>)", R"(<Location x="" y="b2"/>)", "</Pad>"});
    EXPECT_EQ(pad.Rotation, 0.0);
    EXPECT_EQ(pad.Location.GetX(), 0.0);
    EXPECT_EQ(pad.Location.GetY(), 0.0);
}

const Texts kPadLines = {R"(<Xform rotation="90"/>)", R"(<Location x="1" y="2"/>)", R"(<StandardPrimitiveRef id="A"/>)",
                         "</Pad>"};

TEST(Pad, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kPadLines, [](CStdioFile & file, std::size_t lines) {
        Pad pad;
        pad.PadAdd(file);
        EXPECT_EQ(pad.Rotation, lines > 0 ? 90.0 : 0.0);
        EXPECT_EQ(pad.Location.GetY(), lines > 1 ? 2.0 : 0.0);
        EXPECT_EQ(pad.StandardPrimitiveRefId, lines > 2 ? "A" : "");
    });
}

TEST(Pad, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kPadLines, [](CStdioFile & file) { Pad().PadAdd(file); });
}

TEST(Pad, ThrowsForAValueThatItsLineDoesNotClose)
{
    for (const char * const line :
         {R"(<Xform rotation="9>)", R"(<Location x="1>)", "<Location y=1>", R"(<StandardPrimitiveRef id="A>)"}) {
        Pad pad;
        EXPECT_THROW(Read(pad, {line, "</Pad>"}), CInvalidArgException) << line;
    }
}

const std::string kEmptyChildren = Below(R"(
      <Location x="0.000000" y="0.000000"/>
      <StandardPrimitiveRef id=""/>
   </Pad>
)");

TEST(Pad, OpensByItsPinAndItsPrefix)
{
    const struct {
        const char * pin;
        int usePrefix;
        const char * line;
    } rows[] = {
        {"", 0, "   <Pad>"},
        {"", 1, "   <Pad>"},
        {"1", 0, R"(   <Pad pin="1">)"},
        {"1", 1, R"(   <Pad pin="P.1">)"},
        {"1", -1, R"(   <Pad pin="P.1">)"},
        {"U1.2", 0, R"(   <Pad pin="U1.2">)"},
    };
    for (const auto & row : rows) {
        SCOPED_TRACE(row.line);
        Pad pad;
        pad.Pin = row.pin;
        pad.PinPrefix = "P";
        pad.UsePinPrefix = row.usePrefix;
        ExpectExport(pad, Joined({row.line}) + kEmptyChildren);
    }
}

TEST(Pad, WritesAnEmptyPrefixWithItsPoint)
{
    Pad pad;
    pad.Pin = "1";
    pad.UsePinPrefix = 1;
    ExpectExport(pad, Joined({R"(   <Pad pin=".1">)"}) + kEmptyChildren);
}

TEST(Pad, WritesItsRotationUnlessItIsZero)
{
    Pad pad;
    for (const double none : {0.0, -0.0}) {
        pad.Rotation = none;
        ExpectExport(pad, "   <Pad>\n" + kEmptyChildren);
    }
    pad.Rotation = -90.5;
    ExpectExport(pad, Joined({"   <Pad>", R"(      <Xform rotation="-90.500000"/>)"}) + kEmptyChildren);
    pad.Rotation = 1e-9;
    ExpectExport(pad, Joined({"   <Pad>", R"(      <Xform rotation="0.000000"/>)"}) + kEmptyChildren);
}

TEST(Pad, WritesAPadAndNotItsLayer)
{
    Pad pad;
    Fill(pad);
    pad.UsePinPrefix = 0;
    ExpectExport(pad, Below(R"(
   <Pad pin="1">
      <Xform rotation="90.000000"/>
      <Location x="1.500000" y="-2.000000"/>
      <StandardPrimitiveRef id="C1"/>
   </Pad>
)"));
}

TEST(PadArray, OwnsItsPads)
{
    ExpectOwnsItsElements<PadArray, Pad>();
}

TEST(PadArray, WritesItsPads)
{
    ExpectWritesItsElements<PadArray, Pad>();
}

}  // namespace
