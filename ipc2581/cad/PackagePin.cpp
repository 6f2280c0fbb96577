#include "ipc2581/cad/PackagePin.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/cad/Placement.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using Pin = CIPC2581_Ecad_CadData_Step_Package_Pin;
using PinArray = CIPC2581_Ecad_CadData_Step_Package_PinArray;

Pin::CIPC2581_Ecad_CadData_Step_Package_Pin()
{
    Init();
}

Pin::CIPC2581_Ecad_CadData_Step_Package_Pin(ObjectBlocks & blocks) : Outline(blocks)
{
    Xform = MakeFrom<CIPC2581_Xform>(blocks);
}

Pin::CIPC2581_Ecad_CadData_Step_Package_Pin(const Pin & other) : CIPC2581_XmlDataAdd_Function(other)
{
    operator=(other);
}

Pin & Pin::operator=(const Pin & other)
{
    number = other.number;
    name = other.name;
    type = other.type;
    electricalType = other.electricalType;
    SpareText = other.SpareText;
    // Shared, not copied: hosts rely on it.
    Xform = other.Xform;
    Location = other.Location;
    StandardPrimitiveRef = other.StandardPrimitiveRef;
    // Emptied first, so that a pin assigned to itself loses its outline.
    Outline.Init();
    Outline = other.Outline;
    return *this;
}

Pin::~CIPC2581_Ecad_CadData_Step_Package_Pin()
{
    delete Xform;
}

int Pin::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Pin number=\"%s\" name=\"%s\" type=\"%s\" electricalType=\"%s\">\n", Indent(level + 1), number,
              name, type, electricalType);
    WriteLocation(file, level + 1, Location);
    WriteStandardPrimitiveRef(file, level + 1, StandardPrimitiveRef);
    WriteLine(file, "%s</Pin>\n", Indent(level + 1));
    return 1;
}

void Pin::Init()
{
    number = "";
    name = "";
    type = "";
    electricalType = "";
    SpareText = "";
    // The old transform is let go, not deleted: hosts may still hold it.
    Xform = new CIPC2581_Xform();
    Location.SetData(0.0, 0.0);
    StandardPrimitiveRef = "";
}

void Pin::PinAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Xform")) {
            // Unlike in a component no word of a file mirrors a pin.
            ScanAttributes<Fields<CIPC2581_Xform>::OfPin>(line.Tokens(), *Xform);
        }
        else if (line.Opens("Location")) {
            ScanAttributes<Fields<Pin>::Location>(line.Tokens(), *this);
        }
        else if (line.Opens("StandardPrimitiveRef")) {
            ScanAttributes<Fields<Pin>::StandardPrimitiveRef>(line.Tokens(), *this);
        }
        else if (line.Opens("Outline")) {
            Outline.Import(file);
        }
        else if (line.Holds("/Pin")) {
            return;
        }
    }
}

PinArray::CIPC2581_Ecad_CadData_Step_Package_PinArray() = default;

PinArray::~CIPC2581_Ecad_CadData_Step_Package_PinArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_Package_PinArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

int PinArray::nGetIndexWithPinNumber(CString & /*first*/, CString & number) const
{
    const int index = FindIndex(FindFirst(*this, &Pin::number, number));
    return index == -1 ? -1 : index + 1;
}
