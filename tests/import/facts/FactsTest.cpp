#include <algorithm>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/import/facts/Fact.h"
#include "tests/import/facts/FileFacts.h"
#include "tests/import/facts/ModelFacts.h"
#include "tests/import/facts/SmallestBoard.h"

namespace ipc2581::facts {
namespace {

const Facts & SmallestBoardFacts()
{
    static const Facts facts = FactsOfFile(std::string(IPC2581_IMPORT_EXAMPLES) + "/smallest-board.xml");
    return facts;
}

using Step = CIPC2581_Ecad_CadData_Step;

Step & StepOf(CIPC2581_Parser & board)
{
    return board.m_Ecad.m_CadData.m_Step;
}

CIPC2581_Ecad_CadData_Step_Package & PackageOf(CIPC2581_Parser & board)
{
    return *StepOf(board).PackageArray.GetAt(0);
}

CIPC2581_Ecad_CadData_Stackup_StackupGroup & GroupOf(CIPC2581_Parser & board)
{
    return *board.m_Ecad.m_CadData.m_Stackup.StackupGroupArray.GetAt(0);
}

// The sets of the model: a pad, a track, an area, a text and a hole.
CIPC2581_Ecad_CadData_Step_LayerFeature_Set & SetOf(CIPC2581_Parser & board, std::int64_t index)
{
    return *StepOf(board).LayerFeatureArray.GetAt(0)->SetArray.GetAt(index);
}

// A change that makes the facts of one kind wrong, and no others.
struct Change {
    std::string kind;
    std::function<void(CIPC2581_Parser &)> make;
};

const std::vector<Change> Changes = {
    {"area", [](auto & board) { SetOf(board, 2).Features.Location.X += 0.001; }},
    {"board", [](auto & board) { board.m_Ecad.name = "other"; }},
    {"bom", [](auto & board) { board.m_Bom.assembly = "other"; }},
    {"bom-item", [](auto & board) { board.m_Bom.m_arrBomItem.GetAt(0)->numberIO = "3"; }},
    {"bom-ref", [](auto & board) { board.m_Content.BomRef.Add("parts"); }},
    {"bom-refdes", [](auto & board) { board.m_Bom.m_arrBomItem.GetAt(0)->m_arrRefDes.GetAt(0)->populate = false; }},
    {"color", [](auto & board) { board.m_Content.m_DictionaryColor->Entry->GetAt(0)->Green = 121; }},
    {"component", [](auto & board) { StepOf(board).ComponentArray.GetAt(0)->Height = 0; }},
    {"component-xform", [](auto & board) { StepOf(board).ComponentArray.GetAt(0)->Xform->Mirror = 1; }},
    {"dictionary", [](auto & board) { board.m_Content.DictionaryStandard->Unit = ""; }},
    {"dictionary-entry",
     [](auto & board) {
         auto * const shape = board.m_Content.DictionaryStandard->EntryArray->GetAt(1)->DrawArray->GetAt(0);
         dynamic_cast<CIPC2581_DicDraw_Circle &>(*shape).Diameter = 0.81;
     }},
    {"function-mode", [](auto & board) { board.m_Content.FunctionModeComment = "one of each & no more"; }},
    {"history", [](auto & board) { board.m_HistoryRecord.number = 2; }},
    {"hole", [](auto & board) { SetOf(board, 4).Hole.FromLayer = ""; }},
    {"land-pattern-pad", [](auto & board) { PackageOf(board).LandPattern.PadArray.GetAt(0)->Rotation = 90; }},
    {"layer", [](auto & board) { board.m_Ecad.m_CadData.m_arrLayer.GetAt(0)->polarity = "NEGATIVE"; }},
    {"layer-ref", [](auto & board) { board.m_Content.LayerRef.RemoveAll(); }},
    {"logistic", [](auto & board) { board.m_LogisticHeader.m_strPersonName = ""; }},
    {"material", [](auto & board) { GroupOf(board).StackupLayerArray.GetAt(0)->materialType = ""; }},
    {"net", [](auto & board) { StepOf(board).LogicalNetArray.Add(new CIPC2581_Ecad_CadData_Step_LogicalNet()); }},
    {"net-pin", [](auto & board) { StepOf(board).LogicalNetArray.GetAt(0)->LogicalNetPinArray->GetAt(0)->Pin = "2"; }},
    {"package", [](auto & board) { PackageOf(board).type = ""; }},
    {"package-marking", [](auto & board) { PackageOf(board).SilkScreen.TargetArray.GetAt(0)->Location.SetData(0, 0); }},
    {"package-outline", [](auto & board) { PackageOf(board).Outline->LineDesc->LineWidth = 0; }},
    {"package-pin", [](auto & board) { PackageOf(board).PinArray.GetAt(0)->Xform->XOffset = 0.01; }},
    {"pad", [](auto & board) { SetOf(board, 0).Pad.Rotation = 0; }},
    {"padstack", [](auto & board) { StepOf(board).PadStackArray.Add(new CIPC2581_Ecad_CadData_Step_PadStack()); }},
    {"padstack-hole", [](auto & board) { StepOf(board).PadStackArray.GetAt(0)->LayerHole->PlusTol = ""; }},
    {"padstack-pad",
     [](auto & board) { StepOf(board).PadStackArray.GetAt(0)->LayerPadArray->GetAt(0)->LayerRef = ""; }},
    {"phynet",
     [](auto & board) {
         StepOf(board).PhyNetGroup.PhyNetArray.Add(new CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet());
     }},
    {"phynet-point",
     [](auto & board) { StepOf(board).PhyNetGroup.PhyNetArray.GetAt(0)->PhyNetPointArray.GetAt(0)->Test = 0; }},
    {"profile", [](auto & board) { StepOf(board).Profile.Polygon->PolyStepArray->GetAt(2)->ClockWise = 0; }},
    {"profile-cutout", [](auto & board) { StepOf(board).Profile.Cutouts->DeleteAll(); }},
    {"set-color", [](auto & board) { SetOf(board, 0).ColorRef = ""; }},
    {"stackup", [](auto & board) { board.m_Ecad.m_CadData.m_Stackup.tolPlus = "0.1"; }},
    {"stackup-group", [](auto & board) { GroupOf(board).tolMinus = 0; }},
    {"stackup-layer", [](auto & board) { GroupOf(board).StackupLayerArray.GetAt(0)->thickness = 0; }},
    {"step", [](auto & board) { StepOf(board).Datum.Y = 0; }},
    {"step-ref", [](auto & board) { board.m_Content.StepRef.SetAt(0, "other"); }},
    {"text",
     [](auto & board) {
         auto * const shape = SetOf(board, 3).Features.DrawObjArray.GetAt(0);
         dynamic_cast<CIPC2581_Text &>(*shape).Xform->Rotation = 90;
     }},
    {"track",
     [](auto & board) {
         auto * const shape = SetOf(board, 1).Features.DrawObjArray.GetAt(0);
         dynamic_cast<CIPC2581_PolyLine &>(*shape).PolyStepArray->GetAt(1)->ClockWise = 0;
     }},
};

std::set<std::string> WrongKinds(const std::vector<KindComparison> & comparisons)
{
    std::set<std::string> kinds;
    for (const KindComparison & comparison : comparisons) {
        if (!comparison.IsRight()) {
            kinds.insert(comparison.kind);
        }
    }
    return kinds;
}

std::vector<KindComparison> CompareWith(const CIPC2581_Parser & board)
{
    return Compare(SmallestBoardFacts(), FactsOfModel(board));
}

TEST(Facts, OfFileAndModelAreTheSame)
{
    CIPC2581_Parser board;
    FillWithSmallestBoard(board);
    const auto comparisons = CompareWith(board);
    EXPECT_EQ(WrongKinds(comparisons), std::set<std::string>()) << Table(comparisons, 3);
}

TEST(Facts, EachKindIsChangedByATest)
{
    std::set<std::string> kinds;
    for (const Fact & fact : SmallestBoardFacts()) {
        kinds.insert(fact.kind);
    }
    std::set<std::string> changed;
    for (const Change & change : Changes) {
        changed.insert(change.kind);
    }
    EXPECT_EQ(kinds, changed);
}

class FactsOfKind : public testing::TestWithParam<Change> {};

TEST_P(FactsOfKind, TellAChange)
{
    CIPC2581_Parser board;
    FillWithSmallestBoard(board);
    GetParam().make(board);
    const auto comparisons = CompareWith(board);
    EXPECT_EQ(WrongKinds(comparisons), std::set{GetParam().kind}) << Table(comparisons, 3);
}

std::string KindName(const testing::TestParamInfo<Change> & info)
{
    std::string name = info.param.kind;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(SmallestBoard, FactsOfKind, testing::ValuesIn(Changes), KindName);

}  // namespace
}  // namespace ipc2581::facts
