// An element of the host's own that is deleted with the board finds the progress pointers of the board null.
#include <new>

#include "tests/small_hosts/Expect.h"

namespace {

int g_seen = 0;
CIPC2581_Ecad_CadData * g_cadData = nullptr;

// Reads the pointers as they stand in memory at this moment.
void ExpectNoProgress(bool isStepEnding)
{
    CProgressCtrl * const volatile & ofData = g_cadData->m_pProgressCtrl;
    CProgressCtrl * const volatile & ofStep = g_cadData->m_Step.Progress;
    Expect(ofData == nullptr, "the pointer of the data is null");
    Expect(!isStepEnding || ofStep == nullptr, "the pointer of the step is null");
    ++g_seen;
}

template <typename Base>
struct Member : Base {
    ~Member() override { ExpectNoProgress(true); }
};

struct Layer : CIPC2581_Ecad_CadData_Layer {
    ~Layer() override { ExpectNoProgress(false); }
};

struct Group : CIPC2581_Ecad_CadData_Stackup_StackupGroup {
    ~Group() override { ExpectNoProgress(false); }
};

}  // namespace

int main()
{
    const TempFile board(ExampleBoard());
    alignas(CIPC2581_Parser) static unsigned char place[sizeof(CIPC2581_Parser)];
    auto * const root = new (place) CIPC2581_Parser;
    CProgressCtrl progress;
    CIPC2581_XmlLiteReader reader;
    reader.m_pProgressCtrl = &progress;
    CString path = board.Name();
    reader.OpenPath(path, *root);

    g_cadData = &root->m_Ecad.m_CadData;
    CIPC2581_Ecad_CadData_Step & step = g_cadData->m_Step;
    Expect(g_cadData->m_pProgressCtrl == &progress && step.Progress == &progress, "a read keeps its progress control");
    g_cadData->m_arrLayer.Add(new Layer);
    g_cadData->m_Stackup.StackupGroupArray.Add(new Group);
    step.PadStackArray.Add(new Member<CIPC2581_Ecad_CadData_Step_PadStack>);
    step.PackageArray.Add(new Member<CIPC2581_Ecad_CadData_Step_Package>);
    step.ComponentArray.Add(new Member<CIPC2581_Ecad_CadData_Step_Component>);
    step.LogicalNetArray.Add(new Member<CIPC2581_Ecad_CadData_Step_LogicalNet>);
    step.PhyNetGroup.PhyNetArray.Add(new Member<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet>);
    step.LayerFeatureArray.Add(new Member<CIPC2581_Ecad_CadData_Step_LayerFeature>);
    step.Profile.Cutouts->Add(new Member<CIPC2581_Cutout>);
    root->~CIPC2581_Parser();
    Expect(g_seen == 9, "all of them were deleted");
}
