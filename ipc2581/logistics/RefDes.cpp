#include "ipc2581/logistics/RefDes.h"

CIPC2581_Bom_BomItem_RefDes::CIPC2581_Bom_BomItem_RefDes() = default;
CIPC2581_Bom_BomItem_RefDes::CIPC2581_Bom_BomItem_RefDes(const CIPC2581_Bom_BomItem_RefDes & other) = default;
CIPC2581_Bom_BomItem_RefDes &
CIPC2581_Bom_BomItem_RefDes::operator=(const CIPC2581_Bom_BomItem_RefDes & other) = default;
CIPC2581_Bom_BomItem_RefDes::~CIPC2581_Bom_BomItem_RefDes() = default;

CIPC2581_BOMRefDesArray::CIPC2581_BOMRefDesArray() = default;

CIPC2581_BOMRefDesArray::~CIPC2581_BOMRefDesArray()
{
    DeleteAll();
}
