#include "ipc2581/cad/Package.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/cad/PackagePin.h"
#include "ipc2581/cad/Pad.h"
#include "ipc2581/cad/Step.h"
#include "ipc2581/cad/Target.h"
#include "ipc2581/draw/Outline.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using PackageArray = CIPC2581_Ecad_CadData_Step_PackageArray;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;
using Pin = CIPC2581_Ecad_CadData_Step_Package_Pin;
using Step = CIPC2581_Ecad_CadData_Step;
using Target = CIPC2581_Ecad_CadData_Step_Target;

struct TypeRow {
    const char * name;
    bool blank;
    std::size_t tabs;

    [[nodiscard]] std::string Text() const { return name + std::string(blank ? " " : "") + std::string(tabs, '\t'); }
};

// The row at index i has the code i + 1.
constexpr std::array<TypeRow, 48> kTypes = {{
    {"AXIAL_LEADED", false, 9},
    {"BARE_DIE", true, 10},
    {"CERAMIC_BGA", true, 8},
    {"CERAMIC_DIP", true, 9},
    {"CERAMIC_FLATPACK", true, 6},
    {"CERAMIC_QUAD_FLATPACK", false, 4},
    {"CERAMIC_SIP", true, 9},
    {"CHIP", true, 12},
    {"CHIP_SCALE", true, 9},
    {"CHOKE_SWITCH_SM", true, 6},
    {"COIL", true, 12},
    {"CONNECTOR_SM", true, 8},
    {"CONNECTOR_TH", true, 8},
    {"EMBEDDED", false, 10},
    {"FLIPCHIP", true, 10},
    {"HERMETIC_HYBRED", true, 7},
    {"LEADLESS_CERAMIC_CHIP_CARRIER", true, 1},
    {"MCM", true, 12},
    {"MELF", true, 12},
    {"FINEPITCH_BGA", true, 8},
    {"MOLDED", true, 11},
    {"NETWORK", true, 10},
    {"PGA", false, 12},
    {"PLASTIC_BGA", true, 9},
    {"PLASTIC_CHIP_CARRIER", true, 5},
    {"PLASTIC_DIP", true, 9},
    {"PLASTIC_SIP", true, 9},
    {"POWER_TRANSISTOR", true, 6},
    {"RADIAL_LEADED", true, 8},
    {"RECTANGULAR_QUAD_FLATPACK", true, 2},
    {"RELAY_SM", true, 10},
    {"RELAY_TH", true, 10},
    {"SOD123", true, 11},
    {"SOIC", true, 12},
    {"SOJ", true, 12},
    {"SOPIC", true, 11},
    {"SOT143", true, 11},
    {"SOT23", true, 11},
    {"SOT52", true, 11},
    {"SOT89", false, 11},
    {"SQUARE_QUAD_FLATPACK", true, 4},
    {"SSOIC", true, 11},
    {"SWITCH_TH", true, 9},
    {"TANTALUM", true, 10},
    {"TO_TYPE", true, 10},
    {"TRANSFORMER", true, 8},
    {"TRIMPOT_SM", true, 9},
    {"TRIMPOT_TH", false, 9},
}};

const std::string kOther = "OTHER\t\t\t\t\t\t\t\t\t\t\t";

int CodeOf(std::string_view text)
{
    return Package().GetPackageType(CString(text));
}

std::string TextOf(int code)
{
    return Str(Package().GetPackageType(code));
}

// Reads the lines under a Package line and gives those that are left.
Texts Read(Package & package, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    package.PackageAdd(file);
    return file.Rest();
}

// Reads a step that holds these lines.
void ReadStep(Step & step, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    Tokens tokens(R"(<Step name="board">)");
    step.ReadStep(tokens, file, nullptr);
}

std::int64_t Steps(const CIPC2581_Outline & outline)
{
    return outline.Polygon->PolyStepArray->GetSize();
}

