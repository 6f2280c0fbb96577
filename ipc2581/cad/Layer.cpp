#include "ipc2581/cad/Layer.h"

#include "ipc2581/base/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_Ecad_CadData_Layer::CIPC2581_Ecad_CadData_Layer() = default;
CIPC2581_Ecad_CadData_Layer::CIPC2581_Ecad_CadData_Layer(const CIPC2581_Ecad_CadData_Layer & other) = default;
CIPC2581_Ecad_CadData_Layer &
CIPC2581_Ecad_CadData_Layer::operator=(const CIPC2581_Ecad_CadData_Layer & other) = default;
CIPC2581_Ecad_CadData_Layer::~CIPC2581_Ecad_CadData_Layer() = default;

int CIPC2581_Ecad_CadData_Layer::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Layer name=\"%s\" layerFunction=\"%s\" side=\"%s\" polarity=\"%s\">\n", Indent(level + 1), name,
              layerFunction, side, polarity);
    WriteLine(file, "%s</Layer>\n", Indent(level + 1));
    return 1;
}

CIPC2581_Ecad_CadData_LayerArray::CIPC2581_Ecad_CadData_LayerArray() = default;

CIPC2581_Ecad_CadData_LayerArray::~CIPC2581_Ecad_CadData_LayerArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_LayerArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

CIPC2581_Ecad_CadData_Layer * CIPC2581_Ecad_CadData_LayerArray::FindLayer(int id) const
{
    return FindFirst(*this, &CIPC2581_Ecad_CadData_Layer::m_nLayerId, id);
}
