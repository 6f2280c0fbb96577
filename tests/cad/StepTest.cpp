#include "ipc2581/cad/Step.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Component.h"
#include "ipc2581/cad/LayerFeature.h"
#include "ipc2581/cad/LogicalNet.h"
#include "ipc2581/cad/Package.h"
#include "ipc2581/cad/PadStack.h"
#include "ipc2581/cad/PhyNet.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Polygon.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Progress.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Step = CIPC2581_Ecad_CadData_Step;
using Component = CIPC2581_Ecad_CadData_Step_Component;
using Package = CIPC2581_Ecad_CadData_Step_Package;

// What ReadStep makes of the Step line and of the lines behind it.
class Read {
public:
    explicit Read(std::string_view behind, std::string_view opening = "<Step>") : m_lines(behind)
    {
        Tokens tokens(opening);
        step.ReadStep(tokens, m_lines.File(), &bar);
    }

    Texts Rest() { return m_lines.Rest(); }

    Bar bar;
    Step step;

private:
    Lines m_lines;
};

// How many of each child there are: pad stacks, packages, components, logical nets, physical nets, layer features.
std::vector<std::int64_t> Counts(const Step & step)
{
    return {step.PadStackArray.GetSize(),           step.PackageArray.GetSize(),
            step.ComponentArray.GetSize(),          step.LogicalNetArray.GetSize(),
            step.PhyNetGroup.PhyNetArray.GetSize(), step.LayerFeatureArray.GetSize()};
}

// Everything that a step can hold, once.
constexpr std::string_view Board = R"(<LayerFeature layerRef="TOP">
</LayerFeature>
<PhyNetGroup name="g">
<PhyNet name="p">
</PhyNet>
</PhyNetGroup>
<LogicalNet name="n">
</LogicalNet>
<Component refDes="R1">
</Component>
<Package name="P" type="T">
</Package>
<Profile>
<Polygon>
<PolyBegin x="1" y="2"/>
</Polygon>
</Profile>
<Datum x="1.5" y="-2.5"/>
<PadStack net="s">
</PadStack>
</Step>
)";

TEST(Step, IsEmptyAtFirst)
{
    Step step;
    EXPECT_EQ(step.Name, "");
    EXPECT_EQ(Counts(step), (std::vector<std::int64_t>(6, 0)));
    EXPECT_EQ(step.Datum.GetX(), 0);
    EXPECT_EQ(step.Datum.GetY(), 0);
    EXPECT_EQ(step.PhyNetGroup.Name, "");
    EXPECT_EQ(step.Profile.Polygon->GetPolyStepArray()->GetSize(), 0);
    EXPECT_EQ(step.Profile.Cutouts->GetSize(), 0);
    EXPECT_EQ(step.Progress, nullptr);
}

TEST(Step, HoldsItsFieldsInOrder)
{
    const Step step;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(step.Name), at(step.PadStackArray));
    EXPECT_LT(at(step.PadStackArray), at(step.Datum));
    EXPECT_LT(at(step.Datum), at(step.Profile));
    EXPECT_LT(at(step.Profile), at(step.PackageArray));
    EXPECT_LT(at(step.PackageArray), at(step.ComponentArray));
    EXPECT_LT(at(step.ComponentArray), at(step.LogicalNetArray));
    EXPECT_LT(at(step.LogicalNetArray), at(step.PhyNetGroup));
    EXPECT_LT(at(step.PhyNetGroup), at(step.LayerFeatureArray));
    EXPECT_LT(at(step.LayerFeatureArray), at(step.Progress));
}

TEST(Step, HasItsOperationsInOrder)
{
    ExpectExportIsItsOneOperation<Step>();
}

TEST(Step, InitEmptiesTheNameAndForgetsTheBar)
{
    Read read(Board, R"(<Step name="s">)");
    CIPC2581_Polygon * const polygon = read.step.Profile.Polygon;
    read.step.Init();
    EXPECT_EQ(read.step.Name, "");
    EXPECT_EQ(read.step.Progress, nullptr);
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>(6, 1)));
    EXPECT_EQ(read.step.Datum.GetX(), 1.5);
    EXPECT_EQ(read.step.Profile.Polygon, polygon);
    EXPECT_EQ(polygon->GetPolyBegin()->GetPoint_Y(), 2);
    EXPECT_EQ(read.step.PhyNetGroup.Name, "g");
}