TEST(Package, StartsEmpty)
{
    const Package package;
    EXPECT_EQ(package.name, "");
    EXPECT_EQ(package.type, "");
    EXPECT_EQ(package.TypeCode, 0);
    ASSERT_NE(package.Outline, nullptr);
    EXPECT_EQ(package.Outline->DrawType, 19);
    EXPECT_EQ(Steps(*package.Outline), 0);
    EXPECT_TRUE(package.LandPattern.PadArray.IsEmpty());
    EXPECT_TRUE(package.SilkScreen.TargetArray.IsEmpty());
    EXPECT_TRUE(package.AssemblyDrawing.TargetArray.IsEmpty());
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(Package, HasExportBehindItsDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Package>);
    EXPECT_TRUE(IsVirtual(&Package::Export));
    EXPECT_EQ(Slot(&Package::Export), kFirstSlot);
    EXPECT_FALSE(IsVirtual(&Package::PackageAdd));
    EXPECT_FALSE(IsVirtual(static_cast<int (Package::*)(CString)>(&Package::GetPackageType)));
    EXPECT_FALSE(IsVirtual(static_cast<CString (Package::*)(int)>(&Package::GetPackageType)));
}

TEST(Package, InitMakesAMissingOutline)
{
    Package package;
    delete package.Outline;
    package.Outline = nullptr;
    package.Init();
    ASSERT_NE(package.Outline, nullptr);
    EXPECT_EQ(package.Outline->DrawType, 19);
}

TEST(Package, InitClearsTheCodeAndTheDrawTypeOfTheOutlineAlone)
{
    Package package;
    Read(package, {"<Outline>", "<Polygon>", R"(<PolyStepSegment x="1" y="2"/>)", "</Polygon>",
                   R"(<LineDesc lineEnd="SQUARE"/>)", "</Outline>", R"(<Pin number="1">)", "</Pin>", "<LandPattern>",
                   R"(<Pad pin="1">)", "</Pad>", "</LandPattern>", "<SilkScreen>", "<Target>", "</Target>",
                   "</SilkScreen>", "</Package>"});
    package.name = "P1";
    package.type = "SOIC";
    package.TypeCode = 34;
    const CIPC2581_Outline * const outline = package.Outline;
    package.Init();
    EXPECT_EQ(package.TypeCode, 0);
    EXPECT_EQ(package.Outline, outline);
    EXPECT_EQ(outline->DrawType, 17);
    EXPECT_EQ(Steps(*outline), 1);
    EXPECT_EQ(outline->LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(package.name, "P1");
    EXPECT_EQ(package.type, "SOIC");
    EXPECT_EQ(package.PinArray.GetSize(), 1);
    EXPECT_EQ(package.LandPattern.PadArray.GetSize(), 1);
    EXPECT_EQ(package.SilkScreen.TargetArray.GetSize(), 1);
}

TEST(Package, InitLeavesTheAssemblyDrawing)
{
    Package package;
    package.AssemblyDrawing.TargetArray.Add(new Target);
    package.Init();
    EXPECT_EQ(package.AssemblyDrawing.TargetArray.GetSize(), 1);
    EXPECT_EQ(package.AssemblyDrawing.Outline->DrawType, 19);
}

TEST(Package, ACopyHasTheTypeCodeAlone)
{
    Package source;
    Read(source, {"<Outline>", "<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "</Outline>", "<Pin>",
                  "</Pin>", "<LandPattern>", "<Pad>", "</Pad>", "</LandPattern>", "<SilkScreen>", "<Target>",
                  "</Target>", "</SilkScreen>", "</Package>"});
    source.name = "P1";
    source.type = "SOIC";
    source.TypeCode = 34;
    const Package copy(source);
    EXPECT_EQ(copy.TypeCode, 34);
    EXPECT_EQ(copy.name, "");
    EXPECT_EQ(copy.type, "");
    ASSERT_NE(copy.Outline, nullptr);
    EXPECT_NE(copy.Outline, source.Outline);
    EXPECT_EQ(copy.Outline->DrawType, 19);
    EXPECT_EQ(Steps(*copy.Outline), 0);
    EXPECT_TRUE(copy.LandPattern.PadArray.IsEmpty());
    EXPECT_TRUE(copy.SilkScreen.TargetArray.IsEmpty());
    EXPECT_TRUE(copy.PinArray.IsEmpty());
    EXPECT_EQ(source.PinArray.GetSize(), 1);
}

TEST(Package, AssignmentTakesTheTypeCodeAlone)
{
    Package source;
    source.name = "P1";
    source.type = "SOIC";
    source.TypeCode = 34;
    Package target;
    target.name = "P2";
    target.type = "CHIP";
    target.PinArray.Add(new Pin);
    const CIPC2581_Outline * const outline = target.Outline;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.TypeCode, 34);
    EXPECT_EQ(target.name, "P2");
    EXPECT_EQ(target.type, "CHIP");
    EXPECT_EQ(target.Outline, outline);
    EXPECT_EQ(target.PinArray.GetSize(), 1);
}

