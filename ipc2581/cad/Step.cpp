#include "ipc2581/cad/Step.h"

#include <memory>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/cad/KeptProgress.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using Step = CIPC2581_Ecad_CadData_Step;

namespace {

// The children of a step that are single objects: the attributes of the opening line, then the lines behind it.

std::unique_ptr<CIPC2581_Ecad_CadData_Step_PadStack> ReadPadStack(LineCycle & line, CStdioFile & file)
{
    auto padStack = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_PadStack>::PadStack>(line, file);
    padStack->PadStackAdd(file);
    return padStack;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_Package> ReadPackage(LineCycle & line, CStdioFile & file)
{
    auto package = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_Package>::Package>(line, file);
    package->TypeCode = package->GetPackageType(package->type);
    package->PackageAdd(file);
    return package;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_Component> ReadComponent(LineCycle & line, CStdioFile & file)
{
    auto component = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_Component>::Component>(line, file);
    component->ComponetAdd(file);
    return component;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_LogicalNet> ReadLogicalNet(LineCycle & line, CStdioFile & file)
{
    auto net = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_LogicalNet>::LogicalNet>(line, file);
    net->LogicalNetAdd(file);
    return net;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_LayerFeature> ReadLayerFeature(LineCycle & line, CStdioFile & file)
{
    auto layerFeature = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_LayerFeature>::LayerFeature>(line, file);
    layerFeature->LayerFeatureAdd(file);
    return layerFeature;
}

}  // namespace

Step::CIPC2581_Ecad_CadData_Step() = default;

Step::CIPC2581_Ecad_CadData_Step(const Step & other) : CIPC2581_Ecad_CadData_Step()
{
    operator=(other);
}

Step & Step::operator=(const Step & other)
{
    Name = other.Name;
    return *this;
}

Step::~CIPC2581_Ecad_CadData_Step()
{
    ForgetProgress(Progress);
}

int Step::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Step name=\"%s\">\n", Indent(level + 1), Name);
    WriteLine(file, "%s<Datum x=\"%f\" y=\"%f\" />\n", Indent(level + 2), Datum.X, Datum.Y);
    if (!ExportParts(file, level + 1, Profile, PackageArray, ComponentArray, LogicalNetArray, PhyNetGroup,
                     LayerFeatureArray)) {
        return 0;
    }
    WriteLine(file, "%s</Step>\n", Indent(level + 1));
    return 1;
}

void Step::Init()
{
    Name = "";
    Progress = nullptr;
}

void Step::ReadStep(CArray<CString, CString> & tokens, CStdioFile & file, CProgressCtrl * progress)
{
    Progress = progress;
    ScanAttributes<Fields<Step>::Step>(tokens, *this);
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("PadStack")) {
            Append(PadStackArray, ReadPadStack(line, file));
        }
        else if (line.Opens("Datum")) {
            ScanAttributes<Fields<Step>::Datum>(line.Tokens(), *this);
        }
        else if (line.Opens("Profile")) {
            Profile.ReadProfile(file);
        }
        else if (line.Opens("Package")) {
            Append(PackageArray, ReadPackage(line, file));
            SetProgress(40);
        }
        else if (line.Opens("Component")) {
            Append(ComponentArray, ReadComponent(line, file));
            SetProgress(50);
        }
        else if (line.Opens("LogicalNet")) {
            Append(LogicalNetArray, ReadLogicalNet(line, file));
            SetProgress(60);
        }
        else if (line.Opens("PhyNetGroup")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup>::PhyNetGroup>(line.Tokens(), PhyNetGroup);
            PhyNetGroup.PhyNetGroupAdd(file);
            SetProgress(70);
        }
        else if (line.Opens("LayerFeature")) {
            Append(LayerFeatureArray, ReadLayerFeature(line, file));
            SetProgress(80);
        }
        else if (line.Holds("/Step")) {
            return;
        }
    }
}

void Step::SetProgress(int value)
{
    SendMessageA(Progress, PBM_SETPOS, value, 0);
}