TEST(Step, ACopyIsANamedEmptyBoard)
{
    Read read(Board, R"(<Step name="s">)");
    const Step copy(read.step);
    EXPECT_EQ(copy.Name, "s");
    EXPECT_EQ(copy.Progress, nullptr);
    EXPECT_EQ(Counts(copy), (std::vector<std::int64_t>(6, 0)));
    EXPECT_EQ(copy.Datum.GetX(), 0);
    EXPECT_EQ(copy.PhyNetGroup.Name, "");
    EXPECT_EQ(copy.Profile.Polygon->GetPolyBegin()->GetPoint_Y(), 0);
}

TEST(Step, AnAssignmentCopiesTheNameAlone)
{
    Read source(Board, R"(<Step name="s">)");
    Read target(Board, R"(<Step name="t">)");
    target.step.Datum.SetX(9);
    target.step.PhyNetGroup.Name = "mine";
    EXPECT_EQ(&(target.step = source.step), &target.step);
    EXPECT_EQ(target.step.Name, "s");
    EXPECT_EQ(target.step.Progress, &target.bar);
    EXPECT_EQ(target.step.Datum.GetX(), 9);
    EXPECT_EQ(target.step.PhyNetGroup.Name, "mine");
    EXPECT_EQ(Counts(target.step), (std::vector<std::int64_t>(6, 1)));

    Step empty;
    target.step = empty;
    EXPECT_EQ(target.step.Name, "");
    EXPECT_EQ(Counts(target.step), (std::vector<std::int64_t>(6, 1)));
}

TEST(Step, AssignmentToItselfChangesNothing)
{
    Read read(Board, R"(<Step name="s">)");
    const Step & same = read.step;
    read.step = same;
    EXPECT_EQ(read.step.Name, "s");
    EXPECT_EQ(read.step.Progress, &read.bar);
}

TEST(Step, SetProgressSendsThePosition)
{
    Step step;
    Bar bar;
    step.SetProgress(5);
    step.Progress = &bar;
    step.SetProgress(6);
    EXPECT_EQ(bar.positions, std::vector<int>{6});
}

TEST(Step, TakesItsNameFromItsLine)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<Step name="board">)", "board"},  {R"(<Step x="1" name="two words">)", "two words"},
        {R"(<Step name="a" name="b">)", "b"}, {R"(<Step filename="f" >)", "f"},
        {R"(<Step Name="a" name ="b">)", ""}, {"<Step>", ""},
        {R"(<Step_name="t" >)", "t"},
    };
    for (const auto & [line, name] : rows) {
        EXPECT_EQ(Read("</Step>\n", line).step.Name, name) << line;
    }
}

TEST(Step, ALineWithoutANameKeepsTheFormer)
{
    Read read("</Step>\n", R"(<Step name="a">)");
    Lines lines({"</Step>"});
    Tokens tokens(R"(<Step x="1">)");
    read.step.ReadStep(tokens, lines.File(), nullptr);
    EXPECT_EQ(read.step.Name, "a");
    EXPECT_EQ(read.step.Progress, nullptr);
}

TEST(Step, KeepsTheBarAfterTheRead)
{
    Read read("</Step>\n");
    EXPECT_EQ(read.step.Progress, &read.bar);
}

TEST(Step, ReadsEveryChild)
{
    Read read(std::string(Board) + "<Behind/>\n");
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>(6, 1)));
    EXPECT_EQ(read.step.PadStackArray.GetAt(0)->NetName, "s");
    EXPECT_EQ(read.step.Datum.GetX(), 1.5);
    EXPECT_EQ(read.step.Datum.GetY(), -2.5);
    EXPECT_EQ(read.step.Profile.Polygon->GetPolyBegin()->GetPoint_X(), 1);
    EXPECT_EQ(read.step.PackageArray.GetAt(0)->name, "P");
    EXPECT_EQ(read.step.ComponentArray.GetAt(0)->RefDes, "R1");
    EXPECT_EQ(read.step.LogicalNetArray.GetAt(0)->Name, "n");
    EXPECT_EQ(read.step.PhyNetGroup.Name, "g");
    EXPECT_EQ(read.step.PhyNetGroup.PhyNetArray.GetAt(0)->Name, "p");
    EXPECT_EQ(read.step.LayerFeatureArray.GetAt(0)->LayerRef, "TOP");
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(Step, SendsAPositionBehindEveryChildThatHasOne)
{
    Read read(Board);
    EXPECT_EQ(read.bar.positions, (std::vector<int>{80, 70, 60, 50, 40}));
    Read three("<Package>\n</Package>\n<Package>\n</Package>\n<Package>\n</Package>\n</Step>\n");
    EXPECT_EQ(three.bar.positions, (std::vector<int>{40, 40, 40}));
}