TEST(Package, AssignmentToItselfChangesNothing)
{
    Package package;
    package.name = "P1";
    package.TypeCode = 34;
    const Package & same = package;
    package = same;
    EXPECT_EQ(package.name, "P1");
    EXPECT_EQ(package.TypeCode, 34);
}

TEST(Package, DeletesItsOutlineAndItsPins)
{
    int outlines = 0;
    int pins = 0;
    {
        Package package;
        Replace(package.Outline, std::make_unique<Counted<CIPC2581_Outline>>(outlines));
        package.PinArray.Add(new Counted<Pin>(pins));
    }
    EXPECT_EQ(outlines, 1);
    EXPECT_EQ(pins, 1);
}

TEST(Package, GoesWithoutAnOutline)
{
    int pins = 0;
    {
        Package package;
        package.PinArray.Add(new Counted<Pin>(pins));
        delete package.Outline;
        package.Outline = nullptr;
    }
    EXPECT_EQ(pins, 1);
}

TEST(Package, ReadsAllItsChildrenInAnyOrder)
{
    Package package;
    EXPECT_EQ(Read(package, {R"(<Pin number="1">)",
                             "</Pin>",
                             "<SilkScreen>",
                             "<Target>",
                             "</Target>",
                             "</SilkScreen>",
                             "<LandPattern>",
                             R"(<Pad pin="1">)",
                             "</Pad>",
                             "</LandPattern>",
                             "<AssemblyDrawing>",
                             "<Outline>",
                             "<Polygon>",
                             R"(<PolyStepSegment x="5" y="6"/>)",
                             "</Polygon>",
                             R"(<LineDesc lineEnd="FLAT" lineWidth="2"/>)",
                             "</Outline>",
                             "</AssemblyDrawing>",
                             "<Outline>",
                             "<Polygon>",
                             R"(<PolyBegin x="1" y="2"/>)",
                             R"(<PolyStepSegment x="3" y="4"/>)",
                             R"(<PolyStepSegment x="5" y="6"/>)",
                             "</Polygon>",
                             R"(<LineDesc lineEnd="SQUARE" lineWidth="1"/>)",
                             "</Outline>",
                             R"(<Pin number="2">)",
                             "</Pin>",
                             "</Package>",
                             "<Pin>"}),
              Texts{"<Pin>"});
    EXPECT_EQ(Steps(*package.Outline), 2);
    EXPECT_EQ(package.Outline->LineDesc->LineEnd, "SQUARE");
    EXPECT_EQ(Steps(*package.AssemblyDrawing.Outline), 1);
    EXPECT_EQ(package.AssemblyDrawing.Outline->LineDesc->LineEnd, "FLAT");
    EXPECT_EQ(package.LandPattern.PadArray.GetSize(), 1);
    EXPECT_EQ(package.SilkScreen.TargetArray.GetSize(), 1);
    ASSERT_EQ(package.PinArray.GetSize(), 2);
    EXPECT_EQ(package.PinArray.GetAt(0)->number, "1");
    EXPECT_EQ(package.PinArray.GetAt(1)->number, "2");
}

