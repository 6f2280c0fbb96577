#include "import/ForWriting.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "import/Import.h"
#include "tests/import/facts/Fact.h"
#include "tests/import/facts/ModelFacts.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

// What the writer leaves out, or writes without some of it.
const std::set<std::string, std::less<>> NotCarried = {"bom",
                                                       "bom-item",
                                                       "bom-ref",
                                                       "bom-refdes",
                                                       "component",
                                                       "component-xform",
                                                       "history",
                                                       "hole",
                                                       "layer-ref",
                                                       "logistic",
                                                       "material",
                                                       "package-marking",
                                                       "package-outline",
                                                       "set-color",
                                                       "dictionary-entry",
                                                       "package-pin",
                                                       "padstack",
                                                       "padstack-hole",
                                                       "padstack-pad",
                                                       "phynet-point",
                                                       "stackup",
                                                       "stackup-group",
                                                       "stackup-layer",
                                                       "step-ref",
                                                       "text",
                                                       "function-mode"};

std::string WriteImported(const fs::path & path, const TempFolder & folder, facts::Facts & facts)
{
    const Imported imported = Import(path);
    facts = facts::FactsOfModel(*imported.board);
    PrepareForWriting(*imported.board);
    std::string written = folder.Path("written.cvg");
    CString writtenPath(written.c_str());
    CIPC2581_XmlLiteReader().WriteFilePath(writtenPath, *imported.board);
    return written;
}

class ForWriting : public testing::TestWithParam<const char *> {};

TEST_P(ForWriting, KeepsWhatIsDrawnOnTheWayThroughAFile)
{
    const TempFolder folder;
    facts::Facts before;
    const std::string written = WriteImported(fs::path(IPC2581_IMPORT_EXAMPLES) / GetParam(), folder, before);
    const Imported again = Import(written);
    auto comparisons = facts::Compare(before, facts::FactsOfModel(*again.board));
    std::erase_if(comparisons, [](const auto & comparison) { return NotCarried.contains(comparison.kind); });
    EXPECT_TRUE(std::all_of(comparisons.begin(), comparisons.end(), [](const auto & own) { return own.IsRight(); }))
        << facts::Table(comparisons, 3);
    EXPECT_GT(comparisons.size(), 3U);
}

std::string NameOf(const testing::TestParamInfo<const char *> & tested)
{
    std::string name = tested.param;
    name.resize(name.find('.'));
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Examples, ForWriting,
                         testing::Values("drawing.xml", "first-board.xml", "flex-zones.xml", "mixed-units.xml",
                                         "pads.xml", "panel.xml", "smallest-board.xml"),
                         NameOf);

void AddCornered(CIPC2581_DrawObjArray & shapes, int upperRight, int upperLeft)
{
    auto * const rect = new CIPC2581_DicDraw_RectRound();
    rect->Width = 4;
    rect->Height = 2;
    rect->Radius = 0.5;
    rect->UpperRight = upperRight;
    rect->UpperLeft = upperLeft;
    rect->LowerLeft = rect->LowerRight = 1;
    shapes.Add(rect);
}

TEST(ForWritingOfABoard, LeavesARectangleWithAllCornersAndDrawsOneWithSome)
{
    CIPC2581_Parser board;
    auto * const entry = new CIPC2581_Content_DictionaryStandard_EntryStandard();
    board.m_Content.DictionaryStandard->EntryArray->Add(entry);
    AddCornered(*entry->DrawArray, 1, 1);
    AddCornered(*entry->DrawArray, 0, 1);
    PrepareForWriting(board);
    ASSERT_EQ(entry->DrawArray->GetSize(), 2);
    const auto * const whole = dynamic_cast<CIPC2581_DicDraw_RectRound *>(entry->DrawArray->GetAt(0));
    ASSERT_NE(whole, nullptr);
    EXPECT_EQ(whole->UpperRight + whole->UpperLeft + whole->LowerLeft + whole->LowerRight, 0);
    EXPECT_NE(dynamic_cast<CIPC2581_DicDraw_Contour *>(entry->DrawArray->GetAt(1)), nullptr);
}

TEST(ForWritingOfABoard, TurnsEachCurveOnce)
{
    CIPC2581_Parser board;
    auto * const step = new CIPC2581_PolyStep();
    step->Type = StepTypes::Curve;
    step->ClockWise = 1;
    board.m_Ecad.m_CadData.m_Step.Profile.Polygon->PolyStepArray->Add(step);
    PrepareForWriting(board);
    EXPECT_EQ(step->ClockWise, 0);
}

TEST(ForWritingOfABoard, TellsWhatIsNeverWritten)
{
    CIPC2581_Parser board;
    EXPECT_TRUE(UnwrittenOf(board).empty());
    board.m_Bom.m_arrBomItem.Add(new CIPC2581_Bom_BomItem());
    auto * const component = new CIPC2581_Ecad_CadData_Step_Component();
    component->Xform->Mirror = 1;
    component->Height = 1.5;
    board.m_Ecad.m_CadData.m_Step.ComponentArray.Add(component);
    auto * const net = new CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet();
    board.m_Ecad.m_CadData.m_Step.PhyNetGroup.PhyNetArray.Add(net);
    for (const int test : {0, 1}) {
        auto * const point = new CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint();
        point->Test = test;
        net->PhyNetPointArray.Add(point);
    }
    const std::vector<Unwritten> unwritten = UnwrittenOf(board);
    ASSERT_EQ(unwritten.size(), 4U);
    EXPECT_EQ(unwritten[0].one, "item of the bill of materials");
    EXPECT_EQ(unwritten[1].one, "point of a net for tests");
    EXPECT_EQ(unwritten[1].count, 1U);
    EXPECT_EQ(unwritten[2].several, "mirrored components");
    EXPECT_EQ(unwritten[3].count, 1U);
}

}  // namespace
}  // namespace ipc2581::tests