TEST(Step, SendsThePositionOnceTheChildIsStored)
{
    Lines lines{Board};
    Bar bar;
    Step step;
    bar.look = [&step] {
        std::string counts;
        for (const std::int64_t count : Counts(step)) {
            counts += std::to_string(count);
        }
        return counts;
    };
    Tokens tokens("<Step>");
    step.ReadStep(tokens, lines.File(), &bar);
    EXPECT_EQ(bar.seen, (Texts{"000001", "000011", "000111", "001111", "011111"}));
}

TEST(Step, ReadsTheSameWithoutABar)
{
    Lines lines{Board};
    Step step;
    Tokens tokens(R"(<Step name="s">)");
    step.ReadStep(tokens, lines.File(), nullptr);
    EXPECT_EQ(step.Name, "s");
    EXPECT_EQ(Counts(step), (std::vector<std::int64_t>(6, 1)));
    EXPECT_EQ(step.Progress, nullptr);
}

// The row that a line with this first word hits, told by what the line and a polygon behind it have filled.
std::string HitBy(const std::string & word)
{
    Read read("<" + word + Below(R"(
 name="v" x="3">
<Polygon>
<PolyBegin x="1" y="2"/>
</Polygon>
)"));
    const std::vector<std::int64_t> counts = Counts(read.step);
    std::string hits;
    const std::pair<std::string_view, bool> rows[] = {
        {"PadStack", counts[0] == 1},
        {"Datum", read.step.Datum.GetX() == 3},
        {"Profile", read.step.Profile.Polygon->GetPolyBegin()->GetPoint_X() == 1},
        {"Package", counts[1] == 1},
        {"Component", counts[2] == 1},
        {"LogicalNet", counts[3] == 1},
        {"PhyNetGroup", read.step.PhyNetGroup.Name == "v"},
        {"LayerFeature", counts[5] == 1},
        {"/Step", read.Rest().size() == 3},
    };
    for (const auto & [row, isHit] : rows) {
        hits += isHit ? std::string(row) : "";
    }
    return hits;
}

const Texts Rows = {"PadStack",  "Datum",      "Profile",     "Package",
                    "Component", "LogicalNet", "PhyNetGroup", "LayerFeature"};

TEST(Step, AWordAnywhereInTheFirstTokenOpens)
{
    for (const std::string & row : Rows) {
        EXPECT_EQ(HitBy(row), row);
        EXPECT_EQ(HitBy("x" + row + "x"), row);
    }
    EXPECT_EQ(HitBy("LogicalNetPin"), "LogicalNet");
}

TEST(Step, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    for (std::size_t earlier = 0; earlier < Rows.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < Rows.size(); ++later) {
            EXPECT_EQ(HitBy(Rows[later] + Rows[earlier]), Rows[earlier]) << Rows[later];
        }
    }
}

TEST(Step, ASlashInTheFirstTokenOpensNothing)
{
    for (const std::string & row : Rows) {
        EXPECT_EQ(HitBy("/" + row), "");
        EXPECT_EQ(HitBy(row + "/x"), "");
        EXPECT_EQ(HitBy("/Step" + row), "/Step");
    }
}

TEST(Step, OtherLinesAreIgnored)
{
    for (const std::string_view word : {"Step", "StepRef", "Pad", "Hole", "Layer", "PhyNet", "datum", "PADSTACK", "x",
                                        "LayerPad", "/CadData", "/Ste", "Polygon", "Contour", "Logical"}) {
        EXPECT_EQ(HitBy(std::string(word)), "") << word;
    }
    Read read(Below(R"(

<x Package Component>
< Datum x="1">
text
<!-- Package -->
<Component refDes="R1">
</Component>
<Unknown a="b"/>
<Component>
</Component>
</Step>
)"));
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>{0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(read.step.Datum.GetX(), 0);
}

TEST(Step, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line : {"</Step>", "</StepRef>", "<x/Steps y>", "   </Step>"}) {
        Read read(std::string(line) + "\n<Component>\n");
        EXPECT_EQ(Counts(read.step)[2], 0) << line;
        EXPECT_EQ(read.Rest(), Texts{"<Component>"}) << line;
    }
}

TEST(Step, ClosingTagsOfChildrenAreIgnored)
{
    Read read(Below(R"(
</PadStack>
</Datum>
</Profile>
</Package>
</Component>
</LogicalNet>
</PhyNetGroup>
</LayerFeature>
<Component refDes="R1">
</Component>
</Step>
)"));
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>{0, 0, 1, 0, 0, 0}));
}

