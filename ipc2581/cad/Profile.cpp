#include "ipc2581/cad/Profile.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/draw/Cutout.h"
#include "ipc2581/draw/ImportedShape.h"

using namespace ipc2581::detail;

CIPC2581_Ecad_CadData_Step_Profile::CIPC2581_Ecad_CadData_Step_Profile()
    : CIPC2581_Ecad_CadData_Step_Profile(WithoutParts())
{
    Init();
}

CIPC2581_Ecad_CadData_Step_Profile::CIPC2581_Ecad_CadData_Step_Profile(const CIPC2581_Ecad_CadData_Step_Profile & other)
    : CIPC2581_Ecad_CadData_Step_Profile()
{
    CIPC2581_Ecad_CadData_Step_Profile::operator=(other);
}

CIPC2581_Ecad_CadData_Step_Profile::~CIPC2581_Ecad_CadData_Step_Profile()
{
    delete Polygon;
    delete Cutouts;
}

CIPC2581_Ecad_CadData_Step_Profile * CIPC2581_Ecad_CadData_Step_Profile::clone() const
{
    return new CIPC2581_Ecad_CadData_Step_Profile(*this);
}

CIPC2581_Ecad_CadData_Step_Profile &
CIPC2581_Ecad_CadData_Step_Profile::operator=(const CIPC2581_Ecad_CadData_Step_Profile & other)
{
    if (this != &other) {
        *Polygon = *other.Polygon;
        *Cutouts = *other.Cutouts;
    }
    return *this;
}

int CIPC2581_Ecad_CadData_Step_Profile::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "Profile", Polygon, Cutouts);
}

void CIPC2581_Ecad_CadData_Step_Profile::Init()
{
    ResetOrCreate(Polygon);
    EmptyOrCreate(Cutouts);
}

void CIPC2581_Ecad_CadData_Step_Profile::ReadProfile(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Polygon")) {
            Polygon->Import(file);
        }
        else if (line.Opens("Cutout")) {
            ImportShape<CIPC2581_Cutout>(Cutouts, file);
        }
        else if (line.Holds("/Profile")) {
            return;
        }
    }
}
