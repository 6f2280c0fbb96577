#include "ipc2581/cad/StackupLayer.h"

using StackupLayer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;

StackupLayer::CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer() = default;
StackupLayer::CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer(const StackupLayer & other) = default;
StackupLayer & StackupLayer::operator=(const StackupLayer & other) = default;
StackupLayer::~CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer() = default;

CIPC2581_StackupLayerArray::CIPC2581_StackupLayerArray() = default;

CIPC2581_StackupLayerArray::~CIPC2581_StackupLayerArray()
{
    DeleteAll();
}
