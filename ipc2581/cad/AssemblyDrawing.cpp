#include "ipc2581/cad/AssemblyDrawing.h"

#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/cad/PlainOutline.h"

using namespace ipc2581::detail;

using AssemblyDrawing = CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing;

AssemblyDrawing::CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing()
    : CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing(WithoutParts())
{
    Outline = new CIPC2581_Outline();
}

AssemblyDrawing::CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing(ObjectBlocks & blocks) : Text(blocks)
{
    Outline = MakeFrom<CIPC2581_Outline>(blocks);
}

AssemblyDrawing::CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing(const AssemblyDrawing & /*other*/)
    : CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing()
{
}

AssemblyDrawing & AssemblyDrawing::operator=(const AssemblyDrawing & /*other*/)
{
    return *this;
}

AssemblyDrawing::~CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing()
{
    delete Outline;
}

int AssemblyDrawing::Import(CStdioFile & /*file*/)
{
    return 1;
}

int AssemblyDrawing::Export(CStdioFile & file, int level)
{
    if (Outline->Polygon->PolyStepArray->IsEmpty()) {
        return 1;
    }
    return ExportElement(file, level, "AssemblyDrawing", Outline, Text, TargetArray);
}

AssemblyDrawing * AssemblyDrawing::clone() const
{
    return new AssemblyDrawing(*this);
}

void AssemblyDrawing::Init()
{
    CreateOrMakePlain(Outline);
    Text.Init();
    TargetArray.DeleteAll();
}
