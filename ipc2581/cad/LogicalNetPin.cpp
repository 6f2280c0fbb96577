#include "ipc2581/cad/LogicalNetPin.h"

#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

using LogicalNetPin = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;

LogicalNetPin::CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin() = default;
LogicalNetPin::CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin(const LogicalNetPin & other) = default;
LogicalNetPin & LogicalNetPin::operator=(const LogicalNetPin & other) = default;
LogicalNetPin::~CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin() = default;

int LogicalNetPin::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<LogicalNetPin pin=\"%s\" componentRef=\"%s\" />\n", Indent(level + 1), Pin, ComponentRef);
    return 1;
}

void LogicalNetPin::Init()
{
    *this = LogicalNetPin();
}

CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray::CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray() =
    default;

CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray::~CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
