#include "ipc2581/logistics/BomItem.h"

CIPC2581_Bom_BomItem::CIPC2581_Bom_BomItem() = default;
CIPC2581_Bom_BomItem::~CIPC2581_Bom_BomItem() = default;

CIPC2581_BomItemArray::CIPC2581_BomItemArray() = default;

CIPC2581_BomItemArray::~CIPC2581_BomItemArray()
{
    DeleteAll();
}