TEST(Package, ReadsOutlinesThroughTheirVirtualOperation)
{
    class Imported : public CIPC2581_Outline {
    public:
        using CIPC2581_Outline::Import;
        int Import(CStdioFile & /*file*/) override { return ++imports; }
        int imports = 0;
    };
    Package package;
    const Imported * const own = Replace(package.Outline, std::make_unique<Imported>());
    const Imported * const drawing = Replace(package.AssemblyDrawing.Outline, std::make_unique<Imported>());
    Read(package, {"<Outline>", "<AssemblyDrawing>", "<AssemblyDrawing>", "</Package>"});
    EXPECT_EQ(own->imports, 1);
    EXPECT_EQ(drawing->imports, 2);
}

TEST(Package, TestsForTheOutlineFirst)
{
    Package package;
    Read(package, {"<AssemblyDrawingOutline>", "<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "</Outline>",
                   "</Package>"});
    EXPECT_EQ(Steps(*package.Outline), 1);
    EXPECT_EQ(Steps(*package.AssemblyDrawing.Outline), 0);
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(Package, TestsForTheAssemblyDrawingBeforeTheLandPattern)
{
    Package package;
    Read(package, {"<LandPatternAssemblyDrawing>", "<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>",
                   "</Outline>", "</Package>"});
    EXPECT_EQ(Steps(*package.AssemblyDrawing.Outline), 1);
    EXPECT_TRUE(package.LandPattern.PadArray.IsEmpty());
}

TEST(Package, TestsForTheLandPatternBeforeTheSilkScreen)
{
    Package package;
    Read(package,
         {"<SilkScreenLandPattern>", "<Target>", "</Target>", "<Pad>", "</Pad>", "</LandPattern>", "</Package>"});
    EXPECT_EQ(package.LandPattern.PadArray.GetSize(), 1);
    EXPECT_TRUE(package.SilkScreen.TargetArray.IsEmpty());
}

TEST(Package, TestsForTheSilkScreenBeforeThePin)
{
    Package package;
    Read(package, {R"(<PinSilkScreen number="1">)", "<Target>", "</Target>", "</SilkScreen>", "</Package>"});
    EXPECT_EQ(package.SilkScreen.TargetArray.GetSize(), 1);
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(Package, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const word : {"Outline", "AssemblyDrawing", "LandPattern", "SilkScreen", "Pin"}) {
        SCOPED_TRACE(word);
        Package package;
        const std::string closing = "</Package" + std::string(word) + R"( number="1">)";
        EXPECT_EQ(Read(package, {closing, "left"}), Texts{"left"});
        EXPECT_TRUE(package.PinArray.IsEmpty());
    }
}

TEST(Package, IgnoresTokensWithASlash)
{
    for (const char * const word : {"Outline", "AssemblyDrawing", "LandPattern", "SilkScreen", "Pin"}) {
        SCOPED_TRACE(word);
        Package package;
        const std::string empty = "<" + std::string(word) + "/>";
        const std::string closing = "</" + std::string(word) + ">";
        const std::string slashed = "<" + std::string(word) + R"(/ number="1">)";
        EXPECT_EQ(Read(package, {empty, closing, slashed, R"(<Pin number="2">)", "</Pin>", "</Package>", "left"}),
                  Texts{"left"});
        ASSERT_EQ(package.PinArray.GetSize(), 1);
        EXPECT_EQ(package.PinArray.GetAt(0)->number, "2");
    }
}

TEST(Package, TakesASlashBehindTheFirstTokenForAnOpeningLine)
{
    Package package;
    EXPECT_EQ(Read(package, {"<LandPattern />", "<Pin>", "</Pin>", "</Package>", "<Pad>", "</Pad>", "</LandPattern>",
                             "</Package>", "left"}),
              Texts{"left"});
    EXPECT_TRUE(package.PinArray.IsEmpty());
    EXPECT_EQ(package.LandPattern.PadArray.GetSize(), 1);
}

TEST(Package, LooksAtTheFirstTokenAloneAndMindsItsCase)
{
    Package package;
    EXPECT_EQ(Read(package, {R"(<Note Pin="1" LandPattern="2">)", R"(< Pin number="3">)", R"(<pin number="4">)",
                             R"(<PIN number="5">)", "< /Package>", "</package>", "</Package>", "left"}),
              Texts{"left"});
    EXPECT_TRUE(package.PinArray.IsEmpty());
}

TEST(Package, DoesNotTrimItsLines)
{
    Package package;
    Read(package, {R"(   <Pin number="1">)", "</Pin>", "\t<Pin number=\"2\">", "</Pin>", "\t</Package>"});
    ASSERT_EQ(package.PinArray.GetSize(), 2);
    EXPECT_EQ(package.PinArray.GetAt(1)->number, "2");
}

TEST(Package, IgnoresEmptyAndUnknownLines)
{
    Package package;
    EXPECT_EQ(Read(package, {"", "\t", R"(<PickupPoint x="1" y="2"/>)", "text", "</Package>", "left"}), Texts{"left"});
    EXPECT_TRUE(package.PinArray.IsEmpty());
    EXPECT_EQ(Steps(*package.Outline), 0);
}

TEST(Package, TakesKnownElementsInsideUnknownOnes)
{
    Package package;
    Read(package, {"<Special>", R"(<Pin number="1">)", "</Pin>", "<Outline>", "<Polygon>", "<PolyStepSegment/>",
                   "</Polygon>", "</Outline>", "</Special>", "</Package>"});
    EXPECT_EQ(package.PinArray.GetSize(), 1);
    EXPECT_EQ(Steps(*package.Outline), 1);
}

TEST(Package, ReadsSeveralOutlinesIntoOne)
{
    Package package;
    Read(package, {"<Outline>", "<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "</Outline>", "<Outline>",
                   "<Polygon>", R"(<PolyStepSegment x="2"/>)", "</Polygon>", "</Outline>", "</Package>"});
    EXPECT_EQ(Steps(*package.Outline), 2);
}

TEST(Package, ASecondLandPatternOrSilkScreenAddsToTheFirst)
{
    Package package;
    Read(package, {"<LandPattern>", "<Pad>", "</Pad>", "</LandPattern>", "<LandPattern>", "<Pad>", "</Pad>",
                   "</LandPattern>", "<SilkScreen>", "<Target>", "</Target>", "</SilkScreen>", "<SilkScreen>",
                   "<Target>", "</Target>", "</SilkScreen>", "</Package>"});
    EXPECT_EQ(package.LandPattern.PadArray.GetSize(), 2);
    EXPECT_EQ(package.SilkScreen.TargetArray.GetSize(), 2);
}

const Texts kWhole = {R"(<Pin number="1">)",
                      R"(<Location x="1" y="2"/>)",
                      "</Pin>",
                      "<Outline>",
                      "<Polygon>",
                      R"(<PolyStepSegment x="1" y="2"/>)",
                      "</Polygon>",
                      "</Outline>",
                      "<AssemblyDrawing>",
                      "<Outline>",
                      "</Outline>",
                      "</AssemblyDrawing>",
                      "<LandPattern>",
                      "<Pad>",
                      "</Pad>",
                      "</LandPattern>",
                      "<SilkScreen>",
                      "<Target>",
                      "</Target>",
                      "</SilkScreen>",
                      "</Package>"};

TEST(Package, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kWhole, [](CStdioFile & file, std::size_t lines) {
        Package package;
        package.PackageAdd(file);
        EXPECT_EQ(package.PinArray.GetSize(), lines > 0 ? 1 : 0);
        EXPECT_EQ(Steps(*package.Outline), lines > 5 ? 1 : 0);
        EXPECT_EQ(package.LandPattern.PadArray.GetSize(), lines > 13 ? 1 : 0);
        EXPECT_EQ(package.SilkScreen.TargetArray.GetSize(), lines > 17 ? 1 : 0);
    });
}

