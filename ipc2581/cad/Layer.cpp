#include "ipc2581/cad/Layer.h"

#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

namespace {

constexpr const char * DefaultPolarity = "POSITIVE";

}  // namespace

CIPC2581_Ecad_CadData_Layer::CIPC2581_Ecad_CadData_Layer() : polarity(DefaultPolarity) {}

CIPC2581_Ecad_CadData_Layer::CIPC2581_Ecad_CadData_Layer(ObjectBlocks & blocks)
{
    polarity.Assign(DefaultPolarity, &blocks);
}

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
    for (std::int64_t i = 0; i < GetSize(); ++i) {
        if (GetAt(i)->m_nLayerId == id) {
            return GetAt(i);
        }
    }
    return nullptr;
}
