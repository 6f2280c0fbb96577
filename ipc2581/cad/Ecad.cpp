#include "ipc2581/cad/Ecad.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad::CIPC2581_Ecad() = default;
CIPC2581_Ecad::~CIPC2581_Ecad() = default;

int CIPC2581_Ecad::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Ecad name=\"%s\">\n", Indent(level + 1), name);
    if (Export_CadHeader(file, level + 1) == 0 || Export_CadData(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Ecad>\n", Indent(level + 1));
    return 1;
}

int CIPC2581_Ecad::Export_CadHeader(CStdioFile & file, int level)
{
    WriteLine(file, "%s<CadHeader units=\"%s\">\n", Indent(level + 1), m_CadHeader.units);
    WriteLine(file, "%s</CadHeader>\n", Indent(level + 1));
    return 1;
}

int CIPC2581_Ecad::Export_CadData(CStdioFile & file, int level)
{
    return m_CadData.Export(file, level) != 0 ? 1 : 0;
}

void CIPC2581_Ecad::ReadCadHeader(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_Ecad_CadHeader>::CadHeader>(tokens, m_CadHeader);
}
