#include "ipc2581/cad/Step.h"

#include <memory>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/cad/KeptProgress.h"
#include "ipc2581/cad/Placement.h"

using namespace ipc2581::detail;

using Step = CIPC2581_Ecad_CadData_Step;

namespace {

// The children of a step that are single objects: the attributes of the opening line, then the lines behind it.

std::unique_ptr<CIPC2581_Ecad_CadData_Step_PadStack> ReadPadStack(LineCycle & line, CStdioFile & file)
{
    auto padStack = New<CIPC2581_Ecad_CadData_Step_PadStack>(file);
    ScanAttributes(line.Tokens(), {Text("net=", padStack->NetName)});
    padStack->PadStackAdd(file);
    return padStack;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_Package> ReadPackage(LineCycle & line, CStdioFile & file)
{
    auto package = New<CIPC2581_Ecad_CadData_Step_Package>(file);
    ScanAttributes(line.Tokens(), {Text("name=", package->name), Text("type=", package->type)});
    package->TypeCode = package->GetPackageType(package->type);
    package->PackageAdd(file);
    return package;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_Component> ReadComponent(LineCycle & line, CStdioFile & file)
{
    auto component = New<CIPC2581_Ecad_CadData_Step_Component>(file);
    ScanAttributes(line.Tokens(), {Text("refDes=", component->RefDes), Text("packageRef=", component->PackageRef),
                                   Text("layerRef=", component->LayerRef), Text("part=", component->Part),
                                   Text("mountType=", component->MountType), Text("standoff=", component->Standoff),
                                   Number("height=", component->Height)});
    component->ComponetAdd(file);
    return component;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_LogicalNet> ReadLogicalNet(LineCycle & line, CStdioFile & file)
{
    auto net = New<CIPC2581_Ecad_CadData_Step_LogicalNet>(file);
    ScanAttributes(line.Tokens(), {Text("name=", net->Name)});
    net->LogicalNetAdd(file);
    return net;
}

std::unique_ptr<CIPC2581_Ecad_CadData_Step_LayerFeature> ReadLayerFeature(LineCycle & line, CStdioFile & file)
{
    auto layerFeature = New<CIPC2581_Ecad_CadData_Step_LayerFeature>(file);
    ScanAttributes(line.Tokens(), {Text("layerRef=", layerFeature->LayerRef)});
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
    ScanAttributes(tokens, {Text("name=", Name)});
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("PadStack")) {
            Append(PadStackArray, ReadPadStack(line, file));
        }
        else if (line.Opens("Datum")) {
            ReadLocation(line.Tokens(), Datum);
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
            ScanAttributes(line.Tokens(), {Text("name=", PhyNetGroup.Name)});
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
