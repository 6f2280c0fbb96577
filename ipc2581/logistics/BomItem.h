#ifndef IPC2581_LOGISTICS_BOMITEM_H
#define IPC2581_LOGISTICS_BOMITEM_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
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

template <>
struct ipc2581::Fields<CIPC2581_Bom_BomItem> {
    using Object = CIPC2581_Bom_BomItem;
    static constexpr std::string_view Name = "CIPC2581_Bom_BomItem";
    static constexpr auto BomItem =
        Element<Object>("BomItem", Text("quantity", &Object::quantity), Text("numberIO", &Object::numberIO),
                        Text("category", &Object::category), Text("internalPartNumber", &Object::internalPartNumber),
                        Text("description", &Object::description), Text("packageRef", &Object::packageRef));
    static constexpr auto Elements = Pack{BomItem};
    static constexpr auto Members = Pack{Member{"quantity", &Object::quantity},
                                         Member{"numberIO", &Object::numberIO},
                                         Member{"category", &Object::category},
                                         Member{"internalPartNumber", &Object::internalPartNumber},
                                         Member{"description", &Object::description},
                                         Member{"packageRef", &Object::packageRef},
                                         Member{"m_arrRefDes", &Object::m_arrRefDes, "RefDes"}};
};

// The items of a bill of materials, in file order; owned.
class IPC2581_API CIPC2581_BomItemArray : public CExPtrArray<CIPC2581_Bom_BomItem *, CIPC2581_Bom_BomItem *> {
public:
    CIPC2581_BomItemArray();
    ~CIPC2581_BomItemArray() override;
};

#endif
