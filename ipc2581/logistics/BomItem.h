#ifndef IPC2581_LOGISTICS_BOMITEM_H
#define IPC2581_LOGISTICS_BOMITEM_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/logistics/RefDes.h"

// A BomItem element: one part to buy, with its placements. All values are text, the quantity too.
class IPC2581_API CIPC2581_Bom_BomItem {
public:
    CString quantity;
    CString numberIO;
    CString category;
    CString internalPartNumber;
    CString description;
    CString packageRef;
    CIPC2581_BOMRefDesArray m_arrRefDes;

    CIPC2581_Bom_BomItem();
    virtual ~CIPC2581_Bom_BomItem();
};

// The items of a bill of materials, in file order; owned.
class IPC2581_API CIPC2581_BomItemArray : public CExPtrArray<CIPC2581_Bom_BomItem *, CIPC2581_Bom_BomItem *> {
public:
    CIPC2581_BomItemArray();
    ~CIPC2581_BomItemArray() override;
};

#endif