TEST(Step, AChildWithoutABlankAndWithItsSlashIsIgnored)
{
    Read read("<PadStack/>\n<Datum/>\n<Profile/>\n<Package/>\n<Component/>\n<LogicalNet/>\n<PhyNetGroup/>\n"
              "<LayerFeature/>\n</Step>\n");
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>(6, 0)));
    EXPECT_EQ(read.bar.positions, std::vector<int>{});
    EXPECT_EQ(read.Rest(), Texts{});
}

TEST(Step, ASelfClosingChildTakesTheLinesBehindIt)
{
    Read read(Below(R"(
<Component refDes="R1"/>
<Component refDes="R2">
<Location x="3" y="4"/>
</Component>
<Component refDes="R3">
</Component>
</Step>
)"));
    ASSERT_EQ(read.step.ComponentArray.GetSize(), 2);
    EXPECT_EQ(read.step.ComponentArray.GetAt(0)->RefDes, "R1");
    EXPECT_EQ(read.step.ComponentArray.GetAt(0)->Location.GetX(), 3);
    EXPECT_EQ(read.step.ComponentArray.GetAt(1)->RefDes, "R3");
}

TEST(Step, AChildThatIsNotClosedLosesWhatFollows)
{
    Read read(Below(R"(
<Package name="P">
<Component refDes="R1">
</Component>
</Step>
<Layer>
)"));
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>{0, 1, 0, 0, 0, 0}));
    EXPECT_EQ(read.Rest(), Texts{});
}

TEST(Step, ReadsItsDatum)
{
    struct Row {
        std::string_view line;
        double x;
        double y;
    };
    const std::vector<Row> rows = {
        {R"(<Datum x="1.0" y="2.0"/>)", 1, 2}, {R"(<Datum y="-2e1" x="1.5mm" >)", 1.5, -20},
        {R"(<Datum x="1"/>)", 1, 8},           {R"(<Datum y="1"/>)", 7, 1},
        {R"(<Datum X="1" y ="2">)", 7, 8},     {R"(<Datum x="z" y="" >)", 0, 0},
        {R"(<Datum max="1" >)", 1, 8},         {R"(<Datum y=x="1" >)", 0, 8},
        {R"(<Datum x="1" x="2" >)", 2, 8},     {"<Datum>", 7, 8},
        {R"(<Datum_x="3" >)", 3, 8},
    };
    for (const Row & row : rows) {
        Read read(Joined({R"(<Datum x="7" y="8"/>)"}) + std::string(row.line) + "\n<Component>\n");
        EXPECT_EQ(read.step.Datum.GetX(), row.x) << row.line;
        EXPECT_EQ(read.step.Datum.GetY(), row.y) << row.line;
        EXPECT_EQ(Counts(read.step)[2], 1) << row.line;
    }
}

TEST(Step, TakesTheNetOfAPadStack)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<PadStack net="GND">)", "GND"}, {R"(<PadStack net="a b" >)", "a b"},   {R"(<PadStack internet="x" >)", "x"},
        {R"(<PadStack Net="x" >)", ""},     {R"(<PadStack net ="x" >)", ""},       {"<PadStack>", ""},
        {R"(<PadStack_net="t" >)", "t"},    {R"(<PadStack net="" name="n">)", ""},
    };
    for (const auto & [line, net] : rows) {
        EXPECT_EQ(Read(std::string(line) + "\n").step.PadStackArray.GetAt(0)->NetName, net) << line;
    }
}

