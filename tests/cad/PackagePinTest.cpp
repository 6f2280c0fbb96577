#include "ipc2581/cad/PackagePin.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/cad/Package.h"
#include "ipc2581/cad/PackageOutline.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Polygon.h"
#include "ipc2581/draw/Xform.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using Pin = CIPC2581_Ecad_CadData_Step_Package_Pin;
using PinArray = CIPC2581_Ecad_CadData_Step_Package_PinArray;

// Reads the lines under a Pin line and gives those that are left.
Texts Read(Pin & pin, LineList lines)
{
    Lines file(lines);
    pin.PinAdd(file);
    return file.Rest();
}

void ReadPackage(Package & package, LineList lines)
{
    Lines file(lines);
    package.PackageAdd(file);
}

// Reads a package whose one pin has this opening line, and gives the texts of that line.
std::array<std::string, 4> Opened(std::string_view line)
{
    Package package;
    ReadPackage(package, {line, "</Pin>", "</Package>"});
    EXPECT_EQ(package.PinArray.GetSize(), 1) << line;
    if (package.PinArray.IsEmpty()) {
        return {};
    }
    const Pin & pin = *package.PinArray.GetAt(0);
    return {Str(pin.number), Str(pin.name), Str(pin.type), Str(pin.electricalType)};
}

void Fill(Pin & pin)
{
    pin.number = "1";
    pin.name = "A";
    pin.type = "THRU";
    pin.electricalType = "ELECTRICAL";
    pin.SpareText = "spare";
    pin.Xform->Rotation = 90.0;
    pin.Location.SetData(1.5, -2.0);
    pin.StandardPrimitiveRef = "C1";
    pin.Outline.LineDesc->LineEnd = "SQUARE";
    pin.Outline.Polygon->PolyBegin->SetPoint_X(7.0);
}

void ExpectTextsOf(const Pin & pin, const std::array<const char *, 6> & texts)
{
    EXPECT_EQ(pin.number, texts[0]);
    EXPECT_EQ(pin.name, texts[1]);
    EXPECT_EQ(pin.type, texts[2]);
    EXPECT_EQ(pin.electricalType, texts[3]);
    EXPECT_EQ(pin.SpareText, texts[4]);
    EXPECT_EQ(pin.StandardPrimitiveRef, texts[5]);
}

constexpr std::array<const char *, 6> kFilled = {"1", "A", "THRU", "ELECTRICAL", "spare", "C1"};
constexpr std::array<const char *, 6> kEmpty = {"", "", "", "", "", ""};

TEST(PackagePin, StartsEmpty)
{
    const Pin pin;
    ExpectTextsOf(pin, kEmpty);
    ASSERT_NE(pin.Xform, nullptr);
    EXPECT_EQ(pin.Xform->Rotation, 0.0);
    EXPECT_EQ(pin.Xform->Mirror, 0);
    EXPECT_EQ(pin.Location.GetX(), 0.0);
    EXPECT_EQ(pin.Location.GetY(), 0.0);
    EXPECT_EQ(pin.Outline.LineDesc->LineEnd, "ROUND");
    EXPECT_TRUE(pin.Outline.Polygon->PolyStepArray->IsEmpty());
}

TEST(PackagePin, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Pin>);
    EXPECT_TRUE(IsVirtual(&Pin::Export));
    EXPECT_EQ(Slot(&Pin::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Pin::PinAdd));
}

