#include "ipc2581/cad/PackageOutline.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/draw/Outline.h"

using namespace ipc2581::detail;

using PackageOutline = CIPC2581_Ecad_CadData_Step_Package_Outline;

PackageOutline::CIPC2581_Ecad_CadData_Step_Package_Outline()
    : CIPC2581_Ecad_CadData_Step_Package_Outline(WithoutParts())
{
    Init();
}

PackageOutline::CIPC2581_Ecad_CadData_Step_Package_Outline(ObjectBlocks & blocks)
    : CIPC2581_Ecad_CadData_Step_Package_Outline(WithoutParts())
{
    LineDesc = MakeFrom<CIPC2581_LineDesc>(blocks);
    Polygon = MakeFrom<CIPC2581_Polygon>(blocks);
}

PackageOutline::CIPC2581_Ecad_CadData_Step_Package_Outline(const PackageOutline & other)
    : CIPC2581_Ecad_CadData_Step_Package_Outline()
{
    PackageOutline::operator=(other);
}

PackageOutline::~CIPC2581_Ecad_CadData_Step_Package_Outline()
{
    delete LineDesc;
    delete Polygon;
}

PackageOutline * PackageOutline::clone() const
{
    return new PackageOutline(*this);
}

PackageOutline & PackageOutline::operator=(const PackageOutline & other)
{
    if (this != &other) {
        *LineDesc = *other.LineDesc;
        *Polygon = *other.Polygon;
    }
    return *this;
}

int PackageOutline::Import(CStdioFile & file)
{
    ReadOutline(file, Polygon, LineDesc);
    return 1;
}

int PackageOutline::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "Outline", LineDesc, Polygon);
}

void PackageOutline::Init()
{
    ResetOrCreate(LineDesc);
    ResetOrCreate(Polygon);
}
