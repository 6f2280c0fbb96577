#include "ipc2581/cad/Component.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/cad/Placement.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_Component::CIPC2581_Ecad_CadData_Step_Component() : Xform(new CIPC2581_Xform()) {}

CIPC2581_Ecad_CadData_Step_Component::CIPC2581_Ecad_CadData_Step_Component(ObjectBlocks & blocks)
    : Xform(MakeFrom<CIPC2581_Xform>(blocks))
{
}

// The transform is shared, not copied: hosts rely on it.
CIPC2581_Ecad_CadData_Step_Component::CIPC2581_Ecad_CadData_Step_Component(
    const CIPC2581_Ecad_CadData_Step_Component & other) = default;
CIPC2581_Ecad_CadData_Step_Component &
CIPC2581_Ecad_CadData_Step_Component::operator=(const CIPC2581_Ecad_CadData_Step_Component & other) = default;

CIPC2581_Ecad_CadData_Step_Component::~CIPC2581_Ecad_CadData_Step_Component()
{
    delete Xform;
}

int CIPC2581_Ecad_CadData_Step_Component::Export(CStdioFile & file, int level)
{
    WriteLine(file,
              "%s<Component refDes=\"%s\" packageRef=\"%s\" layerRef=\"%s\" part=\"%s\" mountType=\"%s\" "
              "standoff=\"%s\" height=\"0.0\">\n",
              Indent(level + 1), RefDes, PackageRef, LayerRef, Part, MountType, Standoff);
    if (Xform->Export(file, level + 1) == 0) {
        return 0;
    }
    WriteLocation(file, level + 1, Location);
    WriteLine(file, "%s</Component>\n", Indent(level + 1));
    return 1;
}

void CIPC2581_Ecad_CadData_Step_Component::Init()
{
    RefDes = "";
    PackageRef = "";
    Part = "";
    LayerRef = "";
    MountType = "OTHER";
    Spare = 0;
    Height = 0.0;
    Standoff = "";
    // The old transform is let go, not deleted: hosts may still hold it.
    Xform = new CIPC2581_Xform();
    Location.SetData(0.0, 0.0);
}

void CIPC2581_Ecad_CadData_Step_Component::ComponetAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Holds("Xform")) {
            ScanAttributes<Fields<CIPC2581_Xform>::OfComponent>(line.Tokens(), *Xform);
        }
        else if (line.Opens("Location")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Component>::Location>(line.Tokens(), *this);
        }
        else if (line.Holds("/Component")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_ComponentArray::CIPC2581_Ecad_CadData_Step_ComponentArray() = default;

CIPC2581_Ecad_CadData_Step_ComponentArray::~CIPC2581_Ecad_CadData_Step_ComponentArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_ComponentArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

CIPC2581_Ecad_CadData_Step_Component *
CIPC2581_Ecad_CadData_Step_ComponentArray::pGetIPCComponentWithName(CString name) const
{
    return FindFirst(*this, &CIPC2581_Ecad_CadData_Step_Component::RefDes, name);
}