TEST(Package, IsKeptWithWhatItHasAtTheEndOfTheFile)
{
    Step step;
    ReadStep(step, {R"(<Package name="P1" type="SOIC">)", R"(<Pin number="1">)"});
    ASSERT_EQ(step.PackageArray.GetSize(), 1);
    EXPECT_EQ(step.PackageArray.GetAt(0)->name, "P1");
    EXPECT_EQ(step.PackageArray.GetAt(0)->PinArray.GetSize(), 1);
}

TEST(Package, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kWhole, [](CStdioFile & file) {
        Package package;
        package.PackageAdd(file);
    });
}

TEST(Package, KeepsWhatStoodBeforeALineOfBlanks)
{
    Package package;
    EXPECT_THROW(Read(package, {R"(<Pin number="1">)", "</Pin>", " ", R"(<Pin number="2">)", "</Pin>"}),
                 CInvalidArgException);
    EXPECT_EQ(package.PinArray.GetSize(), 1);
}

TEST(Package, IsLostWithAnExceptionInAChild)
{
    Step step;
    EXPECT_THROW(ReadStep(step, {R"(<Package name="P1">)", "</Package>", R"(<Package name="P2">)",
                                 R"(<Pin number="1">)", "</Pin>", R"(<Pin number="2">)", "  ", "</Pin>", "</Package>"}),
                 CInvalidArgException);
    ASSERT_EQ(step.PackageArray.GetSize(), 1);
    EXPECT_EQ(step.PackageArray.GetAt(0)->name, "P1");
}

