#include "ipc2581/cad/Hole.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_Hole::CIPC2581_Ecad_CadData_Step_Hole() = default;

CIPC2581_Ecad_CadData_Step_Hole::CIPC2581_Ecad_CadData_Step_Hole(const CIPC2581_Ecad_CadData_Step_Hole & other)
    : CIPC2581_Ecad_CadData_Step_Hole()
{
    operator=(other);
}

CIPC2581_Ecad_CadData_Step_Hole &
CIPC2581_Ecad_CadData_Step_Hole::operator=(const CIPC2581_Ecad_CadData_Step_Hole & other)
{
    // Without the location: hosts place a copied hole themselves.
    Name = other.Name;
    Diameter = other.Diameter;
    PlatingStatus = other.PlatingStatus;
    PlusTol = other.PlusTol;
    MinusTol = other.MinusTol;
    ToLayer = other.ToLayer;
    FromLayer = other.FromLayer;
    return *this;
}

CIPC2581_Ecad_CadData_Step_Hole::~CIPC2581_Ecad_CadData_Step_Hole() = default;

int CIPC2581_Ecad_CadData_Step_Hole::Export(CStdioFile & file, int level)
{
    WriteLine(file,
              "%s<Hole name=\"%s\" diameter=\"%s\" platingStatus=\"%s\" plusTol=\"%s\" minusTol=\"%s\" x=\"%f\" "
              "y=\"%f\" />\n",
              Indent(level + 1), Name, Diameter, PlatingStatus, PlusTol, MinusTol, Location.X, Location.Y);
    return 1;
}

void CIPC2581_Ecad_CadData_Step_Hole::Init()
{
    *this = CIPC2581_Ecad_CadData_Step_Hole();
}

void CIPC2581_Ecad_CadData_Step_Hole::LayerHoleAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Span")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Hole>::Span>(line.Tokens(), *this);
        }
        else if (line.Holds("/Hole") || line.Holds("/LayerHole")) {
            return;
        }
    }
}

void ipc2581::detail::ReadHole(const TokenList & tokens, CIPC2581_Ecad_CadData_Step_Hole & hole)
{
    using HoleFields = Fields<CIPC2581_Ecad_CadData_Step_Hole>;
    ScanAttributesTwice<HoleFields::Hole, HoleFields::HolePlace>(tokens, hole);
}

CIPC2581_Ecad_CadData_Step_HoleArray::CIPC2581_Ecad_CadData_Step_HoleArray() = default;

CIPC2581_Ecad_CadData_Step_HoleArray::~CIPC2581_Ecad_CadData_Step_HoleArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_HoleArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
