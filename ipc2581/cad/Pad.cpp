#include "ipc2581/cad/Pad.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/cad/Placement.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_Pad::CIPC2581_Ecad_CadData_Step_Pad() = default;
CIPC2581_Ecad_CadData_Step_Pad::CIPC2581_Ecad_CadData_Step_Pad(const CIPC2581_Ecad_CadData_Step_Pad & other) = default;
CIPC2581_Ecad_CadData_Step_Pad &
CIPC2581_Ecad_CadData_Step_Pad::operator=(const CIPC2581_Ecad_CadData_Step_Pad & other) = default;
CIPC2581_Ecad_CadData_Step_Pad::~CIPC2581_Ecad_CadData_Step_Pad() = default;

int CIPC2581_Ecad_CadData_Step_Pad::Export(CStdioFile & file, int level)
{
    if (Pin.IsEmpty()) {
        WriteLine(file, "%s<Pad>\n", Indent(level + 1));
    }
    else if (UsePinPrefix == 0) {
        WriteLine(file, "%s<Pad pin=\"%s\">\n", Indent(level + 1), Pin);
    }
    else {
        WriteLine(file, "%s<Pad pin=\"%s.%s\">\n", Indent(level + 1), PinPrefix, Pin);
    }
    if (Rotation != 0.0) {
        WriteLine(file, "%s<Xform rotation=\"%f\"/>\n", Indent(level + 2), Rotation);
    }
    WriteLocation(file, level + 1, Location);
    WriteStandardPrimitiveRef(file, level + 1, StandardPrimitiveRefId);
    WriteLine(file, "%s</Pad>\n", Indent(level + 1));
    return 1;
}

void CIPC2581_Ecad_CadData_Step_Pad::Init()
{
    *this = CIPC2581_Ecad_CadData_Step_Pad();
}

void CIPC2581_Ecad_CadData_Step_Pad::PadAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Holds("Xform")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Pad>::Xform>(line.Tokens(), *this);
        }
        else if (line.Opens("Location")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Pad>::Location>(line.Tokens(), *this);
        }
        else if (line.Holds("StandardPrimitiveRef")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Pad>::StandardPrimitiveRef>(line.Tokens(), *this);
        }
        else if (line.Holds("/Pad") || line.Holds("/LayerPad")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_PadArray::CIPC2581_Ecad_CadData_Step_PadArray() = default;

CIPC2581_Ecad_CadData_Step_PadArray::~CIPC2581_Ecad_CadData_Step_PadArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_PadArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