TEST(Step, TakesNameAndTypeOfAPackage)
{
    const std::string chip = "CHIP " + std::string(12, '\t');
    struct Row {
        std::string line;
        std::string name;
        std::string type;
        int code;
    };
    const std::vector<Row> rows = {
        {R"(<Package name="P1" type="SOIC">)", "P1", "SOIC", 0},
        {R"(<Package type=")" + chip + R"(" name="P 2" >)", "P 2", chip, 8},
        {R"(<Package type=")" + chip + R"(" type="SOIC" >)", "", "SOIC", 0},
        {R"(<Package type="TRIMPOT_TH)" + std::string(9, '\t') + R"(" pinOne="1">)", "",
         "TRIMPOT_TH" + std::string(9, '\t'), 48},
        {R"(<Package subtype="a" filename="b" >)", "b", "a", 0},
        {R"(<Package Name="a" Type="b" height="1">)", "", "", 0},
        {R"(<Package type=name="a" >)", "name=a", "", 0},
        {"<Package>", "", "", 0},
        {R"(<Package_name="t" >)", "t", "", 0},
    };
    for (const Row & row : rows) {
        Read read(row.line + "\n");
        ASSERT_EQ(read.step.PackageArray.GetSize(), 1) << row.line;
        const Package & package = *read.step.PackageArray.GetAt(0);
        EXPECT_EQ(package.name, row.name) << row.line;
        EXPECT_EQ(package.type, row.type) << row.line;
        EXPECT_EQ(package.TypeCode, row.code) << row.line;
    }
}

// Text fields in the order in which the line is tested for them, and the height behind them.
std::pair<Texts, double> ComponentOf(std::string_view line)
{
    Read read(line);
    EXPECT_EQ(read.step.ComponentArray.GetSize(), 1) << line;
    const Component & part = *read.step.ComponentArray.GetAt(0);
    EXPECT_EQ(part.Spare, 0);
    return {{Str(part.RefDes), Str(part.PackageRef), Str(part.LayerRef), Str(part.Part), Str(part.MountType),
             Str(part.Standoff)},
            part.Height};
}

TEST(Step, TakesTheAttributesOfAComponent)
{
    const std::vector<std::pair<std::string_view, std::pair<Texts, double>>> rows = {
        {R"(<Component refDes="R1" packageRef="P1" layerRef="TOP" part="X" mountType="SMT" standoff="0.1")"
         R"( height="1.5">)",
         {{"R1", "P1", "TOP", "X", "SMT", "0.1"}, 1.5}},
        {R"(<Component height="-1e1" standoff="two words" mountType="any" part="a b c" layerRef="L")"
         R"( packageRef="P" refDes="R"/>)",
         {{"R", "P", "L", "a b c", "any", "two words"}, -10}},
        {"<Component>", {{"", "", "", "", "OTHER", ""}, 0}},
        {R"(<Component refdes="a" part ="b" weight="2" x="height">)", {{"", "", "", "", "OTHER", ""}, 0}},
        {R"(<Component mountType="" height="z">)", {{"", "", "", "", "", ""}, 0}},
        {R"(<Component counterpart="c" subheight="3" >)", {{"", "", "", "c", "OTHER", ""}, 3}},
        {R"(<Component refDes="a" refDes="b" >)", {{"b", "", "", "", "OTHER", ""}, 0}},
        {R"(<Component_refDes="t" >)", {{"t", "", "", "", "OTHER", ""}, 0}},
    };
    for (const auto & [line, fields] : rows) {
        EXPECT_EQ(ComponentOf(line), fields) << line;
    }
}

TEST(Step, AComponentTokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"refDes=", "packageRef=", "layerRef=", "part=", "mountType=", "standoff=", "height="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            Texts expected = {"", "", "", "", "OTHER", ""};
            expected[earlier] = words[earlier] + "v";
            EXPECT_EQ(ComponentOf(R"(<Component height="7" )" + words[later] + words[earlier] + R"("v" >)"),
                      std::make_pair(expected, 7.0))
                << words[later];
        }
    }
}

TEST(Step, TakesTheNameOfALogicalNet)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<LogicalNet name="GND">)", "GND"},  {R"(<LogicalNet name="a b" >)", "a b"},
        {R"(<LogicalNet nickname="x" >)", "x"}, {R"(<LogicalNet Name="x">)", ""},
        {R"(<LogicalNet netClass="CLK">)", ""}, {"<LogicalNet>", ""},
        {R"(<LogicalNet_name="t" >)", "t"},
    };
    for (const auto & [line, name] : rows) {
        EXPECT_EQ(Read(std::string(line) + "\n").step.LogicalNetArray.GetAt(0)->Name, name) << line;
    }
}