TEST(Package, WritesItsChildrenInItsOwnOrder)
{
    Package package;
    package.name = "P1";
    package.type = "SOIC";
    Replace(package.Outline, std::make_unique<Writing<CIPC2581_Outline>>("outline"));
    package.SilkScreen.TargetArray.Add(new Writing<Target>("silk screen"));
    package.AssemblyDrawing.Outline->Polygon->PolyStepArray->Add(new CIPC2581_PolyStep);
    package.AssemblyDrawing.TargetArray.Add(new Writing<Target>("drawing"));
    package.LandPattern.PadArray.Add(new Writing<Pad>("pad"));
    package.PinArray.Add(new Writing<Pin>("pin"));
    EXPECT_EQ(Exported(package, 2), (Export{1, Below(R"(
         <Package name="P1" type="SOIC">
outline 3
            <SilkScreen>
silk screen 4
            </SilkScreen>
            <AssemblyDrawing>
               <Outline>
                  <Polygon>
                     <PolyBegin x="0.000000" y="0.000000" />
                     <PolyStepSegment x="0.000000" y="0.000000" />
                  </Polygon>
                  <LineDesc lineEnd="ROUND" lineWidth="0.000000" />
               </Outline>
drawing 4
            </AssemblyDrawing>
            <LandPattern>
pad 4
            </LandPattern>
pin 3
         </Package>
)")}));
}

TEST(Package, StopsAtTheFirstChildThatGivesZero)
{
    const std::string opening = Joined({R"(   <Package name="" type="">)"});
    Package package;
    package.PinArray.Add(new Writing<Pin>("pin", 0));
    EXPECT_EQ(Exported(package), (Export{0, opening + "      <SilkScreen>\n      </SilkScreen>\npin 1\n"}));
    package.LandPattern.PadArray.Add(new Writing<Pad>("pad", 0));
    EXPECT_EQ(Exported(package), (Export{0, opening + "      <SilkScreen>\n      </SilkScreen>\n"
                                                      "      <LandPattern>\npad 2\n"}));
    package.AssemblyDrawing.Outline->Polygon->PolyStepArray->Add(new CIPC2581_PolyStep);
    package.AssemblyDrawing.TargetArray.Add(new Writing<Target>("drawing", 0));
    EXPECT_EQ(Exported(package).result, 0);
    EXPECT_EQ(Written(package).find("pad"), std::string::npos);
    package.SilkScreen.TargetArray.Add(new Writing<Target>("silk screen", 0));
    EXPECT_EQ(Exported(package), (Export{0, opening + "      <SilkScreen>\nsilk screen 2\n"}));
    Replace(package.Outline, std::make_unique<Writing<CIPC2581_Outline>>("outline", 0));
    EXPECT_EQ(Exported(package), (Export{0, opening + "outline 1\n"}));
}

TEST(Package, WritesTheSilkScreenAloneWhenItIsEmpty)
{
    Package package;
    ExpectExport(package, Below(R"(
   <Package name="" type="">
      <SilkScreen>
      </SilkScreen>
   </Package>
)"));
}

TEST(Package, WritesTheTypeAsItIsHeld)
{
    Package package;
    package.name = "P1";
    package.type = "any & <text>";
    package.TypeCode = 8;
    ExpectExport(package, Below(R"(
   <Package name="P1" type="any & <text>">
      <SilkScreen>
      </SilkScreen>
   </Package>
)"));
}

TEST(Package, ReadsAndWritesAShortTypeWithTheCodeZero)
{
    Step step;
    ReadStep(step, {R"(<Package name="P1" type="SOIC">)", "</Package>", "</Step>"});
    Package & package = *step.PackageArray.GetAt(0);
    EXPECT_EQ(package.name, "P1");
    EXPECT_EQ(package.type, "SOIC");
    EXPECT_EQ(package.TypeCode, 0);
    EXPECT_EQ(Written(package), Below(R"(
   <Package name="P1" type="SOIC">
      <SilkScreen>
      </SilkScreen>
   </Package>
)"));
}

TEST(Package, DropsTheOtherAttributesOfItsLine)
{
    Step step;
    ReadStep(step, {R"(<Package pinOne="1" name="P1" pinOneOrientation="OTHER" height="1" type="SOIC" x="1">)",
                    "</Package>", "</Step>"});
    EXPECT_EQ(Written(*step.PackageArray.GetAt(0)), Below(R"(
   <Package name="P1" type="SOIC">
      <SilkScreen>
      </SilkScreen>
   </Package>
)"));
}

TEST(Package, TestsForTheNameBeforeTheType)
{
    Step step;
    ReadStep(step, {R"(<Package type="T"name="N">)", "</Package>", "</Step>"});
    EXPECT_EQ(step.PackageArray.GetAt(0)->name, "Tname=N");
    EXPECT_EQ(step.PackageArray.GetAt(0)->type, "");
}

TEST(Package, GivesTheCodeOfEachTypeText)
{
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
        EXPECT_EQ(CodeOf(kTypes[i].Text()), static_cast<int>(i) + 1) << kTypes[i].name;
    }
}

TEST(Package, GivesTheTypeTextOfEachCode)
{
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
        EXPECT_EQ(TextOf(static_cast<int>(i) + 1), kTypes[i].Text());
    }
}

TEST(Package, CountsEveryBlankAndTabOfATypeText)
{
    for (const TypeRow & row : kTypes) {
        SCOPED_TRACE(row.name);
        const std::string text = row.Text();
        EXPECT_EQ(CodeOf(row.name), 0);
        EXPECT_EQ(CodeOf(row.name + std::string(row.blank ? "" : " ") + std::string(row.tabs, '\t')), 0);
        EXPECT_EQ(CodeOf(text + "\t"), 0);
        EXPECT_EQ(CodeOf(text.substr(0, text.size() - 1)), 0);
        EXPECT_EQ(CodeOf(" " + text), 0);
        EXPECT_EQ(CodeOf(text + " "), 0);
        EXPECT_EQ(CodeOf("x" + text), 0);
        EXPECT_EQ(CodeOf(text.substr(1)), 0);
        std::string lower = text;
        lower[0] = static_cast<char>(lower[0] - 'A' + 'a');
        EXPECT_EQ(CodeOf(lower), 0);
    }
}

TEST(Package, GivesOtherForEveryOtherCode)
{
    for (const int code : {0, -1, -8, 49, 50, 100, 2147483647, -2147483647}) {
        EXPECT_EQ(TextOf(code), kOther) << code;
    }
}

TEST(Package, GivesTheCodeZeroForOtherAndUnknownTexts)
{
    for (const std::string & text :
         {kOther, std::string("OTHER"), "OTHER " + kOther.substr(5), std::string(),
          std::string("HERMETIC_HYBRID \t\t\t\t\t\t\t"), std::string("8"), std::string("\t")}) {
        EXPECT_EQ(CodeOf(text), 0) << text;
    }
}

TEST(Package, SpellsTheHybridPackageInItsOwnWay)
{
    EXPECT_EQ(CodeOf("HERMETIC_HYBRED \t\t\t\t\t\t\t"), 16);
    EXPECT_EQ(TextOf(16), "HERMETIC_HYBRED \t\t\t\t\t\t\t");
}

TEST(Package, FindsTheCodeOfATypeThatAFileHoldsInFull)
{
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
        SCOPED_TRACE(kTypes[i].name);
        const std::string text = kTypes[i].Text();
        Step step;
        ReadStep(step, {R"(<Package name="P1" type=")" + text + R"(" x="1">)", "</Package>", "</Step>"});
        Package & package = *step.PackageArray.GetAt(0);
        EXPECT_EQ(package.type, text);
        EXPECT_EQ(package.TypeCode, static_cast<int>(i) + 1);
        EXPECT_EQ(Written(package), R"(   <Package name="P1" type=")" + text + Below(R"(
">
      <SilkScreen>
      </SilkScreen>
   </Package>
)"));
    }
}

TEST(Package, FindsNoCodeForTheShortTypesOfAFile)
{
    for (const TypeRow & row : kTypes) {
        SCOPED_TRACE(row.name);
        Step step;
        ReadStep(step, {R"(<Package name="P1" type=")" + std::string(row.name) + R"(">)", "</Package>", "</Step>"});
        EXPECT_EQ(step.PackageArray.GetAt(0)->type, row.name);
        EXPECT_EQ(step.PackageArray.GetAt(0)->TypeCode, 0);
    }
}

TEST(Package, TakesARunOfBlanksInATypeForOne)
{
    Step step;
    ReadStep(step, {"<Package type=\"MCM    \t\t\t\t\t\t\t\t\t\t\t\t\">", "</Package>", "</Step>"});
    EXPECT_EQ(step.PackageArray.GetAt(0)->TypeCode, 18);
}

TEST(PackageArray, OwnsItsPackages)
{
    ExpectOwnsItsElements<PackageArray, Package>();
}

TEST(PackageArray, WritesItsPackages)
{
    ExpectWritesItsElements<PackageArray, Package>();
}

TEST(PackageArray, FindsTheFirstPackageOfAName)
{
    PackageArray packages;
    for (const char * const name : {"P1", "P2", "P2", ""}) {
        auto package = std::make_unique<Package>();
        package->name = name;
        packages.Add(package.release());
    }
    EXPECT_EQ(packages.pGetIPCPackageWithName("P1"), packages.GetAt(0));
    EXPECT_EQ(packages.pGetIPCPackageWithName("P2"), packages.GetAt(1));
    EXPECT_EQ(packages.pGetIPCPackageWithName(""), packages.GetAt(3));
    for (const char * const name : {"p1", "P", "P11", " P1", "P1 "}) {
        EXPECT_EQ(packages.pGetIPCPackageWithName(name), nullptr) << name;
    }
    EXPECT_FALSE(IsVirtual(&PackageArray::pGetIPCPackageWithName));
}

TEST(PackageArray, FindsNothingWhenItIsEmpty)
{
    PackageArray packages;
    EXPECT_EQ(packages.pGetIPCPackageWithName("P1"), nullptr);
    EXPECT_EQ(packages.pGetIPCPackageWithName(""), nullptr);
}

}  // namespace
