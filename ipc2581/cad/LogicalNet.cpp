#include "ipc2581/cad/LogicalNet.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using PinArray = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray;

CIPC2581_Ecad_CadData_Step_LogicalNet::CIPC2581_Ecad_CadData_Step_LogicalNet() : LogicalNetPinArray(new PinArray()) {}

CIPC2581_Ecad_CadData_Step_LogicalNet::CIPC2581_Ecad_CadData_Step_LogicalNet(ObjectBlocks & blocks)
    : LogicalNetPinArray(MakeFrom<PinArray>(blocks))
{
}

// The list of pins is shared, not copied: hosts rely on it.
CIPC2581_Ecad_CadData_Step_LogicalNet::CIPC2581_Ecad_CadData_Step_LogicalNet(
    const CIPC2581_Ecad_CadData_Step_LogicalNet & other) = default;
CIPC2581_Ecad_CadData_Step_LogicalNet &
CIPC2581_Ecad_CadData_Step_LogicalNet::operator=(const CIPC2581_Ecad_CadData_Step_LogicalNet & other) = default;

CIPC2581_Ecad_CadData_Step_LogicalNet::~CIPC2581_Ecad_CadData_Step_LogicalNet()
{
    delete LogicalNetPinArray;
}

int CIPC2581_Ecad_CadData_Step_LogicalNet::Export(CStdioFile & file, int level)
{
    return ExportKeyedElement(file, level, "LogicalNet", "name", Name, LogicalNetPinArray);
}

void CIPC2581_Ecad_CadData_Step_LogicalNet::Init()
{
    // The old list is let go, not deleted: hosts may still hold it.
    LogicalNetPinArray = new PinArray();
}

void CIPC2581_Ecad_CadData_Step_LogicalNet::LogicalNetAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("LogicalNetPin")) {
            Append(*LogicalNetPinArray,
                   NewFrom<Fields<CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin>::LogicalNetPin>(line, file));
        }
        else if (line.Holds("/LogicalNet")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_LogicalNetArray::CIPC2581_Ecad_CadData_Step_LogicalNetArray() = default;

CIPC2581_Ecad_CadData_Step_LogicalNetArray::~CIPC2581_Ecad_CadData_Step_LogicalNetArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_LogicalNetArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