TEST(Step, ALogicalNetPinOnItsOwnOpensANet)
{
    Read read(Below(R"(
<LogicalNet name="n">
<LogicalNetPin pin="1" componentRef="R1">
</LogicalNetPin>
<LogicalNetPin pin="2" componentRef="R2">
</LogicalNetPin>
</LogicalNet>
</Step>
)"));
    ASSERT_EQ(read.step.LogicalNetArray.GetSize(), 2);
    EXPECT_EQ(read.step.LogicalNetArray.GetAt(0)->LogicalNetPinArray->GetSize(), 1);
    EXPECT_EQ(read.step.LogicalNetArray.GetAt(1)->Name, "");
    EXPECT_EQ(read.step.LogicalNetArray.GetAt(1)->LogicalNetPinArray->GetSize(), 0);
    EXPECT_EQ(read.bar.positions, (std::vector<int>{60, 60}));
}

TEST(Step, TakesTheNameOfThePhyNetGroup)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<PhyNetGroup name="g">)", "g"},        {R"(<PhyNetGroup filename="x y" >)", "x y"},
        {R"(<PhyNetGroup optimized="TRUE">)", ""}, {"<PhyNetGroup>", ""},
        {R"(<PhyNetGroup_name="t" >)", "t"},
    };
    for (const auto & [line, name] : rows) {
        EXPECT_EQ(Read(std::string(line) + "\n").step.PhyNetGroup.Name, name) << line;
    }
}

TEST(Step, ThereIsOnePhyNetGroup)
{
    Read read(Below(R"(
<PhyNetGroup name="a">
<PhyNet name="1">
</PhyNet>
</PhyNetGroup>
<PhyNetGroup>
<PhyNet name="2">
</PhyNet>
</PhyNetGroup>
<PhyNetGroup name="c">
</PhyNetGroup>
</Step>
)"));
    EXPECT_EQ(read.step.PhyNetGroup.Name, "c");
    EXPECT_EQ(read.step.PhyNetGroup.PhyNetArray.GetSize(), 2);
    EXPECT_EQ(read.bar.positions, (std::vector<int>{70, 70, 70}));
}

TEST(Step, TakesTheLayerOfALayerFeature)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<LayerFeature layerRef="TOP">)", "TOP"}, {R"(<LayerFeature xlayerRef="a b" >)", "a b"},
        {R"(<LayerFeature LayerRef="TOP">)", ""},    {"<LayerFeature>", ""},
        {R"(<LayerFeature_layerRef="t" >)", "t"},
    };
    for (const auto & [line, layer] : rows) {
        EXPECT_EQ(Read(std::string(line) + "\n").step.LayerFeatureArray.GetAt(0)->LayerRef, layer) << line;
    }
}

TEST(Step, TwoProfilesFillOne)
{
    Read read(Below(R"(
<Profile>
<Polygon>
<PolyBegin x="1" y="1"/>
<PolyStepSegment x="2" y="2"/>
</Polygon>
</Profile>
<Profile name="x">
<Polygon>
<PolyStepSegment x="3" y="3"/>
</Polygon>
</Profile>
</Step>
)"));
    EXPECT_EQ(read.step.Profile.Polygon->GetPolyStepArray()->GetSize(), 2);
    EXPECT_EQ(read.step.Profile.Polygon->GetPolyBegin()->GetPoint_X(), 1);
    EXPECT_EQ(read.bar.positions, std::vector<int>{});
}

TEST(Step, KeepsDuplicatesSideBySide)
{
    Read read(Below(R"(
<Package name="P">
</Package>
<Package name="P">
</Package>
<Component refDes="R">
</Component>
<Component refDes="R" packageRef="none">
</Component>
</Step>
)"));
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>{0, 2, 2, 0, 0, 0}));
}

TEST(Step, ASecondReadAddsToWhatIsThere)
{
    Read read(Board, R"(<Step name="a">)");
    Lines lines{Board};
    Tokens tokens(R"(<Step name="b">)");
    read.step.ReadStep(tokens, lines.File(), nullptr);
    EXPECT_EQ(read.step.Name, "b");
    EXPECT_EQ(Counts(read.step), (std::vector<std::int64_t>(6, 2)));
}

