#ifndef IPC2581_LOGISTICS_REFDES_H
#define IPC2581_LOGISTICS_REFDES_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CString.h"

// A RefDes element of a bill of materials: one placement of an item.
class IPC2581_API CIPC2581_Bom_BomItem_RefDes {
public:
    CString name;
    bool populate = true;  // only "TRUE" in upper case is true in a file

    CIPC2581_Bom_BomItem_RefDes();
    CIPC2581_Bom_BomItem_RefDes(const CIPC2581_Bom_BomItem_RefDes & other);
    CIPC2581_Bom_BomItem_RefDes & operator=(const CIPC2581_Bom_BomItem_RefDes & other);
    virtual ~CIPC2581_Bom_BomItem_RefDes();
};

template <>
struct ipc2581::Fields<CIPC2581_Bom_BomItem_RefDes> {
    using Object = CIPC2581_Bom_BomItem_RefDes;
    static constexpr std::string_view Name = "CIPC2581_Bom_BomItem_RefDes";
    static constexpr auto RefDes =
        Element<Object>("RefDes", Text("name=", &Object::name), Flag("populate=", &Object::populate));
    static constexpr auto Elements = Pack{RefDes};
    static constexpr auto Members = Pack{Member{"name", &Object::name}, Member{"populate", &Object::populate}};
};

// The placements of an item, in file order; owned.
class IPC2581_API CIPC2581_BOMRefDesArray
    : public CExPtrArray<CIPC2581_Bom_BomItem_RefDes *, CIPC2581_Bom_BomItem_RefDes *> {
public:
    CIPC2581_BOMRefDesArray();
    ~CIPC2581_BOMRefDesArray() override;
};

#endif