TEST(PackagePin, InitAbandonsTheTransformAndKeepsTheOutline)
{
    Pin pin;
    Fill(pin);
    const std::unique_ptr<CIPC2581_Xform> abandoned(pin.Xform);
    const CIPC2581_Polygon * const polygon = pin.Outline.Polygon;
    pin.Init();
    ExpectTextsOf(pin, kEmpty);
    EXPECT_EQ(pin.Location.GetX(), 0.0);
    EXPECT_EQ(pin.Location.GetY(), 0.0);
    EXPECT_NE(pin.Xform, abandoned.get());
    EXPECT_EQ(pin.Xform->Rotation, 0.0);
    EXPECT_EQ(abandoned->Rotation, 90.0);
    EXPECT_EQ(pin.Outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(pin.Outline.Polygon, polygon);
    EXPECT_EQ(polygon->PolyBegin->GetPoint_X(), 7.0);
}

TEST(PackagePin, ACopySharesTheTransformAndHasAnOutlineOfItsOwn)
{
    Pin source;
    Fill(source);
    Pin copy(source);
    ExpectTextsOf(copy, kFilled);
    EXPECT_EQ(copy.Location.GetX(), 1.5);
    EXPECT_EQ(copy.Location.GetY(), -2.0);
    EXPECT_NE(copy.Outline.LineDesc, source.Outline.LineDesc);
    EXPECT_NE(copy.Outline.Polygon, source.Outline.Polygon);
    EXPECT_EQ(copy.Outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(copy.Outline.Polygon->PolyBegin->GetPoint_X(), 7.0);
    EXPECT_EQ(copy.Xform, source.Xform);
    copy.Xform = nullptr;
}

TEST(PackagePin, AssignmentSharesTheTransformAndCopiesTheOutline)
{
    Pin source;
    Fill(source);
    Pin target;
    const std::unique_ptr<CIPC2581_Xform> abandoned(target.Xform);
    const CIPC2581_Polygon * const polygon = target.Outline.Polygon;
    EXPECT_EQ(&(target = source), &target);
    ExpectTextsOf(target, kFilled);
    EXPECT_EQ(target.Location.GetX(), 1.5);
    EXPECT_EQ(target.Location.GetY(), -2.0);
    EXPECT_EQ(target.Outline.Polygon, polygon);
    EXPECT_NE(target.Outline.LineDesc, source.Outline.LineDesc);
    EXPECT_EQ(target.Outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(target.Outline.Polygon->PolyBegin->GetPoint_X(), 7.0);
    EXPECT_EQ(target.Xform, source.Xform);
    target.Xform = nullptr;
}

TEST(PackagePin, AssignmentToItselfLosesTheOutline)
{
    Pin pin;
    Fill(pin);
    const CIPC2581_Xform * const transform = pin.Xform;
    const Pin & same = pin;
    pin = same;
    ExpectTextsOf(pin, kFilled);
    EXPECT_EQ(pin.Xform, transform);
    EXPECT_EQ(pin.Outline.LineDesc->LineEnd, "ROUND");
    EXPECT_EQ(pin.Outline.Polygon->PolyBegin->GetPoint_X(), 0.0);
}

TEST(PackagePin, AssignmentInitialisesTheOutlineFirst)
{
    const Pin source;
    Pin target;
    const std::unique_ptr<CIPC2581_Xform> abandoned(target.Xform);
    target.Outline.Polygon->DrawType = 99;
    target = source;
    EXPECT_EQ(target.Outline.Polygon->DrawType, 22);
    target.Xform = nullptr;
}

TEST(PackagePin, DeletesItsTransformAndItsOutline)
{
    int transforms = 0;
    int lines = 0;
    int polygons = 0;
    {
        Pin pin;
        Replace(pin.Xform, std::make_unique<Counted<CIPC2581_Xform>>(transforms));
        Replace(pin.Outline.LineDesc, std::make_unique<Counted<CIPC2581_LineDesc>>(lines));
        Replace(pin.Outline.Polygon, std::make_unique<Counted<CIPC2581_Polygon>>(polygons));
    }
    EXPECT_EQ(transforms, 1);
    EXPECT_EQ(lines, 1);
    EXPECT_EQ(polygons, 1);
}

TEST(PackagePin, TakesTheAttributesOfItsLine)
{
    using Four = std::array<std::string, 4>;
    const struct {
        const char * line;
        Four texts;
    } rows[] = {
        {R"(<Pin number="1" name="A" type="THRU" electricalType="ELECTRICAL">)", {"1", "A", "THRU", "ELECTRICAL"}},
        {R"(<Pin electricalType="E" mountType="SMT" type="T" name="N" number="2"/>)", {"2", "N", "T", "E"}},
        {"<Pin>", {}},
        {R"(<Pin number="1" number="2">)", {"2", "", "", ""}},
        {R"(<Pin Number="1" names="A" Type="T">)", {}},
        {R"(<Pin numbers="1" types="T" electricalTypes="E">)", {}},
        {R"(<Pin electricaltype="E">)", {"", "", "E", ""}},
        {R"(<Pin number ="1" name>)", {}},
        // Any token that holds the word with its equal sign counts, the first one too.
        {R"(<Pinnumber="1" filename="A" subtype="T" xelectricalType="E">)", {"1", "A", "T", "E"}},
        // A value that runs on takes the tokens up to its quote with it.
        {R"(<Pin name="a number=3 b" type="T">)", {"", "a 3 b", "T", ""}},
        {R"(<Pin number="A/1" name="a=b">)", {"A1", "a=b", "", ""}},
        // The order of the tests decides for a token with two words.
        {R"(<Pin name="N"number="1">)", {"Nnumber=1", "", "", ""}},
        {R"(<Pin type="T"number="1">)", {"Tnumber=1", "", "", ""}},
        {R"(<Pin electricalType="E"number="1">)", {"Enumber=1", "", "", ""}},
        {R"(<Pin type="T"name="N">)", {"", "Tname=N", "", ""}},
        {R"(<Pin electricalType="E"name="N">)", {"", "Ename=N", "", ""}},
        {R"(<Pin electricalType="E"type="T">)", {"", "", "Etype=T", ""}},
    };
    for (const auto & row : rows) {
        EXPECT_EQ(Opened(row.line), row.texts) << row.line;
    }
}

TEST(PackagePin, IsNotKeptWhenItsLineDoesNotCloseAValue)
{
    Package package;
    EXPECT_THROW(ReadPackage(package, {R"(<Pin number="1" name="open>)", "</Pin>", "</Package>"}),
                 CInvalidArgException);
    EXPECT_THROW(ReadPackage(package, {"<Pin number=1>", "</Pin>", "</Package>"}), CInvalidArgException);
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(PackagePin, ReadsTheLinesUnderIt)
{
    Pin pin;
    EXPECT_EQ(Read(pin, {"<Outline>", R"(<LineDesc lineEnd="SQUARE" lineWidth="2"/>)", "<Polygon>",
                         R"(<PolyBegin x="5" y="6"/>)", R"(<PolyStepSegment x="7" y="8"/>)", "</Polygon>", "</Outline>",
                         R"(<Xform rotation="90" mirror="TRUE"/>)", R"(<StandardPrimitiveRef id="C1"/>)",
                         R"(<Location x="1.5" y="-2"/>)", "</Pin>", "left"}),
              Texts{"left"});
    EXPECT_EQ(pin.Xform->Rotation, 90.0);
    EXPECT_EQ(pin.Xform->Mirror, 0);
    EXPECT_EQ(pin.Location.GetX(), 1.5);
    EXPECT_EQ(pin.Location.GetY(), -2.0);
    EXPECT_EQ(pin.StandardPrimitiveRef, "C1");
    EXPECT_EQ(pin.Outline.LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(pin.Outline.LineDesc->LineWidth, 2.0);
    EXPECT_EQ(pin.Outline.Polygon->PolyBegin->GetPoint_X(), 5.0);
    EXPECT_EQ(pin.Outline.Polygon->PolyStepArray->GetSize(), 1);
    EXPECT_EQ(pin.number, "");
}

TEST(PackagePin, IsMirroredByTheControlCharacterAlone)
{
    const struct {
        std::string value;
        int mirror;
    } rows[] = {{"\x01", 1},     {"TRUE", 0}, {"FALSE", 0}, {"true", 0}, {"1", 0},     {"", 0},
                {"\x01\x01", 0}, {"\x02", 0}, {"\x01/", 1}, {"0", 0},    {"\x01 ", 0}, {"YES", 0}};
    for (const auto & row : rows) {
        SCOPED_TRACE(row.value);
        Pin pin;
        pin.Xform->Mirror = 5;
        Read(pin, {R"(<Xform mirror=")" + row.value + R"(" rotation="90"/>)", "</Pin>"});
        EXPECT_EQ(pin.Xform->Mirror, row.mirror);
        EXPECT_EQ(pin.Xform->Rotation, 90.0);
    }
}

TEST(PackagePin, ScansItsTransformForTheRotationBeforeTheMirror)
{
    Pin pin;
    pin.Xform->Mirror = 5;
    Read(pin, {R"(<Xform mirror="30"rotation="90"/>)", "</Pin>"});
    EXPECT_EQ(pin.Xform->Rotation, 30.0);
    EXPECT_EQ(pin.Xform->Mirror, 5);
}

TEST(PackagePin, ScansItsTransformFromTheFirstTokenForWordsWithAnEqualSign)
{
    Pin pin;
    pin.Xform->Mirror = 5;
    Read(pin, {R"(<Xformrotation="90" rotations="1" Mirror="1" mirrored="1" xOffset="3" scale="2">)", "</Pin>"});
    EXPECT_EQ(pin.Xform->Rotation, 90.0);
    EXPECT_EQ(pin.Xform->Mirror, 5);
    EXPECT_EQ(pin.Xform->XOffset, 0.0);
    EXPECT_EQ(pin.Xform->Scale, 0.0);
}

TEST(PackagePin, ScansItsLocationForXBeforeY)
{
    Pin pin;
    Read(pin, {R"(<Locationy="4" x="3">)", R"(<Location y="9"x="8">)", R"(<Location X="5" yy ="6">)", "</Pin>"});
    EXPECT_EQ(pin.Location.GetX(), 9.0);
    EXPECT_EQ(pin.Location.GetY(), 4.0);
}

TEST(PackagePin, LeavesWhatALocationDoesNotName)
{
    Pin pin;
    Read(pin, {R"(<Location x="1"/>)", "</Pin>"});
    EXPECT_EQ(pin.Location.GetX(), 1.0);
    EXPECT_EQ(pin.Location.GetY(), 0.0);
    Read(pin, {R"(<Location y="2"/>)", "</Pin>"});
    EXPECT_EQ(pin.Location.GetX(), 1.0);
    EXPECT_EQ(pin.Location.GetY(), 2.0);
}

TEST(PackagePin, ScansItsReferenceForTheIdWithItsEqualSign)
{
    Pin pin;
    Read(pin, {R"(<StandardPrimitiveRef ids="A" id>)", "</Pin>"});
    EXPECT_EQ(pin.StandardPrimitiveRef, "");
    Read(pin, {R"(<StandardPrimitiveRefid="B">)", "</Pin>"});
    // A line without a blank keeps its brackets.
    EXPECT_EQ(pin.StandardPrimitiveRef, "B>");
    Read(pin, {R"(<StandardPrimitiveRef x="1" grid="C 1">)", "</Pin>"});
    EXPECT_EQ(pin.StandardPrimitiveRef, "C 1");
}

TEST(PackagePin, TheLastOfSeveralLinesWins)
{
    Pin pin;
    Read(pin, {R"(<Xform rotation="90"/>)", R"(<Xform rotation="180"/>)", R"(<Location x="1" y="2"/>)",
               R"(<Location x="3" y="4"/>)", R"(<StandardPrimitiveRef id="A"/>)", R"(<StandardPrimitiveRef id="B"/>)",
               "</Pin>"});
    EXPECT_EQ(pin.Xform->Rotation, 180.0);
    EXPECT_EQ(pin.Location.GetX(), 3.0);
    EXPECT_EQ(pin.Location.GetY(), 4.0);
    EXPECT_EQ(pin.StandardPrimitiveRef, "B");
}

TEST(PackagePin, ReadsABadNumberAsZero)
{
    Pin pin;
    Fill(pin);
    Read(pin, {R"(<Xform rotation="left"/>)", R"(<Location x="" y="-"/>)", "</Pin>"});
    EXPECT_EQ(pin.Xform->Rotation, 0.0);
    EXPECT_EQ(pin.Location.GetX(), 0.0);
    EXPECT_EQ(pin.Location.GetY(), 0.0);
}

TEST(PackagePin, TestsForTheTransformFirst)
{
    Pin pin;
    Read(pin, {R"(<LocationXform rotation="90" x="1">)", "</Pin>"});
    EXPECT_EQ(pin.Xform->Rotation, 90.0);
    EXPECT_EQ(pin.Location.GetX(), 0.0);
}

TEST(PackagePin, TestsForTheLocationBeforeTheReference)
{
    Pin pin;
    Read(pin, {R"(<StandardPrimitiveRefLocation x="1" id="A">)", "</Pin>"});
    EXPECT_EQ(pin.Location.GetX(), 1.0);
    EXPECT_EQ(pin.StandardPrimitiveRef, "");
}

TEST(PackagePin, TestsForTheReferenceBeforeTheOutline)
{
    Pin pin;
    EXPECT_EQ(Read(pin, {R"(<OutlineStandardPrimitiveRef id="A">)", "</Pin>", "left"}), Texts{"left"});
    EXPECT_EQ(pin.StandardPrimitiveRef, "A");
}

TEST(PackagePin, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const word : {"Xform", "Location", "StandardPrimitiveRef", "Outline"}) {
        SCOPED_TRACE(word);
        Pin pin;
        const std::string attributes = R"( rotation="90" x="1" y="2" id="A">)";
        EXPECT_EQ(Read(pin, {"<" + std::string(word) + "/" + attributes, "<" + std::string(word) + "/>",
                             "</" + std::string(word) + attributes, "</Pin" + std::string(word) + attributes, "left"}),
                  Texts{"left"});
        EXPECT_EQ(pin.Xform->Rotation, 0.0);
        EXPECT_EQ(pin.Location.GetX(), 0.0);
        EXPECT_EQ(pin.StandardPrimitiveRef, "");
    }
}

TEST(PackagePin, IgnoresEmptyAndUnknownLines)
{
    Pin pin;
    EXPECT_EQ(
        Read(pin, {"", R"(<Special rotation="90">)", R"(<Location x="1"/>)", "</Special>", R"(<xform rotation="9">)",
                   R"(< Xform rotation="9">)", R"(<Pin number="2">)", "</pin>", "</Pin>", "left"}),
        Texts{"left"});
    EXPECT_EQ(pin.Xform->Rotation, 0.0);
    EXPECT_EQ(pin.Location.GetX(), 1.0);
    EXPECT_EQ(pin.number, "");
}

TEST(PackagePin, ASelfClosedPinTakesTheLinesOfTheNextOne)
{
    Package package;
    ReadPackage(package,
                {R"(<Pin number="1" name="A" />)", R"(<Location x="1" y="1"/>)", R"(<Pin number="2" name="B" />)",
                 R"(<Location x="2" y="2"/>)", "</Pin>", R"(<Pin number="3">)", "</Pin>", "</Package>"});
    ASSERT_EQ(package.PinArray.GetSize(), 2);
    EXPECT_EQ(package.PinArray.GetAt(0)->number, "1");
    EXPECT_EQ(package.PinArray.GetAt(0)->name, "A");
    EXPECT_EQ(package.PinArray.GetAt(0)->Location.GetX(), 2.0);
    EXPECT_EQ(package.PinArray.GetAt(1)->number, "3");
}

const Texts kPinLines = {R"(<Location x="1"/>)",
                         "<Outline>",
                         "<Polygon>",
                         "<PolyStepSegment/>",
                         "</Polygon>",
                         "</Outline>",
                         R"(<StandardPrimitiveRef id="A"/>)",
                         "</Pin>"};

TEST(PackagePin, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kPinLines, [](CStdioFile & file, std::size_t lines) {
        Pin pin;
        pin.PinAdd(file);
        EXPECT_EQ(pin.Location.GetX(), lines > 0 ? 1.0 : 0.0);
        EXPECT_EQ(pin.Outline.Polygon->PolyStepArray->GetSize(), lines > 3 ? 1 : 0);
        EXPECT_EQ(pin.StandardPrimitiveRef, lines > 6 ? "A" : "");
    });
}

TEST(PackagePin, IsKeptWithWhatItHasAtTheEndOfTheFile)
{
    Package package;
    ReadPackage(package, {R"(<Pin number="1">)", R"(<Location x="1"/>)"});
    ASSERT_EQ(package.PinArray.GetSize(), 1);
    EXPECT_EQ(package.PinArray.GetAt(0)->Location.GetX(), 1.0);
}

TEST(PackagePin, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kPinLines, [](CStdioFile & file) { Pin().PinAdd(file); });
}

TEST(PackagePin, IsNotKeptWhenItsLinesThrow)
{
    Package package;
    EXPECT_THROW(ReadPackage(package, {R"(<Pin number="1">)", " ", "</Pin>", "</Package>"}), CInvalidArgException);
    for (const char * const line : {R"(<Xform rotation="9>)", R"(<Xform mirror="T>)", R"(<Location x="1>)",
                                    R"(<Location y="1>)", R"(<StandardPrimitiveRef id="A>)"}) {
        EXPECT_THROW(ReadPackage(package, {R"(<Pin number="1">)", line, "</Pin>", "</Package>"}), CInvalidArgException)
            << line;
    }
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(PackagePin, WritesItsFourLinesAlsoWhenItIsEmpty)
{
    Pin pin;
    ExpectExport(pin, Below(R"(
   <Pin number="" name="" type="" electricalType="">
      <Location x="0.000000" y="0.000000"/>
      <StandardPrimitiveRef id=""/>
   </Pin>
)"));
}

TEST(PackagePin, WritesNeitherTransformNorOutline)
{
    Package package;
    ReadPackage(package,
                {R"(<Pin number="1" name="A" type="THRU" electricalType="ELECTRICAL">)",
                 R"(<Xform rotation="90" mirror="TRUE"/>)", R"(<Location x="1.5" y="-2"/>)", "<Outline>", "<Polygon>",
                 R"(<PolyStepSegment x="7" y="8"/>)", "</Polygon>", R"(<LineDesc lineEnd="SQUARE"/>)", "</Outline>",
                 R"(<StandardPrimitiveRef id="C1"/>)", "</Pin>", "</Package>"});
    Pin & pin = *package.PinArray.GetAt(0);
    pin.SpareText = "spare";
    EXPECT_EQ(pin.Outline.LineDesc->LineEnd, "SQUARE");
    ExpectExport(pin, Below(R"(
   <Pin number="1" name="A" type="THRU" electricalType="ELECTRICAL">
      <Location x="1.500000" y="-2.000000"/>
      <StandardPrimitiveRef id="C1"/>
   </Pin>
)"));
}

TEST(PackagePinArray, OwnsItsPins)
{
    ExpectOwnsItsElements<PinArray, Pin>();
}

TEST(PackagePinArray, WritesItsPins)
{
    ExpectWritesItsElements<PinArray, Pin>();
}

TEST(PackagePinArray, CountsTheFirstPinOfANumberFromOne)
{
    PinArray pins;
    for (const char * const number : {"1", "2", "2", "A1"}) {
        auto pin = std::make_unique<Pin>();
        pin->number = number;
        pins.Add(pin.release());
    }
    const struct {
        const char * number;
        int index;
    } rows[] = {{"1", 1}, {"2", 2}, {"A1", 4}, {"3", -1}, {"a1", -1}, {"A", -1}, {"", -1}, {" 1", -1}};
    for (const auto & row : rows) {
        CString unused("1");
        CString number(row.number);
        EXPECT_EQ(pins.nGetIndexWithPinNumber(unused, number), row.index) << row.number;
        EXPECT_EQ(number, row.number);
        EXPECT_EQ(unused, "1");
    }
    EXPECT_FALSE(IsVirtual(&PinArray::nGetIndexWithPinNumber));
}

TEST(PackagePinArray, FindsNothingWhenItIsEmpty)
{
    PinArray pins;
    CString number("1");
    EXPECT_EQ(pins.nGetIndexWithPinNumber(number, number), -1);
}

}  // namespace