TEST(Step, AChildThatTheEndOfTheFileMeetsIsStored)
{
    const std::vector<std::pair<std::string_view, std::vector<int>>> rows = {
        {Below(R"(
<PadStack net="n">
<LayerPad layerRef="x">
)"),
         {}},
        {Below(R"(
<Package name="P">
<Pin number="1">
)"),
         {40}},
        {Below(R"(
<Component refDes="R">
<Xform rotation="1"/>
)"),
         {50}},
        {"<LogicalNet name=\"n\">\n", {60}},
        {Below(R"(
<LayerFeature layerRef="L">
<Set>
<Features>
)"),
         {80}},
    };
    for (const auto & [bytes, positions] : rows) {
        Read read(bytes);
        const std::vector<std::int64_t> counts = Counts(read.step);
        EXPECT_EQ(std::count(counts.begin(), counts.end(), 1), 1) << bytes;
        EXPECT_EQ(read.bar.positions, positions) << bytes;
    }
    Read group(Below(R"(
<PhyNetGroup name="g">
<PhyNet name="p">
<PhyNetPoint x="1">
)"));
    EXPECT_EQ(group.step.PhyNetGroup.PhyNetArray.GetSize(), 1);
    EXPECT_EQ(group.bar.positions, std::vector<int>{70});
}

TEST(Step, ALineOfBlanksThrows)
{
    Lines lines({"<Component>", "</Component>", "  ", "<Component>"});
    Step step;
    Tokens tokens(R"(<Step name="s">)");
    EXPECT_THROW(step.ReadStep(tokens, lines.File(), nullptr), CInvalidArgException);
    EXPECT_EQ(step.Name, "s");
    EXPECT_EQ(step.ComponentArray.GetSize(), 1);
    EXPECT_EQ(lines.Rest(), Texts{"<Component>"});
}

TEST(Step, AChildInHandStaysOutsideWhenAnExceptionPasses)
{
    for (const std::string & row : Rows) {
        for (const std::string_view bad : {"  ", "<x y>\n  "}) {
            Lines lines("<" + row + ">\n" + std::string(bad) + "\n");
            Step step;
            Bar bar;
            Tokens tokens("<Step>");
            EXPECT_THROW(step.ReadStep(tokens, lines.File(), &bar), CInvalidArgException) << row;
            EXPECT_EQ(Counts(step), (std::vector<std::int64_t>(6, 0))) << row;
            EXPECT_EQ(bar.positions, std::vector<int>{}) << row;
        }
    }
}

TEST(Step, ACutValueThrowsAndStoresNothing)
{
    for (const std::string_view line :
         {R"(<PadStack net="open)", R"(<Datum x="1)", R"(<Package name="open)", R"(<Package type="open and on)",
          R"(<Component refDes="open)", R"(<Component height="1)", "<LogicalNet name=", "<PhyNetGroup name=plain",
          R"(<LayerFeature layerRef=")"}) {
        Lines lines({line, "<Component>"});
        Step step;
        Tokens tokens("<Step>");
        EXPECT_THROW(step.ReadStep(tokens, lines.File(), nullptr), CInvalidArgException) << line;
        EXPECT_EQ(Counts(step), (std::vector<std::int64_t>(6, 0))) << line;
        EXPECT_EQ(lines.Rest(), Texts{"<Component>"}) << line;
    }
    Lines lines({"<Component>"});
    Step step;
    Tokens tokens(R"(<Step name="open)");
    EXPECT_THROW(step.ReadStep(tokens, lines.File(), nullptr), CInvalidArgException);
    EXPECT_EQ(lines.Rest(), Texts{"<Component>"});
}

TEST(Step, AnOpenValueThatNobodyTakesIsHarmless)
{
    Read read(Below(R"(
<Profile name="open
</Profile>
<Datum name="open
<Component note="open
</Component>
</Step>
)"));
    EXPECT_EQ(Counts(read.step)[2], 1);
}

TEST(Step, TheExceptionComesWithTheBarAlreadyStored)
{
    Lines lines({"  "});
    Step step;
    Bar bar;
    Tokens tokens("<Step>");
    EXPECT_THROW(step.ReadStep(tokens, lines.File(), &bar), CInvalidArgException);
    EXPECT_EQ(step.Progress, &bar);
}

TEST(Step, WritesItsLinesWhereEverythingIsEmpty)
{
    Step step;
    EXPECT_EQ(Exported(step, 0), (Export{1, Below(R"(
   <Step name="">
      <Datum x="0.000000" y="0.000000" />
      <Profile>
         <Polygon>
            <PolyBegin x="0.000000" y="0.000000" />
         </Polygon>
      </Profile>
      <PhyNetGroup name="">
      </PhyNetGroup>
   </Step>
)")}));
}

TEST(Step, WritesItsChildrenInItsOwnOrder)
{
    Read read(Board, R"(<Step name="s & t">)");
    EXPECT_EQ(Exported(read.step, 1), (Export{1, Below(R"(
      <Step name="s & t">
         <Datum x="1.500000" y="-2.500000" />
         <Profile>
            <Polygon>
               <PolyBegin x="1.000000" y="2.000000" />
            </Polygon>
         </Profile>
         <Package name="P" type="T">
            <SilkScreen>
            </SilkScreen>
         </Package>
         <Component refDes="R1" packageRef="" layerRef="" part="" mountType="OTHER" standoff="" height="0.0">
            <Xform rotation="0.000000"/>
            <Location x="0.000000" y="0.000000"/>
         </Component>
         <LogicalNet name="n">
         </LogicalNet>
         <PhyNetGroup name="g">
            <PhyNet name="p">
            </PhyNet>
         </PhyNetGroup>
         <LayerFeature layerRef="TOP">
            <Set>
               <ColorRef id="" />
            </Set>
         </LayerFeature>
      </Step>
)")}));
}

TEST(Step, WritesNoPadStack)
{
    Read read(Below(R"(
<PadStack net="n">
<LayerPad layerRef="TOP">
</LayerPad>
</PadStack>
</Step>
)"));
    EXPECT_EQ(Exported(read.step, 0).text.find("Pad"), std::string::npos);
    EXPECT_EQ(read.step.PadStackArray.GetSize(), 1);
}

TEST(Step, KeepsTheFileOrderOfChildrenOfOneKind)
{
    Read read(Below(R"(
<Component refDes="B">
</Component>
<Component refDes="A">
</Component>
</Step>
)"));
    const std::string text = Exported(read.step, 0).text;
    EXPECT_LT(text.find(R"(refDes="B")"), text.find(R"(refDes="A")"));
}

// The result, and the marks of the children up to the one that refuses; all of them for -1.
std::pair<int, Texts> MarksUpTo(int refusing)
{
    Step step;
    int next = 0;
    const auto result = [&] { return next++ == refusing ? 0 : 1; };
    step.Profile.Cutouts->Add(new Writing<CIPC2581_DrawObj>("cutout", result()));
    step.PackageArray.Add(new Writing<Package>("package", result()));
    step.ComponentArray.Add(new Writing<Component>("component", result()));
    step.LogicalNetArray.Add(new Writing<CIPC2581_Ecad_CadData_Step_LogicalNet>("net", result()));
    step.PhyNetGroup.PhyNetArray.Add(new Writing<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet>("phynet", result()));
    step.LayerFeatureArray.Add(new Writing<CIPC2581_Ecad_CadData_Step_LayerFeature>("feature", result()));
    const Export exported = Exported(step, 0);
    Texts marks;
    for (std::size_t at = 0; at < exported.text.size(); at = exported.text.find('\n', at) + 1) {
        if (exported.text[at] != ' ') {
            marks.push_back(exported.text.substr(at, exported.text.find('\n', at) - at));
        }
    }
    EXPECT_EQ(exported.text.find("</Step>") != std::string::npos, refusing < 0);
    return {exported.result, marks};
}

TEST(Step, StopsAtTheFirstChildThatRefuses)
{
    const Texts all = {"cutout 2", "package 1", "component 1", "net 1", "phynet 2", "feature 1"};
    EXPECT_EQ(MarksUpTo(-1), std::make_pair(1, all));
    for (int refusing = 0; refusing < 6; ++refusing) {
        EXPECT_EQ(MarksUpTo(refusing), std::make_pair(0, Texts(all.begin(), all.begin() + refusing + 1)));
    }
}

TEST(Step, WritesNegativeZeroAndLargeNumbersAsTheyAre)
{
    Step step;
    step.Datum.SetData(-0.0, 1e15);
    EXPECT_NE(Exported(step, 0).text.find(R"(<Datum x="-0.000000" y="1000000000000000.000000" />)"), std::string::npos);
}

}  // namespace
